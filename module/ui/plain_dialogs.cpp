// Dialog procedures that only close: their dialogs do nothing yet but end cleanly, with the result
// that means "nothing was done". Also the installation entries, which have no task so far.
#include "exports.h"
#include "resources/string_ids.h"
#include "settings/dialog_procedures.h"
#include "support/product_texts.h"
#include "ui/dialog_messages.h"
#include "ui/page_skeleton.h"
#include "ui/page_table.h"

namespace {

// Which controls get the string of their id. The ids of some fields are those of strings that mean
// something else.
enum class Captions { kOfAll, kOfButtons };

struct ClosingDialog {
    UINT title;  // 0: that of the caption table
    Captions captions;
    INT_PTR result;
};

// title, captions, result
// clang-format off
constexpr ClosingDialog kWatermarkEditor = {IDS_TITLE_WATERMARK,     Captions::kOfAll,     2};
constexpr ClosingDialog kOverlayEditor   = {IDS_TITLE_OVERLAY,       Captions::kOfAll,     2};
constexpr ClosingDialog kRecordEditor    = {0,                       Captions::kOfButtons, 1};
constexpr ClosingDialog kCustomPapers    = {IDS_TITLE_CUSTOM_PAPERS, Captions::kOfAll,     -1};
constexpr ClosingDialog kMailbox         = {IDS_TITLE_MAILBOX,       Captions::kOfAll,     0};
constexpr ClosingDialog kKeepSetting     = {0,                       Captions::kOfAll,     0};
constexpr ClosingDialog kSavedData       = {0,                       Captions::kOfButtons, 0};
constexpr ClosingDialog kAbout           = {0,                       Captions::kOfAll,     1};
// clang-format on

void SetTexts(const kvui::SheetContext& context, const ClosingDialog& traits, HWND dialog) {
    char title[64] = "";
    GetWindowTextA(dialog, title, sizeof title);
    if (traits.title == 0) {
        // Their titles begin as the names of their templates.
        kvui::SetSubDialogTitle(context, dialog, title);
    } else if (LoadStringA(context.strings, traits.title, title, sizeof title) != 0) {
        SetWindowTextA(dialog, title);
    }
    if (traits.captions == Captions::kOfAll) return kvui::SetChildCaptions(context, dialog);
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        char caption[128] = "";
        const bool button = (SendMessageA(child, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON) != 0;
        const UINT id = static_cast<UINT>(GetDlgCtrlID(child));
        if (button && LoadStringA(context.strings, id, caption, sizeof caption) != 0) {
            SetWindowTextA(child, caption);
        }
    }
}

INT_PTR CloseOnly(const ClosingDialog& traits, HWND dialog, UINT message, WPARAM wParam,
                  LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        const kvui::SheetContext* context = kvui::KeepSheetContext(dialog, message, lParam);
        if (context != nullptr) SetTexts(*context, traits, dialog);
        return TRUE;
    }
    if (message != WM_COMMAND) return FALSE;
    if (LOWORD(wParam) != IDOK && LOWORD(wParam) != IDCANCEL) return FALSE;
    EndDialog(dialog, traits.result);
    return TRUE;
}

}  // namespace

namespace kvui {

INT_PTR CALLBACK WatermarkEditorDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return CloseOnly(kWatermarkEditor, dialog, message, wParam, lParam);
}
INT_PTR CALLBACK EditOverlayDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return CloseOnly(kOverlayEditor, dialog, message, wParam, lParam);
}
INT_PTR CALLBACK AboutDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY) ReleaseProductTexts(dialog);
    const INT_PTR handled = CloseOnly(kAbout, dialog, message, wParam, lParam);
    const SheetContext* context =
        message == WM_INITDIALOG ? KeepSheetContext(dialog, message, lParam) : nullptr;
    if (context != nullptr) ShowProductTexts(*context, dialog);
    return handled;
}

}  // namespace kvui

INT_PTR CALLBACK DDMEDIT0(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return CloseOnly(kRecordEditor, dialog, message, wParam, lParam);
}
INT_PTR CALLBACK DDMCUSTOMPAPER(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return CloseOnly(kCustomPapers, dialog, message, wParam, lParam);
}
INT_PTR CALLBACK DDMMailBox(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return CloseOnly(kMailbox, dialog, message, wParam, lParam);
}
INT_PTR CALLBACK DDMKeepSettingAdd(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return CloseOnly(kKeepSetting, dialog, message, wParam, lParam);
}
INT_PTR CALLBACK DDMSaveData(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return CloseOnly(kSavedData, dialog, message, wParam, lParam);
}
INT_PTR CALLBACK DDMPrinterProp(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::AboutDlgProc(dialog, message, wParam, lParam);
}

DWORD WINAPI DDMDevInstall(void* /*unused*/, void* /*printerBlock*/, DWORD /*flags*/) { return 0; }
int WINAPI VendorSetup(HWND /*window*/, HINSTANCE /*instance*/, LPSTR /*printer*/, int /*show*/) {
    return 0;
}
