// The skeleton of pages: which steps of the definition a message takes.
#include "ui/page_definition.h"

#include <prsht.h>

#include "sheet/messages.h"
#include "ui/other_page_refresh.h"
#include "ui/sheet_life.h"

namespace kvui {
namespace {

// What is taken back at the end nobody looks at any more.
bool MayChangeSettings(UINT message, LPARAM lParam) {
    if (message == WM_NOTIFY) {
        const UINT code = reinterpret_cast<const NMHDR*>(lParam)->code;
        return code == PSN_SETACTIVE || code == PSN_APPLY;
    }
    return message == WM_COMMAND || message == WM_HSCROLL || message == WM_VSCROLL ||
           message == kMessageFirstActivation || message == WM_RBUTTONDOWN;
}

Step StepsOfNotification(const PageDefinition& definition, UINT code) {
    switch (code) {
        case PSN_SETACTIVE:
            return definition.activate;
        case PSN_APPLY:
            return definition.apply;
        case PSN_RESET:
            return definition.reset;
        case PSN_HELP:
            return definition.help;
        default:
            return nullptr;
    }
}

INT_PTR TakeSteps(Step steps, Run& run) {
    if (steps == nullptr) return FALSE;
    steps(run);
    return run.answer;
}

// Every notification is answered, and none refused.
INT_PTR OnNotify(const PageDefinition& definition, Run& run) {
    const UINT code = reinterpret_cast<const NMHDR*>(run.lParam)->code;
    if (code == PSN_SETACTIVE) run.context.page = run.window;
    LONG_PTR result = PSNRET_NOERROR;
    if (code == PSN_QUERYINITIALFOCUS) {
        result = TakeSteps(definition.initialFocus, run);
    } else {
        TakeSteps(StepsOfNotification(definition, code), run);
    }
    SetWindowLongPtrA(run.window, DWLP_MSGRESULT, result);
    return TRUE;
}

INT_PTR OnMessage(const PageDefinition& definition, Run& run) {
    switch (run.message) {
        case WM_INITDIALOG:
            return TakeSteps(definition.open, run);
        case WM_COMMAND:
            run.id = LOWORD(run.wParam);
            run.code = HIWORD(run.wParam);
            return TakeSteps(definition.command, run);
        case WM_HSCROLL:
        case WM_VSCROLL:
            run.id = static_cast<DWORD>(GetDlgCtrlID(reinterpret_cast<HWND>(run.lParam)));
            run.code = LOWORD(run.wParam);
            return TakeSteps(definition.scroll, run);
        case WM_NOTIFY:
            return OnNotify(definition, run);
        case WM_HELP:
            return TakeSteps(definition.popupHelp, run);
        case WM_RBUTTONDOWN:
            return TakeSteps(definition.rightButton, run);
        case WM_CTLCOLORSTATIC:
            return TakeSteps(definition.paintStatic, run);
        case WM_DRAWITEM:
            return TakeSteps(definition.drawItem, run);
        case kMessageRefreshAll:
            return TakeSteps(definition.refill, run);
        case kMessageFirstActivation:
            return TakeSteps(definition.firstActivation, run);
        case WM_DESTROY:
            return TakeSteps(definition.close, run);
        default:
            return FALSE;
    }
}

}  // namespace

INT_PTR RunPage(const PageDefinition& definition, HWND page, UINT message, WPARAM wParam,
                LPARAM lParam) {
    SheetContext* context = BeginPageMessage(page, message, lParam, definition.tailSize);
    if (context == nullptr) return FALSE;
    Run run{.context = *context,
            .window = page,
            .dialogName = definition.dialogName,
            .helpTopic = definition.helpTopic,
            .take = definition.take,
            .refresh = definition.refresh,
            .show = definition.show,
            .view = definition.view,
            .message = message,
            .wParam = wParam,
            .lParam = lParam};
    if (!MayChangeSettings(message, lParam)) return OnMessage(definition, run);
    const SettingsBefore before(*context);
    const INT_PTR answer = OnMessage(definition, run);
    if (IsWindow(page)) before.RefreshOtherPages(*context, page, definition.dialogName);
    return answer;
}

}  // namespace kvui
