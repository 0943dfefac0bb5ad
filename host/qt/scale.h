// From the core's pixels to those of the desktop. The core lays dialogs out for a font of 6 x 13
// pixels; here everything grows with the desktop's font, so that its texts fit.
#pragma once

#include <windows.h>

#include <QFont>
#include <QPoint>
#include <QRect>

namespace kvqt {

class Scale {
 public:
    Scale() = default;
    static Scale ForFont(const QFont& font);

    double factor() const { return factor_; }
    int Length(LONG core) const { return qRound(core * factor_); }
    QRect Rect(const RECT& core) const {
        return {QPoint(Length(core.left), Length(core.top)),
                QPoint(Length(core.right) - 1, Length(core.bottom) - 1)};
    }
    // Back, for the places of clicks.
    POINT ToCore(const QPoint& point) const {
        return {static_cast<LONG>(point.x() / factor_), static_cast<LONG>(point.y() / factor_)};
    }

    bool operator==(const Scale& other) const = default;

 private:
    double factor_ = 1.0;
};

}  // namespace kvqt
