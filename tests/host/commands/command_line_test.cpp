// kvprefs as an administrator's script runs it: a process, its output, its exit status and its
// files.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <test_paths.h>
#include <pty.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Ran {
    int status;
    std::string output;  // both streams, errors last
    std::string errors;
};

class CommandLine : public testing::Test {
   protected:
    void SetUp() override {
        char folder[] = "/tmp/kvcliXXXXXX";
        ASSERT_NE(mkdtemp(folder), nullptr);
        state_ = folder;
    }
    void TearDown() override {
        fs::remove_all(state_);
        fs::remove(ErrorFile());
    }

    // `environment` stands before the program: what env(1) takes, or a program that runs it.
    Ran Run(const std::string& arguments, const std::string& environment = "") {
        const std::string state = "--state " + state_.string() + " ";
        const std::string command = "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM " +
                                    environment + " " KV_BIN_DIR "/kvprefs </dev/null 2>" +
                                    ErrorFile() + " " + (state_.empty() ? "" : state) + arguments;
        Ran ran{};
        FILE* pipe = popen(command.c_str(), "r");
        std::array<char, 4096> part{};
        while (const size_t size = fread(part.data(), 1, part.size(), pipe)) {
            ran.output.append(part.data(), size);
        }
        const int status = pclose(pipe);
        ran.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128;
        ran.errors = Bytes(ErrorFile());
        ran.output += ran.errors;
        return ran;
    }
    static std::string ErrorFile() {
        return testing::TempDir() + "kvcli" + std::to_string(getpid()) + ".errors";
    }
    nlohmann::ordered_json Json(const std::string& arguments, int status = 0) {
        const Ran ran = Run(arguments);
        EXPECT_EQ(ran.status, status) << ran.output;
        const std::string text = ran.output.substr(0, ran.output.size() - ran.errors.size());
        const auto json = nlohmann::ordered_json::parse(text, nullptr, false);
        EXPECT_FALSE(json.is_discarded()) << ran.output;
        return json;
    }
    // On a terminal of its own, on which `typed` is typed.
    Ran RunOnTerminal(const std::string& arguments, const std::string& typed) {
        const std::string command = "exec env -u DISPLAY -u WAYLAND_DISPLAY " KV_BIN_DIR
                                    "/kvprefs --state " + state_.string() + " " + arguments;
        Ran ran{};
        int terminal = -1;
        const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
        if (child == 0) {
            execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
            _exit(127);
        }
        EXPECT_EQ(write(terminal, typed.data(), typed.size()), static_cast<ssize_t>(typed.size()));
        std::array<char, 4096> part{};
        for (ssize_t size; (size = read(terminal, part.data(), part.size())) > 0;) {
            ran.output.append(part.data(), static_cast<size_t>(size));
        }
        close(terminal);
        int status = 0;
        waitpid(child, &status, 0);
        ran.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128;
        return ran;
    }
    fs::path RecordFile() {
        for (const auto& entry : fs::directory_iterator(state_ / "records")) {
            if (entry.path().extension() == ".record") return entry.path();
        }
        return {};
    }
    fs::path RulesFile() {
        for (const auto& entry : fs::recursive_directory_iterator(state_)) {
            if (entry.path().filename() == "KVUIMOD.ini") return entry.path();
        }
        return {};
    }
    // Every file below the state directory with its bytes.
    std::map<std::string, std::string> AllFiles() {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::recursive_directory_iterator(state_)) {
            files[entry.path().string()] = entry.is_regular_file() ? Bytes(entry.path()) : "";
        }
        return files;
    }
    static std::string Bytes(const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    fs::path state_;
};

