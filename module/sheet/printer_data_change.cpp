// See printer_data_change.h.
#include "sheet/printer_data_change.h"

#include <kvspool.h>

#include <utility>

#include "sheet/printer_values.h"

namespace kvui {

PrinterDataChange::PrinterDataChange(const SheetContext& context)
    : printer_(OpenPrinterToAdminister(context)) {
    open_ = printer_ != nullptr && KVSPBeginPrinterChange(printer_) == ERROR_SUCCESS;
}

PrinterDataChange::~PrinterDataChange() {
    if (open_) KVSPEndPrinterChange(printer_, FALSE);
    if (printer_ != nullptr) ClosePrinter(printer_);
}

bool PrinterDataChange::Commit() {
    return std::exchange(open_, false) && KVSPEndPrinterChange(printer_, TRUE) == ERROR_SUCCESS;
}

}  // namespace kvui
