// Publication of the threshold tables: the rendering side runs outside this module and finds the
// tables of the halftone in force in the registry. The halftone selection and the reactor call it.
#pragma once

#include "sheet/sheet_context.h"

namespace kvui {

// Dot gain of the current settings in percent, from the printer's table; 0 when it says nothing.
LONG DotGain(const SheetContext& context);

// Stores the table of each plane for the record's halftone parameters, and takes the grey component
// values that belong to them into the record. Does nothing for a user who may not write there.
void PublishThresholdTables(SheetContext& context);

}  // namespace kvui
