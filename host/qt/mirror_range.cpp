// Track bars and up-down arrows.
#include <host/qt/mirror.h>
#include <host/qt/names.h>
#include <platform/controls/control_input.h>
#include <platform/window/input.h>

#include <commctrl.h>

#include <QAbstractSpinBox>
#include <QMouseEvent>
#include <QSlider>
#include <QToolButton>
#include <QWheelEvent>

namespace kvqt {
namespace {

class SliderWidget : public QSlider {
 public:
    SliderWidget(QtDisplay& display, HWND window, Qt::Orientation orientation, QWidget* parent)
        : QSlider(orientation, parent), display_(display), window_(window) {}

 protected:
    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton) {
            display_.Act(window_, [this] { kv::input::Focus(window_); });
        }
        QSlider::mousePressEvent(event);
    }

    // Scrolling a page must not change what the pointer happens to pass.
    void wheelEvent(QWheelEvent* event) override {
        if (hasFocus()) {
            QSlider::wheelEvent(event);
        } else {
            event->accept();
        }
    }

 private:
    QtDisplay& display_;
    HWND window_;
};

class TrackBarMirror : public Mirror {
 public:
    TrackBarMirror(QtDisplay& owner, HWND handle, QWidget* parent) : Mirror(owner, handle) {
        const bool vertical = (StyleOf(handle) & TBS_VERT) != 0;
        slider_ = new SliderWidget(owner, handle, vertical ? Qt::Vertical : Qt::Horizontal, parent);
        // The core's vertical bars have their least position at the top.
        slider_->setInvertedAppearance(vertical);
        slider_->setFocusPolicy(Qt::TabFocus);
        SetWidget(slider_);
        QObject::connect(slider_, &QSlider::valueChanged, Receiver(),
                         [this](int position) { Report(position); });
        QObject::connect(slider_, &QSlider::sliderReleased, Receiver(), [this] {
            const int position = slider_->value();
            display().Act(window(),
                          [window = window(), position] { kv::input::DragTo(window, position); });
        });
    }

 protected:
    void SyncState(unsigned changes) override {
        if ((changes & (kv::kChangedRange | kv::kChangedStyle)) != 0) SyncRange();
        if ((changes & (kv::kChangedPosition | kv::kChangedRange)) != 0) {
            const int position = static_cast<int>(Ask(TBM_GETPOS));
            if (slider_->value() != position) slider_->setValue(position);
        }
    }

 private:
    // While the thumb is held the core only follows; letting go settles the position.
    void Report(int position) {
        const bool held = slider_->isSliderDown();
        display().Act(window(), [window = window(), position, held] {
            if (held) {
                kv::input::TrackTo(window, position);
            } else {
                kv::input::DragTo(window, position);
            }
        });
    }

    void SyncRange() {
        const int least = static_cast<int>(Ask(TBM_GETRANGEMIN));
        const int most = static_cast<int>(Ask(TBM_GETRANGEMAX));
        if (slider_->minimum() != least || slider_->maximum() != most) {
            slider_->setRange(least, most);
        }
        slider_->setPageStep(static_cast<int>(Ask(TBM_GETPAGESIZE)));
        slider_->setSingleStep(static_cast<int>(Ask(TBM_GETLINESIZE)));
        const bool ticks = (Style() & TBS_NOTICKS) == 0;
        const auto place = ticks ? QSlider::TicksBelow : QSlider::NoTicks;
        if (slider_->tickPosition() != place) slider_->setTickPosition(place);
        const int frequency = static_cast<int>(Ask(kv::KVM_GETTICKFREQ));
        if (slider_->tickInterval() != frequency) slider_->setTickInterval(frequency);
    }

    SliderWidget* slider_;
};

// Two small buttons beside an edit; they leave the focus to it.
class ArrowsWidget : public QWidget {
 public:
    ArrowsWidget(QtDisplay& display, HWND window, QWidget* parent)
        : QWidget(parent), horizontal_((StyleOf(window) & UDS_HORZ) != 0) {
        up_ = MakeArrow(display, window, 1, horizontal_ ? Qt::RightArrow : Qt::UpArrow);
        down_ = MakeArrow(display, window, -1, horizontal_ ? Qt::LeftArrow : Qt::DownArrow);
    }

 protected:
    void resizeEvent(QResizeEvent*) override {
        const int half = (horizontal_ ? width() : height()) / 2;
        if (horizontal_) {
            down_->setGeometry(0, 0, half, height());
            up_->setGeometry(half, 0, width() - half, height());
        } else {
            up_->setGeometry(0, 0, width(), half);
            down_->setGeometry(0, half, width(), height() - half);
        }
    }

 private:
    QToolButton* MakeArrow(QtDisplay& display, HWND window, int notches, Qt::ArrowType arrow) {
        auto* button = new QToolButton(this);
        button->setArrowType(arrow);
        button->setAutoRepeat(true);
        button->setFocusPolicy(Qt::NoFocus);
        const auto name =
            notches > 0 ? QAbstractSpinBox::tr("&Step up") : QAbstractSpinBox::tr("Step &down");
        button->setAccessibleName(WithoutMnemonic(name));
        QObject::connect(button, &QToolButton::clicked, button, [&display, window, notches] {
            display.Act(window, [window, notches] { kv::input::Step(window, notches); });
        });
        return button;
    }

    bool horizontal_;
    QToolButton* up_;
    QToolButton* down_;
};

class UpDownMirror : public Mirror {
 public:
    UpDownMirror(QtDisplay& owner, HWND handle, QWidget* parent) : Mirror(owner, handle) {
        SetWidget(new ArrowsWidget(owner, handle, parent));
    }

 protected:
    void SyncState(unsigned) override {}
};

}  // namespace

MirrorPointer MakeTrackBarMirror(QtDisplay& display, HWND window, QWidget* parent) {
    return std::make_unique<TrackBarMirror>(display, window, parent);
}

MirrorPointer MakeUpDownMirror(QtDisplay& display, HWND window, QWidget* parent) {
    return std::make_unique<UpDownMirror>(display, window, parent);
}

}  // namespace kvqt
