// List boxes, with columns at tab stops and every kind of selection.
#include <host/qt/mirror.h>
#include <host/qt/picture.h>
#include <platform/controls/control_input.h>
#include <platform/window/input.h>

#include <QListWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>
#include <vector>

namespace kvqt {
namespace {

constexpr size_t kMostTabStops = 32;
// Tab stops are in dialog units, four to a character of six pixels.
constexpr double kPixelsPerUnit = 6.0 / 4.0;
// Without tab stops of its own a list has one every 32 units.
constexpr int kUsualTabStop = 32;
constexpr int kTextMargin = 3;

bool IsOwnerDrawn(HWND list) {
    return (StyleOf(list) & LBS_OWNERDRAWFIXED) != 0;
}

class ListDelegate : public QStyledItemDelegate {
 public:
    ListDelegate(const QtDisplay& display, HWND list, QObject* parent)
        : QStyledItemDelegate(parent), display_(display), list_(list) {}

    std::vector<int> stops;  // in widget pixels

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        if (IsOwnerDrawn(list_) && PaintByOwner(*painter, option, index.row())) return;
        const QString text = index.data().toString();
        if (!text.contains(u'\t')) return QStyledItemDelegate::paint(painter, option, index);
        QStyleOptionViewItem background = option;
        initStyleOption(&background, index);
        background.text.clear();
        const QWidget* view = option.widget;
        view->style()->drawControl(QStyle::CE_ItemViewItem, &background, painter, view);
        PaintColumns(*painter, option, text.split(u'\t'));
    }

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QSize size = QStyledItemDelegate::sizeHint(option, index);
        const int height =
            display_.scale().Length(static_cast<LONG>(SendMessageA(list_, LB_GETITEMHEIGHT, 0, 0)));
        size.setHeight(IsOwnerDrawn(list_) ? height : std::max(height, size.height()));
        return size;
    }

 private:
    bool PaintByOwner(QPainter& painter, const QStyleOptionViewItem& option, int row) const {
        const bool selected = (option.state & QStyle::State_Selected) != 0;
        return DrawItem(painter, option.rect, list_, row,
                        {selected ? ODS_SELECTED : 0u, option.palette.color(QPalette::Base),
                         option.direction, option.font});
    }

    int StopFor(qsizetype column) const {
        if (column == 0) return 0;
        const auto index = static_cast<size_t>(column) - 1;
        if (index < stops.size()) return stops[index];
        const int step = stops.size() == 1
                             ? stops[0]
                             : display_.scale().Length(LONG(kUsualTabStop * kPixelsPerUnit));
        const int last = stops.empty() ? 0 : stops.back();
        return last + step * static_cast<int>(index - stops.size() + 1);
    }

    void PaintColumns(QPainter& painter, const QStyleOptionViewItem& option,
                      const QStringList& columns) const {
        const bool selected = (option.state & QStyle::State_Selected) != 0;
        painter.save();
        painter.setFont(option.font);
        const bool enabled = (option.state & QStyle::State_Enabled) != 0;
        for (qsizetype i = 0; i < columns.size(); ++i) {
            QRect cell = option.rect;
            cell.setLeft(option.rect.left() + StopFor(i) + kTextMargin);
            if (i + 1 < columns.size()) {
                cell.setRight(option.rect.left() + StopFor(i + 1) - kTextMargin);
            }
            cell = QStyle::visualRect(option.direction, option.rect, cell);
            const QString text =
                option.fontMetrics.elidedText(columns[i], Qt::ElideRight, cell.width());
            const auto alignment =
                QStyle::visualAlignment(option.direction, Qt::AlignLeft | Qt::AlignVCenter);
            option.widget->style()->drawItemText(
                &painter, cell, static_cast<int>(alignment), option.palette, enabled, text,
                selected ? QPalette::HighlightedText : QPalette::Text);
        }
        painter.restore();
    }

    const QtDisplay& display_;
    HWND list_;
};

// The core selects; the widget only shows which entries are.
class ListView : public QListWidget {
 public:
    ListView(QtDisplay& display, HWND window, QWidget* parent)
        : QListWidget(parent), display_(display), window_(window) {}

