// The stored places of the settings record's fields by name, so that a printer description can give
// defaults as text. A stored format, shared with the rendering side; used by the defaults only.
#pragma once

#include <windef.h>

#include <string_view>

namespace kvcore {

constexpr DWORD kRecordSize = 1296;
constexpr DWORD kPublicSize = 156;
constexpr DWORD kPrivateSize = kRecordSize - kPublicSize;

struct RecordField {
    std::string_view name;
    DWORD offset;  // from the record's start
    DWORD width;   // bytes: 1, 2 or 4
};

// Names compare without regard to case; null when there is no such field.
const RecordField* FindRecordField(std::string_view name);

// Writes the low `width` bytes of the value; the record has kRecordSize bytes.
void WriteRecordField(BYTE* record, const RecordField& field, DWORD value);
DWORD ReadRecordField(const BYTE* record, const RecordField& field);

}  // namespace kvcore
