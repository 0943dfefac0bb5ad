// The windows of several printers, one after another, answered by a script as a person would.
#include <framework/core/install_printer.h>
#include <gtest/gtest.h>
#include <host/host_paths.h>
#include <host/printer_windows.h>
#include <platform/display/headless.h>
#include <platform/registry/state_directory.h>
#include <platform/window/input.h>
#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

namespace kvhost {
namespace {

class PrinterWindowsTest : public testing::Test {
   protected:
    void SetUp() override {
        char folder[] = "/tmp/kvwindowsXXXXXX";
        ASSERT_NE(mkdtemp(folder), nullptr);
        state_ = folder;
        kv::SetStateDirectory(state_);
        for (const char* name : {"Hall", "Lobby", "Office"}) {
            std::string error;
            ASSERT_TRUE(kvcore::InstallPrinter(name, "USB001", DataPath("models"), error)) << error;
        }
        kv::Headless().SetPolicy([this](HWND sheet) {
            char title[64] = "";
            GetWindowTextA(sheet, title, sizeof title);
            titles_.push_back(title);
            kv::input::Click(GetDlgItem(sheet, IDCANCEL));
        });
    }
    void TearDown() override {
        kv::Headless().SetPolicy(nullptr);
        kv::SetStateDirectory({});
        std::filesystem::remove_all(state_);
    }
    // The titles of the windows that came up, in order.
    std::vector<std::string> Open(const std::string& option, const std::vector<std::string>& named,
                                  ExitStatus expected) {
        titles_.clear();
        PrinterWindows windows;
        const bool ready = windows.Prepare({option, false}, named);
        EXPECT_TRUE(ready || titles_.empty());
        EXPECT_EQ(ready ? windows.Run() : kBadInput, expected);
        return titles_;
    }

    using Names = std::vector<std::string>;
    std::string state_;
    Names titles_;
};

TEST_F(PrinterWindowsTest, EachPrinterHasItsTurnAndUnknownNamesOpenNothing) {
    const struct {
        const char* option;
        Names named;
        ExitStatus status;
        Names opened;
    } rows[] = {
        {"", {}, kDone, {"Hall"}},
        {"Lobby", {}, kDone, {"Lobby"}},
        {"", {"Office", "Hall", "Lobby"}, kDone, {"Office", "Hall", "Lobby"}},
        {"Lobby", {"Office", "lobby", "OFFICE"}, kDone, {"Lobby", "Office"}},
        {"", {"Office", "Cellar"}, kBadInput, {}},
        {"Cellar", {"Office"}, kBadInput, {}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Open(row.option, row.named, row.status), row.opened)
            << row.option << " " << testing::PrintToString(row.named);
    }
}

TEST_F(PrinterWindowsTest, APrinterThatIsGoneWhenItsTurnComesIsToldAndTheOthersOpen) {
    PrinterWindows windows;
    ASSERT_TRUE(windows.Prepare({}, {"Hall", "Lobby", "Office"}));
    std::string error;
    ASSERT_TRUE(kvcore::RemovePrinter("Lobby", error)) << error;
    EXPECT_EQ(windows.Run(), kBadInput);
    EXPECT_EQ(titles_, (Names{"Hall", "Office"}));
}

}  // namespace
}  // namespace kvhost
