// The printer description's grammar and the installation of printers from it.
#include <test_paths.h>
#include <framework/core/description.h>
#include <framework/core/description_parser.h>
#include <framework/spool/driver_folder.h>
#include <platform/registry/state_store.h>
#include <sys/wait.h>

#include <set>

#include "tests/support/printer_fixture.h"
#include "tests/support/registry.h"

namespace kvtest {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(DescriptionText, EveryBadRowIsNamedAndLeftOut) {
    const kvcore::Description description = kvcore::ParseDescription(
        "stray line without a section\n"
        "[PaperInfo]\n"
        "Num=2\n"
        "Paper1=9, A4, mm, 2100, 2970, 42, 42, 42, 42, A4, the common one\r\n"
        "Paper2=9, A4, mm, 2100, 2970, 42, 42, 42, 42, twice\n"
        "Paper3=10, Bad, ell, 1, 1, 0, 0, 0, 0, unit\n"
        "Paper4=600, Own, mm, 100, 100, 0, 0, 0, 0, code of users\n"
        "Paper5=10, Short, mm, 100\n"
        "[Defaults]\n"
        "; comment\n"
        "mdmNup=0x14\n"
        "mdmNope=1\n"
        "dmCopies=many\n"
        "[InputBins\n"
        "[Elsewhere]\n"
        "anything=goes\n",
        "f.ini");
    ASSERT_EQ(description.papers.size(), 1u);
    EXPECT_EQ(description.papers[0].displayName, "A4, the common one");
    EXPECT_THAT(description.defaults, ElementsAre(testing::Pair("mdmNup", 20u)));
    EXPECT_THAT(description.problems,
                ElementsAre(HasSubstr("f.ini:1:"), HasSubstr("f.ini:5:"), HasSubstr("f.ini:6:"),
                            HasSubstr("f.ini:7:"), HasSubstr("f.ini:8:"), HasSubstr("f.ini:12:"),
                            HasSubstr("f.ini:13:"), HasSubstr("f.ini:14:")));
}

class Installation : public PrinterTest {};

TEST_F(Installation, AChangedFileIsReadAgain) {
    const std::string path = Write("d.ini", "[Resolutions]\nR=600,600\n");
    const auto first = kvcore::LoadDescription(path);
    EXPECT_EQ(kvcore::LoadDescription(path), first);
    Write("d.ini", "[Resolutions]\nR=600,600\nS=1200,600\n");
    EXPECT_EQ(kvcore::LoadDescription(path)->resolutions.size(), 2u);
    EXPECT_EQ(first->resolutions.size(), 1u) << "who still reads the old one is not disturbed";
}

TEST_F(Installation, RefusalsSayWhyAndCreateNothing) {
    const std::string models = KV_SOURCE_DIR "/models";
    const std::string damaged = Write("damaged/tessora7720mf.ini", "[Defaults]\nnope=1\n");
    struct {
        std::string name;
        std::string port;
        std::string models;
        const char* reason;
    } const cases[] = {
        {"", "USB001", models, "printer name"},
        {"a,b", "USB001", models, "commas"},
        {std::string(300, 'x'), "USB001", models, "220"},
        {"New", "", models, "port"},
        {"New", "USB001", Path("nowhere"), "nowhere"},
        {"New", "USB001", Path("damaged"), "tessora7720mf.ini:2"},
        {"OFFICE TESSORA", "USB001", models, "exists"},
    };
    for (const auto& row : cases) {
        std::string error;
        EXPECT_FALSE(kvcore::InstallPrinter({row.name, row.port}, row.models, error)) << row.reason;
        EXPECT_THAT(error, HasSubstr(row.reason));
    }
    EXPECT_FALSE(Open(PRINTER_ACCESS_USE, "New"));
}

// The vendor's sections come from the model, what users stored stays, and nothing is lost unsaid.
TEST_F(Installation, ASecondPrinterTakesOverWhatTheModelChanged) {
    const std::string rules = RulesPath();
    const std::string model = Read(rules);
    const std::string old =
        "[conflictconditions]\r\nEditCopies0=(2),0,0,(ChkCollate,0,0,(1),0)\r\n"
        "[Watermark]\r\nNTNum=3\r\nMinCode=1\r\nMaxCode=1\r\n1=Mine,0,1\r\n"
        "[MoveWithItems]\r\nA=1\r\n[Saved Data]\r\n; of users\r\nItem0=x";
    std::ofstream(rules, std::ios::binary | std::ios::trunc) << old;
    std::string error;
    std::vector<std::string> done;
    ASSERT_TRUE(kvcore::InstallPrinter({"Second", "FILE:"}, KV_SOURCE_DIR "/models", error, &done));
    EXPECT_EQ(Read(rules), model +
                               "MinCode=1\r\nMaxCode=1\r\n1=Mine,0,1\r\n"
                               "[Saved Data]\r\n; of users\r\nItem0=x");
    EXPECT_EQ(Read(rules + ".old1"), old);
    ASSERT_EQ(done.size(), 1u);
    EXPECT_THAT(done[0], testing::AllOf(HasSubstr("[ConflictConditions]"),
                                        HasSubstr("[MoveWithItems] from the model"),
                                        HasSubstr("stored in [Watermark], [Saved Data]"),
                                        HasSubstr("KVUIMOD.ini.old1")));
    const std::string description = State() + "/driver/3/tessora7720mf.ini";
    std::ofstream(description, std::ios::app) << "; older\n";
    ASSERT_TRUE(kvcore::InstallPrinter({"Third", "FILE:"}, KV_SOURCE_DIR "/models", error, &done));
    EXPECT_EQ(Read(description), Read(KV_SOURCE_DIR "/models/tessora7720mf.ini"));
    EXPECT_THAT(done, testing::ElementsAre(HasSubstr("tessora7720mf.ini.old1")));
    std::filesystem::remove(rules);
    std::filesystem::create_directory(rules);
    EXPECT_FALSE(kvcore::InstallPrinter({"Fourth", "FILE:"}, KV_SOURCE_DIR "/models", error));
    EXPECT_THAT(error, HasSubstr("KVUIMOD.ini: is a folder"));
}

TEST_F(Installation, ASecondPrinterKeepsTheInstalledRulesFile) {
    const std::string rules = RulesPath();
    EXPECT_EQ(ModeOf(rules), 0600u);
    std::ofstream(rules, std::ios::app) << "[KeepSettings]\n";
    const std::string before = Read(rules);
    std::string error;
    ASSERT_TRUE(kvcore::InstallPrinter({"Second", "IP_10.0.0.5"}, KV_SOURCE_DIR "/models", error));
    EXPECT_EQ(Read(rules), before);
    EXPECT_STREQ(RegistryValue(HKEY_LOCAL_MACHINE,
                               "System\\CurrentControlSet\\Control\\Print\\Monitors\\"
                               "Standard TCP/IP Port\\Ports\\IP_10.0.0.5",
                               "IPAddress")
                     .c_str(),
                 "10.0.0.5");
}

// What a program that makes a printer, or without a name the first one, ends with.
int Install(const std::string& name) {
    std::string error;
    const char* const models = KV_SOURCE_DIR "/models";
    const bool done = name.empty() ? kvcore::InstallFirstPrinter(models, error)
                                   : kvcore::InstallPrinter({name, "USB001"}, models, error);
    const bool taken = error == "printer \"" + name + "\" exists already";
    if (!done && !taken) std::fprintf(stderr, "%s\n", error.c_str());
    return done ? 0 : taken ? 1 : 2;
}

TEST_F(Installation, ManyProgramsAtOnceMakeEachPrinterOnce) {
    // Two first runs, one name twice, others once. What each ends with, the two of a name in order.
    const char* const kNames[] = {"", "", "Twice", "Twice", "A", "B", "C"};
    const std::multiset<int> kEnds = {0, 0, 0, 0, 0, 0, 1};
    for (int round = 0; round < 4; ++round) {
        kv::CloseStateStore();
        std::filesystem::remove_all(State());
        int gate[2];
        ASSERT_EQ(pipe(gate), 0);
        for (const char* name : kNames) {
            if (fork() != 0) continue;
            close(gate[1]);
            char ignored = 0;
            _exit(read(gate[0], &ignored, 1) == 0 ? Install(name) : 3);
        }
        close(gate[1]);  // all at once
        std::multiset<int> ends;
        for (int status = 0; wait(&status) > 0;) ends.insert(WEXITSTATUS(status));
        close(gate[0]);
        EXPECT_EQ(ends, kEnds);
        std::vector<kv::PrinterRecord> printers;
        EXPECT_EQ(kv::StateStore::Get().ListPrinters(printers), ERROR_SUCCESS);
        EXPECT_EQ(printers.size(), 5u);
        for (const char* file : {kvspool::kRulesFile, kvspool::kDescriptionFile}) {
            EXPECT_EQ(Read(State() + "/driver/3/" + file),
                      Read(std::string(KV_SOURCE_DIR "/models/") + file));
        }
        for (const auto& entry : std::filesystem::recursive_directory_iterator(State())) {
            EXPECT_EQ(entry.path().string().find(".new"), std::string::npos) << entry.path();
        }
    }
}

}  // namespace
}  // namespace kvtest
