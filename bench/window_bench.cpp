// The window of the Qt display: one click until everything is painted again, and the window until it
// is on the screen; each beside plain Qt widgets. With --once=WHAT the program shows one window instead
// and prints how long that took and the memory it needs: "sheet", or "dialog:N" with N plain widgets.
#include <benchmark/benchmark.h>
#include <host/display_plugin.h>
#include <platform/display/display.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QMouseEvent>
#include <QPixmap>
#include <QPushButton>
#include <chrono>
#include <fstream>
#include <string>
#include <vector>

#include "bench/desk.h"

namespace {

using kvbench::Desk;
using kvbench::TheDesk;

constexpr int kRadioPortrait = 2026;
constexpr int kRadioLandscape = 2027;

void Settle() {
    QApplication::sendPostedEvents();
    QApplication::processEvents();
}

void ClickWithMouse(QWidget& widget) {
    const QPointF place(8, widget.height() / 2.0);
    const QPointF global = widget.mapToGlobal(place);
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, place, global, Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                          Qt::NoModifier);
        QApplication::sendEvent(&widget, &event);
    }
}

QWidget* VisibleDialog() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->isVisible() && qobject_cast<QDialog*>(widget) != nullptr) return widget;
    }
    return nullptr;
}

// The widget of a core button, known by the text that both show.
QAbstractButton* ButtonOf(HWND window) {
    char text[128] = "";
    GetWindowTextA(window, text, sizeof text);
    for (QAbstractButton* button : VisibleDialog()->findChildren<QAbstractButton*>()) {
        if (button->isVisible() && button->text() == QLatin1String(text)) return button;
    }
    return nullptr;
}

void WindowEvent(benchmark::State& state) {
    Desk& desk = TheDesk();
    const HWND sheet = desk.module->CreateSheet(desk.request);
    const HWND page = desk.Page(sheet, 0);
    Settle();
    QAbstractButton* const buttons[] = {ButtonOf(GetDlgItem(page, kRadioPortrait)),
                                        ButtonOf(GetDlgItem(page, kRadioLandscape))};
    if (buttons[0] == nullptr || buttons[1] == nullptr) {
        state.SkipWithError("the orientation buttons were not found");
    } else {
        int turn = 0;
        for (auto _ : state) {
            ClickWithMouse(*buttons[++turn & 1]);
            Settle();
        }
        if (!buttons[turn & 1]->isChecked()) state.SkipWithError("the click did nothing");
    }
    DestroyWindow(sheet);
    Settle();
}
BENCHMARK(WindowEvent)->Unit(benchmark::kMicrosecond);

// A form with 30 widgets to enable and one picture to change.
void WindowEventPlainForm(benchmark::State& state) {
    constexpr int kWidgets = 30;
    QDialog form;
    std::vector<QPushButton*> widgets;
    for (int i = 0; i < kWidgets; ++i) {
        auto* button = new QPushButton(QString::number(i), &form);
        button->setGeometry(10 + i % 5 * 80, 10 + i / 5 * 30, 75, 24);
        widgets.push_back(button);
    }
    QLabel picture(&form);
    picture.setGeometry(10, 200, 160, 194);
    QPixmap pixmaps[] = {QPixmap(160, 194), QPixmap(160, 194)};
    pixmaps[0].fill(Qt::blue);
    pixmaps[1].fill(Qt::green);
    form.show();
    Settle();
    int turn = 0;
    for (auto _ : state) {
        ++turn;
        for (QPushButton* widget : widgets) widget->setEnabled((turn & 1) != 0);
        picture.setPixmap(pixmaps[turn & 1]);
        Settle();
    }
}
BENCHMARK(WindowEventPlainForm)->Unit(benchmark::kMicrosecond);

size_t ShownWidgets() {
    return static_cast<size_t>(VisibleDialog()->findChildren<QWidget*>().size());
}

void WindowUp(benchmark::State& state) {
    Desk& desk = TheDesk();
    for (auto _ : state) {
        const HWND sheet = desk.module->CreateSheet(desk.request);
        Settle();
        DestroyWindow(sheet);
        Settle();
    }
}
BENCHMARK(WindowUp)->Unit(benchmark::kMillisecond);

void FillDialog(QDialog& dialog, size_t widgets) {
    for (size_t i = 0; i < widgets; ++i) {
        auto* button = new QPushButton(QString::number(i), &dialog);
        button->setGeometry(static_cast<int>(i % 8) * 80, static_cast<int>(i / 8) * 26, 75, 24);
    }
    dialog.resize(640, 480);
}

void WindowUpPlainDialog(benchmark::State& state) {
    Desk& desk = TheDesk();
    const HWND sheet = desk.module->CreateSheet(desk.request);
    Settle();
    const size_t widgets = ShownWidgets();
    DestroyWindow(sheet);
    Settle();
    for (auto _ : state) {
        QDialog dialog;
        FillDialog(dialog, widgets);
        dialog.show();
        Settle();
    }
}
BENCHMARK(WindowUpPlainDialog)->Unit(benchmark::kMillisecond);

// Resident memory of the program, in kilobytes.
long ResidentKilobytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("VmRSS:", 0) == 0) return std::strtol(line.c_str() + 6, nullptr, 10);
    }
    return 0;
}

int ShowOnce(const std::string& what) {
    Desk& desk = TheDesk();
    const auto begin = std::chrono::steady_clock::now();
    QDialog dialog;
    HWND sheet = nullptr;
    size_t widgets = 0;
    if (what == "sheet") {
        sheet = desk.module->CreateSheet(desk.request);
        Settle();
        widgets = ShownWidgets();
    } else {
        widgets = std::strtoul(what.c_str() + what.find(':') + 1, nullptr, 10);
        FillDialog(dialog, widgets);
        dialog.show();
        Settle();
    }
    const std::chrono::duration<double, std::nano> taken = std::chrono::steady_clock::now() - begin;
    std::printf("{\"widgets\": %zu, \"ns\": %.0f, \"resident_kb\": %ld}\n", widgets, taken.count(),
                ResidentKilobytes());
    if (sheet != nullptr) DestroyWindow(sheet);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const char* error = nullptr;
    kv::Display* display = KvCreateQtDisplay(&argc, argv, &error);
    if (display == nullptr) {
        std::fprintf(stderr, "kvwindowbench: %s\n", error);
        return 1;
    }
    kv::UseDisplay(display);
    const std::string once = "--once=";
    int result = 0;
    if (argc > 1 && std::string(argv[1]).rfind(once, 0) == 0) {
        result = ShowOnce(argv[1] + once.size());
    } else {
        benchmark::Initialize(&argc, argv);
        benchmark::RunSpecifiedBenchmarks();
    }
    Settle();
    kv::UseDisplay(nullptr);
    KvDestroyQtDisplay(display);
    return result;
}
