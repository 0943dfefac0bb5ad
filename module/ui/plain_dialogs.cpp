// Dialogs that do nothing yet but show their texts and end with the result that means "nothing was
// done". Also the installation entries, which have no task so far.
#include "dialog/dialog_definition.h"
#include "dialog/texts.h"
#include "exports.h"

namespace kvui {
namespace {

constexpr DialogDefinition ClosesOnly(const char* templateName, Step setCaptions, INT_PTR result) {
    return {.templateName = templateName,
            .ok = {IDOK, result},
            .cancel = {IDCANCEL, result},
            .open = setCaptions,
            .popupHelp = nullptr};
}

// template, which controls get the strings of their ids, result
// clang-format off
constexpr DialogDefinition kRecordEditor    = ClosesOnly("_DLGEDIT0",           SetButtonCaptions, 1);
constexpr DialogDefinition kKeepSetting     = ClosesOnly("_DLGKEEPSETTINGADD",  SetCaptions,       0);
constexpr DialogDefinition kSavedData       = ClosesOnly("_DLGSAVEDATA",        SetButtonCaptions, 0);
// clang-format on

}  // namespace

}  // namespace kvui

INT_PTR CALLBACK DDMEDIT0(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunDialog(kvui::kRecordEditor, dialog, message, wParam, lParam);
}
INT_PTR CALLBACK DDMKeepSettingAdd(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunDialog(kvui::kKeepSetting, dialog, message, wParam, lParam);
}
INT_PTR CALLBACK DDMSaveData(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunDialog(kvui::kSavedData, dialog, message, wParam, lParam);
}

DWORD WINAPI DDMDevInstall(void* /*unused*/, void* /*printerBlock*/, DWORD /*flags*/) { return 0; }
int WINAPI VendorSetup(HWND /*window*/, HINSTANCE /*instance*/, LPSTR /*printer*/, int /*show*/) {
    return 0;
}
