// Windows that write down the messages they get, and a display that writes down what it is told.
// Shared by the window and dialog tests.
#pragma once

#include <platform/display/headless.h>
#include <platform/window/window.h>

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace kv {

using Lines = std::vector<std::string>;

// Windows of the class "Recorder" add "<text> <message>" to the log; a hook may act on a message.
class RecorderTest : public ::testing::Test {
 protected:
    RecorderTest();
    ~RecorderTest() override;

    HWND TopLevel(const char* text, DWORD style = WS_VISIBLE);
    HWND Child(HWND parent, const char* text, int id = 0, DWORD style = WS_VISIBLE);
    Lines TakeLog() { return std::exchange(log, {}); }

    Lines log;
    // Runs for every message of a recorder window before it is handled.
    std::function<void(HWND, UINT)> hook;

 private:
    static LRESULT Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void Record(HWND window, UINT message, WPARAM wParam);
};

class RecordingDisplay : public Display {
 public:
    RecordingDisplay() { UseDisplay(this); }
    ~RecordingDisplay() override { UseDisplay(nullptr); }

    void Created(HWND window) override { heard.push_back("created " + NameOf(window)); }
    void Changed(HWND window, unsigned changes) override {
        heard.push_back("changed " + NameOf(window) + " " + std::to_string(changes));
    }
    void Invalidated(HWND window) override { heard.push_back("invalidated " + NameOf(window)); }
    void FocusMoved(HWND window) override { heard.push_back("focus " + NameOf(window)); }
    void Destroyed(HWND window) override { heard.push_back("destroyed " + NameOf(window)); }
    bool WaitForInput(HWND /*modal*/) override { return false; }
    Lines Take() { return std::exchange(heard, {}); }

    Lines heard;

 private:
    static std::string NameOf(HWND window) {
        const Window* record = window ? WindowFromHandle(window) : nullptr;
        return record ? record->text : "nothing";
    }
};

}  // namespace kv
