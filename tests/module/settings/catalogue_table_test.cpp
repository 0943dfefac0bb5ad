// The catalogue row by row against an independent list, and what follows from its rows: keys, and
// topics of help.
#include <gtest/gtest.h>
#include <test_paths.h>

#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "settings/catalogue_names.h"
#include "settings/item_catalogue.h"
#include "settings/setting_field.h"

namespace kvui {
namespace {

std::vector<std::string> ReadLines(const char* name) {
    std::ifstream file(std::string(KV_SOURCE_DIR "/tests/module/settings/") + name);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        if (!line.empty() && line[0] != '#') lines.push_back(line);
    }
    return lines;
}

void DescribeEntries(std::ostream& out, const ControlItem& item) {
    const char* separator = "list ";
    for (const SelectItem& entry : SelectEntries(item)) {
        out << separator << entry.name << '=' << entry.value;
        separator = ", ";
    }
    constexpr const char* kRunTimeLists[] = {"",           "papers",        "output papers",
                                             "sources",    "other sources", "mail bins",
                                             "watermarks", "overlays"};
    if (item.runTimeList != RunTimeList::kNone) {
        out << "list of " << kRunTimeLists[static_cast<int>(item.runTimeList)] << " at run time";
    }
    if (item.listName[0] != '\0') out << " and section " << item.listName;
}

void DescribeButton(std::ostream& out, const ButtonItem& button) {
    if (&button == &mailBoxApplyButton) {
        out << "filled at run time";
    } else if (button.kind == kButtonMoveEntries) {
        out << "moves " << button.move->settingField << " out of " << button.move->sourceListId;
    } else {
        out << "opens " << button.templateName;
        if (button.kind == kButtonOpenAndSelect)
            out << " and selects in " << button.controlToUpdate;
    }
}

// Every record that the item has, whatever its type, so that a record on a wrong row shows too.
std::string DescribeRecords(const ControlItem& item) {
    std::ostringstream out;
    DescribeEntries(out, item);
    const char* separator = "buttons ";
    for (const RadioItem& button : RadioButtons(item)) {
        out << separator << button.buttonId << '=' << button.value << " icon " << button.iconId;
        separator = ", ";
    }
    if (const CheckItem* check = item.check) {
        out << (check->testMode == kCheckAnyBit ? "any bit on " : "equals on ")
            << check->checkedValue << " off " << check->clearedValue << " icons "
            << check->checkedIcon << '/' << check->clearedIcon
            << (check->alwaysEnabled ? ", always enabled" : "");
        if (item.button != nullptr) out << ", ";
    }
    if (const EditAttribute* edit = item.edit) {
        out << (edit->kind == kEditNumeric ? "accepts " : "refuses ") << edit->characters
            << ", max " << edit->maxCharacters << ", " << edit->minimum << " to " << edit->maximum
            << ", spin " << edit->spinId << ", range text " << edit->rangeTextId;
        if (const JobNumber* job = edit->job) {
            out << ", bit " << job->securityBit << ", empty " << static_cast<LONG>(job->emptyValue);
        }
    }
    if (const SliderItem* slider = item.slider) {
        out << "range " << slider->minimum << " to " << slider->maximum << ", tick "
            << slider->tickFrequency << ", page " << slider->pageSize << ", value edit "
            << slider->valueEditId << ", end labels " << slider->minimumTextId << '/'
            << slider->maximumTextId << ", spin " << slider->spinId << ", stored from "
            << slider->storedMinimum;
    }
    if (item.button != nullptr) DescribeButton(out, *item.button);
    return out.str().empty() ? "-" : out.str();
}

std::string DescribeRow(std::size_t row) {
    const ControlItem& item = kCatalogue[row];
    const char* field = item.settingField[0] != '\0' ? item.settingField : "-";
    std::ostringstream out;
    out << row << "; " << item.controlId << "; " << item.controlName << "; " << item.dialogName
        << "; " << item.type << "; " << field << "; " << item.captionId << "; " << item.pictureId
        << "; " << item.maskMode << ':' << item.mask << "; " << item.helpId << "; "
        << DescribeRecords(item);
    return out.str();
}

TEST(Catalogue, EveryRowIsAsListed) {
    const std::vector<std::string> expected = ReadLines("catalogue_expected.txt");
    ASSERT_EQ(expected.size(), kCatalogue.size());
    for (std::size_t row = 0; row < kCatalogue.size(); ++row) {
        EXPECT_EQ(DescribeRow(row), expected[row]);
    }
}

// Two controls on one setting show its entries alike, so an entry's name stands for one caption.
TEST(Catalogue, EveryListEntryHasItsOwnCaptionAndIcon) {
    std::set<std::string> described;
    for (const ControlItem& item : kCatalogue) {
        for (const SelectItem& entry : SelectEntries(item)) {
            std::ostringstream line;
            line << entry.name << "; " << entry.stringId << "; " << entry.iconId;
            described.insert(line.str());
        }
    }
    const std::vector<std::string> expected = ReadLines("entries_expected.txt");
    EXPECT_EQ(described, std::set<std::string>(expected.begin(), expected.end()));
}

TEST(Catalogue, KeysNameTheControlAndOnlySettingsTakePartInConflicts) {
    for (const ControlItem& item : kCatalogue) {
        SCOPED_TRACE(item.controlName);
        const bool edits = item.settingField[0] != '\0';
        EXPECT_STREQ(item.optionKey, item.controlName);
        EXPECT_STREQ(item.grayOutKey, item.controlName);
        EXPECT_STREQ(item.conflictKey, edits ? item.controlName : "");
        EXPECT_EQ(item.entryEditMode, item.type == kItemEdit ? 1u : 2u);
        EXPECT_EQ(edits, FindSettingField(item.settingField) != nullptr);
        for (const RadioItem& button : RadioButtons(item)) {
            EXPECT_EQ(button.captionId, button.buttonId);
        }
    }
}

TEST(HelpTable, NamesEachControlOnceAndAgreesWithTheCatalogue) {
    std::set<DWORD> controls;
    for (const HelpPair& pair : kHelpTable) {
        SCOPED_TRACE(pair.controlId);
        EXPECT_TRUE(controls.insert(pair.controlId).second);
        EXPECT_NE(pair.helpId, 0u);
        const ControlItem* item = ItemById(pair.controlId);
        if (item != nullptr) {
            EXPECT_EQ(pair.helpId, item->helpId);
        }
    }
    // What belongs to a control explains itself as the control does.
    for (const ControlItem& item : kCatalogue) {
        std::vector<DWORD> companions{item.pictureId};
        for (const RadioItem& button : RadioButtons(item)) companions.push_back(button.buttonId);
        const auto add = [&](std::initializer_list<DWORD> ids) {
            companions.insert(companions.end(), ids);
        };
        if (item.edit != nullptr) add({item.edit->spinId, item.edit->rangeTextId});
        if (const SliderItem* at = item.slider) {
            add({at->valueEditId, at->spinId, at->minimumTextId, at->maximumTextId});
        }
        for (const DWORD id : companions) {
            const DWORD topic = id != 0 ? HelpIdFor(id) : 0;
            EXPECT_TRUE(topic == 0 || topic == item.helpId) << id << " of " << item.controlId;
        }
    }
}

}  // namespace
}  // namespace kvui
