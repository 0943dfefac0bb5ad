// See printer_port.h.
#include "device/printer_port.h"

#include <string>

#include "sheet/printer_values.h"

namespace kvui {

BOOL printerQueryable = FALSE;

BOOL ClassifyPrinterPort(const SheetContext& context, PrinterPortAddress* result) {
    std::string port;
    DWORD attributes = 0;
    if (!PrinterPortAndAttributes(context, port, attributes)) return FALSE;
    PrinterPortAddress address{};
    const bool queryable = ClassifyPort(port, attributes, address);
    if (result != nullptr) *result = address;
    return queryable;
}

void FindOutWhetherQueryable(SheetContext& context) {
    printerQueryable = ClassifyPrinterPort(context, nullptr);
    context.shared->life.portKnown = TRUE;
}

}  // namespace kvui
