// What a window stores: the same whatever page it opened with, and of the printer's own values only
// what was stored.
#include "printer_fixture.h"

#include <gmock/gmock.h>
#include <host/index/sheet_pages.h>
#include <platform/controls/property_sheet.h>
#include <platform/security/access.h>
#include <test_paths.h>
#include <winspool.h>

#include <functional>
#include <map>
#include <utility>

namespace kvhost {
namespace {

enum Page { kBasic, kLayout, kOverlay, kWatermark, kQuality, kDevice, kTroubleshooting, kPages };
constexpr int kNup = 1410, kDetails = 1430, kAutoConfigure = 4012, kCopies = 2014, kZoom = 2009,
              kManual = 1788, kLandscape = 2027, kGrayscale = 3202, kApply = kv::kSheetApplyButton;

class StoredSettings : public PrinterTest {
 protected:
    void TearDown() override {
        kv::SetActingAsAdministrator(std::nullopt);
        PrinterTest::TearDown();
    }
    static DWORD PrinterValue(const char* name) {
        char printerName[] = "Hall";
        HANDLE printer{};
        DWORD value = 0xDEADBEEF, type = 0, needed = 0;
        EXPECT_TRUE(OpenPrinterA(printerName, &printer, nullptr));
        GetPrinterDataA(printer, const_cast<char*>(name), &type, reinterpret_cast<BYTE*>(&value),
                        sizeof value, &needed);
        ClosePrinter(printer);
        return value;
    }
    void BlockRecords() const {
        std::filesystem::remove_all(state_ + "/records");
        std::fclose(std::fopen((state_ + "/records").c_str(), "w"));
    }
    // Offset: byte, wanted byte.
    static std::map<size_t, std::pair<int, int>> DifferentBytes(const Record& is,
                                                                const Record& wanted) {
        std::map<size_t, std::pair<int, int>> bytes;
        for (size_t i = 0; i < is.size(); ++i) {
            if (is[i] != wanted[i]) bytes[i] = {is[i], wanted[i]};
        }
        return bytes;
    }
    static Record StoredRecord() {
        Session session;
        EXPECT_TRUE(session.Open({}));
        return session.stored();
    }
};

TEST_F(StoredSettings, ThePrintersValuesFollowOnlyWhatWasStored) {
    kv::SetActingAsAdministrator(true);
    const struct {
        const char* what;
        std::function<void(HWND)> end;
        DWORD autoConfigure;
        bool asks;
    } rows[] = {
        {"cancelled on another page",
         [](HWND sheet) { Item(sheet, kBasic, kCopies), Press(sheet, IDCANCEL); }, 0, false},
        {"refused by the store, then given up",
         [this](HWND sheet) {
             BlockRecords();
             Press(sheet, kApply);
             Press(sheet, IDCANCEL);
             std::filesystem::remove(state_ + "/records");
         },
         0, true},
        {"applied, then changed back and given up",
         [](HWND sheet) {
             Press(sheet, kApply);
             kv::input::Click(Item(sheet, kDevice, kAutoConfigure));
             Press(sheet, IDCANCEL);
         },
         1, false},
    };
    for (const auto& row : rows) {
        Next([&](HWND sheet) {
            EXPECT_TRUE(kv::input::Click(Item(sheet, kDevice, kAutoConfigure)));
            row.end(sheet);
        });
        if (row.asks) Next([](HWND box) { Press(box, IDOK); });
        Open();
        EXPECT_EQ(PrinterValue("AutoConfigure"), row.autoConfigure) << row.what;
        EXPECT_EQ(Stored("mdmOtherSettings") & 0x20, row.autoConfigure != 0 ? 0x20 : 0) << row.what;
    }
}

// What a person does in the window, and the pairs that do the same on the command line.
struct Change {
    std::function<void(HWND)> inWindow;
    const char* pairs;
};

TEST_F(StoredSettings, AreTheSameFromEveryStartPageAndFromTheCommandLine) {
    const auto cancelBooklet = [](HWND dialog) {
        const HWND nup = GetDlgItem(dialog, kNup);
        kv::input::Choose(nup, static_cast<int>(SendMessageA(nup, CB_GETCOUNT, 0, 0)) - 1);
        Press(dialog, IDCANCEL);
    };
    const Change changes[] = {
        {[](HWND sheet) { Choose(sheet, kLayout, kNup, 102), Choose(sheet, kLayout, kNup, 4); },
         "ComboNup=102 ComboNup=4"},
        {[&](HWND sheet) {
             Choose(sheet, kLayout, kNup, 4);
             Next(cancelBooklet);
             EXPECT_TRUE(kv::input::Click(Item(sheet, kLayout, kDetails)));
         },
         "ComboNup=4"},
        {[](HWND sheet) {
             kv::input::Click(Item(sheet, kBasic, kManual));
             Type(sheet, kBasic, kZoom, "150");
             kv::input::Click(Item(sheet, kBasic, kLandscape));
             Choose(sheet, kLayout, kNup, 20);
             kv::input::Click(Item(sheet, kQuality, kGrayscale));
         },
         "RadioScaling=Manual EditScaling=150 RadioOrientation=Landscape ComboNup=20 "
         "RadioColorMode=1"},
    };
    for (const Change& change : changes) {
        std::filesystem::remove_all(state_ + "/records");
        const std::string program = KV_BIN_DIR "/kvprefs --state " + state_ + " set ";
        EXPECT_EQ(std::system((program + change.pairs + " >/dev/null").c_str()), 0) << change.pairs;
        const Record expected = StoredRecord();
        for (int page = kBasic; page < kPages; ++page) {
            std::filesystem::remove_all(state_ + "/records");
            std::filesystem::create_directory(state_ + "/records");
            std::ofstream(state_ + "/records/Hall.window")
                << "{\"page\": \"" << PageDialog(page) << "\"}";
            Next([&](HWND sheet) {
                change.inWindow(sheet);
                // Every other time all pages have been seen.
                for (int seen = page % 2 == 0 ? kPages : 0; seen < kPages; ++seen)
                    kv::input::SelectPage(sheet, seen);
                kv::input::SelectPage(sheet, page);
                Press(sheet, IDOK);
            });
            EXPECT_EQ(Open(), kDone);
            EXPECT_THAT(DifferentBytes(StoredRecord(), expected), testing::IsEmpty())
                << change.pairs << " from page " << page;
        }
    }
}

}  // namespace
}  // namespace kvhost
