// The page table as the module loader and the sheet maker take it.
#pragma once

#include <windef.h>

#include <page_entry.h>
#include <printer_block.h>

namespace kvhost {

constexpr UINT kMaxPages = 64;
constexpr const char* kPageTableExport = "GetPropSheetPages";
using PageTableFunction = const PageEntry* (*)(PrinterBlock* printer);

}  // namespace kvhost
