// One widget that stands for one window of the core. The display owns the mirrors; a mirror reads
// the window's state by the platform's own messages and never keeps a copy of it.
#pragma once

#include <host/qt/core_text.h>
#include <host/qt/qt_display.h>
#include <platform/display/display.h>
#include <platform/window/window.h>

#include <QPointer>
#include <QWidget>

#include <memory>

namespace kvqt {

class Mirror {
 public:
    Mirror(QtDisplay& display, HWND window) : display_(display), window_(window) {}
    // The widget goes when its own event handlers have returned.
    virtual ~Mirror();
    Mirror(const Mirror&) = delete;
    Mirror& operator=(const Mirror&) = delete;

    HWND window() const { return window_; }
    QWidget* widget() const { return widget_; }
    // Where the keyboard focus goes.
    virtual QWidget* FocusWidget() const { return widget_; }

    // Brings the widget up to date; `changes` are kChanged* values.
    void Sync(unsigned changes);
    // The core's picture of the window is out of date.
    virtual void Repaint();
    // The children are complete.
    virtual void Show(bool visible);
    // A modal loop runs for the window from now on.
    virtual void BeginModal() {}

    // Where a new sheet opens.
    virtual void OpenAt(const QPoint& /*corner*/) {}
    // What is said beside the buttons of a sheet.
    virtual void ShowStatus(const QString& /*text*/, bool /*isNews*/) {}

    // Whose coordinates are those of the window's client area.
    virtual QWidget* Ground() const { return widget_; }
    // The widget that a child window's one is put into, and its place there.
    virtual QWidget* GroundFor(HWND /*child*/) const { return Ground(); }
    virtual QRect PlaceFor(HWND child) const;

 protected:
    void SetWidget(QWidget* widget);
    // Receives the widget's signals on behalf of a mirror that acts on them itself: the widget,
    // which may be in the middle of an event, outlives the mirror and goes on signalling.
    const QObject* Receiver() const { return receiver_.get(); }
    virtual void SyncState(unsigned changes) = 0;
    virtual void SyncGeometry();
    virtual void SyncEnabled();
    // A place in the window on the widget, which has the sides of the desktop's language.
    QRect Mirrored(const RECT& place) const;
    virtual QString AccessibleName() const;

    QtDisplay& display() const { return display_; }
    DWORD Style() const { return StyleOf(window_); }
    LRESULT Ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageA(window_, message, wParam, lParam);
    }

 private:
    void SyncFont();
    void SyncName();
    // The colours that the parent wants for the control, as long as it wants any.
    void SyncColors();

    QtDisplay& display_;
    HWND window_;
    QPointer<QWidget> widget_;
    std::unique_ptr<QObject> receiver_ = std::make_unique<QObject>();
    bool coloured_ = false;
};

using MirrorPointer = std::unique_ptr<Mirror>;

// The mirror for a window of any kind. `parent` is the widget of the parent or owner window.
MirrorPointer MakeMirror(QtDisplay& display, HWND window, QWidget* parent);

// One per widget family, each in its own file.
MirrorPointer MakeDialogMirror(QtDisplay& display, HWND window, QWidget* parent);
MirrorPointer MakePageMirror(QtDisplay& display, HWND window, QWidget* parent);
MirrorPointer MakePaintedMirror(QtDisplay& display, HWND window, QWidget* parent);
MirrorPointer MakeButtonMirror(QtDisplay& display, HWND window, QWidget* parent);
MirrorPointer MakeStaticMirror(QtDisplay& display, HWND window, QWidget* parent);
MirrorPointer MakeEditMirror(QtDisplay& display, HWND window, QWidget* parent);
MirrorPointer MakeComboMirror(QtDisplay& display, HWND window, QWidget* parent);
MirrorPointer MakeListMirror(QtDisplay& display, HWND window, QWidget* parent);
MirrorPointer MakeTrackBarMirror(QtDisplay& display, HWND window, QWidget* parent);
MirrorPointer MakeUpDownMirror(QtDisplay& display, HWND window, QWidget* parent);
MirrorPointer MakeTabMirror(QtDisplay& display, HWND window, QWidget* parent);

// The modifier keys of a mouse or key event as kv::input::Modifier flags.
unsigned ModifiersOf(Qt::KeyboardModifiers modifiers);

// The frame of the focus in `place` of a device, as long as the keyboard is in use and `owner` has
// the focus.
void DrawFocus(QPaintDevice& device, const QWidget& owner, const QRect& place);

// The font with its letters narrowed, as far as needed and bearable, so that the text fits.
QFont FontThatFits(const QFont& font, const QString& text, int width);

}  // namespace kvqt
