// The named setting fields of the device settings record: which name lies where. The catalogue, the
// rules, saved settings and defaults name a setting as text and come through here to reach it.
#pragma once
#include <windows.h>

#include <span>

namespace kvui {

enum SettingFieldType : DWORD {
    kFieldPrivate = 0,         // 32 bits of the private part
    kFieldPublic = 5,          // signed 16 bits of the public part
    kFieldPublicMask = 0x303,  // dmFields: listed, never read or written by name
};

// A location with this bit is the offset in the public part, else in the private part.
constexpr DWORD kPublicLocation = 0x8000;

struct SettingField {
    DWORD location;
    const char* name;
    SettingFieldType type;
};

extern const std::span<const SettingField> SettingFieldTable;

enum class FieldWrite { kUnchanged, kChanged };

// First row of that name; null when there is none, which is a normal result.
const SettingField* FindSettingField(const char* name);
const SettingField* FindSettingFieldAnyCase(const char* name);

// FALSE (value untouched) for an unknown name and for dmFields. Public fields come sign-extended.
BOOL ReadSetting(const DEVMODEA* record, const char* name, DWORD* value);
BOOL ReadField(const DEVMODEA* record, const SettingField& field, DWORD* value);

// maskMode 0 replaces the whole field; 1 and 2 replace the bits of the mask and add newValue. The
// comparison that decides "unchanged" is of the whole stored word with newValue in every mode.
// oldValue (may be null) is filled only on kChanged.
FieldWrite WriteField(DEVMODEA* record, DWORD locationCode, DWORD newValue, DWORD maskMode,
                      DWORD mask, DWORD* oldValue);
FieldWrite WriteSettingByName(DEVMODEA* record, const char* name, DWORD newValue,
                              DWORD* oldValue = nullptr);

}  // namespace kvui
