// Which pages show a setting that a message has changed.
#include "ui/other_page_refresh.h"

#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "dialog/dialog_table.h"
#include "settings/item_catalogue.h"
#include "settings/setting_field.h"
#include "sheet/messages.h"

namespace kvui {
namespace {

using Names = std::vector<const char*>;

bool Holds(const Names& names, const char* name) {
    return std::any_of(names.begin(), names.end(),
                       [&](const char* other) { return std::strcmp(other, name) == 0; });
}

Names ChangedFields(const DEVMODEA* before, const DEVMODEA* after) {
    Names fields;
    for (const SettingField& field : SettingFieldTable) {
        DWORD was = 0, is = 0;
        if (ReadField(before, field, &was) && ReadField(after, field, &is) && was != is) {
            fields.push_back(field.name);
        }
    }
    return fields;
}

// Several items may own parts of one field.
bool ShowsChange(const ControlItem& item, const DEVMODEA* before, const DEVMODEA* after) {
    DWORD was = 0, is = 0;
    return ReadItemValue(before, item, &was) && ReadItemValue(after, item, &is) && was != is;
}

Names DialogsThatShowChanges(const DEVMODEA* before, const DEVMODEA* after, const char* exceptFor) {
    const Names fields = ChangedFields(before, after);
    Names dialogs;
    for (const ControlItem& item : kCatalogue) {
        if (item.settingField[0] != '\0' && Holds(fields, item.settingField) &&
            std::strcmp(item.dialogName, exceptFor) != 0 && !Holds(dialogs, item.dialogName) &&
            ShowsChange(item, before, after)) {
            dialogs.push_back(item.dialogName);
        }
    }
    return dialogs;
}

}  // namespace

SettingsBefore::SettingsBefore(const SheetContext& context) {
    std::memcpy(record_, context.settings, sizeof record_);
}

void SettingsBefore::RefreshOtherPages(const SheetContext& context, HWND page,
                                       const char* dialogName) const {
    if (std::memcmp(record_, context.settings, sizeof record_) == 0) return;
    const Names dialogs = DialogsThatShowChanges(reinterpret_cast<const DEVMODEA*>(record_),
                                                 context.settings, dialogName);
    if (dialogs.empty()) return;
    const HWND sheet = GetParent(page);
    const auto tabs = reinterpret_cast<HWND>(SendMessageA(sheet, PSM_GETTABCONTROL, 0, 0));
    const LRESULT count = SendMessageA(tabs, TCM_GETITEMCOUNT, 0, 0);
    for (LRESULT i = 0; i < count && IsWindow(sheet); ++i) {
        const auto other =
            reinterpret_cast<HWND>(SendMessageA(sheet, PSM_INDEXTOHWND, static_cast<WPARAM>(i), 0));
        if (other == nullptr || other == page) continue;
        if (!Holds(dialogs, PageOfWindow(context, other).dialogName)) continue;
        SendMessageA(other, kMessageRefreshAll, 0, 0);
    }
}

}  // namespace kvui
