// Two who change the lists of one printer: the window tells whose entry somebody else has changed
// or deleted after this window stored it.
#include "printer_fixture.h"

#include <gmock/gmock.h>
#include <kvlist.h>
#include <module/resources/resource.h>
#include <winreg.h>

#include <cstring>
#include <functional>
#include <map>

#include "tests/support/printer_data.h"

namespace kvhost {
namespace {

constexpr int kOverlayPage = 2, kCopies = 2014;

class OverruledEntries : public PrinterTest {
 protected:
    void SetUp() override {
        PrinterTest::SetUp();
        std::string error;
        ASSERT_TRUE(kvcore::MakePrinterBlock("Hall", printer_, error)) << error;
    }
    using Edit = std::function<void(ListHandle)>;
    // As the dialogs of the window do it.
    void StoreHere(const Edit& edit) {
        const ListHandle list = QDMMLTReadPaper(&printer_);
        edit(list);
        EXPECT_TRUE(QDMMLTWritePaper(list, &printer_));
    }
    void Put(ListHandle list, DWORD id, const char* name) {
        CustomPaperRecord record{};
        record.id = id;
        std::snprintf(record.displayName, sizeof record.displayName, "%s", name);
        if (!QDMMLTUpdatePaper(list, &printer_, &record)) {
            EXPECT_TRUE(QDMMLTAddPaper(list, &printer_, &record, kScopeCommon));
        }
    }
    // What another program stores, past all that watches this one.
    static void Somebody(const std::map<DWORD, std::string>& papers) {
        const DWORD head[] = {168, static_cast<DWORD>(papers.size()), 0};
        std::string bytes = "KVL1" + std::string(reinterpret_cast<const char*>(head), sizeof head);
        for (const auto& [id, name] : papers) {
            CustomPaperRecord record{};
            record.id = id;
            std::snprintf(record.displayName, sizeof record.displayName, "%s", name.c_str());
            bytes.append(reinterpret_cast<const char*>(&record), sizeof record);
        }
        ASSERT_EQ(kvtest::PutPrinterData("Hall", "KVList.Papers", REG_BINARY, bytes), 0u);
    }
    // What the line says after the next thing the person does.
    static std::string Told(HWND sheet) {
        kv::Headless().status = "-";
        kv::input::Focus(Item(sheet, 0, kCopies));
        return kv::Headless().status;
    }
    PrinterBlock printer_{};
};

TEST_F(OverruledEntries, AreToldOnceByListNameAndFate) {
    const std::map<DWORD, std::string> mine = {{600, "Card"}, {601, "Slip"}};
    const struct {
        std::map<DWORD, std::string> theirs;
        const char* told;
    } rows[] = {
        {{{600, "Post"}, {601, "Slip"}},
         "Custom paper \"Card\" was changed by somebody else after you"},
        {{{600, "Card"}}, "Custom paper \"Slip\" was deleted by somebody else after you"},
        {{}, "Custom paper \"Card\" was deleted by somebody else after you (and 1 more)"},
        {{{600, "Card"}, {601, "Slip"}, {602, "Old"}},
         "Custom paper \"Old\" was stored again by somebody else after you deleted it"},
        {{{599, "Theirs"}, {600, "Card"}, {601, "Slip"}}, "-"},
    };
    for (const auto& row : rows) {
        Somebody({{602, "Old"}, {603, "Not this window's"}});
        Next([&](HWND sheet) {
            EXPECT_EQ(Told(sheet), "-");
            StoreHere([&](ListHandle list) {
                for (const auto& [id, name] : mine) Put(list, id, name.c_str());
                EXPECT_TRUE(QDMMLTDeletePaper(list, &printer_, 602));
            });
            EXPECT_EQ(Told(sheet), "-") << "nobody else did it";
            Somebody(row.theirs);
            EXPECT_EQ(Told(sheet), row.told);
            EXPECT_EQ(Told(sheet), "-") << "told already";
            Press(sheet, IDCANCEL);
        });
        Open();
    }
}

TEST_F(OverruledEntries, DamageIsNoDeletionAndOwnChangesAreNotTold) {
    Next([&](HWND sheet) {
        StoreHere([&](ListHandle list) { Put(list, 600, "Card"); });
        ASSERT_EQ(kvtest::PutPrinterData("Hall", "KVList.Papers", REG_BINARY, "damaged"), 0u);
        EXPECT_EQ(Told(sheet), "-");
        Somebody({{600, "Card"}});
        StoreHere([&](ListHandle list) { Put(list, 600, "Mine"); });
        EXPECT_EQ(Told(sheet), "-");
        StoreHere([&](ListHandle list) { QDMMLTDeletePaper(list, &printer_, 600); });
        EXPECT_EQ(Told(sheet), "-");
        Press(sheet, IDCANCEL);
    });
    Open();
}

// Every window works the angle of a diagonal watermark out for its own paper.
TEST_F(OverruledEntries, AnotherAngleOfAWatermarkIsNoChange) {
    WatermarkRecord record{};
    record.id = 128;
    std::strcpy(record.name, "Draft");
    const auto somebody = [&] {
        const DWORD head[] = {sizeof record, 1, 0};
        std::string bytes = "KVL1" + std::string(reinterpret_cast<const char*>(head), sizeof head);
        bytes.append(reinterpret_cast<const char*>(&record), sizeof record);
        ASSERT_EQ(kvtest::PutPrinterData("Hall", "KVList.Watermarks", REG_BINARY, bytes), 0u);
    };
    Next([&](HWND sheet) {
        const ListHandle list = QDMMLTReadWatermark(&printer_);
        EXPECT_TRUE(QDMMLTAddWatermark(list, &printer_, &record, kScopeCommon));
        EXPECT_TRUE(QDMMLTWriteWatermark(list, &printer_));
        record.angle = 35;
        somebody();
        EXPECT_EQ(Told(sheet), "-");
        record.size = 7;
        somebody();
        EXPECT_EQ(Told(sheet), "Watermark \"Draft\" was changed by somebody else after you");
        Press(sheet, IDCANCEL);
    });
    Open();
}

TEST_F(OverruledEntries, OverlaysAreToldByTheirNames) {
    std::ofstream(state_ + "/letter.prn") << "letter";
    const auto somebody = [&](const char* name) {
        std::string names = std::string("0=<NONE>") + '\0' + "128=" + name + '\0';
        ASSERT_EQ(kvtest::PutPrinterData("Hall", "[FormOverlayName]", REG_BINARY, names), 0u);
    };
    Next([&](HWND sheet) {
        const HWND add = Item(sheet, kOverlayPage, IDC_BTN_OVERLAY_ADD);
        Next([&](HWND dialog) {
            const auto type = [&](int id, const std::string& text) {
                const int end = static_cast<int>(text.size());
                kv::input::SetEditText(GetDlgItem(dialog, id), text, end, end);
            };
            type(IDC_EDIT_OVERLAY_NAME, "Letter");
            type(IDC_EDIT_OVERLAY_FILE, state_ + "/letter.prn");
            Press(dialog, IDOK);
        });
        EXPECT_TRUE(kv::input::Click(add));
        EXPECT_EQ(Told(sheet), "-");
        somebody("Form");
        EXPECT_EQ(Told(sheet), "Form overlay \"Letter\" was changed by somebody else after you");
        Press(sheet, IDCANCEL);
    });
    Open();
}

}  // namespace
}  // namespace kvhost
