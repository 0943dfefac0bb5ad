// Property sheets, dialogs and message boxes as dialogs of the desktop; pages and other containers;
// windows of classes that draw themselves.
#include <host/qt/mirror.h>
#include <host/qt/mouse.h>
#include <host/qt/picture.h>
#include <host/qt/status_line.h>
#include <platform/controls/property_sheet.h>
#include <platform/dialog/message_box.h>
#include <platform/window/input.h>

#include <prsht.h>

#include <QCloseEvent>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>

#include <algorithm>
#include <iterator>
#include <vector>

namespace kvqt {
namespace {

using kv::kSheetApplyButton;

// Around what a sheet holds, in pixels of the core.
constexpr int kSheetMargin = 7;

// The core decides whether and how a dialog closes.
class DialogWidget : public QDialog {
 public:
    DialogWidget(QtDisplay& display, HWND window, QWidget* parent)
        : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                              Qt::WindowCloseButtonHint),
          display_(display),
          window_(window) {}

    void reject() override { Close(); }
    void accept() override {}

 protected:
    void closeEvent(QCloseEvent* event) override {
        event->ignore();
        Close();
    }
    void contextMenuEvent(QContextMenuEvent*) override {}

 private:
    void Close() {
        display_.Act(window_, [window = window_] { kv::input::Close(window); });
    }

    QtDisplay& display_;
    HWND window_;
};

// The buttons of a sheet in the order of the desktop. The core's order is the first row.
struct ButtonOrder {
    int layout;
    int ids[4];
};
constexpr ButtonOrder kButtonOrders[] = {
    {QDialogButtonBox::WinLayout, {IDOK, IDCANCEL, kSheetApplyButton, IDHELP}},
    {QDialogButtonBox::MacLayout, {IDHELP, kSheetApplyButton, IDCANCEL, IDOK}},
    {QDialogButtonBox::KdeLayout, {IDHELP, IDOK, kSheetApplyButton, IDCANCEL}},
    {QDialogButtonBox::GnomeLayout, {IDHELP, kSheetApplyButton, IDCANCEL, IDOK}},
};

const ButtonOrder& OrderFor(const QWidget& widget) {
    const int layout = widget.style()->styleHint(QStyle::SH_DialogButtonLayout, nullptr, &widget);
    for (const ButtonOrder& order : kButtonOrders) {
        if (order.layout == layout) return order;
    }
    return kButtonOrders[0];
}

class DialogMirror : public Mirror {
 public:
    DialogMirror(QtDisplay& owner, HWND handle, QWidget* parent) : Mirror(owner, handle) {
        QWidget* top = parent ? parent->window() : nullptr;
        auto* dialog = new DialogWidget(owner, handle, top);
        const DWORD extended = static_cast<DWORD>(GetWindowLongA(handle, GWL_EXSTYLE));
        if ((extended & (WS_EX_RTLREADING | WS_EX_LAYOUTRTL)) != 0) {
            dialog->setLayoutDirection(Qt::RightToLeft);
        }
        if (owner.IsModal(handle)) dialog->setWindowModality(Qt::ApplicationModal);
        area_ = new QScrollArea(dialog);
        area_->setFrameShape(QFrame::NoFrame);
        area_->setFocusPolicy(Qt::NoFocus);
        canvas_ = new QWidget;
        area_->setWidget(canvas_);
        // The dialog paints the ground.
        area_->viewport()->setAutoFillBackground(false);
        canvas_->setAutoFillBackground(false);
        if (kv::KindOf(handle) == "sheet") status_ = new StatusLine(dialog);
        SetWidget(dialog);
    }

    QWidget* Ground() const override { return canvas_; }
    QWidget* GroundFor(HWND child) const override {
        return IsSheetButton(child) ? widget() : canvas_;
    }
    // The buttons of a sheet keep to the window's corner, in the order of the desktop.
    QRect PlaceFor(HWND child) const override {
        if (!IsSheetButton(child)) return Mirror::PlaceFor(child);
        const QSize beyond = widget()->size() - canvas_->size() - QSize(0, BandHeight());
        const bool fromRight = widget()->layoutDirection() == Qt::RightToLeft;
        const RECT place = ButtonPlace(child);
        return Mirrored(place).translated(fromRight ? 0 : beyond.width(), beyond.height());
    }

