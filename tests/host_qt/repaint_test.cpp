// A choice repaints what it changes, and nothing else: the sheet does not flicker.
#include "sheet_tour.h"

#include <QAccessible>
#include <QEvent>

#include <map>

namespace journey {
namespace {

class PaintCounter : public QObject {
 public:
    PaintCounter() { qApp->installEventFilter(this); }
    ~PaintCounter() override { qApp->removeEventFilter(this); }

    int Of(const QWidget* widget) const {
        const auto found = counts_.find(widget);
        return found == counts_.end() ? 0 : found->second;
    }

 private:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++counts_[object];
        return false;
    }
    std::map<const QObject*, int> counts_;
};

class Repaint : public SheetTour {
 protected:
    static bool HasVisibleChild(const QWidget& widget) {
        const auto children = widget.findChildren<QWidget*>();
        return std::any_of(children.begin(), children.end(),
                           [](const QWidget* child) { return child->isVisible(); });
    }
    // The views are drawn anew after every change of a setting.
    static bool IsView(QWidget& widget) {
        const auto* item = QAccessible::queryAccessibleInterface(&widget);
        return item && item->role() == QAccessible::Graphic && widget.height() > 100;
    }
};

// Qt paints a widget together with what it lies behind, so unchanged widgets are those whose
// picture is the same before and after, and that do not lie under or over a changed one.
TEST_F(Repaint, AChoiceLeavesUnchangedControlsAlone) {
    OpenSheet();
    const HWND combo = Item(1141);
    ASSERT_TRUE(kv::input::Focus(combo));
    QDialog* window = SheetWidget();
    ASSERT_NE(window, nullptr);
    QTest::qWait(50);
    std::map<QWidget*, QImage> before;
    for (QWidget* widget : window->findChildren<QWidget*>()) {
        if (widget->isVisible() && !HasVisibleChild(*widget)) {
            before[widget] = widget->grab().toImage();
        }
    }
    const PaintCounter counter;
    ASSERT_TRUE(kv::input::Choose(combo, 1));
    QTest::qWait(50);
    int changed = 0;
    int unchanged = 0;
    QRegion touched;
    std::vector<QWidget*> same;
    std::map<QWidget*, int> paints;
    for (const auto& [widget, picture] : before) paints[widget] = counter.Of(widget);
    for (const auto& [widget, picture] : before) {
        const QRect place(widget->mapTo(window, QPoint(0, 0)), widget->size());
        if (widget->grab().toImage() == picture) {
            same.push_back(widget);
        } else {
            touched += place;
            ++changed;
        }
    }
    for (QWidget* widget : same) {
        const QRect place(widget->mapTo(window, QPoint(0, 0)), widget->size());
        if (touched.intersects(place) || IsView(*widget)) continue;
        ++unchanged;
        EXPECT_EQ(paints[widget], 0)
            << widget->metaObject()->className() << " " << widget->accessibleName().toStdString();
    }
    EXPECT_GE(changed, 2) << "the combo box and the Apply button";
    EXPECT_GT(unchanged, 20);
}

}  // namespace
}  // namespace journey
