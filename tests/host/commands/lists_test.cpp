// What users make for themselves, from the command line: custom papers, watermarks, overlays.
#include "tests/host/commands/command_line.h"

namespace kvtest {
namespace {

using testing::HasSubstr;

// A command, its status, and what it says on standard error.
struct Case {
    std::string command;
    int status;
    const char* says;
};

class ListCommands : public CommandLine {
 protected:
    void Expect(const std::vector<Case>& cases) {
        for (const Case& c : cases) {
            const Ran ran = Run(c.command);
            EXPECT_EQ(ran.status, c.status) << c.command << "\n" << ran.output;
            EXPECT_THAT(ran.errors, HasSubstr(c.says)) << c.command;
        }
    }
    // "Name 120x180" of each, with "*" for common ones.
    std::string Papers() {
        std::string text;
        for (const auto& paper : Json("paper list --json")) {
            text += paper["name"].get<std::string>() + " " + paper["width_mm10"].dump() + "x" +
                    paper["height_mm10"].dump() + (paper["common"] ? "* " : " ");
        }
        return text;
    }
    std::string Names(const std::string& list) {
        std::string text;
        for (const auto& entry : Json(list + " list --json")) {
            if (entry["id"] >= 128) text += entry["name"].get<std::string>() + " ";
        }
        return text;
    }
    // The copy of the watermark that the settings choose.
    std::string ChosenRecord() {
        const std::string record = Bytes(RecordFile());
        return record.substr(record.size() - 1296 + 156 + 0x270, 344);
    }
    // A new one.
    std::string File(const std::string& name, const std::string& text) {
        const fs::path path = state_ / (name + std::to_string(files_++));
        std::ofstream(path, std::ios::binary) << text;
        return path.string();
    }

