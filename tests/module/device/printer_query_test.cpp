// What a printer's answer makes of the installed options: good answers, damaged ones, printers that
// misbehave, both roads to them, and who may ask.
#include <winsock2.h>

#include <windows.h>

#include "device/printer_query.h"

#include <framework/monitor/language_monitor.h>
#include <gtest/gtest.h>
#include <platform/display/headless.h>
#include <platform/display/waiting.h>
#include <platform/window/input.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <string>

#include "device/pjl_socket.h"
#include "device/printer_answer.h"
#include "tests/module/support/sheet_fixture.h"
#include "tests/support/printer_data.h"
#include "tests/support/running_printer.h"

namespace kvui {
namespace {

const std::string kHead = "@PJL INFO CONFIG\r\n";
constexpr DWORD kUnread = 0xDEAD;
enum : DWORD { kBase = 0x1, kTray2 = 0x4, kTray3 = 0x8, kTray4 = 0x10, kDuplex = 0x80 };

DWORD OptionsIn(const std::string& reply) {
    DWORD options = kUnread;
    return ReadInstalledOptions(reply, options) ? options : kUnread;
}

TEST(PrinterAnswer, CountsBetweenItsHeaderAndItsFormFeed) {
    const struct {
        std::string reply;
        DWORD options;
    } rows[] = {
        {kHead + "\f", kBase},
        {kHead + "TRAY2=INSTALLED\r\nDUPLEX=INSTALLED\r\n\f", kBase | kTray2 | kDuplex},
        {kHead + "TRAY2=NOTINSTALLED\r\nTRAY3=INSTALLED\r\n\f", kBase | kTray3},
        {kHead + "TRAY2=INSTALLED\r\n\fTRAY3=INSTALLED\r\n\f", kBase | kTray2},
        {"TRAY2=INSTALLED\f" + kHead + "TRAY3=INSTALLED\f", kBase | kTray3},
        {kHead + std::string("\0TRAY2=INSTALLED\f", 17), kBase | kTray2},
        {kHead + "TRAY4=INSTALLED LCC=INSTALLED tray2=installed\f", kBase},
        {kHead + "TRAY2=INSTALLED\r\n", kUnread},
        {"\f" + kHead + "TRAY2=INSTALLED", kUnread},
        {"@PJL INFO STATUS\r\nCODE=999999\r\n\f", kUnread},
        {"@PJL INFO CONFI\f", kUnread},
        {"", kUnread},
    };
    for (const auto& row : rows) EXPECT_EQ(OptionsIn(row.reply), row.options) << row.reply;
}

// How many times more cases than usual: KV_MANY=50 makes a million damaged answers.
int Many() {
    const char* many = std::getenv("KV_MANY");
    return many != nullptr ? std::max(1, std::atoi(many)) : 1;
}

// An answer of which bytes are lost, doubled or changed.
std::string Damaged(std::string reply, std::mt19937& random) {
    for (unsigned blow = random() % 6; blow > 0; --blow) {
        const size_t at = random() % (reply.size() + 1), length = random() % 24;
        const std::string part = reply.substr(at, length);
        switch (random() % 4) {
            case 0:
                reply.erase(at, length);
                break;
            case 1:
                reply.insert(random() % (reply.size() + 1), part);
                break;
            case 2:
                reply.insert(at, 1, static_cast<char>(random()));
                break;
            default:
                if (at < reply.size()) reply[at] = static_cast<char>(random());
        }
    }
    return reply;
}

TEST(PrinterAnswer, DamagedSaysNothingMoreThanIsInIt) {
    std::mt19937 random(1);
    const std::string whole =
        kHead + "TRAY2=INSTALLED\r\nTRAY3=INSTALLED\r\nDUPLEX=INSTALLED\r\n\f";
    int understood = 0;
    const int cases = 20000 * Many();
    for (int i = 0; i < cases; ++i) {
        const std::string reply = Damaged(whole, random);
        const DWORD options = OptionsIn(reply);
        if (options == kUnread) continue;
        ++understood;
        const size_t head = reply.find("@PJL INFO CONFIG");
        ASSERT_LT(head, reply.find_last_of('\f'));
        ASSERT_EQ(options & ~(kTray2 | kTray3 | kDuplex), kBase);
        if (options & kTray3) {
            ASSERT_NE(reply.find("TRAY3=INSTALLED", head), reply.npos);
        }
    }
    EXPECT_GT(understood, cases / 10);
    EXPECT_LT(understood, cases - cases / 20);
}

class PrinterQuery : public testing::Test {
 protected:
    void SetUp() override {
        sheet.InstallPrinter();
        sheet.Set("mdmOtherSettings", kOtherAutoConfig | kOtherAllPaperSize);
    }
    void TearDown() override {
        kv::ReplaceTime(nullptr);
        kvmonitor::SetMonitorTransport(nullptr);
        kv::Headless().SetPolicy(nullptr);
    }
    void AtPort(const std::string& port, DWORD attributes) {
        ASSERT_EQ(kvtest::PutPrinterPort(sheet.printer.printerName, port, attributes),
                  ERROR_SUCCESS);
    }
    void AtOwnAddress() { AtPort("http://" + kvtest::OwnAddress() + "/ipp", 0); }
    // Every command that the monitor is given, one a line, and what it answers.
    void ThroughMonitor(const std::string& reply, DWORD error = ERROR_SUCCESS) {
        AtPort("USB001", PRINTER_ATTRIBUTE_ENABLE_BIDI);
        kvmonitor::SetMonitorTransport([this, reply, error](const std::string&,
                                                            const std::string& command,
                                                            std::string& answer) {
            commands += command + "\n";
            answer = reply;
            return error;
        });
    }
    // A pause of the program is a short one for the printer.
    static void HastenTime() {
        kv::ReplaceTime([](kv::Milliseconds) { usleep(1500); });
    }
    BOOL Query() { return QueryPrinterConfiguration(sheet.context, &changed); }

