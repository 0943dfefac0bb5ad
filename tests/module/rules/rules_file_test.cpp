// The sections that are read at each use: number lists, edit attributes, code ranges and
// show-by-option lines.
#include "rules/rules_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "rules/gray_out.h"
#include "sheet/rules_path.h"
#include "tests/module/support/sheet_fixture.h"
#include "tests/support/printer_data.h"

namespace kvui {
namespace {

TEST(CommaNumbers, LastFieldCountsOnlyWhenNonZero) {
    const std::pair<const char*, std::vector<LONG>> rows[] = {
        {"5,0", {5}},         {"0,5", {0, 5}},
        {"", {}},             {"0", {}},
        {"7", {7}},           {",", {0}},
        {"1,,3", {1, 0, 3}},  {"1,2,", {1, 2}},
        {" 4 , x,-2", {4, 0, -2}}, {"1,2,3,4,5,6,7,8,9", {1, 2, 3, 4, 5, 6, 7, 8}},
    };
    for (const auto& [text, expected] : rows) {
        LONG numbers[8];
        const int count = ReadCommaNumbers(text, numbers, 8);
        EXPECT_EQ(std::vector<LONG>(numbers, numbers + count), expected) << text;
    }
}

TEST(Token, EndsAtTheStopOrTakesTheRestAndNeverOverflows) {
    const char* text = "abcdef,gh";
    char field[4];
    ReadToken(text, ',', field, sizeof field);
    EXPECT_STREQ(field, "abc");
    ReadToken(text, ',', field, sizeof field);
    EXPECT_STREQ(field, "gh");
    ReadToken(text, ',', field, sizeof field);
    EXPECT_STREQ(field, "");
    EXPECT_EQ(*text, '\0');
}

// The sheet that copies the file into the Windows directory reads it there; later ones find the copy
// made, and read the driver's.
TEST(RulesFile, IsCopiedOnceWhenThePrinterAsksForIt) {
    ScratchSheet sheet;
    sheet.InstallPrinter();
    char folder[MAX_PATH] = "";
    GetWindowsDirectoryA(folder, sizeof folder);
    const std::string copy = std::string(folder) + "\\KVUIMOD.ini";
    ComputeRulesFilePath(sheet.context);
    const std::string drivers = RulesFilePath();
    EXPECT_NE(drivers.find("\\3\\KVUIMOD.ini"), std::string::npos) << drivers;
    EXPECT_EQ(GetFileAttributesA(copy.c_str()), INVALID_FILE_ATTRIBUTES);

    kvtest::PutPrinterData("Office", "CopySUINI", 1);
    for (const std::string& path : {std::string("KVUIMOD.ini"), drivers}) {
        ComputeRulesFilePath(sheet.context);
        EXPECT_EQ(RulesFilePath(), path);
        EXPECT_EQ(GetPrivateProfileIntA("EditAttribute", "EditCopies", 0, RulesFilePath()), 3u);
        WritePrivateProfileStringA("EditAttribute", "EditCopies", "77", copy.c_str());
    }
    EXPECT_EQ(GetPrivateProfileIntA("EditAttribute", "EditCopies", 0, copy.c_str()), 77u);
}

TEST(EditAttribute, NeedsExactlyThreeNumbers) {
    ScratchSheet sheet;
    sheet.UseRules("[EditAttribute]\nA=3,0,50\nB=3,1,0\nC=3,1\nD=3,1,2,4\nE=\nF=3,1,2,0\n");
    LONG length = -1, low = -1, high = -1;
    ASSERT_TRUE(ReadEditAttribute("A", &length, &low, &high));
    EXPECT_EQ(length, 3);
    EXPECT_EQ(low, 0);
    EXPECT_EQ(high, 50);
    for (const char* name : {"B", "C", "D", "E", "absent"}) {
        EXPECT_FALSE(ReadEditAttribute(name, &length, &low, &high)) << name;
    }
    EXPECT_TRUE(ReadEditAttribute("F", &length, &low, &high));  // the trailing 0 does not count
}

TEST(CodeRange, ReadsPresentKeysInOrderAndAllFields) {
    ScratchSheet sheet;
    sheet.UseRules(
        "[W]\nMinCode=5\nMaxCode=9\n9=Last\n"
        "6=Draft,1,2,3,4,5,6,7,8,9,first,second,1,BinTray2\n10=outside\n007=odd\n");
    std::vector<CodeRecord> records(kMaxCodeRecords);
    ASSERT_EQ(ReadCodeRange("W", records.data()), 2);
    EXPECT_EQ(records[0].code, 6);
    EXPECT_STREQ(records[0].name, "Draft");
    EXPECT_EQ(records[0].unit, 1);
    EXPECT_EQ(records[0].parameters[7], 9);
    EXPECT_STREQ(records[0].secondText, "second");
    EXPECT_EQ(records[0].editFlag, 1);
    EXPECT_STREQ(records[0].thirdText, "BinTray2");
    EXPECT_STREQ(records[1].name, "Last");
}

TEST(CodeRange, BoundsMayBeAbsentReversedOrHugeAndSixtyFourCodesCount) {
    const std::pair<const char*, int> rows[] = {
        {"MinCode=1\n", 0},
        {"MaxCode=1\n", 0},
        {"MinCode=NON\nMaxCode=9\n", 0},
        {"MinCode=5\nMaxCode=3\n", 0},
        {"MinCode=-2147483648\nMaxCode=4\n", 2},
        {"MinCode=2147483647\nMaxCode=2147483647\n", 1},
        {"MinCode=-2147483648\nMaxCode=2147483647\n", kMaxCodeRecords},
    };
    std::string codes = "3=c\n1=a\n2147483647=z\n007=odd\n";
    for (int i = 11; i <= 100; ++i) codes += std::to_string(i) + "=r" + std::to_string(i) + "\n";
    ScratchSheet sheet;
    std::vector<CodeRecord> records(kMaxCodeRecords);
    for (const auto& [bounds, count] : rows) {
        sheet.UseRules(std::string("[W]\n") + bounds + codes);
        EXPECT_EQ(ReadCodeRange("W", records.data()), count) << bounds;
    }
    EXPECT_STREQ(records[0].name, "a") << "in the order of the codes";
    EXPECT_STREQ(records.back().name, "r72");
}

TEST(ShowByOption, DecidesByTheFourListsInOrder) {
    constexpr DWORD kOption4 = 0x10;
    // Line (null: none), installed options, whether shown.
    const struct { const char* line; DWORD installed; int shown; } rows[] = {
        {nullptr, kOption4, 1}, {"4,0,0,0", kOption4, 1}, {"0,4,0,0", kOption4, 0},
        {"0,0,4,0", kOption4, 1}, {"0,0,0,4", kOption4, 1}, {"0,0,0,4", 0, 0},
        {"0,0,0,0", kOption4, 0}, {"0", kOption4, 0}, {"4,0,0,0", 0, 1},
        {"0,4,0,0", 0, 1}, {"0,0,4,0", 0, 1}, {"19/20,0,0,19", 0, 0},
        {"19/20,0,0,19", 1 << 20, 1}, {"0/4,0,0,0", kOption4, 1}, {"0/4,0,0,0", 0, 0},
        {"36,0,0,0", kOption4, 1}, {"0,,,", kOption4, 0}, {"NON", kOption4, 1},
        // The first list that decides wins over the later ones.
        {"4,4,0,0", kOption4, 1}, {"5,4,0,0", kOption4, 0}, {"0,0,5,5", kOption4, 1},
        // An empty value: all four numbers are 0.
        {"", kOption4, 0},
        // The 26th number of a list is not looked at.
        {"0,9/9/9/9/9/9/9/9/9/9/9/9/9/9/9/9/9/9/9/9/9/9/9/9/9/4,0,0", kOption4, 1},
    };
    ScratchSheet sheet;
    for (const auto& row : rows) {
        const std::string line = row.line != nullptr ? std::string("Key=") + row.line : "";
        sheet.UseRules("[Other]\nKey=0\n[ShowItemAccordingToOption]\n" + line + "\n");
        sheet.Set("mdmInstalledOptions", row.installed);
        EXPECT_EQ(IsShownByOptions(sheet.context, "Key"), row.shown)
            << line << " options " << row.installed;
    }
    EXPECT_EQ(IsShownByOptions(sheet.context, ""), 1);
}

}  // namespace
}  // namespace kvui
