// A rim around check boxes and radio buttons, see indicator_style.h.
#include <host/qt/indicator_style.h>

#include <QApplication>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOption>

namespace kvqt {
namespace {

// The style draws the rim as a shade of the ground, which is hard to see on light ground and on
// dark ground cannot be seen.
class ClearIndicators : public QProxyStyle {
 public:
    explicit ClearIndicators(const QString& base) : QProxyStyle(base) {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        const bool box = element == PE_IndicatorCheckBox;
        if ((!box && element != PE_IndicatorRadioButton) || (option->state & State_Enabled) == 0) {
            return;
        }
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(RimOn(option->palette));
        const QRectF rim = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
        if (box) {
            painter->drawRoundedRect(rim, 1, 1);
        } else {
            painter->drawEllipse(rim);
        }
        painter->restore();
    }

 private:
    // Nearer to the text than to the ground, or the thin line of a circle is too faint.
    static QColor RimOn(const QPalette& palette) {
        const QColor ground = palette.color(QPalette::Window);
        const QColor text = palette.color(QPalette::WindowText);
        const auto mix = [](int near, int far) { return (2 * near + far) / 3; };
        return {mix(text.red(), ground.red()), mix(text.green(), ground.green()),
                mix(text.blue(), ground.blue())};
    }
};

}  // namespace

void UseClearIndicators() {
    const QString name = QApplication::style()->name();
    if (name == QStringLiteral("fusion")) QApplication::setStyle(new ClearIndicators(name));
}

}  // namespace kvqt
