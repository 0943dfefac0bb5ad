// COMBOBOX: drop-down lists and combo boxes with an edit field. One window holds both parts; the
// text of the edit field, or of the chosen entry, is the window's text.
#include <platform/controls/classes.h>
#include <platform/controls/control_input.h>
#include <platform/controls/control_support.h>
#include <platform/controls/edit_field.h>
#include <platform/controls/entry_messages.h>
#include <platform/display/tell.h>

#include <algorithm>
#include <string_view>

namespace kv {
namespace {

constexpr int kFieldHeight = 15;  // of the closed box, without its border
constexpr int kFieldBorder = 6;   // above and below together
constexpr int kEntriesPerPage = 8;
constexpr int kFieldItem = -1;  // the closed box, in messages about heights

struct ComboState : EntryState {
    EditField field;
    int fieldHeight = kFieldHeight;
    bool dropped = false;
    int selectionBeforeDrop = -1;
};

ComboState& StateFor(Window& window) {
    return StateOf<ComboState>(window);
}

ComboState* StateFor(HWND handle) {
    Window* window = WindowFromHandle(handle);
    return window ? &StateFor(*window) : nullptr;
}

DWORD KindBits(const Window& window) {
    return window.style & 0x0003;
}
bool HasField(const Window& window) {
    return KindBits(window) != CBS_DROPDOWNLIST;
}
bool DropsDown(const Window& window) {
    return KindBits(window) != CBS_SIMPLE;
}

bool IsOwnerDrawn(const Window& window) {
    return (window.style & (CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE)) != 0;
}

Holds HoldsWhat(const Window& window) {
    return WhatItHolds(window.style, CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE, CBS_HASSTRINGS);
}

DWORD FieldStyle(const Window& window) {
    return HasField(window) ? 0 : ES_READONLY;
}

// The closed box has the height of its field; what the template gives is the opened height.
void FitHeight(Window& window) {
    if (!DropsDown(window)) return;
    const LONG height = StateFor(window).fieldHeight + kFieldBorder;
    if (window.rect.bottom - window.rect.top == height) return;
    window.rect.bottom = window.rect.top + height;
    TellChanged(window.handle, kChangedGeometry);
}

void SetFieldText(Window& window, std::string_view text) {
    if (window.text != text) {
        window.text.assign(text);
        if (HasField(window)) TellChanged(window.handle, kChangedText);
    }
    StateFor(window).field.Select(0, static_cast<int>(text.size()), window.text);
}

// Without any notification, as CB_SETCURSEL does it.
void SelectQuietly(Window& window, int index) {
    ComboState& state = StateFor(window);
    const bool found = state.entries.Has(index);
    SetFieldText(window, found ? std::string_view(state.entries[index].text) : "");
    const int selection = found ? index : -1;
    if (state.selection == selection) return;
    state.selection = selection;
    state.TellSelection(window);
}

LRESULT GetCurrent(const EntryCall& call) {
    return call.state.selection;
}

LRESULT SetCurrent(const EntryCall& call) {
    SelectQuietly(call.window, IndexOf(call.wParam));
    return call.state.selection;
}

LRESULT SelectString(const EntryCall& call) {
    const LRESULT found = FindEntry(call);
    if (found >= 0) SelectQuietly(call.window, static_cast<int>(found));
    return found;
}

LRESULT Reset(const EntryCall& call) {
    EntryState& state = call.state;
    const bool empty = state.entries.Count() == 0;
    state.WillClear(call.window);
    state.entries.Clear();
    SelectQuietly(call.window, -1);
    if (!empty) state.TellItems(call.window);
    return 0;
}

LRESULT Delete(const EntryCall& call) {
    const bool wasSelected = call.state.selection == IndexOf(call.wParam);
    const LRESULT count = DeleteEntry(call);
    if (wasSelected && count >= 0 && !HasField(call.window)) SetFieldText(call.window, "");
    return count;
}

void SetDropped(HWND handle, bool dropped) {
    ComboState* state = StateFor(handle);
    if (!state || state->dropped == dropped) return;
    state->dropped = dropped;
    TellChanged(handle, kChangedDropped);
}

bool IsDropped(HWND handle) {
    const ComboState* state = StateFor(handle);
    return state && state->dropped;
}

// False when a handler destroyed the box.
bool Open(HWND handle) {
    Window* window = WindowFromHandle(handle);
    if (!window || !DropsDown(*window)) return window != nullptr;
    StateFor(*window).selectionBeforeDrop = StateFor(*window).selection;
    if (!Notify(handle, CBN_DROPDOWN)) return false;
    SetDropped(handle, true);
    return true;
}

enum class Ending { kAccept, kCancel };

void CloseList(HWND handle, Ending ending) {
    Window* window = WindowFromHandle(handle);
    if (!window || !StateFor(*window).dropped) return;
    if (ending == Ending::kCancel) SelectQuietly(*window, StateFor(*window).selectionBeforeDrop);
    if (!Notify(handle, ending == Ending::kAccept ? CBN_SELENDOK : CBN_SELENDCANCEL)) return;
    SetDropped(handle, false);
    Notify(handle, CBN_CLOSEUP);
}

// The entry is selected before the first notification: handlers of CBN_SELENDOK read it.
LRESULT Choose(HWND handle, int index) {
    Window* window = WindowFromHandle(handle);
    if (!StateFor(*window).entries.Has(index)) return 0;
    if (!IsDropped(handle) && !Open(handle)) return 1;
    window = WindowFromHandle(handle);
    // A handler of CBN_DROPDOWN may have rebuilt the list.
    if (!StateFor(*window).entries.Has(index)) return CloseList(handle, Ending::kCancel), 0;
    SelectQuietly(*window, index);
    // A dialog that a handler opens takes the focus, which closes the list: the choice stands then.
    StateFor(*window).selectionBeforeDrop = index;
    if (!Notify(handle, CBN_SELENDOK) || !Notify(handle, CBN_SELCHANGE)) return 1;
    if (!IsDropped(handle)) return 1;
    SetDropped(handle, false);
    Notify(handle, CBN_CLOSEUP);
    return 1;
}

// By keyboard: a closed box takes the entry at once, an open list only moves its mark.
void MoveTo(HWND handle, int index) {
    Window* window = WindowFromHandle(handle);
    ComboState& state = StateFor(*window);
    if (state.entries.Count() == 0) return;
    index = std::clamp(index, 0, state.entries.Count() - 1);
    if (index == state.selection) return;
    SelectQuietly(*window, index);
    if (!state.dropped && !Notify(handle, CBN_SELENDOK)) return;
    Notify(handle, CBN_SELCHANGE);
}

void Toggle(HWND handle) {
    if (IsDropped(handle)) {
        CloseList(handle, Ending::kAccept);
    } else {
        Open(handle);
    }
}

// The entry that a movement key leads to, or -2 for another key.
int Destination(const Window& window, const ComboState& state, int virtualKey) {
    const int current = state.selection;
    switch (virtualKey) {
        case VK_UP:
            return std::max(current - 1, 0);
        case VK_DOWN:
            return current + 1;
        case VK_PRIOR:
            return std::max(current - kEntriesPerPage, 0);
        case VK_NEXT:
            return current + kEntriesPerPage;
        default:
            break;
    }
    if (HasField(window)) return -2;
    switch (virtualKey) {
        case VK_LEFT:
            return std::max(current - 1, 0);
        case VK_RIGHT:
            return current + 1;
        case VK_HOME:
            return 0;
        case VK_END:
            return state.entries.Count() - 1;
        default:
            return -2;
    }
}

void FinishEdit(HWND handle, EditOutcome outcome) {
    ComboState* state = StateFor(handle);
    if (outcome == EditOutcome::kMoved) TellChanged(handle, kChangedSelection);
    if (outcome == EditOutcome::kRefused || outcome == EditOutcome::kFull) MessageBeep(0);
    if (outcome != EditOutcome::kChanged || !state) return;
    // What is typed is no entry until one is chosen.
    state->selection = -1;
    TellChanged(handle, kChangedText | kChangedSelection);
    if (Notify(handle, CBN_EDITUPDATE)) Notify(handle, CBN_EDITCHANGE);
}

LRESULT OnKeyDown(Window& window, int virtualKey) {
    const HWND handle = window.handle;
    ComboState& state = StateFor(window);
    const bool arrow = virtualKey == VK_DOWN || virtualKey == VK_UP;
    if (virtualKey == VK_F4 || (arrow && KeyIsDown(VK_MENU))) return Toggle(handle), 0;
    if (state.dropped && virtualKey == VK_RETURN) return CloseList(handle, Ending::kAccept), 0;
    if (state.dropped && virtualKey == VK_ESCAPE) return CloseList(handle, Ending::kCancel), 0;
    const int destination = Destination(window, state, virtualKey);
    if (destination >= -1) return MoveTo(handle, destination), 0;
    if (HasField(window)) {
        FinishEdit(handle, EditKey(state.field, window.text, virtualKey, FieldStyle(window)));
    }
    return 0;
}

LRESULT OnCharacter(Window& window, char character) {
    const HWND handle = window.handle;
    ComboState& state = StateFor(window);
    if (HasField(window)) {
        FinishEdit(handle, EditCharacter(state.field, window.text, character, FieldStyle(window)));
        return 0;
    }
    if (static_cast<unsigned char>(character) < 0x20) return 0;
    const int found =
        state.entries.Find(state.selection, std::string_view(&character, 1), Match::kPrefix);
    if (found >= 0) MoveTo(handle, found);
    return 0;
}

LRESULT TakeText(Window& window, LPARAM lParam) {
    const auto* user = reinterpret_cast<const UserText*>(lParam);
    if (!user || !HasField(window)) return 0;
    const HWND handle = window.handle;
    const UserEdit edit = TakeUserText(StateFor(window).field, window.text, *user, 0);
    if (edit.corrected) {
        TellChanged(handle, kChangedText | kChangedSelection);
        MessageBeep(0);
    }
    FinishEdit(handle, edit.outcome);
    return 1;
}

LRESULT SetText(Window& window, WPARAM wParam, LPARAM lParam) {
    if (!HasField(window)) return CB_ERR;
    const LRESULT result = DefWindowProcA(window.handle, WM_SETTEXT, wParam, lParam);
    if (Window* after = WindowFromHandle(window.handle)) {
        ComboState& state = StateFor(*after);
        state.selection = -1;
        state.field.Select(0, 0, after->text);
    }
    return result;
}

// Of the closed box or of an entry.
int& HeightOf(const EntryCall& call) {
    ComboState& state = StateFor(call.window);
    return IndexOf(call.wParam) == kFieldItem ? state.fieldHeight : state.itemHeight;
}

LRESULT GetHeight(const EntryCall& call) {
    return HeightOf(call);
}

LRESULT SetHeight(const EntryCall& call) {
    if (call.lParam <= 0 || call.lParam > 255) return CB_ERR;
    const int height = static_cast<int>(call.lParam);
    if (HeightOf(call) == height) return 0;
    HeightOf(call) = height;
    TellChanged(call.window.handle, kChangedItems);
    FitHeight(call.window);
    return 0;
}

LRESULT OnCreate(HWND handle) {
    ComboState* state = StateFor(handle);
    const Window* window = WindowFromHandle(handle);
    if (IsOwnerDrawn(*window)) {
        const UINT field = MeasureItem(handle, ODT_COMBOBOX, static_cast<UINT>(kFieldItem),
                                       static_cast<UINT>(state->fieldHeight));
        const UINT item =
            MeasureItem(handle, ODT_COMBOBOX, 0, static_cast<UINT>(state->itemHeight));
        state = StateFor(handle);
        if (!state) return -1;
        state->fieldHeight = static_cast<int>(field);
        state->itemHeight = static_cast<int>(item);
    }
    FitHeight(*WindowFromHandle(handle));
    return 0;
}

LRESULT DialogCode(Window& window, LPARAM lParam) {
    const LRESULT code = DLGC_WANTARROWS | DLGC_WANTCHARS | (HasField(window) ? DLGC_HASSETSEL : 0);
    const auto* key = reinterpret_cast<const MSG*>(lParam);
    const bool ends =
        key && key->message == WM_KEYDOWN && (key->wParam == VK_RETURN || key->wParam == VK_ESCAPE);
    return ends && StateFor(window).dropped ? code | DLGC_WANTALLKEYS : code;
}

LRESULT EditSelection(Window& window, WPARAM wParam, LPARAM lParam) {
    if (!HasField(window)) return CB_ERR;
    const EditField& field = StateFor(window).field;
    const auto start = static_cast<DWORD>(field.SelectionStart());
    const auto end = static_cast<DWORD>(field.SelectionEnd());
    if (auto* out = reinterpret_cast<DWORD*>(wParam)) *out = start;
    if (auto* out = reinterpret_cast<DWORD*>(lParam)) *out = end;
    return MAKELPARAM(start, end);
}

LRESULT SelectInField(Window& window, int start, int end) {
    if (!HasField(window)) return 0;
    EditField& field = StateFor(window).field;
    const int length = static_cast<int>(window.text.size());
    const bool moved = start < 0 ? field.Select(field.caret, field.caret, window.text)
                                 : field.Select(start, end < 0 ? length : end, window.text);
    if (moved) TellChanged(window.handle, kChangedSelection);
    return 1;
}

LRESULT LimitText(Window& window, WPARAM limit) {
    const int most = limit == 0 || limit > 0x7FFFFFFE ? 0x7FFFFFFE : static_cast<int>(limit);
    EditField& field = StateFor(window).field;
    if (field.limit != most) {
        field.limit = most;
        TellChanged(window.handle, kChangedRange);
    }
    return 1;
}

LRESULT OnKillFocus(HWND handle) {
    CloseList(handle, Ending::kCancel);
    return NotifyFocus(handle, Focused::kNo, CBN_KILLFOCUS);
}

LRESULT OnMouseDown(HWND handle) {
    if (TakeFocus(handle)) Toggle(handle);
    return 0;
}

LRESULT OnShowList(HWND handle, bool show) {
    if (show && !IsDropped(handle)) Open(handle);
    if (!show) CloseList(handle, Ending::kCancel);
    return 1;
}

// message, what answers it
constexpr EntryMessage kEntryMessages[] = {
    {CB_ADDSTRING, AddEntry},
    {CB_INSERTSTRING, InsertEntry},
    {CB_DELETESTRING, Delete},
    {CB_RESETCONTENT, Reset},
    {CB_GETCOUNT, CountEntries},
    {CB_GETLBTEXT, CopyEntry},
    {CB_GETLBTEXTLEN, EntryLength},
    {CB_GETITEMDATA, EntryData},
    {CB_SETITEMDATA, SetEntryData},
    {CB_FINDSTRING, FindEntry},
    {CB_FINDSTRINGEXACT, FindWholeEntry},
    {CB_SELECTSTRING, SelectString},
    {CB_GETCURSEL, GetCurrent},
    {CB_SETCURSEL, SetCurrent},
    {CB_SETITEMHEIGHT, SetHeight},
    {CB_GETITEMHEIGHT, GetHeight},
};

EntryCall CallOn(Window& window, WPARAM wParam, LPARAM lParam) {
    const Order order = (window.style & CBS_SORT) != 0 ? Order::kSorted : Order::kAsGiven;
    return {window, StateFor(window), HoldsWhat(window), order, wParam, lParam};
}

}  // namespace

LRESULT ComboBoxProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = WindowFromHandle(handle);
    if (!window) return 0;
    if (AsksForHelp(message, wParam)) return DefWindowProcA(handle, message, wParam, lParam);
    if (const EntryAnswer answer = AnswerTo(kEntryMessages, message)) {
        return answer(CallOn(*window, wParam, lParam));
    }
    switch (message) {
        case WM_CREATE:
            return OnCreate(handle);
        case WM_SIZE:
            return FitHeight(*window), 0;
        case WM_GETDLGCODE:
            return DialogCode(*window, lParam);
        case WM_SETREDRAW:
            return SetEntriesRedraw(*window, StateFor(*window), wParam, lParam);
        case WM_SETTEXT:
            return SetText(*window, wParam, lParam);
        case WM_SETFOCUS:
            return NotifyFocus(handle, Focused::kYes, CBN_SETFOCUS);
        case WM_KILLFOCUS:
            return OnKillFocus(handle);
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN:
            return OnKeyDown(*window, static_cast<int>(wParam));
        case WM_CHAR:
            return OnCharacter(*window, static_cast<char>(wParam));
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            return OnMouseDown(handle);
        case CB_GETDROPPEDSTATE:
            return IsDropped(handle);
        case CB_SHOWDROPDOWN:
            return OnShowList(handle, wParam != 0);
        case CB_GETEDITSEL:
            return EditSelection(*window, wParam, lParam);
        case CB_LIMITTEXT:
            return LimitText(*window, wParam);
        case EM_SETSEL:
            return SelectInField(*window, static_cast<int>(wParam), static_cast<int>(lParam));
        case KVM_CHOOSE:
            return Choose(handle, IndexOf(wParam));
        case KVM_DROPDOWN:
            return OnShowList(handle, wParam != 0);
        case KVM_USERTEXT:
            return TakeText(*window, lParam);
        default:
            return DefWindowProcA(handle, message, wParam, lParam);
    }
}

}  // namespace kv
