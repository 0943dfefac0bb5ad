// Contrast as the guidelines for accessible content measure it, see selection_colour.h.
#include <host/qt/selection_colour.h>

#include <algorithm>
#include <cmath>

namespace kvqt {
namespace {

// A little more than is asked for: styles shade the colour, and thin letters are drawn softly.
constexpr double kWanted = 5.5;
constexpr int kSteps = 40;

double Luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double Ratio(const QColor& first, const QColor& second) {
    const double a = Luminance(first);
    const double b = Luminance(second);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

// Between the colour and the one it goes towards, `step` of kSteps.
QColor Towards(const QColor& from, const QColor& to, int step) {
    const auto mix = [step](int a, int b) { return a + (b - a) * step / kSteps; };
    return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

}  // namespace

QPalette WithLegibleSelection(const QPalette& palette) {
    QPalette legible = palette;
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        const QColor text = palette.color(group, QPalette::HighlightedText);
        const QColor ground = palette.color(group, QPalette::Highlight);
        const QColor end = Luminance(text) > 0.18 ? Qt::black : Qt::white;
        QColor better = ground;
        for (int step = 1; step <= kSteps && Ratio(better, text) < kWanted; ++step) {
            better = Towards(ground, end, step);
        }
        if (better != ground) legible.setColor(group, QPalette::Highlight, better);
    }
    return legible;
}

}  // namespace kvqt
