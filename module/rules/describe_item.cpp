// The texts by which the conflicts dialog names an item and its values.
#include <kvlist.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <vector>

#include "lists/overlay_store.h"
#include "lists/paper_size.h"
#include "resources/string_ids.h"
#include "rules/conflicts.h"
#include "rules/rules_file.h"
#include "sheet/fixed_text.h"

namespace kvui {
namespace {

void LoadText(const SheetContext& context, UINT id, char* text) {
    if (id == 0 || LoadStringA(context.strings, id, text, kReportTextSize) == 0) text[0] = '\0';
}

// Texts of the records are arrays that need not end with a zero.
template <size_t Size>
void CopyField(char* text, const char (&field)[Size]) {
    CopyText(text, std::min(Size + 1, kReportTextSize), field);
}

void DescribePaper(SheetContext& context, LONG code, char* text) {
    for (const CustomPaperRecord& paper : VisiblePapers(context)) {
        if (paper.id != static_cast<DWORD>(code)) continue;
        CopyField(text, paper.displayName);
        return;
    }
}

void DescribeOutputPaper(SheetContext& context, LONG code, char* text) {
    if (code == 0) return LoadText(context, IDS_SAME_AS_ORIGINAL, text);
    DescribePaper(context, code, text);
}

// Both lists of input bins: the second holds the sources that only the first page and the covers
// use.
void DescribeBin(SheetContext& context, LONG identifier, char* text) {
    for (const SheetList which : {kListBin0, kListBin1}) {
        const ListHandle bins = context.shared->lists.handles[which];
        const int count = bins != nullptr ? QDMMLTGetBinNum(bins, context.printer) : 0;
        if (count <= 0) continue;
        std::vector<BinRecord> records(static_cast<size_t>(count));
        if (!QDMMLTGetBinArray(bins, context.printer, records.data())) continue;
        for (const BinRecord& record : records) {
            if (record.identifier != static_cast<DWORD>(identifier)) continue;
            CopyField(text, record.displayName);
            return;
        }
    }
}

void DescribeOverlay(SheetContext& context, LONG identifier, char* text) {
    ReadOverlayEntry(context, "[FormOverlayName]", static_cast<DWORD>(identifier), text,
                     kReportTextSize);
}

// list, how the text of a value is found
constexpr struct {
    RunTimeList list;
    void (*describe)(SheetContext&, LONG, char*);
} kDescribers[] = {
    {RunTimeList::kPapers, DescribePaper},     {RunTimeList::kOutputPapers, DescribeOutputPaper},
    {RunTimeList::kSources, DescribeBin},      {RunTimeList::kOtherSources, DescribeBin},
    {RunTimeList::kOverlays, DescribeOverlay},
};

void DescribeListEntry(SheetContext& context, const ControlItem& item, LONG value, char* text) {
    for (const auto& row : kDescribers) {
        if (row.list == item.runTimeList) return row.describe(context, value, text);
    }
    for (const SelectItem& entry : SelectEntries(item)) {
        if (entry.value != static_cast<DWORD>(value)) continue;
        LoadText(context, entry.stringId, text);
        return;
    }
    for (const CodeRecord& record : CodeRecords(item.listName)) {
        if (record.code != value) continue;
        CopyField(text, record.name);
        return;
    }
}

void DescribeRadio(SheetContext& context, const ControlItem& item, LONG value, char* text) {
    for (const RadioItem& button : RadioButtons(item)) {
        if (button.value != static_cast<DWORD>(value)) continue;
        LoadText(context, button.captionId, text);
        return;
    }
}

void AppendName(char* text, const char* name) {
    const size_t length = std::strlen(text);
    std::snprintf(text + length, kReportTextSize - length, ",%s", name);
}

void DescribeBits(SheetContext& context, const ControlItem& item, LONG bits, char* text) {
    for (const SelectItem& entry : SelectEntries(item)) {
        if ((entry.value & static_cast<DWORD>(bits)) == 0) continue;
        char name[kReportTextSize];
        LoadText(context, entry.stringId, name);
        AppendName(text, name);
    }
    for (const CodeRecord& record : CodeRecords(item.listName)) {
        if ((record.code & bits) != 0) AppendName(text, record.name);
    }
}

}  // namespace

void DescribeItemValue(SheetContext& context, DWORD controlId, LONG value, LONG bitValue,
                       char* name, char* text) {
    name[0] = text[0] = '\0';
    const ControlItem* item = ItemById(controlId);
    if (item == nullptr || context.shared == nullptr) return;
    LoadText(context, item->captionId, name);
    switch (item->type) {
        case kItemEdit:
            std::snprintf(text, kReportTextSize, "%d", static_cast<int>(value));
            break;
        case kItemCombo:
        case kItemList:
            DescribeListEntry(context, *item, value, text);
            break;
        case kItemRadio:
            DescribeRadio(context, *item, value, text);
            break;
        case kItemCheck: {
            const bool on =
                item->check != nullptr && item->check->checkedValue == static_cast<DWORD>(value);
            LoadText(context, on ? IDS_ON : IDS_OFF, text);
            break;
        }
        case kItemMaskList:
            DescribeBits(context, *item, bitValue, text);
            break;
        default:
            break;
    }
}

}  // namespace kvui
