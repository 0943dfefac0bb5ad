// Hue, saturation and luminance as the colour dialog counts them: hue 0 to 239, the others 0 to
// 240.
#pragma once

#include <windows.h>

namespace kv {

constexpr int kMostHue = 239;
constexpr int kMostShade = 240;

struct Hsl {
    int hue = 160;  // of a grey
    int saturation = 0;
    int luminance = 0;
};

Hsl HslOf(COLORREF color);
COLORREF ColorFrom(const Hsl& hsl);

}  // namespace kv
