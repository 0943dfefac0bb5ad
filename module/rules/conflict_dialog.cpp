// The conflicts dialog, exported as DlgProcConflicts. AskConflictResolution runs it over the report
// it has filled.
#include "rules/conflict_dialog.h"

#include <cstring>

#include "dialog/texts.h"
#include "exports.h"
#include "resources/resource.h"
#include "resources/string_ids.h"
#include "rules/conflicts.h"
#include "sheet/fixed_text.h"

namespace kvui {
namespace {

// Without its first "&", the mark of an access key; a second one belongs to the name.
struct PlainName {
    char text[kReportTextSize];
    explicit PlainName(const char* name) {
        CopyText(text, name);
        if (char* mark = std::strchr(text, '&')) std::memmove(mark, mark + 1, std::strlen(mark));
    }
};

void ShowUnresolvable(const SheetContext& context, HWND dialog) {
    char text[kReportTextSize] = "";
    LoadStringA(context.strings, IDS_UNRESOLVABLE, text, sizeof text);
    SetDlgItemTextA(dialog, IDC_ST_NEW_SELECTION, text);
    EnableWindow(GetDlgItem(dialog, IDC_BTN_CONFLICT_RESOLVE), FALSE);
}

void ShowConflicts(Run& run) {
    if (run.context.shared == nullptr) return;
    const HWND dialog = run.window;
    const ConflictReport& report = run.context.shared->report;
    const PlainName trigger(report.triggerName);
    const PlainName target(report.targetName);
    SetDlgItemTextA(dialog, IDC_ST_TRIGGER_NAME, trigger.text);
    SetDlgItemTextA(dialog, IDC_ST_TRIGGER_SELECTION, report.triggerSelection);
    SetDlgItemTextA(dialog, IDC_ST_TARGET_NAME, target.text);
    SetDlgItemTextA(dialog, IDC_ST_TARGET_SELECTION, report.targetCurrent);
    SetDlgItemTextA(dialog, IDC_ST_NEW_NAME, target.text);
    SetDlgItemTextA(dialog, IDC_ST_NEW_SELECTION, report.targetNew);
    if (report.targetNew[0] == '\0') ShowUnresolvable(run.context, dialog);
}

constexpr DialogDefinition kConflicts =
    ConflictDialog("_CONFLICTS", IDC_BTN_CONFLICT_RESOLVE, InOrder<SetCaptions, ShowConflicts>);

// Of a list that stands for bits of one word: the entry that the user chose.
LONG ShownTriggerValue(HWND page, DWORD triggerId, LONG value) {
    const ControlItem* trigger = ItemById(triggerId);
    if (trigger == nullptr || !IsSetOfEntries(*trigger)) return value;
    const int list = static_cast<int>(triggerId);
    const LRESULT selection = SendDlgItemMessageA(page, list, LB_GETCURSEL, 0, 0);
    if (GetDlgItem(page, list) == nullptr || selection < 0) return value;
    return static_cast<LONG>(
        SendDlgItemMessageA(page, list, LB_GETITEMDATA, static_cast<WPARAM>(selection), 0));
}

}  // namespace

int AskInConflictDialog(const DialogDefinition& definition, HWND owner, SheetContext& context,
                        DLGPROC procedure) {
    const INT_PTR result = DialogBoxParamA(context.resources, definition.templateName, owner,
                                           procedure, reinterpret_cast<LPARAM>(&context));
    return static_cast<int>(result == kConflictResolved ? kConflictResolved : kConflictCancelled);
}

int AskConflictResolution(HWND page, SheetContext& context, LONG /*targetNegate*/,
                          LONG /*targetAll*/, DWORD triggerId, LONG triggerValue, DWORD targetId,
                          LONG targetValue, LONG forcedValue) {
    if (context.shared == nullptr) return static_cast<int>(kConflictCancelled);
    ConflictReport& report = context.shared->report;
    report = {};
    const LONG shownValue = ShownTriggerValue(page, triggerId, triggerValue);
    DescribeItemValue(context, triggerId, shownValue, shownValue, report.triggerName,
                      report.triggerSelection);
    DescribeItemValue(context, targetId, targetValue, forcedValue, report.targetName,
                      report.targetCurrent);
    char unusedName[kReportTextSize];
    DescribeItemValue(context, targetId, forcedValue, forcedValue, unusedName, report.targetNew);
    return AskInConflictDialog(kConflicts, page, context, DlgProcConflicts);
}

}  // namespace kvui

INT_PTR CALLBACK DlgProcConflicts(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunDialog(kvui::kConflicts, dialog, message, wParam, lParam);
}
