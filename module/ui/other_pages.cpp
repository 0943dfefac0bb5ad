// Pages that add little or nothing to the skeleton: each is a row of traits, bound by the catalogue
// like every page.
#include "exports.h"
#include "settings/dialog_procedures.h"
#include "support/link_drawing.h"
#include "support/product_texts.h"
#include "ui/page_skeleton.h"

namespace kvui {
namespace {

// dialog, help topic, view, features
// clang-format off
constexpr PageTraits kDeviceOptionsPage   = {"DLGTAB3",       1401, kViewDevice,    kOrdinaryPage};
// clang-format on

void ShowProduct(SheetContext& context) {
    ShowProductTexts(context, context.page);
}

bool OnTroubleshootingMessage(SheetContext& context, UINT message, WPARAM /*wParam*/,
                              LPARAM lParam) {
    if (message == WM_DESTROY) ReleaseProductTexts(context.page);
    return message == WM_DRAWITEM && DrawLink(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
}

constexpr PageTraits kTroubleshootingPage = {
    .dialogName = "DLGTABVERSION",
    .helpTopic = 5116,
    .viewKind = kNoView,
    .features = kSetsCaptions,
    .onInit = ShowProduct,
    .onActivate = ShowProduct,
    .onMessage = OnTroubleshootingMessage,
};

}  // namespace
}  // namespace kvui

INT_PTR CALLBACK DDMTAB3(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kDeviceOptionsPage, page, message, wParam, lParam);
}
INT_PTR CALLBACK DDMAbout(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    const bool dialog = (GetWindowLongA(page, GWL_STYLE) & WS_CHILD) == 0;
    if (dialog) return kvui::AboutDlgProc(page, message, wParam, lParam);
    return kvui::RunPage(kvui::kTroubleshootingPage, page, message, wParam, lParam);
}
