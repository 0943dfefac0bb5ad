// The double hexagon between red, green, blue and hue, saturation, luminance.
#include <platform/common_dialogs/color_math.h>

#include <algorithm>
#include <cmath>

namespace kv {
namespace {

constexpr double kCircle = kMostHue + 1;

int Rounded(double value) {
    return static_cast<int>(std::lround(value));
}

// One component; `hue` in parts of a circle.
double Component(double low, double high, double hue) {
    hue -= std::floor(hue);
    if (hue < 1.0 / 6) return low + (high - low) * 6 * hue;
    if (hue < 1.0 / 2) return high;
    if (hue < 2.0 / 3) return low + (high - low) * (2.0 / 3 - hue) * 6;
    return low;
}

}  // namespace

Hsl HslOf(COLORREF color) {
    const double red = GetRValue(color) / 255.0;
    const double green = GetGValue(color) / 255.0;
    const double blue = GetBValue(color) / 255.0;
    const double high = std::max({red, green, blue});
    const double low = std::min({red, green, blue});
    Hsl hsl;
    hsl.luminance = Rounded((high + low) / 2 * kMostShade);
    const double range = high - low;
    if (range <= 0) return hsl;
    const double room = high + low <= 1 ? high + low : 2 - high - low;
    hsl.saturation = Rounded(range / room * kMostShade);
    double hue = 4 + (red - green) / range;
    if (red == high) {
        hue = (green - blue) / range;
    } else if (green == high) {
        hue = 2 + (blue - red) / range;
    }
    hsl.hue = Rounded((hue / 6 - std::floor(hue / 6)) * kCircle) % (kMostHue + 1);
    return hsl;
}

COLORREF ColorFrom(const Hsl& hsl) {
    const double luminance = static_cast<double>(hsl.luminance) / kMostShade;
    const double saturation = static_cast<double>(hsl.saturation) / kMostShade;
    const double high = luminance <= 0.5 ? luminance * (1 + saturation)
                                         : luminance + saturation - luminance * saturation;
    const double low = 2 * luminance - high;
    const double hue = hsl.hue / kCircle;
    const auto byte = [&](double turn) {
        return static_cast<unsigned>(
            std::clamp(Rounded(Component(low, high, hue + turn) * 255), 0, 255));
    };
    return RGB(byte(1.0 / 3), byte(0), byte(-1.0 / 3));
}

}  // namespace kv
