// The right button beside a page's controls reaches the page, with the keys that are held.
#include "sheet_tour.h"

#include <QTimer>

namespace journey {
namespace {

class RightButton : public SheetTour {
 protected:
    // The title of the dialog that a click on the page opens; empty when none does.
    QString Click(Qt::KeyboardModifiers modifiers) {
        QWidget* list = WidgetOf(*SheetWidget(), GetDlgItem(PageWindow(kDevice), IDC_LIST_OPTIONS));
        QString title;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            QWidget* dialog = QApplication::activeModalWidget();
            if (dialog == nullptr || dialog == SheetWidget()) return;
            timer.stop();
            title = dialog->windowTitle();
            kv::input::Key(VK_ESCAPE);
        });
        timer.start(10);
        QTest::mouseClick(list->parentWidget(), Qt::RightButton, modifiers, {2, 2});
        return title;
    }
};

TEST_F(RightButton, OpensTheServiceSettingsWithShiftOrControl) {
    OpenSheet();
    EXPECT_EQ(Click(Qt::NoModifier), "");
    EXPECT_EQ(Click(Qt::ShiftModifier), "Advanced Settings (Hidden)");
    EXPECT_EQ(Click(Qt::ControlModifier), "Advanced Settings (Hidden)");
}

}  // namespace
}  // namespace journey
