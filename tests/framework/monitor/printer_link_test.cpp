// The language monitor against a printer that answers, and against printers that do not.
#include <framework/monitor/language_monitor.h>
#include <platform/display/headless.h>
#include <platform/display/waiting.h>

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>

#include "tests/support/printer_fixture.h"
#include "tests/support/registry.h"
#include "tests/support/running_printer.h"

namespace kvtest {
namespace {

constexpr char kConfig[] = "#GET#\n@PJL INFO CONFIG";

class MonitoredPrinter : public PrinterTest {
 protected:
    static void PutEntry(const std::string& monitorAndPort, const char* value, DWORD type,
                         const std::string& bytes) {
        PutRegistryValue(HKEY_LOCAL_MACHINE,
                         "System\\CurrentControlSet\\Control\\Print\\Monitors\\" + monitorAndPort,
                         value, type, bytes);
    }
    static void PutTcp(const std::string& port, std::uint16_t number) {
        PutEntry("Standard TCP/IP Port\\Ports\\" + port, "HostName", REG_SZ,
                 std::string("localhost\0", 10));
        PutEntry("Standard TCP/IP Port\\Ports\\" + port, "PortNumber", REG_DWORD,
                 BytesOf<DWORD>(number));
    }
    DWORD Ask() { return kvmonitor::Ask("P,LPT1:", kConfig, reply); }

