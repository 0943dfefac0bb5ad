// Finds the code record selected in a dialog's list box and the number that a control edits in it.
#include "rules/entry_values.h"

#include <cstddef>
#include <cstring>

namespace kvui {
namespace {

// Columns: setting field of the control, the record's number that it stands for.
constexpr struct {
    const char* field;
    std::size_t offset;
} kRecordNumbers[] = {
    {"iCode", offsetof(CodeRecord, code)},
    {"iUnit", offsetof(CodeRecord, unit)},
    {"iParam0", offsetof(CodeRecord, parameters) + 0 * sizeof(LONG)},
    {"iParam1", offsetof(CodeRecord, parameters) + 1 * sizeof(LONG)},
    {"iParam2", offsetof(CodeRecord, parameters) + 2 * sizeof(LONG)},
    {"iParam3", offsetof(CodeRecord, parameters) + 3 * sizeof(LONG)},
    {"iParam4", offsetof(CodeRecord, parameters) + 4 * sizeof(LONG)},
    {"iParam5", offsetof(CodeRecord, parameters) + 5 * sizeof(LONG)},
    {"iParam6", offsetof(CodeRecord, parameters) + 6 * sizeof(LONG)},
    {"iParam7", offsetof(CodeRecord, parameters) + 7 * sizeof(LONG)},
    {"iEdit", offsetof(CodeRecord, editFlag)},
};

// Position of the selected record in `entries`; -1 for none.
int SelectedEntry(HWND dialog, const ControlItem& item, const CodeRecord* entries) {
    if (item.listControlId == 0 || entries == nullptr) return -1;
    const int list = static_cast<int>(item.listControlId);
    const LRESULT selection = SendDlgItemMessageA(dialog, list, LB_GETCURSEL, 0, 0);
    if (selection < 0) return -1;
    const auto code = static_cast<LONG>(
        SendDlgItemMessageA(dialog, list, LB_GETITEMDATA, static_cast<WPARAM>(selection), 0));
    for (int i = 0; i < kMaxCodeRecords; ++i) {
        if (entries[i].code == 0 && entries[i].name[0] == '\0') return -1;
        if (entries[i].code == code) return i;
    }
    return -1;
}

const std::size_t* OffsetOfField(const char* field) {
    for (const auto& number : kRecordNumbers) {
        if (std::strcmp(number.field, field) == 0) return &number.offset;
    }
    return nullptr;
}

bool IsMasked(const ControlItem& item) {
    return item.maskMode != kMaskWholeField;
}

}  // namespace

LONG ReadEntryValue(HWND dialog, const ControlItem& item, const CodeRecord* entries) {
    const int selected = SelectedEntry(dialog, item, entries);
    const std::size_t* offset = OffsetOfField(item.settingField);
    if (selected < 0 || offset == nullptr) return 0;
    LONG value;
    std::memcpy(&value, reinterpret_cast<const BYTE*>(&entries[selected]) + *offset, sizeof value);
    return IsMasked(item) ? static_cast<LONG>(static_cast<DWORD>(value) & item.mask) : value;
}

void WriteEntryValue(HWND dialog, const ControlItem& item, CodeRecord* entries, LONG value) {
    const int selected = SelectedEntry(dialog, item, entries);
    const std::size_t* offset = OffsetOfField(item.settingField);
    if (selected < 0 || offset == nullptr) return;
    BYTE* at = reinterpret_cast<BYTE*>(&entries[selected]) + *offset;
    if (IsMasked(item)) {
        DWORD stored;
        std::memcpy(&stored, at, sizeof stored);
        value = static_cast<LONG>((stored & ~item.mask) | static_cast<DWORD>(value));
    }
    std::memcpy(at, &value, sizeof value);
}

}  // namespace kvui
