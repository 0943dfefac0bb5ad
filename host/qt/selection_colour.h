// The colour of selected entries, when that of the desktop leaves their texts too faint to read.
#pragma once

#include <QPalette>

namespace kvqt {

// The palette with its selection colour moved away from the selected text's until they differ enough
// to be read; the palette itself where they do.
QPalette WithLegibleSelection(const QPalette& palette);

}  // namespace kvqt
