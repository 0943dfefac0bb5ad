// The option conflict dialog. The two option words travel in the sheet's ConflictReport, as decimal
// text in its first and its last field.
#include "device/option_conflict_dialog.h"

#include <cstdio>
#include <cstdlib>

#include "resources/resource.h"
#include "resources/string_ids.h"
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

void FillBothLists(SheetContext& context, HWND dialog) {
    const ConflictReport& report = context.shared->report;
    FillOptions(context, GetDlgItem(dialog, IDC_LIST_OPTION_CURRENT), report.triggerName);
    FillOptions(context, GetDlgItem(dialog, IDC_LIST_OPTION_NEW), report.targetNew);
}

constexpr ConflictDialogTraits kOptionConflict = {"_OPTIONCONFLICT", IDS_TITLE_OPTION_CONFLICTS,
                                                  IDC_BTN_OPTION_RESOLVE, FillBothLists};

INT_PTR CALLBACK OptionConflictDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return RunConflictDialog(kOptionConflict, dialog, message, wParam, lParam);
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
