// What the reading profile functions answer: one table of files and look-ups, and the counts and
// terminators at every buffer size.
#include <platform/shell/errors.h>
#include <platform/shell/file_changes.h>

#include <algorithm>

#include <fstream>

#include "tests/platform/shell/scratch.h"

namespace kv::test {
namespace {

using namespace std::string_literals;

class ProfileRead : public ScratchTest {
 protected:
    void Use(const std::string& text) { file_ = Write("rules.ini", text); }

    std::string Value(LPCSTR section, LPCSTR key, LPCSTR defaultText = "NON") const {
        char buffer[256];
        const DWORD length =
            GetPrivateProfileStringA(section, key, defaultText, buffer, sizeof buffer, Name());
        return std::string(buffer, length);
    }
    std::string Section(LPCSTR section, DWORD size = 4096) const {
        std::string buffer(size, '?');
        buffer.resize(GetPrivateProfileSectionA(section, buffer.data(), size, Name()));
        return buffer;
    }
    LPCSTR Name() const { return file_.c_str(); }

    std::string file_;
};

struct ValueCase {
    const char* what;
    std::string text;
    const char* section;
    const char* key;
    const char* expected;
};

// Columns: case, file, section, key, expected value (default "NON").
const ValueCase kValues[] = {
    {"plain", "[A]\r\nk=v\r\n", "A", "k", "v"},
    {"names in any case", "[Abc]\nKeY=Value\n", "aBC", "kEy", "Value"},
    {"blanks around names and value", "  [ A B ] x\n \tk e y\t =  v w \t\n", "A B", "k e y", "v w"},
    {"blanks around the asked names", "[A]\nk=v\n", " A ", " k ", "v"},
    {"first key wins", "[A]\nk=1\nK=2\n", "A", "k", "1"},
    {"first section wins", "[A]\nk=1\n[B]\n[a]\nk=2\nm=3\n", "A", "k", "1"},
    {"repeated section is not searched", "[A]\nk=1\n[a]\nm=3\n", "A", "m", "NON"},
    {"same key in another section", "[A]\nk=1\n[B]\nk=2\n", "B", "k", "2"},
    {"absent key", "[A]\nk=1\n", "A", "x", "NON"},
    {"absent section", "[A]\nk=1\n", "B", "k", "NON"},
    {"empty value", "[A]\nk=\n", "A", "k", ""},
    {"line without an equals sign is no key", "[A]\nk\n", "A", "k", "NON"},
    {"double quotes", "[A]\nk=\" v \"\n", "A", "k", " v "},
    {"single quotes", "[A]\nk=' v '\n", "A", "k", " v "},
    {"only one pair of quotes", "[A]\nk=\"\"v\"\"\n", "A", "k", "\"v\""},
    {"quotes that differ stay", "[A]\nk=\"v'\n", "A", "k", "\"v'"},
    {"a lone quote stays", "[A]\nk=\"\n", "A", "k", "\""},
    {"empty quotes", "[A]\nk=\"\"\n", "A", "k", ""},
    {"percent and equals in a value", "[A]\nk=%s=%d%%\n", "A", "k", "%s=%d%%"},
    {"comment line", "[A]\n;k=1\n ;k=2\nk=3\n", "A", "k", "3"},
    {"semicolon in a value", "[A]\nk=1 ; 2\n", "A", "k", "1 ; 2"},
    {"number sign is no comment", "[A]\n#k=1\n", "A", "#k", "1"},
    {"mixed line ends", "[A]\rk=1\nl=2\r\n\r\rm=3", "A", "m", "3"},
    {"no line end at the end", "[A]\nk=v", "A", "k", "v"},
    {"byte order mark", "\xEF\xBB\xBF[A]\nk=v\n", "A", "k", "v"},
    {"line before any section", "k=1\n[A]\nk=2\n", "A", "k", "2"},
    {"header without its bracket", "[A]\nk=1\n[B\nk=2\n", "B", "k", "2"},
    {"bytes above ASCII", "[\xC4]\n\xE4=\xF6\n", "\xC4", "\xE4", "\xF6"},
    {"zero byte ends a line", "[A]\nk=v\0w\nl=2\n"s, "A", "k", "v"},
    {"empty file", "", "A", "k", "NON"},
};

TEST_F(ProfileRead, ValuesFollowThePlatformsRules) {
    for (const ValueCase& row : kValues) {
        Use(row.text);
        EXPECT_EQ(Value(row.section, row.key), row.expected) << row.what;
    }
}

TEST_F(ProfileRead, NumbersStopAtTheFirstOtherCharacter) {
    Use("[A]\na=12abc\nb=-7\nc=+8\nd=0x1F\ne=\nf=none\ng=\"42\"\nh=4294967295\ni=010\nj= 5 6\n");
    const struct {
        const char* key;
        UINT expected;
    } rows[] = {
        {"a", 12}, {"b", static_cast<UINT>(-7)}, {"c", 8},  {"d", 31}, {"e", 0},      {"f", 0},
        {"g", 42}, {"h", 0xFFFFFFFFu},           {"i", 10}, {"j", 5},  {"absent", 77}};
    for (const auto& row : rows) {
        EXPECT_EQ(GetPrivateProfileIntA("A", row.key, 77, Name()), row.expected) << row.key;
    }
}

TEST_F(ProfileRead, SectionsAreBlocksOfLinesWithoutComments) {
    Use("[A]\r\n; no\r\n\r\n k1 = \"v 1\" \r\nbare line\r\nk2=\r\n[B]\r\nx=1\r\n");
    EXPECT_EQ(Section("a"), "k1=\"v 1\"\0bare line\0k2=\0"s);
    EXPECT_EQ(Section("C"), "");
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
}

TEST_F(ProfileRead, NullNamesListSectionsAndKeys) {
    Use("[One]\nb=1\na=2\nbare\n;c=3\n[ Two ]\n[one]\n");
    EXPECT_EQ(Value(nullptr, nullptr), "One\0Two\0one\0"s);
    EXPECT_EQ(Value("one", nullptr), "b\0a\0"s);
    EXPECT_EQ(Value("two", nullptr), "");
    EXPECT_EQ(Value("three", nullptr), "NON");
}

TEST_F(ProfileRead, TheDefaultLosesItsTrailingBlanks) {
    Use("[A]\n");
    EXPECT_EQ(Value("A", "k", " d  "), " d");
    EXPECT_EQ(Value("A", "k", nullptr), "");
}

// The byte behind the buffer must never change.
TEST_F(ProfileRead, TextsAreCutAtEveryBufferSize) {
    Use("[A]\nk=abcdef\n");
    for (DWORD size = 0; size <= 9; ++size) {
        std::string buffer(10, '#');
        const DWORD length = GetPrivateProfileStringA("A", "k", "", buffer.data(), size, Name());
        const DWORD expected = size == 0 ? 0 : std::min<DWORD>(6, size - 1);
        std::string picture = "abcdef"s.substr(0, expected) + (size ? "\0"s : ""s);
        picture.resize(10, '#');
        EXPECT_EQ(length, expected) << size;
        EXPECT_EQ(buffer, picture) << size;
        EXPECT_EQ(GetLastError(), size > 6 || size == 0 ? ERROR_SUCCESS : ERROR_MORE_DATA) << size;
    }
    EXPECT_EQ(GetPrivateProfileStringA("A", "k", "", nullptr, 10, Name()), 0u);
}

TEST_F(ProfileRead, BlocksAreCutAtEveryBufferSize) {
    Use("[A]\nk=a\nlo=bc\n[Bee]\n");
    const std::string section = "k=a\0lo=bc\0"s;
    const std::string names = "A\0Bee\0"s;
    const std::string keys = "k\0lo\0"s;
    for (DWORD size = 0; size <= 14; ++size) {
        for (int kind = 0; kind < 4; ++kind) {
            std::string buffer(16, '#');
            const std::string& block = kind == 0 ? section : kind == 3 ? keys : names;
            DWORD length = 0;
            if (kind == 0) length = GetPrivateProfileSectionA("A", buffer.data(), size, Name());
            if (kind == 1) length = GetPrivateProfileSectionNamesA(buffer.data(), size, Name());
            if (kind == 2) {
                length = GetPrivateProfileStringA(nullptr, "", "", buffer.data(), size, Name());
            }
            if (kind == 3) {
                length = GetPrivateProfileStringA("A", nullptr, "", buffer.data(), size, Name());
            }
            const bool fits = block.size() < size;
            const std::size_t expected = fits ? block.size() : size < 2 ? 0 : size - 2;
            std::string picture = block.substr(0, expected);
            picture.append(std::min<std::size_t>(2, size - expected), '\0');
            picture.resize(16, '#');
            EXPECT_EQ(length, expected) << kind << " at " << size;
            EXPECT_EQ(buffer, picture) << kind << " at " << size;
        }
    }
}

TEST_F(ProfileRead, ALongSectionIsCutAtTheUsualBuffer) {
    std::string text = "[A]\n";
    for (int i = 0; i < 400; ++i)
        text += "k" + std::to_string(i) + "=" + std::string(120, 'v') + "\n";
    Use(text);
    const std::string block = Section("A", 32767);
    EXPECT_EQ(block.size(), 32765u);
    EXPECT_EQ(block.substr(0, 3), "k0=");
}

TEST_F(ProfileRead, AChangedFileIsReadAnew) {
    Use("[A]\nk=1\n");
    EXPECT_EQ(Value("A", "k"), "1");
    // Same size, same moment, same file: only the text differs.
    std::fstream(file_, std::ios::in | std::ios::out | std::ios::binary).seekp(6) << '2';
    EXPECT_EQ(Value("A", "k"), "2");
    std::filesystem::remove(file_);
    EXPECT_EQ(Value("A", "k"), "NON");
    EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
    Use("[A]\nk=3\n");
    EXPECT_EQ(Value("A", "k"), "3");
}

TEST_F(ProfileRead, AFileIsCheckedOnceInATrustUnlessThisProcessChangesIt) {
    Use("[A]\nk=first\n");
    ASSERT_EQ(Value("A", "k"), "first");
    const FileTrust action;
    EXPECT_EQ(Value("A", "k"), "first");
    Use("[A]\nk=from elsewhere\n");
    EXPECT_EQ(Value("A", "k"), "first") << "an action sees one state of the file";
    {
        const FileTrust inner;
        EXPECT_EQ(Value("A", "k"), "from elsewhere");
    }
    WritePrivateProfileStringA("A", "k", "written", Name());
    EXPECT_EQ(Value("A", "k"), "written");
    ASSERT_TRUE(CopyFileA(Write("other.ini", "[A]\nk=copied\n").c_str(), Name(), FALSE));
    EXPECT_EQ(Value("A", "k"), "copied");
    ASSERT_TRUE(DeleteFileA(Name()));
    EXPECT_EQ(Value("A", "k"), "NON");
}

TEST_F(ProfileRead, BackslashesSeparateFoldersAndBareNamesLieInTheWindowsDirectory) {
    Write("deep/er.ini", "[A]\nk=1\n");
    file_ = Path("deep\\er.ini");
    EXPECT_EQ(Value("A", "k"), "1");
    Write("state/windows/bare.ini", "[A]\nk=2\n");
    file_ = "bare.ini";
    EXPECT_EQ(Value("A", "k"), "2");
}

TEST_F(ProfileRead, OddFilesReadAsEmpty) {
    file_ = Path("state");
    EXPECT_EQ(Value("A", "k"), "NON");
    const std::string pipe = Path("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    file_ = pipe;
    EXPECT_EQ(Value("A", "k"), "NON");
    Use("[A]\nk=1\n");
    std::filesystem::resize_file(file_, std::uintmax_t{64} << 20);
    EXPECT_EQ(Value("A", "k"), "NON");
    EXPECT_EQ(GetLastError(), kErrorFileTooLarge);
    std::string noise;
    for (unsigned i = 0, x = 12345; i < 200000; ++i) {
        x = x * 1664525u + 1013904223u;
        noise += static_cast<char>(x >> 24);
    }
    Use(noise + "\n[A]\nk=1\n");
    EXPECT_EQ(Value("A", "k"), "1");
    std::string lists(70000, 0);
    EXPECT_LE(GetPrivateProfileSectionNamesA(lists.data(), 70000, Name()), 69998u);
}

TEST_F(ProfileRead, MeasureAndCountryComeFromTheLocaleUnlessWinIniSaysSo) {
    SetVariable("LC_ALL", "de_DE.UTF-8");
    EXPECT_EQ(GetProfileIntA("intl", "iMeasure", 1), 0u);
    EXPECT_EQ(GetProfileIntA("INTL", "icountry", 0), 49u);
    SetVariable("LC_ALL", "fr_CA.UTF-8");
    EXPECT_EQ(GetProfileIntA("intl", "iCountry", 0), 2u);
    SetVariable("LC_ALL", "en_US.UTF-8");
    char buffer[8];
    EXPECT_EQ(GetProfileStringA("intl", "iMeasure", "x", buffer, sizeof buffer), 1u);
    EXPECT_STREQ(buffer, "1");
    EXPECT_EQ(GetProfileIntA("intl", "other", 5), 5u);
    Write("state/windows/WIN.INI", "[intl]\niMeasure=0\n");
    EXPECT_EQ(GetProfileIntA("intl", "iMeasure", 1), 0u);
    EXPECT_EQ(GetProfileIntA("intl", "iCountry", 0), 1u);
}

}  // namespace
}  // namespace kv::test
