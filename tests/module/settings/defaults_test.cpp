// Defaults of one dialog and of the whole record, with a printer whose defaults are all different
// from the current settings.
#include "settings/defaults.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>

#include "tests/module/support/scratch_record.h"
#include "settings/item_catalogue.h"

namespace kvui {
namespace {

constexpr DWORD kDefaultWord = 0x0BADCAFE;
constexpr DWORD kCurrentWord = 0x00110020;

const void* providerSawCurrent = nullptr;

int DefaultsOfEverything(PrinterBlock*, void* record, const void* current) {
    providerSawCurrent = current;
    for (const SettingField& field : SettingFieldTable) {
        WriteField(static_cast<DEVMODEA*>(record), field.location, kDefaultWord, 0, 0, nullptr);
    }
    return 1;
}

// A failing printer that has already touched the buffer it was given.
int NoDefaults(PrinterBlock* printer, void* record, const void* current) {
    DefaultsOfEverything(printer, record, current);
    return 0;
}

class Defaults : public testing::Test {
 protected:
    Defaults() {
        for (const SettingField& field : SettingFieldTable) {
            WriteField(record.devmode(), field.location, kCurrentWord, 0, 0, nullptr);
        }
        std::memcpy(record.settings()->userName, "jo", 3);
    }
    ScratchRecord record;
};

TEST_F(Defaults, OfADialogReplaceItsSettingsButNeitherOthersNorWhatThePrinterHas) {
    for (const char* dialog :
         {"DLGTAB0", "DLGTAB2", "DLGTAB3", "MAILBOX", "_LBPIMAGESHIFT", "DLGTAB5"}) {
        SCOPED_TRACE(dialog);
        ScratchRecord changed = record;
        EXPECT_EQ(ApplyDialogDefaultsFrom(DefaultsOfEverything, changed.devmode(), nullptr, dialog),
                  DefaultsResult::kApplied);
        std::set<std::string> words;
        std::size_t row = 0;
        while (const ControlItem* item = NextItemOfDialog(row, dialog, kItemAnyType, &row)) {
            words.insert(item->settingField);
        }
        for (const char* fact : {"mdmInstalledOptions", "mdmMailBinAssign"}) words.erase(fact);
        // One word under two names.
        if (words.count("mdmCompressMethod") != 0) words.insert("mdmAllRaster");
        for (const SettingField& field : SettingFieldTable) {
            if (std::string(field.name) == "mdmOtherSettings") continue;
            ScratchRecord wanted;
            const DWORD word = words.count(field.name) != 0 ? kDefaultWord : kCurrentWord;
            WriteField(wanted.devmode(), field.location, word, 0, 0, nullptr);
            EXPECT_EQ(changed.Value(field.name), wanted.Value(field.name)) << field.name;
        }
        EXPECT_STREQ(changed.settings()->userName, "jo");
        EXPECT_EQ(providerSawCurrent, changed.devmode());
    }
}

TEST_F(Defaults, OfADialogTakeOnlyItsOwnBitsOfTheSharedFlagWord) {
    const auto after = [this](const char* dialog, DWORD current) {
        record.settings()->mdmOtherSettings = current;
        ApplyDialogDefaultsFrom(DefaultsOfEverything, record.devmode(), nullptr, dialog);
        return record.settings()->mdmOtherSettings;
    };
    // The defaults are 0x...CAFE: of the bits with a check box 0x2, 0x4, 0x8, 0x20, 0x40 and 0x80.
    EXPECT_EQ(after("DLGTAB0", 0), 0x48u);
    EXPECT_EQ(after("DLGTAB1", 0x400), 0xC2u);
    EXPECT_EQ(after("DLGTAB2", 0x100), 0x144u);
    EXPECT_EQ(after("DLGTAB3", 0), 0x60u);
    EXPECT_EQ(after("DLGTAB5", 0x10), 0x50u);
}

TEST_F(Defaults, OfTheWholeRecordKeepWhatThePrinterHasAndOfferColourAndAllPapers) {
    EXPECT_EQ(ApplyRecordDefaultsFrom(DefaultsOfEverything, record.devmode(), nullptr),
              DefaultsResult::kApplied);
    EXPECT_EQ(record.Value("mdmInstalledOptions"), kCurrentWord);
    EXPECT_EQ(record.Value("mdmMailBinAssign"), kCurrentWord);
    EXPECT_EQ(record.Value("mdmOtherSettings"), kDefaultWord | 0x50);
    EXPECT_EQ(record.Value("mdmNup"), kDefaultWord);
    EXPECT_EQ(record.Value("PrinterDensity"), kDefaultWord);
}

TEST_F(Defaults, OfAPrinterThatHasNoneLeaveADialogAsItWasAndRestoreNothingOfARecord) {
    const ScratchRecord before = record;
    EXPECT_EQ(ApplyDialogDefaultsFrom(NoDefaults, record.devmode(), nullptr, "DLGTAB0"),
              DefaultsResult::kFailed);
    EXPECT_EQ(record, before);
    EXPECT_EQ(ApplyRecordDefaultsFrom(NoDefaults, record.devmode(), nullptr),
              DefaultsResult::kFailed);
    EXPECT_EQ(record.Value("mdmInstalledOptions"), kDefaultWord);
    EXPECT_EQ(record.Value("mdmOtherSettings"), kDefaultWord);
}

}  // namespace
}  // namespace kvui
