// The field table against an independent list of offsets, and the rules of reading and writing.
#include "settings/setting_field.h"

#include <gtest/gtest.h>
#include <test_paths.h>

#include <fstream>
#include <sstream>
#include <string>

#include "scratch_record.h"

namespace kvui {
namespace {

struct ExpectedField {
    std::string name;
    char part;
    DWORD offset;
    int bits;
};

std::vector<ExpectedField> ReadExpectedFields() {
    std::ifstream file(KV_SOURCE_DIR "/tests/module/settings/fields_expected.txt");
    std::vector<ExpectedField> fields;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::istringstream words(line);
        ExpectedField field;
        words >> field.name >> field.part >> std::hex >> field.offset >> std::dec >> field.bits;
        fields.push_back(field);
    }
    return fields;
}

// Puts a pattern at the expected place and reads it by name, so that table, type and place of the
// private part are checked together.
TEST(SettingFieldTable, EveryNameReadsTheBytesAtItsStoredOffset) {
    const std::vector<ExpectedField> expected = ReadExpectedFields();
    ASSERT_EQ(expected.size(), kSettingFieldCount);
    for (std::size_t row = 0; row < expected.size(); ++row) {
        const ExpectedField& field = expected[row];
        SCOPED_TRACE(field.name);
        EXPECT_EQ(SettingFieldTable[row].name, field.name);

        ScratchRecord record;
        const SHORT narrow = -2;
        const DWORD wide = 0x89ABCDEF;
        const DWORD at = field.offset + (field.part == 'D' ? record.devmode()->dmSize : 0);
        if (field.bits == 16) {
            std::memcpy(record.bytes() + at, &narrow, sizeof narrow);
        } else {
            std::memcpy(record.bytes() + at, &wide, sizeof wide);
        }
        DWORD value = 0;
        EXPECT_EQ(ReadSetting(record.devmode(), field.name.c_str(), &value), field.bits != 0);
        EXPECT_EQ(value, field.bits == 0 ? 0 : field.bits == 16 ? 0xFFFFFFFE : wide);
    }
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

struct WriteCase {
    const char* story;
    const char* name;
    DWORD stored;
    DWORD written;
    DWORD maskMode;
    DWORD mask;
    FieldWrite result;
    DWORD after;
};

class WritingAField : public testing::TestWithParam<WriteCase> {};

TEST_P(WritingAField, KeepsTheBitsOfOthersAndHandsBackTheOldWord) {
    const WriteCase& p = GetParam();
    ScratchRecord record;
    WriteSettingByName(record.devmode(), p.name, p.stored);
    const ScratchRecord before = record;
    const DWORD location = FindSettingField(p.name)->location;
    DWORD old = 0x1234567;
    EXPECT_EQ(WriteField(record.devmode(), location, p.written, p.maskMode, p.mask, &old),
              p.result);
    EXPECT_EQ(record.Value(p.name), p.after);
    EXPECT_EQ(old, p.result == FieldWrite::kChanged ? p.stored : 0x1234567u);
    WriteSettingByName(record.devmode(), p.name, p.stored);
    EXPECT_EQ(record, before) << "bytes outside the field changed";
}

constexpr FieldWrite kSame = FieldWrite::kUnchanged;
constexpr FieldWrite kNew = FieldWrite::kChanged;
INSTANTIATE_TEST_SUITE_P(
    Cases, WritingAField,
    testing::Values(
        WriteCase{"TurnOnOneBit", "mdmOtherSettings", 0x48, 0x80, 2, 0x80, kNew, 0xC8},
        WriteCase{"TurnOffOneBit", "mdmOtherSettings", 0xC8, 0, 2, 0x80, kNew, 0x48},
        WriteCase{"BitNumberMask", "mdmSecurity", 0x1, 0x2, 1, 0x2, kNew, 0x3},
        WriteCase{"WholeField", "mdmNup", 0x48, 0x80, 0, 0xFF, kNew, 0x80},
        WriteCase{"SameWord", "mdmNup", 20, 20, 0, 0, kSame, 20},
        // The whole word decides, so bits of others make a repeated write count as a change.
        WriteCase{"SameBitOthersSet", "mdmOtherSettings", 0xC8, 0x80, 2, 0x80, kNew, 0xC8},
        WriteCase{"SameBitAlone", "mdmOtherSettings", 0x80, 0x80, 2, 0x80, kSame, 0x80},
        WriteCase{"ClearedWritesBesideMask", "mdmWatermarkMode", 0x2, 0x4, 1, 0x2, kNew, 0x4},
        WriteCase{"FirstPageOnlyCleared", "mdmDistribution", 0xC8000000, 0x20000000, 1, 0x60000000,
                  kNew, 0xA8000000},
        WriteCase{"SixteenBits", "dmCopies", 1, 999, 0, 0, kNew, 999},
        WriteCase{"NegativeSixteenBits", "dmCopies", 0xFFFFFFFF, 0xFFFF, 0, 0, kSame, 0xFFFFFFFF}),
    [](const auto& test) { return test.param.story; });

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
