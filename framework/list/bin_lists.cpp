// The list service's functions for paper sources (two lists) and output bins.
#include <kvlist.h>
#include <winbase.h>

#include <algorithm>
#include <cstring>

#include "described_records.h"
#include "list_calls.h"

namespace {

using kvlist::ListKind;

constexpr int kMaxBins = 64;  // what callers have room for

}  // namespace

ListHandle QDMMLTReadBin(PrinterBlock* printer, DWORD list) {
    return kvlist::OpenCopy(ListKind::kInputBin, list, printer);
}
int QDMMLTWriteBin(ListHandle list, PrinterBlock* printer, DWORD listNumber) {
    const auto copy = kvlist::FindCopy(list, ListKind::kInputBin);
    // A copy of one list must not become the other one.
    if (!copy || copy->Format().number != listNumber) return 0;
    return kvlist::WriteAndClose(list, printer, ListKind::kInputBin);
}
int QDMMLTCancelBin(ListHandle list, PrinterBlock*) {
    return kvlist::CancelAndClose(list, ListKind::kInputBin);
}
int QDMMLTGetBinNum(ListHandle list, PrinterBlock*) {
    return kvlist::CountRecords(list, ListKind::kInputBin, kScopeCommon);
}
int QDMMLTGetBinArray(ListHandle list, PrinterBlock*, BinRecord* buffer) {
    return kvlist::CopyRecords(list, ListKind::kInputBin, buffer, kScopeCommon);
}
int QDMMLTAddBin(ListHandle list, PrinterBlock*, const BinRecord* record) {
    const auto copy = kvlist::FindCopy(list, ListKind::kInputBin);
    if (!copy || !record || copy->Count(kScopeCommon) >= kMaxBins) return 0;
    return copy->Add(record, kScopeCommon);
}
int QDMMLTDeleteBin(ListHandle list, PrinterBlock*, const BinRecord* record) {
    return record && kvlist::DeleteRecord(list, ListKind::kInputBin, record->identifier);
}

int QDMMLTLoadQDDBinInfo(ListHandle list, PrinterBlock* printer, BinRecord* out, DWORD listNumber) {
    if (!kvlist::FindCopy(list, ListKind::kInputBin) || !printer || !out ||
        !kvlist::FindListFormat(ListKind::kInputBin, listNumber)) {
        return 0;
    }
    const kvlist::Records records = kvlist::DescribedInputBins(*printer);
    const int count = std::min(static_cast<int>(records.size()), kMaxBins);
    for (int i = 0; i < count; ++i) std::memcpy(out + i, records[i].data(), sizeof *out);
    return count;
}

ListHandle QDMMLTReadOUTBin(PrinterBlock* printer) {
    return kvlist::OpenCopy(ListKind::kOutputBin, 0, printer);
}
int QDMMLTWriteOUTBin(ListHandle list, PrinterBlock* printer) {
    return kvlist::WriteAndClose(list, printer, ListKind::kOutputBin);
}
int QDMMLTCancelOUTBin(ListHandle list, PrinterBlock*) {
    return kvlist::CancelAndClose(list, ListKind::kOutputBin);
}
int QDMMLTGetOUTBinNum(ListHandle list, PrinterBlock*) {
    return kvlist::CountRecords(list, ListKind::kOutputBin, kScopeCommon);
}
int QDMMLTGetOUTBinArray(ListHandle list, PrinterBlock*, BinRecord* buffer) {
    return kvlist::CopyRecords(list, ListKind::kOutputBin, buffer, kScopeCommon);
}
int QDMMLTUpdateOUTBin(ListHandle list, PrinterBlock*, const BinRecord* record, DWORD entryId) {
    return kvlist::UpdateRecord(list, ListKind::kOutputBin, record, entryId);
}
