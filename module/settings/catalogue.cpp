// Lookups on the item catalogue. Every one of them walks the rows from the top, because names and
// ids that occur twice must find their first row; the tables themselves are in catalogue_*.cpp and
// help_table.cpp.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

#include "settings/item_catalogue.h"
#include "settings/item_field.h"
#include "settings/setting_field.h"

namespace kvui {

const ControlItem* ItemById(DWORD controlId) {
    for (const ControlItem& item : kCatalogue) {
        if (item.controlId == controlId) return &item;
    }
    return nullptr;
}

const ControlItem* ItemByName(const char* controlName) {
    for (const ControlItem& item : kCatalogue) {
        if (std::strcmp(item.controlName, controlName) == 0) return &item;
    }
    return nullptr;
}

DWORD ControlIdByName(const char* controlName) {
    const ControlItem* item = ItemByName(controlName);
    return item != nullptr ? item->controlId : 0;
}

namespace {

// The rows of each dialog name, gathered once: a page is walked nine times at every activation, and
// comparing the names of all rows would cost more than the filling.
struct DialogRows {
    const char* dialogName;
    std::vector<std::uint8_t> rows;
};

const DialogRows* RowsOfDialog(const char* dialogName) {
    static const std::vector<DialogRows> dialogs = [] {
        std::vector<DialogRows> made;
        for (std::size_t row = 0; row < kCatalogue.size(); ++row) {
            const char* name = kCatalogue[row].dialogName;
            auto place = std::find_if(made.begin(), made.end(), [name](const DialogRows& known) {
                return std::strcmp(known.dialogName, name) == 0;
            });
            if (place == made.end()) place = made.insert(place, DialogRows{name, {}});
            place->rows.push_back(static_cast<std::uint8_t>(row));
        }
        return made;
    }();
    for (const DialogRows& dialog : dialogs) {
        if (std::strcmp(dialog.dialogName, dialogName) == 0) return &dialog;
    }
    return nullptr;
}

const ControlItem* NextOfAnyDialog(std::size_t start, ItemType type, std::size_t* next) {
    for (std::size_t row = start; row < kCatalogue.size(); ++row) {
        if (type != kItemAnyType && kCatalogue[row].type != type) continue;
        *next = row + 1;
        return &kCatalogue[row];
    }
    *next = kCatalogue.size();
    return nullptr;
}

}  // namespace

const ControlItem* NextItemOfDialog(std::size_t start, const char* dialogName, ItemType type,
                                    std::size_t* next) {
    if (*dialogName == '\0') return NextOfAnyDialog(start, type, next);
    *next = kCatalogue.size();
    const DialogRows* dialog = RowsOfDialog(dialogName);
    if (dialog == nullptr) return nullptr;
    for (const std::size_t row : dialog->rows) {
        if (row < start || (type != kItemAnyType && kCatalogue[row].type != type)) continue;
        *next = row + 1;
        return &kCatalogue[row];
    }
    return nullptr;
}

bool IsSetOfEntries(const ControlItem& item) {
    return item.type == kItemList && item.maskMode == kMaskBitNumbers;
}

std::span<const SelectItem> SelectEntries(const ControlItem& item) {
    if (item.selectList == nullptr) return {};
    std::size_t count = 0;
    while (item.selectList[count].stringId != 0) ++count;
    return {item.selectList, count};
}

std::span<const RadioItem> RadioButtons(const ControlItem& item) {
    if (item.radioList == nullptr) return {};
    std::size_t count = 0;
    while (item.radioList[count].buttonId != 0) ++count;
    return {item.radioList, count};
}

namespace {

// Icon of the value in the item's own list or record; 0 when nothing matches.
DWORD OwnIconForValue(const ControlItem& item, DWORD value) {
    switch (item.type) {
        case kItemCombo:
        case kItemList:
            for (const SelectItem& entry : SelectEntries(item)) {
                if (entry.value == value) return entry.iconId;
            }
            return 0;
        case kItemRadio:
            for (const RadioItem& button : RadioButtons(item)) {
                if (button.value == value) return button.iconId;
            }
            return 0;
        case kItemCheck:
            if (item.check == nullptr) return 0;
            return value == item.check->checkedValue ? item.check->checkedIcon
                                                     : item.check->clearedIcon;
        default:
            return 0;
    }
}

bool IsMasked(const ControlItem& item) {
    return item.maskMode == kMaskBitNumbers || item.maskMode == kMaskValues;
}

}  // namespace

DWORD IconForValue(const ControlItem& item, DWORD value) {
    const DWORD icon = OwnIconForValue(item, value);
    return icon != 0 ? icon : item.defaultIconId;
}

DWORD HelpIdFor(DWORD controlId) {
    for (const HelpPair& pair : kHelpTable) {
        if (pair.controlId == controlId) return pair.helpId;
    }
    const ControlItem* item = ItemById(controlId);
    return item != nullptr ? item->helpId : 0;
}

ItemField FieldOfItem(const ControlItem* item) {
    if (item == nullptr) return {nullptr, nullptr};
    return {item, FindSettingField(item->settingField)};
}

BOOL ReadItemValue(const DEVMODEA* record, const ControlItem& item, DWORD* value) {
    if (!ReadSetting(record, item.settingField, value)) return FALSE;
    if (IsMasked(item)) *value &= item.mask;
    return TRUE;
}

BOOL WriteItemValue(DEVMODEA* record, const ControlItem& item, DWORD value, DWORD* oldWord) {
    const SettingField* field = FindSettingField(item.settingField);
    if (field == nullptr) return FALSE;
    return WriteField(record, field->location, value, item.maskMode, item.mask, oldWord) ==
           FieldWrite::kChanged;
}

// Only the item's own bits go back: a rule that fired in between may have set other bits of the
// same word, and those stand.
BOOL RestoreItemField(DEVMODEA* record, const ControlItem& item, DWORD oldWord) {
    return WriteItemValue(record, item, IsMasked(item) ? oldWord & item.mask : oldWord, nullptr);
}

}  // namespace kvui
