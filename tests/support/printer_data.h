// Puts a value into a printer's data, as an administrator does.
#pragma once

#include <windows.h>
#include <winspool.h>

#include <string>

namespace kvtest {

// The error of the attempt.
inline DWORD PutPrinterData(const char* printer, const char* name, DWORD type,
                            const std::string& bytes) {
    PRINTER_DEFAULTSA access{nullptr, nullptr, PRINTER_ALL_ACCESS};
    HANDLE handle = nullptr;
    if (!OpenPrinterA(const_cast<LPSTR>(printer), &handle, &access)) return GetLastError();
    std::string copy = bytes;
    const DWORD error =
        SetPrinterDataA(handle, const_cast<LPSTR>(name), type, reinterpret_cast<BYTE*>(copy.data()),
                        static_cast<DWORD>(copy.size()));
    ClosePrinter(handle);
    return error;
}
inline DWORD PutPrinterData(const char* printer, const char* name, DWORD number) {
    return PutPrinterData(printer, name, REG_DWORD,
                          {reinterpret_cast<const char*>(&number), sizeof number});
}

}  // namespace kvtest
