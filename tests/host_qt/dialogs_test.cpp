// Focus, keys, modal dialogs, property sheets, pictures and names on the desktop.
#include "qt_fixture.h"
#include "tests/platform/controls/sheet_fixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>

namespace kv {
namespace {

using ::testing::ElementsAre;

constexpr RECT kFirst{10, 10, 150, 30};
constexpr RECT kSecond{10, 40, 150, 60};
constexpr RECT kThird{10, 70, 150, 90};

TEST_F(QtDisplayTest, TheCoreDecidesWhereTabGoes) {
    Add("EDIT", WS_TABSTOP, 1, kFirst);
    const HWND second = Add("EDIT", WS_TABSTOP, 2, kSecond);
    const HWND third = Add("EDIT", WS_TABSTOP, 3, kThird, "text");
    Show();
    EnableWindow(second, FALSE);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(GetFocus(), third);
    auto* line = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->selectedText(), "text");
    EXPECT_THAT(TakeLog(), ElementsAre("1 EN_KILLFOCUS", "3 EN_SETFOCUS"));
    QTest::keyClick(line, Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog, 1));
}

TEST_F(QtDisplayTest, AClickMovesTheCoresFocus) {
    Add("EDIT", WS_TABSTOP, 1, kFirst, "first");
    const HWND second = Add("EDIT", WS_TABSTOP, 2, kSecond, "second");
    Show();
    for (QLineEdit* line : DialogTitled("Test")->findChildren<QLineEdit*>()) {
        if (line->text() == "second") QTest::mouseClick(line, Qt::LeftButton);
    }
    EXPECT_EQ(GetFocus(), second);
    SetFocus(GetDlgItem(dialog, 1));
    Settle();
    EXPECT_EQ(qobject_cast<QLineEdit*>(QApplication::focusWidget())->text(), "first");
}

TEST_F(QtDisplayTest, ArrowsChooseAmongRadioButtons) {
    const DWORD style = BS_AUTORADIOBUTTON;
    const HWND left = Add("BUTTON", style | WS_GROUP | WS_TABSTOP, 1, kFirst, "&Left");
    const HWND right = Add("BUTTON", style, 2, kSecond, "&Right");
    Send(left, BM_SETCHECK, BST_CHECKED);
    Show();
    QTest::keyClick(Find<QRadioButton>("Left"), Qt::Key_Down);
    EXPECT_EQ(Send(right, BM_GETCHECK), 1);
    EXPECT_TRUE(Find<QRadioButton>("Right")->isChecked());
    EXPECT_FALSE(Find<QRadioButton>("Left")->isChecked());
    // The letter with Alt goes by the core as well.
    QTest::keyClick(Find<QRadioButton>("Right"), Qt::Key_L, Qt::AltModifier);
    EXPECT_EQ(Send(left, BM_GETCHECK), 1);
}

TEST_F(QtDisplayTest, EnterEscapeAndTheCloseBoxAreTheDialogs) {
    Add("EDIT", WS_TABSTOP, 5, kFirst);
    Add("BUTTON", WS_TABSTOP | BS_DEFPUSHBUTTON, IDOK, kSecond, "OK");
    Send(dialog, DM_SETDEFID, IDOK);
    Show();
    QTest::keyClick(Find<QLineEdit>(), Qt::Key_Return);
    QTest::keyClick(Find<QLineEdit>(), Qt::Key_Escape);
    DialogTitled("Test")->close();
    Settle();
    EXPECT_NE(DialogTitled("Test"), nullptr) << "only the core closes it";
    EXPECT_THAT(TakeLog(), ElementsAre("1 BN_CLICKED", "2:0", "2:0"));
}

TEST_F(QtDisplayTest, AMessageBoxFromAHandlerIsAnsweredOnTheDesktop) {
    Add("BUTTON", WS_TABSTOP, 1, kFirst, "Ask");
    Show();
    int answer = 0;
    QString asked;
    reaction = [&](UINT message, WPARAM, LPARAM) -> std::optional<INT_PTR> {
        if (message != WM_COMMAND) return std::nullopt;
        QTimer::singleShot(0, [&] {
            QDialog* box = DialogTitled("Question");
            ASSERT_NE(box, nullptr);
            EXPECT_TRUE(box->isModal());
            for (const QLabel* label : box->findChildren<QLabel*>()) asked += label->text();
            for (QPushButton* button : box->findChildren<QPushButton*>()) {
                if (button->text() == "&No") QTest::mouseClick(button, Qt::LeftButton);
            }
        });
        answer = MessageBoxA(dialog, "Change it?", "Question", MB_YESNO | MB_ICONQUESTION);
        return TRUE;
    };
    QTest::mouseClick(Find<QPushButton>(), Qt::LeftButton);
    EXPECT_EQ(answer, IDNO);
    EXPECT_EQ(asked, "Change it?");
    EXPECT_EQ(DialogTitled("Question"), nullptr);
    EXPECT_TRUE(Find<QPushButton>()->isEnabled());
}

