// The sheet's window procedure, with the host's part before the platform's.
#include "sheet_owner.h"

#include <platform/controls/property_sheet.h>
#include <prsht.h>

#include <utility>

#include "sheets.h"

namespace kvhost {
namespace {

constexpr char kPlatformProcedure[] = "KVHostPlatformProcedure";

LRESULT CallPlatform(HWND sheet, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto procedure = reinterpret_cast<WNDPROC>(GetPropA(sheet, kPlatformProcedure));
    return CallWindowProcA(procedure, sheet, message, wParam, lParam);
}

bool Applies(UINT message, WPARAM wParam) {
    switch (message) {
        case PSM_APPLY:
            return true;
        case WM_COMMAND:
            return LOWORD(wParam) == IDOK || LOWORD(wParam) == kv::kSheetApplyButton;
        case PSM_PRESSBUTTON:
            return wParam == PSBTN_OK || wParam == PSBTN_APPLYNOW;
        default:
            return false;
    }
}

// The edit that the person is typing in.
HWND FocusedEdit(HWND sheet) {
    const HWND focus = GetFocus();
    if (focus == nullptr || !IsChild(sheet, focus)) return nullptr;
    return (SendMessageA(focus, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0 ? focus : nullptr;
}

// Enter and access keys press a button without leaving the edit, which is read back when it is
// left: it is left here. A page that sends the focus back has refused what was typed; nothing is
// applied.
LRESULT Apply(HWND sheet, UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND edit = FocusedEdit(sheet);
    const HWND button = GetDlgItem(sheet, IDOK);
    if (edit != nullptr) SetFocus(button);
    if (!IsWindow(sheet) || (edit != nullptr && GetFocus() == edit)) return FALSE;
    const LRESULT result = CallPlatform(sheet, message, wParam, lParam);
    const bool mayGoOn = edit != nullptr && IsWindow(sheet) && GetFocus() == button &&
                         IsWindowVisible(edit) && IsWindowEnabled(edit) &&
                         SendMessageA(sheet, PSM_GETCURRENTPAGEHWND, 0, 0) != 0;
    if (mayGoOn) SetFocus(edit);
    return result;
}

// The pages expect that the first of them starts the sheet and is there when it is applied.
void TurnToStartPage(HWND sheet) {
    Sheet* owned = SheetOfWindow(sheet);
    const UINT page = owned != nullptr ? std::exchange(owned->request.startPage, 0) : 0;
    if (page != 0) SendMessageA(sheet, PSM_SETCURSEL, page, 0);
}

void BeginShowing(HWND sheet) {
    TurnToStartPage(sheet);
    Sheet* owned = SheetOfWindow(sheet);
    if (owned == nullptr) return;
    if (const auto shown = std::exchange(owned->request.shown, nullptr)) shown(sheet);
}

LRESULT CALLBACK OwnerProcedure(HWND sheet, UINT message, WPARAM wParam, LPARAM lParam) {
    if (Applies(message, wParam)) return Apply(sheet, message, wParam, lParam);
    switch (message) {
        case WM_SHOWWINDOW:
            if (wParam != FALSE) BeginShowing(sheet);
            break;
        case WM_DESTROY: {
            const Sheet* owned = SheetOfWindow(sheet);
            if (owned != nullptr && owned->request.ending) owned->request.ending();
            break;
        }
        case WM_NCDESTROY: {
            const auto procedure = reinterpret_cast<LONG_PTR>(GetPropA(sheet, kPlatformProcedure));
            SetWindowLongPtrA(sheet, GWLP_WNDPROC, procedure);
            RemovePropA(sheet, kPlatformProcedure);
            return SendMessageA(sheet, message, wParam, lParam);
        }
        default:
            break;
    }
    return CallPlatform(sheet, message, wParam, lParam);
}

}  // namespace

void OwnSheet(HWND sheet) {
    const LONG_PTR platform = GetWindowLongPtrA(sheet, GWLP_WNDPROC);
    SetPropA(sheet, kPlatformProcedure, reinterpret_cast<HANDLE>(platform));
    SetWindowLongPtrA(sheet, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(OwnerProcedure));
}

}  // namespace kvhost
