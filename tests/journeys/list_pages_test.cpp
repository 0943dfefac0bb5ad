// The Watermark and Overlay pages: what is chosen, what the buttons under the lists can do with it.
#include <kvlist.h>

#include "tests/journeys/preferences.h"

namespace journey {
namespace {

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
        const HWND list = Item(IDC_LIST_WATERMARK, kWatermark);
        const LRESULT count = SendMessageA(list, LB_GETCOUNT, 0, 0);
        for (int i = 0; i < count; ++i) {
            if (static_cast<DWORD>(SendMessageA(list, LB_GETITEMDATA, i, 0)) != id) continue;
            ASSERT_TRUE(kv::input::Choose(list, i));
            return;
        }
        FAIL() << "no watermark " << id;
    }
    // The buttons that can be pressed: "aed" for Add, Edit, Delete; "-" for hidden ones.
    std::string Buttons(int page) {
        const bool overlay = page == kOverlay;
        const std::pair<int, char> buttons[] = {
            {overlay ? IDC_BTN_OVERLAY_ADD : IDC_BTN_WATERMARK_ADD, 'a'},
            {overlay ? IDC_BTN_OVERLAY_EDIT : IDC_BTN_WATERMARK_EDIT, 'e'},
            {overlay ? IDC_BTN_OVERLAY_DELETE : IDC_BTN_WATERMARK_DELETE, 'd'}};
        std::string enabled;
        for (const auto& [id, letter] : buttons) {
            const HWND button = Item(id, page);
            if (!IsWindowVisible(button)) {
                enabled += '-';
            } else if (IsWindowEnabled(button)) {
                enabled += letter;
            }
        }
        return enabled;
    }
    const WatermarkRecord& Copied() {
        return *reinterpret_cast<const WatermarkRecord*>(Settings().watermarkRecord);
    }
    void Press(int id, int answer) { InDialog(kWatermark, id, answer, [](HWND) {}); }
};

TEST_F(ListPages, ChoosingNoWatermarkLeavesNothingOfTheLastOne) {
    OpenSheet();
    Choose(1);
    EXPECT_EQ(Copied().id, 1u);
    EXPECT_STREQ(Copied().text, "CONFIDENTIAL");
    Choose(0);
    EXPECT_EQ(Settings().mdmWatermark, 0u);
    EXPECT_EQ(Copied().id, 0u);
    EXPECT_STREQ(Copied().text, "");
    // Defaults choose none as well; the page finishes the record when it applies.
    Choose(2);
    ASSERT_TRUE(kv::input::Click(Item(IDC_DEFAULTS, kWatermark)));
    ASSERT_TRUE(PressOk());
    EXPECT_EQ(Copied().id, 0u);
    EXPECT_STREQ(Copied().text, "");
}

TEST_F(ListPages, ButtonsActOnWhatMayBeChangedOnly) {
    AddOwn();
    OpenSheet();
    EXPECT_EQ(Buttons(kWatermark), "a") << "no watermark is chosen";
    Choose(1);
    EXPECT_EQ(Buttons(kWatermark), "a") << "the printer's own";
    Choose(kOwn);
    EXPECT_EQ(Buttons(kWatermark), "aed");
    EXPECT_EQ(Buttons(kOverlay), "a") << "there is no overlay";
    Press(IDC_BTN_WATERMARK_DELETE, IDCANCEL);
    EXPECT_EQ(Settings().mdmWatermark, kOwn);
    Press(IDC_BTN_WATERMARK_DELETE, IDOK);
    EXPECT_EQ(Settings().mdmWatermark, 3u) << "the one above";
    EXPECT_EQ(Copied().id, 3u);
    EXPECT_EQ(Buttons(kWatermark), "a");
    EXPECT_TRUE(IsStored(kOwn));
    ASSERT_TRUE(PressOk());
    EXPECT_FALSE(IsStored(kOwn));

    AddOwn();
    Settings().mdmWatermark = kOwn;
    UseRules(
        "[Watermark]\nCurrentUser=1\n[ConflictConditions]\n"
        "ComboWatermark0=(130),0,1,(ButtonEditWatermark,0,0,(0),H)\n"
        "[ShowItemAccordingToOption]\nEditOverlay=0,0,0,5\n");
    OpenSheet();
    EXPECT_EQ(Buttons(kWatermark), "d") << "the list is full, and a rule grays Edit";
    EXPECT_EQ(Buttons(kOverlay), "") << "its option is missing";
    CloseSheet();
    Act(Actor::kUser);
    OpenSheet();
    EXPECT_EQ(Buttons(kWatermark), "---");
    EXPECT_EQ(Buttons(kOverlay), "---");
}

}  // namespace
}  // namespace journey
