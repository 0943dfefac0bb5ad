// The property sheet: its pages, what OK, Cancel, Apply and the tabs do, and the messages of
// prsht.h. Its window is a dialog of its own class; the pages are child dialogs created when first
// shown.
#include <platform/controls/classes.h>
#include <platform/controls/control_input.h>
#include <platform/controls/control_support.h>
#include <platform/controls/property_sheet.h>
#include <platform/controls/sheet_state.h>
#include <platform/window/input.h>

#include <algorithm>
#include <utility>

namespace kv {
namespace {

constexpr LRESULT kNextPage = -1;  // answer to PSN_SETACTIVE: not this page

enum class Closing { kNo, kYes };

int PageCount(const SheetState& sheet) {
    return static_cast<int>(sheet.pages.size());
}

bool HasPage(const SheetState& sheet, int index) {
    return index >= 0 && index < PageCount(sheet);
}

HWND WindowOfPage(HWND handle, int index) {
    const SheetState* sheet = SheetOf(handle);
    return sheet && HasPage(*sheet, index) ? sheet->pages[static_cast<size_t>(index)]->window
                                           : nullptr;
}

HWND ActiveWindow(HWND handle) {
    const SheetState* sheet = SheetOf(handle);
    return sheet ? WindowOfPage(handle, sheet->active) : nullptr;
}

LRESULT NotifyPage(HWND handle, HWND page, UINT code, LPARAM extra = 0) {
    if (!page) return 0;
    PSHNOTIFY notice{};
    notice.hdr = {handle, 0, code};
    notice.lParam = extra;
    return SendMessageA(page, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notice));
}

void EnableButton(HWND handle, int id, bool enabled) {
    HWND button = GetDlgItem(handle, id);
    if (button && (IsWindowEnabled(button) != FALSE) != enabled) EnableWindow(button, enabled);
}

// PSN_KILLACTIVE: whether the active page lets itself be left.
bool MayLeave(HWND handle) {
    return NotifyPage(handle, ActiveWindow(handle), PSN_KILLACTIVE) == 0;
}

int IndexOfTemplate(const SheetState& sheet, LRESULT id) {
    for (int i = 0; i < PageCount(sheet); ++i) {
        const LPCSTR name = sheet.pages[static_cast<size_t>(i)]->Record().pszTemplate;
        if (IS_INTRESOURCE(name) && reinterpret_cast<LRESULT>(name) == id) return i;
    }
    return -1;
}

void RemovePage(HWND handle, int index) {
    SheetState* sheet = SheetOf(handle);
    if (!sheet || !HasPage(*sheet, index)) return;
    // The record outlives the page's window, which may still read it while it is destroyed.
    const std::unique_ptr<SheetPage> page = std::move(sheet->pages[static_cast<size_t>(index)]);
    sheet->pages.erase(sheet->pages.begin() + index);
    if (sheet->active == index) sheet->active = -1;
    if (sheet->active > index) --sheet->active;
    SendMessageA(sheet->tab, TCM_DELETEITEM, static_cast<WPARAM>(index), 0);
    if (page->window) DestroyWindow(page->window);
}

// Creates pages as needed and asks each by PSN_SETACTIVE, until one accepts. Answers its index.
int FindAcceptingPage(HWND handle, int index) {
    const SheetState* sheet = SheetOf(handle);
    // A page may send on to any other; a ring of refusals must end.
    for (int tries = sheet ? PageCount(*sheet) : 0; tries > 0; --tries) {
        HWND page = EnsurePage(handle, index);
        sheet = SheetOf(handle);
        if (!sheet) return -1;
        if (!page) {
            RemovePage(handle, index);
            index = std::min(index, PageCount(*sheet) - 1);
            if (index < 0) return -1;
            continue;
        }
        const LRESULT answer = NotifyPage(handle, page, PSN_SETACTIVE);
        sheet = SheetOf(handle);
        if (!sheet) return -1;
        if (answer == 0) return index;
        const int other = answer == kNextPage ? index + 1 : IndexOfTemplate(*sheet, answer);
        if (!HasPage(*sheet, other)) return index;
        index = other;
    }
    return sheet && HasPage(*sheet, index) ? index : -1;
}

bool FocusIsIn(HWND window) {
    HWND focus = GetFocus();
    return window && focus && (focus == window || IsChild(window, focus));
}

// PSN_QUERYINITIALFOCUS lets the page name another control than its first.
void FocusPage(HWND handle, HWND page) {
    HWND first = GetNextDlgTabItem(page, nullptr, FALSE);
    const auto answer =
        NotifyPage(handle, page, PSN_QUERYINITIALFOCUS, reinterpret_cast<LPARAM>(first));
    auto chosen = reinterpret_cast<HWND>(answer);
    if (!chosen || !IsWindow(chosen) || !IsChild(page, chosen)) chosen = first;
    if (chosen && SheetOf(handle)) {
        SendMessageA(handle, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(chosen), TRUE);
    }
}

enum class FocusChange { kIntoPage, kIfItWasInPage };

// Brings a page to the front. The page left has agreed before.
bool Activate(HWND handle, int index, FocusChange focus) {
    HWND previous = ActiveWindow(handle);
    const int accepted = FindAcceptingPage(handle, index);
    SheetState* sheet = SheetOf(handle);
    if (!sheet || accepted < 0) return false;
    sheet->active = accepted;
    SendMessageA(sheet->tab, TCM_SETCURSEL, static_cast<WPARAM>(accepted), 0);
    const SheetPage& page = *sheet->pages[static_cast<size_t>(accepted)];
    HWND current = page.window;
    EnableButton(handle, IDHELP, (page.Record().dwFlags & PSP_HASHELP) != 0);
    const bool moveFocus = focus == FocusChange::kIntoPage || FocusIsIn(previous) || !GetFocus();
    ShowWindow(current, SW_SHOW);
    // The focus leaves the old page while that can still be seen, as its edits expect.
    if (moveFocus && current != previous && IsWindowVisible(handle)) FocusPage(handle, current);
    if (previous && previous != current && IsWindow(previous)) ShowWindow(previous, SW_HIDE);
    return SheetOf(handle) != nullptr;
}

LRESULT SelectPage(HWND handle, int index) {
    const SheetState* sheet = SheetOf(handle);
    if (!sheet || !HasPage(*sheet, index)) return FALSE;
    if (sheet->active == index) return TRUE;
    if (!MayLeave(handle)) return FALSE;
    return Activate(handle, index, FocusChange::kIfItWasInPage);
}

// The way of a click on a tab: the tab control asks (TCN_SELCHANGING) and reports.
LRESULT SelectByUser(HWND handle, int index) {
    const SheetState* sheet = SheetOf(handle);
    return SendMessageA(sheet->tab, KVM_CHOOSE, static_cast<WPARAM>(index), 0);
}

void Turn(HWND handle, int direction) {
    const SheetState* sheet = SheetOf(handle);
    const int count = PageCount(*sheet);
    if (count > 1) SelectByUser(handle, (sheet->active + direction + count) % count);
}

void UpdateApply(HWND handle) {
    const SheetState* sheet = SheetOf(handle);
    if (!sheet) return;
    const bool changed = std::any_of(sheet->pages.begin(), sheet->pages.end(),
                                     [](const auto& page) { return page->changed; });
    EnableButton(handle, kSheetApplyButton, changed);
}

LRESULT MarkChanged(HWND handle, HWND window, bool changed) {
    for (const auto& page : SheetOf(handle)->pages) {
        if (!window || page->window != window) continue;
        if (page->changed == changed) return TRUE;
        page->changed = changed;
        UpdateApply(handle);
        return TRUE;
    }
    return FALSE;
}

// PSN_APPLY to every page that was ever shown; false when one refuses.
bool AskPagesToApply(HWND handle, Closing closing) {
    const SheetState* sheet = SheetOf(handle);
    for (int i = 0; sheet && i < PageCount(*sheet); ++i, sheet = SheetOf(handle)) {
        HWND page = WindowOfPage(handle, i);
        if (!page) continue;
        const LRESULT answer = NotifyPage(handle, page, PSN_APPLY, closing == Closing::kYes);
        if (answer == PSNRET_NOERROR) continue;
        sheet = SheetOf(handle);
        if (!sheet) return false;
        if (answer == PSNRET_INVALID && sheet->active != i) {
            Activate(handle, i, FocusChange::kIntoPage);
        } else {
            NotifyPage(handle, ActiveWindow(handle), PSN_SETACTIVE);
        }
        return false;
    }
    return sheet != nullptr;
}

// OK and Apply. The active page was told that it is left (PSN_KILLACTIVE), so when the sheet stays
// open it is told that it is active again.
bool Apply(HWND handle, Closing closing) {
    if (!MayLeave(handle) || !AskPagesToApply(handle, closing)) return false;
    SheetState* sheet = SheetOf(handle);
    if (!sheet) return false;
    const SheetApplied applied = sheet->applied;
    const bool taken =
        !applied || applied(handle, closing == Closing::kYes) == SheetAnswer::kTaken;
    sheet = SheetOf(handle);
    if (!sheet) return true;
    if (taken) {
        for (const auto& page : sheet->pages) page->changed = false;
        UpdateApply(handle);
    }
    if (!taken || closing == Closing::kNo) {
        NotifyPage(handle, ActiveWindow(handle), PSN_SETACTIVE);
    }
    return taken;
}

void End(HWND handle, INT_PTR result) {
    SheetState* sheet = SheetOf(handle);
    if (!sheet) return;
    sheet->ended = true;
    sheet->result = result;
}

enum class CancelledBy { kButton, kCloseBox };

void Cancel(HWND handle, CancelledBy by) {
    if (NotifyPage(handle, ActiveWindow(handle), PSN_QUERYCANCEL) != 0) return;
    const SheetState* sheet = SheetOf(handle);
    for (int i = 0; sheet && i < PageCount(*sheet); ++i, sheet = SheetOf(handle)) {
        NotifyPage(handle, WindowOfPage(handle, i), PSN_RESET, by == CancelledBy::kCloseBox);
    }
    End(handle, 0);
}

LRESULT OnCommand(HWND handle, int id) {
    if (SheetOf(handle)->ended) return 0;
    HWND button = GetDlgItem(handle, id);
    if (button && !IsWindowEnabled(button)) return 0;
    switch (id) {
        case IDOK:
            if (Apply(handle, Closing::kYes)) End(handle, 1);
            break;
        case IDCANCEL:
            Cancel(handle, CancelledBy::kButton);
            break;
        case kSheetApplyButton:
            Apply(handle, Closing::kNo);
            break;
        case IDHELP:
            NotifyPage(handle, ActiveWindow(handle), PSN_HELP);
            break;
        default:
            break;
    }
    return 0;
}

LRESULT OnNotify(HWND handle, const NMHDR& header) {
    const SheetState* sheet = SheetOf(handle);
    if (header.hwndFrom != sheet->tab) return 0;
    if (header.code == TCN_SELCHANGING) return MayLeave(handle) ? FALSE : TRUE;
    if (header.code == TCN_SELCHANGE) {
        const auto index = static_cast<int>(SendMessageA(sheet->tab, TCM_GETCURSEL, 0, 0));
        Activate(handle, index, FocusChange::kIfItWasInPage);
    }
    return 0;
}

LRESULT PressButton(HWND handle, WPARAM button) {
    switch (button) {
        case PSBTN_OK:
            return OnCommand(handle, IDOK);
        case PSBTN_APPLYNOW:
            return OnCommand(handle, kSheetApplyButton);
        case PSBTN_CANCEL:
            return OnCommand(handle, IDCANCEL);
        case PSBTN_HELP:
            return OnCommand(handle, IDHELP);
        default:
            return 0;
    }
}

// A change that cannot be taken back was made: OK becomes Close, Cancel is dead.
LRESULT CancelToClose(HWND handle) {
    SetDlgItemTextA(handle, IDOK, "Close");
    EnableButton(handle, IDCANCEL, false);
    return 0;
}

LRESULT AskSiblings(HWND handle, WPARAM wParam, LPARAM lParam) {
    const SheetState* sheet = SheetOf(handle);
    for (int i = 0; sheet && i < PageCount(*sheet); ++i, sheet = SheetOf(handle)) {
        HWND page = WindowOfPage(handle, i);
        if (!page) continue;
        const LRESULT answer = SendMessageA(page, PSM_QUERYSIBLINGS, wParam, lParam);
        if (answer != 0) return answer;
    }
    return 0;
}

LRESULT RemoveByMessage(HWND handle, int index) {
    const SheetState* sheet = SheetOf(handle);
    if (!HasPage(*sheet, index)) return FALSE;
    if (sheet->active == index) {
        const int count = PageCount(*sheet);
        if (count < 2) return FALSE;
        if (!SelectPage(handle, index + 1 < count ? index + 1 : index - 1)) return FALSE;
    }
    RemovePage(handle, index);
    UpdateApply(handle);
    return TRUE;
}

// The pages go in their order, before the sheet's own controls.
LRESULT OnDestroy(HWND handle) {
    for (int i = 0; SheetOf(handle) && HasPage(*SheetOf(handle), i); ++i) {
        HWND page = WindowOfPage(handle, i);
        if (page) DestroyWindow(page);
        if (SheetState* sheet = SheetOf(handle)) {
            if (HasPage(*sheet, i)) sheet->pages[static_cast<size_t>(i)]->window = nullptr;
        }
    }
    return 0;
}

// The messages of prsht.h; false for another message.
bool SheetMessage(HWND handle, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const auto window = reinterpret_cast<HWND>(wParam);
    const int index = static_cast<int>(wParam);
    switch (message) {
        case PSM_CHANGED:
            return result = MarkChanged(handle, window, true), true;
        case PSM_UNCHANGED:
            return result = MarkChanged(handle, window, false), true;
        case PSM_SETCURSEL:
            return result = SelectPage(handle, index), true;
        case PSM_REMOVEPAGE:
            return result = RemoveByMessage(handle, index), true;
        case PSM_CANCELTOCLOSE:
            return result = CancelToClose(handle), true;
        case PSM_QUERYSIBLINGS:
            return result = AskSiblings(handle, wParam, lParam), true;
        case PSM_APPLY:
            return result = Apply(handle, Closing::kNo), true;
        case PSM_SETTITLEA:
            return result = SetWindowTextA(handle, TextOf(lParam)), true;
        case PSM_PRESSBUTTON:
            return result = PressButton(handle, wParam), true;
        case PSM_GETTABCONTROL:
            return result = reinterpret_cast<LRESULT>(SheetOf(handle)->tab), true;
        case PSM_GETCURRENTPAGEHWND:
            // Null tells the owner of a modeless sheet that it is time to destroy it.
            result =
                reinterpret_cast<LRESULT>(SheetOf(handle)->ended ? nullptr : ActiveWindow(handle));
            return true;
        case PSM_INDEXTOHWND:
            return result = reinterpret_cast<LRESULT>(WindowOfPage(handle, index)), true;
        case KVM_SELECTPAGE:
            return result = SelectByUser(handle, index), true;
        default:
            return false;
    }
}

}  // namespace

