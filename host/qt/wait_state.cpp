// See wait_state.h.
#include <host/qt/wait_state.h>

#include <algorithm>
#include <iterator>

namespace kvqt {
namespace {

// What takes less is over before anyone has read about it.
constexpr unsigned kWorthTelling = 400;

constexpr QEvent::Type kInput[] = {
    QEvent::MouseButtonPress,
    QEvent::MouseButtonRelease,
    QEvent::MouseButtonDblClick,
    QEvent::MouseMove,
    QEvent::Wheel,
    QEvent::KeyPress,
    QEvent::KeyRelease,
    QEvent::ShortcutOverride,
    QEvent::Shortcut,
    QEvent::InputMethod,
    QEvent::ContextMenu,
    QEvent::TouchBegin,
    QEvent::TouchUpdate,
    QEvent::TouchEnd,
    QEvent::TabletPress,
    QEvent::TabletMove,
    QEvent::TabletRelease,
    QEvent::ToolTip,
    QEvent::Close,
};

}  // namespace

std::optional<WaitState::Line> WaitState::GoOn(const QString& what, unsigned milliseconds) {
    isOn_ = true;
    if (milliseconds < kWorthTelling) return std::nullopt;
    const QString text =
        QStringLiteral("Waiting for %1, %2 s").arg(what).arg(std::max(1U, milliseconds / 1000));
    if (text == shown_) return std::nullopt;
    const bool isNews = shown_.isEmpty() || what != what_;
    what_ = what;
    shown_ = text;
    return Line{text, isNews};
}

std::optional<QString> WaitState::End() {
    isOn_ = false;
    if (shown_.isEmpty()) return std::nullopt;
    shown_.clear();
    return line_;
}

bool WaitState::KeepLine(const QString& text) {
    line_ = text;
    return shown_.isEmpty();
}

bool WaitState::IsInput(QEvent::Type type) {
    return std::find(std::begin(kInput), std::end(kInput), type) != std::end(kInput);
}

}  // namespace kvqt
