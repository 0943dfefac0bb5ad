// Lookups on the catalogue: first match, walks of a dialog, icons, help, values of items.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/module/support/scratch_record.h"
#include "settings/item_catalogue.h"

namespace kvui {
namespace {

std::vector<std::string> Walk(const char* dialog, ItemType type) {
    std::vector<std::string> names;
    std::size_t row = 0;
    while (const ControlItem* item = NextItemOfDialog(row, dialog, type, &row)) {
        names.push_back(item->controlName);
    }
    EXPECT_EQ(row, kCatalogue.size());
    return names;
}

TEST(CatalogueLookup, AnIdOrNameThatOccursTwiceFindsItsFirstRow) {
    EXPECT_STREQ(ItemById(1410)->dialogName, "DLGTAB1");
    EXPECT_EQ(ControlIdByName("EditOverlay"), 1892u);
    EXPECT_EQ(ControlIdByName("StaticNup"), 1400u);
    EXPECT_EQ(ItemById(1), nullptr);
    EXPECT_EQ(ControlIdByName("combonup"), 0u);
    EXPECT_EQ(ItemByName(""), nullptr);
}

TEST(CatalogueLookup, AWalkVisitsTheItemsOfADialogAndTypeInTableOrder) {
    EXPECT_EQ(Walk("DLGTAB1", kItemCombo),
              (std::vector<std::string>{"ComboNup", "ComboDuplexBooklet", "ComboSorting"}));
    EXPECT_EQ(Walk("", kItemAnyType).size(), kCatalogue.size());
    EXPECT_EQ(Walk("DLGTAB5", kItemAnyType).size(), 0u);
    EXPECT_EQ(Walk("DLGTAB2", kItemSlider).size(), 4u);
    std::size_t next = 7;
    EXPECT_EQ(NextItemOfDialog(5000, "", kItemAnyType, &next), nullptr);
}

TEST(CatalogueLookup, AValueHasTheIconOfItsEntryButtonOrBox) {
    const struct { const char* name; DWORD value, icon; } rows[] = {
        {"ComboDuplexBooklet", 3, 1502}, {"ComboDuplexBooklet", 99, 0},
        {"ChkCollate", 1, 1694},         {"ChkCollate", 0, 1693},
        {"ChkCollate", 2, 1693},         {"RadioOrientation", 1, 1692},
        {"RadioOrientation", 2, 1691},   {"RadioOrientation", 3, 0},
        {"EditCopies", 1, 0},            {"ComboPaperSize", 9, 0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(IconForValue(*ItemByName(row.name), row.value), row.icon)
            << row.name << ' ' << row.value;
    }
    ControlItem withDefault = *ItemByName("ComboDuplexBooklet");
    withDefault.defaultIconId = 77;
    EXPECT_EQ(IconForValue(withDefault, 99), 77u);
    EXPECT_EQ(IconForValue(withDefault, 3), 1502u);
}

TEST(CatalogueLookup, HelpComesFromTheHelpTableThenTheCatalogue) {
    const std::pair<DWORD, DWORD> rows[] = {{12, 5317}, {1787, 5320}, {1903, 1217},
                                            {3133, 0},  {4208, 1421}, {4101, 0}};
    for (const auto& [id, topic] : rows) EXPECT_EQ(HelpIdFor(id), topic) << id;
}

TEST(ItemValue, IsTheItemsPartOfTheWordAndLeavesTheOthers) {
    ScratchRecord record;
    record.settings()->RenderingIntent = 0x010203;
    const ControlItem& photo = *ItemByName("ComboColorMatchPhoto");
    DWORD value = 0;
    DWORD old = 0;
    ASSERT_TRUE(ReadItemValue(record.devmode(), photo, &value));
    EXPECT_EQ(value, 0x200u);
    EXPECT_TRUE(WriteItemValue(record.devmode(), photo, 0x300, &old));
    EXPECT_EQ(record.settings()->RenderingIntent, 0x010303u);
    EXPECT_EQ(old, 0x010203u);
    EXPECT_FALSE(ReadItemValue(record.devmode(), *ItemByName("BtnAbout"), &value));
    EXPECT_FALSE(WriteItemValue(record.devmode(), *ItemByName("BtnAbout"), 1, &old));
}

TEST(ItemValue, UndoingAChangeKeepsBitsThatARuleChangedInBetween) {
    ScratchRecord record;
    const ControlItem& rotate = *ItemByName("ChkRotate");
    const ControlItem& shift = *ItemByName("ChkImageShifting");
    DWORD old = 0;
    record.settings()->mdmOtherSettings = 0x440;
    WriteItemValue(record.devmode(), rotate, 0x80, &old);
    WriteItemValue(record.devmode(), shift, 0, nullptr);
    RestoreItemField(record.devmode(), rotate, old);
    EXPECT_EQ(record.settings()->mdmOtherSettings, 0x40u);
}

}  // namespace
}  // namespace kvui
