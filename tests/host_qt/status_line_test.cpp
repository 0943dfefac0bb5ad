// The line beside the sheet's buttons: what it shows, to eyes and to screen readers, and where.
#include "sheet_tour.h"

#include <platform/display/display.h>

#include <QAccessible>
#include <QPushButton>
#include <QStatusBar>

namespace journey {
namespace {

class StatusLineTest : public SheetTour {
 protected:
    QStatusBar* Line() { return SheetWidget()->findChild<QStatusBar*>(); }
    void Say(const char* text) {
        kv::CurrentDisplay().ShowStatus(sheet_, text);
        kv::Settle();
    }
};

TEST_F(StatusLineTest, ScreenReadersFindTheTextAndALongOneIsWholeInTheToolTip) {
    OpenSheet();
    ASSERT_NE(Line(), nullptr);
    const QAccessibleInterface* found = QAccessible::queryAccessibleInterface(Line());
    EXPECT_EQ(found->role(), QAccessible::StatusBar);
    EXPECT_FALSE(Line()->isVisible()) << "there is nothing to find yet";
    const std::string longest = "Booklet also set: " + std::string(200, 'x');
    Say(longest.c_str());
    EXPECT_TRUE(Line()->isVisible());
    EXPECT_EQ(found->text(QAccessible::Name).toStdString(), longest);
    EXPECT_EQ(Line()->toolTip().toStdString(), longest);
    Say("Booklet also set: 2-Sided Printing");
    EXPECT_TRUE(Line()->toolTip().isEmpty());
    Keep(*SheetWidget(), "status-line");
    Say("");
    EXPECT_FALSE(Line()->isVisible());
}

TEST_F(StatusLineTest, ItStandsBesideTheButtonsOnEitherSide) {
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        QApplication::setLayoutDirection(direction);
        OpenSheet();
        ASSERT_NE(Line(), nullptr);
        const QString text = QStringLiteral("Booklet also set: 2-Sided Printing");
        Say(text.toLatin1());
        const QRect place = Line()->geometry();
        EXPECT_TRUE(SheetWidget()->rect().contains(place));
        EXPECT_GE(place.width(), Line()->fontMetrics().horizontalAdvance(text));
        int buttons = 0;
        for (const auto* button : SheetWidget()->findChildren<QPushButton*>()) {
            if (button->parentWidget() != SheetWidget() || !button->isVisible()) continue;
            ++buttons;
            EXPECT_EQ(button->geometry().top(), place.top());
            EXPECT_EQ(button->geometry().left() > place.right(), direction == Qt::LeftToRight);
            EXPECT_FALSE(button->geometry().intersects(place)) << button->text().toStdString();
        }
        EXPECT_EQ(buttons, 4);
        // Something is drawn where it stands, nearest to its own side.
        const QImage with = Line()->grab().toImage();
        Say("");
        const QImage without = Line()->grab().toImage();
        int left = with.width(), right = 0;
        for (int x = 0; x < with.width(); ++x) {
            for (int y = 0; y < with.height(); ++y) {
                if (with.pixel(x, y) == without.pixel(x, y)) continue;
                left = std::min(left, x);
                right = std::max(right, x);
            }
        }
        EXPECT_LT(left, right);
        EXPECT_EQ(left < with.width() - right, direction == Qt::LeftToRight);
        CloseSheet();
    }
}

TEST_F(StatusLineTest, AWaitIsSaidWithItsSecondsAndTakesNoInput) {
    OpenSheet();
    ASSERT_NE(Line(), nullptr);
    Say("before");
    kv::Display& display = kv::CurrentDisplay();
    const auto WaitFor = [&](unsigned milliseconds) {
        display.Waiting("10.0.0.5:9100 to answer @PJL INFO CONFIG", milliseconds);
    };
    QAbstractButton* cancel = nullptr;
    for (auto* button : SheetWidget()->findChildren<QPushButton*>()) {
        if (button->text().remove('&') == "Cancel") cancel = button;
    }
    ASSERT_NE(cancel, nullptr);
    WaitFor(300);
    EXPECT_EQ(Line()->accessibleName(), "before") << "what is short is not worth a word";
    WaitFor(2500);
    EXPECT_EQ(Line()->accessibleName(),
              "Waiting for 10.0.0.5:9100 to answer @PJL INFO CONFIG, 2 s");
    Say("after");
    EXPECT_TRUE(Line()->accessibleName().startsWith("Waiting"));
    QTest::mouseClick(cancel, Qt::LeftButton);
    QTest::keyClick(SheetWidget(), Qt::Key_Escape);
    SheetWidget()->close();
    cancel->click();  // as a screen reader does
    WaitFor(3500);
    EXPECT_TRUE(Line()->accessibleName().endsWith(", 3 s"));
    display.WaitEnded();
    kv::Settle();
    EXPECT_EQ(Line()->accessibleName(), "after");
    const auto IsOpen = [&] { return SendMessageA(sheet_, PSM_GETCURRENTPAGEHWND, 0, 0) != 0; };
    EXPECT_TRUE(IsOpen()) << "what was pressed meanwhile has been dropped";
    QTest::mouseClick(cancel, Qt::LeftButton);
    kv::Settle();
    EXPECT_FALSE(IsOpen());
}

}  // namespace
}  // namespace journey
