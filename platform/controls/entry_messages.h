// The messages about entries that combo boxes and list boxes share, under two sets of numbers. Each
// of the two has a table of its numbers and of what answers them.
#pragma once

#include <platform/controls/entry_list.h>

#include <span>

namespace kv {

// Whether the entries are texts; otherwise an owner-drawn list keeps only the caller's value.
enum class Holds { kTexts, kValues };
inline Holds WhatItHolds(DWORD style, DWORD ownerDrawn, DWORD hasStrings) {
    return (style & ownerDrawn) == 0 || (style & hasStrings) != 0 ? Holds::kTexts : Holds::kValues;
}
enum class Order { kAsGiven, kSorted };

struct EntryCall {
    Window& window;
    EntryState& state;
    Holds holds;
    Order order;
    WPARAM wParam;
    LPARAM lParam;
};

using EntryAnswer = LRESULT (*)(const EntryCall& call);
struct EntryMessage {
    UINT message;
    EntryAnswer answer;
};
// Null for a message that is not in the table.
EntryAnswer AnswerTo(std::span<const EntryMessage> table, UINT message);

// All answer -1 for an index or a text that is not there.
LRESULT AddEntry(const EntryCall& call);
LRESULT InsertEntry(const EntryCall& call);
LRESULT DeleteEntry(const EntryCall& call);
LRESULT CountEntries(const EntryCall& call);
LRESULT FindEntry(const EntryCall& call);
LRESULT FindWholeEntry(const EntryCall& call);
LRESULT CopyEntry(const EntryCall& call);
LRESULT EntryLength(const EntryCall& call);
LRESULT EntryData(const EntryCall& call);
LRESULT SetEntryData(const EntryCall& call);

// WM_SETREDRAW: what changed while it was off is told when it comes on again.
LRESULT SetEntriesRedraw(Window& window, EntryState& state, WPARAM on, LPARAM lParam);
// Asks the parent for the height of an owner-drawn control's entry; `height` when it does not
// answer.
UINT MeasureItem(HWND control, UINT controlType, UINT item, UINT height);

// An index as it comes in a message: a 32-bit value in which -1 is meaningful.
inline int IndexOf(WPARAM wParam) {
    return static_cast<int>(wParam);
}

}  // namespace kv
