// Settings records: damaged ones, and those that travel through files.
#include "tests/host/commands/command_line.h"

namespace kvtest {
namespace {

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

}  // namespace
}  // namespace kvtest
