// The item catalogue against the compiled resources: every caption, entry and icon it names exists.
#include <gtest/gtest.h>
#include <windows.h>

#include <set>

#include "settings/item_catalogue.h"
#include "templates.h"

namespace kvui {
namespace {

bool IconExists(DWORD id) {
    return FindResourceA(nullptr, MAKEINTRESOURCEA(id), RT_GROUP_ICON) != nullptr;
}

TEST(CatalogueResources, EveryCaptionAndEntryIsInTheStringTable) {
    const std::set<DWORD> filledByCode = {2012};  // the zoom's range
    for (const ControlItem& item : kCatalogue) {
        if (item.captionId != 0 && filledByCode.count(item.captionId) == 0) {
            EXPECT_NE(StringOf(item.captionId), "") << item.controlName;
        }
        for (const SelectItem& entry : SelectEntries(item)) {
            EXPECT_NE(StringOf(entry.stringId), "") << item.controlName << " " << entry.name;
        }
        for (const RadioItem& button : RadioButtons(item)) {
            EXPECT_NE(StringOf(button.captionId), "") << item.controlName;
        }
    }
}

TEST(CatalogueResources, EveryIconIsDrawn) {
    for (const ControlItem& item : kCatalogue) {
        std::set<DWORD> icons = {item.defaultIconId};
        for (const SelectItem& entry : SelectEntries(item)) icons.insert(entry.iconId);
        for (const RadioItem& button : RadioButtons(item)) icons.insert(button.iconId);
        if (item.check != nullptr) {
            icons.insert({item.check->checkedIcon, item.check->clearedIcon});
        }
        icons.erase(0);
        for (const DWORD icon : icons) EXPECT_TRUE(IconExists(icon)) << item.controlName << icon;
    }
}

// The entries of one list must be told apart by their texts: code finds entries by their caption.
TEST(CatalogueResources, EntriesOfAListHaveDifferentCaptions) {
    for (const ControlItem& item : kCatalogue) {
        std::set<std::string> seen;
        for (const SelectItem& entry : SelectEntries(item)) {
            EXPECT_TRUE(seen.insert(StringOf(entry.stringId)).second)
                << item.controlName << " " << entry.name;
        }
    }
}

}  // namespace
}  // namespace kvui
