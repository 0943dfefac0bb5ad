// Printer values: what the description says of the printer, overridden by printer data of the same
// name. The module asks for them through QDMGetPrinterKeyValue.
#include <kvcore.h>
#include <winreg.h>

#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>

#include "description.h"
#include "printer_data.h"

namespace kvcore {
namespace {

// Binary data are 32-bit numbers one after the other; nothing when they are not whole.
std::optional<std::string> NumberList(const std::string& bytes) {
    if (bytes.empty() || bytes.size() % sizeof(DWORD) != 0) return std::nullopt;
    std::string list;
    for (std::size_t at = 0; at < bytes.size(); at += sizeof(DWORD)) {
        DWORD number = 0;
        std::memcpy(&number, bytes.data() + at, sizeof number);
        if (at > 0) list += ',';
        list += std::to_string(number);
    }
    return list;
}

// The value as text: numbers of printer data in decimal, texts up to their zero.
std::optional<std::string> FindValueText(const PrinterBlock& printer, const char* name) {
    if (const auto stored = ReadPrinterData(printer, name)) {
        if (stored->type == REG_DWORD && stored->bytes.size() == sizeof(DWORD)) {
            DWORD number = 0;
            std::memcpy(&number, stored->bytes.data(), sizeof number);
            return std::to_string(number);
        }
        if (stored->type == REG_SZ) return std::string(stored->bytes.c_str());
        if (stored->type == REG_BINARY) return NumberList(stored->bytes);
    }
    const std::string* described = DescriptionOf(printer)->FindPrinterValue(name);
    return described ? std::optional(*described) : std::nullopt;
}

// Fills the buffer with 32-bit numbers from a comma list; the list must fill it exactly.
bool CopyNumbers(const std::string& text, BYTE* buffer, DWORD size) {
    if (size == 0 || size % sizeof(DWORD) != 0) return false;
    const char* rest = text.c_str();
    for (DWORD offset = 0; offset < size; offset += sizeof(DWORD)) {
        char* end = nullptr;
        const long long wide = std::strtoll(rest, &end, 0);
        if (end == rest) return false;
        while (*end == ' ' || *end == '\t') ++end;
        const bool last = offset + sizeof(DWORD) == size;
        if (*end != (last ? '\0' : ',')) return false;
        const DWORD number = static_cast<DWORD>(wide);
        std::memcpy(buffer + offset, &number, sizeof number);
        rest = end + 1;
    }
    return true;
}

// Half a path or name is worse than none, so a text that does not fit is refused.
bool CopyText(const std::string& text, char* buffer, DWORD size) {
    if (size == 0) return false;
    buffer[0] = '\0';
    if (text.size() >= size) return false;
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    return true;
}

}  // namespace
}  // namespace kvcore

extern "C" int QDMGetPrinterKeyValue(PrinterBlock* printer, DWORD section, LPCSTR name, DWORD type,
                                     LPVOID buffer, DWORD size) {
    if (!printer || section != kPrinterValueSection || !name || !buffer) return 0;
    const std::optional<std::string> text = kvcore::FindValueText(*printer, name);
    if (!text) return 0;
    switch (type) {
        case kPrinterValueNumber:
            return kvcore::CopyNumbers(*text, static_cast<BYTE*>(buffer), size);
        case kPrinterValuePath:
        case kPrinterValueText:
            return kvcore::CopyText(*text, static_cast<char*>(buffer), size);
        default:
            return 0;
    }
}
