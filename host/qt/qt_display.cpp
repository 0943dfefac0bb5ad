// Gathering changes and bringing mirrors up to date; see qt_display.h. What the user does to
// several widgets alike (focus, keys, tooltips, mouse moves) is caught here by one event filter.
#include <host/qt/accessible.h>
#include <host/qt/core_text.h>
#include <host/qt/indicator_style.h>
#include <host/qt/keys.h>
#include <host/qt/mirror.h>
#include <host/qt/qt_display.h>
#include <host/qt/selection_colour.h>
#include <host/qt/tool_tips.h>
#include <platform/window/input.h>

#include <QApplication>
#include <QFocusEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QScrollArea>
#include <QTabBar>
#include <QToolTip>

#include <algorithm>
#include <array>
#include <iterator>

namespace kvqt {
namespace {

constexpr unsigned kArrowCursor = 32512;
constexpr unsigned kWaitCursor = 32514;
constexpr unsigned kHandCursor = 32649;

// Handlers that keep changing each other's windows end after so many rounds; the rest waits for the
// next turn of the event loop.
constexpr int kMostRounds = 8;

// A window that is larger than the screen scrolls.
void ScrollTo(QWidget* widget) {
    for (QWidget* around = widget->parentWidget(); around; around = around->parentWidget()) {
        auto* area = qobject_cast<QScrollArea*>(around);
        if (area && area->widget()) {
            // Of the tabs the chosen one has to be seen, of a list the whole, not only its entry.
            const auto* tabs = qobject_cast<QTabBar*>(widget);
            const QRect place = tabs ? tabs->tabRect(tabs->currentIndex()) : widget->rect();
            const QPoint middle = widget->mapTo(area->widget(), place.center());
            return area->ensureVisible(middle.x(), middle.y(), place.width() / 2 + 1,
                                       tabs ? place.height() : place.height() / 2 + 1);
        }
        if (around->isWindow()) return;
    }
}

bool IsDialog(HWND window) {
    const auto kind = kv::KindOf(window);
    return kind == "dialog" || kind == "sheet";
}

}  // namespace

QtDisplay::QtDisplay() : scale_(Scale::ForFont(QApplication::font())) {
    UseClearIndicators();
    timer_.setSingleShot(true);
    qApp->installEventFilter(this);
    DescribeDisplay(this);
    OnPaletteChange();
}

QtDisplay::~QtDisplay() {
    qApp->removeEventFilter(this);
    DescribeDisplay(nullptr);
    const SyncScope scope(*this);
    entries_.clear();
}

void QtDisplay::Created(HWND window) {
    entries_[window];
    Queue(window, kEverything);
}

void QtDisplay::Changed(HWND window, unsigned changes) {
    Queue(window, changes);
}

void QtDisplay::Invalidated(HWND window) {
    if (Mirror* mirror = MirrorOf(window)) mirror->Repaint();
}

void QtDisplay::FocusMoved(HWND /*focus*/) {
    Schedule();
}

void QtDisplay::Destroyed(HWND window) {
    const SyncScope scope(*this);
    entries_.erase(window);
    Schedule();
}

void QtDisplay::Beeped() {
    QApplication::beep();
}

void QtDisplay::CursorChanged(HCURSOR cursor) {
    const unsigned id = kv::SystemCursorId(cursor);
    const bool wait = id == kWaitCursor;
    if (wait != isBusy_) {
        isBusy_ = wait;
        if (wait) {
            Flush();
            QApplication::setOverrideCursor(Qt::WaitCursor);
            // The core is about to be busy; what is outstanding should be seen meanwhile.
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        } else {
            QApplication::restoreOverrideCursor();
        }
    }
    if (!hovered_) return;
    if (id == kHandCursor) hovered_->setCursor(Qt::PointingHandCursor);
    if (id == kArrowCursor) hovered_->unsetCursor();
}

void QtDisplay::ModalBegun(HWND window) {
    modals_.push_back(window);
    if (Mirror* mirror = MirrorOf(window)) mirror->BeginModal();
}

void QtDisplay::ModalEnded(HWND /*window*/) {
    if (!modals_.empty()) modals_.pop_back();
}

void QtDisplay::ShowStatus(HWND sheet, const char* text) {
    const QString line = FromAnsi(text);
    Mirror* mirror = MirrorOf(sheet);
    if (wait_.KeepLine(line) && mirror) mirror->ShowStatus(line, true);
}

void QtDisplay::SayOnSheets(const QString& text, bool isNews) {
    for (const auto& [window, entry] : entries_) {
        if (entry.mirror && kv::KindOf(window) == "sheet") entry.mirror->ShowStatus(text, isNews);
    }
}

void QtDisplay::Waiting(const char* what, unsigned milliseconds) {
    if (const auto line = wait_.GoOn(FromAnsi(what), milliseconds)) {
        SayOnSheets(line->text, line->isNews);
    }
    Flush();
    // Input comes too, and ends in the event filter: it must not be taken later either.
    QCoreApplication::processEvents(QEventLoop::AllEvents);
}

void QtDisplay::WaitEnded() {
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    if (const auto line = wait_.End()) SayOnSheets(*line, false);
}

bool QtDisplay::CornerOf(HWND window, POINT* corner) {
    const Mirror* mirror = MirrorOf(window);
    if (!mirror || !mirror->widget() || !mirror->widget()->isVisible()) return false;
    const QPoint place = mirror->widget()->frameGeometry().topLeft();
    *corner = {place.x(), place.y()};
    return true;
}

bool QtDisplay::WaitForInput(HWND /*modal*/) {
    Flush();
    const int due = kv::MillisecondsToNextTimer();
    if (due < 0 && !HasVisibleWindow()) return false;
    if (due >= 0) timer_.start(due);
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    Flush();
    return true;
}

bool QtDisplay::HasVisibleWindow() const {
    const auto all = QApplication::topLevelWidgets();
    return std::any_of(all.begin(), all.end(), [](const QWidget* w) { return w->isVisible(); });
}

void QtDisplay::Schedule() {
    if (std::exchange(scheduled_, true)) return;
    QMetaObject::invokeMethod(
        this, [this] { Flush(); }, Qt::QueuedConnection);
}

void QtDisplay::Queue(HWND window, unsigned changes) {
    const auto found = entries_.find(window);
    if (found == entries_.end()) return;
    Entry& entry = found->second;
    entry.changes |= changes;
    if (std::exchange(entry.queued, true)) return;
    queue_.push_back(window);
    Schedule();
}

void QtDisplay::Flush() {
    if (syncing_) return;
    {
        const SyncScope scope(*this);
        scheduled_ = false;
        std::vector<HWND> batch;
        for (int round = 0; round < kMostRounds && !queue_.empty(); ++round) {
            batch.clear();
            batch.swap(queue_);
            for (HWND window : batch) SyncWindow(window);
        }
        ReconcileFocus();
    }
    if (!queue_.empty()) Schedule();
}

// Windows that were never visible have no widget yet: most controls of a page never need one.
void QtDisplay::SyncWindow(HWND window) {
    const auto found = entries_.find(window);
    if (found == entries_.end() || !found->second.queued) return;
    Entry& entry = found->second;
    entry.queued = false;
    const unsigned changes = std::exchange(entry.changes, 0);
    const kv::Window* record = kv::WindowFromHandle(window);
    if (!record || record->destroying) return;
    if (entry.mirror && (changes & kv::kChangedParent) != 0) Forget(window);
    if (entry.mirror) {
        entry.mirror->Sync(changes);
        if ((changes & kv::kChangedVisible) != 0) entry.mirror->Show(record->IsVisibleStyle());
    } else if (record->IsVisibleStyle() && Realize(window, entry)) {
        entry.mirror->Show(true);
    }
}

bool QtDisplay::Realize(HWND window, Entry& entry) {
    const kv::Window* record = kv::WindowFromHandle(window);
    const Mirror* around = MirrorOf(record->parent ? record->parent : record->owner);
    if (record->parent && !around) return false;
    entry.mirror = MakeMirror(*this, window, around ? around->GroundFor(window) : nullptr);
    if (!entry.mirror) return false;
    entry.mirror->Sync(kEverything);
    if (nextCorner_ && kv::KindOf(window) == "sheet") {
        entry.mirror->OpenAt(*std::exchange(nextCorner_, std::nullopt));
    }
    const std::vector<HWND> children = record->children;
    for (HWND child : children) {
        Queue(child, kEverything);
        SyncWindow(child);
    }
    return true;
}

// A window that moved to another parent gets a new widget there, and so do its children.
void QtDisplay::Forget(HWND window) {
    const auto found = entries_.find(window);
    if (found == entries_.end()) return;
    if (const kv::Window* record = kv::WindowFromHandle(window)) {
        for (HWND child : record->children) Forget(child);
    }
    found->second.mirror.reset();
}

Mirror* QtDisplay::MirrorOf(HWND window) const {
    const auto found = entries_.find(window);
    return found != entries_.end() ? found->second.mirror.get() : nullptr;
}

void QtDisplay::Register(QWidget* widget, HWND window) {
    windows_[widget] = window;
}

void QtDisplay::Unregister(const QObject* widget) {
    windows_.erase(widget);
}

HWND QtDisplay::WindowOf(const QWidget* widget) const {
    for (; widget; widget = widget->parentWidget()) {
        const auto found = windows_.find(widget);
        if (found != windows_.end()) return found->second;
        if (widget->isWindow()) break;
    }
    return nullptr;
}

bool QtDisplay::IsModal(HWND window) const {
    const kv::Window* record = kv::WindowFromHandle(window);
    if (record && record->dialog && record->dialog->modal) return true;
    return std::find(modals_.begin(), modals_.end(), window) != modals_.end();
}

// The core decides who has the focus; widgets that Qt picked instead give it back.
void QtDisplay::ReconcileFocus() {
    HWND focus = GetFocus();
    if (!focus) focus = GetActiveWindow();
    const Mirror* mirror = MirrorOf(focus);
    if (!mirror || !mirror->widget()) return;
    QWidget* target = mirror->FocusWidget();
    QWidget* top = target->window();
    if (!top->isVisible()) return;
    if (top->focusWidget() != target) target->setFocus(Qt::OtherFocusReason);
    const bool elsewhere = QApplication::activeWindow() && QApplication::activeWindow() != top;
    if (elsewhere && !QApplication::activePopupWidget()) top->activateWindow();
}

bool QtDisplay::OnFocusIn(QWidget* widget, Qt::FocusReason reason) {
    if (syncing_ || reason == Qt::PopupFocusReason) return false;
    const HWND window = WindowOf(widget);
    if (!window || window == GetFocus()) return false;
    const Mirror* mirror = MirrorOf(window);
    if (!mirror || mirror->FocusWidget() != widget) return false;
    // The same window came to the front again: the core knows best where its focus is by now.
    if (reason == Qt::ActiveWindowFocusReason && kv::RootOf(window) == GetActiveWindow()) {
        Schedule();
    } else if (!IsDialog(window)) {
        Act(window, [window] { kv::input::Focus(window); });
    }
    return false;
}

bool QtDisplay::OnToolTip(QWidget* widget, QEvent* event) {
    const auto* help = static_cast<QHelpEvent*>(event);
    const HWND window = WindowOf(widget);
    const Mirror* mirror = MirrorOf(window);
    if (!mirror) return false;
    const QPoint place = mirror->Ground()->mapFromGlobal(help->globalPos());
    const QString tip = TipAt(window, scale_.ToCore(place));
    if (tip.isEmpty()) return false;
    QToolTip::showText(help->globalPos(), tip, widget);
    return true;
}

// Windows that draw themselves choose their own mouse pointer.
void QtDisplay::OnMouseMove(QWidget* widget, const QPoint& position) {
    const HWND window = WindowOf(widget);
    const Mirror* mirror = MirrorOf(window);
    if (!mirror || mirror->widget() != widget || !widget->hasMouseTracking()) return;
    hovered_ = widget;
    const POINT place = scale_.ToCore(position);
    Act(window, [window, place] { kv::input::MoveTo(window, place); });
}

void QtDisplay::OnFontChange() {
    const Scale scale = Scale::ForFont(QApplication::font());
    if (scale == scale_) return;
    scale_ = scale;
    for (const auto& [window, entry] : entries_) {
        if (entry.mirror)
            Queue(window, kv::kChangedGeometry | kv::kChangedFont | kv::kChangedItems);
    }
}

// What the core draws has the desktop's colours.
void QtDisplay::OnPaletteChange() {
    struct Colour {
        INT index;
        QPalette::ColorGroup group;
        QPalette::ColorRole role;
    };
    constexpr Colour kColours[] = {
        {COLOR_WINDOW, QPalette::Active, QPalette::Base},
        {COLOR_WINDOWTEXT, QPalette::Active, QPalette::Text},
        {COLOR_HIGHLIGHT, QPalette::Active, QPalette::Highlight},
        {COLOR_HIGHLIGHTTEXT, QPalette::Active, QPalette::HighlightedText},
        {COLOR_BTNFACE, QPalette::Active, QPalette::Window},
        {COLOR_BTNTEXT, QPalette::Active, QPalette::WindowText},
        {COLOR_GRAYTEXT, QPalette::Disabled, QPalette::Text},
    };
    const QPalette palette = WithLegibleSelection(QApplication::palette());
    // Comes back here once more, with nothing left to better.
    if (palette != QApplication::palette()) QApplication::setPalette(palette);
    std::array<INT, std::size(kColours)> indices{};
    std::array<COLORREF, std::size(kColours)> values{};
    for (size_t i = 0; i < std::size(kColours); ++i) {
        const QColor colour = palette.color(kColours[i].group, kColours[i].role);
        indices[i] = kColours[i].index;
        values[i] = RGB(colour.red(), colour.green(), colour.blue());
    }
    SetSysColors(static_cast<int>(indices.size()), indices.data(), values.data());
}

bool QtDisplay::eventFilter(QObject* object, QEvent* event) {
    if (wait_.isOn() && WaitState::IsInput(event->type())) {
        event->ignore();
        return true;
    }
    switch (event->type()) {
        case QEvent::ShortcutOverride:
        case QEvent::KeyPress:
            if (!object->isWidgetType()) return false;
            return HandleKey(*this, *static_cast<QWidget*>(object),
                             *static_cast<QKeyEvent*>(event));
        case QEvent::FocusIn:
            if (!object->isWidgetType()) return false;
            ScrollTo(static_cast<QWidget*>(object));
            return OnFocusIn(static_cast<QWidget*>(object),
                             static_cast<QFocusEvent*>(event)->reason());
        case QEvent::ToolTip:
            return object->isWidgetType() && OnToolTip(static_cast<QWidget*>(object), event);
        case QEvent::MouseMove:
            if (object->isWidgetType()) {
                OnMouseMove(static_cast<QWidget*>(object),
                            static_cast<QMouseEvent*>(event)->position().toPoint());
            }
            return false;
        case QEvent::ApplicationFontChange:
            if (object == qApp) OnFontChange();
            return false;
        case QEvent::ApplicationPaletteChange:
            if (object == qApp) OnPaletteChange();
            return false;
        default:
            return false;
    }
}

}  // namespace kvqt
