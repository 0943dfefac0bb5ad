// What the user does to the native widgets reaches the core, and what the core makes of it is
// shown.
#include "qt_fixture.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QToolButton>

namespace kv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr RECT kPlace{10, 10, 150, 30};
constexpr RECT kBelow{10, 40, 150, 60};

TEST(QtStart, LeavesNumbersAsTheyAre) {
    EXPECT_EQ(decimalPointAfterStart, ".");
}

TEST_F(QtDisplayTest, TypingChangesTheEditAndNotifies) {
    const HWND edit = Add("EDIT", WS_TABSTOP | ES_AUTOHSCROLL, 7, kPlace);
    Show();
    QTest::keyClicks(Find<QLineEdit>(), "A");
    QTest::sendKeyEvent(QTest::Click, Find<QLineEdit>(), Qt::Key_Eacute, QString(QChar(0xE9)), {});
    EXPECT_EQ(Text(edit), "A\xE9");
    EXPECT_THAT(TakeLog(), ElementsAre("7 EN_UPDATE", "7 EN_CHANGE", "7 EN_UPDATE", "7 EN_CHANGE"));
}

TEST_F(QtDisplayTest, WhatTheEditRefusesDisappears) {
    const HWND digits = Add("EDIT", WS_TABSTOP | ES_NUMBER, 7, kPlace);
    Show();
    auto* line = Find<QLineEdit>();
    QTest::keyClicks(line, "1a2");
    EXPECT_EQ(Text(digits), "12");
    EXPECT_EQ(line->text(), "12");
    // Characters that the driver's code page does not have.
    SetWindowLongPtrA(digits, GWL_STYLE, GetWindowLongPtrA(digits, GWL_STYLE) & ~ES_NUMBER);
    QTest::keyClick(line, Qt::Key_A, Qt::NoModifier);
    QTest::sendKeyEvent(QTest::Click, line, Qt::Key_unknown, QString(QChar(0x65E5)), {});
    EXPECT_EQ(Text(digits), "12a");
    EXPECT_EQ(line->text(), "12a");
}

// A dialog warns in colour while the text is wrong.
TEST_F(QtDisplayTest, AnEditHasTheColoursThatItsDialogWants) {
    const HWND edit = Add("EDIT", WS_TABSTOP, 7, kPlace, "40");
    const HBRUSH yellow = CreateSolidBrush(RGB(255, 255, 0));
    reaction = [&](UINT message, WPARAM wParam, LPARAM lParam) -> std::optional<INT_PTR> {
        if (message != WM_CTLCOLOREDIT || Text(reinterpret_cast<HWND>(lParam)) != "4000") {
            return std::nullopt;
        }
        SetTextColor(reinterpret_cast<HDC>(wParam), RGB(200, 0, 0));
        return reinterpret_cast<INT_PTR>(yellow);
    };
    Show();
    const QPalette usual = Find<QLineEdit>()->palette();
    SetWindowTextA(edit, "4000");
    Settle();
    EXPECT_EQ(Find<QLineEdit>()->palette().color(QPalette::Base), QColor(255, 255, 0));
    EXPECT_EQ(Find<QLineEdit>()->palette().color(QPalette::Text), QColor(200, 0, 0));
    SetWindowTextA(edit, "400");
    Settle();
    EXPECT_EQ(Find<QLineEdit>()->palette().color(QPalette::Base), usual.color(QPalette::Base));
    EXPECT_EQ(Find<QLineEdit>()->palette().color(QPalette::Text), usual.color(QPalette::Text));
    reaction = nullptr;
    DeleteObject(yellow);
}

TEST_F(QtDisplayTest, AHandlerThatPutsTheOldTextBackWins) {
    const HWND edit = Add("EDIT", WS_TABSTOP, 7, kPlace, "40");
    Show();
    bool inside = false;
    reaction = [&](UINT message, WPARAM wParam, LPARAM) -> std::optional<INT_PTR> {
        if (message == WM_COMMAND && HIWORD(wParam) == EN_CHANGE && !std::exchange(inside, true)) {
            SetWindowTextA(edit, "40");
            inside = false;
        }
        return std::nullopt;
    };
    QTest::keyClick(Find<QLineEdit>(), Qt::Key_5);
    EXPECT_EQ(Find<QLineEdit>()->text(), "40");
}

