// Puts a value into a printer's data, as an administrator does.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>
#include <winspool.h>

#include <string>

namespace kvtest {

inline void PutPrinterData(const char* printer, const char* name, DWORD type, std::string bytes) {
    PRINTER_DEFAULTSA access{nullptr, nullptr, PRINTER_ALL_ACCESS};
    HANDLE handle = nullptr;
    ASSERT_TRUE(OpenPrinterA(const_cast<LPSTR>(printer), &handle, &access));
    EXPECT_EQ(SetPrinterDataA(handle, const_cast<LPSTR>(name), type,
                              reinterpret_cast<BYTE*>(bytes.data()),
                              static_cast<DWORD>(bytes.size())),
              0u);
    ClosePrinter(handle);
}
inline void PutPrinterData(const char* printer, const char* name, DWORD number) {
    PutPrinterData(printer, name, REG_DWORD, {reinterpret_cast<char*>(&number), sizeof number});
}

}  // namespace kvtest
