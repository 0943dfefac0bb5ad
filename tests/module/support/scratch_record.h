// A whole settings record for tests that read and write fields.
#pragma once

#include <windows.h>

#include <cstring>

#include "settings/setting_field.h"
#include "sheet/private_devmode.h"

namespace kvui {

class ScratchRecord {
 public:
    explicit ScratchRecord(WORD publicSize = sizeof(DEVMODEA)) {
        devmode()->dmSize = publicSize;
        devmode()->dmDriverExtra = static_cast<WORD>(kPrivateSize);
    }

    DEVMODEA* devmode() { return reinterpret_cast<DEVMODEA*>(bytes_); }
    PrivateDevmode* settings() { return PrivatePart(devmode()); }
    BYTE* bytes() { return bytes_; }

    // A value that no field of the tests holds stands for "no such field".
    DWORD Value(const char* name) const {
        DWORD value = 0;
        const auto* record = reinterpret_cast<const DEVMODEA*>(bytes_);
        return ReadSetting(record, name, &value) ? value : 0xDEADBEEF;
    }
    bool operator==(const ScratchRecord& other) const {
        return std::memcmp(bytes_, other.bytes_, kRecordSize) == 0;
    }

 private:
    alignas(8) BYTE bytes_[kRecordSize] = {};
};

}  // namespace kvui
