// Entries of combo boxes and list boxes, and what of their changes the display hears.
#include <platform/controls/control_support.h>
#include <platform/controls/entry_list.h>
#include <platform/display/tell.h>

#include <algorithm>
#include <cstring>

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

LRESULT AddEntry(Window& window, EntryState& state, LPARAM item, Holds holds, Order order) {
    if (order == Order::kAsGiven || holds == Holds::kValues) {
        return InsertEntry(window, state, static_cast<WPARAM>(-1), item, holds);
    }
    const int place = state.entries.SortedPlace(TextOf(item));
    return InsertEntry(window, state, static_cast<WPARAM>(place), item, holds);
}

LRESULT InsertEntry(Window& window, EntryState& state, WPARAM index, LPARAM item, Holds holds) {
    state.WillChange(window);
    const bool texts = holds == Holds::kTexts;
    const int at =
        state.entries.Insert(IndexOf(index), texts ? TextOf(item) : "", texts ? 0 : item);
    if (at < 0) return -1;
    if (state.selection >= at) ++state.selection;
    state.TellItems(window);
    return at;
}

LRESULT DeleteEntry(Window& window, EntryState& state, WPARAM index) {
    const int at = IndexOf(index);
    if (!state.entries.Has(at)) return -1;
    state.WillChange(window);
    state.entries.Remove(at);
    if (state.selection == at) {
        state.selection = -1;
    } else if (state.selection > at) {
        --state.selection;
    }
    state.TellItems(window);
    return state.entries.Count();
}

LRESULT FindEntry(const EntryState& state, WPARAM after, LPARAM item, Match match, Holds holds) {
    if (holds == Holds::kValues) return state.entries.FindData(IndexOf(after), item);
    return state.entries.Find(IndexOf(after), TextOf(item), match);
}

LRESULT CopyEntry(const EntryState& state, WPARAM index, LPARAM buffer, Holds holds) {
    const int at = IndexOf(index);
    if (!state.entries.Has(at)) return -1;
    const Entry& entry = state.entries[at];
    if (holds == Holds::kTexts) return CopyOut(entry.text, buffer);
    if (buffer) std::memcpy(reinterpret_cast<void*>(buffer), &entry.data, sizeof entry.data);
    return sizeof entry.data;
}

LRESULT EntryLength(const EntryState& state, WPARAM index) {
    const int at = IndexOf(index);
    return state.entries.Has(at) ? static_cast<LRESULT>(state.entries[at].text.size()) : -1;
}

LRESULT EntryData(const EntryState& state, WPARAM index) {
    const int at = IndexOf(index);
    return state.entries.Has(at) ? state.entries[at].data : -1;
}

LRESULT SetEntryData(Window& window, EntryState& state, WPARAM index, LPARAM data) {
    const int at = IndexOf(index);
    if (!state.entries.Has(at)) return -1;
    if (state.entries[at].data == data) return 0;
    state.WillChange(window);
    state.entries[at].data = data;
    state.TellItems(window);
    return 0;
}

UINT MeasureItem(HWND control, UINT controlType, UINT item, UINT height) {
    MEASUREITEMSTRUCT measure{};
    measure.CtlType = controlType;
    measure.CtlID = static_cast<UINT>(GetDlgCtrlID(control));
    measure.itemID = item;
    measure.itemHeight = height;
    SendMessageA(GetParent(control), WM_MEASUREITEM, measure.CtlID,
                 reinterpret_cast<LPARAM>(&measure));
    return measure.itemHeight;
}

}  // namespace kv
