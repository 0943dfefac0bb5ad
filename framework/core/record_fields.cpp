// The table behind record_fields.h.
#include "record_fields.h"

#include <framework/include/record_layout.h>
#include <platform/shell/paths.h>

#include <cstring>

namespace kvcore {
namespace {

// Name, offset in the record, width in bytes. In a default record the private part follows the public.
#define KV_PUBLIC_ROW(field, offset, width) {#field, offset, width},
#define KV_PRIVATE_ROW(field, offset, width) {#field, kPublicSize + (offset), width},
constexpr RecordField kFields[] = {
    KV_PUBLIC_FIELDS(KV_PUBLIC_ROW)  //
    KV_PRIVATE_FIELDS(KV_PRIVATE_ROW)};
#undef KV_PUBLIC_ROW
#undef KV_PRIVATE_ROW

}  // namespace

const RecordField* FindRecordField(std::string_view name) {
    for (const RecordField& field : kFields) {
        if (kv::EqualsIgnoringCase(field.name, name)) return &field;
    }
    return nullptr;
}

void WriteRecordField(BYTE* record, const RecordField& field, DWORD value) {
    for (DWORD byte = 0; byte < field.width; ++byte) {
        record[field.offset + byte] = static_cast<BYTE>(value >> (8 * byte));
    }
}

DWORD ReadRecordField(const BYTE* record, const RecordField& field) {
    DWORD value = 0;
    for (DWORD byte = 0; byte < field.width; ++byte) {
        value |= static_cast<DWORD>(record[field.offset + byte]) << (8 * byte);
    }
    return value;
}

}  // namespace kvcore
