// What kvprefs finds around it: no display, no home, read-only and newer states, bad driver files.
#include "tests/host/commands/command_line.h"

namespace kvtest {
namespace {

TEST_F(CommandLine, WithoutADisplayOpenSaysHowToGoOn) {
    const Ran open = Run("open");
    EXPECT_EQ(open.status, 1);
    EXPECT_NE(open.output.find("kvprefs shot"), std::string::npos) << open.output;
}

TEST_F(CommandLine, AReadOnlyStateIsReadAndNeverHalfWritten) {
    // Even root obeys the modes of files without these.
    const std::string obeying = "setpriv --bounding-set=-dac_override,-dac_read_search,-fowner";
    ASSERT_EQ(Run("set EditCopies=3").status, 0);
    if (Run("get", obeying).status != 0) GTEST_SKIP() << "capabilities cannot be given up here";
    const auto writable = [&](fs::perm_options how) {
        for (const auto& [path, bytes] : AllFiles())
            fs::permissions(path, fs::perms::owner_write, how);
        fs::permissions(state_, fs::perms::owner_write, how);
    };
    const auto before = AllFiles();
    writable(fs::perm_options::remove);
    EXPECT_EQ(Run("get dmCopies", obeying).output, "dmCopies=3\n");
    EXPECT_EQ(Run("list Basic", obeying).status, 0);
    for (const char* arguments :
         {"set EditCopies=4", "defaults", "--as-admin printer remove 'Varnell Tessora 7720MF'",
          "--as-admin printer add X --port Y"}) {
        const Ran ran = Run(arguments, obeying);
        EXPECT_NE(ran.status, 0) << arguments;
        EXPECT_NE(ran.output.find(state_.string()), std::string::npos) << ran.output;
        EXPECT_EQ(ran.output.find(".new"), std::string::npos) << ran.output;
    }
    EXPECT_EQ(AllFiles(), before);
    writable(fs::perm_options::add);
}

TEST_F(CommandLine, AStateOfANewerVersionIsRefusedUntouched) {
    ASSERT_EQ(Run("set EditCopies=3").status, 0);
    std::fstream store(state_ / "store.sqlite", std::ios::in | std::ios::out | std::ios::binary);
    store.seekp(60);  // the format number, high byte first
    store.write("\0\0\0\2", 4);
    store.close();
    std::ofstream(RulesFile().parent_path() / "tessora7720mf.ini", std::ios::app) << "; newer\n";
    const auto before = AllFiles();
    for (const char* arguments :
         {"get", "list", "set EditCopies=4", "defaults", "printer list",
          "--as-admin printer add X --port Y", "--as-admin printer remove X"}) {
        const Ran ran = Run(arguments);
        EXPECT_EQ(ran.status, 2) << arguments;
        EXPECT_NE(ran.output.find("written by a newer version"), std::string::npos) << ran.output;
    }
    EXPECT_EQ(Run("open", "QT_QPA_PLATFORM=offscreen").status, 2);
    EXPECT_EQ(AllFiles(), before);
}

TEST_F(CommandLine, WithoutAHomeItSaysWhatToSet) {
    const std::string nowhere = "-u HOME -u XDG_DATA_HOME -u KVPREFS_STATE";
    EXPECT_EQ(Run("get dmCopies", nowhere).output, "dmCopies=1\n");
    const fs::path state = std::exchange(state_, fs::path());
    for (const char* arguments : {"get", "set EditCopies=4", "printer list"}) {
        const Ran ran = Run(arguments, nowhere);
        EXPECT_EQ(ran.status, 2) << arguments;
        EXPECT_NE(ran.output.find("set HOME, XDG_DATA_HOME or KVPREFS_STATE"), std::string::npos)
            << ran.output;
    }
    state_ = state;
}

TEST_F(CommandLine, UnknownLocalesAndMissingFontsAreHarmless) {
    const std::string bare = "LC_ALL=xx_YY.nonsense FONTCONFIG_FILE=" + (state_ / "fonts").string();
    std::ofstream(state_ / "fonts") << "<?xml version=\"1.0\"?><fontconfig></fontconfig>";
    EXPECT_EQ(Run("set ComboNup=2", bare).output, "nUp=2\nmdmNup=2\n");
    const Ran shot = Run("shot " + (state_ / "pictures").string(), bare);
    EXPECT_EQ(shot.status, 1);
    EXPECT_NE(shot.output.find("no fonts to draw texts with"), std::string::npos) << shot.output;
}

TEST_F(CommandLine, BadRulesFilesAreHarmless) {
    ASSERT_EQ(Run("set EditCopies=3").status, 0);
    std::string binary;
    for (int i = 0; i < 5000; ++i) binary += static_cast<char>(i * 37);
    for (const std::string& rules :
         {std::string(), binary, "[ConflictConditions]\n" + std::string(1 << 20, 'A'),
          std::string("[ConflictConditions\r\nComboMediaType0=(((((\n\rComboMediaType1=")}) {
        std::ofstream(RulesFile(), std::ios::binary | std::ios::trunc) << rules;
        const Ran set = Run("set ComboMediaType=MediaGlossy EditCopies=2");
        EXPECT_EQ(set.status, 0) << set.output;
        EXPECT_NE(set.errors.find("warning: " + RulesFile().string() + ":"), std::string::npos);
        EXPECT_EQ(Run("set ComboMediaType=1").status, 0);
    }
    // Both numbers are there to be left empty.
    std::ofstream(RulesFile(), std::ios::trunc) << "; no rules\n";
    const Ran boxes = Run("set ChkAccessCode=on ChkLockJob=on");
    EXPECT_EQ(boxes.status, 1) << boxes.output;
    EXPECT_NE(boxes.output.find("ChkLockJob=on: refused, Access Number Error: "), std::string::npos)
        << boxes.output;
    EXPECT_EQ(Run("get mdmSecurity").output, "mdmSecurity=0\n");
    fs::remove(RulesFile());
    EXPECT_EQ(Run("set EditCopies=9").status, 0);
}

TEST_F(CommandLine, FaultsOfDriverFilesAreNamedOnce) {
    ASSERT_EQ(Run("set EditCopies=3").errors, "");
    const fs::path rules = RulesFile();
    const fs::path description = rules.parent_path() / "tessora7720mf.ini";
    std::ofstream(description, std::ios::app) << "[PaperInfo]\nPaper99=99, X, yards, 1, 1\n";
    std::ofstream(rules, std::ios::trunc)
        << "EditCopies=1\n"  // 1
           "[ConflictConditions]\n"
           "ComboMediaType1=(2),0,0,(RadioOrientation,0,0,(1),2)\n"  // 3: number 0 is missing
           "Combo1stPageMedia0=(2,3-4,5-),0,1,(ComboStaple,0,0,(0),H,7)\n"
           "NoSuchControl0=(2),0,0,(ComboStaple,0,0,(0),1)\n"                 // 5
           "ComboNup0=(2),0,0,(NoSuchTarget,0,0,(0),1)\n"                     // 6
           "ComboNup1=(2),0,0,(ComboStaple,0,(0),1)\n"                        // 7
           "ComboNup1=2,0,0,(ComboStaple,0,0,(0),1),(ComboPunch,0,0,(),1)\n"  // 8: twice
           "ComboNup2=(2),0,0\n"                                              // 9
           "[EditAttribute]\nEditCopies=3,1\n"                                // 11
           "[OptionConflict\n25=1\n"                                          // 12, 13
           "[AddCondition]\n1000=1,2,3\n7=AND,(1)\n"                          // 15
           "[KeepSettings]\nas users like\n";
    const Ran list = Run("list Job");
    EXPECT_EQ(list.status, 0) << list.output;
    std::string lines;
    for (size_t at = 0; (at = list.errors.find("KVUIMOD.ini:", at)) != std::string::npos;) {
        at += sizeof "KVUIMOD.ini:" - 1;
        lines += std::to_string(std::stoi(list.errors.substr(at))) + " ";
    }
    EXPECT_EQ(lines, "1 3 5 6 7 8 9 ") << list.errors;
    EXPECT_NE(list.errors.find("and 4 more faults"), std::string::npos) << list.errors;
    EXPECT_NE(list.errors.find("tessora7720mf.ini:170: expected \"code"), std::string::npos);
    EXPECT_EQ(Run("get dmCopies").errors.find("KVUIMOD"), std::string::npos);
}

TEST_F(CommandLine, DriverFilesAreRestoredOrRefused) {
    ASSERT_EQ(Run("set EditCopies=3").status, 0);
    const fs::path rules = RulesFile();
    const fs::path description = rules.parent_path() / "tessora7720mf.ini";
    const std::string model = Bytes(rules);
    for (const fs::path& file : {rules, description}) {
        const std::string whole = Bytes(file);
        fs::remove(file);
        EXPECT_NE(Run("get").errors.find(file.string() + ": is missing; restored"),
                  std::string::npos);
        EXPECT_EQ(Bytes(file), whole);
        fs::resize_file(file, 0);
        EXPECT_NE(Run("set EditCopies=3").errors.find(": is empty; restored"), std::string::npos);
        EXPECT_EQ(Bytes(file), whole);
        const std::string before = Bytes(RecordFile());
        for (const char* make : {"mkdir ", "mkfifo ", "ln -s /dev/zero "}) {
            fs::remove(file);
            ASSERT_EQ(std::system((make + file.string()).c_str()), 0);
            const Ran set = Run("set ComboMediaType=2");
            EXPECT_EQ(set.status, 2) << make;
            EXPECT_NE(set.errors.find(file.string() + ": is "), std::string::npos) << set.errors;
            EXPECT_EQ(Bytes(RecordFile()), before);
        }
        fs::remove(file);
    }
}

}  // namespace
}  // namespace kvtest
