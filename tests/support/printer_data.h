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

// Puts the printer at another port.
inline DWORD PutPrinterPort(const char* printer, const std::string& port, DWORD attributes) {
    PRINTER_DEFAULTSA access{nullptr, nullptr, PRINTER_ALL_ACCESS};
    HANDLE handle = nullptr;
    if (!OpenPrinterA(const_cast<LPSTR>(printer), &handle, &access)) return GetLastError();
    std::uint64_t buffer[512];
    BYTE* const bytes = reinterpret_cast<BYTE*>(buffer);
    DWORD needed = 0;
    BOOL done = GetPrinterA(handle, 2, bytes, sizeof buffer, &needed);
    if (done) {
        auto& info = *reinterpret_cast<PRINTER_INFO_2A*>(bytes);
        info.pPortName = const_cast<LPSTR>(port.c_str());
        info.Attributes = attributes;
        done = SetPrinterA(handle, 2, bytes, 0);
    }
    const DWORD error = done ? DWORD{ERROR_SUCCESS} : GetLastError();
    ClosePrinter(handle);
    return error;
}

}  // namespace kvtest
