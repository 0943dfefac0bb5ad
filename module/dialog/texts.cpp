// Texts from the string table.
#include "dialog/texts.h"

#include "dialog/dialog_table.h"

namespace kvui {
namespace {

constexpr int kTitleSize = 64;
constexpr int kCaptionSize = 129;

void SetCaption(const SheetContext& context, HWND child) {
    char caption[kCaptionSize] = "";
    const int id = GetDlgCtrlID(child);
    if (id > 0 &&
        LoadStringA(context.strings, static_cast<UINT>(id), caption, sizeof caption) != 0) {
        SetWindowTextA(child, caption);
    }
}

}  // namespace

void SetDialogTitle(const SheetContext& context, HWND dialog, const char* templateName) {
    const UINT id = TitleOfTemplate(templateName);
    char title[kTitleSize] = "";
    if (id != 0 && LoadStringA(context.strings, id, title, sizeof title) != 0) {
        SetWindowTextA(dialog, title);
    }
}

void SetChildCaptions(const SheetContext& context, HWND dialog) {
    EnumChildWindows(
        dialog,
        [](HWND child, LPARAM param) -> BOOL {
            SetCaption(*reinterpret_cast<const SheetContext*>(param), child);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&context));
}

void SetCaptions(Run& run) {
    SetChildCaptions(run.context, run.window);
}

void SetButtonCaptions(Run& run) {
    for (HWND child = GetWindow(run.window, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        if ((SendMessageA(child, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON) != 0) {
            SetCaption(run.context, child);
        }
    }
}

}  // namespace kvui
