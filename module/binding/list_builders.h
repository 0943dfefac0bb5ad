// Entries of combo and list boxes that come from the list service instead of the catalogue.
#pragma once

#include <string>
#include <vector>

#include "sheet/sheet_context.h"

namespace kvui {

struct ListEntry {
    std::string text;
    DWORD value;
    bool operator==(const ListEntry&) const = default;
};

// Adds the run-time entries of a control; does nothing for controls that have none.
void AddRunTimeEntries(SheetContext& context, DWORD controlId, std::vector<ListEntry>& entries);

}  // namespace kvui
