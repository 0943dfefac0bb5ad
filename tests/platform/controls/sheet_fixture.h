// Property pages for tests: compiled dialog resources made on the spot, and page procedures that
// write down what the sheet tells them.
#pragma once

#include <platform/controls/property_sheet.h>
#include <platform/display/headless.h>
#include <platform/resource/register.h>
#include <platform/window/input.h>
#include <platform/window/window.h>

#include <prsht.h>
#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace kv {

// Every page has an edit 10 and a push button 11, and a caption of its own.
class SheetTest : public ::testing::Test {
 protected:
    SheetTest();
    ~SheetTest() override;

    // The records of the pages PAGEA, PAGEB and PAGEC ("Alpha", "Beta", "Gamma").
    std::vector<PROPSHEETPAGEA> Pages();
    HWND Open(DWORD flags = PSH_HASHELP, std::vector<PROPSHEETPAGEA> pages = {}, UINT start = 0);
    HWND Page(int index) {
        return reinterpret_cast<HWND>(
            SendMessageA(sheet, PSM_INDEXTOHWND, static_cast<WPARAM>(index), 0));
    }
    int ActivePage();
    HWND Button(int id) { return GetDlgItem(sheet, id); }
    // "Alpha SETACTIVE", "Beta APPLY 1" and so on since the last call.
    std::vector<std::string> TakeLog() { return std::exchange(log, {}); }

    HWND sheet{};
    std::vector<std::string> log;
    // Answers of pages to notifications: "Alpha KILLACTIVE" -> TRUE.
    std::map<std::string, LRESULT> answers;
    // Runs at a notification, before it is answered; at an EN_KILLFOCUS with the edit.
    std::function<void(const std::string& event, HWND page)> atEvent;
    LPARAM initParam = 0;

 private:
    static INT_PTR PageProcedure(HWND page, UINT message, WPARAM wParam, LPARAM lParam);
    void Note(HWND page, const std::string& event, const std::string& detail = "");

    std::vector<unsigned char> file_;
    std::unique_ptr<ModuleResources> resources_;
};

}  // namespace kv
