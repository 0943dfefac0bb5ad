// What all mirrors do alike: place, font, enabled state, name for screen readers; and the choice of
// the mirror for a window. See mirror.h.
#include <host/qt/accessible.h>
#include <host/qt/mirror.h>
#include <host/qt/names.h>
#include <platform/window/paint.h>

#include <QFontMetrics>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

#include <array>
#include <string_view>

namespace kvqt {
namespace {

struct Family {
    std::string_view kind;
    MirrorPointer (*make)(QtDisplay&, HWND, QWidget*);
};

// Tooltips have no widget: the display shows them itself.
constexpr Family kFamilies[] = {
    {"sheet", MakeDialogMirror},  {"dialog", MakePageMirror},       {"button", MakeButtonMirror},
    {"static", MakeStaticMirror}, {"edit", MakeEditMirror},         {"combo", MakeComboMirror},
    {"list", MakeListMirror},     {"trackbar", MakeTrackBarMirror}, {"updown", MakeUpDownMirror},
    {"tab", MakeTabMirror},       {"", MakePaintedMirror},
};

// The height of the font for which dialogs are laid out, of 8 points.
constexpr double kDialogFontHeight = 11;

}  // namespace

MirrorPointer MakeMirror(QtDisplay& display, HWND window, QWidget* parent) {
    const kv::Window* record = kv::WindowFromHandle(window);
    if (!record) return nullptr;
    const auto kind = kv::KindOf(window);
    if (!record->parent && kind != "tooltip") return MakeDialogMirror(display, window, parent);
    for (const Family& family : kFamilies) {
        if (family.kind == kind) return family.make(display, window, parent);
    }
    return nullptr;
}

unsigned ModifiersOf(Qt::KeyboardModifiers modifiers) {
    return ((modifiers & Qt::ShiftModifier) != 0 ? 1u : 0u) |
           ((modifiers & Qt::ControlModifier) != 0 ? 2u : 0u) |
           ((modifiers & Qt::AltModifier) != 0 ? 4u : 0u);
}

void DrawFocus(QPaintDevice& device, const QWidget& owner, const QRect& place) {
    if (!owner.hasFocus() || !owner.window()->testAttribute(Qt::WA_KeyboardFocusChange)) return;
    QStyleOptionFocusRect option;
    option.initFrom(&owner);
    option.rect = place;
    option.backgroundColor = owner.palette().color(QPalette::Window);
    QPainter painter(&device);
    owner.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, &owner);
}

QFont FontThatFits(const QFont& font, const QString& text, int width) {
    constexpr int kNarrowest = 75;
    constexpr int kStep = 5;
    QFont fitted = font;
    for (int stretch = 100; stretch >= kNarrowest; stretch -= kStep) {
        fitted.setStretch(stretch);
        const QFontMetrics metrics(fitted);
        if (metrics.size(Qt::TextShowMnemonic, text).width() <= width) break;
    }
    return fitted;
}

Mirror::~Mirror() {
    receiver_.reset();
    if (!widget_) return;
    display_.Unregister(widget_);
    widget_->hide();
    widget_->deleteLater();
}

void Mirror::SetWidget(QWidget* widget) {
    widget_ = widget;
    // By this, tools that drive the window for people find a control whatever its texts say.
    widget->setObjectName(QString::number(GetDlgCtrlID(window_)));
    display_.Register(widget, window_);
}

void Mirror::Repaint() {
    if (!widget_) return;
    SyncColors();
    widget_->update();
    TellPictureChanged(widget_);
}

void Mirror::Show(bool visible) {
    if (widget_ && widget_->isHidden() == visible) widget_->setVisible(visible);
}

void Mirror::Sync(unsigned changes) {
    if (!widget_) return;
    if ((changes & kv::kChangedFont) != 0) SyncFont();
    if ((changes & kv::kChangedGeometry) != 0) SyncGeometry();
    if ((changes & kv::kChangedEnabled) != 0) SyncEnabled();
    SyncState(changes);
    constexpr unsigned kLooks = kv::kChangedEnabled | kv::kChangedStyle | kv::kChangedText;
    if ((changes & kLooks) != 0) SyncColors();
    if ((changes & (kv::kChangedText | kv::kChangedEnabled)) != 0) {
        SyncName();
    }
}

