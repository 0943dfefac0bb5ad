// Entries of combo boxes and list boxes, and what of their changes the display hears.
#include <platform/controls/control_support.h>
#include <platform/controls/entry_list.h>
#include <platform/display/tell.h>

#include <algorithm>

namespace kv {

int EntryList::Insert(LONG_PTR index, std::string_view text, LPARAM data) {
    if (index == -1) index = count_;
    if (index < 0 || index > count_) return -1;
    if (static_cast<size_t>(count_) == slots_.size()) slots_.emplace_back();
    const auto first = slots_.begin() + index;
    const auto last = slots_.begin() + count_;
    std::rotate(first, last, last + 1);
    first->text.assign(text);
    first->data = data;
    first->selected = false;
    ++count_;
    return static_cast<int>(index);
}

int EntryList::SortedPlace(std::string_view text) const {
    int place = 0;
    while (place < count_ && CompareFolded((*this)[place].text, text) <= 0) ++place;
    return place;
}

void EntryList::Remove(int index) {
    const auto first = slots_.begin() + index;
    std::rotate(first, first + 1, slots_.begin() + count_);
    --count_;
}

int EntryList::Find(LONG_PTR after, std::string_view text, Match match) const {
    const int start = Has(after) ? static_cast<int>(after) + 1 : 0;
    for (int i = 0; i < count_; ++i) {
        const int index = (start + i) % count_;
        const std::string& candidate = (*this)[index].text;
        const bool found = match == Match::kWhole ? CompareFolded(candidate, text) == 0
                                                  : StartsWithFolded(candidate, text);
        if (found) return index;
    }
    return -1;
}

int EntryList::FindData(LONG_PTR after, LPARAM data) const {
    const int start = Has(after) ? static_cast<int>(after) + 1 : 0;
    for (int i = 0; i < count_; ++i) {
        const int index = (start + i) % count_;
        if ((*this)[index].data == data) return index;
    }
    return -1;
}

bool EntryList::ShowsTheSameAs(const EntryList& other) const {
    if (count_ != other.count_) return false;
    for (int i = 0; i < count_; ++i) {
        const Entry& mine = (*this)[i];
        const Entry& theirs = other[i];
        if (mine.data != theirs.data || mine.selected != theirs.selected ||
            mine.text != theirs.text) {
            return false;
        }
    }
    return true;
}

void EntryState::WillChange(const Window& window) {
    if (!window.redraw && pending == Pending::kNothing) pending = Pending::kChange;
}

void EntryState::WillClear(const Window& window) {
    if (window.redraw || pending != Pending::kNothing) return;
    pending = Pending::kRefill;
    std::swap(entries, shownEntries);
}

void EntryState::TellItems(const Window& window) {
    if (window.redraw) TellChanged(window.handle, kChangedItems | kChangedSelection);
}

void EntryState::TellSelection(const Window& window) {
    if (window.redraw) TellChanged(window.handle, kChangedSelection);
}

void EntryState::BeginQuiet() {
    pending = Pending::kNothing;
    shownSelection = selection;
}

unsigned EntryState::EndQuiet() {
    const bool changed = pending == Pending::kChange ||
                         (pending == Pending::kRefill && !entries.ShowsTheSameAs(shownEntries));
    pending = Pending::kNothing;
    if (changed) return kChangedItems | kChangedSelection;
    return selection != shownSelection ? static_cast<unsigned>(kChangedSelection) : 0u;
}

}  // namespace kv
