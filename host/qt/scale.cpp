// The size of the desktop's font compared with that of the core's layouts, see scale.h.
#include <host/qt/scale.h>

#include <QFontMetricsF>
#include <QString>

#include <algorithm>

namespace kvqt {
namespace {

// What the layouts are made for: the average width of the 52 letters, and the line height.
constexpr double kBaseWidth = 6;
constexpr double kBaseHeight = 13;
// Steps of one sixteenth keep equal rows equal to within a pixel.
constexpr double kSteps = 16;

}  // namespace

Scale Scale::ForFont(const QFont& font) {
    const QFontMetricsF metrics(font);
    const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
    const double width = metrics.horizontalAdvance(letters) / static_cast<double>(letters.size());
    const double wanted = std::max(width / kBaseWidth, metrics.height() / kBaseHeight);
    Scale scale;
    scale.factor_ = std::max(1.0, std::ceil(wanted * kSteps) / kSteps);
    return scale;
}

}  // namespace kvqt
