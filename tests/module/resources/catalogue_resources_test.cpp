// The item catalogue against the compiled resources: every caption, entry and icon it names exists,
// and texts are what the resource compiler was given.
#include <gtest/gtest.h>
#include <windows.h>

#include <set>

#include "resources/picture_ids.h"
#include "resources/string_ids.h"
#include "settings/item_catalogue.h"
#include "templates.h"

namespace kvui {
namespace {

// The entries of one list must be told apart by their texts: code finds entries by their caption.
TEST(CatalogueResources, EveryCaptionIsInTheStringTableAndEntriesDiffer) {
    for (const ControlItem& item : kCatalogue) {
        SCOPED_TRACE(item.controlName);
        const bool filledByCode = item.captionId == 2012;  // the zoom's range
        EXPECT_TRUE(item.captionId == 0 || filledByCode || !StringOf(item.captionId).empty());
        std::set<std::string> seen = {""};
        for (const SelectItem& entry : SelectEntries(item)) {
            EXPECT_TRUE(seen.insert(StringOf(entry.stringId)).second) << entry.name;
        }
        for (const RadioItem& button : RadioButtons(item)) {
            EXPECT_NE(StringOf(button.captionId), "");
        }
    }
}

TEST(CatalogueResources, EveryIconIsDrawnForEachScale) {
    std::set<DWORD> icons = {IDI_NOTICE, IDI_ORDER_DOWN_RIGHT};
    for (const ControlItem& item : kCatalogue) {
        icons.insert(item.defaultIconId);
        for (const SelectItem& entry : SelectEntries(item)) icons.insert(entry.iconId);
        for (const RadioItem& button : RadioButtons(item)) icons.insert(button.iconId);
        if (item.check == nullptr) continue;
        icons.insert({item.check->checkedIcon, item.check->clearedIcon});
    }
    icons.erase(0);
    for (const DWORD id : icons) {
        for (const int size : {32, 64}) {
            const HANDLE icon = LoadImageA(nullptr, MAKEINTRESOURCEA(id), IMAGE_ICON, size, size,
                                           LR_DEFAULTCOLOR);
            EXPECT_NE(icon, nullptr) << id << " at " << size;
            DestroyIcon(static_cast<HICON>(icon));
        }
    }
}

TEST(Strings, SpecialCharactersSurviveTheCompiler) {
    const std::pair<UINT, const char*> rows[] = {
        {IDS_NAME_REGISTERED, "\"%s\" is already registered.  Do you want to overwrite it?"},
        {IDS_KEEP_OVERWRITE, "This name already exists.\rDo you want to overwrite your setting?"},
        {IDS_SET_CHANGE_SETTING,
         "Do you want to change your setting \naccording to registered value ?"},
        {IDS_TIP_ORDER, "Open Order Supplies Page\r\n"},
        {IDS_OVERLAY_NONE, "<NONE>"},
    };
    for (const auto& [id, text] : rows) EXPECT_EQ(StringOf(id), text);
}

}  // namespace
}  // namespace kvui
