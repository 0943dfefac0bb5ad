// Printers are added, listed and removed; who may, and why not.
#include "tests/host/commands/command_line.h"

namespace kvtest {
namespace {

TEST_F(CommandLine, APrinterOfOnesOwnIsAddedByAnybody) {
    EXPECT_EQ(Run("--as-user printer add Lobby --port USB002").status, 0);
    EXPECT_EQ(Run("printer list").output, "Lobby\tUSB002\tprivate\n");
    EXPECT_EQ(Run("--printer Lobby set EditCopies=6").status, 0);
    EXPECT_EQ(Run("get dmCopies --printer Lobby").output, "dmCopies=6\n");
    EXPECT_EQ(Run("--printer Attic get dmCopies").status, 2);
}

// What a port is stored as decides how the printer is found.
TEST_F(CommandLine, PrintersAreAddedAtEveryKindOfPort) {
    // arguments behind the name, kind, address, whether it can be asked
    const struct {
        const char *arguments, *kind, *address;
        bool queryable;
    } rows[] = {
        {"--port IP_127.0.0.9", "tcp", "127.0.0.9", true},
        {"--port IP_localhost", "tcp", "127.0.0.1", true},
        {"--port IP_127.0.0.9 --no-bidi", "tcp", "127.0.0.9", false},
        {"--port http://127.0.0.9:631/ipp --no-bidi", "ipp", "127.0.0.9", true},
        {"--port '\\\\127.0.0.9\\x_SMB_PRI1'", "smb", "127.0.0.9", true},
        {"--port USB002 --device /dev/null", "usb", "/dev/null", true},
        {"--port USB003", "usb", "", false},
        {"--port LPT1:", "", "", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.arguments);
        ASSERT_EQ(Run(std::string("printer add Q --private --shared ") + row.arguments).status, 0);
        const auto facts = Json("--printer Q device --json");
        EXPECT_EQ(facts["kind"], row.kind);
        EXPECT_EQ(facts["address"], row.address);
        EXPECT_EQ(facts["queryable"], row.queryable) << facts["reason"];
        ASSERT_EQ(Run("printer remove Q").status, 0);
    }
    EXPECT_EQ(Run("printer add Q --port LPT1: --device /dev/null").status, 2);
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
    EXPECT_EQ(Json("printer list --json").dump(),
              R"([{"name":"Lobby","port":"USB002","place":"private","hidden":false}])");
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

}  // namespace
}  // namespace kvtest
