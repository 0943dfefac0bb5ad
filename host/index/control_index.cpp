// Look-ups in the control index, and reading fields of a record through it.
#include <host/index/control_index.h>

#include <cstdio>
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

const Control* FindControl(DWORD id) {
    for (unsigned i = 0; i < kControlCount; ++i) {
        if (kControls[i].id == id) return &kControls[i];
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

bool HoldsValue(const BYTE* record, const Control& control, DWORD value) {
    DWORD others = 0;
    for (const Control* other = kControls; other != kControls + kControlCount; ++other) {
        if (control.maskMode == 0 && other->maskMode != 0 &&
            std::strcmp(other->setting, control.setting) == 0) {
            others |= other->mask;
        }
    }
    return ((ReadControlValue(record, control) ^ value) & ~others) == 0;
}

std::optional<HeldShift> HeldShiftOf(const BYTE* record, const Control& control) {
    constexpr DWORD kMagnitude = 0x3FFF, kNegative = 0x4000, kMillimetres = 0x8000;
    if (std::strncmp(control.setting, "mdmOffset", 9) != 0) return std::nullopt;
    const DWORD word = ReadControlValue(record, control);
    const bool metric = (word & kMillimetres) != 0;
    char number[32];
    std::snprintf(number, sizeof number, metric ? "%s%lu.%lu" : "%s%lu.%02lu",
                  word & kNegative ? "-" : "",
                  static_cast<unsigned long>((word & kMagnitude) / (metric ? 10 : 100)),
                  static_cast<unsigned long>((word & kMagnitude) % (metric ? 10 : 100)));
    return HeldShift{number, metric ? "tenths of a millimetre" : "hundredths of an inch"};
}

}  // namespace kvhost
