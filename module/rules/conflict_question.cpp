// The question whether a conflicting setting may be changed. Fills the sheet's ConflictReport,
// which is what the user is shown, and asks.
#include <cstdio>
#include <cstring>

#include "rules/conflicts.h"
#include "rules/rule_text.h"
#include "ui/message_box.h"

namespace kvui {
namespace {

constexpr DWORD kInstallableOptionsList = 4003;
constexpr DWORD kInstalledOptionsList = 4007;

enum ConflictString : UINT {
    kStringCaption = 9400,
    kStringIntroduction = 9401,
    kStringItem = 9402,
    kStringCurrentSelection = 9403,
    kStringToResolve = 9404,
    kStringToCancel = 9405,
    kStringNewSelection = 9407,
    kStringUnresolvable = 9417,
};

constexpr int kAnswerResolve = 1;
constexpr int kAnswerCancel = 2;

// The installed-options lists hold several entries of one word; what the user chose is the entry.
LONG ShownTriggerValue(HWND page, DWORD triggerId, LONG value) {
    if (triggerId != kInstallableOptionsList && triggerId != kInstalledOptionsList) return value;
    const int list = static_cast<int>(triggerId);
    const LRESULT selection = SendDlgItemMessageA(page, list, LB_GETCURSEL, 0, 0);
    return static_cast<LONG>(
        SendDlgItemMessageA(page, list, LB_GETITEMDATA, static_cast<WPARAM>(selection), 0));
}

struct Text {
    char text[256];
    Text(HINSTANCE strings, UINT id) {
        if (LoadStringA(strings, id, text, sizeof text) == 0) text[0] = '\0';
    }
};

// Without its first "&", the mark of an access key.
struct PlainName {
    char text[kReportTextSize];
    explicit PlainName(const char* name) {
        CopyText(text, name);
        if (char* mark = std::strchr(text, '&')) std::memmove(mark, mark + 1, std::strlen(mark));
    }
};

int AskInMessageBox(HWND page, HINSTANCE strings, const ConflictReport& report) {
    const bool resolvable = report.targetNew[0] != '\0';
    const PlainName trigger(report.triggerName);
    const PlainName target(report.targetName);
    char message[4096];  // all texts at their longest
    std::snprintf(
        message, sizeof message, "%s\n\n%s / %s\n%s  %s\n%s  %s\n\n%s / %s\n%s  %s\n\n%s\n%s",
        Text(strings, kStringIntroduction).text, Text(strings, kStringItem).text,
        Text(strings, kStringCurrentSelection).text, trigger.text, report.triggerSelection,
        target.text, report.targetCurrent, Text(strings, kStringItem).text,
        Text(strings, kStringNewSelection).text, target.text,
        resolvable ? report.targetNew : Text(strings, kStringUnresolvable).text,
        resolvable ? Text(strings, kStringToResolve).text : "",
        Text(strings, kStringToCancel).text);
    const Text caption(strings, kStringCaption);
    if (!resolvable) {
        ShowMessage(page, message, caption.text, MB_OK | MB_ICONEXCLAMATION);
        return kAnswerCancel;
    }
    const int pressed = ShowMessage(page, message, caption.text, MB_OKCANCEL | MB_ICONEXCLAMATION);
    return pressed == IDOK ? kAnswerResolve : kAnswerCancel;
}

}  // namespace

int AskConflictResolution(HWND page, SheetContext& context, LONG /*targetNegate*/,
                          LONG /*targetAll*/, DWORD triggerId, LONG triggerValue, DWORD targetId,
                          LONG targetValue, LONG forcedValue) {
    if (context.shared == nullptr) return kAnswerCancel;
    ConflictReport& report = context.shared->report;
    report = {};
    DescribeItemValue(context, triggerId, ShownTriggerValue(page, triggerId, triggerValue), 0,
                      report.triggerName, report.triggerSelection);
    DescribeItemValue(context, targetId, targetValue, forcedValue, report.targetName,
                      report.targetCurrent);
    char unusedName[kReportTextSize];
    DescribeItemValue(context, targetId, forcedValue, forcedValue, unusedName, report.targetNew);
    return AskInMessageBox(page, context.strings, report);
}

}  // namespace kvui
