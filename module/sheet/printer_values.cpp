// Spooler access of the pages. A printer handle is opened per question and closed at once.
#include "sheet/printer_values.h"

#include <kvcore.h>
#include <winspool.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

namespace kvui {
namespace {

constexpr char kWriteTest[] = "WriteTest";
constexpr char kInstalledOptions[] = "InstalledOptions";
constexpr char kAutoConfigure[] = "AutoConfigure";

// The spooler takes names as text that it might change, and only reads them.
LPSTR Name(const char* name) {
    return const_cast<LPSTR>(name);
}

// Where printer data cannot be changed by those who may administer the printer and print on it, it
// may be by those who may do all else with it.
constexpr DWORD kAdminister = PRINTER_ACCESS_ADMINISTER | PRINTER_ACCESS_USE;
constexpr DWORD kAllElse = 0xF0003;

class OpenPrinterHandle {
 public:
    OpenPrinterHandle(const SheetContext& context, DWORD access) {
        PRINTER_DEFAULTSA defaults{nullptr, nullptr, access};
        if (!OpenPrinterA(context.printer->printerName, &handle_, &defaults)) handle_ = nullptr;
    }
    explicit OpenPrinterHandle(HANDLE handle) : handle_(handle) {}
    ~OpenPrinterHandle() {
        if (handle_ != nullptr) ClosePrinter(handle_);
    }
    OpenPrinterHandle(const OpenPrinterHandle&) = delete;
    OpenPrinterHandle& operator=(const OpenPrinterHandle&) = delete;
    explicit operator bool() const { return handle_ != nullptr; }
    HANDLE get() const { return handle_; }

