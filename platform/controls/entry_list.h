// The entries of a combo box or list box. Pages empty and refill their lists after every choice, so
// clearing keeps the memory, and a refill that ends where it began can be told from a change.
#pragma once

#include <platform/window/window.h>

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

namespace kv {

struct Entry {
    std::string text;
    LPARAM data = 0;
    bool selected = false;  // multi-select lists only
};

enum class Match { kPrefix, kWhole };

class EntryList {
 public:
    int Count() const { return count_; }
    bool Has(LONG_PTR index) const { return index >= 0 && index < count_; }
    Entry& operator[](int index) { return slots_[static_cast<size_t>(index)]; }
    const Entry& operator[](int index) const { return slots_[static_cast<size_t>(index)]; }

    // Answers the index of the new entry; index -1 appends, one beyond the end fails with -1.
    int Insert(LONG_PTR index, std::string_view text, LPARAM data);
    // Where CBS_SORT and LBS_SORT put this text.
    int SortedPlace(std::string_view text) const;
    void Remove(int index);
    void Clear() { count_ = 0; }
    // Searches from behind `after` and wraps around; -1 starts at the top. Answers -1 for no match.
    int Find(LONG_PTR after, std::string_view text, Match match) const;
    int FindData(LONG_PTR after, LPARAM data) const;
    // Same texts and data in the same order.
    bool ShowsTheSameAs(const EntryList& other) const;

 private:
    std::vector<Entry> slots_;  // those beyond count_ only keep their memory
    int count_ = 0;
};

// The part of the state that combo boxes and list boxes have in common.
struct EntryState : ControlState {
    EntryList entries;
    int selection = -1;
    int itemHeight = 13;

    // What the display knows, kept while WM_SETREDRAW is off.
    enum class Pending { kNothing, kRefill, kChange };
    Pending pending = Pending::kNothing;
    EntryList shownEntries;
    int shownSelection = -1;

    // Before an entry changes or the list is emptied.
    void WillChange(const Window& window);
    void WillClear(const Window& window);
    // After it: the display hears of it now, or when redrawing is switched on.
    void TellItems(const Window& window);
    void TellSelection(const Window& window);
    // WM_SETREDRAW on: what has really changed since it was switched off.
    void BeginQuiet();
    unsigned EndQuiet();
};

}  // namespace kv
