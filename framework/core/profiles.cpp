// Profiles: tables of the printer description whose rows are found by the values of some settings.
#include <kvcore.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "description.h"
#include "record_fields.h"

namespace kvcore {
namespace {

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// Takes the text up to the next comma off the list; false at the list's end.
bool NextField(std::string_view& list, std::string_view& field) {
    if (list.data() == nullptr) return false;
    const std::size_t comma = list.find(',');
    field = Trim(list.substr(0, comma));
    list = comma == std::string_view::npos ? std::string_view() : list.substr(comma + 1);
    return true;
}

bool KeyFits(std::string_view rowKey, std::string_view key) {
    std::string_view wanted;
    std::string_view given;
    while (NextField(rowKey, wanted)) {
        if (!NextField(key, given) || (wanted != "*" && wanted != given)) return false;
    }
    return !NextField(key, given);
}

// The private part begins where the record says that its public part ends.
std::string FieldText(const BYTE* record, RecordField field) {
    if (field.offset >= kPublicSize) {
        DEVMODEA head;
        std::memcpy(&head, record, sizeof head);
        field.offset += head.dmSize - kPublicSize;
        if (field.offset + field.width > kRecordSize) return {};
    }
    const DWORD value = ReadRecordField(record, field);
    return std::to_string(field.width == sizeof(SHORT) ? static_cast<SHORT>(value)
                                                       : static_cast<LONG>(value));
}

// A key or value that was cut would find or say something else.
int CopyWhole(const std::string& text, LPSTR buffer, DWORD size) {
    if (!buffer || text.size() >= size) return 0;
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    return 1;
}

}  // namespace
}  // namespace kvcore

extern "C" {

ProfileHandle QDMFindProfileSection(PrinterBlock* printer, DWORD section, LPCSTR name) {
    static thread_local std::shared_ptr<const kvcore::Description> held;
    if (!printer || section != kPrinterValueSection || !name) return nullptr;
    held = kvcore::DescriptionOf(*printer);
    return reinterpret_cast<ProfileHandle>(held->FindOtherSection(name));
}

int QDMCreateProfileKey(PrinterBlock* printer, DWORD section, LPCSTR fields, LPCVOID record,
                        LPSTR key, DWORD size) {
    if (!printer || section != kPrinterValueSection || !fields || !record) return 0;
    std::string text;
    std::string_view list = fields;
    std::string_view name;
    while (kvcore::NextField(list, name)) {
        const kvcore::RecordField* field = kvcore::FindRecordField(name);
        if (!field) return 0;
        if (!text.empty()) text += ',';
        text += kvcore::FieldText(static_cast<const BYTE*>(record), *field);
    }
    return kvcore::CopyWhole(text, key, size);
}

int QDMProfileSearch(ProfileHandle profile, DWORD section, LPCSTR key, LPSTR value, DWORD size) {
    if (!profile || section != kPrinterValueSection || !key) return 0;
    const auto& rows = reinterpret_cast<const kvcore::DescribedSection*>(profile)->rows;
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const auto& candidate) {
        return kvcore::KeyFits(candidate.first, key);
    });
    return row != rows.end() ? kvcore::CopyWhole(row->second, value, size) : 0;
}

}  // extern "C"
