// Property sheets, dialogs and message boxes as dialogs of the desktop; pages and other containers;
// windows of classes that draw themselves.
#include <host/qt/mirror.h>
#include <host/qt/mouse.h>
#include <host/qt/picture.h>
#include <platform/dialog/message_box.h>
#include <platform/window/input.h>

#include <prsht.h>

#include <QCloseEvent>
#include <QDialog>
#include <QDialogButtonBox>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace kvqt {
namespace {

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
        SetWidget(dialog);
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
        if (kv::KindOf(window()) == "sheet" && (changes & kv::kChangedGeometry) != 0) {
            // Its buttons change places when all of them are there.
            display().Queue(window(), kv::kChangedOrder);
        }
        if ((changes & kv::kChangedOrder) != 0) ArrangeButtons();
    }

    // The desktop places the window; the core only knows how large it is.
    void SyncGeometry() override {
        RECT client{};
        GetClientRect(window(), &client);
        const QSize size = display().scale().Rect(client).size();
        if (widget()->size() != size || widget()->minimumSize() != size) {
            widget()->setFixedSize(size);
        }
    }

    // A window behind a modal one is disabled in the core, but not grayed.
    void SyncEnabled() override {}

    QString AccessibleName() const override { return WindowTextOf(window()); }

 private:
    void ArrangeButtons() {
        if (kv::KindOf(window()) != "sheet") return;
        std::vector<QWidget*> buttons;
        for (int id : OrderFor(*widget()).ids) {
            const HWND button = GetDlgItem(window(), id);
            const Mirror* mirror = button ? display().MirrorOf(button) : nullptr;
            if (mirror && mirror->widget()) buttons.push_back(mirror->widget());
        }
        std::vector<QPoint> places;
        for (const QWidget* button : buttons) places.push_back(button->pos());
        const bool fromRight = widget()->layoutDirection() == Qt::RightToLeft;
        std::sort(places.begin(), places.end(), [fromRight](const QPoint& a, const QPoint& b) {
            return fromRight ? a.x() > b.x() : a.x() < b.x();
        });
        for (size_t i = 0; i < buttons.size(); ++i) {
            if (buttons[i]->pos() != places[i]) buttons[i]->move(places[i]);
        }
    }
};

class PageMirror : public Mirror {
 public:
    PageMirror(QtDisplay& owner, HWND handle, QWidget* parent) : Mirror(owner, handle) {
        SetWidget(new QWidget(parent));
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
