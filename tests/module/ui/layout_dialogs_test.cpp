// The dialogs that no control of the pages opens: output details and pages-per-sheet style, run through
// their exports over a scratch sheet.
#include <gtest/gtest.h>
#include <platform/display/headless.h>
#include <platform/window/input.h>
#include <platform/window/paint.h>

#include <functional>
#include <vector>

#include "exports.h"
#include "resources/resource.h"
#include "sheet/snapshot.h"
#include "tests/module/support/sheet_fixture.h"
#include "tests/support/canvas.h"
#include "tests/support/controls.h"

namespace kvui {
namespace {

using kvtest::ChooseIn;

class LayoutDialogs : public testing::Test {
 protected:
    LayoutDialogs() { sheet.context.snapshot = &snapshot; }

    INT_PTR Run(const char* name, DLGPROC procedure, int closer,
                const std::function<void(HWND)>& act) {
        kv::Headless().PushAnswer([&](HWND dialog) {
            act(dialog);
            kv::input::Click(GetDlgItem(dialog, closer));
        });
        return DialogBoxParamA(sheet.context.resources, name, nullptr, procedure,
                               reinterpret_cast<LPARAM>(&sheet.context));
    }
    LRESULT Icon(int id) {
        return reinterpret_cast<LRESULT>(LoadIconA(sheet.context.resources, MAKEINTRESOURCEA(id)));
    }

