// The printer itself: what is told of it, asking it what it has, its answer in a file, mailboxes.
#include "tests/host/commands/command_line.h"
#include "tests/support/running_printer.h"

namespace kvtest {
namespace {

TEST_F(CommandLine, MailboxesAreAssignedAndTheDestinationFollowsTheOptions) {
    const Ran without = Run("set ComboMailBoxAssign=MBAssign8");
    EXPECT_EQ(without.status, 1);
    EXPECT_NE(without.errors.find("BtnMBSetting is disabled now"), std::string::npos);
    EXPECT_THAT(Run("mailbox").errors, testing::HasSubstr("no mail-bin sorter is installed"));
    ASSERT_EQ(Run("device install Mailbin10").status, 0);
    EXPECT_EQ(Run("mailbox").output, "Assigned: None\n");
    EXPECT_EQ(Run("set ComboMailBoxAssign=MBAssign8").status, 0);
    EXPECT_EQ(Run("get mdmMailBinAssign").output, "mdmMailBinAssign=1792\n");
    EXPECT_EQ(Run("mailbox assign '9-10 bin'").output, "mdmMailBinAssign=1536\n");
    // what is named how, status, what is said
    const struct {
        const char *names, *says;
        int status;
    } rows[] = {
        {"9 Ada", "", 0},
        {"ada 'Ada Lovelace'", "", 0},
        {"8 Ben", "\"8\" is no mailbox; expected one of 9 \"Ada Lovelace\", 10 \"Bin 10\"", 2},
        {"10 'A name of 21 letters.'", "expected 1 to 20 characters; nothing was stored", 2},
        {"10 ''", "expected 1 to 20 characters", 2},
    };
    for (const auto& row : rows) {
        const Ran ran = Run(std::string("mailbox name ") + row.names);
        EXPECT_EQ(ran.status, row.status) << row.names;
        EXPECT_THAT(ran.errors, testing::HasSubstr(row.says));
    }
    EXPECT_EQ(Run("mailbox").output, "Assigned: 9-10 bin\n9   Ada Lovelace\n10  Bin 10\n");
    const Ran bin = Run("set ComboOutputSetting=69");
    EXPECT_EQ(bin.status, 1);
    EXPECT_NE(bin.errors.find("follows from what is installed (`kvprefs device`)"),
              std::string::npos)
        << bin.errors;
}

TEST_F(CommandLine, ServiceTechniciansReachTheirDialogs) {
    EXPECT_EQ(Run("set DPL=40").status, 2) << "no control of a page";
    const Ran set = Run("set --service DPL=-40 mirror=on Hue.Cyan=1,2,255 EditCopies=2");
    EXPECT_EQ(set.status, 0) << set.output;
    EXPECT_EQ(set.output, "dmCopies=2\nDepletion=-40\n");
    EXPECT_EQ(Bytes(RecordFile()).substr(156 + 0xDC, 4), std::string("\1\2\xFF\0", 4));
    EXPECT_EQ(Bytes(RecordFile())[156 + 0x104], 1);
    const auto before = AllFiles();
    for (const char* wrong :
         {"GCR=101", "Mirror=maybe", "Nothing=1", "Hue.Cyan=1,2", "Hue.Brown=1,2,3"}) {
        const Ran refused = Run(std::string("set --service EditCopies=3 ") + wrong);
        EXPECT_EQ(refused.status, 2) << wrong;
        EXPECT_THAT(refused.errors, testing::HasSubstr("; expected ")) << wrong;
    }
    EXPECT_EQ(AllFiles(), before);
}

class DeviceCommands : public CommandLine {
 protected:
    void Add(const std::string& port) {
        ASSERT_EQ(Run("printer add Q --private --port " + port).status, 0);
    }
    Ran OnQ(const std::string& arguments) { return Run("--printer Q " + arguments); }
    std::string Options() { return OnQ("get mdmInstalledOptions").output; }
};

TEST_F(DeviceCommands, ThePrinterIsAskedAndWhatItReportsIsStoredOrAllIsKept) {
    RunningPrinter running(BehaviourOf("TRAY2 TRAY3"), OwnAddress(), 9100);
    Add("http://" + OwnAddress() + "/ipp");
    // how options that go are answered, status, what is said, what is installed afterwards
    const struct {
        const char* arguments;
        int status;
        const char* says;
        const char* installed;
    } rows[] = {
        {"device query", 1, "nobody could be asked", "133"},
        {"device query --on-removal=refuse", 1, "were to be kept; nothing was stored", "133"},
        {"--as-user device query", 1, "Only the owner of", "133"},
        {"device query --on-removal=accept", 0, "Tray 3: installed\nDuplex Option: removed\n",
         "13"},
        {"device query", 0, "the printer reports what is known already", "13"},
    };
    for (const auto& row : rows) {
        const Ran ran = OnQ(row.arguments);
        EXPECT_EQ(ran.status, row.status) << row.arguments;
        EXPECT_THAT(ran.output, testing::HasSubstr(row.says)) << row.arguments;
        EXPECT_EQ(Options(), std::string("mdmInstalledOptions=") + row.installed + "\n");
    }
    EXPECT_EQ(OnQ("set ComboPaperSource='Tray 3'").status, 0);
    EXPECT_EQ(OnQ("set ComboNup=Booklet").status, 2) << "needs the duplex unit";
    // With Auto Configure on it stays on; a change of something else waits for no printer.
    EXPECT_EQ(OnQ("set ChkAutoConfig=on").status, 0);
    const size_t asked = running.Received().size();
    EXPECT_EQ(OnQ("set ChkAccessCode=on AccessNumber=12").status, 0);
    EXPECT_EQ(running.Received().size(), asked);
    EXPECT_EQ(OnQ("device query").status, 0);
    EXPECT_GT(running.Received().size(), asked);
    const auto facts = Json("--printer Q device --json");
    EXPECT_EQ(facts["autoConfigure"], true);
    EXPECT_EQ(facts["kind"], "ipp");
    EXPECT_EQ(facts["address"], OwnAddress());
    EXPECT_EQ(facts["queryable"], true);
    EXPECT_EQ(facts["options"][1]["installed"], true);
}

TEST_F(DeviceCommands, ARemovalIsAskedOnATerminal) {
    RunningPrinter running(BehaviourOf("TRAY2"), OwnAddress(), 9100);
    Add("IP_" + OwnAddress());
    const std::string command = "--printer Q device query";
    const Ran kept = RunOnTerminal(command, "x\n\n");
    EXPECT_EQ(kept.status, 1) << kept.output;
    EXPECT_THAT(kept.output, testing::HasSubstr("some installed options are removed!"));
    EXPECT_EQ(Options(), "mdmInstalledOptions=133\n");
    EXPECT_EQ(RunOnTerminal(command, "a\n").status, 0);
    EXPECT_EQ(Options(), "mdmInstalledOptions=5\n") << "through the spooler this time";
}

TEST_F(DeviceCommands, WhyNothingCameIsToldInTime) {
    const std::string ipp = "http://" + OwnAddress() + "/ipp";
    // port, how the printer behaves (empty: it is off), what is said
    const struct {
        std::string port, behaviour, says;
    } rows[] = {
        {"USB001", "", "the printer cannot be asked: no port monitor names a device"},
        {"LPT1:", "", "the printer cannot be asked: no port monitor knows the address"},
        {ipp, "", "cannot be reached"},
        {ipp, "~close", "ends the connection"},
        {ipp, "~binary", "the answer is none to @PJL INFO CONFIG"},
        {ipp, "TRAY2 ~no-form-feed", "no form feed came"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.port + " " + row.behaviour);
        Add(row.port);
        std::unique_ptr<RunningPrinter> running;
        if (!row.behaviour.empty()) {
            running =
                std::make_unique<RunningPrinter>(BehaviourOf(row.behaviour), OwnAddress(), 9100);
        }
        const auto begin = std::chrono::steady_clock::now();
        const Ran ran = OnQ("device query --on-removal=accept");
        EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(16));
        EXPECT_EQ(ran.status, 1);
        EXPECT_THAT(ran.errors, testing::HasSubstr(row.says));
        EXPECT_EQ(Options(), "mdmInstalledOptions=133\n");
        EXPECT_EQ(Run("printer remove Q").status, 0);
    }
}

TEST_F(DeviceCommands, AnAnswerIsRecordedAndPlaysBack) {
    const std::string file = (state_ / "answer").string();
    Add("http://" + OwnAddress() + "/ipp");
    EXPECT_EQ(OnQ("device record " + file).status, 1) << "it is off";
    EXPECT_FALSE(fs::exists(file));
    {
        RunningPrinter running(BehaviourOf("TRAY3 DUPLEX"), OwnAddress(), 9100);
        EXPECT_EQ(OnQ("device record " + file).status, 0);
        EXPECT_EQ(OnQ("device record /no/such/folder/x").status, 2);
        EXPECT_EQ(OnQ("device record -").output, Bytes(file));
    }
    kvprinter::Behaviour replayed;
    replayed.replay = Bytes(file);
    RunningPrinter running(replayed, OwnAddress(), 9100);
    EXPECT_EQ(OnQ("device query --on-removal=accept").status, 0);
    EXPECT_EQ(Options(), "mdmInstalledOptions=137\n");
}

}  // namespace
}  // namespace kvtest
