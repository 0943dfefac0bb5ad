// Layout page: pages per sheet and booklet, binding, rotation and image shift; and Output Details, its
// dialog of staple, punch and fold.
#include "ui/exports.h"
#include "ui/page_skeleton.h"
#include "ui/sub_dialog_skeleton.h"

namespace kvui {
namespace {

const PageTraits kLayoutPage = {
    .dialogName = "DLGTAB1", .helpTopic = 1201, .viewKind = kViewPage, .tailSize = 0,
    .snapshotAfterChange = false, .showsNotice = true, .setsCaptions = true, .hasDefaults = true};

}  // namespace
}  // namespace kvui

INT_PTR CALLBACK DDMTAB1(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kLayoutPage, page, message, wParam, lParam);
}

INT_PTR CALLBACK DDMTAB01(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    static const kvui::SubDialogTraits kOutputDetail = {"_DLGTAB01", "DLGTAB01", 1105};
    return kvui::RunSubDialog(kOutputDetail, dialog, message, wParam, lParam);
}
