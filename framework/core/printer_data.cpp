// See printer_data.h.
#include "printer_data.h"

#include <winreg.h>
#include <winspool.h>

#include <cstring>

namespace kvcore {

std::optional<PrinterDataValue> ReadPrinterData(const PrinterBlock& printer, const char* name) {
    std::string printerName(printer.printerName,
                            strnlen(printer.printerName, sizeof printer.printerName));
    std::string valueName = name;
    HANDLE handle = nullptr;
    if (!OpenPrinterA(printerName.data(), &handle, nullptr)) return std::nullopt;
    PrinterDataValue value;
    DWORD needed = 0;
    DWORD error = GetPrinterDataA(handle, valueName.data(), &value.type, nullptr, 0, &needed);
    // Somebody else may store a longer value between the two calls.
    while (error == ERROR_MORE_DATA) {
        value.bytes.resize(needed);
        error = GetPrinterDataA(handle, valueName.data(), &value.type,
                                reinterpret_cast<BYTE*>(value.bytes.data()), needed, &needed);
    }
    ClosePrinter(handle);
    if (error != ERROR_SUCCESS) return std::nullopt;
    value.bytes.resize(needed);
    return value;
}

std::optional<DWORD> ReadPrinterDataNumber(const PrinterBlock& printer, const char* name) {
    const std::optional<PrinterDataValue> value = ReadPrinterData(printer, name);
    if (!value || value->type != REG_DWORD || value->bytes.size() != sizeof(DWORD)) {
        return std::nullopt;
    }
    DWORD number = 0;
    std::memcpy(&number, value->bytes.data(), sizeof number);
    return number;
}

}  // namespace kvcore
