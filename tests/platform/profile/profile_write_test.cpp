// What the writing profile functions leave behind: the text around a change, rights, and whole
// files whatever happens to the writer.
#include <sys/file.h>
#include <sys/wait.h>

#include <fcntl.h>

#include <algorithm>
#include <csignal>

#include "tests/platform/shell/scratch.h"

namespace kv::test {
namespace {

using namespace std::string_literals;

class ProfileWrite : public ScratchTest {};

struct EditCase {
    const char* what;
    const char* before;
    const char* section;
    const char* key;   // null: the section goes
    const char* text;  // null: the key goes
    const char* after;
};

// Columns: case, file before, section, key, text, file after.
const EditCase kEdits[] = {
    {"replace", "[A]\r\nk=1\r\nl=2\r\n", "a", "K", "9", "[A]\r\nk=9\r\nl=2\r\n"},
    {"replace keeps spelling and blanks", "; c\n [ A ]\n Key = 1 \n", "A", "key", "2",
     "; c\n [ A ]\n Key = 2\n"},
    {"replace the first of equal keys", "[A]\nk=1\nk=2\n", "A", "k", "3", "[A]\nk=3\nk=2\n"},
    {"new key goes behind the last line", "[A]\nk=1\n; end\n\n[B]\nx=1\n", "A", "l", "2",
     "[A]\nk=1\n; end\nl=2\n\n[B]\nx=1\n"},
    {"new key in an unfinished last line", "[A]\r\nk=1", "A", "l", "2", "[A]\r\nk=1\r\nl=2\r\n"},
    {"new key in an empty section", "[A]\n[B]\n", "A", "k", "1", "[A]\nk=1\n[B]\n"},
    {"new section", "[A]\rk=1\r", "B", "x", "1", "[A]\rk=1\r[B]\rx=1\r"},
    {"new file", "", "A", "k", "1", "[A]\r\nk=1\r\n"},
    {"mark at the begin stays", "\xEF\xBB\xBF[A]\nk=1\n", "A", "k", "2", "\xEF\xBB\xBF[A]\nk=2\n"},
    {"verbatim text", "[A]\n", "A", "k", "\" %d;= \"", "[A]\nk=\" %d;= \"\n"},
    {"delete a key", "[A]\nk=1\nl=2\n", "A", "K", nullptr, "[A]\nl=2\n"},
    {"delete a commented key", "[A]\n;k=1\n", "A", "k", nullptr, "[A]\n;k=1\n"},
    {"delete an absent key", "[A]\nk=1\n", "B", "k", nullptr, "[A]\nk=1\n"},
    {"delete a section", "[A]\nk=1\n[B]\n; c\nx=1\n[C]\n", "b", nullptr, nullptr,
     "[A]\nk=1\n[C]\n"},
};

TEST_F(ProfileWrite, ChangesLeaveEverythingElseAsItWas) {
    for (const EditCase& row : kEdits) {
        const std::string file = Write("w.ini", row.before);
        EXPECT_TRUE(WritePrivateProfileStringA(row.section, row.key, row.text, file.c_str()))
            << row.what;
        EXPECT_EQ(Read(file), row.after) << row.what;
        if (!row.key) continue;
        char buffer[64];
        GetPrivateProfileStringA(row.section, row.key, "gone", buffer, sizeof buffer, file.c_str());
        EXPECT_EQ(std::string(buffer) == "gone", row.text == nullptr) << row.what;
    }
}

TEST_F(ProfileWrite, AWholeSectionIsReplaced) {
    const std::string file = Write("w.ini", "[A]\nold=1\n;c\n\n[B]\nx=1\n");
    EXPECT_TRUE(WritePrivateProfileSectionA("a", "k=1\0bare\0", file.c_str()));
    EXPECT_EQ(Read(file), "[A]\nk=1\nbare\n\n[B]\nx=1\n");
    EXPECT_TRUE(WritePrivateProfileSectionA("N", "y=2\0", file.c_str()));
    EXPECT_EQ(Read(file), "[A]\nk=1\nbare\n\n[B]\nx=1\n[N]\ny=2\n");
}

// Text that would read back as other lines must not get into the file.
TEST_F(ProfileWrite, TextsThatBreakTheFileAreRefused) {
    const std::string file = Write("w.ini", "[A]\nk=1\n");
    const struct {
        const char* section;
        const char* key;
        const char* text;
    } rows[] = {{"A", "k", "1\n[B]"}, {"A", "k\nl", "1"}, {"A]", "k", "1"},   {"A", "k=l", "1"},
                {"A", ";k", "1"},     {"A", "", "1"},     {nullptr, "k", "1"}};
    for (const auto& row : rows) {
        EXPECT_FALSE(WritePrivateProfileStringA(row.section, row.key, row.text, file.c_str()));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    }
    EXPECT_FALSE(WritePrivateProfileSectionA("A", "[B]\0", file.c_str()));
    EXPECT_FALSE(WritePrivateProfileStringA(nullptr, nullptr, nullptr, file.c_str()));
    EXPECT_EQ(Read(file), "[A]\nk=1\n");
}

TEST_F(ProfileWrite, ModeAndLinksAreKept) {
    const std::string file = Write("w.ini", "[A]\nk=1\n");
    chmod(file.c_str(), 0640);
    const std::string link = Path("link.ini");
    ASSERT_EQ(symlink("w.ini", link.c_str()), 0);
    EXPECT_TRUE(WritePrivateProfileStringA("A", "k", "2", link.c_str()));
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(Read(file), "[A]\nk=2\n");
    EXPECT_EQ(ModeOf(file), 0640u);
    EXPECT_TRUE(WritePrivateProfileStringA("A", "k", "2", "own.ini"));
    EXPECT_EQ(ModeOf(State() + "/windows/own.ini"), 0600u);
}

TEST_F(ProfileWrite, RefusedAccessAnswersAccessDenied) {
    const std::string file = Write("closed/w.ini", "[A]\nk=1\n");
    const auto refused = [&](LPCSTR name) {
        const BOOL done = WritePrivateProfileStringA("A", "k", "2", name);
        EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED) << name;
        return !done;
    };
    chmod(file.c_str(), 0444);
    EXPECT_TRUE(refused(file.c_str()));
    {
        chmod(file.c_str(), 0644);
        const AsOrdinaryUser user;
        EXPECT_TRUE(geteuid() == 65534 ? refused(file.c_str()) : true);
        chmod(Path("closed").c_str(), 0555);
        EXPECT_TRUE(refused(Path("closed/new.ini").c_str()));
        chmod(Path("closed").c_str(), 0755);
    }
    EXPECT_EQ(Read(file), "[A]\nk=1\n");
    EXPECT_FALSE(WritePrivateProfileStringA("A", "k", "2", Path("none/w.ini").c_str()));
    EXPECT_EQ(GetLastError(), ERROR_PATH_NOT_FOUND);
    EXPECT_FALSE(WritePrivateProfileStringA("A", "k", "2", Path("closed").c_str()));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
}

TEST_F(ProfileWrite, ALockedFolderIsReportedAfterAWhile) {
    const std::string file = Write("w.ini", "[A]\nk=1\n");
    const int folder = open(Path("").c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(flock(folder, LOCK_EX), 0);
    EXPECT_FALSE(WritePrivateProfileStringA("A", "k", "2", file.c_str()));
    EXPECT_EQ(GetLastError(), ERROR_SHARING_VIOLATION);
    close(folder);
    EXPECT_TRUE(WritePrivateProfileStringA("A", "k", "2", file.c_str()));
}

TEST_F(ProfileWrite, TwoProgramsDoNotLoseEachOthersKeys) {
    constexpr int kWriters = 3;
    constexpr int kKeys = 20;
    const std::string file = Path("shared.ini");
    pid_t children[kWriters];
    for (int writer = 0; writer < kWriters; ++writer) {
        children[writer] = fork();
        if (children[writer] != 0) continue;
        for (int i = 0; i < kKeys; ++i) {
            const std::string key = "w" + std::to_string(writer) + "_" + std::to_string(i);
            if (!WritePrivateProfileStringA("A", key.c_str(), "1", file.c_str())) _exit(1);
        }
        _exit(0);
    }
    for (const pid_t child : children) {
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    char keys[4096];
    const DWORD length =
        GetPrivateProfileStringA("A", nullptr, "", keys, sizeof keys, file.c_str());
    EXPECT_EQ(std::count(keys, keys + length, '\0'), kWriters * kKeys);
}

TEST_F(ProfileWrite, AKilledWriterLeavesTheOldOrTheNewFile) {
    const std::string file = Path("big.ini");
    const auto content = [](char mark) { return "[A]\nfill=" + std::string(300000, mark) + "\n"; };
    Write("big.ini", content('a'));
    for (int round = 0; round < 15; ++round) {
        const pid_t child = fork();
        if (child == 0) {
            for (char mark = 'b';; mark = mark == 'z' ? 'a' : static_cast<char>(mark + 1)) {
                const std::string text(300000, mark);
                WritePrivateProfileStringA("A", "fill", text.c_str(), file.c_str());
            }
        }
        usleep(static_cast<useconds_t>(3000 + 1700 * round));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        const std::string text = Read(file);
        ASSERT_GT(text.size(), 20u);
        ASSERT_EQ(text, content(text[9])) << "round " << round;
    }
    EXPECT_TRUE(WritePrivateProfileStringA("A", "fill", "done", file.c_str()));
    EXPECT_EQ(Read(file), "[A]\nfill=done\n");
    const auto files = std::filesystem::directory_iterator(Path(""));
    EXPECT_EQ(std::distance(begin(files), end(files)), 1) << "what a killed writer left is there";
}

}  // namespace
}  // namespace kv::test