TEST_F(QtDisplayTest, LinesOfATextKeepTheCoresLineEnds) {
    const HWND edit = Add("EDIT", WS_TABSTOP | ES_MULTILINE | ES_WANTRETURN, 7, kPlace);
    Show();
    QTest::keyClicks(Find<QPlainTextEdit>(), "a");
    QTest::keyClick(Find<QPlainTextEdit>(), Qt::Key_Return);
    QTest::keyClicks(Find<QPlainTextEdit>(), "b");
    EXPECT_EQ(Text(edit), "a\r\nb");
    EXPECT_EQ(Find<QPlainTextEdit>()->toPlainText(), "a\nb");
}

class QtComboTest : public QtDisplayTest {
 protected:
    void ShowCombo() {
        combo = Add("COMBOBOX", WS_TABSTOP | CBS_DROPDOWNLIST, 8, {10, 10, 150, 130});
        AddEntries(combo, CB_ADDSTRING, {"One", "Two", "Three"});
        Send(combo, CB_SETCURSEL, 0);
        Show();
        widget = Find<QComboBox>();
    }
    void Open() {
        QTest::mouseClick(widget, Qt::LeftButton);
        ASSERT_TRUE(widget->view()->isVisible());
    }
    // Qt takes a release right after the opening for the end of the opening click.
    void Pick(int row) {
        QTest::qWait(QApplication::doubleClickInterval() + 50);
        const QRect place = widget->view()->visualRect(widget->model()->index(row, 0));
        QTest::mouseClick(widget->view()->viewport(), Qt::LeftButton, {}, place.center());
        Settle();
    }
    HWND combo{};
    QComboBox* widget{};
};

TEST_F(QtComboTest, ChoosingFromTheListNotifiesInThePlatformsOrder) {
    ShowCombo();
    Open();
    EXPECT_EQ(Send(combo, CB_GETDROPPEDSTATE), 1);
    EXPECT_THAT(TakeLog(), ElementsAre("8 CBN_DROPDOWN"));
    Pick(2);
    EXPECT_EQ(Send(combo, CB_GETCURSEL), 2);
    EXPECT_FALSE(widget->view()->isVisible());
    EXPECT_THAT(TakeLog(), ElementsAre("8 CBN_SELENDOK", "8 CBN_SELCHANGE", "8 CBN_CLOSEUP"));
}

TEST_F(QtComboTest, EscapeClosesTheListAndKeepsTheEntry) {
    ShowCombo();
    Open();
    QTest::keyClick(widget->view(), Qt::Key_Down);
    QTest::keyClick(widget->view(), Qt::Key_Escape);
    Settle();
    EXPECT_EQ(Send(combo, CB_GETDROPPEDSTATE), 0);
    EXPECT_EQ(Send(combo, CB_GETCURSEL), 0);
    EXPECT_EQ(widget->currentIndex(), 0);
    EXPECT_THAT(TakeLog(), ElementsAre("8 CBN_DROPDOWN", "8 CBN_SELENDCANCEL", "8 CBN_CLOSEUP"));
}

TEST_F(QtComboTest, AChoiceThatAHandlerTakesBackIsNotShown) {
    ShowCombo();
    reaction = [&](UINT message, WPARAM wParam, LPARAM) -> std::optional<INT_PTR> {
        if (message == WM_COMMAND && HIWORD(wParam) == CBN_SELENDOK) Send(combo, CB_SETCURSEL, 0);
        return std::nullopt;
    };
    QTest::keyClick(widget, Qt::Key_Down);
    EXPECT_EQ(widget->currentIndex(), 0);
}

TEST_F(QtComboTest, EntriesFollowTheCore) {
    ShowCombo();
    Send(combo, CB_DELETESTRING, 1);
    AddEntries(combo, CB_ADDSTRING, {"Four"});
    Send(combo, CB_SETCURSEL, 2);
    Settle();
    QStringList shown;
    for (int i = 0; i < widget->count(); ++i) shown += widget->itemText(i);
    EXPECT_EQ(shown, QStringList({"One", "Three", "Four"}));
    EXPECT_EQ(widget->currentText(), "Four");
    EXPECT_THAT(TakeLog(), IsEmpty());
}

