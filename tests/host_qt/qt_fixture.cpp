// The program's main function, the dialog of the tests, and the list of what its controls tell it.
#include "qt_fixture.h"

#include <host/display_plugin.h>
#include <platform/dialog/create_dialog.h>

#include <clocale>
#include <cstdio>
#include <cstring>

#include "tests/support/notification_names.h"

namespace kv {
namespace {

QtDisplayTest* current = nullptr;

std::string Describe(HWND control, int id, WORD code) {
    const char* name = test::NotificationName(control, code);
    return std::to_string(id) + (name ? std::string(" ") + name : ":" + std::to_string(code));
}

}  // namespace

std::string decimalPointAfterStart;

void Settle() {
    QCoreApplication::processEvents();
}

QDialog* DialogTitled(const QString& title) {
    Settle();
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* dialog = qobject_cast<QDialog*>(widget);
        if (dialog && dialog->isVisible() && dialog->windowTitle() == title) return dialog;
    }
    return nullptr;
}

QtDisplayTest::QtDisplayTest() {
    current = this;
    // A classic template without controls: style, extended style, count, place; no menu and class.
    struct {
        DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU;
        DWORD exStyle = 0;
        WORD count = 0;
        SHORT place[4] = {0, 0, 200, 150};
        WORD texts[3] = {};
    } bytes;
    DialogCreation creation;
    creation.bytes = {reinterpret_cast<const BYTE*>(&bytes), sizeof bytes};
    creation.procedure = Procedure;
    dialog = CreateDialogFrom(creation);
    SetWindowTextA(dialog, "Test");
}

QtDisplayTest::~QtDisplayTest() {
    reaction = nullptr;
    if (IsWindow(dialog)) DestroyWindow(dialog);
    current = nullptr;
    Settle();
}

HWND QtDisplayTest::Add(const char* className, DWORD style, int id, RECT place, const char* text,
                        DWORD exStyle) {
    return CreateWindowExA(exStyle, className, text, WS_CHILD | WS_VISIBLE | style, place.left,
                           place.top, place.right - place.left, place.bottom - place.top, dialog,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
}

void QtDisplayTest::Show() {
    ShowWindow(dialog, SW_SHOW);
    if (const HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE)) SetFocus(first);
    ASSERT_NE(DialogTitled("Test"), nullptr);
    ASSERT_TRUE(QTest::qWaitForWindowActive(DialogTitled("Test")));
    Settle();
    TakeLog();
}

void QtDisplayTest::AddEntries(HWND control, UINT message,
                               std::initializer_list<const char*> entries) {
    for (const char* entry : entries) {
        SendMessageA(control, message, 0, reinterpret_cast<LPARAM>(entry));
    }
}

void QtDisplayTest::Record(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto control = reinterpret_cast<HWND>(lParam);
    if (message == WM_COMMAND) {
        log.push_back(Describe(control, LOWORD(wParam), HIWORD(wParam)));
    } else if (message == WM_HSCROLL || message == WM_VSCROLL) {
        log.push_back(Describe(control, GetDlgCtrlID(control), LOWORD(wParam)));
    }
}

INT_PTR QtDisplayTest::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!current || window != current->dialog) return FALSE;
    current->Record(message, wParam, lParam);
    if (current->reaction) {
        if (const auto answer = current->reaction(message, wParam, lParam)) return *answer;
    }
    return FALSE;
}

int RunTestsOnQtDisplay(int argc, char** argv) {
    // Another kind of screen may be given.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleMock(&argc, argv);
    const char* error = nullptr;
    Display* display = KvCreateQtDisplay(&argc, argv, &error);
    if (!display) {
        std::fprintf(stderr, "%s\n", error);
        return 1;
    }
    decimalPointAfterStart = std::localeconv()->decimal_point;
    UseDisplay(display);
    const int result = RUN_ALL_TESTS();
    UseDisplay(nullptr);
    KvDestroyQtDisplay(display);
    return result;
}

}  // namespace kv
