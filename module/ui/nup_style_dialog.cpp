// Pages/Sheet Style ("_DLGTAB02"): the order of the pages on a sheet as four buttons with pictures.
// No control opens it; whoever calls its export passes a page's SheetContext.
#include <algorithm>

#include "dialog/dialog_definition.h"
#include "exports.h"
#include "resources/picture_ids.h"
#include "resources/resource.h"
#include "settings/reactor.h"
#include "ui/steps.h"

namespace kvui {
namespace {

constexpr int kOrders = 4;
constexpr char kBitmap[] = "KVOrderPicture";
constexpr char kPlainProcedure[] = "KVOrderPlain";

// SRCAND leaves a picture's dark lines on its ground, so that ground has to be light.
void LightenGround(HWND picture, HDC dc, const BITMAP& size) {
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    if (GetRValue(face) + GetGValue(face) + GetBValue(face) >= 3 * 128) return;
    RECT place{};
    GetClientRect(picture, &place);
    place.right = std::min<LONG>(place.right, size.bmWidth);
    place.bottom = std::min<LONG>(place.bottom, size.bmHeight);
    FillRect(dc, &place, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
}

void PaintOrder(HWND picture) {
    PAINTSTRUCT paint{};
    const HDC dc = BeginPaint(picture, &paint);
    if (dc == nullptr) return;
    const auto bitmap = static_cast<HBITMAP>(GetPropA(picture, kBitmap));
    BITMAP size{};
    const HDC source = CreateCompatibleDC(dc);
    if (source != nullptr && GetObjectA(bitmap, sizeof size, &size) != 0) {
        LightenGround(picture, dc, size);
        const HGDIOBJ before = SelectObject(source, bitmap);
        BitBlt(dc, 0, 0, size.bmWidth, size.bmHeight, source, 0, 0, SRCAND);
        SelectObject(source, before);
    }
    if (source != nullptr) DeleteDC(source);
    EndPaint(picture, &paint);
}

LRESULT CALLBACK OrderPictureProc(HWND picture, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto plain = reinterpret_cast<WNDPROC>(GetPropA(picture, kPlainProcedure));
    if (message == WM_PAINT) {
        PaintOrder(picture);
        return 0;
    }
    if (message == WM_DESTROY) {
        if (const auto bitmap = static_cast<HBITMAP>(RemovePropA(picture, kBitmap))) {
            DeleteObject(bitmap);
        }
        RemovePropA(picture, kPlainProcedure);
        SetWindowLongPtrA(picture, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(plain));
    }
    return CallWindowProcA(plain, picture, message, wParam, lParam);
}

void ShowOrderPictures(Run& run) {
    for (int i = 0; i < kOrders; ++i) {
        const HWND picture = GetDlgItem(run.window, IDC_PIC_STYLE_1 + i);
        const HBITMAP bitmap =
            LoadBitmapA(run.context.resources, MAKEINTRESOURCEA(IDB_STYLE_ACROSS_LEFT + i));
        if (picture == nullptr || bitmap == nullptr) {
            if (bitmap != nullptr) DeleteObject(bitmap);
            continue;
        }
        SetPropA(picture, kBitmap, bitmap);
        SetPropA(picture, kPlainProcedure,
                 reinterpret_cast<HANDLE>(GetWindowLongPtrA(picture, GWLP_WNDPROC)));
        SetWindowLongPtrA(picture, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(OrderPictureProc));
    }
}

bool IsOrderButton(DWORD id) {
    return id - IDC_RADIO_STYLE_1 < static_cast<DWORD>(kOrders);
}

// The buttons own two bits of a word whose other bit is the border's.
void ChooseOrder(Run& run) {
    if (!IsOrderButton(run.id)) return Dispatch(run);
    if (run.code != BN_CLICKED) return;
    DWORD& style = run.context.privateSettings->mdmNupStyle;
    style = (style & ~kNupOrderMask) | (run.id - IDC_RADIO_STYLE_1);
}

void CheckOrder(Run& run) {
    const int first = IDC_RADIO_STYLE_1;
    const int order = static_cast<int>(run.context.privateSettings->mdmNupStyle & kNupOrderMask);
    CheckRadioButton(run.window, first, first + kOrders - 1, first + order);
}

constexpr DialogDefinition kNupStyle = {
    .templateName = "_DLGTAB02",
    .dialogName = "DLGTAB02",
    .helpTopic = 1102,
    .ok = {IDOK, 1, ReactToAll},
    .cancel = {IDCANCEL, 1, Restore},
    .open = InOrder<kOpenDialog, ShowOrderPictures, Refresh>,
    .command = InOrder<ChooseOrder, kFollowDialog>,
    .refresh = InOrder<RefreshControls, CheckOrder>,
};

}  // namespace
}  // namespace kvui

INT_PTR CALLBACK DDMTAB02(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunDialog(kvui::kNupStyle, dialog, message, wParam, lParam);
}
