// Basic page: orientation, paper, scaling, copies, source and media; and its two sub-dialogs, First
// Page and Detail of Paper Source.
#include <winsock2.h>

#include <windows.h>

#include <winspool.h>

#include <cstdlib>

#include "binding/control_fill.h"
#include "binding/notification.h"
#include "device/printer_port.h"
#include "dialog/help.h"
#include "exports.h"
#include "resources/picture_ids.h"
#include "resources/resource.h"
#include "settings/dialog_procedures.h"
#include "settings/reactor.h"
#include "sheet/printer_values.h"
#include "sheet/snapshot.h"
#include "ui/dialog_messages.h"
#include "ui/page_skeleton.h"
#include "ui/page_table.h"
#include "ui/sub_dialog_skeleton.h"

namespace kvui {
namespace {

constexpr UINT kMessageFirstActivation = WM_USER + 2;
constexpr DWORD kBasicTailSize = 16;
constexpr DWORD kMediaPlain = 1;
constexpr int kHelpFirstPage = 5119;

// Armed when a Basic page is initialised, used by the next activation; shared by all sheets.
bool firstActivationArmed = false;

void OnInit(SheetContext& context) {
    context.privateSettings->mdmOtherSettings |= kOtherAllPaperSize;
    ShowWindow(GetDlgItem(context.page, IDC_CHK_ALL_PAPER_SIZE), SW_HIDE);
    if ((context.flags & kSheetDataNotWritable) ||
        !CanOpenPrinter(context, PRINTER_ACCESS_ADMINISTER | PRINTER_ACCESS_USE)) {
        ShowWindow(GetDlgItem(context.page, IDC_BTN_CUSTOM_PAPER), SW_HIDE);
    }
    firstActivationArmed = true;
}

void OnActivate(SheetContext& context) {
    if (!firstActivationArmed) return;
    firstActivationArmed = false;
    PostMessageA(context.page, kMessageFirstActivation, 0, 0);
}

// Sending once makes sense only for collated copies; the box follows the digits as they are typed.
void OnCommand(SheetContext& context, DWORD id, WORD code) {
    const bool tracked = id == IDC_EDIT_COPIES || id == IDC_EDIT_SCALING ||
                         id == IDC_EDIT_OFFSET_X || id == IDC_EDIT_OFFSET_Y;
    if (!tracked || code != EN_UPDATE || !(context.flags & kSheetTyping)) return;
    char text[16] = "";
    GetDlgItemTextA(context.page, IDC_EDIT_COPIES, text, sizeof text);
    if (text[0] == '\0' || !(context.privateSettings->mdmCollate & 1)) return;
    EnableWindow(GetDlgItem(context.page, IDC_CHK_TRANSMIT_ONCE), std::atol(text) > 1);
}

void OnDefaults(SheetContext& context) {
    context.privateSettings->mdmFirstPageMedia = kMediaPlain;
}

void OnChanged(SheetContext& context, DWORD /*id*/) {
    if (context.privateSettings->mdmNup != kNupOff) return;
    const HWND combo = GetDlgItem(context.shared->viewPage, IDC_COMBO_NUP);
    if (combo != nullptr) SendMessageA(combo, CB_SETCURSEL, 0, 0);
}

void FinishEdit(SheetContext& context, DWORD id, DWORD stored) {
    char text[32] = "";
    GetDlgItemTextA(context.page, static_cast<int>(id), text, sizeof text);
    if (static_cast<DWORD>(std::atol(text)) != stored) {
        DispatchNotification(context, context.page, id, EN_KILLFOCUS);
    }
}

// OK may be pressed while an edit still has the focus.
void OnApply(SheetContext& context) {
    FinishEdit(context, IDC_EDIT_COPIES, static_cast<DWORD>(context.settings->dmCopies));
    FinishEdit(context, IDC_EDIT_SCALING, context.privateSettings->mdmScaleSize);
    React(context, 0, ReactScope::kWholePage);
}

void DrawPaperMarker(const SheetContext& context, HWND control, HDC dc) {
    const HBITMAP picture = LoadBitmapA(context.resources, MAKEINTRESOURCEA(IDB_PAPER_MARKER));
    const HBITMAP mask = LoadBitmapA(context.resources, MAKEINTRESOURCEA(IDB_PAPER_MARKER_MASK));
    BITMAP size{};
    if (picture != nullptr && mask != nullptr && GetObjectA(picture, sizeof size, &size) != 0) {
        SetWindowPos(control, nullptr, 0, 0, size.bmWidth, size.bmHeight,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        const HDC source = CreateCompatibleDC(dc);
        const HGDIOBJ before = SelectObject(source, mask);
        BitBlt(dc, 0, 0, size.bmWidth, size.bmHeight, source, 0, 0, SRCAND);
        SelectObject(source, picture);
        BitBlt(dc, 0, 0, size.bmWidth, size.bmHeight, source, 0, 0, SRCPAINT);
        SelectObject(source, before);
        DeleteDC(source);
    }
    if (picture != nullptr) DeleteObject(picture);
    if (mask != nullptr) DeleteObject(mask);
}

bool OnPaintStatic(SheetContext& context, HWND control, HDC dc) {
    if (GetDlgCtrlID(control) != IDC_PAPER_MARKER) return false;
    DrawPaperMarker(context, control, dc);
    return true;
}

bool OnMessage(SheetContext& context, UINT message, WPARAM, LPARAM) {
    if (message != kMessageFirstActivation) return false;
    printerQueryable = ClassifyPrinterPort(context, nullptr);
    return true;
}

const PageTraits kBasicPage = {
    .dialogName = "DLGTAB0",
    .helpTopic = 1101,
    .viewKind = kViewPage,
    .features = kKeepsChanges | kOrdinaryPage,
    .tailSize = kBasicTailSize,
    .onInit = OnInit,
    .onActivate = OnActivate,
    .onCommand = OnCommand,
    .onDefaults = OnDefaults,
    .onChanged = OnChanged,
    .onApply = OnApply,
    .onPaintStatic = OnPaintStatic,
    .onMessage = OnMessage,
};

constexpr char kFirstPageTemplate[] = "_LBPFIRSTPAGE";

void OnFirstPageInit(SheetContext& context, HWND dialog) {
    SetSubDialogTitle(context, dialog, kFirstPageTemplate);
    InitialiseInTableOrder(context, dialog, kFirstPageTemplate);
    SetChildCaptions(context, dialog);
    TakeSnapshot(context);
}

void OnFirstPageCommand(SheetContext& context, HWND dialog, HWND control, WPARAM wParam) {
    switch (LOWORD(wParam)) {
        case IDOK:
            EndDialog(dialog, 1);
            return;
        case IDCANCEL:
            RestoreSnapshot(context);
            EndDialog(dialog, 0);
            return;
        case IDHELP:
            ShowPageHelp(context, dialog, kHelpFirstPage);
            return;
        default:
            break;
    }
    const RouteResult result = RouteCommand(context, dialog, control, wParam);
    RefreshDialog(context, result.changed ? SettingChanged::kYes : SettingChanged::kNo, dialog,
                  kFirstPageTemplate);
}

}  // namespace

INT_PTR CALLBACK FirstPageDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr DialogHandlers kFirstPage = {OnFirstPageInit, OnFirstPageCommand};
    return RunDialog(kFirstPage, dialog, message, wParam, lParam);
}

}  // namespace kvui

INT_PTR CALLBACK DDMTAB0(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kBasicPage, page, message, wParam, lParam);
}

INT_PTR CALLBACK DDMTAB00(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    static const kvui::SubDialogTraits kPaperSourceDetail = {"_DLGTAB00", "DLGTAB00", 1104};
    return kvui::RunSubDialog(kPaperSourceDetail, dialog, message, wParam, lParam);
}
