// LISTBOX: lists with one, several or no selected entries.
#include <platform/controls/classes.h>
#include <platform/controls/control_input.h>
#include <platform/controls/control_support.h>
#include <platform/controls/entry_messages.h>
#include <platform/display/tell.h>
#include <platform/window/input.h>

#include <algorithm>
#include <vector>

namespace kv {
namespace {

struct ListState : EntryState {
    int caret = 0;   // the entry with the focus rectangle
    int anchor = 0;  // where a Shift selection begins
    int top = 0;
    std::vector<int> tabStops;
};

ListState& StateFor(Window& window) {
    return StateOf<ListState>(window);
}

bool IsMulti(const Window& window) {
    return (window.style & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL)) != 0;
}
bool IsExtended(const Window& window) {
    return (window.style & LBS_EXTENDEDSEL) != 0;
}
bool IsUnselectable(const Window& window) {
    return (window.style & LBS_NOSEL) != 0;
}

Holds HoldsWhat(const Window& window) {
    return WhatItHolds(window.style, LBS_OWNERDRAWFIXED, LBS_HASSTRINGS);
}

// Without LBS_NOTIFY a list box keeps silent.
bool IsSilent(HWND handle) {
    const Window* window = WindowFromHandle(handle);
    return !window || (window->style & LBS_NOTIFY) == 0;
}

void NotifyList(HWND handle, WORD code) {
    if (!IsSilent(handle)) Notify(handle, code);
}

LRESULT OnFocusChange(HWND handle, Focused now) {
    if (IsSilent(handle)) return 0;
    return NotifyFocus(handle, now, now == Focused::kYes ? LBN_SETFOCUS : LBN_KILLFOCUS);
}

int VisibleEntries(const Window& window, const ListState& state) {
    const int height = window.rect.bottom - window.rect.top;
    return std::max(height / std::max(state.itemHeight, 1), 1);
}

void MoveCaret(Window& window, int index) {
    ListState& state = StateFor(window);
    state.caret = index;
    const int visible = VisibleEntries(window, state);
    if (index < state.top) state.top = std::max(index, 0);
    if (index >= state.top + visible) state.top = index - visible + 1;
}

// Sets the flags of a range in a multi-select list; answers whether any changed.
bool Mark(Window& window, int first, int last, bool selected) {
    ListState& state = StateFor(window);
    bool changed = false;
    for (int i = std::max(first, 0); i <= last && i < state.entries.Count(); ++i) {
        if (state.entries[i].selected == selected) continue;
        if (!changed) state.WillChange(window);
        state.entries[i].selected = selected;
        changed = true;
    }
    return changed;
}

bool MarkOnly(Window& window, int first, int last) {
    const int count = StateFor(window).entries.Count();
    const bool before = Mark(window, 0, first - 1, false);
    const bool within = Mark(window, first, last, true);
    const bool after = Mark(window, last + 1, count - 1, false);
    return before || within || after;
}

bool SelectSingle(Window& window, int index) {
    ListState& state = StateFor(window);
    if (state.selection == index) return false;
    state.selection = index;
    return true;
}

LRESULT SelectAt(Window& window, int index) {
    if (IsMulti(window)) return LB_ERR;
    ListState& state = StateFor(window);
    const bool found = state.entries.Has(index);
    if (SelectSingle(window, found ? index : -1)) state.TellSelection(window);
    if (!found) return LB_ERR;
    MoveCaret(window, index);
    return index;
}

LRESULT SetCurrent(const EntryCall& call) {
    return SelectAt(call.window, IndexOf(call.wParam));
}

LRESULT GetCurrent(const EntryCall& call) {
    const ListState& state = StateFor(call.window);
    if (!IsMulti(call.window)) return state.selection;
    return state.entries.Has(state.caret) ? state.caret : LB_ERR;
}

LRESULT SetSelected(const EntryCall& call) {
    Window& window = call.window;
    if (!IsMulti(window)) return LB_ERR;
    ListState& state = StateFor(window);
    const int index = static_cast<int>(call.lParam);
    if (index != -1 && !state.entries.Has(index)) return LB_ERR;
    const int first = index == -1 ? 0 : index;
    const int last = index == -1 ? state.entries.Count() - 1 : index;
    if (Mark(window, first, last, call.wParam != 0)) state.TellSelection(window);
    if (index != -1) MoveCaret(window, index);
    return 0;
}

LRESULT GetSelected(const EntryCall& call) {
    const EntryState& state = call.state;
    const int index = IndexOf(call.wParam);
    if (!state.entries.Has(index)) return LB_ERR;
    return IsMulti(call.window) ? state.entries[index].selected : state.selection == index;
}

// Counts the selected entries, or lists up to `capacity` of them.
LRESULT SelectedItems(Window& window, int capacity, int* out) {
    if (!IsMulti(window)) return LB_ERR;
    const ListState& state = StateFor(window);
    int count = 0;
    for (int i = 0; i < state.entries.Count(); ++i) {
        if (!state.entries[i].selected) continue;
        if (out && count >= capacity) break;
        if (out) out[count] = i;
        ++count;
    }
    return count;
}

LRESULT CountSelected(const EntryCall& call) {
    return SelectedItems(call.window, 0, nullptr);
}

LRESULT ListSelected(const EntryCall& call) {
    return SelectedItems(call.window, IndexOf(call.wParam), reinterpret_cast<int*>(call.lParam));
}

LRESULT Reset(const EntryCall& call) {
    ListState& state = StateFor(call.window);
    const bool empty = state.entries.Count() == 0;
    state.WillClear(call.window);
    state.entries.Clear();
    state.selection = -1;
    state.caret = state.anchor = state.top = 0;
    if (!empty) state.TellItems(call.window);
    return 0;
}

LRESULT Delete(const EntryCall& call) {
    ListState& state = StateFor(call.window);
    const LRESULT count = DeleteEntry(call);
    const int last = std::max(state.entries.Count() - 1, 0);
    state.caret = std::min(state.caret, last);
    state.anchor = std::min(state.anchor, last);
    state.top = std::min(state.top, last);
    return count;
}

LRESULT SelectString(const EntryCall& call) {
    const LRESULT found = FindEntry(call);
    return found < 0 ? LB_ERR : SelectAt(call.window, static_cast<int>(found));
}

// What a click on an entry does to the selection; answers whether it changed.
bool ApplyClick(Window& window, int index, unsigned modifiers) {
    ListState& state = StateFor(window);
    const bool shift = (modifiers & input::kShift) != 0;
    const bool control = (modifiers & input::kControl) != 0;
    if (!IsMulti(window)) return SelectSingle(window, index);
    const bool selected = state.entries[index].selected;
    if (!IsExtended(window)) return Mark(window, index, index, !selected);
    if (!shift) state.anchor = index;
    const int first = std::min(state.anchor, index);
    const int last = std::max(state.anchor, index);
    if (shift && control) return Mark(window, first, last, true);
    if (shift) return MarkOnly(window, first, last);
    if (control) return Mark(window, index, index, !selected);
    return MarkOnly(window, index, index);
}

LRESULT Choose(HWND handle, int index, unsigned modifiers) {
    Window& window = *WindowFromHandle(handle);
    if (!StateFor(window).entries.Has(index) || IsUnselectable(window)) return 0;
    MoveCaret(window, index);
    if (ApplyClick(window, index, modifiers)) StateFor(window).TellSelection(window);
    NotifyList(handle, LBN_SELCHANGE);
    return 1;
}

unsigned ModifiersDown() {
    return (KeyIsDown(VK_SHIFT) ? unsigned{input::kShift} : 0u) |
           (KeyIsDown(VK_CONTROL) ? unsigned{input::kControl} : 0u);
}

int EntryAt(const Window& window, const ListState& state, POINT point) {
    if (!InClient(window, point)) return -1;
    const int index = state.top + point.y / std::max(state.itemHeight, 1);
    return state.entries.Has(index) ? index : -1;
}

LRESULT OnMouseDown(HWND handle, LPARAM lParam) {
    if (!TakeFocus(handle)) return 0;
    Window& window = *WindowFromHandle(handle);
    const int index = EntryAt(window, StateFor(window), PointOf(lParam));
    if (index >= 0) Choose(handle, index, ModifiersDown());
    return 0;
}

LRESULT OnDoubleClick(Window& window, LPARAM lParam) {
    const bool onEntry = EntryAt(window, StateFor(window), PointOf(lParam)) >= 0;
    if (onEntry && !IsUnselectable(window)) NotifyList(window.handle, LBN_DBLCLK);
    return 0;
}

// By keyboard: the caret moves; the selection follows it, save in a list of independent entries.
void MoveByKey(HWND handle, int index) {
    Window& window = *WindowFromHandle(handle);
    ListState& state = StateFor(window);
    if (state.entries.Count() == 0 || IsUnselectable(window)) return;
    index = std::clamp(index, 0, state.entries.Count() - 1);
    MoveCaret(window, index);
    if (IsMulti(window) && !IsExtended(window)) {
        TellChanged(handle, kChangedSelection);
        return;
    }
    const unsigned modifiers = ModifiersDown();
    if (IsMulti(window) && modifiers == input::kControl) return;
    if (!ApplyClick(window, index, modifiers & input::kShift)) return;
    state.TellSelection(window);
    NotifyList(handle, LBN_SELCHANGE);
}

LRESULT OnKeyDown(Window& window, int virtualKey) {
    const ListState& state = StateFor(window);
    const int page = VisibleEntries(window, state);
    const bool nothingYet = !IsMulti(window) && state.selection < 0;
    const int at = nothingYet ? -1 : state.caret;
    switch (virtualKey) {
        case VK_UP:
        case VK_LEFT:
            MoveByKey(window.handle, at - 1);
            break;
        case VK_DOWN:
        case VK_RIGHT:
            MoveByKey(window.handle, at + 1);
            break;
        case VK_PRIOR:
            MoveByKey(window.handle, at - page);
            break;
        case VK_NEXT:
            MoveByKey(window.handle, at + page);
            break;
        case VK_HOME:
            MoveByKey(window.handle, 0);
            break;
        case VK_END:
            MoveByKey(window.handle, state.entries.Count() - 1);
            break;
        case VK_SPACE:
            if (IsMulti(window)) Choose(window.handle, state.caret, ModifiersDown());
            break;
        default:
            break;
    }
    return 0;
}

LRESULT OnCharacter(Window& window, char character) {
    if (static_cast<unsigned char>(character) <= ' ') return 0;
    const ListState& state = StateFor(window);
    const int at = IsMulti(window) ? state.caret : state.selection;
    const int found = state.entries.Find(at, std::string_view(&character, 1), Match::kPrefix);
    if (found >= 0) MoveByKey(window.handle, found);
    return 0;
}

LRESULT SetTabStops(Window& window, WPARAM count, LPARAM stops) {
    const auto* first = reinterpret_cast<const int*>(stops);
    const size_t number = first ? static_cast<size_t>(count) : 0;
    std::vector<int>& mine = StateFor(window).tabStops;
    if (std::equal(mine.begin(), mine.end(), first, first + number)) return TRUE;
    mine.assign(first, first + number);
    TellChanged(window.handle, kChangedItems);
    return TRUE;
}

LRESULT CopyTabStops(Window& window, WPARAM capacity, LPARAM buffer) {
    const std::vector<int>& stops = StateFor(window).tabStops;
    if (auto* out = reinterpret_cast<int*>(buffer)) {
        std::copy_n(stops.begin(), std::min<size_t>(capacity, stops.size()), out);
    }
    return static_cast<LRESULT>(stops.size());
}

LRESULT ItemRect(Window& window, WPARAM wParam, LPARAM lParam) {
    const ListState& state = StateFor(window);
    auto* rect = reinterpret_cast<RECT*>(lParam);
    const int index = IndexOf(wParam);
    if (!rect || !state.entries.Has(index)) return LB_ERR;
    const LONG top = (index - state.top) * state.itemHeight;
    *rect = {0, top, window.rect.right - window.rect.left, top + state.itemHeight};
    return 1;
}

LRESULT SetTop(Window& window, WPARAM wParam) {
    ListState& state = StateFor(window);
    const int index = IndexOf(wParam);
    if (!state.entries.Has(index)) return LB_ERR;
    state.top = index;
    return 0;
}

LRESULT SetCaret(Window& window, WPARAM wParam) {
    if (!StateFor(window).entries.Has(IndexOf(wParam))) return LB_ERR;
    MoveCaret(window, IndexOf(wParam));
    return 0;
}

LRESULT SetHeight(Window& window, LPARAM height) {
    if (height <= 0 || height > 255) return LB_ERR;
    ListState& state = StateFor(window);
    if (state.itemHeight == static_cast<int>(height)) return 0;
    state.itemHeight = static_cast<int>(height);
    TellChanged(window.handle, kChangedItems);
    return 0;
}

LRESULT OnCreate(HWND handle) {
    Window* window = WindowFromHandle(handle);
    const int standard = StateFor(*window).itemHeight;
    if ((window->style & LBS_OWNERDRAWFIXED) == 0) return 0;
    const UINT height = MeasureItem(handle, ODT_LISTBOX, 0, static_cast<UINT>(standard));
    window = WindowFromHandle(handle);
    if (!window) return -1;
    StateFor(*window).itemHeight = static_cast<int>(height);
    return 0;
}

// message, what answers it
constexpr EntryMessage kEntryMessages[] = {
    {LB_ADDSTRING, AddEntry},
    {LB_INSERTSTRING, InsertEntry},
    {LB_DELETESTRING, Delete},
    {LB_RESETCONTENT, Reset},
    {LB_GETCOUNT, CountEntries},
    {LB_GETTEXT, CopyEntry},
    {LB_GETTEXTLEN, EntryLength},
    {LB_GETITEMDATA, EntryData},
    {LB_SETITEMDATA, SetEntryData},
    {LB_FINDSTRING, FindEntry},
    {LB_FINDSTRINGEXACT, FindWholeEntry},
    {LB_SELECTSTRING, SelectString},
    {LB_GETCURSEL, GetCurrent},
    {LB_SETCURSEL, SetCurrent},
    {LB_GETSEL, GetSelected},
    {LB_SETSEL, SetSelected},
    {LB_GETSELCOUNT, CountSelected},
    {LB_GETSELITEMS, ListSelected},
};

EntryCall CallOn(Window& window, WPARAM wParam, LPARAM lParam) {
    const Order order = (window.style & LBS_SORT) != 0 ? Order::kSorted : Order::kAsGiven;
    return {window, StateFor(window), HoldsWhat(window), order, wParam, lParam};
}

}  // namespace

