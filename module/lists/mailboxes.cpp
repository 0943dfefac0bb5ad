// See mailboxes.h.
#include "lists/mailboxes.h"

namespace kvui {
namespace {

ListHandle& HandleOf(const SheetContext& context) {
    return context.shared->lists.handles[kListOutBin];
}

}  // namespace

std::vector<BinRecord> SorterBins(const SheetContext& context) {
    const ListHandle list = HandleOf(context);
    const int count = list != nullptr ? QDMMLTGetOUTBinNum(list, context.printer) : 0;
    std::vector<BinRecord> bins(count > 0 ? count : 0, BinRecord{});
    if (!bins.empty() && !QDMMLTGetOUTBinArray(list, context.printer, bins.data())) bins.clear();
    return bins;
}

bool IsMailbox(const SheetContext& context, const BinRecord& bin) {
    return (bin.identifier & context.privateSettings->mdmMailBinAssign) != 0;
}

void UpdateSorterBin(const SheetContext& context, const BinRecord& bin) {
    QDMMLTUpdateOUTBin(HandleOf(context), context.printer, &bin, bin.entryId);
}

bool CommitSorterBins(SheetContext& context) {
    ListHandle& list = HandleOf(context);
    if (list == nullptr) return true;
    const bool stored = QDMMLTWriteOUTBin(list, context.printer) != 0;
    list = QDMMLTReadOUTBin(context.printer);
    return stored;
}

void DropSorterBins(SheetContext& context) {
    ListHandle& list = HandleOf(context);
    if (list == nullptr) return;
    QDMMLTCancelOUTBin(list, context.printer);
    list = QDMMLTReadOUTBin(context.printer);
}

}  // namespace kvui
