// Records that the printer description defines. Used by the working copies and the bin queries.
#pragma once

#include <printer_block.h>

#include "list_store.h"

namespace kvlist {

Records DescribedPapers(const PrinterBlock& printer);
Records DescribedWatermarks(const PrinterBlock& printer);
// All that the model can have, whatever is installed.
Records DescribedInputBins(const PrinterBlock& printer);
Records DescribedOutputBins(const PrinterBlock& printer);

}  // namespace kvlist
