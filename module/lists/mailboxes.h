// The bins of the mail-bin sorter with the names that users gave them, and which of them are
// mailboxes.
#pragma once

#include <vector>

#include "sheet/sheet_context.h"

namespace kvui {

// Of the sheet's copy of the list, in its order; empty when there is no list.
std::vector<BinRecord> SorterBins(const SheetContext& context);
// Whether the settings give the bin over to a mailbox.
bool IsMailbox(const SheetContext& context, const BinRecord& bin);
// Changes the bin in the sheet's copy.
void UpdateSorterBin(const SheetContext& context, const BinRecord& bin);
// The copy becomes the stored list, or is dropped, and the list is read anew. False when it cannot
// be stored.
bool CommitSorterBins(SheetContext& context);
void DropSorterBins(SheetContext& context);

}  // namespace kvui
