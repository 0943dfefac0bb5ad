// Basic page: orientation, paper, scaling, copies, source and media; and its two sub-dialogs, First
// Page and Detail of Paper Source.
#include <winsock2.h>

#include <windows.h>

#include <winspool.h>

#include <cstdlib>

#include "binding/control_fill.h"
#include "binding/notification.h"
#include "device/printer_port.h"
#include "dialog/dialog_definition.h"
#include "exports.h"
#include "resources/picture_ids.h"
#include "resources/resource.h"
#include "settings/dialog_procedures.h"
#include "settings/reactor.h"
#include "sheet/messages.h"
#include "sheet/printer_values.h"
#include "sheet/snapshot.h"
#include "ui/page_definition.h"

namespace kvui {
namespace {

constexpr DWORD kBasicTailSize = 16;
constexpr DWORD kMediaPlain = 1;

// Armed when a Basic page is initialised, used by the next activation; shared by all sheets.
bool firstActivationArmed = false;

void OfferAllPapers(Run& run) {
    run.context.privateSettings->mdmOtherSettings |= kOtherAllPaperSize;
    ShowWindow(GetDlgItem(run.window, IDC_CHK_ALL_PAPER_SIZE), SW_HIDE);
}

void HideCustomPaper(Run& run) {
    if ((run.context.flags & kSheetDataNotWritable) ||
        !CanOpenPrinter(run.context, PRINTER_ACCESS_ADMINISTER | PRINTER_ACCESS_USE)) {
        ShowWindow(GetDlgItem(run.window, IDC_BTN_CUSTOM_PAPER), SW_HIDE);
    }
}

void ArmFirstActivation(Run& /*run*/) {
    firstActivationArmed = true;
}

void PostFirstActivation(Run& run) {
    if (!firstActivationArmed) return;
    firstActivationArmed = false;
    PostMessageA(run.window, kMessageFirstActivation, 0, 0);
}

// Sending once makes sense only for collated copies; the box follows the digits as they are typed.
void FollowTypedCopies(Run& run) {
    const bool tracked = run.id == IDC_EDIT_COPIES || run.id == IDC_EDIT_SCALING ||
                         run.id == IDC_EDIT_OFFSET_X || run.id == IDC_EDIT_OFFSET_Y;
    if (!tracked || run.code != EN_UPDATE || !(run.context.flags & kSheetTyping)) return;
    char text[16] = "";
    GetDlgItemTextA(run.window, IDC_EDIT_COPIES, text, sizeof text);
    if (text[0] == '\0' || !(run.context.privateSettings->mdmCollate & 1)) return;
    EnableWindow(GetDlgItem(run.window, IDC_CHK_TRANSMIT_ONCE), std::atol(text) > 1);
}

void UsePlainFirstPage(Run& run) {
    run.context.privateSettings->mdmFirstPageMedia = kMediaPlain;
}

void ShowOnePagePerSheet(Run& run) {
    if (run.context.privateSettings->mdmNup != kNupOff) return;
    const HWND combo = GetDlgItem(run.context.shared->preview.page, IDC_COMBO_NUP);
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
void FinishEdits(Run& run) {
    FinishEdit(run.context, IDC_EDIT_COPIES, static_cast<DWORD>(run.context.settings->dmCopies));
    FinishEdit(run.context, IDC_EDIT_SCALING, run.context.privateSettings->mdmScaleSize);
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

void PaintPaperMarker(Run& run) {
    const HWND control = reinterpret_cast<HWND>(run.lParam);
    if (GetDlgCtrlID(control) != IDC_PAPER_MARKER) {
        run.answer = FALSE;
        return;
    }
    DrawPaperMarker(run.context, control, reinterpret_cast<HDC>(run.wParam));
    run.answer = reinterpret_cast<INT_PTR>(GetStockObject(NULL_BRUSH));
}

void ClassifyPort(Run& run) {
    FindOutWhetherQueryable(run.context);
}

void AskIfQueryable(Run& run) {
    if (printerQueryable) AskPrinter(run);
}

const PageDefinition kBasicPage = {
    .dialogName = "DLGTAB0",
    .helpTopic = 1101,
    .view = kViewPage,
    .tailSize = kBasicTailSize,
    .open =
        InOrder<kBeginOpening, OfferAllPapers, HideCustomPaper, ArmFirstActivation, kEndOpening>,
    .activate = InOrder<kActivate, PostFirstActivation>,
    .command = InOrder<RouteOrDefaults, FollowTypedCopies, IfChanged<kTakeAndRefresh>>,
    .take = InOrder<React, TellSheet, IfDefaults<ApplyDefaults, UsePlainFirstPage>, Keep,
                    ShowOnePagePerSheet>,
    .apply = InOrder<FinishEdits, ReactToAll, Keep>,
    .paintStatic = PaintPaperMarker,
    .firstActivation = InOrder<ClassifyPort, AskIfQueryable, IfChanged<kActivate>>,
};

// First Page: its commands are routed like a page's; Cancel undoes the box that opened it.
constexpr DialogDefinition kFirstPage = {
    .templateName = "_LBPFIRSTPAGE",
    .dialogName = "_LBPFIRSTPAGE",
    .helpTopic = 5119,
    .ok = {IDOK, 1},
    .cancel = {IDCANCEL, 0, Restore},
    .open = InOrder<FillInTableOrder, SetCaptions, Keep>,
    .command = InOrder<Route, IfChanged<RefreshControls>>,
};

constexpr DialogDefinition kPaperSourceDetails = {
    .templateName = "_DLGTAB00",
    .dialogName = "DLGTAB00",
    .helpTopic = 1104,
    .ok = {IDOK, 1},
    .cancel = {IDCANCEL, 1, Restore},
    .open = InOrder<kOpenDialog, Refresh>,
    .command = kDialogCommand,
    .refresh = RefreshControls,
};

}  // namespace

INT_PTR CALLBACK FirstPageDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return RunDialog(kFirstPage, dialog, message, wParam, lParam);
}

}  // namespace kvui

INT_PTR CALLBACK DDMTAB0(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kBasicPage, page, message, wParam, lParam);
}

INT_PTR CALLBACK DDMTAB00(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunDialog(kvui::kPaperSourceDetails, dialog, message, wParam, lParam);
}
