// A parent window that writes down what controls tell it. The tests of this folder compare that
// list with the list of the platform's order.
#pragma once

#include <platform/display/headless.h>
#include <platform/window/input.h>
#include <platform/window/window.h>

#include <commctrl.h>
#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kv {

class ControlTest : public ::testing::Test {
 protected:
    ControlTest();
    ~ControlTest() override;

    HWND Add(const char* className, DWORD style, int id, const char* text = "");
    static std::string Text(HWND window);
    static LRESULT Send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return SendMessageA(window, message, wParam, lParam);
    }
    static LRESULT SendText(HWND window, UINT message, WPARAM wParam, const char* text) {
        return SendMessageA(window, message, wParam, reinterpret_cast<LPARAM>(text));
    }
    // The list since the last call: "7 EN_UPDATE" for control 7, "5 TB_THUMBTRACK 40" for
    // scrolling.
    std::vector<std::string> TakeLog() { return std::exchange(log, {}); }
    // Lets the parent act whenever a control notifies it of `code`.
    void At(WORD code, std::function<void()> act) {
        reaction = [=](UINT message, WPARAM wParam, LPARAM) -> std::optional<LRESULT> {
            if (message == WM_COMMAND && HIWORD(wParam) == code) act();
            return std::nullopt;
        };
    }

    HWND parent{};
    std::vector<std::string> log;
    // What the parent does with a message, after it was written down.
    std::function<std::optional<LRESULT>(UINT message, WPARAM wParam, LPARAM lParam)> reaction;

 private:
    static LRESULT Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void Record(UINT message, WPARAM wParam, LPARAM lParam);
};

// Counts what a display hears of one window.
class CountingDisplay : public Display {
 public:
    explicit CountingDisplay(HWND watched) : watched_(watched) { UseDisplay(this); }
    ~CountingDisplay() override { UseDisplay(nullptr); }

    void Changed(HWND window, unsigned changes) override {
        if (window == watched_) heard.push_back(changes);
    }
    bool WaitForInput(HWND /*modal*/) override { return false; }

    std::vector<unsigned> heard;

 private:
    HWND watched_;
};

}  // namespace kv
