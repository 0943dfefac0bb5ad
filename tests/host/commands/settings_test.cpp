// Settings by name: set, get, list and defaults, one control or several at once.
#include "tests/host/commands/command_line.h"

namespace kvtest {
namespace {

TEST_F(CommandLine, SetStoresAndGetReadsBack) {
    // Tray 2 is fitted to a new printer, tray 3 is not.
    const Ran set =
        Run("set RadioOrientation=2 ComboPaperSize=A5 EditCopies=2 "
            "ComboPaperSource='Tray 2'");
    EXPECT_EQ(set.status, 0) << set.output;
    EXPECT_NE(set.output.find("dmPaperSize=11\n"), std::string::npos) << set.output;
    EXPECT_EQ(Run("get dmOrientation dmPaperSize dmCopies dmDefaultSource").output,
              "dmOrientation=2\ndmPaperSize=11\ndmCopies=2\ndmDefaultSource=2\n");
    EXPECT_EQ(Run("set ComboPaperSource=3").status, 2);
    EXPECT_EQ(Run("get dmCopies --json").output, "{\n  \"dmCopies\": 2\n}\n");
    EXPECT_EQ(fs::file_size(RecordFile()), 1296u);
}

TEST_F(CommandLine, WhatAPageClampsIsNotedAsideWithTheReason) {
    const Ran set = Run("set EditScaling=500");
    EXPECT_EQ(set.status, 0);
    EXPECT_EQ(set.errors, "EditScaling=500: stored as 400, it goes from 20 to 400\n");
    EXPECT_EQ(Run("get mdmScaleSize").output, "mdmScaleSize=400\n");
    const Ran several = Run("set ComboNup=4 EditScaling=300");
    EXPECT_EQ(several.status, 0);
    EXPECT_NE(several.errors.find("EditScaling=300: stored as 100, "), std::string::npos);
    EXPECT_NE(several.errors.find("ComboNup is 4"), std::string::npos) << several.errors;
}

TEST_F(CommandLine, TheReportComparesWhatIsStoredWithWhatWasStored) {
    ASSERT_EQ(Run("set ComboNup=4").status, 0);
    EXPECT_NE(Run("set ComboOrder=3").output, "");
    EXPECT_EQ(Run("set ComboOrder=3").output, "");
    // The pages take the zoom over from the field that the renderer reads.
    ASSERT_EQ(Run("set ComboNup=0").status, 0);
    std::fstream record(RecordFile(), std::ios::in | std::ios::out | std::ios::binary);
    record.seekp(156 + 0x14C);
    record.put(50);
    record.close();
    EXPECT_NE(Run("set EditCopies=1").output.find("mdmScaleSize=50\n"), std::string::npos);
    EXPECT_EQ(Run("get mdmScaleSize").output, "mdmScaleSize=50\n");
}

TEST_F(CommandLine, SlidersTakeWhatTheirSettingStores) {
    const Ran set = Run("set SldContrast=-20 SldSharpness=30 SldSaturation=80");
    EXPECT_EQ(set.status, 0) << set.output;
    EXPECT_NE(set.output.find("SldSaturation=80: stored as 50"), std::string::npos) << set.output;
    EXPECT_EQ(Run("get Contrast UnsharpMask Saturation").output,
              "Contrast=-20\nUnsharpMask=30\nSaturation=50\n");
}

TEST_F(CommandLine, LayoutDialogsAreReachedThroughTheirPage) {
    EXPECT_EQ(Run("set ComboNup=Booklet").status, 0);
    EXPECT_EQ(Run("get mdmNup mdmDuplexMode nUp dmDuplex").output,
              "mdmNup=20\nmdmDuplexMode=4\nnUp=2\ndmDuplex=3\n");
    const Ran ignored = Run("set ComboDuplexBooklet=1");
    EXPECT_EQ(ignored.status, 1);
    EXPECT_NE(ignored.output.find("the page keeps \"On\""), std::string::npos) << ignored.output;
    EXPECT_EQ(Run("set \"ComboBooklet=Right Binding\"").status, 0);
    EXPECT_EQ(Run("get mdmDuplexMode nUpMode").output, "mdmDuplexMode=5\nnUpMode=1\n");
    EXPECT_NE(Run("set ComboDuplexBooklet=1").output.find("the page keeps \"On\""),
              std::string::npos);
    // The list of orders for two pages is another control of the same name.
    EXPECT_EQ(Run("set ComboNup=2 ComboOrder=Right-to-Left ChkNupBorder=on").status, 0);
    EXPECT_EQ(Run("get mdmNupStyle").output, "mdmNupStyle=5\n");
    const Ran shift = Run("set ChkImageShifting=on EditOffsetX=-20 EditOffsetY=0.5");
    EXPECT_EQ(shift.status, 0) << shift.output;
    EXPECT_NE(shift.output.find("EditOffsetX=-20: stored as -15.8, "), std::string::npos)
        << shift.output;
    EXPECT_EQ(Run("get mdmOffsetX mdmOffsetY").output, "mdmOffsetX=49310\nmdmOffsetY=32773\n");
    const Ran off = Run("set ChkImageShifting=off EditOffsetX=1");
    EXPECT_EQ(off.status, 1);
    EXPECT_NE(off.output.find("BtnImageShifting is disabled"), std::string::npos) << off.output;
}

TEST_F(CommandLine, SeveralPairsAreAllOrNothing) {
    ASSERT_EQ(Run("set EditCopies=3").status, 0);
    const std::string before = Bytes(RecordFile());
    const Ran set = Run("set EditCopies=5 ComboPaperSize=Papyrus");
    EXPECT_EQ(set.status, 2);
    EXPECT_NE(set.output.find("Papyrus"), std::string::npos);
    EXPECT_NE(set.output.find("nothing was stored"), std::string::npos) << set.output;
    EXPECT_EQ(Bytes(RecordFile()), before);
}

TEST_F(CommandLine, UnknownNamesAreRefusedWithStatus2) {
    for (const char* arguments :
         {"set NoSuchControl=1", "set EditCopies", "get dmNothing", "list Nowhere",
          "defaults Nowhere", "frobnicate", "set ComboMediaType=MediaStone"}) {
        const Ran ran = Run(arguments);
        EXPECT_EQ(ran.status, 2) << arguments << ": " << ran.output;
        EXPECT_FALSE(ran.output.empty()) << arguments;
    }
    EXPECT_NE(Run("set EditCopies=" + std::string(100000, '9')).status, 128);
}

TEST_F(CommandLine, MistakesAreNamedTogetherWithWhatWouldDo) {
    struct Mistake {
        const char* arguments;
        const char* named;
        const char* expected;
    };
    const Mistake kMistakes[] = {
        {"frobnicate", "\"frobnicate\"", "--help"},
        {"get dmCopies --fast", "\"--fast\"", "kvprefs get --help"},
        {"set ComboNup=2 --on-conflict=maybe", "maybe", "ask,resolve,cancel"},
        {"list Nowhere", "\"Nowhere\"", "Basic, Layout"},
        {"defaults Nowhere", "\"Nowhere\"", "Basic, Layout"},
        {"set EditCopies=many", "\"many\"", "nothing was stored"},
        {"set EditCopies=-4", "\"-4\"", "only \"4\""},
        {"set EditCopies=1.5", "\"1.5\"", "a whole number from 1 to 999"},
        {"set EditCopies=", "\"\"", "a whole number from 1 to 999"},
        {"set EditCopies=5000", "only \"500\"", "a whole number from 1 to 999"},
        {"set UserName=a/b", "only \"ab\"", "at most 8 characters"},
        {"set ChkImageShifting=on EditOffsetX=0.005", "\"0.005\"", "decimals"},
        {"set ChkDistribution=on EditDistStart=5000", "only \"500\"", "from 1 to 999"},
    };
    for (const Mistake& mistake : kMistakes) {
        const Ran ran = Run(mistake.arguments);
        EXPECT_EQ(ran.status, 2) << mistake.arguments;
        for (const char* text : {"kvprefs: ", mistake.named, mistake.expected}) {
            EXPECT_NE(ran.output.find(text), std::string::npos) << text << ": " << ran.output;
        }
    }
    const auto wrong = Json("set EditCopies=2 SldContrast=much --json", 2);
    EXPECT_EQ(wrong["control"], "SldContrast");
    EXPECT_EQ(wrong["expected"], "a whole number");
    EXPECT_NE(wrong["error"].dump().find("much"), std::string::npos) << wrong;
    const Ran idle = Run("set ButtonWatermarkDel=1");
    EXPECT_EQ(idle.status, 1);
    EXPECT_NE(idle.errors.find("ButtonWatermarkDel is disabled now"), std::string::npos);
    const Ran high = Run("set SldContrast=150");
    EXPECT_EQ(high.status, 0) << high.output;
    EXPECT_NE(high.output.find("Contrast=50"), std::string::npos) << high.output;
    EXPECT_NE(high.output.find("from -50 to 50"), std::string::npos) << high.output;
}

TEST_F(CommandLine, DefaultsOfOnePageLeaveTheOthers) {
    const char* fields = "get dmCopies mdmNup Contrast";
    const std::string set = "dmCopies=7\nmdmNup=4\nContrast=-20\n";
    const std::string change = "set EditCopies=7 ComboNup=4 SldContrast=-20";
    // pages by caption, short name, template and dialog name; fields afterwards
    const struct {
        const char* page;
        const char* fields;
    } kCases[] = {
        {"Quality", "dmCopies=7\nmdmNup=4\nContrast=0\n"},
        {"tab2r", "dmCopies=7\nmdmNup=4\nContrast=0\n"},
        {"DLGTAB1", "dmCopies=7\nmdmNup=0\nContrast=-20\n"},
        {"", "dmCopies=1\nmdmNup=0\nContrast=0\n"},
    };
    for (const auto& c : kCases) {
        ASSERT_EQ(Run(change).status, 0);
        ASSERT_EQ(Run(fields).output, set);
        EXPECT_EQ(Run(std::string("defaults ") + c.page).status, 0) << c.page;
        EXPECT_EQ(Run(fields).output, c.fields) << c.page;
    }
    ASSERT_EQ(Run(change).status, 0);
    const Ran none = Run("defaults Troubleshooting");
    EXPECT_EQ(none.status, 1);
    EXPECT_NE(none.output.find("no Defaults button"), std::string::npos) << none.output;
    EXPECT_EQ(Run(fields).output, set);
}

TEST_F(CommandLine, ListsAsJsonTellWhatEachControlShowsAndOffers) {
    const char* const kKeys[] = {"id",    "name", "page",    "kind",    "setting",
                                 "value", "text", "choices", "enabled", "visible"};
    ASSERT_EQ(Run("set RadioOrientation=2 ComboPaperSize=A5 RadioColorMode=1").status, 0);
    const auto all = Json("list --json");
    ASSERT_GT(all.size(), 100u);
    size_t onLayout = 0;
    for (const auto& row : all) {
        std::vector<std::string> keys;
        for (const auto& [key, value] : row.items()) keys.push_back(key);
        ASSERT_THAT(keys, testing::ElementsAreArray(kKeys)) << row;
        EXPECT_EQ(row["value"].is_null(), row["setting"] == "") << row;
        EXPECT_TRUE(row["enabled"].is_boolean() && row["visible"].is_boolean()) << row;
        for (const auto& choice : row["choices"]) {
            EXPECT_TRUE(choice.size() == 2 && choice["value"].is_number() &&
                        choice["text"].is_string())
                << row;
        }
        if (row["page"] == "DLGTAB1") ++onLayout;
        // Grayscale printing matches no colours: the frame around the buttons stays, they are
        // grayed.
        if (row["kind"] == "radio" && row["page"] == "DLGTAB2") {
            EXPECT_EQ(row["enabled"], row["name"] == "RadioColorMode") << row;
        }
        if (row["name"] == "ComboPaperSize") {
            EXPECT_EQ(row["value"], 11) << row;
            EXPECT_EQ(row["text"].get<std::string>().rfind("A5", 0), 0u) << row;
            EXPECT_EQ(row["enabled"], true);
        }
    }
    EXPECT_EQ(Json("list layout --json").size(), onLayout);
    EXPECT_EQ(Json("list _LBPIMAGESHIFT --json").front()["page"], "_LBPIMAGESHIFT");
}

}  // namespace
}  // namespace kvtest
