// The field table against an independent list of offsets, and the rules of reading and writing.
#include "settings/setting_field.h"

#include <gtest/gtest.h>
#include <test_paths.h>

#include <fstream>
#include <sstream>
#include <string>

#include "tests/module/support/scratch_record.h"

namespace kvui {
namespace {

// Puts a pattern at the expected place and reads it by name, so that table, type and place of the
// private part are checked together.
TEST(SettingFieldTable, EveryNameReadsTheBytesAtItsStoredOffset) {
    std::ifstream file(KV_SOURCE_DIR "/tests/module/settings/fields_expected.txt");
    std::size_t row = 0;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream words(line);
        std::string name;
        char part = 0;
        DWORD offset = 0;
        int bits = 0;
        words >> name >> part >> std::hex >> offset >> std::dec >> bits;
        SCOPED_TRACE(name);
        ASSERT_LT(row, SettingFieldTable.size());
        EXPECT_EQ(SettingFieldTable[row++].name, name);

        ScratchRecord record;
        const SHORT narrow = -2;
        const DWORD wide = 0x89ABCDEF;
        BYTE* at = record.bytes() + offset + (part == 'D' ? record.devmode()->dmSize : 0);
        bits == 16 ? std::memcpy(at, &narrow, sizeof narrow) : std::memcpy(at, &wide, sizeof wide);
        DWORD value = 0;
        EXPECT_EQ(ReadSetting(record.devmode(), name.c_str(), &value), bits != 0);
        EXPECT_EQ(value, bits == 0 ? 0 : bits == 16 ? 0xFFFFFFFE : wide);
    }
    EXPECT_EQ(row, SettingFieldTable.size());
}

TEST(SettingField, NamesAreFoundByCaseExceptWhenAsked) {
    EXPECT_EQ(FindSettingField("mdmnup"), nullptr);
    EXPECT_EQ(FindSettingFieldAnyCase("MDMNUP"), FindSettingField("mdmNup"));
    EXPECT_EQ(FindSettingFieldAnyCase("mdmNu"), nullptr);
    EXPECT_EQ(FindSettingField(""), nullptr);
}

TEST(SettingField, TheTwoNamesOfOneWordReadAndWriteIt) {
    ScratchRecord record;
    EXPECT_NE(FindSettingField("mdmAllRaster"), FindSettingField("mdmCompressMethod"));
    EXPECT_EQ(WriteSettingByName(record.devmode(), "mdmAllRaster", 512), FieldWrite::kChanged);
    EXPECT_EQ(record.Value("mdmCompressMethod"), 512u);
    EXPECT_EQ(WriteSettingByName(record.devmode(), "mdmCompressMethod", 512),
              FieldWrite::kUnchanged);
}

constexpr FieldWrite kSame = FieldWrite::kUnchanged;
constexpr FieldWrite kNew = FieldWrite::kChanged;

TEST(SettingField, WritingKeepsTheBitsOfOthersAndHandsBackTheOldWord) {
    const struct {
        const char *story, *name;
        DWORD stored, written, maskMode, mask;
        FieldWrite result;
        DWORD after;
    } rows[] = {
        {"turn on a bit", "mdmOtherSettings", 0x48, 0x80, 2, 0x80, kNew, 0xC8},
        {"turn off a bit", "mdmOtherSettings", 0xC8, 0, 2, 0x80, kNew, 0x48},
        {"bit numbers", "mdmSecurity", 0x1, 0x2, 1, 0x2, kNew, 0x3},
        {"whole field", "mdmNup", 0x48, 0x80, 0, 0xFF, kNew, 0x80},
        {"same word", "mdmNup", 20, 20, 0, 0, kSame, 20},
        // The whole word decides, so bits of others make a repeated write count as a change.
        {"same bit, others set", "mdmOtherSettings", 0xC8, 0x80, 2, 0x80, kNew, 0xC8},
        {"same bit alone", "mdmOtherSettings", 0x80, 0x80, 2, 0x80, kSame, 0x80},
        {"cleared beside the mask", "mdmWatermarkMode", 0x2, 0x4, 1, 0x2, kNew, 0x4},
        {"first page only cleared", "mdmDistribution", 0xC8000000, 0x20000000, 1, 0x60000000, kNew,
         0xA8000000},
        {"sixteen bits", "dmCopies", 1, 999, 0, 0, kNew, 999},
        {"negative sixteen bits", "dmCopies", 0xFFFFFFFF, 0xFFFF, 0, 0, kSame, 0xFFFFFFFF},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.story);
        ScratchRecord record;
        WriteSettingByName(record.devmode(), row.name, row.stored);
        const ScratchRecord before = record;
        const DWORD location = FindSettingField(row.name)->location;
        DWORD old = 0x1234567;
        EXPECT_EQ(WriteField(record.devmode(), location, row.written, row.maskMode, row.mask, &old),
                  row.result);
        EXPECT_EQ(record.Value(row.name), row.after);
        EXPECT_EQ(old, row.result == kNew ? row.stored : 0x1234567u);
        WriteSettingByName(record.devmode(), row.name, row.stored);
        EXPECT_EQ(record, before) << "bytes outside the field changed";
    }
}

TEST(SettingField, UnknownNamesLocationsAndTheFieldMaskWordAreLeftAlone) {
    ScratchRecord record;
    record.devmode()->dmFields = 0x55;
    const ScratchRecord before = record;
    DWORD old = 7;
    EXPECT_EQ(WriteSettingByName(record.devmode(), "mdmNupp", 1, &old), kSame);
    EXPECT_EQ(WriteSettingByName(record.devmode(), "dmFields", 1, &old), kSame);
    EXPECT_EQ(WriteField(record.devmode(), 0x8028, 1, 0, 0, &old), kSame);
    EXPECT_EQ(WriteField(record.devmode(), 0x260, 1, 0, 0, &old), kSame);
    EXPECT_EQ(WriteField(record.devmode(), 0xFFFFFFFF, 1, 0, 0, &old), kSame);
    EXPECT_EQ(old, 7u);
    EXPECT_EQ(record, before);
}

TEST(SettingField, ThePrivatePartFollowsTheRecordsOwnPublicSize) {
    ScratchRecord record(148);
    WriteSettingByName(record.devmode(), "mdmOffsetY", 0x01020304);
    EXPECT_EQ(record.bytes()[148 + 0x268], 4);
    EXPECT_EQ(record.settings()->mdmOffsetY, 0x01020304u);
}

TEST(SettingField, APublicSizeBeyondTheRecordIsNeverFollowed) {
    ScratchRecord record(0xFFFF);
    const ScratchRecord before = record;
    DWORD value = 7;
    EXPECT_FALSE(ReadSetting(record.devmode(), "mdmNup", &value));
    EXPECT_EQ(WriteSettingByName(record.devmode(), "mdmNup", 2), kSame);
    EXPECT_EQ(record, before);
    EXPECT_TRUE(ReadSetting(record.devmode(), "dmColor", &value));
}

}  // namespace
}  // namespace kvui
