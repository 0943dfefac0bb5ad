// The list service's functions for custom papers and watermarks, which have scopes and ids.
#include <kvlist.h>

#include "list_calls.h"

using kvlist::ListKind;

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
    return kvlist::CountRecords(list, ListKind::kPaper, scope);
}
int QDMMLTGetPaperArray(ListHandle list, PrinterBlock*, CustomPaperRecord* buffer, DWORD scope) {
    return kvlist::CopyRecords(list, ListKind::kPaper, buffer, scope);
}
int QDMMLTGetPaperWithID(ListHandle list, PrinterBlock*, CustomPaperRecord* record, DWORD id) {
    return kvlist::CopyRecord(list, ListKind::kPaper, record, id);
}
DWORD QDMMLTGetPaperID(ListHandle list, DWORD lowest, DWORD highest) {
    return kvlist::FreeRecordId(list, ListKind::kPaper, lowest, highest);
}
int QDMMLTAddPaper(ListHandle list, PrinterBlock*, CustomPaperRecord* record, DWORD scope) {
    return kvlist::AddRecord(list, ListKind::kPaper, record, scope);
}
int QDMMLTUpdatePaper(ListHandle list, PrinterBlock*, const CustomPaperRecord* record) {
    return kvlist::UpdateRecord(list, ListKind::kPaper, record);
}
int QDMMLTDeletePaper(ListHandle list, PrinterBlock*, DWORD id) {
    return kvlist::DeleteRecord(list, ListKind::kPaper, id);
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
    return kvlist::CountRecords(list, ListKind::kWatermark, scope);
}
int QDMMLTGetWatermarkArray(ListHandle list, PrinterBlock*, WatermarkRecord* buffer, DWORD scope) {
    return kvlist::CopyRecords(list, ListKind::kWatermark, buffer, scope);
}
int QDMMLTGetWatermarkWithID(ListHandle list, PrinterBlock*, WatermarkRecord* record, DWORD id) {
    return kvlist::CopyRecord(list, ListKind::kWatermark, record, id);
}
DWORD QDMMLTGetWatermarkID(ListHandle list, DWORD lowest, DWORD highest) {
    return kvlist::FreeRecordId(list, ListKind::kWatermark, lowest, highest);
}
int QDMMLTAddWatermark(ListHandle list, PrinterBlock*, WatermarkRecord* record, DWORD scope) {
    return kvlist::AddRecord(list, ListKind::kWatermark, record, scope);
}
int QDMMLTUpdateWatermark(ListHandle list, PrinterBlock*, const WatermarkRecord* record) {
    return kvlist::UpdateRecord(list, ListKind::kWatermark, record);
}
int QDMMLTDeleteWatermark(ListHandle list, PrinterBlock*, DWORD id) {
    return kvlist::DeleteRecord(list, ListKind::kWatermark, id);
}