 protected:
    // An entry shows the focus, if there is one.
    void paintEvent(QPaintEvent* event) override {
        QListWidget::paintEvent(event);
        if (!currentItem()) DrawFocus(*viewport(), *this, viewport()->rect());
    }
    void focusInEvent(QFocusEvent* event) override {
        QListWidget::focusInEvent(event);
        viewport()->update();
    }
    void focusOutEvent(QFocusEvent* event) override {
        QListWidget::focusOutEvent(event);
        viewport()->update();
    }
    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton) Choose(*event, ModifiersOf(event->modifiers()));
    }
    void mouseReleaseEvent(QMouseEvent*) override {}
    // Sweeping over entries selects them as a click with Shift does.
    void mouseMoveEvent(QMouseEvent* event) override {
        if ((event->buttons() & Qt::LeftButton) == 0) return;
        const DWORD style = StyleOf(window_);
        if ((style & LBS_MULTIPLESEL) != 0 && (style & LBS_EXTENDEDSEL) == 0) return;
        if (indexAt(event->position().toPoint()).row() == row_) return;
        Choose(*event, (style & LBS_EXTENDEDSEL) != 0 ? kv::input::kShift : kv::input::kNoModifier);
    }
    void mouseDoubleClickEvent(QMouseEvent* event) override {
        const int row = indexAt(event->position().toPoint()).row();
        if (event->button() != Qt::LeftButton || row < 0) return;
        RECT place{};
        SendMessageA(window_, LB_GETITEMRECT, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(&place));
        const POINT middle{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
        display_.Act(window_, [this, middle] { kv::input::SecondClickAt(window_, middle); });
    }
    void contextMenuEvent(QContextMenuEvent*) override {
        display_.Act(window_, [this] { kv::input::RightClick(window_); });
    }

 private:
    void Choose(QMouseEvent& event, unsigned modifiers) {
        row_ = indexAt(event.position().toPoint()).row();
        display_.Act(window_, [this, modifiers] {
            if (row_ >= 0) {
                kv::input::Choose(window_, row_, modifiers);
            } else {
                kv::input::Focus(window_);
            }
        });
    }

    QtDisplay& display_;
    HWND window_;
    int row_ = -1;
};

class ListMirror : public Mirror {
 public:
    ListMirror(QtDisplay& owner, HWND handle, QWidget* parent) : Mirror(owner, handle) {
        list_ = new ListView(owner, handle, parent);
        list_->setFocusPolicy(Qt::TabFocus);
        list_->setUniformItemSizes(true);
        list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        delegate_ = new ListDelegate(owner, handle, list_);
        list_->setItemDelegate(delegate_);
        SetWidget(list_);
    }

 protected:
    void SyncState(unsigned changes) override {
        if ((changes & kv::kChangedStyle) != 0) SyncMode();
        if ((changes & kv::kChangedItems) != 0) {
            SyncTabStops();
            SyncItems();
        }
        if ((changes & (kv::kChangedItems | kv::kChangedSelection)) != 0) SyncSelection();
    }

 private:
    bool IsMulti() const { return (Style() & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL)) != 0; }

    void SyncMode() {
        QAbstractItemView::SelectionMode mode = QAbstractItemView::SingleSelection;
        if (IsMulti()) mode = QAbstractItemView::MultiSelection;
        if ((Style() & LBS_NOSEL) != 0) mode = QAbstractItemView::NoSelection;
        if (list_->selectionMode() != mode) list_->setSelectionMode(mode);
    }

    void SyncTabStops() {
        int units[kMostTabStops] = {};
        const LRESULT count =
            Ask(kv::KVM_GETTABSTOPS, kMostTabStops, reinterpret_cast<LPARAM>(units));
        std::vector<int> stops;
        for (size_t i = 0; i < std::min(static_cast<size_t>(count), kMostTabStops); ++i) {
            stops.push_back(display().scale().Length(LONG(units[i] * kPixelsPerUnit)));
        }
        if (delegate_->stops == stops) return;
        delegate_->stops = std::move(stops);
        list_->viewport()->update();
    }

    void SyncItems() {
        const bool texts = !IsOwnerDrawn(window()) || (Style() & LBS_HASSTRINGS) != 0;
        const auto count = static_cast<int>(Ask(LB_GETCOUNT));
        while (list_->count() > count) delete list_->takeItem(list_->count() - 1);
        std::string text;
        for (int i = 0; i < count; ++i) {
            const auto index = static_cast<WPARAM>(i);
            const LRESULT length = texts ? Ask(LB_GETTEXTLEN, index) : 0;
            text.assign(static_cast<size_t>(std::max<LRESULT>(length, 0)) + 1, '\0');
            if (texts) Ask(LB_GETTEXT, index, reinterpret_cast<LPARAM>(text.data()));
            text.pop_back();
            const QString shown = FromAnsi(text);
            if (i >= list_->count()) {
                list_->addItem(shown);
            } else if (list_->item(i)->text() != shown) {
                list_->item(i)->setText(shown);
            }
        }
        if (IsOwnerDrawn(window())) list_->viewport()->update();
    }

    void SyncSelection() {
        const bool multi = IsMulti();
        const auto caret = static_cast<int>(Ask(multi ? LB_GETCARETINDEX : LB_GETCURSEL));
        if (list_->currentRow() != caret)
            list_->setCurrentRow(caret, QItemSelectionModel::NoUpdate);
        for (int i = 0; i < list_->count(); ++i) {
            const bool selected = Ask(LB_GETSEL, static_cast<WPARAM>(i)) > 0;
            QListWidgetItem* item = list_->item(i);
            if (item->isSelected() != selected) item->setSelected(selected);
        }
        if (caret >= 0) list_->scrollToItem(list_->item(caret));
    }

    ListView* list_;
    ListDelegate* delegate_;
};

}  // namespace

MirrorPointer MakeListMirror(QtDisplay& display, HWND window, QWidget* parent) {
    return std::make_unique<ListMirror>(display, window, parent);
}

}  // namespace kvqt
