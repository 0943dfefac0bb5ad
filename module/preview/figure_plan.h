// Which pictures the printer's figure and the strip of state icons are made of. No drawing: the
// tests read it as it is.
#pragma once

#include <windows.h>

#include "sheet/private_devmode.h"

namespace kvui {

// A layer for each option bit, one for the paper source and one for the output.
constexpr int kOptionBits = 25;
constexpr int kMostFigureLayers = kOptionBits + 2;

struct FigureLayer {
    DWORD controlId;  // of the frame that it is drawn into
    WORD picture;
};
struct FigureLayers {
    FigureLayer layer[kMostFigureLayers];
    int count;
};

// Each later layer lies over those before it. Not every picture need exist.
FigureLayers FigureLayersOf(const DEVMODEA& settings, const PrivateDevmode& privateSettings,
                            DWORD controlId);

// Printers of this model code are drawn whole.
constexpr BYTE kWholeFigureModel = 18;
// The pair's first picture; the second one has the next number.
WORD WholePrinterPicture(DWORD installedOptions);

// In the order of the strip's columns.
enum StateIcon : int { kStateOverlay, kStateWatermark, kStateColour, kStateIconCount };
struct StatePicture {
    WORD picture;
    WORD mask;
};
StatePicture StatePictureOf(StateIcon icon, const DEVMODEA& settings,
                            const PrivateDevmode& privateSettings);

}  // namespace kvui
