// Pages that add little or nothing to the skeleton: each is a row of traits, bound by the catalogue
// like every page.
#include "ui/exports.h"
#include "ui/page_skeleton.h"

namespace kvui {
namespace {

// dialog, help topic, view, features
// clang-format off
constexpr PageTraits kDeviceOptionsPage   = {"DLGTAB3",       1401, kViewDevice,    kOrdinaryPage};
constexpr PageTraits kWatermarkPage       = {"DLGTABWM",      1103, kViewWatermark, kOrdinaryPage};
constexpr PageTraits kOverlayPage         = {"DLGTABOVER",    5114, kViewPage,      kOrdinaryPage};
constexpr PageTraits kTroubleshootingPage = {"DLGTABVERSION", 5116, kNoView,        kSetsCaptions};
constexpr PageTraits kJobManagementPage   = {"DLGTAB4",       1501, kViewKept,      kKeepsChanges};
constexpr PageTraits kSparePage5          = {"DLGTAB5",       0,    kNoView,        kKeepsChanges};
constexpr PageTraits kSparePage6          = {"DLGTAB6",       0,    kNoView,        kKeepsChanges};
// clang-format on

}  // namespace
}  // namespace kvui

INT_PTR CALLBACK DDMTAB3(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kDeviceOptionsPage, page, message, wParam, lParam);
}
INT_PTR CALLBACK DDMTABWM(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kWatermarkPage, page, message, wParam, lParam);
}
INT_PTR CALLBACK DDMTABOVER(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kOverlayPage, page, message, wParam, lParam);
}
INT_PTR CALLBACK DDMTAB4(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kJobManagementPage, page, message, wParam, lParam);
}
INT_PTR CALLBACK DDMTAB5(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kSparePage5, page, message, wParam, lParam);
}
INT_PTR CALLBACK DDMTAB6(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kSparePage6, page, message, wParam, lParam);
}
INT_PTR CALLBACK DDMAbout(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)) {
        EndDialog(page, 1);
        return TRUE;
    }
    return kvui::RunPage(kvui::kTroubleshootingPage, page, message, wParam, lParam);
}
