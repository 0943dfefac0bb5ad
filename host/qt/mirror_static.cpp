// Labels, frames, icons and pictures, and statics that draw themselves or are drawn by their
// parent.
#include <host/qt/mirror.h>
#include <host/qt/mouse.h>
#include <host/qt/picture.h>
#include <platform/dialog/message_box.h>
#include <platform/window/paint.h>

#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QToolTip>

#include <utility>

namespace kvqt {
namespace {

struct MessageIcon {
    UINT type;
    QStyle::StandardPixmap pixmap;
};
constexpr MessageIcon kMessageIcons[] = {
    {MB_ICONHAND, QStyle::SP_MessageBoxCritical},
    {MB_ICONQUESTION, QStyle::SP_MessageBoxQuestion},
    {MB_ICONEXCLAMATION, QStyle::SP_MessageBoxWarning},
    {MB_ICONASTERISK, QStyle::SP_MessageBoxInformation},
};

constexpr MessageIcon kNoIcon{0, QStyle::SP_CustomBase};

const MessageIcon& IconOfBox(HWND window) {
    UINT type = 0;
    if (!kv::GetMessageBoxType(GetParent(window), &type)) return kNoIcon;
    for (const MessageIcon& icon : kMessageIcons) {
        if (icon.type == (type & MB_ICONMASK)) return icon;
    }
    return kNoIcon;
}

// A QLabel for screen readers; what it looks like is decided when it is painted, because a window
// can begin to draw itself at any time.
class StaticWidget : public QLabel {
 public:
    StaticWidget(QtDisplay& display, HWND window, QWidget* parent)
        : QLabel(parent), mouse_(display, window), window_(window) {
        setTextFormat(Qt::PlainText);
        setContextMenuPolicy(Qt::PreventContextMenu);
    }

    void SetClickable(bool clickable) {
        setAttribute(Qt::WA_TransparentForMouseEvents, !clickable);
        setMouseTracking(clickable);
    }

 protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent* event) override { mouse_.Press(*event); }
    void mouseReleaseEvent(QMouseEvent* event) override { mouse_.Release(*event, rect()); }
    void mouseDoubleClickEvent(QMouseEvent* event) override { mouse_.DoubleClick(*event); }

 private:
    void DrawText(QPainter& painter, DWORD style);
    void DrawIcon(QPainter& painter, DWORD style);
    void DrawBitmap(QPainter& painter, DWORD style);
    QRect PlaceFor(QSize picture, DWORD style) const;

    MouseRelay mouse_;
    HWND window_;
};

void StaticWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QImage picture = PictureOfWindow(window_, palette().color(QPalette::Window));
    if (!picture.isNull()) return DrawPicture(painter, rect(), picture);
    const DWORD style = StyleOf(window_);
    // A sample of colour is a static that its parent fills.
    if (const auto face = kv::ColorsOf(window_).face) {
        painter.fillRect(rect(), QColor(GetRValue(*face), GetGValue(*face), GetBValue(*face)));
    }
    QStyleOptionFrame frame;
    frame.initFrom(this);
    if ((style & SS_SUNKEN) != 0) {
        frame.lineWidth = 1;
        frame.frameShape = QFrame::Panel;
        frame.state |= QStyle::State_Sunken;
        this->style()->drawControl(QStyle::CE_ShapedFrame, &frame, &painter, this);
    }
    switch (style & SS_TYPEMASK) {
        case SS_ICON:
            return DrawIcon(painter, style);
        case SS_BITMAP:
            return DrawBitmap(painter, style);
        case SS_BLACKFRAME:
        case SS_ETCHEDFRAME:
        case SS_ETCHEDHORZ:
            frame.lineWidth = 1;
            frame.frameShape = (style & SS_TYPEMASK) == SS_ETCHEDHORZ ? QFrame::HLine : QFrame::Box;
            frame.state |= QStyle::State_Sunken;
            return this->style()->drawControl(QStyle::CE_ShapedFrame, &frame, &painter, this);
        default:
            return DrawText(painter, style);
    }
}

