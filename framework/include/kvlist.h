// KVLIST: the printer's user-defined lists. A handle is a working copy; Write makes it the stored
// list, Cancel drops it. Implemented in framework/list.
#pragma once

#include <list_records.h>
#include <printer_block.h>

struct ListCopy;
using ListHandle = ListCopy*;

constexpr DWORD kScopeCommon = 1;
constexpr DWORD kScopeCommonAndOwn = 2;
constexpr DWORD kScopeUser = 3;
constexpr DWORD kScopeAdministrator = 7;

// All int results: non-zero on success, or a count.
extern "C" {
ListHandle QDMMLTReadPaper(PrinterBlock* printer);
ListHandle QDMMLTReadWatermark(PrinterBlock* printer);
ListHandle QDMMLTReadBin(PrinterBlock* printer, DWORD list);
ListHandle QDMMLTReadOUTBin(PrinterBlock* printer);
int QDMMLTWritePaper(ListHandle list, PrinterBlock* printer);
int QDMMLTWriteWatermark(ListHandle list, PrinterBlock* printer);
int QDMMLTWriteBin(ListHandle list, PrinterBlock* printer, DWORD listNumber);
int QDMMLTWriteOUTBin(ListHandle list, PrinterBlock* printer);
int QDMMLTCancelPaper(ListHandle list, PrinterBlock* printer);
int QDMMLTCancelWatermark(ListHandle list, PrinterBlock* printer);
int QDMMLTCancelBin(ListHandle list, PrinterBlock* printer);
int QDMMLTCancelOUTBin(ListHandle list, PrinterBlock* printer);

int QDMMLTGetPaperNum(ListHandle list, PrinterBlock* printer, DWORD scope);
int QDMMLTGetPaperArray(ListHandle list, PrinterBlock* printer, CustomPaperRecord* buffer,
                        DWORD scope);
int QDMMLTGetPaperWithID(ListHandle list, PrinterBlock* printer, CustomPaperRecord* record,
                         DWORD id);
DWORD QDMMLTGetPaperID(ListHandle list, DWORD lowest, DWORD highest);
int QDMMLTAddPaper(ListHandle list, PrinterBlock* printer, CustomPaperRecord* record, DWORD scope);
int QDMMLTUpdatePaper(ListHandle list, PrinterBlock* printer, const CustomPaperRecord* record);
int QDMMLTDeletePaper(ListHandle list, PrinterBlock* printer, DWORD id);

int QDMMLTGetWatermarkNum(ListHandle list, PrinterBlock* printer, DWORD scope);
int QDMMLTGetWatermarkArray(ListHandle list, PrinterBlock* printer, WatermarkRecord* buffer,
                            DWORD scope);
int QDMMLTGetWatermarkWithID(ListHandle list, PrinterBlock* printer, WatermarkRecord* record,
                             DWORD id);
DWORD QDMMLTGetWatermarkID(ListHandle list, DWORD lowest, DWORD highest);
int QDMMLTAddWatermark(ListHandle list, PrinterBlock* printer, WatermarkRecord* record,
                       DWORD scope);
int QDMMLTUpdateWatermark(ListHandle list, PrinterBlock* printer, const WatermarkRecord* record);
int QDMMLTDeleteWatermark(ListHandle list, PrinterBlock* printer, DWORD id);

int QDMMLTGetBinNum(ListHandle list, PrinterBlock* printer);
int QDMMLTGetBinArray(ListHandle list, PrinterBlock* printer, BinRecord* buffer);
int QDMMLTAddBin(ListHandle list, PrinterBlock* printer, const BinRecord* record);
int QDMMLTDeleteBin(ListHandle list, PrinterBlock* printer, const BinRecord* record);
// `out` has room for 64 records.
int QDMMLTLoadQDDBinInfo(ListHandle list, PrinterBlock* printer, BinRecord* out, DWORD listNumber);
int QDMMLTGetOUTBinNum(ListHandle list, PrinterBlock* printer);
int QDMMLTGetOUTBinArray(ListHandle list, PrinterBlock* printer, BinRecord* buffer);
int QDMMLTUpdateOUTBin(ListHandle list, PrinterBlock* printer, const BinRecord* record,
                       DWORD entryId);
}
