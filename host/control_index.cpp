// Look-ups in the control index, and reading fields of a record through it.
#include <host/control_index.h>

#include <cstring>

#include <wingdi.h>

namespace kvhost {
namespace {
constexpr DWORD kPublicLocation = 0x8000;
}

const Field* FindField(std::string_view name) {
    for (unsigned i = 0; i < kFieldCount; ++i) {
        if (name == kFields[i].name) return &kFields[i];
    }
    return nullptr;
}

const Control* FindControl(std::string_view name) {
    for (unsigned i = 0; i < kControlCount; ++i) {
        if (name == kControls[i].name) return &kControls[i];
    }
    return nullptr;
}

LONG ReadRecordField(const BYTE* record, const Field& field) {
    if (!field.byName) {
        DWORD mask = 0;
        std::memcpy(&mask, record + (field.location & ~kPublicLocation), sizeof mask);
        return static_cast<LONG>(mask);
    }
    if (field.location & kPublicLocation) {
        SHORT value = 0;
        std::memcpy(&value, record + (field.location & ~kPublicLocation), sizeof value);
        return value;
    }
    LONG value = 0;
    std::memcpy(&value, record + sizeof(DEVMODEA) + field.location, sizeof value);
    return value;
}

DWORD ReadControlValue(const BYTE* record, const Control& control) {
    const Field* field = FindField(control.setting);
    if (field == nullptr) return 0;
    const DWORD value = static_cast<DWORD>(ReadRecordField(record, *field));
    return control.maskMode != 0 ? value & control.mask : value;
}

}  // namespace kvhost
