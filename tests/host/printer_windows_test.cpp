// The windows of several printers, one after another.
#include "printer_fixture.h"

namespace kvhost {
namespace {

class PrinterWindowsTest : public PrinterTest {
   protected:
    void SetUp() override {
        PrinterTest::SetUp();
        for (const char* name : {"Lobby", "Office"}) Install(name);
        kv::Headless().SetPolicy([this](HWND sheet) {
            char title[64] = "";
            GetWindowTextA(sheet, title, sizeof title);
            titles_.push_back(title);
            Press(sheet, IDCANCEL);
        });
    }
    // The titles of the windows that came up, in order.
    std::vector<std::string> OpenAll(const std::string& option,
                                     const std::vector<std::string>& named, ExitStatus expected) {
        titles_.clear();
        PrinterWindows windows;
        const bool ready = windows.Prepare({option, false}, named);
        EXPECT_TRUE(ready || titles_.empty());
        EXPECT_EQ(ready ? windows.Run() : kBadInput, expected);
        return titles_;
    }

    using Names = std::vector<std::string>;
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
        EXPECT_EQ(OpenAll(row.option, row.named, row.status), row.opened)
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
