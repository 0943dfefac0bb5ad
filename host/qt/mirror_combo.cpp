// Combo boxes, with entries of text or drawn by their owner.
#include <host/qt/mirror.h>
#include <host/qt/picture.h>
#include <platform/window/input.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QPainter>
#include <QStyleOptionComboBox>
#include <QStyledItemDelegate>
#include <QStylePainter>
#include <QTimer>
#include <QWheelEvent>

#include <algorithm>

namespace kvqt {
namespace {

constexpr int kVisibleEntries = 16;
constexpr int kFieldItem = -1;

bool IsOwnerDrawn(HWND combo) {
    return (StyleOf(combo) & (CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE)) != 0;
}

class EntryDelegate : public QStyledItemDelegate {
 public:
    EntryDelegate(const QtDisplay& display, HWND combo, QObject* parent)
        : QStyledItemDelegate(parent), display_(display), combo_(combo) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        UINT state = 0;
        if ((option.state & (QStyle::State_Selected | QStyle::State_MouseOver)) != 0) {
            state |= ODS_SELECTED;
        }
        if ((option.state & QStyle::State_Enabled) == 0) state |= ODS_DISABLED;
        const ItemLook look{state, option.palette.color(QPalette::Base), option.direction,
                            option.font};
        if (DrawItem(*painter, option.rect, combo_, index.row(), look)) return;
        QStyledItemDelegate::paint(painter, option, index);
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        const QSize size = QStyledItemDelegate::sizeHint(option, index);
        if (!IsOwnerDrawn(combo_)) return size;
        const LRESULT height = SendMessageA(combo_, CB_GETITEMHEIGHT, 0, 0);
        return {size.width(), display_.scale().Length(static_cast<LONG>(height))};
    }

 private:
    const QtDisplay& display_;
    HWND combo_;
};

class ComboWidget : public QComboBox {
 public:
    ComboWidget(QtDisplay& display, HWND window, QWidget* parent)
        : QComboBox(parent), display_(display), window_(window) {}

    // The user's wish; the list appears when the core has opened the box.
    void showPopup() override {
        if (display_.syncing()) return;
        display_.Act(window_, [this] { kv::input::DropDown(window_, true); });
    }

    // Called before the chosen entry is reported, so it is too early to call it a cancellation.
    void hidePopup() override {
        QComboBox::hidePopup();
        if (!std::exchange(open_, false) || display_.syncing()) return;
        QTimer::singleShot(0, this, [this] {
            if (open_ || !SendMessageA(window_, CB_GETDROPPEDSTATE, 0, 0)) return;
            display_.Act(window_, [this] { kv::input::DropDown(window_, false); });
        });
    }

    void SyncPopup() {
        const bool dropped = SendMessageA(window_, CB_GETDROPPEDSTATE, 0, 0) != 0;
        if (dropped == open_) return;
        open_ = dropped;
        if (dropped) {
            const int needed = view()->sizeHintForColumn(0) +
                               style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
            view()->setAccessibleName(accessibleName());
            view()->setMinimumWidth(std::max(needed, width()));
            QComboBox::showPopup();
        } else {
            QComboBox::hidePopup();
        }
    }

 protected:
    void paintEvent(QPaintEvent* event) override {
        if (isEditable()) return QComboBox::paintEvent(event);
        QStylePainter painter(this);
        QStyleOptionComboBox option;
        initStyleOption(&option);
        painter.drawComplexControl(QStyle::CC_ComboBox, option);
        const QRect field = style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                    QStyle::SC_ComboBoxEditField, this);
        if (!IsOwnerDrawn(window_)) {
            // The opened list shows the whole text.
            option.currentText =
                Directed(fontMetrics().elidedText(currentText(), Qt::ElideRight, field.width() - 2),
                         layoutDirection());
            painter.drawControl(QStyle::CE_ComboBoxLabel, option);
            return;
        }
        const UINT state = (isEnabled() ? 0 : ODS_DISABLED) | (hasFocus() ? ODS_FOCUS : 0);
        DrawItem(painter, field, window_, kFieldItem,
                 {state, palette().color(QPalette::Button), layoutDirection(), font()});
    }

