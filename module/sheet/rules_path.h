// Where the rules file KVUIMOD.ini is, and the lengths and papers of the region.
#pragma once

#include <windows.h>

#include "sheet/sheet_context.h"

namespace kvui {

// Computes the process-wide path that every reader and writer passes to the profile functions.
void ComputeRulesFilePath(SheetContext& context);
const char* RulesFilePath();
// Lets a test or a tool name the file itself, until the next ComputeRulesFilePath.
void UseRulesFile(const char* path);

// Whether lengths are millimetres or inches here, by the printer value "CustomPaperUnit", else by
// the user's locale.
bool UsesMillimetres(PrinterBlock* printer);
// The paper code that stands for "the regional default": 9 (A4) or 1 (Letter).
LONG RegionalDefaultPaper(PrinterBlock* printer);

}  // namespace kvui
