// Printers on a scratch state directory, whose windows a script works as a person would.
#pragma once

#include <framework/core/install_printer.h>
#include <gtest/gtest.h>
#include <host/index/control_index.h>
#include <host/host_paths.h>
#include <host/window/printer_windows.h>
#include <host/controls/session.h>
#include <platform/display/headless.h>
#include <platform/registry/state_store.h>
#include <platform/window/input.h>
#include <prsht.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace kvhost {

class PrinterTest : public testing::Test {
   protected:
    void SetUp() override {
        char folder[] = "/tmp/kvwindowsXXXXXX";
        ASSERT_NE(mkdtemp(folder), nullptr);
        state_ = folder;
        kv::SetStateDirectory(state_);
        Install("Hall");
        kv::Headless().OnUnanswered([](const std::string& dialog) {
            ADD_FAILURE() << "nobody answered " << dialog;
        });
        kv::Headless().status.clear();
    }
    void TearDown() override {
        EXPECT_EQ(kv::Headless().PendingAnswers(), 0u) << "a window that was expected did not come";
        kv::Headless().SetPolicy(nullptr);
        kv::SetStateDirectory({});
        std::filesystem::remove_all(state_);
    }
    static void Install(const std::string& name) {
        std::string error;
        ASSERT_TRUE(kvcore::InstallPrinter({name, "USB001"}, DataPath("models"), error)) << error;
    }
    // Replaces the rules file of the driver's folder.
    void UseRules(const std::string& text) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(state_)) {
            if (entry.path().filename() == "KVUIMOD.ini") std::ofstream(entry.path()) << text;
        }
    }
    // What the next window or dialog that comes up is answered with.
    static void Next(kv::HeadlessDisplay::Answer answer) {
        kv::Headless().PushAnswer(std::move(answer));
    }
    static bool Press(HWND dialog, int id) { return kv::input::Click(GetDlgItem(dialog, id)); }
    static HWND Item(HWND sheet, int page, int id) {
        kv::input::SelectPage(sheet, page);
        const auto window = reinterpret_cast<HWND>(SendMessageA(sheet, PSM_INDEXTOHWND, page, 0));
        return GetDlgItem(window, id);
    }
    static void Type(HWND sheet, int page, int id, const std::string& text) {
        const HWND edit = Item(sheet, page, id);
        const int end = static_cast<int>(text.size());
        EXPECT_TRUE(kv::input::SetEditText(edit, text, end, end)) << id;
    }
    // Chooses the entry of this value.
    static void Choose(HWND sheet, int page, int id, DWORD value) {
        const HWND combo = Item(sheet, page, id);
        const LRESULT count = SendMessageA(combo, CB_GETCOUNT, 0, 0);
        for (int i = 0; i < count; ++i) {
            if (static_cast<DWORD>(SendMessageA(combo, CB_GETITEMDATA, i, 0)) != value) continue;
            EXPECT_TRUE(kv::input::Choose(combo, i));
            return;
        }
        ADD_FAILURE() << "list " << id << " does not offer " << value;
    }
    static std::string MessageOf(HWND box) {
        char text[2048] = "";
        GetDlgItemTextA(box, 0xFFFF, text, sizeof text);
        return text;
    }
    static LONG Stored(const char* field) {
        Session session;
        EXPECT_TRUE(session.Open({}));
        return ReadRecordField(session.record().data(), *FindField(field));
    }
    static ExitStatus Open() {
        PrinterWindows windows;
        EXPECT_TRUE(windows.Prepare({}, {}));
        return windows.Run();
    }

    std::string state_;
};

}  // namespace kvhost