 private:
    HANDLE handle_ = nullptr;
};

bool ReadNumber(HANDLE printer, const char* name, DWORD* value) {
    DWORD type = 0, needed = 0, number = 0;
    const DWORD error = GetPrinterDataA(printer, Name(name), &type,
                                        reinterpret_cast<BYTE*>(&number), sizeof number, &needed);
    if (error != ERROR_SUCCESS || needed != sizeof number) return false;
    *value = number;
    return true;
}

bool WriteNumber(HANDLE printer, const char* name, DWORD value) {
    return SetPrinterDataA(printer, Name(name), REG_DWORD, reinterpret_cast<BYTE*>(&value),
                           sizeof value) == ERROR_SUCCESS;
}

}  // namespace

HANDLE OpenPrinterToAdminister(const SheetContext& context) {
    for (const DWORD access : {kAdminister, kAllElse}) {
        PRINTER_DEFAULTSA defaults{nullptr, nullptr, access};
        HANDLE printer = nullptr;
        if (OpenPrinterA(context.printer->printerName, &printer, &defaults)) return printer;
    }
    return nullptr;
}

bool CanOpenPrinter(const SheetContext& context, DWORD access) {
    return static_cast<bool>(OpenPrinterHandle(context, access));
}

bool PrinterPortAndAttributes(const SheetContext& context, std::string& port, DWORD& attributes) {
    const OpenPrinterHandle printer(context, PRINTER_ACCESS_USE);
    if (!printer) return false;
    DWORD needed = 0;
    GetPrinterA(printer.get(), 2, nullptr, 0, &needed);
    if (needed < sizeof(PRINTER_INFO_2A)) return false;
    std::vector<std::uint64_t> buffer(needed / sizeof(std::uint64_t) + 1);
    if (!GetPrinterA(printer.get(), 2, reinterpret_cast<BYTE*>(buffer.data()), needed, &needed)) {
        return false;
    }
    const auto& info = *reinterpret_cast<const PRINTER_INFO_2A*>(buffer.data());
    port = info.pPortName != nullptr ? info.pPortName : "";
    attributes = info.Attributes;
    return true;
}

DWORD PrinterAttributes(const SheetContext& context) {
    std::string port;
    DWORD attributes = 0;
    return PrinterPortAndAttributes(context, port, attributes) ? attributes : 0;
}

bool PrinterDataIsWritable(const SheetContext& context) {
    OpenPrinterHandle printer(context, PRINTER_ACCESS_ADMINISTER | PRINTER_ACCESS_USE);
    if (!printer) return GetLastError() != ERROR_ACCESS_DENIED;
    DWORD value = 1;
    const DWORD error = SetPrinterDataA(printer.get(), Name(kWriteTest), REG_DWORD,
                                        reinterpret_cast<BYTE*>(&value), sizeof value);
    if (error != ERROR_SUCCESS) return error != ERROR_ACCESS_DENIED;
    return ReadNumber(printer.get(), kWriteTest, &value);
}

DWORD ReadPrinterData(const SheetContext& context, const char* name, void* buffer, DWORD size) {
    const OpenPrinterHandle printer(context, PRINTER_ACCESS_USE);
    if (!printer) return 0;
    DWORD type = 0, needed = 0;
    const DWORD error = GetPrinterDataA(printer.get(), Name(name), &type,
                                        static_cast<BYTE*>(buffer), size, &needed);
    return error == ERROR_SUCCESS && needed <= size ? needed : 0;
}

bool ReadWholePrinterData(const SheetContext& context, const char* name, std::string& bytes) {
    bytes.clear();
    const OpenPrinterHandle printer(context, PRINTER_ACCESS_USE);
    if (!printer) return false;
    DWORD type = 0, needed = 0;
    DWORD error = GetPrinterDataA(printer.get(), Name(name), &type, nullptr, 0, &needed);
    if (error == ERROR_FILE_NOT_FOUND) return true;
    if (error == ERROR_MORE_DATA) {
        bytes.resize(needed);
        error = GetPrinterDataA(printer.get(), Name(name), &type,
                                reinterpret_cast<BYTE*>(bytes.data()), needed, &needed);
    }
    bytes.resize(error == ERROR_SUCCESS ? std::min<size_t>(needed, bytes.size()) : 0);
    return error == ERROR_SUCCESS;
}

bool WritePrinterData(const SheetContext& context, const char* name, DWORD type, const void* bytes,
                      DWORD size) {
    const OpenPrinterHandle printer(OpenPrinterToAdminister(context));
    return printer &&
           SetPrinterDataA(printer.get(), Name(name), type,
                           static_cast<BYTE*>(const_cast<void*>(bytes)), size) == ERROR_SUCCESS;
}

void ReadPrinterLevelOptions(SheetContext& context) {
    const OpenPrinterHandle printer(context, PRINTER_ACCESS_USE);
    if (!printer) return;
    PrivateDevmode& settings = *context.privateSettings;
    DWORD value = 0;
    if (ReadNumber(printer.get(), kInstalledOptions, &value)) settings.mdmInstalledOptions = value;
    if (ReadNumber(printer.get(), kAutoConfigure, &value)) {
        settings.mdmOtherSettings = value != 0 ? settings.mdmOtherSettings | kOtherAutoConfig
                                               : settings.mdmOtherSettings & ~kOtherAutoConfig;
    }
}

void WritePrinterLevelOptions(SheetContext& context) {
    const OpenPrinterHandle printer(context, PRINTER_ACCESS_ADMINISTER | PRINTER_ACCESS_USE);
    if (!printer) return;
    const PrivateDevmode& settings = *context.privateSettings;
    WriteNumber(printer.get(), kInstalledOptions, settings.mdmInstalledOptions);
    WriteNumber(printer.get(), kAutoConfigure,
                (settings.mdmOtherSettings & kOtherAutoConfig) != 0 ? 1 : 0);
}

DWORD PrinterNumber(PrinterBlock* printer, const char* name) {
    DWORD number = 0;
    const int found = QDMGetPrinterKeyValue(printer, kPrinterValueSection, name,
                                            kPrinterValueNumber, &number, sizeof number);
    return found != 0 ? number : 0;
}

}  // namespace kvui
