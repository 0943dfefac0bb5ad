// QDMGetStdDefaults: a whole settings record of the printer's defaults, from the description, the
// user's region and what the printer data say of the installed hardware.
#include <kvcore.h>
#include <winbase.h>

#include <algorithm>
#include <cstring>

#include "description.h"
#include "printer_data.h"
#include "record_fields.h"

namespace kvcore {
namespace {

constexpr WORD kSpecVersion = 0x0401;
constexpr WORD kDriverVersion = 0x0100;
constexpr LONG kPaperLetter = 1;
constexpr LONG kPaperA4 = 9;
constexpr DWORD kUnitMetric = 2;
constexpr DWORD kOtherAutoConfigure = 0x20;
static_assert(sizeof(DEVMODEA) == kPublicSize);

// Letter where people measure in inches or live in North America, else A4; the printer may decide.
LONG RegionalPaper(PrinterBlock* printer) {
    DWORD unit = 0;
    if (QDMGetPrinterKeyValue(printer, kPrinterValueSection, "CustomPaperUnit", kPrinterValueNumber,
                              &unit, sizeof unit) &&
        unit != 0) {
        return unit == kUnitMetric ? kPaperA4 : kPaperLetter;
    }
    const bool america = GetProfileIntA("intl", "iCountry", 0) == 2;
    const bool inches = GetProfileIntA("intl", "iMeasure", 1) != 0;
    return america || inches ? kPaperLetter : kPaperA4;
}

void SetField(BYTE* record, const char* name, DWORD value) {
    if (const RecordField* field = FindRecordField(name)) WriteRecordField(record, *field, value);
}
DWORD GetField(const BYTE* record, const char* name) {
    const RecordField* field = FindRecordField(name);
    return field ? ReadRecordField(record, *field) : 0;
}

void FillHeader(DEVMODEA& record, const PrinterBlock& printer) {
    const std::size_t nameLength = std::min<std::size_t>(
        strnlen(printer.printerName, sizeof printer.printerName), sizeof record.dmDeviceName - 1);
    std::memcpy(record.dmDeviceName, printer.printerName, nameLength);
    record.dmSpecVersion = kSpecVersion;
    record.dmDriverVersion = kDriverVersion;
    record.dmSize = sizeof(DEVMODEA);
    record.dmDriverExtra = static_cast<WORD>(kPrivateSize);
}

// What the printer has is a fact that an administrator stored, not a preference.
void FillInstalledHardware(BYTE* record, const PrinterBlock& printer) {
    if (const auto options = ReadPrinterDataNumber(printer, "InstalledOptions")) {
        SetField(record, "mdmInstalledOptions", *options);
    }
    if (const auto automatic = ReadPrinterDataNumber(printer, "AutoConfigure")) {
        const DWORD other = GetField(record, "mdmOtherSettings") & ~kOtherAutoConfigure;
        SetField(record, "mdmOtherSettings", other | (*automatic ? kOtherAutoConfigure : 0));
    }
}

}  // namespace
}  // namespace kvcore

extern "C" int QDMGetStdDefaults(PrinterBlock* printer, LPVOID record, LPCVOID /*current*/) {
    using namespace kvcore;
    if (!printer || !record) return 0;
    const auto description = DescriptionOf(*printer);
    // Without defaults every list of the pages would fall back to its first entry, silently.
    if (description->defaults.empty()) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return 0;
    }
    // Built aside: the caller may pass its current record as the buffer, and the work needs it
    // whole.
    alignas(DEVMODEA) BYTE bytes[kRecordSize] = {};
    DEVMODEA& head = *reinterpret_cast<DEVMODEA*>(bytes);
    FillHeader(head, *printer);
    head.dmPaperSize = static_cast<SHORT>(RegionalPaper(printer));
    for (const auto& [name, value] : description->defaults) SetField(bytes, name.c_str(), value);
    FillInstalledHardware(bytes, *printer);
    std::memcpy(record, bytes, sizeof bytes);
    return 1;
}