    std::string reply;
};

TEST_F(MonitoredPrinter, AnswersAreReadToTheFormFeedHoweverTheyCome) {
    const std::string whole = kvprinter::AnswerTo(BehaviourOf("TRAY2").machine, "@PJL INFO CONFIG");
    const std::string body = whole.substr(0, whole.size() - 1);
    std::string binary;
    for (int i = 0; i < 300; ++i) binary += static_cast<char>(i);
    const size_t more = std::string::npos;  // so much as was there, the answer first
    // how the printer behaves, the error, how the reply begins, how long it is
    // clang-format off
    const struct { const char* behaviour; DWORD error; std::string begins; size_t size; } rows[] = {
        {"TRAY2", ERROR_SUCCESS, whole, whole.size()},
        {"TRAY2 ~split", ERROR_SUCCESS, whole, whole.size()},
        {"TRAY2 ~slow=3 ~split=40", ERROR_SUCCESS, whole, whole.size()},
        {"TRAY2 ~twice", ERROR_SUCCESS, whole, more},
        {"~binary=300", ERROR_SUCCESS, binary, 300},
        {"TRAY2 ~close=30", ERROR_SUCCESS, whole.substr(0, 30), 30},
        {"TRAY2 ~close", ERROR_NOT_READY, "", 0},
        {"TRAY2 ~silent", ERROR_TIMEOUT, "", 0},
        {"TRAY2 ~no-form-feed", ERROR_SUCCESS, body, body.size()},
        {"TRAY2 ~endless", ERROR_SUCCESS, body, more},
        {"TRAY2 ~padded", ERROR_SUCCESS, body, more},
    };
    // clang-format on
    for (const auto& row : rows) {
        SCOPED_TRACE(row.behaviour);
        RunningPrinter running(BehaviourOf(row.behaviour), "127.0.0.1", 0);
        PutTcp("P", running.Port());
        // Time passes faster than it does, for those that are waited for in vain.
        kv::Milliseconds passed{0};
        kv::ReplaceTime([&](kv::Milliseconds time) {
            passed += time;
            usleep(2000);
        });
        EXPECT_EQ(Ask(), row.error);
        kv::ReplaceTime(nullptr);
        EXPECT_LE(passed.count(), 7050);
        EXPECT_EQ(reply.substr(0, row.begins.size()), row.begins);
        EXPECT_LE(reply.size(), 70000u);
        if (row.size != more) {
            EXPECT_EQ(reply.size(), row.size);
        }
    }
}

TEST_F(MonitoredPrinter, ItsFrameIsThatOfTheJobLanguageAndASetWaitsForNothing) {
    RunningPrinter running(BehaviourOf(""), "127.0.0.1", 0);
    PutTcp("P", running.Port());
    EXPECT_EQ(Ask(), ERROR_SUCCESS);
    EXPECT_EQ(kvmonitor::Tell("P", kConfig), ERROR_SUCCESS) << "a read is only announced";
    EXPECT_EQ(kvmonitor::Tell("P", "#SET#\n@PJL DEFAULT DUPLEX=ON"), ERROR_SUCCESS);
    EXPECT_EQ(Ask(), ERROR_SUCCESS);
    const auto framed = [](const std::string& command) {
        return "\x1B%-12345X" + command + "\r\n\x1B%-12345X";
    };
    EXPECT_EQ(running.Received(), framed("@PJL INFO CONFIG") + framed("@PJL DEFAULT DUPLEX=ON") +
                                      framed("@PJL INFO CONFIG"));
}

TEST_F(MonitoredPrinter, WhatIsAskedAndOfWhomIsToldMeanwhile) {
    RunningPrinter running(BehaviourOf("~silent"), "127.0.0.1", 0);
    PutTcp("P", running.Port());
    unsigned longest = 0;
    std::string last;
    kv::Headless().OnWaiting([&](const char* what, unsigned milliseconds) {
        last = what != nullptr ? what : "over";
        if (what == nullptr) return;
        EXPECT_EQ(last, "localhost to answer @PJL INFO CONFIG");
        longest = milliseconds;
    });
    kv::ReplaceTime([](kv::Milliseconds) {});
    EXPECT_EQ(Ask(), ERROR_TIMEOUT);
    kv::ReplaceTime(nullptr);
    kv::Headless().OnWaiting(nullptr);
    EXPECT_GE(longest, 6950u);
    EXPECT_EQ(last, "over");
}

TEST_F(MonitoredPrinter, PortsThatLeadNowhereFailAtOnce) {
    std::uint16_t nobody = 0;
    { nobody = RunningPrinter(BehaviourOf(""), "127.0.0.1", 0).Port(); }
    const std::string address("127.0.0.1\0", 10);
    PutTcp("Refused", nobody);
    PutEntry("LPR Port\\Ports\\Name", "Server Name", REG_SZ,
             std::string("no.such.host.invalid\0", 21));
    PutEntry("USB Monitor\\Ports\\USB009", "Device", REG_SZ, std::string("/no/such/device\0", 16));
    PutEntry("Standard TCP/IP Port\\Ports\\Odd", "IPAddress", REG_DWORD, "1234");
    const struct {
        std::string port;
        DWORD error;
    } rows[] = {
        {"Refused", ERROR_NOT_READY},
        {"Name", ERROR_NOT_READY},
        {"USB009", ERROR_NOT_READY},
        {"USB001", ERROR_UNKNOWN_PORT},
        {"Odd", ERROR_UNKNOWN_PORT},
        {"", ERROR_UNKNOWN_PORT},
        {",Refused", ERROR_UNKNOWN_PORT},
        {"x\\..\\Refused", ERROR_UNKNOWN_PORT},
        {std::string(10000, 'x'), ERROR_UNKNOWN_PORT},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(kvmonitor::Ask(row.port, kConfig, reply), row.error) << row.port.substr(0, 40);
        EXPECT_EQ(reply, "");
    }
}

// A USB port's device is played by a terminal: a file that is read and written.
TEST_F(MonitoredPrinter, ADeviceIsAskedLikeAConnection) {
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_EQ(grantpt(terminal), 0);
    ASSERT_EQ(unlockpt(terminal), 0);
    const std::string device = ptsname(terminal);
    const int held = open(device.c_str(), O_RDWR | O_NOCTTY);
    termios raw{};
    tcgetattr(held, &raw);
    cfmakeraw(&raw);
    tcsetattr(held, TCSANOW, &raw);
    PutEntry("USB Monitor\\Ports\\P", "Device", REG_SZ, device + '\0');
    std::string asked;
    int pauses = 0;
    kv::ReplaceTime([&](kv::Milliseconds) {
        if (++pauses == 2) {
            char buffer[256];
            const ssize_t got = read(terminal, buffer, sizeof buffer);
            asked.assign(buffer, got > 0 ? static_cast<size_t>(got) : 0);
            EXPECT_EQ(write(terminal, "TRAY2=INSTALLED", 15), 15);
        }
        if (pauses == 4) {
            EXPECT_EQ(write(terminal, "\r\n\f", 3), 3);
        }
    });
    EXPECT_EQ(Ask(), ERROR_SUCCESS);
    kv::ReplaceTime(nullptr);
    EXPECT_EQ(asked, "\x1B%-12345X@PJL INFO CONFIG\r\n\x1B%-12345X");
    EXPECT_EQ(reply, "TRAY2=INSTALLED\r\n\f");
    close(held);
    close(terminal);
}

}  // namespace
}  // namespace kvtest