    ScratchSheet sheet;
    std::string commands;
    BOOL changed = FALSE;
};

TEST_F(PrinterQuery, AsksEachRoadInItsOwnWay) {
    const std::string reply = kHead + "TRAY3=INSTALLED\f";
    ThroughMonitor(reply);
    EXPECT_TRUE(Query());
    EXPECT_EQ(commands, "@PJL INFO DSTATUS\n@PJL INFO CONFIG\n");
    EXPECT_TRUE(changed);
    EXPECT_EQ(sheet.Get("mdmInstalledOptions"), kBase | kTray3);
    ThroughMonitor("", ERROR_TIMEOUT);
    EXPECT_FALSE(Query());
    EXPECT_FALSE(changed);

    AtOwnAddress();
    EXPECT_FALSE(Query()) << "nobody listens";
    kvtest::RunningPrinter running(kvtest::BehaviourOf("TRAY2 TRAY3"), kvtest::OwnAddress(), 9100);
    HastenTime();
    EXPECT_TRUE(Query());
    EXPECT_EQ(sheet.Get("mdmInstalledOptions"), kBase | kTray2 | kTray3);
    EXPECT_EQ(running.Received(), "\x1B%-12345X@PJL INFO CONFIG\r\n\x1B%-12345X");
}

TEST_F(PrinterQuery, TakesFromAMisbehavingPrinterOnlyAWholeAnswer) {
    AtOwnAddress();
    // how the printer behaves, what the query answers, whether its options count
    const struct {
        const char* behaviour;
        BOOL done;
        bool counts;
    } rows[] = {
        {"TRAY2", TRUE, true},
        {"TRAY2 ~split=9", TRUE, true},
        {"TRAY2 ~slow=3 ~split=40", TRUE, true},
        {"TRAY2 ~twice", TRUE, true},
        {"TRAY2 ~binary=300", TRUE, false},
        {"TRAY2 ~close=30", FALSE, false},
        {"TRAY2 ~close", FALSE, false},
        {"TRAY2 ~silent", TRUE, false},
        {"TRAY2 ~no-form-feed", TRUE, false},
        {"TRAY2 ~endless", FALSE, false},
        {"TRAY2 ~padded=5000", FALSE, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.behaviour);
        kvtest::RunningPrinter running(kvtest::BehaviourOf(row.behaviour), kvtest::OwnAddress(),
                                       9100);
        sheet.Set("mdmInstalledOptions", kBase | kTray4);
        kv::Milliseconds passed{0};
        kv::ReplaceTime([&](kv::Milliseconds time) {
            passed += time;
            usleep(1500);
        });
        EXPECT_EQ(Query(), row.done);
        EXPECT_EQ(changed, row.counts);
        EXPECT_EQ(sheet.Get("mdmInstalledOptions"), row.counts ? kBase | kTray2 : kBase | kTray4);
        EXPECT_LE(passed.count(), 15000);
    }
}

// Answers of any bytes at all, in packets of any length, over the connection.
TEST_F(PrinterQuery, SurvivesWhateverComesOverTheConnection) {
    std::mt19937 random(2);
    WSADATA data{};
    ASSERT_EQ(WSAStartup(MAKEWORD(1, 1), &data), 0);
    PrinterPortAddress address{};
    address.found = 1;
    address.socket = INVALID_SOCKET;
    ASSERT_TRUE(ResolveHostAddress(address, kvtest::OwnAddress().c_str()));
    kv::ReplaceTime([](kv::Milliseconds) { usleep(200); });
    int read = 0;
    const int cases = 300 * Many();
    for (int i = 0; i < cases; ++i) {
        kvprinter::Behaviour behaviour;
        behaviour.replay = Damaged(kHead + "TRAY2=INSTALLED\r\n\f", random) + "x";
        behaviour.manners.split = 1 + random() % 30;
        if (random() % 2) behaviour.manners.close = random() % 40;
        kvtest::RunningPrinter running(behaviour, kvtest::OwnAddress(), 9100);
        struct {
            char reply[40];
            char guard[8];
        } buffer;
        std::memset(&buffer, 0x55, sizeof buffer);
        DWORD length = 0;
        const BOOL done = PjlSocketExchange(address, "#GET# @PJL INFO CONFIG", buffer.reply,
                                            sizeof buffer.reply, &length);
        ASSERT_LE(length, sizeof buffer.reply);
        ASSERT_EQ(std::string(buffer.guard, 8), std::string(8, 0x55));
        ASSERT_EQ(address.openCount, 0u);
        ASSERT_EQ(address.socket, INVALID_SOCKET);
        if (done && length > 0) {
            ++read;
            ASSERT_EQ(std::string(buffer.reply, length), behaviour.replay.substr(0, length));
            ASSERT_NE(std::string(buffer.reply, length).find('\f'), std::string::npos);
        }
    }
    WSACleanup();
    EXPECT_GT(read, cases / 10);
    EXPECT_LT(read, cases - cases / 15);
}

enum Answer { kNotAsked, kAgreed, kRefused };
struct Effect {
    const char* what;
    DWORD before;
    const char* reported;
    Answer answer;
    BOOL done, changed;
    DWORD after;
    DWORD mediaType;  // 256 before
    bool automatic;
};
// clang-format off
constexpr Effect kEffects[] = {
    {"the same", kBase | kTray2, "TRAY2=INSTALLED", kNotAsked, TRUE, FALSE, kBase | kTray2, 256, true},
    {"one more", kBase | kTray2, "TRAY2=INSTALLED DUPLEX=INSTALLED", kNotAsked, TRUE, TRUE, kBase | kTray2 | kDuplex, 256, true},
    {"what it cannot name goes unasked", kBase | kTray4 | kDuplex, "DUPLEX=INSTALLED", kNotAsked, TRUE, TRUE, kBase | kDuplex, 256, true},
    {"tray 2 goes", kBase | kTray2, "TRAY3=INSTALLED", kAgreed, TRUE, TRUE, kBase | kTray3, 1, true},
    {"tray 3 goes", kBase | kTray3, "", kAgreed, TRUE, TRUE, kBase, 1, true},
    {"the duplex unit stays", kBase | kDuplex, "", kRefused, FALSE, TRUE, kBase | kDuplex, 256, false},
};
// clang-format on

TEST_F(PrinterQuery, AsksBeforeWhatWasThereGoesAndStartsAnewThen) {
    for (const Effect& effect : kEffects) {
        SCOPED_TRACE(effect.what);
        sheet.Set("mdmOtherSettings", kOtherAutoConfig);
        sheet.Set("mdmInstalledOptions", effect.before);
        sheet.Set("mdmMailBinAssign", 0x500);
        sheet.Set("MediaType", 256);
        sheet.Set("dmDefaultSource", 4);
        ThroughMonitor(kHead + effect.reported + "\f");
        bool asked = false;
        kv::Headless().SetPolicy([&](HWND dialog) {
            asked = true;
            kv::input::Click(GetDlgItem(dialog, effect.answer == kAgreed ? IDOK : IDCANCEL));
        });
        EXPECT_EQ(Query(), effect.done);
        EXPECT_EQ(asked, effect.answer != kNotAsked);
        EXPECT_EQ(changed, effect.changed);
        EXPECT_EQ(sheet.Get("mdmInstalledOptions"), effect.after);
        EXPECT_EQ(sheet.Get("MediaType"), effect.mediaType);
        EXPECT_EQ(sheet.Get("mdmMailBinAssign"), 0x500u);
        EXPECT_EQ((sheet.Get("mdmOtherSettings") & kOtherAutoConfig) != 0, effect.automatic);
    }
}

TEST_F(PrinterQuery, NeedsAutoConfigureAnAdministratorAndAPortThatCanBeAsked) {
    ThroughMonitor(kHead + "TRAY3=INSTALLED\f");
    kv::SetActingAsAdministrator(false);
    EXPECT_FALSE(Query());
    kv::SetActingAsAdministrator(true);
    sheet.Set("mdmOtherSettings", 0);
    EXPECT_TRUE(Query());
    sheet.Set("mdmOtherSettings", kOtherAutoConfig);
    AtPort("USB001", 0);
    EXPECT_TRUE(Query());
    EXPECT_EQ(commands, "") << "none of these was a question";
    EXPECT_FALSE(changed);
    // The 9x family announces no read, so it writes nothing either.
    ThroughMonitor(kHead + "TRAY3=INSTALLED\f");
    sheet.context.platformId = VER_PLATFORM_WIN32_WINDOWS;
    EXPECT_TRUE(Query());
    EXPECT_TRUE(changed);
}

}  // namespace
}  // namespace kvui