LRESULT ListBoxProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = WindowFromHandle(handle);
    if (!window) return 0;
    if (AsksForHelp(message, wParam)) return DefWindowProcA(handle, message, wParam, lParam);
    if (const EntryAnswer answer = AnswerTo(kEntryMessages, message)) {
        return answer(CallOn(*window, wParam, lParam));
    }
    switch (message) {
        case WM_CREATE:
            return OnCreate(handle);
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case WM_SETREDRAW:
            return SetEntriesRedraw(*window, StateFor(*window), wParam, lParam);
        case WM_SETFOCUS:
            return OnFocusChange(handle, Focused::kYes);
        case WM_KILLFOCUS:
            return OnFocusChange(handle, Focused::kNo);
        case WM_LBUTTONDOWN:
            return OnMouseDown(handle, lParam);
        case WM_LBUTTONDBLCLK:
            return OnDoubleClick(*window, lParam);
        case WM_KEYDOWN:
            return OnKeyDown(*window, static_cast<int>(wParam));
        case WM_CHAR:
            return OnCharacter(*window, static_cast<char>(wParam));
        case LB_SETTABSTOPS:
            return SetTabStops(*window, wParam, lParam);
        case LB_GETITEMRECT:
            return ItemRect(*window, wParam, lParam);
        case LB_GETTOPINDEX:
            return StateFor(*window).top;
        case LB_SETTOPINDEX:
            return SetTop(*window, wParam);
        case LB_GETCARETINDEX:
            return StateFor(*window).caret;
        case LB_SETCARETINDEX:
            return SetCaret(*window, wParam);
        case LB_GETITEMHEIGHT:
            return StateFor(*window).itemHeight;
        case LB_SETITEMHEIGHT:
            return SetHeight(*window, lParam);
        case KVM_GETTABSTOPS:
            return CopyTabStops(*window, wParam, lParam);
        case KVM_CHOOSE:
            return Choose(handle, IndexOf(wParam), static_cast<unsigned>(lParam));
        default:
            return DefWindowProcA(handle, message, wParam, lParam);
    }
}

}  // namespace kv