void StaticWidget::DrawText(QPainter& painter, DWORD style) {
    int flags = (style & SS_CENTERIMAGE) != 0 ? Qt::AlignVCenter : Qt::AlignTop;
    switch (style & SS_TYPEMASK) {
        case SS_CENTER:
            flags |= Qt::AlignHCenter;
            break;
        case SS_RIGHT:
            flags |= Qt::AlignRight;
            break;
        default:
            flags |= Qt::AlignLeft;
            break;
    }
    flags = static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::Alignment(flags)));
    const QFontMetrics metrics = fontMetrics();
    const bool oneLine =
        (style & SS_TYPEMASK) == SS_LEFTNOWORDWRAP || height() < 2 * metrics.lineSpacing();
    if ((style & SS_NOPREFIX) == 0) {
        const bool shown = this->style()->styleHint(QStyle::SH_UnderlineShortcut, nullptr, this);
        flags |= shown ? Qt::TextShowMnemonic : Qt::TextHideMnemonic;
    }
    const QString shownText = Directed(text(), layoutDirection());
    QRect area = rect();
    if (oneLine) {
        painter.setFont(FontThatFits(font(), shownText, width()));
        const int line = QFontMetrics(painter.font()).height();
        // A line that is a little higher than its box hangs over evenly.
        if (line > area.height()) area.adjust(0, (area.height() - line) / 2, 0, 0);
        flags |= Qt::TextSingleLine;
    } else {
        flags |= Qt::TextWordWrap;
        const QRect needed = metrics.boundingRect(area, flags, shownText);
        if (needed.height() > area.height()) {
            QFont narrow = font();
            narrow.setStretch(90);
            painter.setFont(narrow);
        }
    }
    this->style()->drawItemText(&painter, area, flags, palette(), isEnabled(), shownText,
                                foregroundRole());
}

QRect StaticWidget::PlaceFor(QSize picture, DWORD style) const {
    QRect place(QPoint(0, 0), picture);
    if ((style & SS_CENTERIMAGE) != 0) place.moveCenter(rect().center());
    if (layoutDirection() == Qt::RightToLeft && (style & SS_CENTERIMAGE) == 0) {
        place.moveRight(rect().right());
    }
    return place;
}

void StaticWidget::DrawIcon(QPainter& painter, DWORD style) {
    const MessageIcon& standard = IconOfBox(window_);
    if (standard.type) {
        this->style()->standardIcon(standard.pixmap, nullptr, this).paint(&painter, rect());
        return;
    }
    const auto icon = reinterpret_cast<HICON>(SendMessageA(window_, STM_GETICON, 0, 0));
    RECT client{};
    GetClientRect(window_, &client);
    const QSize core = SizeOf(icon);
    if (core.isEmpty() || client.right <= 0) return;
    const QSize size = (QSizeF(core) * width() / client.right).toSize();
    const double ratio = painter.device()->devicePixelRatioF();
    DrawPicture(painter, PlaceFor(size, style), PictureOf(icon, (QSizeF(size) * ratio).toSize()));
}

void StaticWidget::DrawBitmap(QPainter& painter, DWORD style) {
    const auto bitmap =
        reinterpret_cast<HBITMAP>(SendMessageA(window_, STM_GETIMAGE, IMAGE_BITMAP, 0));
    const QImage picture = PictureOf(bitmap);
    RECT client{};
    GetClientRect(window_, &client);
    if (picture.isNull() || client.right <= 0) return;
    const double factor = static_cast<double>(width()) / client.right;
    DrawPicture(painter, PlaceFor((QSizeF(picture.size()) * factor).toSize(), style), picture);
}

class StaticMirror : public Mirror {
 public:
    StaticMirror(QtDisplay& owner, HWND handle, QWidget* parent) : Mirror(owner, handle) {
        auto* label = new StaticWidget(owner, handle, parent);
        const DWORD type = TypeOf(handle, SS_TYPEMASK);
        // What stands in a frame is in front of it.
        if (type == SS_BLACKFRAME || type == SS_ETCHEDFRAME || type == SS_ETCHEDHORZ ||
            (Style() & SS_SUNKEN) != 0) {
            label->lower();
        }
        SetWidget(label);
    }

 protected:
    void SyncState(unsigned changes) override {
        auto* label = static_cast<StaticWidget*>(widget());
        if ((changes & kv::kChangedStyle) != 0) label->SetClickable((Style() & SS_NOTIFY) != 0);
        if ((changes & kv::kChangedText) != 0) {
            const QString text = WindowTextOf(window());
            if (label->text() != text) {
                label->setText(text);
                RenameNext();
            }
        }
        if ((changes & (kv::kChangedImage | kv::kChangedStyle)) != 0) label->update();
    }

 private:
    // The controls behind a label are called after it.
    void RenameNext() {
        HWND next = GetWindow(window(), GW_HWNDNEXT);
        for (; next && kv::KindOf(next) != "static"; next = GetWindow(next, GW_HWNDNEXT)) {
            if (display().MirrorOf(next)) display().Queue(next, kv::kChangedText);
        }
    }
};

}  // namespace

MirrorPointer MakeStaticMirror(QtDisplay& display, HWND window, QWidget* parent) {
    return std::make_unique<StaticMirror>(display, window, parent);
}

}  // namespace kvqt
