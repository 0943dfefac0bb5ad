// What the display hears of a page's gray-out: only the controls whose state really changed.
#include <gtest/gtest.h>
#include <platform/display/display.h>

#include <vector>

#include "binding/control_fill.h"
#include "rules/gray_out.h"
#include "tests/module/support/sheet_fixture.h"

namespace kvui {
namespace {

class Listener : public kv::Display {
 public:
    Listener() { kv::UseDisplay(this); }
    ~Listener() override { kv::UseDisplay(nullptr); }
    void Changed(HWND window, unsigned changes) override {
        if ((changes & kv::kChangedEnabled) != 0) heard.push_back(GetDlgCtrlID(window));
        other += (changes & ~unsigned{kv::kChangedEnabled}) != 0 ? 1 : 0;
    }
    bool WaitForInput(HWND /*modal*/) override { return false; }
    std::vector<int> heard;
    int other = 0;
};

constexpr int kStaple = 1303, kPunch = 1306, kFolding = 1312;

// A page with three lists, whose rows stand in this order.
HWND MakePage() {
    const HWND page = CreateWindowExA(0, "STATIC", "", WS_POPUP | WS_VISIBLE, 0, 0, 10, 10, nullptr,
                                      nullptr, nullptr, nullptr);
    for (const int id : {kStaple, kPunch, kFolding}) {
        CreateWindowExA(0, "COMBOBOX", "", WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST, 0, 0, 1, 1,
                        page, reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), nullptr, nullptr);
    }
    return page;
}

TEST(GrayOutDisplay, ARefreshWalksTwiceForWhatItGrayedUnlessAHiddenRowFollows) {
    const std::string punch = "ComboMediaType0=(2),0,1,(ComboPunch,0,0,(0),3)\n",
                      staple = "ComboPunch0=(3),0,1,(ComboStaple,0,0,(0),H)\n",
                      hidden = "[ShowItemAccordingToOption]\nComboFolding=0,0,0,0\n",
                      chain = "ComboMediaType0=(2),0,1,(ComboFolding,0,0,(0),1)\n"
                              "ComboFolding0=(1),0,1,(ComboPunch,0,0,(0),3)\n";
    const struct { std::string rules; bool foldingHidden; bool staple; } rows[] = {
        {punch + staple, false, false},
        {punch + staple + hidden, false, false},
        {punch + staple + hidden, true, true},
        {chain + staple, false, true},
    };
    for (const auto& row : rows) {
        ScratchSheet sheet;
        sheet.UseRules("[ConflictConditions]\n" + row.rules);
        sheet.Set("MediaType", 2);
        const HWND page = MakePage();
        if (row.foldingHidden) ShowWindow(GetDlgItem(page, kFolding), SW_HIDE);
        RefreshDialog(sheet.context, page, "DLGTAB01");
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(page, kPunch))) << &row - rows;
        EXPECT_EQ(IsWindowEnabled(GetDlgItem(page, kStaple)) != FALSE, row.staple) << &row - rows;
        DestroyWindow(page);
    }
}

TEST(GrayOutDisplay, HearsOnlyWhatChanged) {
    ScratchSheet sheet;
    sheet.UseRules(
        "[ConflictConditions]\n"
        "ComboMediaType0=(2),0,1,(ComboStaple,0,0,(0),H),(ComboPunch,0,0,(0),H)\n"
        "ComboMediaType1=(2,3),0,1,(ComboFolding,0,0,(0),H)\n");
    const HWND page = MakePage();
    {
        Listener display;
        const auto heardWith = [&](DWORD media) {
            sheet.Set("MediaType", media);
            for (const int id : {kStaple, kPunch, kFolding}) {
                ApplyGrayOutIndex(sheet.context, page, *ItemById(static_cast<DWORD>(id)));
            }
            return std::exchange(display.heard, {});
        };
        EXPECT_EQ(heardWith(1), (std::vector<int>{}));
        EXPECT_EQ(heardWith(2), (std::vector<int>{kStaple, kPunch, kFolding}));
        EXPECT_EQ(heardWith(2), (std::vector<int>{}));
        EXPECT_EQ(heardWith(3), (std::vector<int>{kStaple, kPunch}));
        EXPECT_EQ(heardWith(1), (std::vector<int>{kFolding}));
        EXPECT_EQ(display.other, 0);
    }
    DestroyWindow(page);
}

}  // namespace
}  // namespace kvui
