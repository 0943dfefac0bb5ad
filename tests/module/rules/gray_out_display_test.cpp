// What the display hears of a page's gray-out: only the controls whose state really changed.
#include <gtest/gtest.h>

#include <vector>

#include "binding/control_fill.h"
#include "resources/resource.h"
#include "rules/gray_out.h"
#include "tests/module/support/sheet_fixture.h"
#include "tests/support/controls.h"

namespace kvui {
namespace {

constexpr DWORD kStaple = IDC_COMBO_STAPLE, kPunch = IDC_COMBO_PUNCH, kFolding = IDC_COMBO_FOLDING;

// A page with three lists, whose rows stand in this order.
HWND MakePage() {
    const HWND page = kvtest::Make("STATIC");
    for (const DWORD id : {kStaple, kPunch, kFolding}) {
        kvtest::Make("COMBOBOX", page, id, CBS_DROPDOWNLIST);
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
    using Ids = std::vector<DWORD>;
    Ids heard;
    kvtest::Listener display;
    display.changed = [&](HWND window, unsigned changes) {
        EXPECT_EQ(changes, unsigned{kv::kChangedEnabled});
        heard.push_back(static_cast<DWORD>(GetDlgCtrlID(window)));
    };
    const auto heardWith = [&](DWORD media) {
        sheet.Set("MediaType", media);
        for (const DWORD id : {kStaple, kPunch, kFolding}) {
            ApplyGrayOutIndex(sheet.context, page, *ItemById(id));
        }
        return std::exchange(heard, {});
    };
    EXPECT_EQ(heardWith(1), Ids{});
    EXPECT_EQ(heardWith(2), (Ids{kStaple, kPunch, kFolding}));
    EXPECT_EQ(heardWith(2), Ids{});
    EXPECT_EQ(heardWith(3), (Ids{kStaple, kPunch}));
    EXPECT_EQ(heardWith(1), Ids{kFolding});
    DestroyWindow(page);
}

}  // namespace
}  // namespace kvui
