// Roles, names, values and relations beyond those of Qt's widgets, see accessible.h.
#include <host/qt/accessible.h>
#include <host/qt/mirror.h>
#include <host/qt/names.h>
#include <host/qt/picture.h>
#include <platform/window/input.h>
#include <platform/window/window.h>

#include <commctrl.h>

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>

namespace kvqt {
namespace {

const QtDisplay* described = nullptr;

// Labels, lines and pictures. What a static is can change at any time: it may begin to draw itself.
class StaticInterface : public QAccessibleWidget {
 public:
    StaticInterface(QWidget* widget, HWND window) : QAccessibleWidget(widget), window_(window) {}

    QAccessible::Role role() const override {
        switch (TypeOf(window_, SS_TYPEMASK)) {
            case SS_ICON:
            case SS_BITMAP:
                return QAccessible::Graphic;
            case SS_ETCHEDHORZ:
            case SS_ETCHEDFRAME:
            case SS_BLACKFRAME:
                return QAccessible::Separator;
            default:
                return DrawsItself(window_) ? QAccessible::Graphic : QAccessible::StaticText;
        }
    }

    // Asked for afresh: what a picture shows changes without its window's text being set.
    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Name) return NameOf(window_);
        if (kind == QAccessible::Description) return DescriptionOf(window_);
        return QAccessibleWidget::text(kind);
    }

    // An empty static holds a place on the page that nothing is shown in.
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        const auto kind = role();
        const bool blank = kind == QAccessible::StaticText && WindowTextOf(window_).isEmpty();
        if (blank || kind == QAccessible::Separator) state.invisible = true;
        return state;
    }

    QVector<QPair<QAccessibleInterface*, QAccessible::Relation>> relations(
        QAccessible::Relation match) const override {
        auto found = QAccessibleWidget::relations(match);
        const auto* label = qobject_cast<QLabel*>(widget());
        if (label && label->buddy() && match.testFlag(QAccessible::Labelled)) {
            found.append(
                {QAccessible::queryAccessibleInterface(label->buddy()), QAccessible::Labelled});
        }
        return found;
    }

 private:
    HWND window_;
};

// A frame without a caption is mere decoration.
class FrameInterface : public QAccessibleWidget {
 public:
    FrameInterface(QWidget* widget, HWND window)
        : QAccessibleWidget(widget, QAccessible::Grouping), window_(window) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        if (WindowTextOf(window_).isEmpty()) state.invisible = true;
        return state;
    }

 private:
    HWND window_;
};

// Combo boxes whose name is what they are called, not the chosen entry.
class ComboInterface : public QAccessibleWidget {
 public:
    explicit ComboInterface(QComboBox* combo)
        : QAccessibleWidget(combo, QAccessible::ComboBox), combo_(combo) {
        // Screen readers learn what is chosen from the list, which Qt tells only when it opens.
        const auto tellList = [combo] {
            const auto chosen = combo->model()->index(combo->currentIndex(), combo->modelColumn());
            combo->view()->setCurrentIndex(chosen);
        };
        tellList();
        QObject::connect(combo, &QComboBox::currentIndexChanged, combo, tellList);
    }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? combo_->currentText() : QAccessibleWidget::text(kind);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = combo_->view()->isVisible();
        state.collapsed = !state.expanded;
        state.editable = combo_->isEditable();
        return state;
    }

    int childCount() const override { return combo_->isEditable() ? 2 : 1; }
    QAccessibleInterface* child(int index) const override {
        QWidget* child = combo_->view();
        if (index != 0) child = combo_->lineEdit();
        return child ? QAccessible::queryAccessibleInterface(child) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        if (child->object() == combo_->view()) return 0;
        return combo_->isEditable() && child->object() == static_cast<QObject*>(combo_->lineEdit())
                   ? 1
                   : -1;
    }

    QStringList actionNames() const override { return {showMenuAction(), pressAction()}; }
    void doAction(const QString& action) override {
        if (!combo_->isEnabled() || !actionNames().contains(action)) return;
        if (combo_->view()->isVisible()) {
            combo_->hidePopup();
        } else {
            combo_->showPopup();
        }
    }

 private:
    QComboBox* combo_;
};

// The arrows turn the number of their edit.
class ArrowsInterface : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
    ArrowsInterface(QWidget* widget, HWND window)
        : QAccessibleWidget(widget, QAccessible::SpinBox), window_(window) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::ValueInterface) {
            return static_cast<QAccessibleValueInterface*>(this);
        }
        return QAccessibleWidget::interface_cast(type);
    }

    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Value) return WindowTextOf(Edit());
        return QAccessibleWidget::text(kind);
    }

    QVariant currentValue() const override {
        return static_cast<int>(SendMessageA(window_, UDM_GETPOS32, 0, 0));
    }
    void setCurrentValue(const QVariant& value) override {
        const int notches = value.toInt() - currentValue().toInt();
        if (notches != 0) kv::input::Step(window_, notches);
    }
    QVariant minimumValue() const override { return Range().first; }
    QVariant maximumValue() const override { return Range().second; }
    QVariant minimumStepSize() const override { return 1; }

    QVector<QPair<QAccessibleInterface*, QAccessible::Relation>> relations(
        QAccessible::Relation match) const override {
        auto found = QAccessibleWidget::relations(match);
        const Mirror* edit = described ? described->MirrorOf(Edit()) : nullptr;
        if (edit && edit->widget() && match.testFlag(QAccessible::Controlled)) {
            found.append(
                {QAccessible::queryAccessibleInterface(edit->widget()), QAccessible::Controlled});
        }
        return found;
    }

 private:
    HWND Edit() const { return reinterpret_cast<HWND>(SendMessageA(window_, UDM_GETBUDDY, 0, 0)); }
    std::pair<int, int> Range() const {
        int least = 0;
        int most = 0;
        SendMessageA(window_, UDM_GETRANGE32, reinterpret_cast<WPARAM>(&least),
                     reinterpret_cast<LPARAM>(&most));
        return {least, most};
    }

    HWND window_;
};

// A page is called as its tab; a panel on a page only holds controls.
QAccessibleInterface* InterfaceOfContainer(QWidget* widget) {
    const bool page = !widget->accessibleName().isEmpty();
    return new QAccessibleWidget(widget, page ? QAccessible::PropertyPage : QAccessible::Pane);
}

QAccessibleInterface* Describe(const QString&, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    if (!described || !widget) return nullptr;
    const HWND window = described->WindowOf(widget);
    const Mirror* mirror = window ? described->MirrorOf(window) : nullptr;
    if (!mirror || mirror->widget() != widget || widget->isWindow()) return nullptr;
    const auto kind = kv::KindOf(window);
    if (kind == "static") return new StaticInterface(widget, window);
    if (qobject_cast<QGroupBox*>(widget)) return new FrameInterface(widget, window);
    if (auto* combo = qobject_cast<QComboBox*>(widget)) return new ComboInterface(combo);
    if (kind == "updown") return new ArrowsInterface(widget, window);
    if (kind == "dialog") return InterfaceOfContainer(widget);
    if (kind.empty()) return new QAccessibleWidget(widget, QAccessible::Graphic);
    return nullptr;
}

}  // namespace

void DescribeDisplay(const QtDisplay* display) {
    if (described) QAccessible::removeFactory(Describe);
    described = display;
    if (described) QAccessible::installFactory(Describe);
}

void TellPictureChanged(QWidget* widget) {
    if (!QAccessible::isActive() || !widget || !widget->isVisible()) return;
    QAccessibleEvent event(widget, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

}  // namespace kvqt
