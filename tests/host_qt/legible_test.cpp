// Every text has room in its control: with larger fonts, from right to left, on dark grounds and at
// the scale that the environment sets.
#include "sheet_tour.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QTabBar>

namespace journey {
namespace {

class Legible : public SheetTour {
 protected:
    // Room that a style leaves to a caption.
    template <typename Button>
    static int RoomOf(const Button& button, QStyle::SubElement element) {
        QStyleOptionButton option;
        option.initFrom(&button);
        option.text = button.text();
        return button.style()->subElementRect(element, &option, &button).width();
    }
    static void Measure(const QWidget& widget, const QString& text, int room,
                        const std::string& where) {
        const QString shown = QString(text).remove(u'&');
        const int needed = QFontMetrics(widget.font()).horizontalAdvance(shown);
        EXPECT_LE(needed, room) << where << ": " << shown.toStdString();
    }
    // Labels may narrow their letters, and break between words where there is a second line.
    static void MeasureLabel(const QLabel& label, const std::string& where) {
        QFont font = label.font();
        font.setStretch(75);
        const QFontMetrics narrow(font);
        if (label.height() > 150) return;  // the words of a picture are not shown
        if (label.height() < 2 * label.fontMetrics().lineSpacing()) {
            EXPECT_LE(narrow.horizontalAdvance(QString(label.text()).remove(u'&')), label.width())
                << where << ": " << label.text().toStdString();
            return;
        }
        const QRect needed = narrow.boundingRect(label.rect(), Qt::TextWordWrap, label.text());
        EXPECT_LE(needed.height(), label.height()) << where << ": " << label.text().toStdString();
    }
    static void MeasureWidget(const QWidget& widget, const std::string& where) {
        if (auto* check = qobject_cast<const QCheckBox*>(&widget)) {
            Measure(widget, check->text(), RoomOf(*check, QStyle::SE_CheckBoxContents), where);
        } else if (auto* radio = qobject_cast<const QRadioButton*>(&widget)) {
            Measure(widget, radio->text(), RoomOf(*radio, QStyle::SE_RadioButtonContents), where);
        } else if (auto* push = qobject_cast<const QPushButton*>(&widget)) {
            Measure(widget, push->text(), push->width() - 4, where);
        } else if (auto* group = qobject_cast<const QGroupBox*>(&widget)) {
            Measure(widget, group->title(), group->width() - 4, where);
        } else if (auto* combo = qobject_cast<const QComboBox*>(&widget)) {
            QStyleOptionComboBox option;
            option.initFrom(combo);
            const QRect field = combo->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                               QStyle::SC_ComboBoxEditField, combo);
            Measure(widget, combo->currentText(), field.width(), where);
        } else if (auto* label = qobject_cast<const QLabel*>(&widget)) {
            MeasureLabel(*label, where);
        } else if (auto* tabs = qobject_cast<const QTabBar*>(&widget)) {
            const QRect last = tabs->tabRect(tabs->count() - 1);
            EXPECT_TRUE(tabs->rect().contains(last)) << where << ": the last tab is cut off";
        }
    }
    void MeasureAll(const std::string& prefix) {
        Tour([&](QWidget& window, const std::string& name) {
            Keep(window, prefix + name);
            for (const QWidget* widget : window.findChildren<QWidget*>()) {
                if (widget->isVisible()) MeasureWidget(*widget, prefix + name);
            }
        });
    }
};

TEST_F(Legible, TextsHaveRoom) {
    MeasureAll("plain-");
}

TEST_F(Legible, LargerTextsHaveRoom) {
    UseFont(1.25);
    MeasureAll("larger-");
}

TEST_F(Legible, LargestTextsHaveRoomFromRightToLeft) {
    UseFont(1.5);
    ReadFromRightToLeft();
    MeasureAll("largest-");
}

// The screen of these tests is smaller than the sheet becomes.
TEST_F(Legible, WhatTheScreenHasNoRoomForScrolls) {
    UseFont(1.5);
    TourPages([](QWidget& window, const std::string& name) {
        Keep(window, "small-" + name);
        const QSize screen = window.screen()->availableGeometry().size();
        EXPECT_LE(window.width(), screen.width());
        EXPECT_LT(window.height(), screen.height());
        for (const char* caption : {"OK", "Cancel", "&Apply", "Help"}) {
            int shown = 0;
            for (const QPushButton* button : window.findChildren<QPushButton*>()) {
                if (button->text() != caption || !button->isVisible()) continue;
                const QRect place(button->mapTo(&window, QPoint(0, 0)), button->size());
                shown += window.rect().contains(place) && button->parentWidget() == &window;
            }
            EXPECT_EQ(shown, 1) << name << " " << caption;
        }
        const auto* area = window.findChild<QScrollArea*>();
        ASSERT_NE(area, nullptr);
        EXPECT_TRUE(QTest::qWaitFor([area] { return area->verticalScrollBar()->isVisible(); }))
            << name;
        std::set<HWND> seen;
        while (seen.insert(GetFocus()).second) {
            QWidget* focus = QApplication::focusWidget();
            const auto* tabs = qobject_cast<QTabBar*>(focus);
            const QRect needed = tabs ? tabs->tabRect(tabs->currentIndex()) : focus->rect();
            EXPECT_TRUE(focus->visibleRegion().boundingRect().contains(needed))
                << name << " " << GetDlgCtrlID(GetFocus());
            QTest::keyClick(focus, Qt::Key_Tab);
            kv::Settle();
        }
    });
}

}  // namespace
}  // namespace journey
