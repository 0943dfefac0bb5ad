// Clicks on widgets that have no behaviour of their own, reported to the core as clicks at a place.
#pragma once

#include <host/qt/mirror.h>
#include <platform/window/input.h>

#include <QMouseEvent>

namespace kvqt {

class MouseRelay {
 public:
    MouseRelay(QtDisplay& display, HWND window) : display_(display), window_(window) {}

    void Press(QMouseEvent& event) { pressed_ = event.button(); }

    // A click counts when the button is let go where it went down, in the widget.
    void Release(QMouseEvent& event, const QRect& area) {
        const bool click = pressed_ == event.button() && area.contains(event.position().toPoint());
        pressed_ = Qt::NoButton;
        if (!click) return;
        const unsigned modifiers = ModifiersOf(event.modifiers());
        const POINT place = display_.scale().ToCore(event.position().toPoint());
        if (event.button() == Qt::RightButton) {
            display_.Act(window_, [window = window_, place, modifiers] {
                kv::input::RightClickAt(window, place, modifiers);
            });
        } else if (event.button() == Qt::LeftButton) {
            display_.Act(window_, [window = window_, place, modifiers] {
                kv::input::ClickAt(window, place, modifiers);
            });
        }
    }

    // The first click of the two has been reported already.
    void DoubleClick(QMouseEvent& event) {
        if (event.button() != Qt::LeftButton) return;
        const POINT place = display_.scale().ToCore(event.position().toPoint());
        const unsigned modifiers = ModifiersOf(event.modifiers());
        display_.Act(window_, [window = window_, place, modifiers] {
            kv::input::SecondClickAt(window, place, modifiers);
        });
    }

 private:
    QtDisplay& display_;
    HWND window_;
    Qt::MouseButton pressed_ = Qt::NoButton;
};

}  // namespace kvqt
