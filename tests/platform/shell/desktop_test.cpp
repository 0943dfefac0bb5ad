// Opening documents and help topics, with a stand-in for the desktop's opener; the user's locale.
#include <htmlhelp.h>
#include <shellapi.h>

#include <cstring>

#include "tests/platform/shell/scratch.h"

namespace kv::test {
namespace {

// The stand-in writes its arguments to a file; the file appears whole, by renaming.
class Desktop : public ScratchTest {
 protected:
    Desktop() {
        const std::string script =
            Write("opener", "#!/bin/sh\nprintf '%s|' \"$#\" \"$@\" > '" + Path("tmp") + "'\nmv '" +
                                Path("tmp") + "' '" + Path("opened") + "'\n");
        chmod(script.c_str(), 0755);
        SetVariable("KVPREFS_OPENER", script.c_str());
    }
    std::string Opened() const {
        for (int i = 0; i < 400 && access(Path("opened").c_str(), F_OK) != 0; ++i) usleep(5000);
        const std::string text = Read(Path("opened"));
        std::filesystem::remove(Path("opened"));
        return text;
    }
    static INT_PTR Shell(const std::string& file, LPCSTR verb = "open", LPCSTR folder = nullptr) {
        return reinterpret_cast<INT_PTR>(
            ShellExecuteA(nullptr, verb, file.c_str(), nullptr, folder, 1));
    }
};

TEST_F(Desktop, AddressesAndDocumentsAreOneArgumentOfTheOpener) {
    const std::string address = "http://x/?a=1&b=$(touch%20x);'\"";
    EXPECT_GT(Shell(address), 32);
    EXPECT_EQ(Opened(), "1|" + address + "|");
    Write("-f doc.txt", "x");
    EXPECT_GT(Shell("-f doc.txt", nullptr, Path("").c_str()), 32);
    EXPECT_EQ(Opened(), "1|" + Path("-f doc.txt") + "|");
}

TEST_F(Desktop, WhatCannotBeOpenedIsReported) {
    EXPECT_EQ(Shell(Path("none.txt")), 2);
    EXPECT_EQ(Shell(""), 2);
    EXPECT_LE(Shell("http://x/", "print"), 32);
    SetVariable("KVPREFS_OPENER", Path("no-such-program").c_str());
    EXPECT_LE(Shell("http://x/"), 32);
}

TEST_F(Desktop, AHelpTopicIsAPageBesideTheBook) {
    const std::string page = Write("help/KVHELP/html/1101.htm", "<html>");
    const HWND caller = reinterpret_cast<HWND>(UINT_PTR{0x1234});
    const auto help = [&](const std::string& file, UINT command, DWORD_PTR data) {
        return HtmlHelpA(caller, file.c_str(), command, data);
    };
    const std::string book = Path("help\\KVHELP.chm");
    EXPECT_EQ(help(book + "::/html/1101.htm", HH_DISPLAY_TOPIC, 0), caller);
    EXPECT_EQ(Opened(), "1|" + page + "|");
    EXPECT_EQ(help(book + "::/html/1101.htm>main", HH_DISPLAY_TOPIC, 0), caller);
    EXPECT_EQ(Opened(), "1|" + page + "|");
    EXPECT_EQ(help(book, HH_HELP_CONTEXT, 1101), caller);
    EXPECT_EQ(Opened(), "1|" + page + "|");
    EXPECT_EQ(help(book + "::/html/9999.htm", HH_DISPLAY_TOPIC, 0), nullptr);
    EXPECT_EQ(help(book + "::/../KVHELP/html/1101.htm", HH_DISPLAY_TOPIC, 0), nullptr);
    EXPECT_EQ(help(book, HH_DISPLAY_TOPIC, 0), nullptr) << "no list of pages yet";
    const std::string list = Write("help/KVHELP/html/index.htm", "<html>");
    EXPECT_EQ(help(book, HH_DISPLAY_TOPIC, 0), caller);
    EXPECT_EQ(Opened(), "1|" + list + "|");
    EXPECT_EQ(HtmlHelpA(caller, nullptr, HH_DISPLAY_TOPIC, 0), nullptr);
}

class Locale : public ScratchTest {
 protected:
    void Use(const char* all, const char* messages, const char* measurement, const char* lang) {
        SetVariable("LC_ALL", all);
        SetVariable("LC_MESSAGES", messages);
        SetVariable("LC_MEASUREMENT", measurement);
        SetVariable("LANG", lang);
    }
    static std::string Info(LCTYPE type) {
        char buffer[32] = {};
        GetLocaleInfoA(LOCALE_SYSTEM_DEFAULT, type, buffer, sizeof buffer);
        return buffer;
    }
};

TEST_F(Locale, LanguageAndMeasureFollowTheVariables) {
    const struct {
        const char* all;
        const char* messages;
        const char* measurement;
        const char* lang;
        const char* language;
        const char* measure;
        LANGID id;
    } rows[] = {
        {nullptr, nullptr, nullptr, "ar_EG.UTF-8", "Arabic", "0", 0x0C01},
        {nullptr, "he_IL", nullptr, "en_US.UTF-8", "Hebrew", "1", 0x040D},
        {"de_CH@euro", "he_IL", "en_US", "en_US", "German", "0", 0x0807},
        {"", "", "my_MM", "de_DE", "German", "1", 0x0407},
        {nullptr, nullptr, nullptr, "C.UTF-8", "English", "0", 0x0409},
        {nullptr, nullptr, nullptr, nullptr, "English", "0", 0x0409},
        {nullptr, nullptr, nullptr, "iw", "Hebrew", "0", 0x040D},
        {nullptr, nullptr, nullptr, "en", "English", "1", 0x0409},
        {nullptr, nullptr, nullptr, "xx_YY", "English", "0", 0x0409},
    };
    for (const auto& row : rows) {
        Use(row.all, row.messages, row.measurement, row.lang);
        const std::string what = row.lang ? row.lang : "nothing set";
        EXPECT_EQ(Info(LOCALE_SENGLANGUAGE), row.language) << what;
        EXPECT_EQ(Info(LOCALE_IMEASURE), row.measure) << what;
        EXPECT_EQ(GetUserDefaultLangID(), row.id) << what;
    }
}

TEST_F(Locale, BufferSizesCountTheTerminator) {
    Use("he_IL", nullptr, nullptr, nullptr);
    char buffer[8] = "#######";
    EXPECT_EQ(GetLocaleInfoA(LOCALE_SYSTEM_DEFAULT, LOCALE_SENGLANGUAGE, nullptr, 0), 7);
    EXPECT_EQ(GetLocaleInfoA(LOCALE_SYSTEM_DEFAULT, LOCALE_SENGLANGUAGE, buffer, 6), 0);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(GetLocaleInfoA(LOCALE_SYSTEM_DEFAULT, LOCALE_SENGLANGUAGE, buffer, 7), 7);
    EXPECT_STREQ(buffer, "Hebrew");
    EXPECT_EQ(GetLocaleInfoA(LOCALE_SYSTEM_DEFAULT, 0x9999, buffer, 8), 0);
}

}  // namespace
}  // namespace kv::test
