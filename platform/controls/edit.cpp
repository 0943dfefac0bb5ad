// EDIT: single-line and multi-line text fields.
#include <platform/controls/classes.h>
#include <platform/controls/control_input.h>
#include <platform/controls/control_support.h>
#include <platform/controls/edit_field.h>
#include <platform/controls/up_down.h>
#include <platform/display/tell.h>

#include <algorithm>

namespace kv {
namespace {

// The caret follows a click by the average character width of the dialog font.
constexpr int kCharacterWidth = 6;
constexpr int kSingleLineMost = 0x7FFFFFFE;

struct EditState : ControlState {
    EditField field;
};

EditField& FieldOf(Window& window) {
    return StateOf<EditState>(window).field;
}

// The text is on record before anybody is told, and nothing is touched afterwards: a handler of
// EN_UPDATE may set another text, whose own notifications then come first.
void NotifyChange(HWND handle) {
    if (Notify(handle, EN_UPDATE)) Notify(handle, EN_CHANGE);
}

LRESULT Finish(HWND handle, EditOutcome outcome) {
    switch (outcome) {
        case EditOutcome::kNothing:
            break;
        case EditOutcome::kMoved:
            TellChanged(handle, kChangedSelection);
            break;
        case EditOutcome::kChanged:
            TellChanged(handle, kChangedText | kChangedSelection);
            NotifyChange(handle);
            break;
        case EditOutcome::kFull:
            Notify(handle, EN_MAXTEXT);
            break;
        case EditOutcome::kRefused:
            MessageBeep(0);
            break;
    }
    return 0;
}

LRESULT OnCharacter(Window& window, char character) {
    const bool wantsReturn = (window.style & ES_WANTRETURN) != 0 || KeyIsDown(VK_CONTROL);
    if (character == '\n') character = '\r';  // Ctrl+Enter
    if (character == '\r' && !wantsReturn) return 0;
    return Finish(window.handle,
                  EditCharacter(FieldOf(window), window.text, character, window.style));
}

// Enter begins a new line where the style says so, and with Ctrl in every edit of several lines;
// else it presses the dialog's default button.
LRESULT DialogCode(const Window& window, LPARAM lParam) {
    const LRESULT code = DLGC_WANTCHARS | DLGC_HASSETSEL | DLGC_WANTARROWS;
    const auto* key = reinterpret_cast<const MSG*>(lParam);
    const bool enter = key && key->message == WM_KEYDOWN && key->wParam == VK_RETURN;
    const bool takesIt = (window.style & ES_MULTILINE) != 0 &&
                         ((window.style & ES_WANTRETURN) != 0 || KeyIsDown(VK_CONTROL));
    return enter && takesIt ? code | DLGC_WANTALLKEYS : code;
}

LRESULT OnKeyDown(Window& window, int virtualKey) {
    if ((virtualKey == VK_UP || virtualKey == VK_DOWN) &&
        StepBuddy(window.handle, virtualKey == VK_UP ? 1 : -1)) {
        return 0;
    }
    return Finish(window.handle, EditKey(FieldOf(window), window.text, virtualKey, window.style));
}

LRESULT SetText(Window& window, WPARAM wParam, LPARAM lParam) {
    const HWND handle = window.handle;
    EditField& field = FieldOf(window);
    const bool moved = field.Select(0, 0, window.text);
    field.modified = false;
    const bool notifies = (window.style & ES_MULTILINE) == 0;
    const LRESULT result = DefWindowProcA(handle, WM_SETTEXT, wParam, lParam);
    if (moved) TellChanged(handle, kChangedSelection);
    if (notifies) NotifyChange(handle);
    return result;
}

LRESULT TakeWholeText(Window& window, LPARAM lParam) {
    const auto* user = reinterpret_cast<const UserText*>(lParam);
    if (!user || (window.style & ES_READONLY) != 0) return 0;
    const HWND handle = window.handle;
    const UserEdit edit = TakeUserText(FieldOf(window), window.text, *user, window.style);
    // The display's own field shows what was refused; it must hear even of a text that stayed.
    if (edit.corrected) {
        TellChanged(handle, kChangedText | kChangedSelection);
        MessageBeep(0);
    }
    Finish(handle, edit.outcome);
    if (edit.full) Notify(handle, EN_MAXTEXT);
    return 1;
}

LRESULT ReplaceByProgram(Window& window, LPARAM lParam) {
    const HWND handle = window.handle;
    const std::string before = window.text;
    const EditOutcome outcome = ReplaceSelection(FieldOf(window), window.text, TextOf(lParam));
    if (window.text != before) Finish(handle, EditOutcome::kChanged);
    if (outcome == EditOutcome::kFull) Notify(handle, EN_MAXTEXT);
    return 0;
}

LRESULT SetSelection(Window& window, WPARAM wParam, LPARAM lParam) {
    EditField& field = FieldOf(window);
    const int start = static_cast<int>(wParam);
    const int end = static_cast<int>(lParam);
    const int length = static_cast<int>(window.text.size());
    const bool moved = start < 0 ? field.Select(field.caret, field.caret, window.text)
                                 : field.Select(start, end < 0 ? length : end, window.text);
    if (moved) TellChanged(window.handle, kChangedSelection);
    return 1;
}

LRESULT GetSelection(Window& window, WPARAM wParam, LPARAM lParam) {
    const EditField& field = FieldOf(window);
    const int start = field.SelectionStart();
    const int end = field.SelectionEnd();
    if (auto* out = reinterpret_cast<DWORD*>(wParam)) *out = static_cast<DWORD>(start);
    if (auto* out = reinterpret_cast<DWORD*>(lParam)) *out = static_cast<DWORD>(end);
    if (end > 0xFFFF) return -1;
    return MAKELPARAM(static_cast<unsigned>(start), static_cast<unsigned>(end));
}

LRESULT SetLimit(Window& window, WPARAM wParam) {
    EditField& field = FieldOf(window);
    const int limit = wParam == 0 || wParam > static_cast<WPARAM>(kSingleLineMost)
                          ? kSingleLineMost
                          : static_cast<int>(wParam);
    if (field.limit == limit) return 0;
    field.limit = limit;
    TellChanged(window.handle, kChangedRange);
    return 0;
}

LRESULT SetStyleBit(Window& window, DWORD bit, bool on) {
    const DWORD style = on ? window.style | bit : window.style & ~bit;
    if (style != window.style) {
        window.style = style;
        TellChanged(window.handle, kChangedStyle);
    }
    return 1;
}

LRESULT OnMouseDown(HWND handle, LPARAM lParam) {
    if (!TakeFocus(handle)) return 0;
    Window& window = *WindowFromHandle(handle);
    if ((window.style & ES_MULTILINE) != 0) return 0;
    EditField& field = FieldOf(window);
    const int at = std::max<int>(PointOf(lParam).x, 0) / kCharacterWidth;
    const int caret = std::min(at, static_cast<int>(window.text.size()));
    if (field.Select(KeyIsDown(VK_SHIFT) ? field.anchor : caret, caret, window.text)) {
        TellChanged(handle, kChangedSelection);
    }
    return 0;
}

LRESULT OnDoubleClick(HWND handle) {
    if (TakeFocus(handle)) SendMessageA(handle, EM_SETSEL, 0, -1);
    return 0;
}

LRESULT OnCreate(Window& window) {
    FieldOf(window);
    return 0;
}

}  // namespace

LRESULT EditProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = WindowFromHandle(handle);
    if (!window) return 0;
    if (AsksForHelp(message, wParam)) return DefWindowProcA(handle, message, wParam, lParam);
    switch (message) {
        case WM_CREATE:
            return OnCreate(*window);
        case WM_GETDLGCODE:
            return DialogCode(*window, lParam);
        case WM_SETTEXT:
            return SetText(*window, wParam, lParam);
        case WM_CHAR:
            return OnCharacter(*window, static_cast<char>(wParam));
        case WM_KEYDOWN:
            return OnKeyDown(*window, static_cast<int>(wParam));
        case WM_LBUTTONDOWN:
            return OnMouseDown(handle, lParam);
        case WM_LBUTTONDBLCLK:
            return OnDoubleClick(handle);
        case WM_SETFOCUS:
            return NotifyFocus(handle, Focused::kYes, EN_SETFOCUS);
        case WM_KILLFOCUS:
            return NotifyFocus(handle, Focused::kNo, EN_KILLFOCUS);
        case EM_GETSEL:
            return GetSelection(*window, wParam, lParam);
        case EM_SETSEL:
            return SetSelection(*window, wParam, lParam);
        case EM_REPLACESEL:
            return ReplaceByProgram(*window, lParam);
        case EM_GETMODIFY:
            return FieldOf(*window).modified;
        case EM_SETMODIFY:
            return FieldOf(*window).modified = wParam != 0, 0;
        case EM_SETLIMITTEXT:
            return SetLimit(*window, wParam);
        case EM_GETLIMITTEXT:
            return FieldOf(*window).limit;
        case EM_SETREADONLY:
            return SetStyleBit(*window, ES_READONLY, wParam != 0);
        case EM_SETPASSWORDCHAR:
            return SetStyleBit(*window, ES_PASSWORD, wParam != 0);
        case KVM_USERTEXT:
            return TakeWholeText(*window, lParam);
        default:
            return DefWindowProcA(handle, message, wParam, lParam);
    }
}

}  // namespace kv