    ScratchSheet sheet;
    SettingsSnapshot snapshot{};
};

TEST_F(LayoutDialogs, ThePunchPictureFollowsEdgeAndHoles) {
    const struct { DWORD edge; DWORD holes; int icon; } rows[] = {
        {3, 2, 1661}, {3, 3, 1662}, {3, 4, 1663}, {2, 4, 1666}, {2, 3, 1665}, {2, 2, 1664}, {0, 3, 1660},
    };
    sheet.Set("mdmHolePunchNumber", 2);
    const INT_PTR result = Run("_DLGTAB01", DDMTAB01, IDOK, [&](HWND dialog) {
        EXPECT_EQ(kvtest::Text(dialog), "Detail Of Output Setting");
        const HWND picture = GetDlgItem(dialog, IDC_PIC_PUNCH);
        EXPECT_EQ(SendMessageA(picture, STM_GETICON, 0, 0), Icon(1660));
        for (const auto& row : rows) {
            ChooseIn(dialog, IDC_COMBO_PUNCH, row.edge);
            ChooseIn(dialog, IDC_COMBO_PUNCH_NUM, row.holes);
            EXPECT_EQ(sheet.Get("mdmHolePunch"), row.edge);
            EXPECT_EQ(sheet.Get("mdmHolePunchNumber"), row.holes);
            EXPECT_EQ(SendMessageA(picture, STM_GETICON, 0, 0), Icon(row.icon)) << row.icon;
        }
    });
    EXPECT_EQ(result, 1);
    EXPECT_EQ(sheet.Get("mdmHolePunchNumber"), 3u);
    EXPECT_EQ(Run("_DLGTAB01", DDMTAB01, IDCANCEL, [&](HWND dialog) {
        ChooseIn(dialog, IDC_COMBO_PUNCH, 2);
        EXPECT_EQ(sheet.Get("mdmHolePunch"), 2u);
    }), 1);
    EXPECT_EQ(sheet.Get("mdmHolePunch"), 0u);
}

TEST_F(LayoutDialogs, ThePictureShowsAChosenPunchBeforeAnybodyAsksOrRefusesIt) {
    struct Watcher : kv::HeadlessDisplay {
        HWND picture{};
        std::vector<LRESULT> icons;
        void Changed(HWND window, unsigned) override {
            if (window == picture) icons.push_back(SendMessageA(picture, STM_GETICON, 0, 0));
        }
    } watcher;
    sheet.UseRules("[ConflictConditions]\r\nComboPunch0=(2,4),0,0,(ComboFolding,0,0,(1-5),0)\r\n");
    sheet.Set("mdmHolePunch", 3);
    sheet.Set("mdmFolding", 3);
    // No model offers the right edge.
    const struct { DWORD edge, holes; int chosen, kept; } rows[] = {
        {2, 4, 1666, 1663}, {4, 4, 1669, 1663}, {4, 3, 1668, 1662}, {4, 2, 1667, 1661}};
    Run("_DLGTAB01", DDMTAB01, IDOK, [&](HWND dialog) {
        watcher.picture = GetDlgItem(dialog, IDC_PIC_PUNCH);
        const HWND box = GetDlgItem(dialog, IDC_COMBO_PUNCH);
        for (const auto& row : rows) {
            ChooseIn(dialog, IDC_COMBO_PUNCH_NUM, row.holes);
            kv::input::Focus(box);
            const LRESULT entry = SendMessageA(box, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>("Any"));
            SendMessageA(box, CB_SETITEMDATA, static_cast<WPARAM>(entry), row.edge);
            SendMessageA(box, CB_SETCURSEL, static_cast<WPARAM>(entry), 0);
            watcher.PushAnswer([](HWND) { kv::input::Key(VK_ESCAPE); });
            watcher.icons.clear();
            kv::UseDisplay(&watcher);
            SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(IDC_COMBO_PUNCH, CBN_SELENDOK),
                         reinterpret_cast<LPARAM>(box));
            kv::UseDisplay(nullptr);
            EXPECT_EQ(watcher.PendingAnswers(), 0u) << row.chosen;
            ASSERT_FALSE(watcher.icons.empty()) << row.chosen;
            EXPECT_EQ(watcher.icons.front(), Icon(row.chosen)) << row.chosen;
            EXPECT_EQ(SendMessageA(watcher.picture, STM_GETICON, 0, 0), Icon(row.kept)) << row.chosen;
            EXPECT_EQ(sheet.Get("mdmHolePunch"), 3u) << row.chosen;
        }
    });
    EXPECT_EQ(sheet.Get("mdmFolding"), 3u);
}

TEST_F(LayoutDialogs, StyleButtonsOwnTheOrderBitsOnly) {
    for (const int order : {1, 3, 2, 0}) {
        sheet.Set("mdmNupStyle", 4 | 3);
        sheet.Set("mdmNup", 4);
        sheet.Set("mdmDuplexMode", 1);
        const INT_PTR result = Run("_DLGTAB02", DDMTAB02, IDOK, [&](HWND dialog) {
            const HWND button = GetDlgItem(dialog, IDC_RADIO_STYLE_1 + order);
            EXPECT_TRUE(kvtest::IsChecked(GetDlgItem(dialog, IDC_RADIO_STYLE_4)));
            ASSERT_TRUE(kv::input::Click(button));
            EXPECT_TRUE(kvtest::IsChecked(button));
        });
        EXPECT_EQ(result, 1);
        EXPECT_EQ(sheet.Get("mdmNupStyle"), 4u | order);
        EXPECT_EQ(sheet.context.privateSettings->nUpMode & 7, (order & 1u) | (order & 2u) << 1);
    }
    Run("_DLGTAB02", DDMTAB02, IDCANCEL,
        [&](HWND dialog) { kv::input::Click(GetDlgItem(dialog, IDC_RADIO_STYLE_3)); });
    EXPECT_EQ(sheet.Get("mdmNupStyle"), 4u);
}

TEST_F(LayoutDialogs, StylePicturesDarkenWhatLiesUnderThem) {
    Run("_DLGTAB02", DDMTAB02, IDCANCEL, [&](HWND dialog) {
        kvtest::Canvas canvas(32, 32);
        for (int id = IDC_PIC_STYLE_1; id <= IDC_PIC_STYLE_4; ++id) {
            canvas.Fill(RGB(0xF0, 0xE0, 0x70));
            ASSERT_EQ(kv::PaintWindow(GetDlgItem(dialog, id), canvas.dc), kv::Painting::kSelf);
            int darker = 0;
            for (const DWORD pixel : canvas.Read().values) {
                EXPECT_EQ(pixel & ~DWORD{0xF0E070}, 0u);
                darker += pixel != 0xF0E070;
            }
            EXPECT_GT(darker, 20) << id;
        }
    });
}

}  // namespace
}  // namespace kvui