void Mirror::SyncGeometry() {
    const kv::Window* record = kv::WindowFromHandle(window_);
    const Mirror* around = record ? display_.MirrorOf(record->parent) : nullptr;
    if (!around || !around->widget_) return;
    const QRect rect = around->PlaceFor(window_);
    if (widget_->geometry() != rect) widget_->setGeometry(rect);
}

QRect Mirror::PlaceFor(HWND child) const {
    const kv::Window* inner = kv::WindowFromHandle(child);
    return inner ? Mirrored(inner->rect) : QRect();
}

QRect Mirror::Mirrored(const RECT& place) const {
    QRect rect = display_.scale().Rect(place);
    if (widget_->layoutDirection() == Qt::RightToLeft) {
        const kv::Window* own = kv::WindowFromHandle(window_);
        const int width = display_.scale().Length(own->rect.right - own->rect.left);
        rect.moveLeft(width - rect.left() - rect.width());
    }
    return rect;
}

void Mirror::SyncEnabled() {
    const bool enabled = (Style() & WS_DISABLED) == 0;
    if (widget_->testAttribute(Qt::WA_ForceDisabled) == enabled) widget_->setEnabled(enabled);
}

void Mirror::SyncColors() {
    const kv::ControlColors colors = kv::ColorsOf(window_);
    const bool any = colors.text || colors.face;
    if (!widget_ || (!any && !coloured_)) return;
    coloured_ = any;
    if (!any) return widget_->setPalette(QPalette());
    const auto from = [](COLORREF color) {
        return QColor(GetRValue(color), GetGValue(color), GetBValue(color));
    };
    QPalette palette;
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText}) {
        if (!colors.text) break;
        palette.setColor(QPalette::Active, role, from(*colors.text));
        palette.setColor(QPalette::Inactive, role, from(*colors.text));
    }
    for (const QPalette::ColorRole role : {QPalette::Base, QPalette::Window}) {
        if (colors.face) palette.setColor(role, from(*colors.face));
    }
    if (colors.face) widget_->setAutoFillBackground(true);
    widget_->setPalette(palette);
}

void Mirror::SyncName() {
    const QString name = AccessibleName();
    if (widget_->accessibleName() != name) widget_->setAccessibleName(name);
    const QString description = DescriptionOf(window_);
    if (widget_->accessibleDescription() != description) {
        widget_->setAccessibleDescription(description);
    }
    // The nearest control to a label is the one that it belongs to.
    const HWND label = LabelOf(window_);
    const Mirror* before = label ? display_.MirrorOf(label) : nullptr;
    auto* text = before ? qobject_cast<QLabel*>(before->widget()) : nullptr;
    if (text && !text->buddy()) text->setBuddy(widget_);
}

QString Mirror::AccessibleName() const {
    return NameOf(window_);
}

// A control with a font of its own differs from the desktop's font as that one differs from the
// font of dialogs.
void Mirror::SyncFont() {
    const kv::Window* record = kv::WindowFromHandle(window_);
    const kv::Window* parent = record ? kv::WindowFromHandle(record->parent) : nullptr;
    if (!parent || !record->font || record->font == parent->font || widget_->isWindow()) return;
    LOGFONTA own{};
    if (!GetObjectA(record->font, sizeof own, &own)) return;
    QFont font = widget_->parentWidget()->font();
    const double height = own.lfHeight < 0 ? -own.lfHeight : kDialogFontHeight;
    if (font.pointSizeF() > 0) font.setPointSizeF(font.pointSizeF() * height / kDialogFontHeight);
    font.setBold(own.lfWeight >= FW_BOLD);
    font.setItalic(own.lfItalic != 0);
    font.setUnderline(own.lfUnderline != 0);
    widget_->setFont(font);
}

}  // namespace kvqt
