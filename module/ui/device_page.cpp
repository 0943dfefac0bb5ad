// Device Options page: what is installed, and the user's name.
#include <windows.h>

#include <cstring>

#include "exports.h"
#include "resources/resource.h"
#include "ui/page_definition.h"

namespace kvui {
namespace {

void ShowUserName(Run& run) {
    const char(&stored)[kUserNameSize] = run.context.privateSettings->userName;
    const HWND edit = GetDlgItem(run.window, IDC_EDIT_USER_NAME);
    char shown[kUserNameSize] = "";
    GetWindowTextA(edit, shown, sizeof shown);
    if (std::strncmp(shown, stored, kUserNameSize) == 0) return;
    char text[kUserNameSize];
    std::memcpy(text, stored, kUserNameSize);
    text[kUserNameSize - 1] = '\0';
    SetWindowTextA(edit, text);
}

const PageDefinition kDeviceOptionsPage = {
    .dialogName = "DLGTAB3",
    .helpTopic = 1401,
    .view = kViewDevice,
    .show = InOrder<ShowOwnViews, ShowUserName>,
};

}  // namespace
}  // namespace kvui

INT_PTR CALLBACK DDMTAB3(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunPage(kvui::kDeviceOptionsPage, page, message, wParam, lParam);
}
