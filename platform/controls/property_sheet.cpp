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

enum class Closing { kNo, kYes };

HWND ActiveWindow(HWND handle) {
    const SheetState* sheet = SheetOf(handle);
    return sheet ? WindowOfPage(handle, sheet->active) : nullptr;
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
    EnableSheetButton(handle, kSheetApplyButton, changed);
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
            TurnTo(handle, i, FocusChange::kIntoPage);
        } else {
            TellActive(handle);
        }
        return false;
    }
    return sheet != nullptr;
}

// While pages answer what OK, Apply or Cancel ask, none of the three begins anew.
class Deciding {
 public:
    explicit Deciding(HWND handle) : handle_(handle) { SheetOf(handle)->deciding = true; }
    ~Deciding() {
        if (SheetState* sheet = SheetOf(handle_)) sheet->deciding = false;
    }
    Deciding(const Deciding&) = delete;
    Deciding& operator=(const Deciding&) = delete;

 private:
    HWND handle_;
};

// OK and Apply. The active page was told that it is left (PSN_KILLACTIVE), so when the sheet stays
// open it is told that it is active again.
bool Apply(HWND handle, Closing closing) {
    if (SheetOf(handle)->deciding) return false;
    const Deciding deciding(handle);
    if (!MayLeave(handle) || !AskPagesToApply(handle, closing)) return false;
    SheetState* sheet = SheetOf(handle);
    if (!sheet) return false;
    const SheetApplied applied = sheet->applied;
    const bool taken = !applied || applied(handle, closing == Closing::kYes) == SheetAnswer::kTaken;
    sheet = SheetOf(handle);
    if (!sheet) return true;
    if (taken) {
        for (const auto& page : sheet->pages) page->changed = false;
        UpdateApply(handle);
    }
    if (!taken || closing == Closing::kNo) TellActive(handle);
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
    if (SheetOf(handle)->deciding) return;
    const Deciding deciding(handle);
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
        TurnTo(handle, index, FocusChange::kIfItWasInPage);
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
    EnableSheetButton(handle, IDCANCEL, false);
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
    if (sheet->destroying || !HasPage(*sheet, index)) return FALSE;
    const std::shared_ptr<SheetPage> page = sheet->pages[static_cast<size_t>(index)];
    const int count = PageCount(*sheet);
    if (page->busy || count < 2) return FALSE;
    if (sheet->active == index) {
        if (!SelectPage(handle, index + 1 < count ? index + 1 : index - 1)) return FALSE;
    }
    RemovePage(handle, page);
    UpdateApply(handle);
    return TRUE;
}

// The pages go in their order, before the sheet's own controls.
LRESULT OnDestroy(HWND handle) {
    SheetOf(handle)->destroying = true;
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
