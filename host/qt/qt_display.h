// The display on a desktop. It keeps one mirror per visible window of the core, gathers what the
// core reports as changed, and brings the widgets up to date once per turn of the event loop. What
// the user does enters the core through Act, after which the widgets show what the core made of it.
#pragma once

#include <host/qt/scale.h>
#include <host/qt/wait_state.h>
#include <platform/display/display.h>

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <memory>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace kvqt {

class Mirror;

constexpr unsigned kEverything = 0xFFFF;
// What a widget may show otherwise than the core after the user acted on it.
constexpr unsigned kState = kEverything & ~unsigned{kv::kChangedParent};

class QtDisplay : public QObject, public kv::Display {
 public:
    // The application object must exist.
    QtDisplay();
    ~QtDisplay() override;

    void Created(HWND window) override;
    void Changed(HWND window, unsigned changes) override;
    void Invalidated(HWND window) override;
    void FocusMoved(HWND focus) override;
    void Destroyed(HWND window) override;
    void Beeped() override;
    void CursorChanged(HCURSOR cursor) override;
    void ModalBegun(HWND window) override;
    void ModalEnded(HWND window) override;
    void ShowStatus(HWND sheet, const char* text) override;
    bool CornerOf(HWND window, POINT* corner) override;
    void Waiting(const char* what, unsigned milliseconds) override;
    void WaitEnded() override;
    void OpenNextSheetAt(POINT corner) override { nextCorner_ = QPoint(corner.x, corner.y); }
    bool WaitForInput(HWND modal) override;

    // Carries out what the user did to a widget. Widgets also signal what the display itself sets
    // in them; that is no action of the user and ends here.
    template <typename Action>
    void Act(HWND window, Action&& action) {
        if (syncing_) return;
        // A screen reader may act on a widget without an event of the desktop.
        if (!wait_.isOn()) std::forward<Action>(action)();
        // The widget may show what the core has refused.
        Queue(window, kState);
        Flush();
    }

    // Brings the widgets up to date now.
    void Flush();
    void Queue(HWND window, unsigned changes);
    bool syncing() const { return syncing_ > 0; }

    Mirror* MirrorOf(HWND window) const;
    // The window that a widget, or the widget around it, stands for; null beyond our windows.
    HWND WindowOf(const QWidget* widget) const;
    void Register(QWidget* widget, HWND window);
    void Unregister(const QObject* widget);
    bool IsModal(HWND window) const;

    const Scale& scale() const { return scale_; }

 private:
    // Guards against the signals that widgets send while the display sets their state.
    class SyncScope {
     public:
        explicit SyncScope(QtDisplay& display) : display_(display) { ++display_.syncing_; }
        ~SyncScope() { --display_.syncing_; }
        SyncScope(const SyncScope&) = delete;
        SyncScope& operator=(const SyncScope&) = delete;

     private:
        QtDisplay& display_;
    };

    struct Entry {
        std::unique_ptr<Mirror> mirror;  // from the first time that the window is visible
        unsigned changes = 0;
        bool queued = false;
    };

    bool eventFilter(QObject* object, QEvent* event) override;
    bool OnFocusIn(QWidget* widget, Qt::FocusReason reason);
    bool OnToolTip(QWidget* widget, QEvent* event);
    void OnMouseMove(QWidget* widget, const QPoint& position);
    void OnFontChange();
    void OnPaletteChange();
    void Schedule();
    void SyncWindow(HWND window);
    bool Realize(HWND window, Entry& entry);
    void Forget(HWND window);
    void ReconcileFocus();
    bool HasVisibleWindow() const;
    void SayOnSheets(const QString& text, bool isNews);

    std::unordered_map<HWND, Entry> entries_;
    std::unordered_map<const QObject*, HWND> windows_;
    std::vector<HWND> queue_;
    std::vector<HWND> modals_;
    QTimer timer_;  // wakes the core for its own timers
    QPointer<QWidget> hovered_;
    std::optional<QPoint> nextCorner_;  // where the next sheet opens
    Scale scale_;
    int syncing_ = 0;
    bool scheduled_ = false;
    bool isBusy_ = false;  // the wait cursor is shown
    WaitState wait_;
};

}  // namespace kvqt
