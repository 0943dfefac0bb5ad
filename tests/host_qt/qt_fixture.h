// A dialog of the core shown by the Qt display. Tests act on the widgets with events of the desktop
// and compare what the core then holds and what its controls told the dialog.
#pragma once

#include <platform/window/input.h>
#include <platform/window/window.h>

#include <commctrl.h>
#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QWidget>

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/controls.h"

namespace kv {

using kvtest::Text;

// What stood in numbers when the display had been made, on a desktop where it is a comma.
extern std::string decimalPointAfterStart;

// The program: makes the display, runs the chosen tests and answers the exit status.
int RunTestsOnQtDisplay(int argc, char** argv);

// Lets the display bring the widgets up to date.
void Settle();
// The visible dialog of the desktop with a title.
QDialog* DialogTitled(const QString& title);

class QtDisplayTest : public ::testing::Test {
 protected:
    QtDisplayTest();
    ~QtDisplayTest() override;

    HWND Add(const char* className, DWORD style, int id, RECT place, const char* text = "",
             DWORD exStyle = 0);
    // Shows the dialog with the controls added so far; the first tab stop gets the focus.
    void Show();
    static LRESULT Send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return SendMessageA(window, message, wParam, lParam);
    }
    static void AddEntries(HWND control, UINT message, std::initializer_list<const char*> entries);

    // The only widget of its type in the dialog, or the one with a name for screen readers.
    template <typename Widget>
    Widget* Find(const QString& name = {}) {
        Widget* found = nullptr;
        for (Widget* widget : DialogTitled("Test")->findChildren<Widget*>()) {
            if (!widget->isHidden() && (name.isEmpty() || widget->accessibleName() == name)) {
                EXPECT_EQ(found, nullptr) << "more than one";
                found = widget;
            }
        }
        EXPECT_NE(found, nullptr);
        return found;
    }

    // "7 EN_CHANGE" by control id and notification number, "7:768" for numbers without a name here.
    std::vector<std::string> TakeLog() { return std::exchange(log, {}); }

    HWND dialog{};
    std::vector<std::string> log;
    // What the dialog does on a message, after it was written down.
    std::function<std::optional<INT_PTR>(UINT message, WPARAM wParam, LPARAM lParam)> reaction;

 private:
    static INT_PTR Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void Record(UINT message, WPARAM wParam, LPARAM lParam);
};

}  // namespace kv
