// Pages that exist keep what they showed last, and some read it back when they are applied. When a
// page, or a rule that it met, changes a setting that another page shows, that page is filled anew.
#pragma once

#include "sheet/private_devmode.h"
#include "sheet/sheet_context.h"

namespace kvui {

// The settings as a message finds them.
class SettingsBefore {
 public:
    explicit SettingsBefore(const SheetContext& context);
    // Every page of the sheet but this one that shows a setting which is different now.
    void RefreshOtherPages(const SheetContext& context, HWND page, const char* dialogName) const;

 private:
    alignas(8) BYTE record_[kRecordSize];
};

}  // namespace kvui
