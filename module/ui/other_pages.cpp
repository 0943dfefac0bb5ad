// Pages that add little or nothing to the skeleton: each is a record of traits, bound by the
// catalogue like every page.
#include "ui/exports.h"
#include "ui/page_skeleton.h"

namespace kvui {
namespace {

const PageTraits kDeviceOptionsPage = {
    .dialogName = "DLGTAB3", .helpTopic = 1401, .viewKind = kViewDevice, .tailSize = 0,
    .snapshotAfterChange = false, .showsNotice = true, .setsCaptions = true, .hasDefaults = true};
const PageTraits kWatermarkPage = {
    .dialogName = "DLGTABWM", .helpTopic = 1103, .viewKind = kViewWatermark, .tailSize = 0,
    .snapshotAfterChange = false, .showsNotice = true, .setsCaptions = true, .hasDefaults = true};
const PageTraits kOverlayPage = {
    .dialogName = "DLGTABOVER", .helpTopic = 5114, .viewKind = kViewPage, .tailSize = 0,
    .snapshotAfterChange = false, .showsNotice = true, .setsCaptions = true, .hasDefaults = true};
const PageTraits kTroubleshootingPage = {
    .dialogName = "DLGTABVERSION", .helpTopic = 5116, .viewKind = {}, .tailSize = 0,
    .snapshotAfterChange = false, .showsNotice = false, .setsCaptions = true, .hasDefaults = false};
const PageTraits kJobManagementPage = {
    .dialogName = "DLGTAB4", .helpTopic = 1501, .viewKind = kViewKept, .tailSize = 0,
    .snapshotAfterChange = true, .showsNotice = false, .setsCaptions = false, .hasDefaults = false};
const PageTraits kSparePage5 = {
    .dialogName = "DLGTAB5", .helpTopic = 0, .viewKind = {}, .tailSize = 0,
    .snapshotAfterChange = true, .showsNotice = false, .setsCaptions = false, .hasDefaults = false};
const PageTraits kSparePage6 = {
    .dialogName = "DLGTAB6", .helpTopic = 0, .viewKind = {}, .tailSize = 0,
    .snapshotAfterChange = true, .showsNotice = false, .setsCaptions = false, .hasDefaults = false};

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
