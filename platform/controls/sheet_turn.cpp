// Turning the pages of a property sheet. Pages answer notifications by anything: they move the
// focus, show message boxes, turn pages themselves, destroy the sheet. Two rules make every such
// call end well: a page is not asked again while it answers, and after every turn the sheet is
// settled, which shows what the newest wish left as the active page and hides all others.
#include <platform/controls/control_support.h>
#include <platform/controls/sheet_state.h>

#include <commctrl.h>

#include <algorithm>
#include <utility>

namespace kv {
namespace {

constexpr LRESULT kNextPage = -1;  // answer to PSN_SETACTIVE: not this page

HWND ActivePage(HWND handle) {
    const SheetState* sheet = SheetOf(handle);
    return sheet ? WindowOfPage(handle, sheet->active) : nullptr;
}

std::shared_ptr<SheetPage> PageAt(HWND handle, int index) {
    const SheetState* sheet = SheetOf(handle);
    return sheet && HasPage(*sheet, index) ? sheet->pages[static_cast<size_t>(index)] : nullptr;
}

int IndexOf(HWND handle, const std::shared_ptr<SheetPage>& page) {
    const SheetState* sheet = SheetOf(handle);
    if (!sheet) return -1;
    const auto found = std::find(sheet->pages.begin(), sheet->pages.end(), page);
    return found == sheet->pages.end() ? -1 : static_cast<int>(found - sheet->pages.begin());
}

int IndexOfTemplate(const SheetState& sheet, LRESULT id) {
    for (int i = 0; i < PageCount(sheet); ++i) {
        const LPCSTR name = sheet.pages[static_cast<size_t>(i)]->Record().pszTemplate;
        if (IS_INTRESOURCE(name) && reinterpret_cast<LRESULT>(name) == id) return i;
    }
    return -1;
}

// A wish for another page, or for this one, that came after this turn began.
bool IsOvertaken(HWND handle, unsigned turn) {
    const SheetState* sheet = SheetOf(handle);
    return !sheet || sheet->turn != turn;
}

LRESULT Ask(HWND handle, const std::shared_ptr<SheetPage>& page, UINT code, LPARAM extra = 0) {
    const PageBusy busy(page);
    return NotifyPage(handle, page->window, code, extra);
}

// PSN_SETACTIVE. A page that refuses is left as it was.
LRESULT AskToShow(HWND handle, const std::shared_ptr<SheetPage>& page) {
    const bool before = std::exchange(page->told, true);
    const LRESULT answer = Ask(handle, page, PSN_SETACTIVE);
    if (answer != 0) page->told = before;
    return answer;
}

// Creates pages as needed and asks each by PSN_SETACTIVE, until one accepts.
std::shared_ptr<SheetPage> FindAcceptingPage(HWND handle, int index, unsigned turn) {
    const SheetState* sheet = SheetOf(handle);
    // A page may send on to any other; a ring of refusals must end.
    for (int tries = sheet ? PageCount(*sheet) : 0; tries > 0; --tries) {
        std::shared_ptr<SheetPage> page = PageAt(handle, index);
        if (!page || page->busy) return nullptr;
        const HWND window = EnsurePage(handle, index);
        if (IsOvertaken(handle, turn)) return nullptr;
        if (!window) {
            RemovePage(handle, page);
            sheet = SheetOf(handle);
            if (!sheet) return nullptr;
            index = std::min(index, PageCount(*sheet) - 1);
            continue;
        }
        const LRESULT answer = AskToShow(handle, page);
        if (IsOvertaken(handle, turn)) return nullptr;
        index = IndexOf(handle, page);
        sheet = SheetOf(handle);
        const int other = answer == kNextPage ? index + 1 : IndexOfTemplate(*sheet, answer);
        if (answer == 0 || !HasPage(*sheet, other) || tries == 1) return page->told = true, page;
        index = other;
    }
    return nullptr;
}

bool FocusIsIn(HWND window) {
    HWND focus = GetFocus();
    return window && focus && (focus == window || IsChild(window, focus));
}

void Show(const std::shared_ptr<SheetPage>& page, int command) {
    const PageBusy busy(page);
    ShowWindow(page->window, command);
}

// The focus leaves a page before that is hidden; its handlers may turn back to it.
void Hide(HWND handle, const std::shared_ptr<SheetPage>& page) {
    if (FocusIsIn(page->window)) SetFocus(handle);
    const SheetState* sheet = SheetOf(handle);
    if (sheet && IndexOf(handle, page) != sheet->active) Show(page, SW_HIDE);
}

bool IsShown(const SheetPage& page) {
    return page.window && (GetWindowLongPtrA(page.window, GWL_STYLE) & WS_VISIBLE) != 0;
}

// The pages, the tab and the Help button as the active page wants them.
void Settle(HWND handle) {
    const SheetState* sheet = SheetOf(handle);
    for (int i = 0; sheet && i < PageCount(*sheet); ++i, sheet = SheetOf(handle)) {
        const std::shared_ptr<SheetPage> page = sheet->pages[static_cast<size_t>(i)];
        if (i == sheet->active) continue;
        if (page->told && !page->busy) {
            page->told = false;
            Ask(handle, page, PSN_KILLACTIVE);
        }
        if (IsShown(*page)) Hide(handle, page);
    }
    const std::shared_ptr<SheetPage> active = sheet ? PageAt(handle, sheet->active) : nullptr;
    if (!active) return;
    if (!IsShown(*active)) Show(active, SW_SHOW);
    if (!active->told && !active->busy) {
        active->told = true;
        Ask(handle, active, PSN_SETACTIVE);
    }
    sheet = SheetOf(handle);
    if (!sheet) return;
    SendMessageA(sheet->tab, TCM_SETCURSEL, static_cast<WPARAM>(sheet->active), 0);
    const std::shared_ptr<SheetPage> shown = PageAt(handle, sheet->active);
    EnableSheetButton(handle, IDHELP, shown && (shown->Record().dwFlags & PSP_HASHELP) != 0);
}

}  // namespace

PageBusy::PageBusy(std::shared_ptr<SheetPage> page)
    : page_(std::move(page)), before_(std::exchange(page_->busy, true)) {}

PageBusy::~PageBusy() {
    page_->busy = before_;
}

HWND WindowOfPage(HWND handle, int index) {
    const SheetState* sheet = SheetOf(handle);
    return sheet && HasPage(*sheet, index) ? sheet->pages[static_cast<size_t>(index)]->window
                                           : nullptr;
}

void EnableSheetButton(HWND handle, int id, bool enabled) {
    HWND button = GetDlgItem(handle, id);
    if (button && (IsWindowEnabled(button) != FALSE) != enabled) EnableWindow(button, enabled);
}

// The record outlives the page's window, which may still read it while it is destroyed.
void RemovePage(HWND handle, const std::shared_ptr<SheetPage>& page) {
    const std::shared_ptr<SheetPage> kept = page;
    const int index = IndexOf(handle, kept);
    if (index < 0) return;
    SheetState* sheet = SheetOf(handle);
    sheet->pages.erase(sheet->pages.begin() + index);
    if (sheet->active == index) sheet->active = -1;
    if (sheet->active > index) --sheet->active;
    SendMessageA(sheet->tab, TCM_DELETEITEM, static_cast<WPARAM>(index), 0);
    if (kept->window) DestroyWindow(kept->window);
}

LRESULT NotifyPage(HWND handle, HWND page, UINT code, LPARAM extra) {
    if (!page) return 0;
    PSHNOTIFY notice{};
    notice.hdr = {handle, 0, code};
    notice.lParam = extra;
    return SendMessageA(page, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notice));
}

