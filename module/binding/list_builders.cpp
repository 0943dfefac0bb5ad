// Builders of run-time lists: which list, which builder, in one table.
#include "binding/list_builders.h"

#include <cstring>

#include "lists/mailboxes.h"
#include "lists/overlay_store.h"
#include "lists/paper_size.h"
#include "resources/string_ids.h"
#include "rules/gray_out.h"
#include "sheet/administrator.h"
#include "sheet/fixed_text.h"

namespace kvui {
namespace {

void AddPapers(SheetContext& context, std::vector<ListEntry>& entries) {
    for (const CustomPaperRecord& paper : VisiblePapers(context)) {
        entries.push_back({BoundedText(paper.displayName), paper.id});
    }
}

void AddOutputPapers(SheetContext& context, std::vector<ListEntry>& entries) {
    // Without papers the list stays empty, so that the stored size is not given up for the first
    // entry.
    if (context.shared->lists.handles[kListPaper] == nullptr) return;
    char text[128] = "";
    if (LoadStringA(context.strings, IDS_SAME_AS_ORIGINAL, text, sizeof text) != 0) {
        entries.push_back({text, 0});
    }
    AddPapers(context, entries);
}

void AddBins(SheetContext& context, SheetList list, std::vector<ListEntry>& entries) {
    const ListHandle handle = context.shared->lists.handles[list];
    const int count = handle != nullptr ? QDMMLTGetBinNum(handle, context.printer) : 0;
    if (count <= 0) return;
    std::vector<BinRecord> bins(count, BinRecord{});
    if (!QDMMLTGetBinArray(handle, context.printer, bins.data())) return;
    for (const BinRecord& bin : bins) {
        if (IsShownByOptions(context, BoundedText(bin.optionItem).c_str())) {
            entries.push_back({BoundedText(bin.displayName), bin.identifier});
        }
    }
}

void AddSources(SheetContext& context, std::vector<ListEntry>& entries) {
    AddBins(context, kListBin0, entries);
}
void AddOtherSources(SheetContext& context, std::vector<ListEntry>& entries) {
    AddBins(context, kListBin1, entries);
}

void AddWatermarks(SheetContext& context, std::vector<ListEntry>& entries) {
    const ListHandle list = context.shared->lists.handles[kListWatermark];
    const DWORD scope = IsAdministrator() ? kScopeAdministrator : kScopeUser;
    const int count = list != nullptr ? QDMMLTGetWatermarkNum(list, context.printer, scope) : 0;
    if (count <= 0) return;
    std::vector<WatermarkRecord> records(count, WatermarkRecord{});
    if (!QDMMLTGetWatermarkArray(list, context.printer, records.data(), scope)) return;
    for (const WatermarkRecord& record : records) {
        entries.push_back({BoundedText(record.name), record.id});
    }
}

// A printer without any, which the caller may not change either, still offers none of them.
void AddOverlays(SheetContext& context, std::vector<ListEntry>& entries) {
    OverlayBlock block;
    LoadOverlays(context, block);
    for (DWORD i = 0; i < block.count; ++i) {
        entries.push_back({block.entries[i].name, block.ids[i]});
    }
    if (block.count != 0) return;
    char none[sizeof block.entries[0].name] = "";
    LoadStringA(context.strings, IDS_OVERLAY_NONE, none, sizeof none);
    entries.push_back({none, 0});
}

void AddMailBins(SheetContext& context, std::vector<ListEntry>& entries) {
    for (const BinRecord& bin : SorterBins(context)) {
        if (IsMailbox(context, bin) &&
            IsShownByOptions(context, BoundedText(bin.optionItem).c_str()) == 1) {
            entries.push_back({BoundedText(bin.displayName), bin.identifier});
        }
    }
}

// list, builder
constexpr struct {
    RunTimeList list;
    void (*add)(SheetContext&, std::vector<ListEntry>&);
} kBuilders[] = {
    {RunTimeList::kPapers, AddPapers},         {RunTimeList::kOutputPapers, AddOutputPapers},
    {RunTimeList::kSources, AddSources},       {RunTimeList::kOtherSources, AddOtherSources},
    {RunTimeList::kWatermarks, AddWatermarks}, {RunTimeList::kMailBins, AddMailBins},
    {RunTimeList::kOverlays, AddOverlays},
};

}  // namespace

void AddRunTimeEntries(SheetContext& context, RunTimeList list, std::vector<ListEntry>& entries) {
    for (const auto& builder : kBuilders) {
        if (builder.list == list) builder.add(context, entries);
    }
}

}  // namespace kvui