TEST_F(CommandLine, SetStoresAndGetReadsBack) {
    // Tray 2 is fitted to a new printer, tray 3 is not.
    const Ran set = Run("set RadioOrientation=2 ComboPaperSize=A5 EditCopies=2 "
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

TEST_F(CommandLine, MailboxesAreAssignedAndTheDestinationFollowsTheOptions) {
    const Ran without = Run("set ComboMailBoxAssign=MBAssign8");
    EXPECT_EQ(without.status, 1);
    EXPECT_NE(without.errors.find("BtnMBSetting is disabled now"), std::string::npos);
    ASSERT_EQ(Run("device install Mailbin10").status, 0);
    EXPECT_EQ(Run("set ComboMailBoxAssign=MBAssign8").status, 0);
    EXPECT_EQ(Run("get mdmMailBinAssign").output, "mdmMailBinAssign=1792\n");
    const Ran bin = Run("set ComboOutputSetting=69");
    EXPECT_EQ(bin.status, 1);
    EXPECT_NE(bin.errors.find("follows from what is installed (`kvprefs device`)"),
              std::string::npos)
        << bin.errors;
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

TEST_F(CommandLine, AForbiddenChoiceNamesBothItemsAndCancelKeepsTheRecord) {
    ASSERT_EQ(Run("set EditCopies=3").status, 0);
    std::ofstream(RulesFile()) << "[ConflictConditions]\n"
                                  "ComboMediaType0=(2),0,0,(RadioOrientation,0,0,(1),2)\n";
    const std::string before = Bytes(RecordFile());
    const Ran cancelled = Run("set ComboMediaType=Transparency --on-conflict=cancel");
    EXPECT_EQ(cancelled.status, 1);
    EXPECT_NE(cancelled.output.find("Media Type"), std::string::npos) << cancelled.output;
    EXPECT_NE(cancelled.output.find("Orientation"), std::string::npos) << cancelled.output;
    EXPECT_EQ(Bytes(RecordFile()), before);
    EXPECT_EQ(Run("set ComboMediaType=Transparency --on-conflict=resolve").status, 0);
    EXPECT_EQ(Run("get MediaType dmOrientation").output, "MediaType=2\ndmOrientation=2\n");
}

TEST_F(CommandLine, AnUnresolvableConflictIsRefusedUnderEveryPolicy) {
    ASSERT_EQ(Run("set EditCopies=3").status, 0);
    std::ofstream(RulesFile()) << "[ConflictConditions]\n"
                                  "ComboMediaType0=(2),0,0,(ComboStaple,0,0,(0),99)\n";
    const std::string before = Bytes(RecordFile());
    for (const char* policy : {"resolve", "cancel", "ask"}) {
        const Ran ran =
            Run(std::string("set EditCopies=5 ComboMediaType=2 --on-conflict=") + policy);
        EXPECT_EQ(ran.status, 1) << policy;
        EXPECT_NE(ran.output.find("Unresolvable situation!"), std::string::npos) << ran.output;
        EXPECT_NE(ran.output.find("nothing was stored"), std::string::npos) << ran.output;
        EXPECT_EQ(Bytes(RecordFile()), before) << policy;
    }
}

TEST_F(CommandLine, AConflictIsAskedOnATerminalOnly) {
    ASSERT_EQ(Run("set EditCopies=3").status, 0);
    std::ofstream(RulesFile()) << "[ConflictConditions]\n"
                                  "ComboMediaType0=(2),0,0,(RadioOrientation,0,0,(1),2)\n";
    const std::string before = Bytes(RecordFile());
    const Ran unattended = Run("set ComboMediaType=2");
    EXPECT_EQ(unattended.status, 1);
    EXPECT_NE(unattended.output.find("no terminal to ask on"), std::string::npos)
        << unattended.output;
    const struct {
        const char* typed;
        int status;
        bool stored;
    } kCases[] = {
        {"c\n", 1, false},       // Cancel
        {"\n", 1, false},        // the default
        {"\x04", 1, false},      // end of input
        {"what?\nR\n", 0, true},  // asked again after nonsense
    };
    for (const auto& c : kCases) {
        const Ran ran = RunOnTerminal("set ComboMediaType=2", c.typed);
        EXPECT_EQ(ran.status, c.status) << c.typed << ran.output;
        for (const char* text : {"Media Type: Transparency", "Orientation: Portrait",
                                 "Orientation: Landscape", "Resolve or Cancel?"}) {
            EXPECT_NE(ran.output.find(text), std::string::npos) << ran.output;
        }
        EXPECT_EQ(Bytes(RecordFile()) != before, c.stored) << c.typed;
    }
}

TEST_F(CommandLine, UnknownNamesAreRefusedWithStatus2) {
    for (const char* arguments : {"set NoSuchControl=1", "set EditCopies", "get dmNothing",
                                  "list Nowhere", "defaults Nowhere", "frobnicate",
                                  "set ComboMediaType=MediaStone"}) {
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

TEST_F(CommandLine, ADamagedRecordIsKeptAsideAndDefaultsAreUsed) {
    ASSERT_EQ(Run("set EditCopies=3").status, 0);
    const fs::path record = RecordFile();
    const std::string whole = Bytes(record);
    std::string hostile = whole;
    hostile[36] = 7;  // dmSize, low byte
    for (const std::string& bytes : {whole.substr(0, 1295), whole + "x", std::string(), hostile}) {
        std::ofstream(record, std::ios::binary | std::ios::trunc) << bytes;
        const Ran get = Run("get dmCopies");
        EXPECT_EQ(get.status, 0);
        EXPECT_NE(get.output.find("dmCopies=1\n"), std::string::npos) << get.output;
        EXPECT_NE(get.output.find("refused"), std::string::npos) << get.output;
        EXPECT_FALSE(fs::exists(record));
    }
    EXPECT_EQ(Bytes(record.string() + ".bad1"), whole.substr(0, 1295));
    EXPECT_EQ(Bytes(record.string() + ".bad4"), hostile);
}

TEST_F(CommandLine, RecordsTravelThroughFiles) {
    const std::string file = (state_ / "saved.bin").string();
    ASSERT_EQ(Run("set EditCopies=4").status, 0);
    ASSERT_EQ(Run("record export " + file).status, 0);
    ASSERT_EQ(Run("defaults Basic").status, 0);
    EXPECT_EQ(Run("get dmCopies").output, "dmCopies=1\n");
    const Ran diff = Run("record diff " + file + " " + RecordFile().string());
    EXPECT_EQ(diff.status, 1);
    EXPECT_NE(diff.output.find("dmCopies 4 -> 1\n"), std::string::npos) << diff.output;
    ASSERT_EQ(Run("record import " + file).status, 0);
    EXPECT_EQ(Run("get dmCopies").output, "dmCopies=4\n");
    for (const char* command : {"record import ", "record check "}) {
        EXPECT_EQ(Run(command + file).output, "") << command;
    }
    std::ofstream(file) << "short";
    EXPECT_EQ(Run("record import " + file).status, 2);
    EXPECT_EQ(Run("get dmCopies").output, "dmCopies=4\n");
}

TEST_F(CommandLine, RecordsAreWrittenIntoWhateverTheNameMeans) {
    ASSERT_EQ(Run("set EditCopies=4").status, 0);
    const std::string stored = Bytes(RecordFile());
    const fs::path folder = state_ / "out";
    fs::create_directory(folder);
    std::ofstream(folder / "kept") << "old";
    fs::permissions(folder / "kept", fs::perms(0644));
    fs::create_symlink("kept", folder / "link");
    fs::create_symlink("later", folder / "dangling");
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    const auto path = [&](const char* name) { return (folder / name).string(); };
    for (const char* name : {"link", "dangling"}) {
        EXPECT_EQ(Run("record export " + path(name)).status, 0) << name;
        EXPECT_TRUE(fs::is_symlink(path(name))) << name;
        EXPECT_EQ(Bytes(path(name)), stored) << name;
    }
    EXPECT_EQ(fs::status(path("kept")).permissions(), fs::perms(0644));
    EXPECT_EQ(
        Run("record export " + path("pipe"), "cat " + path("pipe") + " >" + path("read") + " & env")
            .status,
        0);
    EXPECT_TRUE(fs::is_fifo(path("pipe")));
    EXPECT_EQ(Run("record export /dev/full").status, 2);
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    EXPECT_EQ(Run("record export -").output, stored);
    ASSERT_EQ(Run("set EditCopies=5").status, 0);
    const std::string other = " | " KV_BIN_DIR "/kvprefs --state " + state_.string();
    EXPECT_EQ(Run("record export -" + other + " record import -").status, 0);
    EXPECT_EQ(Run("record import - <" + path("kept")).status, 0);
    EXPECT_EQ(Run("get dmCopies").output, "dmCopies=4\n");
}

TEST_F(CommandLine, ARecordThatNoPageCouldMakeIsTakenByForceOnly) {
    ASSERT_EQ(Run("set EditCopies=4").status, 0);
    const std::string good = Bytes(RecordFile());
    const std::string file = (state_ / "odd.record").string();
    // private offset, bytes of the value, status, what is said
    const struct {
        size_t offset;
        std::string value;
        int forced;
        const char* says;
    } kCases[] = {
        {0x1C4, std::string("\0\0\1\0", 4), 0, "mdmDuplexMode is 65536"},
        {0x1C4, "\xFF\xFF\xFF\xFF", 0, "one of 1 \"Off\", 3 "},
        {0x238, std::string("\xE8\3\0\0", 4), 0, "mdmDistStartNumber is 1000"},
        {0xEC, std::string("\x33\0\0\0", 4), 0, "from -50 to 50"},
        {0x1BC, std::string("\x7F\0\0\0", 4), 0, "\"<NONE>\""},
    };
    for (const auto& c : kCases) {
        std::string odd = good;
        odd.replace(156 + c.offset, c.value.size(), c.value);
        std::ofstream(file, std::ios::binary | std::ios::trunc) << odd;
        for (const std::string command : {"record check ", "record import "}) {
            const Ran ran = Run(command + file);
            EXPECT_EQ(ran.status, 1) << c.says;
            EXPECT_NE(ran.output.find(c.says), std::string::npos) << ran.output;
        }
        EXPECT_EQ(Bytes(RecordFile()), good) << c.says;
        const Ran forced = Run("record import --force " + file);
        EXPECT_EQ(forced.status, c.forced) << forced.output;
        EXPECT_NE(forced.errors.find("warning: "), std::string::npos) << c.says;
        EXPECT_EQ(Bytes(RecordFile()), odd) << c.says;
        ASSERT_EQ(Run("record import - <" + RecordFile().string() + " --force").status, 0);
        std::ofstream(RecordFile(), std::ios::binary | std::ios::trunc) << good;
    }
    // What the pages make of it must pass the same check as what is read.
    std::string odd = good;
    odd.replace(156 + 0x1C4, 1, "\6");
    std::ofstream(RecordFile(), std::ios::binary | std::ios::trunc) << odd;
    const Ran set = Run("set EditCopies=2");
    EXPECT_EQ(set.status, 1) << set.output;
    EXPECT_NE(set.errors.find("dmDuplex is 6, expected 1 to 3"), std::string::npos) << set.errors;
    EXPECT_EQ(Bytes(RecordFile()), odd);
    EXPECT_EQ(Run("set ComboDuplexBooklet=2").status, 0);
}

TEST_F(CommandLine, APrinterOfOnesOwnIsAddedByAnybody) {
    EXPECT_EQ(Run("--as-user printer add Lobby --port USB002").status, 0);
    EXPECT_EQ(Run("printer list").output, "Lobby\tUSB002\tprivate\n");
    EXPECT_EQ(Run("--printer Lobby set EditCopies=6").status, 0);
    EXPECT_EQ(Run("get dmCopies --printer Lobby").output, "dmCopies=6\n");
    EXPECT_EQ(Run("--printer Attic get dmCopies").status, 2);
}

TEST_F(CommandLine, PrinterCommandsSayWhyTheyRefuse) {
    ASSERT_EQ(Run("--as-admin printer add Lobby --port USB002").status, 0);
    // arguments, status, what is said
    const struct {
        std::string arguments;
        int status;
        const char* says;
    } kCases[] = {
        {"--as-admin printer add lobby --port USB003", 2, "exists already"},
        {"--as-admin printer add 'a\\b' --port USB003", 2, "name"},
        {"--as-admin printer add '' --port USB003", 2, "name"},
        {"--as-admin printer add Attic", 2, "--port"},
        {"--as-admin printer add '" + std::string(75, '.') + "' --port USB003", 2, "too long"},
        {"--as-admin printer add Attic --port ''", 2, "port"},
        {"--as-admin printer remove Attic", 2, "there is no printer \"Attic\""},
        {"printer remove --shared Lobby", 2, "there is no shared printer \"Lobby\""},
        {"printer share Attic", 2, "there is no private printer \"Attic\""},
        {"printer share Lobby", 1, "no place for shared printers"},
        {"printer take Lobby", 2, "there is no shared printer \"Lobby\""},
        {"printer", 2, "subcommand"},
    };
    for (const auto& c : kCases) {
        const Ran ran = Run(c.arguments);
        EXPECT_EQ(ran.status, c.status) << c.arguments << ": " << ran.output;
        EXPECT_NE(ran.output.find(c.says), std::string::npos) << c.arguments << ": " << ran.output;
    }
    EXPECT_EQ(Json("printer list --json").dump(), R"([{"name":"Lobby","port":"USB002","place":"private","hidden":false}])");
    EXPECT_EQ(Run("--as-admin printer remove LOBBY").status, 0);
    ASSERT_EQ(Run("--as-admin printer add $(printf 'B\\374ro') --port P").status, 0);
    const fs::path state = std::exchange(state_, "/proc/none");
    const Ran nowhere = Run("printer list");
    state_ = state;
    EXPECT_EQ(nowhere.status, 2);
    EXPECT_NE(nowhere.errors.find("/proc/none: cannot be made"), std::string::npos);
    EXPECT_EQ(Json("printer list --json")[0]["name"], "B\uFFFDro");
    ASSERT_EQ(Run("--as-admin printer remove $(printf 'B\\374ro')").status, 0);
    EXPECT_EQ(Run("printer list").output, "");
    EXPECT_EQ(Run("--printer Lobby get dmCopies").status, 2);
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
        for (const auto& [path, bytes] : AllFiles()) fs::permissions(path, fs::perms::owner_write, how);
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
    for (const char* arguments : {"get", "list", "set EditCopies=4", "defaults", "printer list",
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