bool MayLeave(HWND handle) {
    const SheetState* sheet = SheetOf(handle);
    const std::shared_ptr<SheetPage> page = sheet ? PageAt(handle, sheet->active) : nullptr;
    if (!page || !page->told) return sheet != nullptr;
    if (page->busy) return false;
    const unsigned turn = sheet->turn;
    if (Ask(handle, page, PSN_KILLACTIVE) != 0) return false;
    page->told = false;
    if (!IsOvertaken(handle, turn)) return true;
    Settle(handle);
    return false;
}

void TellActive(HWND handle) {
    const SheetState* sheet = SheetOf(handle);
    const std::shared_ptr<SheetPage> page = sheet ? PageAt(handle, sheet->active) : nullptr;
    if (!page || std::exchange(page->told, true)) return;
    Ask(handle, page, PSN_SETACTIVE);
}

// PSN_QUERYINITIALFOCUS lets the page name another control than its first.
void FocusActivePage(HWND handle) {
    const SheetState* sheet = SheetOf(handle);
    const std::shared_ptr<SheetPage> page = sheet ? PageAt(handle, sheet->active) : nullptr;
    if (!page) return;
    const unsigned turn = sheet->turn;
    HWND first = GetNextDlgTabItem(page->window, nullptr, FALSE);
    const LRESULT answer =
        Ask(handle, page, PSN_QUERYINITIALFOCUS, reinterpret_cast<LPARAM>(first));
    if (IsOvertaken(handle, turn)) return;
    auto chosen = reinterpret_cast<HWND>(answer);
    if (!chosen || !IsWindow(chosen) || !IsChild(page->window, chosen)) chosen = first;
    if (chosen) SendMessageA(handle, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(chosen), TRUE);
}

bool TurnTo(HWND handle, int index, FocusChange focus) {
    SheetState* sheet = SheetOf(handle);
    if (!sheet || sheet->destroying) return false;
    const unsigned turn = ++sheet->turn;
    HWND previous = ActivePage(handle);
    const std::shared_ptr<SheetPage> page = FindAcceptingPage(handle, index, turn);
    const int accepted = IndexOf(handle, page);
    sheet = SheetOf(handle);
    if (!sheet) return false;
    if (accepted < 0 || IsOvertaken(handle, turn)) return Settle(handle), false;
    sheet->active = accepted;
    SendMessageA(sheet->tab, TCM_SETCURSEL, static_cast<WPARAM>(accepted), 0);
    const bool moveFocus = focus == FocusChange::kIntoPage || FocusIsIn(previous) || !GetFocus();
    Show(page, SW_SHOW);
    // The focus leaves the old page while that can still be seen, as its edits expect.
    if (moveFocus && page->window != previous && IsWindowVisible(handle) &&
        !IsOvertaken(handle, turn)) {
        FocusActivePage(handle);
    }
    Settle(handle);
    return !IsOvertaken(handle, turn);
}

bool SelectPage(HWND handle, int index) {
    SheetState* sheet = SheetOf(handle);
    if (!sheet || sheet->destroying || !HasPage(*sheet, index)) return false;
    // To stay here is a wish as well: a turn that is under way ends.
    if (sheet->active == index) return ++sheet->turn, true;
    if (PageAt(handle, index)->busy || !MayLeave(handle)) return false;
    return TurnTo(handle, index, FocusChange::kIfItWasInPage);
}

}  // namespace kv
