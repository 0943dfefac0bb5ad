// The checks of a record. Its head is the same for all printers; bounds come from the catalogue and
// the rules file of the driver's folder.
#include <host/index/control_index.h>
#include <host/record/record_check.h>
#include <winbase.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace kvhost {
namespace {

// field, offset, lowest, highest
const ValueBounds kFixedBounds[] = {
    {"dmOrientation", offsetof(DEVMODEA, dmOrientation), 1, 2, {}},
    {"dmPaperSize", offsetof(DEVMODEA, dmPaperSize), 1, 32767, {}},
    {"dmColor", offsetof(DEVMODEA, dmColor), 1, 2, {}},
    {"dmDuplex", offsetof(DEVMODEA, dmDuplex), 1, 3, {}},
};

LONG WordAt(const Record& record, size_t offset) {
    SHORT value = 0;
    std::memcpy(&value, record.data() + offset, sizeof value);
    return value;
}

std::string RulesFileOf(const PrinterBlock& printer) {
    const std::string module = printer.driverPath;
    const size_t separator = module.find_last_of("\\/");
    return separator == std::string::npos ? std::string()
                                          : module.substr(0, separator + 1) + "KVUIMOD.ini";
}

// "characters,minimum,maximum" of a control; a line of another form, or with a maximum of 0, counts
// for nothing.
void ReadEditBounds(const std::string& rules, const char* control, ValueBounds& bounds) {
    char line[256] = "";
    GetPrivateProfileStringA("EditAttribute", control, "", line, sizeof line, rules.c_str());
    const std::string_view text = line;
    const size_t first = text.find(',');
    const size_t second = first == text.npos ? text.npos : text.find(',', first + 1);
    if (second == text.npos || text.find(',', second + 1) != text.npos) return;
    const long maximum = std::strtol(line + second + 1, nullptr, 10);
    if (maximum == 0) return;
    bounds.low = static_cast<LONG>(std::strtol(line + first + 1, nullptr, 10));
    bounds.high = std::max(bounds.low, static_cast<LONG>(maximum));
}

// What rules set a control to: the number behind the list of values in each of its targets,
// "(control,negate,all,(values),NUMBER".
void ReadForcedValues(const std::string& rules, const char* control, ValueBounds& bounds) {
    constexpr DWORD kSectionSize = 32767;
    std::string section(kSectionSize, '\0');
    section.resize(GetPrivateProfileSectionA("ConflictConditions", section.data(), kSectionSize,
                                             rules.c_str()));
    const std::string target = std::string("(") + control + ",";
    for (size_t at = section.find(target); at != section.npos; at = section.find(target, at + 1)) {
        const size_t list = section.find('(', at + 1);
        const size_t end = list == section.npos ? section.npos : section.find("),", list);
        if (end == section.npos) return;
        char* stop = nullptr;
        const long forced = std::strtol(section.c_str() + end + 2, &stop, 10);
        if (stop != section.c_str() + end + 2) bounds.beyond.push_back(static_cast<LONG>(forced));
    }
}

std::string Describe(const ValueBounds& bounds, LONG value) {
    return std::string(bounds.field) + " is " + std::to_string(value) + ", expected " +
           std::to_string(bounds.low) + " to " + std::to_string(bounds.high);
}

}  // namespace

bool ValueBounds::Admits(LONG value) const {
    return (value >= low && value <= high) ||
           std::find(beyond.begin(), beyond.end(), value) != beyond.end();
}

std::string CheckRecord(const BYTE* bytes, size_t size) {
    if (size != kRecordBytes) {
        return "has " + std::to_string(size) + " bytes, expected " + std::to_string(kRecordBytes);
    }
    DEVMODEA settings;
    std::memcpy(&settings, bytes, sizeof settings);
    if (settings.dmSize != sizeof(DEVMODEA)) {
        return "dmSize is " + std::to_string(settings.dmSize) + ", expected " +
               std::to_string(sizeof(DEVMODEA));
    }
    if (settings.dmDriverExtra != kRecordBytes - sizeof(DEVMODEA)) {
        return "dmDriverExtra is " + std::to_string(settings.dmDriverExtra) + ", expected " +
               std::to_string(kRecordBytes - sizeof(DEVMODEA));
    }
    return {};
}

std::vector<ValueBounds> BoundsInForce(const PrinterBlock& printer) {
    std::vector<ValueBounds> all(std::begin(kFixedBounds), std::end(kFixedBounds));
    const Control* copies = FindControl("EditCopies");
    if (copies == nullptr) return all;
    ValueBounds bounds{
        copies->setting, offsetof(DEVMODEA, dmCopies), copies->lowest, copies->highest, {}};
    const std::string rules = RulesFileOf(printer);
    ReadEditBounds(rules, copies->name, bounds);
    ReadForcedValues(rules, copies->name, bounds);
    all.push_back(std::move(bounds));
    return all;
}

std::vector<std::string> ValuesOutOfBounds(const Record& record,
                                           const std::vector<ValueBounds>& bounds) {
    std::vector<std::string> lines;
    for (const ValueBounds& row : bounds) {
        const LONG value = WordAt(record, row.offset);
        if (!row.Admits(value)) lines.push_back(Describe(row, value));
    }
    return lines;
}

std::vector<std::string> PutBackOutOfBounds(PrinterBlock& printer, Record& record) {
    std::vector<std::string> lines;
    Record defaults{};
    std::string error;
    for (const ValueBounds& row : BoundsInForce(printer)) {
        const LONG value = WordAt(record, row.offset);
        if (row.Admits(value)) continue;
        if (lines.empty() && !RecordStore::ReadDefaults(printer, defaults, error))
            defaults = record;
        const SHORT instead =
            static_cast<SHORT>(std::clamp(WordAt(defaults, row.offset), row.low, row.high));
        std::memcpy(record.data() + row.offset, &instead, sizeof instead);
        lines.push_back(Describe(row, value) + "; " + std::to_string(instead) + " is used instead");
    }
    return lines;
}

}  // namespace kvhost
