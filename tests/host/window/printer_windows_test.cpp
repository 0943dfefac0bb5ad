// The windows of several printers, one after another.
#include <host/controls/control_driver.h>
#include <winreg.h>
#include <winspool.h>

#include <cstring>

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

TEST_F(PrinterWindowsTest, FaultsOfTheRulesAreOnTheStatusLineOfEveryWindow) {
    UseRules("[EditAttribute]\nEditCopies=1\nEditScaling=1,2\n");
    for (const char* name : {"Hall", "Office"}) {
        kv::Headless().status.clear();
        OpenAll("", {"Lobby", name}, kDone);
        EXPECT_NE(kv::Headless().status.find("KVUIMOD.ini:2: expected three numbers"),
                  std::string::npos);
        EXPECT_NE(kv::Headless().status.find("(and 1 more)"), std::string::npos);
    }
}

TEST_F(PrinterWindowsTest, APrinterThatIsGoneWhenItsTurnComesIsToldAndTheOthersOpen) {
    PrinterWindows windows;
    ASSERT_TRUE(windows.Prepare({}, {"Hall", "Lobby", "Office"}));
    std::string error;
    ASSERT_TRUE(kvcore::RemovePrinter(kv::StatePlace::kPerson, "Lobby", error)) << error;
    EXPECT_EQ(windows.Run(), kBadInput);
    EXPECT_EQ(titles_, (Names{"Hall", "Office"}));
}

TEST_F(PrinterWindowsTest, AValueThatTheRulesDoNotAllowAnyMoreIsNamedBeforeItsWindow) {
    UseRules("[EditAttribute]\nEditCopies=4,1,9999\n");
    {
        Session session;
        ASSERT_TRUE(session.Open({}));
        reinterpret_cast<DEVMODEA*>(session.record().data())->dmCopies = 5000;
        ASSERT_TRUE(session.StoreRecord());
    }
    EXPECT_EQ(OpenAll("", {}, kDone), Names{"Hall"}) << "9999 are allowed";
    UseRules("");
    std::string said;
    Next([&](HWND box) {
        said = MessageOf(box);
        Press(box, IDOK);
    });
    Next([](HWND sheet) {
        Choose(sheet, 1, 1410, 4);
        Press(sheet, IDOK);
    });
    EXPECT_EQ(Open(), kDone);
    EXPECT_NE(said.find("dmCopies is 5000, expected 1 to 999; 1 is used instead"),
              std::string::npos)
        << said;
    EXPECT_EQ(OpenAll("", {}, kDone), Names{"Hall"}) << "it is stored now";
    EXPECT_EQ(Stored("mdmNup"), 4);
}

// The list is left alone, and so are the settings whose values it would name.
TEST_F(PrinterWindowsTest, AListThatCannotBeReadIsSaidAndNothingIsLostByIt) {
    kv::Headless().SetPolicy(nullptr);
    char list[] = "not a list";
    char name[] = "Hall";
    char papers[] = "KVList.Papers";
    PRINTER_DEFAULTSA access{nullptr, nullptr, PRINTER_ACCESS_ADMINISTER | PRINTER_ACCESS_USE};
    HANDLE printer = nullptr;
    ASSERT_TRUE(OpenPrinterA(name, &printer, &access));
    ASSERT_EQ(
        SetPrinterDataA(printer, papers, REG_BINARY, reinterpret_cast<BYTE*>(list), sizeof list),
        ERROR_SUCCESS);
    Session session;
    ASSERT_TRUE(session.Open({}));
    constexpr DWORD kOutputPaper = 0x214;
    const DWORD custom = 600;
    std::memcpy(session.record().data() + sizeof(DEVMODEA) + kOutputPaper, &custom, sizeof custom);
    reinterpret_cast<DEVMODEA*>(session.record().data())->dmPaperSize = 601;
    testing::internal::CaptureStderr();
    ASSERT_NE(session.OpenHeadlessSheet(), nullptr);
    ControlDriver driver(session, ConflictPolicy::kCancel);
    EXPECT_EQ(driver.Set(*FindControl("ComboNup"), "4").status, kDone);
    EXPECT_EQ(driver.Accept().status, kDone);
    EXPECT_EQ(ReadRecordField(session.record().data(), *FindField("mdmOutputPaper")), 600);
    EXPECT_EQ(ReadRecordField(session.record().data(), *FindField("dmPaperSize")), 601);
    session.CloseHeadlessSheet();
    const std::string told = testing::internal::GetCapturedStderr();
    EXPECT_NE(told.find("may be missing"), std::string::npos) << told;
    char kept[64] = "";
    DWORD type = 0, size = 0;
    EXPECT_EQ(
        GetPrinterDataA(printer, papers, &type, reinterpret_cast<BYTE*>(kept), sizeof kept, &size),
        ERROR_SUCCESS);
    EXPECT_STREQ(kept, list);
    ClosePrinter(printer);
}

}  // namespace
}  // namespace kvhost
