// A whole settings record for tests that read and write fields.
#pragma once
#include <cstring>
#include <windows.h>

#include "settings/setting_field.h"
#include "sheet/private_devmode.h"

namespace kvui {

class ScratchRecord {
 public:
    explicit ScratchRecord(WORD publicSize = sizeof(DEVMODEA)) { devmode()->dmSize = publicSize; }

    DEVMODEA* devmode() { return reinterpret_cast<DEVMODEA*>(bytes_); }
    PrivateDevmode* settings() { return PrivatePart(devmode()); }
    BYTE* bytes() { return bytes_; }

    DWORD Value(const char* name) {
        DWORD value = 0xDEADBEEF;
        return ReadSetting(devmode(), name, &value) ? value : 0xDEADBEEF;
    }
    bool operator==(const ScratchRecord& other) const {
        return std::memcmp(bytes_, other.bytes_, kRecordSize) == 0;
    }

 private:
    alignas(8) BYTE bytes_[kRecordSize] = {};
};

}  // namespace kvui
