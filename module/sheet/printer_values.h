// What the pages ask the spooler about their printer: access, attributes, and the printer-level
// values "InstalledOptions" and "AutoConfigure".
#pragma once

#include <string>

#include "sheet/sheet_context.h"

namespace kvui {

// Null when the caller may not change the printer's data. To be closed by ClosePrinter.
HANDLE OpenPrinterToAdminister(const SheetContext& context);
// Whether the printer can be opened with these access rights.
bool CanOpenPrinter(const SheetContext& context, DWORD access);
// PRINTER_ATTRIBUTE_... bits; 0 when the printer cannot be asked.
DWORD PrinterAttributes(const SheetContext& context);
bool PrinterPortAndAttributes(const SheetContext& context, std::string& port, DWORD& attributes);
// False when writing the value "WriteTest" is refused, or it cannot be read back.
bool PrinterDataIsWritable(const SheetContext& context);
// A value of the opened printer, by name; the number of bytes read, 0 on failure.
DWORD ReadPrinterData(const SheetContext& context, const char* name, void* buffer, DWORD size);

// The whole value, whatever its size. False when there may be one that cannot be read; a value that
// is not there is empty.
bool ReadWholePrinterData(const SheetContext& context, const char* name, std::string& bytes);
// False when the printer does not let the caller write it. No bytes are an empty value.
bool WritePrinterData(const SheetContext& context, const char* name, DWORD type, const void* bytes,
                      DWORD size);

// Sheet start of a user who is no administrator: installed options and auto configuration come from
// the printer's data. Values of another size than 4 bytes are ignored.
void ReadPrinterLevelOptions(SheetContext& context);
// Sheet end of an administrator: publishes them.
void WritePrinterLevelOptions(SheetContext& context);

// A printer value that is a number: 0 when absent.
DWORD PrinterNumber(PrinterBlock* printer, const char* name);

}  // namespace kvui