TEST_F(QtDisplayTest, ADialogMayGoInTheHandlerOfItsOwnButton) {
    Add("BUTTON", WS_TABSTOP, 1, kFirst, "Go");
    Show();
    reaction = [&](UINT message, WPARAM, LPARAM) -> std::optional<INT_PTR> {
        if (message == WM_COMMAND) DestroyWindow(dialog);
        return std::nullopt;
    };
    QTest::mouseClick(Find<QPushButton>(), Qt::LeftButton);
    Settle();
    EXPECT_EQ(DialogTitled("Test"), nullptr);
}

TEST_F(QtDisplayTest, AStaticDrawnByItsParentShowsThePictureOfTheMoment) {
    const HWND view = Add("STATIC", SS_NOTIFY, 9, kFirst);
    COLORREF color = RGB(200, 0, 0);
    reaction = [&](UINT message, WPARAM wParam, LPARAM) -> std::optional<INT_PTR> {
        if (message != WM_CTLCOLORSTATIC) return std::nullopt;
        const HBRUSH brush = CreateSolidBrush(color);
        const RECT area{0, 0, 140, 20};
        FillRect(reinterpret_cast<HDC>(wParam), &area, brush);
        DeleteObject(brush);
        return reinterpret_cast<INT_PTR>(GetStockObject(NULL_BRUSH));
    };
    Show();
    auto* label = Find<QLabel>();
    EXPECT_EQ(label->grab().toImage().pixelColor(20, 10), QColor(200, 0, 0));
    color = RGB(0, 0, 200);
    InvalidateRect(view, nullptr, TRUE);
    EXPECT_EQ(label->grab().toImage().pixelColor(20, 10), QColor(0, 0, 200));
    QTest::mouseClick(label, Qt::LeftButton);
    EXPECT_THAT(TakeLog(), ElementsAre("9 STN_CLICKED"));
    // A brush of a colour fills it.
    const HBRUSH green = CreateSolidBrush(RGB(0, 200, 0));
    reaction = [&](UINT message, WPARAM, LPARAM) -> std::optional<INT_PTR> {
        if (message != WM_CTLCOLORSTATIC) return std::nullopt;
        return reinterpret_cast<INT_PTR>(green);
    };
    EXPECT_EQ(label->grab().toImage().pixelColor(20, 10), QColor(0, 200, 0));
    reaction = nullptr;
    DeleteObject(green);
}

TEST_F(QtDisplayTest, ControlsAreCalledAfterTheLabelBeforeThem) {
    const HWND label = Add("STATIC", SS_LEFT, 20, kFirst, "&Number:");
    Add("EDIT", WS_TABSTOP, 1, kSecond);
    Show();
    EXPECT_EQ(Find<QLineEdit>()->accessibleName(), "Number");
    SetWindowTextA(label, "Anzahl:");
    Settle();
    EXPECT_EQ(Find<QLineEdit>()->accessibleName(), "Anzahl");
}

TEST_F(QtDisplayTest, RightToLeftDesktopsGetTheMirrorImage) {
    QApplication::setLayoutDirection(Qt::RightToLeft);
    Add("EDIT", WS_TABSTOP, 1, {0, 10, 30, 30});
    Add("EDIT", WS_TABSTOP, 2, {200, 10, 230, 30}, "right");
    Show();
    const auto lines = DialogTitled("Test")->findChildren<QLineEdit*>();
    ASSERT_EQ(lines.size(), 2);
    const int width = DialogTitled("Test")->width();
    for (const QLineEdit* line : lines) {
        EXPECT_EQ(line->x() > width / 2, line->text().isEmpty()) << line->x();
    }
    EXPECT_EQ(lines[0]->width(), lines[1]->width());
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

class QtSheetTest : public SheetTest {
 protected:
    QTabWidget* Tabs() { return DialogTitled("Printer properties")->findChild<QTabWidget*>(); }
    void ClickTab(int index) {
        QTabBar* bar = Tabs()->tabBar();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(index).center());
    }
};

TEST_F(QtSheetTest, ATabTurnsThePageUnlessThePageRefuses) {
    Open();
    ASSERT_NE(Tabs(), nullptr);
    EXPECT_EQ(Tabs()->tabText(2), "Gamma");
    ClickTab(1);
    EXPECT_EQ(ActivePage(), 1);
    answers["Beta KILLACTIVE"] = TRUE;
    ClickTab(2);
    EXPECT_EQ(ActivePage(), 1);
    EXPECT_EQ(Tabs()->currentIndex(), 1);
    answers.clear();
    QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : Tabs(),
                    Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(ActivePage(), 2);
    EXPECT_EQ(Tabs()->currentIndex(), 2);
}

TEST_F(QtSheetTest, APanelThatMovesToAnotherPageIsSeenThere) {
    Open();
    const HWND panel = CreateWindowExA(0, "STATIC", "Panel", WS_CHILD | WS_VISIBLE, 5, 5, 60, 13,
                                       Page(0), nullptr, nullptr, nullptr);
    const auto shown = [] {
        int count = 0;
        for (const QLabel* label : DialogTitled("Printer properties")->findChildren<QLabel*>()) {
            if (label->text() == "Panel" && label->isVisible()) ++count;
        }
        return count;
    };
    EXPECT_EQ(shown(), 1);
    ClickTab(1);
    EXPECT_EQ(shown(), 0);
    SetParent(panel, Page(1));
    EXPECT_EQ(shown(), 1);
}

}  // namespace
}  // namespace kv
