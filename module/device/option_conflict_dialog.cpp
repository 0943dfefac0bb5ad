// The option conflict dialog. The two option words travel in the sheet's ConflictReport, as decimal
// text in its first and its last field.
#include "device/option_conflict_dialog.h"

#include <cstdio>
#include <cstdlib>

#include "dialog/texts.h"
#include "resources/resource.h"
#include "rules/conflict_dialog.h"
#include "rules/gray_out.h"
#include "settings/item_catalogue.h"

namespace kvui {
namespace {

void PrintWord(char (&text)[kReportTextSize], DWORD word) {
    std::snprintf(text, sizeof text, "%ld", static_cast<long>(static_cast<LONG>(word)));
}

// The entry of a list whose value contains the bit; the last one where several do.
const SelectItem* EntryOfBit(const char* listControl, DWORD bit) {
    const SelectItem* found = nullptr;
    const ControlItem* item = ItemByName(listControl);
    if (item == nullptr) return nullptr;
    for (const SelectItem& entry : SelectEntries(*item)) {
        if ((entry.value & bit) != 0) found = &entry;
    }
    return found;
}

bool IsOffered(SheetContext& context, const SelectItem* entry) {
    return entry == nullptr || IsShownByOptions(context, entry->name) != 0;
}

void FillOptions(SheetContext& context, HWND list, const char* wordText) {
    const DWORD word = static_cast<DWORD>(std::atol(wordText));
    for (int option = 0; option < kOptionCount; ++option) {
        const DWORD bit = DWORD{1} << option;
        const SelectItem* entry = (word & bit) != 0 ? EntryOfBit("InstalledOption", bit) : nullptr;
        if (entry == nullptr) continue;
        if (!IsOffered(context, EntryOfBit("InstallableOption", bit)) &&
            !IsOffered(context, entry)) {
            continue;
        }
        char caption[kReportTextSize];
        if (LoadStringA(context.strings, entry->stringId, caption, sizeof caption) == 0) continue;
        SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(caption));
    }
}

void FillBothLists(Run& run) {
    if (run.context.shared == nullptr) return;
    const ConflictReport& report = run.context.shared->report;
    FillOptions(run.context, GetDlgItem(run.window, IDC_LIST_OPTION_CURRENT), report.triggerName);
    FillOptions(run.context, GetDlgItem(run.window, IDC_LIST_OPTION_NEW), report.targetNew);
}

constexpr DialogDefinition kOptionConflict =
    ConflictDialog("_OPTIONCONFLICT", IDC_BTN_OPTION_RESOLVE, InOrder<SetCaptions, FillBothLists>);

INT_PTR CALLBACK OptionConflictDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return RunDialog(kOptionConflict, dialog, message, wParam, lParam);
}

}  // namespace

bool AskOptionCorrection(HWND page, SheetContext& context, DWORD installed, DWORD corrected) {
    if (context.shared == nullptr) return false;
    ConflictReport& report = context.shared->report;
    report = {};
    PrintWord(report.triggerName, installed);
    PrintWord(report.targetNew, corrected);
    return AskInConflictDialog(kOptionConflict, page, context, OptionConflictDlgProc) ==
           static_cast<int>(kConflictResolved);
}

}  // namespace kvui
