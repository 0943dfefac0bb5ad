// A sheet's end: lists are committed or cancelled, and an administrator's options reach the
// printer, once.
#include <gtest/gtest.h>
#include <commctrl.h>
#include <kvlist.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "binding/control_fill.h"
#include "settings/item_catalogue.h"
#include "sheet/printer_values.h"
#include "sheet/snapshot.h"
#include "tests/module/support/sheet_fixture.h"
#include "tests/support/controls.h"
#include "ui/sheet_life.h"

namespace kvui {
namespace {

class SheetEnd : public testing::Test {
 protected:
    SheetEnd() { sheet_.InstallPrinter(); }
    DWORD Value(const char* name) {
        DWORD value = 0xDEADBEEF;
        ReadPrinterData(sheet_.context, name, &value, sizeof value);
        return value;
    }
    void End(DWORD options, bool active) {
        sheet_.Set("mdmInstalledOptions", options);
        sheet_.Set("mdmOtherSettings", options & kOtherAutoConfig);
        sheet_.shared.life.active = active;
        EndSheet(sheet_.context);
        EXPECT_FALSE(sheet_.shared.life.active);
    }

    ScratchSheet sheet_;
};

TEST_F(SheetEnd, WritesTheOptionsOnceAndForAdministratorsOnly) {
    End(0x24, true);
    EXPECT_EQ(Value("InstalledOptions"), 0x24u);
    EXPECT_EQ(Value("AutoConfigure"), 1u);
    End(0x04, false);
    EXPECT_EQ(Value("InstalledOptions"), 0x24u) << "another page has done it";
    kv::SetActingAsAdministrator(false);
    End(0x04, true);
    EXPECT_EQ(Value("InstalledOptions"), 0x24u);
    kv::SetActingAsAdministrator(true);
    End(0x04, true);
    EXPECT_EQ(Value("InstalledOptions"), 0x04u);
    EXPECT_EQ(Value("AutoConfigure"), 0u);
}

TEST_F(SheetEnd, CommitsTheListsThatWereChangedAndDropsTheOthers) {
    // How a list is read, how something in it is changed, and how that shows.
    struct List {
        std::function<ListHandle()> read;
        std::function<int(ListHandle, DWORD id)> change;
        std::function<int(ListHandle)> state;
    };
    PrinterBlock* printer = &sheet_.printer;
    std::vector<BinRecord> bins(64);
    const auto binList = [&](DWORD number) {
        return List{[=] { return QDMMLTReadBin(printer, number); },
                    [=, &bins](ListHandle list, DWORD) {
                        QDMMLTGetBinArray(list, printer, bins.data());
                        return QDMMLTDeleteBin(list, printer, &bins[0]);
                    },
                    [=](ListHandle list) { return QDMMLTGetBinNum(list, printer); }};
    };
    const std::map<int, List> lists = {
        {kListPaper,
         {[=] { return QDMMLTReadPaper(printer); },
          [=](ListHandle list, DWORD id) {
              CustomPaperRecord paper{};
              paper.id = 512 + id;
              return QDMMLTAddPaper(list, printer, &paper, kScopeCommonAndOwn);
          },
          [=](ListHandle list) { return QDMMLTGetPaperNum(list, printer, kScopeUser); }}},
        {kListWatermark,
         {[=] { return QDMMLTReadWatermark(printer); },
          [=](ListHandle list, DWORD id) {
              WatermarkRecord watermark{};
              watermark.id = 700 + id;
              return QDMMLTAddWatermark(list, printer, &watermark, kScopeCommonAndOwn);
          },
          [=](ListHandle list) { return QDMMLTGetWatermarkNum(list, printer, kScopeUser); }}},
        {kListBin0, binList(0)},
        {kListBin1, binList(1)},
        {kListOutBin,
         {[=] { return QDMMLTReadOUTBin(printer); },
          [=, &bins](ListHandle list, DWORD) {
              QDMMLTGetOUTBinArray(list, printer, bins.data());
              std::strcpy(bins[0].displayName, "Mine");
              return QDMMLTUpdateOUTBin(list, printer, &bins[0], bins[0].entryId);
          },
          [=, &bins](ListHandle list) {
              QDMMLTGetOUTBinArray(list, printer, bins.data());
              return int{std::strcmp(bins[0].displayName, "Mine") == 0};
          }}},
    };
    ASSERT_EQ(lists.size(), size_t{kListCount});
    // Each round changes all and commits one; the next one sees what is left of that.
    std::map<int, int> before;
    for (int round = 0; round <= kListCount; ++round) {
        for (const auto& [number, list] : lists) {
            ListHandle& handle = sheet_.shared.lists.handles[number];
            EXPECT_EQ(handle, nullptr);
            handle = list.read();
            const int now = list.state(handle);
            if (round > 0) {
                EXPECT_EQ(now != before[number], number == round - 1)
                    << "list " << number << " while " << round - 1 << " was changed";
            }
            before[number] = now;
            ASSERT_NE(list.change(handle, static_cast<DWORD>(round)), 0) << number;
            sheet_.shared.lists.commit[number] = number == round;
        }
        End(0, true);
    }
}

// In the order in which a page fills them: type, the class of its controls.
constexpr std::pair<ItemType, const char*> kKinds[] = {
    {kItemText, "STATIC"},   {kItemCombo, "COMBOBOX"},      {kItemList, "LISTBOX"},
    {kItemRadio, "BUTTON"},  {kItemCheck, "BUTTON"},        {kItemEdit, "EDIT"},
    {kItemButton, "BUTTON"}, {kItemSlider, TRACKBAR_CLASSA}};

TEST(PageStart, FillsTheControlsKindByKind) {
    for (const std::string dialog : {"DLGTAB0", "DLGTAB2", "DLGTAB3", "DLGTAB4"}) {
        ScratchSheet sheet;
        const HWND page = kvtest::Make("STATIC");
        std::map<DWORD, size_t> kindOf;
        for (const ControlItem& item : kCatalogue) {
            for (size_t kind = 0; kind < std::size(kKinds); ++kind) {
                if (dialog != item.dialogName || kKinds[kind].first != item.type) continue;
                kvtest::Make(kKinds[kind].second, page, item.controlId);
                kindOf[item.controlId] = kind;
            }
        }
        // Each kind where its first control is touched.
        std::vector<size_t> order;
        kvtest::Listener display;
        display.changed = [&](HWND window, unsigned) {
            const auto found = kindOf.find(static_cast<DWORD>(GetDlgCtrlID(window)));
            if (found == kindOf.end()) return;
            if (std::count(order.begin(), order.end(), found->second) == 0) {
                order.push_back(found->second);
            }
        };
        InitialiseControls(sheet.context, page, dialog.c_str());
        EXPECT_TRUE(std::is_sorted(order.begin(), order.end())) << dialog;
        EXPECT_GE(order.size(), 4u) << dialog;
        DestroyWindow(page);
    }
}

}  // namespace
}  // namespace kvui
