// What tests read from windows and controls and do with them, and what a display hears meanwhile.
#pragma once

#include <gtest/gtest.h>
#include <platform/display/display.h>
#include <platform/window/input.h>
#include <windows.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace kvtest {

inline std::string Text(HWND window) {
    char text[512] = "";
    GetWindowTextA(window, text, sizeof text);
    return text;
}
inline std::string Text(HWND dialog, int id) {
    return Text(GetDlgItem(dialog, id));
}

// Of combo boxes.
inline DWORD ValueAt(HWND combo, LRESULT index) {
    return static_cast<DWORD>(SendMessageA(combo, CB_GETITEMDATA, static_cast<WPARAM>(index), 0));
}
inline DWORD ChosenValue(HWND combo) {
    return ValueAt(combo, SendMessageA(combo, CB_GETCURSEL, 0, 0));
}
inline int IndexOf(HWND combo, DWORD value) {
    const int count = static_cast<int>(SendMessageA(combo, CB_GETCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) {
        if (ValueAt(combo, i) == value) return i;
    }
    return -1;
}
inline std::string Selected(HWND combo) {
    const LRESULT index = SendMessageA(combo, CB_GETCURSEL, 0, 0);
    char text[256] = "";
    if (index >= 0) SendMessageA(combo, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text));
    return text;
}
// Of a list box, in their order.
inline std::vector<std::string> Rows(HWND list) {
    std::vector<std::string> rows;
    const LRESULT count = SendMessageA(list, LB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        char text[256] = "";
        SendMessageA(list, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
        rows.emplace_back(text);
    }
    return rows;
}
inline void ChooseIn(HWND dialog, int id, DWORD value) {
    const HWND combo = GetDlgItem(dialog, id);
    ASSERT_TRUE(kv::input::Choose(combo, IndexOf(combo, value))) << id << " " << value;
}
inline void TypeIn(HWND edit, const std::string& text) {
    ASSERT_TRUE(kv::input::Focus(edit));
    SendMessageA(edit, EM_SETSEL, 0, -1);
    kv::input::Key(VK_DELETE);
    ASSERT_TRUE(kv::input::Type(text));
}
inline bool IsChecked(HWND button) {
    return SendMessageA(button, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

// A visible control; without a parent, a window of its own.
inline HWND Make(const char* className, HWND parent = nullptr, DWORD id = 0, DWORD style = 0) {
    return CreateWindowExA(0, className, "", style | WS_VISIBLE | (parent ? WS_CHILD : WS_POPUP), 0,
                           0, 10, 10, parent, reinterpret_cast<HMENU>(UINT_PTR{id}), nullptr,
                           nullptr);
}

// The display in use until it goes.
class Listener : public kv::Display {
 public:
    Listener() { kv::UseDisplay(this); }
    ~Listener() override { kv::UseDisplay(nullptr); }
    void Changed(HWND window, unsigned changes) override {
        if (changed) changed(window, changes);
    }
    void Invalidated(HWND window) override {
        if (invalidated) invalidated(window);
    }
    bool WaitForInput(HWND /*modal*/) override { return false; }

    std::function<void(HWND, unsigned)> changed;
    std::function<void(HWND)> invalidated;
};

}  // namespace kvtest
