// Quality page: colour mode, colour matching, resolution and the image adjustments on sliders.
#include "ui/exports.h"
#include "ui/page_skeleton.h"

namespace kvui {
namespace {

const PageTraits kQualityPage = {
    .dialogName = "DLGTAB2", .helpTopic = 1301, .viewKind = kViewQuality, .tailSize = 0,
    .snapshotAfterChange = true, .showsNotice = true, .setsCaptions = true, .hasDefaults = true};

}  // namespace
}  // namespace kvui

INT_PTR CALLBACK DDMTAB2(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kQualityPage, page, message, wParam, lParam);
}
