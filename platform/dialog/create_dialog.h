// Creation of dialogs from template bytes, modeless and modal. The platform's calls and the message
// box are thin covers over these.
#pragma once

#include <windows.h>

#include <span>
#include <string>

namespace kv {

struct DialogCreation {
    std::span<const BYTE> bytes;
    HINSTANCE instance{};
    HWND owner{};
    DLGPROC procedure{};
    LPARAM initParam = 0;
    std::string templateName;
};

// Null, with the last error set, when the template is malformed or a control cannot be created.
HWND CreateDialogFrom(const DialogCreation& creation);
// The value of EndDialog; -1 when the dialog could not be created or nobody ended it.
INT_PTR RunDialog(const DialogCreation& creation);

}  // namespace kv
