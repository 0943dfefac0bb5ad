// A catalogue row together with the setting field that it edits, found once. Rules are checked far
// more often than rows are found, and a lookup by name walks the whole table.
#pragma once

#include <windows.h>

#include "settings/item_catalogue.h"
#include "settings/setting_field.h"

namespace kvui {

struct ItemField {
    const ControlItem* item;    // null: no such row
    const SettingField* field;  // null: the row edits no setting
};

ItemField FieldOfItem(const ControlItem* item);

// The control's part of its setting; false when there is none to read.
inline bool ReadItemField(const DEVMODEA* record, const ItemField& where, LONG* value) {
    DWORD word;
    if (where.field == nullptr || !ReadField(record, *where.field, &word)) return false;
    if (where.item->maskMode != kMaskWholeField) word &= where.item->mask;
    *value = static_cast<LONG>(word);
    return true;
}

}  // namespace kvui
