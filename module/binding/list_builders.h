// Entries of combo and list boxes that come from the list service instead of the catalogue.
#pragma once

#include <string>
#include <vector>

#include "settings/item_catalogue.h"
#include "sheet/sheet_context.h"

namespace kvui {

struct ListEntry {
    std::string text;
    DWORD value;
    bool operator==(const ListEntry&) const = default;
};

// Adds the entries of a run-time list; none where whoever shows it fills it.
void AddRunTimeEntries(SheetContext& context, RunTimeList list, std::vector<ListEntry>& entries);

}  // namespace kvui