TEST_F(QtDisplayTest, OnlyTheCoreChecksBoxes) {
    const HWND automatic = Add("BUTTON", WS_TABSTOP | BS_AUTOCHECKBOX, 1, kPlace, "&Own");
    const HWND manual = Add("BUTTON", WS_TABSTOP | BS_CHECKBOX, 2, kBelow, "&Manual");
    Show();
    constexpr QPoint kIndicator(8, 10);
    QTest::mouseClick(Find<QCheckBox>("Own"), Qt::LeftButton, {}, kIndicator);
    QTest::mouseClick(Find<QCheckBox>("Manual"), Qt::LeftButton, {}, kIndicator);
    EXPECT_EQ(Send(automatic, BM_GETCHECK), 1);
    EXPECT_TRUE(Find<QCheckBox>("Own")->isChecked());
    EXPECT_EQ(Send(manual, BM_GETCHECK), 0);
    EXPECT_FALSE(Find<QCheckBox>("Manual")->isChecked());
    EXPECT_THAT(TakeLog(), ElementsAre("1 BN_CLICKED", "2 BN_CLICKED"));
}

TEST_F(QtDisplayTest, DisablingAndHidingInTheCoreShows) {
    const HWND box = Add("BUTTON", WS_TABSTOP | BS_AUTOCHECKBOX, 1, kPlace, "Box");
    const HWND late = Add("EDIT", WS_TABSTOP, 2, kBelow, "5");
    ShowWindow(late, SW_HIDE);
    Show();
    EXPECT_THAT(DialogTitled("Test")->findChildren<QLineEdit*>(), IsEmpty());
    EnableWindow(box, FALSE);
    ShowWindow(late, SW_SHOW);
    Settle();
    EXPECT_FALSE(Find<QCheckBox>()->isEnabled());
    EXPECT_EQ(Find<QLineEdit>()->text(), "5");
    QTest::mouseClick(Find<QCheckBox>(), Qt::LeftButton, {}, QPoint(8, 10));
    EXPECT_THAT(TakeLog(), IsEmpty());
    DestroyWindow(late);
    Settle();
    for (const QLineEdit* line : DialogTitled("Test")->findChildren<QLineEdit*>()) {
        EXPECT_TRUE(line->isHidden());
    }
}

TEST_F(QtDisplayTest, DraggingTheThumbFollowsAndLettingGoSettles) {
    const HWND bar = Add(TRACKBAR_CLASSA, WS_TABSTOP, 3, kPlace);
    Show();
    auto* slider = Find<QSlider>();
    QStyleOptionSlider option;
    option.initFrom(slider);
    option.minimum = 0;
    option.maximum = 100;
    const QRect thumb = slider->style()->subControlRect(QStyle::CC_Slider, &option,
                                                        QStyle::SC_SliderHandle, slider);
    QTest::mousePress(slider, Qt::LeftButton, {}, thumb.center());
    QTest::mouseMove(slider, QPoint(slider->width() / 2, thumb.center().y()));
    const int held = static_cast<int>(Send(bar, TBM_GETPOS));
    EXPECT_GT(held, 30);
    EXPECT_THAT(TakeLog(), ElementsAre("3 TB_THUMBTRACK"));
    QTest::mouseRelease(slider, Qt::LeftButton, {},
                        QPoint(slider->width() / 2, thumb.center().y()));
    EXPECT_EQ(Send(bar, TBM_GETPOS), held);
    EXPECT_THAT(TakeLog(), ElementsAre("3 TB_THUMBPOSITION", "3 TB_ENDTRACK"));
    QTest::keyClick(slider, Qt::Key_Right);
    EXPECT_EQ(slider->value(), held + 1);
    EXPECT_THAT(TakeLog(), ElementsAre("3 TB_LINEDOWN", "3 TB_ENDTRACK"));
}

TEST_F(QtDisplayTest, ArrowsTurnTheNumberOfTheirEdit) {
    const HWND edit = Add("EDIT", WS_TABSTOP, 4, kPlace, "5");
    const HWND arrows = Add(
        UPDOWN_CLASSA, UDS_SETBUDDYINT | UDS_AUTOBUDDY | UDS_ALIGNRIGHT | UDS_ARROWKEYS, 5, kBelow);
    Send(arrows, UDM_SETRANGE32, 1, 6);
    Show();
    for (QToolButton* button : DialogTitled("Test")->findChildren<QToolButton*>()) {
        if (button->arrowType() == Qt::UpArrow) {
            QTest::mouseClick(button, Qt::LeftButton);
            QTest::mouseClick(button, Qt::LeftButton);
        }
    }
    EXPECT_EQ(Text(edit), "6");
    EXPECT_EQ(Find<QLineEdit>()->text(), "6");
    QTest::keyClick(Find<QLineEdit>(), Qt::Key_Down);
    EXPECT_EQ(Text(edit), "5");
}

