// The row format of the page table that a driver's user-interface module hands out, and the meaning
// of its flags. Used by the module loader and the sheet maker.
#pragma once

#include <windef.h>

#include <printer_block.h>

namespace kvhost {

// A layout shared with modules; a row of zeros ends the table.
struct PageEntry {
    const char* pageTemplate;
    const char* procedure;
    void* reserved1;
    void* reserved2;
    DWORD flags1;
    DWORD flags2;
    void* reserved3;
};

// flags1. The second word is reserved for module kinds without a property sheet.
constexpr DWORD kPageShown = 0x1;
constexpr DWORD kPageHasHelp = 0x2;

constexpr UINT kMaxPages = 64;
constexpr const char* kPageTableExport = "GetPropSheetPages";
using PageTableFunction = const PageEntry* (*)(PrinterBlock* printer);

}  // namespace kvhost
