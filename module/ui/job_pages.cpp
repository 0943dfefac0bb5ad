// Job Management page, and the two spare pages of its family, whose templates have no controls.
#include <windows.h>

#include "exports.h"
#include "sheet/messages.h"
#include "ui/page_definition.h"

namespace kvui {
namespace {

void TellCommonPart(Run& run) {
    const HWND area = run.context.shared->preview.panel;
    if (area != nullptr) SendMessageA(area, kMessageCommonPart, kPartJobManagement, 0);
}

// A command that leaves the settings as they were kept is no change: nothing is derived and nobody
// told. The page has no Defaults button, and keeps the panel as the page before left it.
const PageDefinition kJobManagementPage = {
    .dialogName = "DLGTAB4",
    .helpTopic = 1501,
    .open = InOrder<LoadRules, Keep, Fill, DisableIfReadOnly, Show>,
    .show = TellCommonPart,
    .command = InOrder<Route, IfChanged<IfDiffers<Take>, Refresh, Show, DisableIfReadOnly,
                                        IfTaken<RefillPanel>, UpdatePanel>>,
    .take = InOrder<React, TellSheet, Keep>,
    .apply = nullptr,
};

void LeaveVerticalScrolls(Run& run) {
    if (run.message != WM_VSCROLL) return;
    run.answer = FALSE;
    run.over = true;
}

// Nothing is derived, kept or drawn for a spare page; it is known by its name, not by its title.
constexpr PageDefinition SparePage(const char* dialogName) {
    constexpr Step kFollow = InOrder<Dispatch, IfDiffers<TellSheet>, IfChanged<RefreshControls>>;
    return {
        .dialogName = dialogName,
        .helpTopic = 0,
        .open = InOrder<LoadRules, FillByName>,
        .activate = FillByName,
        .command = InOrder<kFollow, Keep>,
        .scroll = InOrder<LeaveVerticalScrolls, kFollow>,
        .refill = nullptr,
        .apply = nullptr,
        .reset = nullptr,
        .help = nullptr,
        .popupHelp = Nothing,
        .drawItem = nullptr,
        .close = InOrder<EndOfSheet, LeaveSheet>,
    };
}
constexpr PageDefinition kFirstSparePage = SparePage("DLGTAB5");
constexpr PageDefinition kSecondSparePage = SparePage("DLGTAB6");

}  // namespace
}  // namespace kvui

INT_PTR CALLBACK DDMTAB4(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kJobManagementPage, page, message, wParam, lParam);
}
INT_PTR CALLBACK DDMTAB5(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kFirstSparePage, page, message, wParam, lParam);
}
INT_PTR CALLBACK DDMTAB6(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kSecondSparePage, page, message, wParam, lParam);
}
