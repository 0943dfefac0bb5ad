// Painting and announcing, see status_line.h.
#include <host/qt/status_line.h>

#include <QAccessible>
#include <QPainter>
#include <QStyle>

namespace kvqt {

StatusLine::StatusLine(QWidget* parent) : QStatusBar(parent) {
    setSizeGripEnabled(false);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

void StatusLine::Say(const QString& text, bool isNews) {
    const bool isOther = text != text_;
    text_ = text;
    setAccessibleName(text);
    SetToolTip();
    // Nothing said is nothing to find there either.
    setVisible(!text.isEmpty());
    update();
    if (text.isEmpty() || !isNews || !QAccessible::isActive()) return;
    // The same once more is news as well.
    if (isOther) {
        QAccessibleEvent renamed(this, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&renamed);
    }
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void StatusLine::SetToolTip() {
    const bool isCut = fontMetrics().horizontalAdvance(text_) > width();
    setToolTip(isCut ? text_ : QString());
}

void StatusLine::resizeEvent(QResizeEvent* event) {
    QStatusBar::resizeEvent(event);
    SetToolTip();
}

void StatusLine::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(text_, Qt::ElideRight, width());
    const Qt::Alignment side =
        QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter);
    style()->drawItemText(&painter, rect(), static_cast<int>(side), palette(), isEnabled(), shown,
                          QPalette::WindowText);
}

}  // namespace kvqt
