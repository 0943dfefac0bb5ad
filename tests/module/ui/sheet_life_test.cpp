// A sheet's end: lists are committed or cancelled, and an administrator's options reach the
// printer, once.
#include <framework/core/install_printer.h>
#include <gtest/gtest.h>
#include <commctrl.h>
#include <kvlist.h>
#include <platform/display/display.h>
#include <platform/security/access.h>
#include <test_paths.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <utility>
#include <vector>

#include "binding/control_fill.h"
#include "settings/item_catalogue.h"
#include "sheet/printer_values.h"
#include "sheet/snapshot.h"
#include "tests/module/support/sheet_fixture.h"
#include "ui/sheet_life.h"

namespace kvui {
namespace {

class SheetEnd : public testing::Test {
 protected:
    void SetUp() override {
        std::string error;
        ASSERT_TRUE(kvcore::InstallPrinter("Hall", "USB001", KV_SOURCE_DIR "/models", error));
        ASSERT_TRUE(kvcore::MakePrinterBlock("Hall", sheet_.printer, error)) << error;
        kv::SetActingAsAdministrator(true);
    }
    void TearDown() override { kv::SetActingAsAdministrator(std::nullopt); }
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
    PrinterBlock* printer = &sheet_.printer;
    const auto read = [&](int list) {
        switch (list) {
            case kListPaper:
                return QDMMLTReadPaper(printer);
            case kListWatermark:
                return QDMMLTReadWatermark(printer);
            case kListOutBin:
                return QDMMLTReadOUTBin(printer);
            default:
                return QDMMLTReadBin(printer, list == kListBin0 ? 0 : 1);
        }
    };
    // Something that tells a list that was changed from one that was not.
    const auto change = [&](int list, ListHandle handle, DWORD id) {
        CustomPaperRecord paper{};
        WatermarkRecord watermark{};
        std::vector<BinRecord> bins(64);
        switch (list) {
            case kListPaper:
                paper.id = 512 + id;
                return QDMMLTAddPaper(handle, printer, &paper, kScopeCommonAndOwn);
            case kListWatermark:
                watermark.id = 700 + id;
                return QDMMLTAddWatermark(handle, printer, &watermark, kScopeCommonAndOwn);
            case kListOutBin:
                QDMMLTGetOUTBinArray(handle, printer, bins.data());
                std::strcpy(bins[0].displayName, "Mine");
                return QDMMLTUpdateOUTBin(handle, printer, &bins[0], bins[0].entryId);
            default:
                QDMMLTGetBinArray(handle, printer, bins.data());
                return QDMMLTDeleteBin(handle, printer, &bins[0]);
        }
    };
    const auto state = [&](int list) {
        std::vector<BinRecord> bins(64);
        const ListHandle handle = read(list);
        int result = 0;
        switch (list) {
            case kListPaper:
                result = QDMMLTGetPaperNum(handle, printer, kScopeUser);
                QDMMLTCancelPaper(handle, printer);
                break;
            case kListWatermark:
                result = QDMMLTGetWatermarkNum(handle, printer, kScopeUser);
                QDMMLTCancelWatermark(handle, printer);
                break;
            case kListOutBin:
                QDMMLTGetOUTBinArray(handle, printer, bins.data());
                result = std::strcmp(bins[0].displayName, "Mine") == 0;
                QDMMLTCancelOUTBin(handle, printer);
                break;
            default:
                result = QDMMLTGetBinNum(handle, printer);
                QDMMLTCancelBin(handle, printer);
                break;
        }
        return result;
    };
    for (int committed = 0; committed < kListCount; ++committed) {
        std::vector<int> before, after;
        for (int list = 0; list < kListCount; ++list) {
            before.push_back(state(list));
            sheet_.shared.lists.handles[list] = read(list);
            ASSERT_NE(sheet_.shared.lists.handles[list], nullptr);
            ASSERT_TRUE(change(list, sheet_.shared.lists.handles[list], static_cast<DWORD>(committed)))
                << list;
            sheet_.shared.lists.commit[list] = list == committed;
        }
        End(0, true);
        for (int list = 0; list < kListCount; ++list) {
            EXPECT_EQ(sheet_.shared.lists.handles[list], nullptr);
            EXPECT_EQ(state(list) != before[static_cast<size_t>(list)], list == committed)
                << "list " << list << " while " << committed << " was changed";
        }
    }
}

// Notes when each control is first touched.
class Touches : public kv::Display {
 public:
    Touches() { kv::UseDisplay(this); }
    ~Touches() override { kv::UseDisplay(nullptr); }
    void Changed(HWND window, unsigned /*changes*/) override {
        order.try_emplace(GetDlgCtrlID(window), order.size());
    }
    bool WaitForInput(HWND /*modal*/) override { return false; }
    std::map<int, size_t> order;
};

// In the order in which a page fills them: type, the class of its controls.
constexpr std::pair<ItemType, const char*> kKinds[] = {
    {kItemText, "STATIC"},   {kItemCombo, "COMBOBOX"},      {kItemList, "LISTBOX"},
    {kItemRadio, "BUTTON"},  {kItemCheck, "BUTTON"},        {kItemEdit, "EDIT"},
    {kItemButton, "BUTTON"}, {kItemSlider, TRACKBAR_CLASSA}};

HWND MakePage(const char* dialog) {
    const HWND page = CreateWindowExA(0, "STATIC", "", WS_POPUP | WS_VISIBLE, 0, 0, 10, 10, nullptr,
                                      nullptr, nullptr, nullptr);
    for (const ControlItem& item : kCatalogue) {
        if (std::strcmp(item.dialogName, dialog) != 0) continue;
        for (const auto& [type, className] : kKinds) {
            if (type != item.type) continue;
            CreateWindowExA(0, className, "", WS_CHILD | WS_VISIBLE, 0, 0, 1, 1, page,
                            reinterpret_cast<HMENU>(static_cast<UINT_PTR>(item.controlId)), nullptr,
                            nullptr);
        }
    }
    return page;
}

TEST(PageStart, FillsTheControlsKindByKind) {
    for (const char* dialog : {"DLGTAB0", "DLGTAB2", "DLGTAB3", "DLGTAB4"}) {
        ScratchSheet sheet;
        const HWND page = MakePage(dialog);
        Touches touches;
        InitialiseControls(sheet.context, page, dialog);
        size_t last = 0;
        int kinds = 0;
        for (const auto& [type, className] : kKinds) {
            size_t first = SIZE_MAX;
            for (const ControlItem& item : kCatalogue) {
                const auto found = touches.order.find(static_cast<int>(item.controlId));
                if (item.type != type || std::strcmp(item.dialogName, dialog) != 0 ||
                    found == touches.order.end()) {
                    continue;
                }
                first = std::min(first, found->second);
            }
            if (first == SIZE_MAX) continue;
            EXPECT_GE(first, last) << dialog << ", kind " << type;
            last = first;
            ++kinds;
        }
        EXPECT_GE(kinds, 4) << dialog;
        DestroyWindow(page);
    }
}

}  // namespace
}  // namespace kvui