LRESULT SheetProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!WindowFromHandle(handle)) return 0;
    LRESULT result = 0;
    if (SheetMessage(handle, message, wParam, lParam, result)) return result;
    switch (message) {
        case WM_NCCREATE:
            return PrepareSheetWindow(handle), TRUE;
        case WM_COMMAND:
            return OnCommand(handle, LOWORD(wParam));
        case WM_NOTIFY:
            return OnNotify(handle, *reinterpret_cast<const NMHDR*>(lParam));
        case WM_CLOSE:
            if (!SheetOf(handle)->ended) Cancel(handle, CancelledBy::kCloseBox);
            return 0;
        case WM_DESTROY:
            return OnDestroy(handle);
        default:
            return DefDlgProcA(handle, message, wParam, lParam);
    }
}

bool ShowPageAtStart(HWND sheet, int index) {
    return Activate(sheet, index, FocusChange::kIntoPage);
}

void FocusActivePage(HWND sheet) {
    if (HWND page = ActiveWindow(sheet)) FocusPage(sheet, page);
}

void OnSheetApplied(HWND sheet, SheetApplied applied) {
    if (SheetState* state = SheetOf(sheet)) state->applied = std::move(applied);
}

bool SheetEnded(HWND sheet) {
    const SheetState* state = SheetOf(sheet);
    return !state || state->ended;
}

INT_PTR SheetResult(HWND sheet) {
    const SheetState* state = SheetOf(sheet);
    return state ? state->result : 0;
}

bool SheetHandlesKey(HWND sheet, int virtualKey, unsigned modifiers) {
    if (!SheetOf(sheet) || (modifiers & input::kControl) == 0) return false;
    const bool shift = (modifiers & input::kShift) != 0;
    switch (virtualKey) {
        case VK_TAB:
            return Turn(sheet, shift ? -1 : 1), true;
        case VK_NEXT:
            return Turn(sheet, 1), true;
        case VK_PRIOR:
            return Turn(sheet, -1), true;
        default:
            return false;
    }
}

}  // namespace kv