    // Scrolling a page must not change what the pointer happens to pass.
    void wheelEvent(QWheelEvent* event) override {
        event->accept();
        if (!hasFocus() || event->angleDelta().y() == 0) return;
        const int key = event->angleDelta().y() > 0 ? VK_UP : VK_DOWN;
        display_.Act(window_, [key] { kv::input::Key(key); });
    }

 private:
    QtDisplay& display_;
    HWND window_;
    bool open_ = false;
};

class ComboMirror : public Mirror {
 public:
    ComboMirror(QtDisplay& owner, HWND handle, QWidget* parent) : Mirror(owner, handle) {
        combo_ = new ComboWidget(owner, handle, parent);
        const bool hasField = TypeOf(handle, CBS_DROPDOWNLIST) != CBS_DROPDOWNLIST;
        combo_->setEditable(hasField);
        combo_->setInsertPolicy(QComboBox::NoInsert);
        combo_->setFocusPolicy(hasField ? Qt::StrongFocus : Qt::TabFocus);
        combo_->setMaxVisibleItems(kVisibleEntries);
        combo_->setItemDelegate(new EntryDelegate(owner, handle, combo_));
        SetWidget(combo_);
        QObject::connect(combo_, &QComboBox::activated, combo_, [&owner, handle](int index) {
            owner.Act(handle, [handle, index] { kv::input::Choose(handle, index); });
        });
        if (!hasField) return;
        combo_->setCompleter(nullptr);
        QObject::connect(combo_->lineEdit(), &QLineEdit::textEdited, Receiver(),
                         [this](const QString& text) { Report(text); });
    }

 protected:
    void SyncState(unsigned changes) override {
        if ((changes & kv::kChangedItems) != 0) SyncItems();
        if ((changes & (kv::kChangedItems | kv::kChangedSelection)) != 0) SyncSelection();
        if ((changes & (kv::kChangedText | kv::kChangedItems | kv::kChangedSelection)) != 0) {
            SyncField();
        }
        if ((changes & kv::kChangedDropped) != 0) combo_->SyncPopup();
    }

 private:
    QStringList Entries() const {
        QStringList entries;
        const LRESULT count = Ask(CB_GETCOUNT);
        const bool texts = !IsOwnerDrawn(window()) || (Style() & CBS_HASSTRINGS) != 0;
        std::string text;
        for (LRESULT i = 0; i < count; ++i) {
            const auto index = static_cast<WPARAM>(i);
            const LRESULT length = texts ? Ask(CB_GETLBTEXTLEN, index) : 0;
            text.assign(static_cast<size_t>(std::max<LRESULT>(length, 0)) + 1, '\0');
            if (texts) Ask(CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text.data()));
            text.pop_back();
            entries += FromAnsi(text);
        }
        return entries;
    }

    void SyncItems() {
        const QStringList entries = Entries();
        bool same = combo_->count() == entries.size();
        for (int i = 0; same && i < combo_->count(); ++i) same = combo_->itemText(i) == entries[i];
        if (same) return;
        combo_->clear();
        combo_->addItems(entries);
    }

    void SyncSelection() {
        const int selected = static_cast<int>(Ask(CB_GETCURSEL));
        if (combo_->currentIndex() != selected) combo_->setCurrentIndex(selected);
        if (IsOwnerDrawn(window())) combo_->update();
    }

    void SyncField() {
        if (!combo_->isEditable()) return;
        const QString text = WindowTextOf(window());
        if (combo_->lineEdit()->text() != text) combo_->lineEdit()->setText(text);
    }

    void Report(const QString& text) {
        const std::string ansi = ToAnsi(text);
        const int caret =
            std::min(combo_->lineEdit()->cursorPosition(), static_cast<int>(ansi.size()));
        display().Act(window(), [window = window(), &ansi, caret] {
            kv::input::SetEditText(window, ansi, caret, caret);
        });
    }

    ComboWidget* combo_;
};

}  // namespace

MirrorPointer MakeComboMirror(QtDisplay& display, HWND window, QWidget* parent) {
    return std::make_unique<ComboMirror>(display, window, parent);
}

}  // namespace kvqt
