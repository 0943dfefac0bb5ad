// What the colour and the file dialogs share: the caller's template, the hook, the error of the
// last one. Both are dialogs like all others, so that scripts, tests and displays work their
// controls.
#pragma once

#include <windows.h>

#include <optional>
#include <span>
#include <string>

namespace kv {

void SetCommonDialogError(DWORD error);

// How the caller wants the dialog to look and behave, in the terms of both records.
struct CommonRequest {
    DWORD flags = 0;
    DWORD hookFlag = 0;
    DWORD templateFlag = 0;
    DWORD handleFlag = 0;
    UINT_PTR (*hook)(HWND, UINT, WPARAM, LPARAM) = nullptr;
    HANDLE instance{};  // a module, or the memory of a template
    LPCSTR templateName = nullptr;
    LPARAM record = 0;  // what the hook gets at WM_INITDIALOG

    bool HasHook() const { return (flags & hookFlag) != 0; }
    bool HasTemplate() const { return (flags & (templateFlag | handleFlag)) != 0; }
};

// The value of EndDialog; nothing, with the error set, when the dialog cannot be shown. Without a
// template of the caller the procedure adds the controls itself.
std::optional<INT_PTR> RunCommonDialog(const CommonRequest& request, HWND owner, DLGPROC procedure,
                                       LPARAM parameter);

// What the hook answers, 0 without one. Anything else means that it has done all there is to do.
INT_PTR AskHook(const CommonRequest& request, HWND dialog, UINT message, WPARAM wParam,
                LPARAM lParam);

// A control in pixels, in the dialog's font.
HWND AddControl(HWND dialog, const char* className, const char* text, DWORD style, int id,
                RECT rect);
void SizeAndCentre(HWND dialog, int width, int height);

constexpr int kHelpButton = 0x040E;
// Tells the owner that the Help button was pressed.
void TellHelp(HWND owner, HWND dialog, LPARAM record);

}  // namespace kv
