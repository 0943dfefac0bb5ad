// What the display hears of a page's gray-out: only the controls whose state really changed.
#include <gtest/gtest.h>
#include <platform/display/display.h>

#include <vector>

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

TEST(GrayOutDisplay, HearsOnlyWhatChanged) {
    constexpr int kStaple = 1303, kPunch = 1306, kFolding = 1312;
    ScratchSheet sheet;
    sheet.UseRules(
        "[ConflictConditions]\n"
        "ComboMediaType0=(2),0,1,(ComboStaple,0,0,(0),H),(ComboPunch,0,0,(0),H)\n"
        "ComboMediaType1=(2,3),0,1,(ComboFolding,0,0,(0),H)\n");
    const HWND page = CreateWindowExA(0, "STATIC", "", WS_POPUP | WS_VISIBLE, 0, 0, 10, 10, nullptr,
                                      nullptr, nullptr, nullptr);
    for (const int id : {kStaple, kPunch, kFolding}) {
        CreateWindowExA(0, "STATIC", "", WS_CHILD | WS_VISIBLE, 0, 0, 1, 1, page,
                        reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), nullptr, nullptr);
    }
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