 private:
    int files_ = 0;
};

TEST_F(ListCommands, PapersAreMadeChangedAndDeletedByTheirDialog) {
    const std::string longDigits(30, '9');
    Expect({
        {"paper add Card --width 120 --height 180 --unit mm --own", 0, ""},
        {"paper add Wide --width 400 --height 180 --unit mm --common", 0,
         "--width=400: stored as 216 mm, the printer takes [92 - 216]"},
        {"paper add Inch --width '8 8/16' --height 11 --unit INCH", 0, ""},
        {"paper add Card --width 100 --height 180", 1,
         "\"Card\" is already registered.  Do you want to overwrite it? Only with --overwrite"},
        {"paper add X --width 1x --height 180", 2, "\"1x\" is no length"},
        {"paper add X --width -5 --height 180", 2, "\"-5\" is no length"},
        {"paper add X --width " + longDigits + " --height 180", 2, "is no length"},
        {"paper add X --width '8 20/16' --height 9 --unit inch", 2, "8 8/16 or 8.5"},
        {"paper add X --width 8.3 --height 9 --unit inch", 2, "is no length"},
        {"paper add ' ' --width 120 --height 180", 2, "1 to 20 characters, not only blanks"},
        {"paper add 123456789012345678901 --width 120 --height 180", 2, "1 to 20 characters"},
        {"paper add 'a\tb' --width 120 --height 180", 2, "none that control"},
        {"watermark add W --text 'a\nb'", 2, "none that control"},
        {"paper edit Nobody --height 150", 2, "\"Nobody\" is no custom paper; expected one of"},
        {"paper edit inch --name 'A;b=c,%d\"' --height 10.5", 0, ""},
        {"--as-user paper edit Wide --height 150", 1, "only an administrator changes it"},
        {"--as-user paper delete Wide", 1, "only an administrator deletes it"},
        {"--as-user paper add X --common --width 120 --height 180", 1, "only an administrator"},
        {"paper add Card --overwrite --width 100 --height 150", 0, ""},
    });
    EXPECT_EQ(Papers(), "Wide 2160x1800* Card 1000x1500 A;b=c,%d\" 2160x2670 ");
    Expect({{"paper delete '#513'", 0, ""}, {"set ComboPaperSize=Card", 0, ""}});
    EXPECT_EQ(Run("get dmPaperSize").output, "dmPaperSize=512\n") << "its id stays";
    // Working at the list chooses no paper.
    Expect({{"paper add Other --width 120 --height 180", 0, ""}, {"paper delete Other", 0, ""}});
    EXPECT_EQ(Run("get dmPaperSize").output, "dmPaperSize=512\n");
    const auto inch = Json("paper list --json")[1];
    EXPECT_EQ(inch["unit"], "inch");
    EXPECT_EQ(inch["width_inch16"], 8 * 16 + 8);
    EXPECT_EQ(inch["height_inch16"], 10 * 16 + 8);
}

TEST_F(ListCommands, LimitsAreToldWithTheNumberReached) {
    for (int i = 0; i < 3; ++i)
        Run("paper add P" + std::to_string(i) + " --width 120 --height 180");
    std::string rules = Bytes(RulesFile());
    for (const char* key : {"\nCurrentUser=", "\nNTNum="}) {
        for (size_t at = 0; (at = rules.find(key, at)) != std::string::npos; ++at) {
            const size_t value = at + std::strlen(key);
            rules.replace(value, rules.find_first_of("\r\n", value) - value,
                          key[1] == 'C' ? "3" : "0");
        }
    }
    std::ofstream(RulesFile(), std::ios::binary) << rules;
    Expect({{"--as-user paper add Q --width 120 --height 180", 1,
             "Maximum number of custom papers saved (3 of your own"}});
    Expect({{"watermark add W --text W --common", 0,
             "\"W\": stored as your own, the list for everybody is full"}});
    std::string file = File("form.prn", "%");
    for (int i = 0; i < 15; ++i) {
        EXPECT_EQ(Run("overlay add Form" + std::to_string(i) + " " + file).status, 0);
    }
    Expect({{"overlay add Form15 " + file, 1, "no room for another overlay: 16 are stored"}});
    EXPECT_EQ(Json("overlay list --json")[0]["id"], 128);
}

TEST_F(ListCommands, WatermarksAreMadeChangedAndDeletedByTheirEditor) {
    Expect({
        {"watermark add Secret --text SECRET --angle 30 --colour CC0000", 0, ""},
        {"set ComboWatermark=Secret", 0, ""},
        {"watermark add Ours --text 'A \u00C4\u20AC' --size 100 --bold --common --x 50 --y -100", 0,
         ""},
        {"watermark add X --text '\u0394'", 2, "that the printer's letters lack"},
        {"watermark add X --text 'A \xC4'", 2, "that the printer's letters lack"},
        {"watermark add Secret --text S", 1, "Only with --overwrite"},
        {"watermark add '<NONE>' --text x", 1, "\"<NONE>\" is not valid. Please use different"},
        {"watermark add X --text x --size 201", 2, "a whole number from 8 to 200"},
        {"watermark add X --text x --angle 1e2", 2, "a whole number from -180 to 180"},
        {"watermark add X --text x --x 999999999999999999999999999999", 2, "is not taken"},
        {"watermark add X --text x --colour red", 2, "six hexadecimal digits"},
        {"watermark add X --text x --font Nosuch", 2, "is no installed typeface"},
        {"watermark add X --text '  '", 2, "--text: \"  \" cannot be typed there"},
        {"watermark delete Confidential", 1, "it cannot be deleted"},
        {"watermark edit Ours --no-bold --italic --name 'M\u00EFne' --own", 0, ""},
        {"set 'ComboWatermark=M\u00EFne'", 0, ""},
    });
    // UTF-8 here, letters of the driver's code page there.
    EXPECT_EQ(Json("watermark list --json")[4]["text"], "A \u00C4\u20AC");
    EXPECT_STREQ(ChosenRecord().c_str() + 27, "A \xC4\x80");
    Expect(
        {{"set ComboWatermark=Secret", 0, ""}, {"--as-user watermark delete 'M\u00EFne'", 0, ""}});
    const auto secret = Json("watermark list --json")[3];
    EXPECT_EQ(secret["colour"], "CC0000");
    EXPECT_EQ(secret["angle"], 30);
    EXPECT_EQ(secret["common"], false);
    // It is still what the next job is printed with, record and all.
    EXPECT_EQ(Run("get mdmWatermark").output, "mdmWatermark=128\n");
    EXPECT_STREQ(ChosenRecord().c_str() + 27, "SECRET");
}

// Lists are stored by their dialogs, settings by the program: who has to store these anew because
// of the others must not add twice.
TEST_F(ListCommands, SeveralPeopleAddAtTheSameTime) {
    constexpr int kPeople = 6;
    Run("get");  // there is a printer, but its sheet was never opened, which changes the settings
    const std::string program = KV_BIN_DIR "/kvprefs --state " + state_.string();
    std::string script;
    for (int i = 0; i < kPeople; ++i) {
        const std::string number = std::to_string(i + 2);
        for (const std::string& command :
             {"set EditCopies=" + number, "watermark add W" + number + " --text W"}) {
            script += "{ " + program + " " + command + " >/dev/null || echo failed; } & ";
        }
    }
    EXPECT_EQ(Run("--version; { " + script + " wait; } 2>&1").output.find("failed"),
              std::string::npos);
    EXPECT_EQ(Json("watermark list --json").size(), static_cast<size_t>(3 + kPeople));
}

TEST_F(ListCommands, OverlaysNeedAFileThatCanBeRead) {
    const std::string file = File("form.prn", "%");
    fs::create_directory(state_ / "folder");
    const std::string folder = (state_ / "folder").string();
    Expect({
        {"overlay list", 0, ""},
        {"overlay add Form " + file, 0, ""},
        {"overlay add Gone " + folder + "/nothing.prn", 1, "The specific file is not found"},
        {"overlay add Folder " + folder, 1, "The specific file is not found"},
        {"overlay add form.prn0 " + state_.string(), 0, ""},
        {"overlay add 'a;b' " + file, 2, "a name without \";\""},
        {"overlay edit Form --name form.prn0", 1, "Only with --overwrite"},
        {"overlay edit Form --name Letter", 0, ""},
        {"overlay delete '<NONE>'", 1, "stands for no overlay"},
        {"overlay delete Nothing", 2, "is no overlay"},
        {"--as-user overlay add User " + file, 1, "belong to its administrators"},
    });
    EXPECT_EQ(Names("overlay"), "Letter form.prn0 ");
    EXPECT_EQ(Run("get mdmOverlay").output, "mdmOverlay=0\n") << "none is chosen by making it";
    EXPECT_EQ(Json("overlay list --json")[1]["path"], state_.string() + "\\form.prn0");
}

TEST_F(ListCommands, FilesOfEntriesAreTakenWholeOrNotAtAll) {
    Expect({{"paper add Card --width 120 --height 180 --unit mm --common", 0, ""},
            {"paper add Inch --width '8 8/16' --height 11 --unit inch", 0, ""},
            {"watermark add Secret --text SECRET --angle 30 --colour CC0000 --x 50", 0, ""},
            {"watermark add Loud --text LOUD --size 99", 0, ""}});
    const std::string kPapers = "Card 1200x1800* Inch 2160x2790 ";
    const std::string papers = Run("paper export -").output;
    const std::string marks = Run("watermark export -").output;
    EXPECT_EQ(nlohmann::json::parse(marks).size(), 2u) << "not the printer's own";
    const auto before = Json("watermark list --json");
    for (const char* name : {"Secret", "Loud"}) Run(std::string("watermark delete ") + name);
    for (const char* name : {"Card", "Inch"}) Run(std::string("paper delete ") + name);
    Expect({{"paper import " + File("p", papers), 0, ""},
            {"watermark import " + File("w", marks), 0, ""},
            {"paper import " + File("p", papers), 1, "Only with --overwrite"},
            {"watermark import " + File("w", marks), 1, "Only with --overwrite"},
            {"watermark import --overwrite " + File("w", marks), 0, ""}});
    EXPECT_EQ(Papers(), kPapers);
    auto after = Json("watermark list --json");
    ASSERT_EQ(after.size(), before.size());
    for (size_t i = 3; i < after.size(); ++i) {
        for (const char* member : {"name", "text", "font", "size", "colour", "angle", "x", "y"}) {
            EXPECT_EQ(after[i][member], before[i][member]) << member;
        }
    }
    const std::string good = R"({"name":"New","text":"N","size":50})";
    const std::string paper = R"({"name":"New","unit":"mm","width_mm10":1200,"height_mm10":1800})";
    Expect({
        {"watermark import " + File("x", "[" + good + R"(,{"name":"Bad","text":"B","size":5}])"), 2,
         "from 8 to 200"},
        {"watermark import " + File("x", "[" + good + "," + good + "]"), 2, "\"New\" comes twice"},
        {"watermark import " + File("x", R"([{"name":"New","text":5}])"), 2, "text is no text"},
        {"watermark import " + File("x", R"([{"name":"New"}])"), 2, "expected a name and a text"},
        {"watermark import " + File("x", R"([{"name":"New","text":"N","sise":5}])"), 2,
         "has a member that is none of such an entry"},
        {"paper import " + File("x", "[" + paper +
                                         R"(,{"name":" ","width_mm10":1200,)"
                                         R"("height_mm10":1800}])"),
         2, "not only blanks"},
        {"paper import " + File("x", "{}"), 2, "is no list"},
        {"paper import " + File("x", "[" + paper), 2, "is no JSON at byte"},
        {"paper import " + state_.string() + "/none", 2, "cannot be read"},
        {"paper import " + state_.string(), 2, "cannot be read"},
    });
    EXPECT_EQ(Names("watermark"), "Secret Loud ") << "nothing of a bad file is there";
    EXPECT_EQ(Papers(), kPapers);
}

}  // namespace
}  // namespace kvtest
