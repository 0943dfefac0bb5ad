// Reading single values of a printer's data through the spooler; used by values and defaults.
#pragma once

#include <printer_block.h>

#include <optional>
#include <string>

namespace kvcore {

struct PrinterDataValue {
    DWORD type = 0;
    std::string bytes;
};

// Nothing when the printer cannot be opened or has no such value.
std::optional<PrinterDataValue> ReadPrinterData(const PrinterBlock& printer, const char* name);
// The number of a REG_DWORD value.
std::optional<DWORD> ReadPrinterDataNumber(const PrinterBlock& printer, const char* name);

}  // namespace kvcore
