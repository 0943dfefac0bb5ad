// Troubleshooting page, and the about box with the same texts. Both are run by DDMAbout.
#include "dialog/dialog_definition.h"
#include "exports.h"
#include "settings/dialog_procedures.h"
#include "support/link_drawing.h"
#include "support/product_texts.h"
#include "ui/entry_drawing.h"
#include "ui/page_definition.h"

namespace kvui {
namespace {

void ShowProduct(Run& run) {
    ShowProductTexts(run.context, run.window);
}

void ReleaseProduct(Run& run) {
    ReleaseProductTexts(run.window);
}

void DrawProductLink(Run& run) {
    const auto& draw = *reinterpret_cast<const DRAWITEMSTRUCT*>(run.lParam);
    run.answer = DrawLink(draw) || DrawComboEntry(run.context, draw);
}

const PageDefinition kTroubleshootingPage = {
    .dialogName = "DLGTABVERSION",
    .helpTopic = 5116,
    .open = InOrder<LoadRules, Keep, Fill, SetCaptions, DisableIfReadOnly, ShowProduct>,
    .activate = InOrder<Fill, Refresh, ShowProduct>,
    .command = InOrder<Route, IfChanged<kTakeAndRefresh>>,
    .drawItem = DrawProductLink,
    .close = InOrder<ReleaseProduct, kClose>,
};

constexpr DialogDefinition kAbout = {
    .templateName = "_ABOUTKVI",
    .ok = {IDOK, 1},
    .cancel = {IDCANCEL, 1},
    .open = InOrder<SetCaptions, ShowProduct>,
    .popupHelp = nullptr,
    .close = ReleaseProduct,
};

}  // namespace

INT_PTR CALLBACK AboutDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return RunDialog(kAbout, dialog, message, wParam, lParam);
}

}  // namespace kvui

INT_PTR CALLBACK DDMAbout(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    const bool dialog = (GetWindowLongA(page, GWL_STYLE) & WS_CHILD) == 0;
    if (dialog) return kvui::AboutDlgProc(page, message, wParam, lParam);
    return kvui::RunPage(kvui::kTroubleshootingPage, page, message, wParam, lParam);
}

INT_PTR CALLBACK DDMPrinterProp(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::AboutDlgProc(dialog, message, wParam, lParam);
}
