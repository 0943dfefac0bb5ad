// The skeleton of dialogs.
#include "dialog/dialog_definition.h"

#include <initializer_list>

#include "dialog/texts.h"

namespace kvui {
namespace {

SheetContext* KeepContext(HWND dialog, UINT message, LPARAM lParam) {
    if (message == WM_INITDIALOG) SetWindowLongPtrA(dialog, DWLP_USER, lParam);
    return reinterpret_cast<SheetContext*>(GetWindowLongPtrA(dialog, DWLP_USER));
}

INT_PTR Take(Step step, Run& run) {
    if (step == nullptr) return FALSE;
    step(run);
    return run.answer;
}

void End(const EndButton& button, Run& run) {
    if (button.before != nullptr) button.before(run);
    EndDialog(run.window, button.result);
}

INT_PTR OnCommand(const DialogDefinition& definition, Run& run) {
    run.id = LOWORD(run.wParam);
    run.code = HIWORD(run.wParam);
    for (const EndButton* button : {&definition.ok, &definition.cancel}) {
        if (static_cast<int>(run.id) != button->id) continue;
        End(*button, run);
        return TRUE;
    }
    if (run.id == IDHELP && definition.helpTopic != 0) {
        ShowHelp(run);
        return TRUE;
    }
    return Take(definition.command, run);
}

}  // namespace

INT_PTR RunDialog(const DialogDefinition& definition, HWND dialog, UINT message, WPARAM wParam,
                  LPARAM lParam) {
    SheetContext* context = KeepContext(dialog, message, lParam);
    if (context == nullptr) {
        // A dialog that nobody gave a state could not be left again.
        if (message == WM_INITDIALOG) EndDialog(dialog, definition.cancel.result);
        return FALSE;
    }
    Run run{.context = *context,
            .window = dialog,
            .dialogName = definition.dialogName,
            .helpTopic = definition.helpTopic,
            .refresh = definition.refresh,
            .message = message,
            .wParam = wParam,
            .lParam = lParam};
    switch (message) {
        case WM_INITDIALOG:
            SetDialogTitle(*context, dialog, definition.templateName);
            if (definition.open != nullptr) definition.open(run);
            return TRUE;
        case WM_COMMAND:
            return OnCommand(definition, run);
        case WM_HSCROLL:
        case WM_VSCROLL:
            run.id = static_cast<DWORD>(GetDlgCtrlID(reinterpret_cast<HWND>(lParam)));
            run.code = LOWORD(wParam);
            return Take(definition.scroll, run);
        case WM_NOTIFY:
            return Take(definition.notify, run);
        case WM_DRAWITEM:
            return Take(definition.drawItem, run);
        case WM_HELP:
            return Take(definition.popupHelp, run);
        case WM_DESTROY:
            if (definition.close != nullptr) definition.close(run);
            return FALSE;
        default:
            return FALSE;
    }
}

}  // namespace kvui
