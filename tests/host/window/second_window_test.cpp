// Two who change one printer's settings at a time: a window and a second one, or a window and a
// command. Nobody's settings are overwritten unseen.
#include "printer_fixture.h"

#include <gmock/gmock.h>
#include <test_paths.h>
#include <host/commands/commands.h>
#include <host/record/record_differences.h>
#include <platform/controls/property_sheet.h>
#include <platform/shell/state_directory.h>
#include <sys/wait.h>

#include <cstdio>

namespace kvhost {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr int kApply = kv::kSheetApplyButton;
constexpr int kCopies = 2014;

class SecondWindowTest : public PrinterTest {
 protected:
    static void Somebody(const std::string& pairs) {
        const std::string program = KV_BIN_DIR "/kvprefs --state ";
        const std::string command =
            program + kv::StateDirectory() + " set " + pairs + " >/dev/null 2>&1 </dev/null";
        EXPECT_EQ(std::system(command.c_str()), 0) << pairs;
    }
};

TEST_F(SecondWindowTest, ThePersonDecidesAboutSettingsStoredMeanwhile) {
    // What is pressed in the window, what in the question; then the copies and the orientation that
    // are stored at the end, and whether the window is still there to be closed.
    const struct {
        int button;
        int answer;
        LONG copies;
        LONG orientation;
        bool staysOpen;
    } rows[] = {
        {IDOK, IDYES, 5, 1, false},  {IDOK, IDNO, 3, 2, false},  {IDOK, IDCANCEL, 3, 2, true},
        {kApply, IDYES, 5, 1, true}, {kApply, IDNO, 3, 2, true}, {kApply, IDCANCEL, 3, 2, true},
    };
    for (const auto& row : rows) {
        Somebody("EditCopies=1 RadioOrientation=Portrait");
        std::string question;
        bool isOpen = false;
        Next([&](HWND sheet) {
            Somebody("EditCopies=3 RadioOrientation=Landscape");
            Type(sheet, 0, kCopies, "5");
            Press(sheet, row.button);
            isOpen = SendMessageA(sheet, PSM_GETCURRENTPAGEHWND, 0, 0) != 0;
            if (isOpen) Press(sheet, IDCANCEL);
        });
        Next([&](HWND box) {
            question = MessageOf(box);
            Press(box, row.answer);
        });
        const bool comesAnew = row.button == kApply && row.answer == IDNO;
        std::string shown;
        if (comesAnew) {
            Next([&](HWND sheet) {
                char text[16] = "";
                GetWindowTextA(Item(sheet, 0, kCopies), text, sizeof text);
                shown = text;
                Press(sheet, IDCANCEL);
            });
        }
        EXPECT_EQ(Open(), kDone);
        EXPECT_THAT(question, HasSubstr("Copies: was 1, now stored 3, yours 5\n"));
        EXPECT_THAT(question, HasSubstr("Orientation: was Portrait, now stored Landscape, yours "));
        EXPECT_EQ(Stored("dmCopies"), row.copies) << row.button << " " << row.answer;
        EXPECT_EQ(Stored("dmOrientation"), row.orientation) << row.button << " " << row.answer;
        EXPECT_EQ(isOpen || comesAnew, row.staysOpen) << row.button << " " << row.answer;
        EXPECT_EQ(shown, comesAnew ? "3" : "");
    }
}

TEST_F(SecondWindowTest, NothingIsAskedWhereNothingWouldBeLost) {
    const struct {
        const char* theirs;  // stored while the window is open
        const char* typed;   // empty: the window is only looked at
        LONG copies;
    } rows[] = {{nullptr, "5", 5}, {"EditCopies=3", "", 3}, {"EditCopies=7", "7", 7}};
    for (const auto& row : rows) {
        Somebody("EditCopies=1");
        Next([&](HWND sheet) {
            if (row.theirs != nullptr) Somebody(row.theirs);
            if (row.typed[0] != '\0') Type(sheet, 0, kCopies, row.typed);
            Press(sheet, IDOK);
        });
        EXPECT_EQ(Open(), kDone);
        EXPECT_EQ(Stored("dmCopies"), row.copies);
    }
}

TEST_F(SecondWindowTest, ItsOwnApplyIsNobodyElsesAndEachNewChangeIsAskedAbout) {
    Next([](HWND sheet) {
        Type(sheet, 0, kCopies, "4");
        Press(sheet, kApply);
        Type(sheet, 0, kCopies, "5");
        Press(sheet, kApply);
        EXPECT_EQ(Stored("dmCopies"), 5);
        Somebody("EditCopies=8");
        Type(sheet, 0, kCopies, "6");
        Press(sheet, IDOK);
    });
    Next([](HWND box) {
        Somebody("EditCopies=9");  // once more, while the question is open
        Press(box, IDYES);
    });
    Next([](HWND box) {
        EXPECT_THAT(MessageOf(box), HasSubstr("Copies: was 8, now stored 9, yours 6\n"));
        Press(box, IDYES);
    });
    EXPECT_EQ(Open(), kDone);
    EXPECT_EQ(Stored("dmCopies"), 6);
}

TEST_F(SecondWindowTest, SettingsThatCannotBeStoredStayInTheWindow) {
    Next([this](HWND sheet) {
        Type(sheet, 0, kCopies, "4");
        // A file in the way of the records' folder stops root as well.
        std::filesystem::remove_all(state_ + "/records");
        std::fclose(std::fopen((state_ + "/records").c_str(), "w"));
        Press(sheet, IDOK);
        std::filesystem::remove(state_ + "/records");
        EXPECT_TRUE(Press(sheet, IDOK)) << "the window is gone";
    });
    Next([](HWND box) {
        EXPECT_THAT(MessageOf(box), HasSubstr("/records"));
        Press(box, IDOK);
    });
    EXPECT_EQ(Open(), kDone);
    EXPECT_EQ(Stored("dmCopies"), 4);
}

TEST_F(SecondWindowTest, ManyDifferencesEndWithTheirNumber) {
    std::vector<SettingDifference> many(11, {"Copies", "1", "2", "3"});
    EXPECT_THAT(DifferenceLines(many), HasSubstr("yours 3\nand 3 more\n"));
    many.resize(8);
    EXPECT_THAT(DifferenceLines(many), Not(HasSubstr("more")));
}

TEST_F(SecondWindowTest, CommandsAtOneTimeLoseNoneOfTheirChanges) {
    const std::string commands[] = {"EditCopies=7", "RadioOrientation=2", "ComboPaperSize=A5",
                                    "SldContrast=20"};
    Somebody("EditCopies=1");
    for (int round = 0; round < 3; ++round) {
        std::string all;
        for (const std::string& pairs : commands) {
            all += KV_BIN_DIR "/kvprefs --state " + state_ + " set " + pairs + " >/dev/null & ";
        }
        EXPECT_EQ(std::system((all + "wait").c_str()), 0);
        EXPECT_EQ(Stored("dmCopies"), 7);
        EXPECT_EQ(Stored("dmOrientation"), 2);
        EXPECT_EQ(Stored("dmPaperSize"), 11);
        EXPECT_EQ(Stored("Contrast"), 20);
        std::filesystem::remove_all(state_ + "/records");
    }
}

}  // namespace
}  // namespace kvhost
