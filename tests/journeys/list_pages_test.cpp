// The Watermark and Overlay pages: what is chosen, what the buttons under the lists can do with it.
#include <kvlist.h>

#include "tests/journeys/preferences.h"

namespace journey {
namespace {

enum Control { kList = 8002, kEdit = 8005, kAdd = 8006, kDelete = 8007, kDefaults = 12 };
constexpr size_t kChosen = 0x1BC, kRecord = 0x270, kRecordText = kRecord + 27;
constexpr DWORD kOwn = 130;

class ListPages : public Preferences {
 protected:
    void AddOwn() {
        const ListHandle list = QDMMLTReadWatermark(&printer);
        WatermarkRecord record{};
        record.id = kOwn;
        std::strcpy(record.name, "Mine");
        ASSERT_TRUE(QDMMLTAddWatermark(list, &printer, &record, 2));
        ASSERT_TRUE(QDMMLTWriteWatermark(list, &printer));
    }
    bool IsStored(DWORD id) {
        const ListHandle list = QDMMLTReadWatermark(&printer);
        WatermarkRecord record{};
        const bool found = QDMMLTGetWatermarkWithID(list, &printer, &record, id) != 0;
        QDMMLTCancelWatermark(list, &printer);
        return found;
    }
    void Choose(DWORD id) {
        const HWND list = Item(kList, kWatermark);
        const LRESULT count = SendMessageA(list, LB_GETCOUNT, 0, 0);
        for (int i = 0; i < count; ++i) {
            if (static_cast<DWORD>(SendMessageA(list, LB_GETITEMDATA, i, 0)) == id) {
                ASSERT_TRUE(kv::input::Choose(list, i));
                return;
            }
        }
        FAIL() << "no watermark " << id;
    }
    // Those of the buttons that can be pressed: "aed" for Add, Edit, Delete; "-" for hidden ones.
    std::string Buttons(int page, int add, int edit, int remove) {
        std::string enabled;
        for (const auto& [id, letter] : {std::pair{add, 'a'}, {edit, 'e'}, {remove, 'd'}}) {
            const HWND button = Item(id, page);
            if (!IsWindowVisible(button)) {
                enabled += '-';
            } else if (IsWindowEnabled(button)) {
                enabled += letter;
            }
        }
        return enabled;
    }
    std::string Buttons() { return Buttons(kWatermark, kAdd, kEdit, kDelete); }
    const char* CopiedText() {
        return reinterpret_cast<const char*>(record_.data()) + sizeof(DEVMODEA) + kRecordText;
    }
    void Press(int id, int answer) { InDialog(kWatermark, id, answer, [](HWND) {}); }
};

TEST_F(ListPages, ChoosingNoWatermarkLeavesNothingOfTheLastOne) {
    OpenSheet();
    Choose(1);
    EXPECT_EQ(Private(kRecord), 1u);
    EXPECT_STREQ(CopiedText(), "CONFIDENTIAL");
    Choose(0);
    EXPECT_EQ(Private(kChosen), 0u);
    EXPECT_EQ(Private(kRecord), 0u);
    EXPECT_STREQ(CopiedText(), "");
    // Defaults choose none as well; the page finishes the record when it applies.
    Choose(2);
    ASSERT_TRUE(kv::input::Click(Item(kDefaults, kWatermark)));
    ASSERT_TRUE(PressOk());
    EXPECT_EQ(Private(kRecord), 0u);
    EXPECT_STREQ(CopiedText(), "");
}

TEST_F(ListPages, ButtonsActOnWhatMayBeChangedOnly) {
    AddOwn();
    OpenSheet();
    EXPECT_EQ(Buttons(), "a") << "no watermark is chosen";
    Choose(1);
    EXPECT_EQ(Buttons(), "a") << "the printer's own";
    Choose(kOwn);
    EXPECT_EQ(Buttons(), "aed");
    EXPECT_EQ(Buttons(kOverlay, 1893, 1892, 1894), "a") << "there is no overlay";
    Press(kDelete, IDCANCEL);
    EXPECT_EQ(Private(kChosen), kOwn);
    Press(kDelete, IDOK);
    EXPECT_EQ(Private(kChosen), 3u) << "the one above";
    EXPECT_EQ(Private(kRecord), 3u);
    EXPECT_EQ(Buttons(), "a");
    EXPECT_TRUE(IsStored(kOwn));
    ASSERT_TRUE(PressOk());
    EXPECT_FALSE(IsStored(kOwn));

    AddOwn();
    SetPrivate(kChosen, kOwn);
    UseRules(
        "[Watermark]\nCurrentUser=1\n[ConflictConditions]\n"
        "ComboWatermark0=(130),0,1,(ButtonEditWatermark,0,0,(0),H)\n"
        "[ShowItemAccordingToOption]\nEditOverlay=0,0,0,5\n");
    OpenSheet();
    EXPECT_EQ(Buttons(), "d") << "the list is full, and a rule grays Edit";
    EXPECT_EQ(Buttons(kOverlay, 1893, 1892, 1894), "") << "its option is missing";
    CloseSheet();
    Act(Actor::kUser);
    OpenSheet();
    EXPECT_EQ(Buttons(), "---");
    EXPECT_EQ(Buttons(kOverlay, 1893, 1892, 1894), "---");
}

}  // namespace
}  // namespace journey
