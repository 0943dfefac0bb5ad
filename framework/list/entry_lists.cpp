// The list service's functions for custom papers and watermarks, which have scopes and ids.
#include <kvlist.h>
#include <winbase.h>

#include <cstring>

#include "list_copy.h"

namespace {

using kvlist::ListKind;

int Count(ListHandle list, ListKind kind, DWORD scope) {
    const auto copy = kvlist::FindCopy(list, kind);
    return copy ? copy->Count(scope) : 0;
}

int CopyAll(ListHandle list, ListKind kind, void* buffer, DWORD scope) {
    const auto copy = kvlist::FindCopy(list, kind);
    return copy && buffer ? copy->CopyTo(buffer, scope) : 0;
}

int CopyOne(ListHandle list, ListKind kind, void* target, DWORD id) {
    const auto copy = kvlist::FindCopy(list, kind);
    if (!copy || !target) return 0;
    const kvlist::Record* record = copy->Find(id);
    if (!record) return 0;
    std::memcpy(target, record->data(), record->size());
    return 1;
}

DWORD FreeId(ListHandle list, ListKind kind, DWORD lowest, DWORD highest) {
    const auto copy = kvlist::FindCopy(list, kind);
    return copy ? copy->FreeId(lowest, highest) : 0;
}

int Add(ListHandle list, ListKind kind, const void* record, DWORD scope) {
    const auto copy = kvlist::FindCopy(list, kind);
    return copy && record && copy->Add(record, scope);
}

int Update(ListHandle list, ListKind kind, const void* record) {
    const auto copy = kvlist::FindCopy(list, kind);
    if (!copy || !record) return 0;
    return copy->Update(record, kvlist::RecordId(copy->Format(), record));
}

int Delete(ListHandle list, ListKind kind, DWORD id) {
    const auto copy = kvlist::FindCopy(list, kind);
    return copy && copy->Remove(id);
}

}  // namespace

ListHandle QDMMLTReadPaper(PrinterBlock* printer) {
    return kvlist::OpenCopy(ListKind::kPaper, 0, printer);
}
int QDMMLTWritePaper(ListHandle list, PrinterBlock* printer) {
    return kvlist::WriteAndClose(list, printer, ListKind::kPaper);
}
int QDMMLTCancelPaper(ListHandle list, PrinterBlock*) {
    return kvlist::CancelAndClose(list, ListKind::kPaper);
}
int QDMMLTGetPaperNum(ListHandle list, PrinterBlock*, DWORD scope) {
    return Count(list, ListKind::kPaper, scope);
}
int QDMMLTGetPaperArray(ListHandle list, PrinterBlock*, CustomPaperRecord* buffer, DWORD scope) {
    return CopyAll(list, ListKind::kPaper, buffer, scope);
}
int QDMMLTGetPaperWithID(ListHandle list, PrinterBlock*, CustomPaperRecord* record, DWORD id) {
    return CopyOne(list, ListKind::kPaper, record, id);
}
DWORD QDMMLTGetPaperID(ListHandle list, DWORD lowest, DWORD highest) {
    return FreeId(list, ListKind::kPaper, lowest, highest);
}
int QDMMLTAddPaper(ListHandle list, PrinterBlock*, CustomPaperRecord* record, DWORD scope) {
    return Add(list, ListKind::kPaper, record, scope);
}
int QDMMLTUpdatePaper(ListHandle list, PrinterBlock*, const CustomPaperRecord* record) {
    return Update(list, ListKind::kPaper, record);
}
int QDMMLTDeletePaper(ListHandle list, PrinterBlock*, DWORD id) {
    return Delete(list, ListKind::kPaper, id);
}

ListHandle QDMMLTReadWatermark(PrinterBlock* printer) {
    return kvlist::OpenCopy(ListKind::kWatermark, 0, printer);
}
int QDMMLTWriteWatermark(ListHandle list, PrinterBlock* printer) {
    return kvlist::WriteAndClose(list, printer, ListKind::kWatermark);
}
int QDMMLTCancelWatermark(ListHandle list, PrinterBlock*) {
    return kvlist::CancelAndClose(list, ListKind::kWatermark);
}
int QDMMLTGetWatermarkNum(ListHandle list, PrinterBlock*, DWORD scope) {
    return Count(list, ListKind::kWatermark, scope);
}
int QDMMLTGetWatermarkArray(ListHandle list, PrinterBlock*, WatermarkRecord* buffer, DWORD scope) {
    return CopyAll(list, ListKind::kWatermark, buffer, scope);
}
int QDMMLTGetWatermarkWithID(ListHandle list, PrinterBlock*, WatermarkRecord* record, DWORD id) {
    return CopyOne(list, ListKind::kWatermark, record, id);
}
DWORD QDMMLTGetWatermarkID(ListHandle list, DWORD lowest, DWORD highest) {
    return FreeId(list, ListKind::kWatermark, lowest, highest);
}
int QDMMLTAddWatermark(ListHandle list, PrinterBlock*, WatermarkRecord* record, DWORD scope) {
    return Add(list, ListKind::kWatermark, record, scope);
}
int QDMMLTUpdateWatermark(ListHandle list, PrinterBlock*, const WatermarkRecord* record) {
    return Update(list, ListKind::kWatermark, record);
}
int QDMMLTDeleteWatermark(ListHandle list, PrinterBlock*, DWORD id) {
    return Delete(list, ListKind::kWatermark, id);
}
