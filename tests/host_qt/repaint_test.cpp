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
    std::map<const QObject*, int> counts;

 private:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Paint) ++counts[object];
        return false;
    }
};

class Repaint : public SheetTour {
 protected:
    // Widgets that are seen and hold no others.
    static std::vector<QWidget*> LeavesOf(const QWidget& window) {
        std::vector<QWidget*> leaves;
        for (QWidget* widget : window.findChildren<QWidget*>()) {
            const auto inner = widget->findChildren<QWidget*>();
            const bool leaf = std::none_of(inner.begin(), inner.end(),
                                           [](const QWidget* child) { return child->isVisible(); });
            if (widget->isVisible() && leaf) leaves.push_back(widget);
        }
        return leaves;
    }
    // The views are drawn anew after every change of a setting.
    static bool IsView(QWidget& widget) {
        const auto* item = QAccessible::queryAccessibleInterface(&widget);
        return item && item->role() == QAccessible::Graphic && widget.height() > 100;
    }
};

// Qt paints a widget together with what it lies behind, so unchanged widgets are those whose
// picture is the same before and after, and that do not lie under or over a changed one.
TEST_F(Repaint, AChoiceRepaintsWhatItChangesAndLeavesTheOthersAlone) {
    OpenSheet();
    const HWND combo = Item(IDC_COMBO_MEDIA_TYPE);
    ASSERT_TRUE(kv::input::Focus(combo));
    QDialog* window = SheetWidget();
    ASSERT_NE(window, nullptr);
    QTest::qWait(50);
    std::map<QWidget*, QImage> before;
    for (QWidget* widget : LeavesOf(*window)) before[widget] = widget->grab().toImage();
    std::map<const QObject*, int> paints;
    {
        const PaintCounter counter;
        ASSERT_TRUE(kv::input::Choose(combo, 1));
        QTest::qWait(50);
        paints = counter.counts;
    }
    const auto place = [window](const QWidget& widget) {
        return QRect(widget.mapTo(window, QPoint(0, 0)), widget.size());
    };
    int changed = 0;
    int unchanged = 0;
    QRegion touched;
    std::vector<QWidget*> same;
    for (const auto& [widget, picture] : before) {
        if (widget->grab().toImage() == picture) {
            same.push_back(widget);
            continue;
        }
        touched += place(*widget);
        EXPECT_GT(paints[widget], 0) << widget->accessibleName().toStdString();
        ++changed;
    }
    for (QWidget* widget : same) {
        const int wanted = IsView(*widget) ? 1 : 0;
        if (wanted == 0 && touched.intersects(place(*widget))) continue;
        ++unchanged;
        EXPECT_EQ(paints[widget], wanted)
            << widget->metaObject()->className() << " " << widget->accessibleName().toStdString();
    }
    EXPECT_GE(changed, 2) << "the combo box and the Apply button";
    EXPECT_GT(unchanged, 20);
}

}  // namespace
}  // namespace journey
