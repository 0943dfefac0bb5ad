// KVCORE: printer values, defaults and paper data. Implemented in framework/core.
#pragma once

#include <printer_block.h>
#include <wingdi.h>

// Units of a paper size.
constexpr DWORD kPaperUnitMillimetre = 2;  // tenths of a millimetre
constexpr DWORD kPaperUnitInch = 4;        // hundredths of an inch

struct PaperSizeInfo {
    LONG width;
    LONG length;
    DWORD unit;  // kPaperUnitMillimetre or kPaperUnitInch
};
// Printable area in tenths of a millimetre from the sheet's upper left corner.
struct PaperArea {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};
// A section of the printer description that holds a table; QDMFindProfileSection gives it.
struct ProfileSection;
using ProfileHandle = const ProfileSection*;
struct ResolutionInfo {
    LONG x;
    LONG y;
};
constexpr int kMaxResolutions = 16;

// Section code of printer values, and the value types.
constexpr DWORD kPrinterValueSection = 2;
constexpr DWORD kPrinterValueNumber = 0;  // 4 bytes
constexpr DWORD kPrinterValuePath = 2;    // string, 261 bytes
constexpr DWORD kPrinterValueText = 3;    // string

// Ids of the framework's own strings that the module asks for.
constexpr UINT kFrameworkStringDotGainSection = 1104;
constexpr UINT kFrameworkStringDotGainKeyFields = 1122;
// The name of the printer value with the help file.
constexpr UINT kFrameworkStringHelpFileValue = 2253;
constexpr UINT kFrameworkStringTableLibraryValue = 2270;

extern "C" {
// Non-zero when the value exists and the buffer holds it (text is always terminated).
int QDMGetPrinterKeyValue(PrinterBlock* printer, DWORD section, LPCSTR name, DWORD type,
                          LPVOID buffer, DWORD size);
// Fills a whole 1,296-byte settings record with the printer's defaults; `current` may be null.
int QDMGetStdDefaults(PrinterBlock* printer, LPVOID record, LPCVOID current);
// The framework's text for the id; answers its length, 0 when there is none.
int QDMLoadString(HMODULE module, UINT id, LPSTR buffer, int size);
// Papers of the printer description (codes below 512). Non-zero on success.
int GetPaperSize(PrinterBlock* printer, LONG paperCode, PaperSizeInfo* result);
// Null when the paper is unknown; the record stays valid until the next call.
const PaperArea* QDMGetPaperArea(PrinterBlock* printer, LONG paperCode);
// Fills up to kMaxResolutions entries and answers their number.
int QDMGetResolutionList(PrinterBlock* printer, ResolutionInfo* result);
// Null when there is no such section; the handle stays valid until the next call.
ProfileHandle QDMFindProfileSection(PrinterBlock* printer, DWORD section, LPCSTR name);
// The values of the named fields of a settings record, both separated by commas. Non-zero on
// success.
int QDMCreateProfileKey(PrinterBlock* printer, DWORD section, LPCSTR fields, LPCVOID record,
                        LPSTR key, DWORD size);
// The value of the first row that the key fits; "*" in a row's key fits any field. Non-zero on
// success.
int QDMProfileSearch(ProfileHandle profile, DWORD section, LPCSTR key, LPSTR value, DWORD size);
}