    void ShowStatus(const QString& text, bool isNews) override {
        if (status_) status_->Say(Directed(text, widget()->layoutDirection()), isNews);
    }

    // The whole window stays on a screen: on that of the corner, else on the one it opens on.
    void OpenAt(const QPoint& corner) override {
        const QScreen* screen = QGuiApplication::screenAt(corner);
        const QRect room = (screen ? screen : widget()->screen())->availableGeometry();
        const QSize beyond = room.size() - widget()->size();
        widget()->move(
            std::clamp(corner.x(), room.left(), room.left() + std::max(0, beyond.width())),
            std::clamp(corner.y(), room.top(), room.top() + std::max(0, beyond.height())));
    }

    void BeginModal() override {
        // Qt takes a change of this only while the window is hidden.
        if (widget()->windowModality() != Qt::NonModal || !widget()->parentWidget()) return;
        widget()->hide();
        widget()->setWindowModality(Qt::ApplicationModal);
        widget()->show();
    }

 protected:
    void SyncState(unsigned changes) override {
        if ((changes & kv::kChangedText) != 0) {
            const QString title = WindowTextOf(window());
            if (widget()->windowTitle() != title) widget()->setWindowTitle(title);
        }
    }

    // The desktop places the window; the core only knows how large it is. What does not fit on the
    // screen scrolls, but for the buttons of a sheet.
    void SyncGeometry() override {
        RECT client{};
        GetClientRect(window(), &client);
        const QSize full = display().scale().Rect(client).size();
        const QSize size = SizeOnScreen(full);
        const QSize canvas = full - QSize(0, BandHeight());
        if (canvas_->size() != canvas) canvas_->resize(canvas);
        const QRect place(QPoint(0, 0), size - QSize(0, BandHeight()));
        if (area_->geometry() != place) area_->setGeometry(place);
        if (widget()->size() == size && widget()->minimumSize() == size) return;
        widget()->setFixedSize(size);
        if (status_) status_->setGeometry(StatusPlace());
        for (int id : kButtonOrders[0].ids) {
            if (const HWND button = GetDlgItem(window(), id)) {
                display().Queue(button, kv::kChangedGeometry);
            }
        }
    }

    // A window behind a modal one is disabled in the core, but not grayed.
    void SyncEnabled() override {}

    QString AccessibleName() const override { return WindowTextOf(window()); }

 private:
    bool IsSheetButton(HWND child) const {
        if (kv::KindOf(window()) != "sheet" || kv::KindOf(child) != "button") return false;
        const auto& ids = kButtonOrders[0].ids;
        return std::find(std::begin(ids), std::end(ids), GetDlgCtrlID(child)) != std::end(ids);
    }

    // The places of the visible buttons from left to right, dealt out in the desktop's order.
    RECT ButtonPlace(HWND child) const {
        std::vector<RECT> places;
        size_t index = 0;
        for (int id : OrderFor(*widget()).ids) {
            const kv::Window* button = kv::WindowFromHandle(GetDlgItem(window(), id));
            if (!button || !button->IsVisibleStyle()) continue;
            if (button->handle == child) index = places.size();
            places.push_back(button->rect);
        }
        std::sort(places.begin(), places.end(),
                  [](const RECT& a, const RECT& b) { return a.left < b.left; });
        if (index < places.size()) return places[index];
        return kv::WindowFromHandle(child)->rect;
    }

    // The room that the buttons leave in their row.
    QRect StatusPlace() const {
        const int margin = display().scale().Length(kSheetMargin);
        QRect row;
        for (int id : kButtonOrders[0].ids) {
            const HWND button = GetDlgItem(window(), id);
            if (button) row |= PlaceFor(button);
        }
        QRect place(margin, row.top(), row.left() - 2 * margin, row.height());
        if (widget()->layoutDirection() == Qt::RightToLeft) {
            place.moveLeft(row.right() + 1 + margin);
            place.setRight(widget()->width() - 1 - margin);
        }
        return place;
    }

