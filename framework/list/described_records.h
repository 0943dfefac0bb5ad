// Records that the printer description defines. Used by the working copies and the bin queries.
#pragma once

#include <printer_block.h>

#include "list_store.h"

namespace kvlist {

// Which of the described bins: all that the model can have, or those that need no option.
enum class BinChoice { kAll, kAlwaysFitted };

Records DescribedPapers(const PrinterBlock& printer);
Records DescribedWatermarks(const PrinterBlock& printer);
Records DescribedInputBins(const PrinterBlock& printer, BinChoice choice);
Records DescribedOutputBins(const PrinterBlock& printer);

}  // namespace kvlist