TEST_F(QtDisplayTest, ListsSelectAsTheCoreDoes) {
    const HWND list =
        Add("LISTBOX", WS_TABSTOP | LBS_NOTIFY | LBS_EXTENDEDSEL, 6, {10, 10, 150, 130});
    AddEntries(list, LB_ADDSTRING, {"a", "b", "c", "d"});
    Show();
    auto* widget = Find<QListWidget>();
    const auto click = [widget](int row, Qt::KeyboardModifiers keys) {
        QTest::mouseClick(widget->viewport(), Qt::LeftButton, keys,
                          widget->visualItemRect(widget->item(row)).center());
    };
    click(1, Qt::NoModifier);
    click(3, Qt::ControlModifier);
    std::string selected;
    for (int i = 0; i < 4; ++i) {
        selected += Send(list, LB_GETSEL, static_cast<WPARAM>(i)) ? '1' : '0';
        EXPECT_EQ(widget->item(i)->isSelected(), selected.back() == '1') << i;
    }
    EXPECT_EQ(selected, "0101");
    TakeLog();
    const QPoint place = widget->visualItemRect(widget->item(2)).center();
    click(2, Qt::NoModifier);
    QTest::mouseDClick(widget->viewport(), Qt::LeftButton, {}, place);
    const auto heard = TakeLog();
    EXPECT_EQ(heard.front(), "6 LBN_SELCHANGE");
    EXPECT_EQ(heard.back(), "6 LBN_DBLCLK");
    EXPECT_EQ(Send(list, LB_GETCARETINDEX), 2);
}

struct Signals : QObject {
    using QObject::receivers;
};

// A handler may destroy a control while its widget is in the middle of an event, or between a press
// and the release. The widget lives a little longer, but there is nobody to tell any more.
TEST_F(QtDisplayTest, WidgetsThatOutliveTheirControlsTellNobody) {
    Add(TRACKBAR_CLASSA, WS_TABSTOP, 3, {10, 10, 150, 40});
    Add("EDIT", WS_TABSTOP, 4, {10, 50, 150, 70});
    Add("EDIT", WS_TABSTOP | ES_MULTILINE, 5, {10, 80, 150, 120});
    Add("COMBOBOX", WS_TABSTOP | CBS_DROPDOWN, 6, {10, 130, 150, 200});
    Show();
    reaction = [&](UINT message, WPARAM, LPARAM lParam) -> std::optional<INT_PTR> {
        const bool told = message == WM_COMMAND || message == WM_HSCROLL;
        if (told && !log.back().ends_with("FOCUS")) DestroyWindow(reinterpret_cast<HWND>(lParam));
        return std::nullopt;
    };
    auto* slider = Find<QSlider>();
    auto* area = Find<QPlainTextEdit>();
    auto* combo = Find<QComboBox>();
    auto* field = combo->lineEdit();
    QLineEdit* line = nullptr;
    for (QLineEdit* any : DialogTitled("Test")->findChildren<QLineEdit*>()) {
        if (any != field) line = any;
    }
    slider->setSliderDown(true);
    slider->setSliderPosition(40);
    slider->setSliderPosition(50);
    slider->setSliderDown(false);
    for (QWidget* widget :
         {static_cast<QWidget*>(line), static_cast<QWidget*>(area), static_cast<QWidget*>(field)}) {
        QTest::keyClicks(widget, "ab");
    }
    for (const int id : {3, 4, 5, 6}) EXPECT_EQ(GetDlgItem(dialog, id), nullptr) << id;
    for (const auto& [widget, signal] :
         {std::pair<QObject*, const char*>{slider, SIGNAL(valueChanged(int))},
          {slider, SIGNAL(sliderReleased())},
          {line, SIGNAL(textEdited(QString))},
          {area, SIGNAL(textChanged())},
          {field, SIGNAL(textEdited(QString))}}) {
        EXPECT_EQ((widget->*&Signals::receivers)(signal), 0) << signal;
    }
}

}  // namespace
}  // namespace kv
