// What the Watermark page hands to the editor of one watermark.
#pragma once

#include "dialog/run.h"

namespace kvui {

// A step of the page: a press of Add or Edit begins an edit, which the editor then works on.
void BeginWatermarkEdit(Run& run);
// The page goes.
void EndWatermarkEdit(Run& run);

}  // namespace kvui
