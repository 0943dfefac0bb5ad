// The port of the sheet's printer: whether the printer can be asked for its configuration.
#pragma once

#include "device/port_address.h"
#include "sheet/sheet_context.h"

namespace kvui {

// Set by the Basic page when it first becomes active, or by the Device Options page of a sheet that
// opens with it.
extern BOOL printerQueryable;
void FindOutWhetherQueryable(SheetContext& context);

// TRUE when the printer can be queried; copies the address out when asked.
BOOL ClassifyPrinterPort(const SheetContext& context, PrinterPortAddress* address);

}  // namespace kvui