    // What lies below the pages of a sheet.
    int BandHeight() const {
        if (kv::KindOf(window()) != "sheet") return 0;
        const auto tabs = reinterpret_cast<HWND>(SendMessageA(window(), PSM_GETTABCONTROL, 0, 0));
        const kv::Window* pane = kv::WindowFromHandle(tabs);
        RECT client{};
        GetClientRect(window(), &client);
        return pane ? display().scale().Length(client.bottom - pane->rect.bottom) : 0;
    }

    // As large as it has to be, and no larger than the screen lets it.
    QSize SizeOnScreen(const QSize& full) const {
        const QStyle& style = *widget()->style();
        const int title = style.pixelMetric(QStyle::PM_TitleBarHeight, nullptr, widget());
        const int frame = style.pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, widget());
        const int bar = style.pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, widget());
        const QSize room =
            widget()->screen()->availableGeometry().size() - QSize(2 * frame, title + 2 * frame);
        QSize size = full;
        if (full.height() > room.height()) size.rwidth() += bar;
        if (full.width() > room.width()) size.rheight() += bar;
        return size.boundedTo(room);
    }

    QScrollArea* area_;
    QWidget* canvas_;
    StatusLine* status_ = nullptr;  // of a sheet
};

// Pages hear of the right button only; a click beside the controls does nothing else.
class PageWidget : public QWidget {
 public:
    PageWidget(QtDisplay& display, HWND window, QWidget* parent)
        : QWidget(parent), mouse_(display, window) {}

 protected:
    void mousePressEvent(QMouseEvent* event) override {
        event->setAccepted(event->button() == Qt::RightButton);
        if (event->isAccepted()) mouse_.Press(*event);
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        event->setAccepted(event->button() == Qt::RightButton);
        if (event->isAccepted()) mouse_.Release(*event, rect());
    }

 private:
    MouseRelay mouse_;
};

class PageMirror : public Mirror {
 public:
    PageMirror(QtDisplay& owner, HWND handle, QWidget* parent) : Mirror(owner, handle) {
        SetWidget(new PageWidget(owner, handle, parent));
    }

 protected:
    void SyncState(unsigned changes) override {
        // Pages stand in front of the tabs' pane.
        if ((changes & kv::kChangedVisible) != 0) widget()->raise();
    }
    // The name of a page is that of its tab; a panel without a caption has none.
    QString AccessibleName() const override { return WindowTextOf(window()); }
};

// A window of a class that the display does not know shows its own picture.
class PaintedWidget : public QWidget {
 public:
    PaintedWidget(QtDisplay& display, HWND window, QWidget* parent)
        : QWidget(parent), mouse_(display, window), window_(window) {
        setMouseTracking(true);
    }

 protected:
    void paintEvent(QPaintEvent*) override {
        const QImage picture = PictureOfWindow(window_, palette().color(QPalette::Window));
        if (picture.isNull()) return;
        QPainter painter(this);
        DrawPicture(painter, rect(), picture);
    }
    void mousePressEvent(QMouseEvent* event) override { mouse_.Press(*event); }
    void mouseReleaseEvent(QMouseEvent* event) override { mouse_.Release(*event, rect()); }
    void mouseDoubleClickEvent(QMouseEvent* event) override { mouse_.DoubleClick(*event); }

 private:
    MouseRelay mouse_;
    HWND window_;
};

class PaintedMirror : public Mirror {
 public:
    PaintedMirror(QtDisplay& owner, HWND handle, QWidget* parent) : Mirror(owner, handle) {
        SetWidget(new PaintedWidget(owner, handle, parent));
    }

 protected:
    void SyncState(unsigned changes) override {
        if ((changes & (kv::kChangedText | kv::kChangedStyle | kv::kChangedEnabled)) != 0)
            Repaint();
    }
};

}  // namespace

MirrorPointer MakeDialogMirror(QtDisplay& display, HWND window, QWidget* parent) {
    return std::make_unique<DialogMirror>(display, window, parent);
}

MirrorPointer MakePageMirror(QtDisplay& display, HWND window, QWidget* parent) {
    return std::make_unique<PageMirror>(display, window, parent);
}

MirrorPointer MakePaintedMirror(QtDisplay& display, HWND window, QWidget* parent) {
    return std::make_unique<PaintedMirror>(display, window, parent);
}

}  // namespace kvqt
