// Push buttons, check boxes, radio buttons, group boxes and owner-drawn buttons.
#include <host/qt/mirror.h>
#include <host/qt/mouse.h>
#include <host/qt/picture.h>
#include <platform/window/input.h>

#include <QButtonGroup>
#include <QCheckBox>
#include <QGuiApplication>
#include <QGroupBox>
#include <QStyleOptionGroupBox>
#include <QStylePainter>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>

namespace kvqt {
namespace {

// Room that frames and indicators take from a caption, in widths of the letter x.
constexpr int kPushMargin = 2;
constexpr int kIndicator = 4;

// A push button whose focus shows also where the style marks default buttons the same way.
class PushButton : public QPushButton {
 public:
    explicit PushButton(QWidget* parent) : QPushButton(parent) { setAutoDefault(false); }

 protected:
    void paintEvent(QPaintEvent* event) override {
        QPushButton::paintEvent(event);
        QStyleOptionButton button;
        initStyleOption(&button);
        const QRect inside = style()->subElementRect(QStyle::SE_PushButtonFocusRect, &button, this);
        DrawFocus(*this, *this, inside);
    }
};

// An owner-drawn button: the parent's picture, the desktop's behaviour.
class PaintedButton : public QPushButton {
 public:
    PaintedButton(HWND window, QWidget* parent) : QPushButton(parent), window_(window) {
        setAutoDefault(false);
        setMouseTracking(true);
    }

 protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        DrawButton(painter, rect(), window_,
                   {0, palette().color(QPalette::Window), layoutDirection(), font()});
        DrawFocus(*this, *this, rect());
    }

 private:
    HWND window_;
};

class ButtonMirror : public Mirror {
 public:
    ButtonMirror(QtDisplay& owner, HWND handle, QAbstractButton* button)
        : Mirror(owner, handle), button_(button) {
        SetWidget(button);
        // The click itself takes the focus, in the core's order of events.
        button->setFocusPolicy(Qt::TabFocus);
        button->setContextMenuPolicy(Qt::PreventContextMenu);
        QObject::connect(button, &QAbstractButton::clicked, button, [&owner, handle] {
            const unsigned modifiers = ModifiersOf(QGuiApplication::keyboardModifiers());
            owner.Act(handle, [handle, modifiers] { kv::input::Click(handle, modifiers); });
        });
    }

 protected:
    void SyncState(unsigned changes) override {
        if ((changes & (kv::kChangedText | kv::kChangedGeometry | kv::kChangedFont)) != 0) {
            SyncText();
        }
        if ((changes & kv::kChangedCheck) != 0 && button_->isCheckable()) {
            const bool checked = Ask(BM_GETCHECK) == BST_CHECKED;
            if (button_->isChecked() != checked) button_->setChecked(checked);
        }
        if ((changes & kv::kChangedStyle) != 0) SyncDefault();
    }

 private:
    void SyncText() {
        const QString text = Directed(WindowTextOf(window()), button_->layoutDirection());
        if (button_->text() != text) button_->setText(text);
        const int letter = button_->fontMetrics().averageCharWidth();
        const int margin = letter * (button_->isCheckable() ? kIndicator : kPushMargin);
        const QFont plain = button_->parentWidget()->font();
        if (button_->font().stretch() != QFont::AnyStretch) button_->setFont(plain);
        const QFont fitted = FontThatFits(button_->font(), text, button_->width() - margin);
        if (fitted.stretch() < QFont::Unstretched) button_->setFont(fitted);
    }

    void SyncDefault() {
        auto* push = qobject_cast<QPushButton*>(button_);
        if (!push) return;
        const bool marked = TypeOf(window(), BS_TYPEMASK) == BS_DEFPUSHBUTTON;
        if (push->isDefault() != marked) push->setDefault(marked);
    }

    QAbstractButton* button_;
};

// Styles give a title that is read from right to left no more room than a letter; it is drawn here
// above the frame, where the painter turns left to right.
class GroupBox : public QGroupBox {
 public:
    using QGroupBox::QGroupBox;

 protected:
    void paintEvent(QPaintEvent* event) override {
        if (layoutDirection() != Qt::RightToLeft) return QGroupBox::paintEvent(event);
        QStyleOptionGroupBox option;
        initStyleOption(&option);
        option.subControls = QStyle::SC_GroupBoxFrame;
        QStylePainter painter(this);
        painter.drawComplexControl(QStyle::CC_GroupBox, option);
        painter.drawItemText(QRect(0, 0, width(), fontMetrics().height()),
                             Qt::AlignLeft | Qt::AlignTop | Qt::TextShowMnemonic, palette(),
                             isEnabled(), title(), QPalette::WindowText);
    }
};

// A frame around its siblings, behind them.
class GroupMirror : public Mirror {
 public:
    GroupMirror(QtDisplay& owner, HWND handle, QWidget* parent) : Mirror(owner, handle) {
        auto* group = new GroupBox(parent);
        group->setAttribute(Qt::WA_TransparentForMouseEvents);
        group->lower();
        SetWidget(group);
    }

 protected:
    void SyncState(unsigned changes) override {
        if ((changes & kv::kChangedText) == 0) return;
        auto* group = static_cast<QGroupBox*>(widget());
        const QString title = Directed(WindowTextOf(window()), group->layoutDirection());
        if (group->title() != title) group->setTitle(title);
    }
};

QAbstractButton* MakeButton(HWND window, QWidget* parent) {
    switch (TypeOf(window, BS_TYPEMASK)) {
        case BS_CHECKBOX:
        case BS_AUTOCHECKBOX:
            return new QCheckBox(parent);
        case BS_RADIOBUTTON:
        case BS_AUTORADIOBUTTON: {
            auto* radio = new QRadioButton(parent);
            // The core knows which buttons form a group; in a group of one none takes another's
            // check away, and the button still counts as a radio button for screen readers.
            auto* alone = new QButtonGroup(radio);
            alone->setExclusive(false);
            alone->addButton(radio);
            return radio;
        }
        case BS_OWNERDRAW:
            return new PaintedButton(window, parent);
        default:
            return new PushButton(parent);
    }
}

}  // namespace

MirrorPointer MakeButtonMirror(QtDisplay& display, HWND window, QWidget* parent) {
    if (TypeOf(window, BS_TYPEMASK) == BS_GROUPBOX) {
        return std::make_unique<GroupMirror>(display, window, parent);
    }
    return std::make_unique<ButtonMirror>(display, window, MakeButton(window, parent));
}

}  // namespace kvqt
