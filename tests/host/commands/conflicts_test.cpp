// Choices that exclude each other, under each policy and on a terminal.
#include "tests/host/commands/command_line.h"

namespace kvtest {
namespace {

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
        {"c\n", 1, false},        // Cancel
        {"\n", 1, false},         // the default
        {"\x04", 1, false},       // end of input
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

}  // namespace
}  // namespace kvtest
