// Sockets against a listener of the test's own; addresses and look-ups.
#include <winsock2.h>

#include <platform/display/headless.h>
#include <platform/display/waiting.h>
#include <windows.h>

#include <gmock/gmock.h>

#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include "tests/platform/net/listener.h"

namespace kv::test {
namespace {

class Sockets : public ::testing::Test {
 protected:
    Sockets() {
        WSADATA data;
        EXPECT_EQ(WSAStartup(MAKEWORD(1, 1), &data), 0);
        EXPECT_EQ(data.wVersion, 0x0101);
    }
    ~Sockets() override { WSACleanup(); }

    static sockaddr_in Address(u_short port) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = inet_addr("127.0.0.1");
        return address;
    }
    static int Connect(SOCKET opened, const sockaddr_in& address) {
        return connect(opened, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    }
};

TEST_F(Sockets, AnAddressIsWrittenInFourParts) {
    for (const char* text : {"127.0.0.1", "10.0.200.255", "0.0.0.0"}) {
        EXPECT_STREQ(inet_ntoa({inet_addr(text)}), text);
    }
}

TEST_F(Sockets, ARequestIsAnsweredOverAStream) {
    Listener listener;
    std::thread peer([&] { listener.EchoOnce(); });
    const SOCKET opened = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    ASSERT_NE(opened, INVALID_SOCKET);
    ASSERT_EQ(Connect(opened, Address(listener.Port())), 0);
    ULONG nonBlocking = 1;
    ASSERT_EQ(ioctlsocket(opened, FIONBIO, &nonBlocking), 0);
    char buffer[16];
    EXPECT_EQ(recv(opened, buffer, sizeof buffer, 0), SOCKET_ERROR);
    EXPECT_EQ(WSAGetLastError(), WSAEWOULDBLOCK);
    std::string waitedFor;
    Headless().OnWaiting([&](const char* what, unsigned) {
        if (what != nullptr) waitedFor = what;
    });
    EXPECT_EQ(send(opened, "@PJL", 4, 0), 4);
    Sleep(50);
    EXPECT_THAT(waitedFor, testing::EndsWith(" to answer @PJL"));
    Headless().OnWaiting(nullptr);
    nonBlocking = 0;
    ASSERT_EQ(ioctlsocket(opened, FIONBIO, &nonBlocking), 0);
    EXPECT_EQ(recv(opened, buffer, sizeof buffer, 0), 4);
    EXPECT_EQ(std::memcmp(buffer, "@PJL", 4), 0);
    peer.join();
    EXPECT_EQ(recv(opened, buffer, sizeof buffer, 0), 0) << "closed by the peer";
    EXPECT_EQ(closesocket(opened), 0);
    EXPECT_EQ(closesocket(opened), SOCKET_ERROR);
    EXPECT_EQ(WSAGetLastError(), WSAENOTSOCK);
}

TEST_F(Sockets, ARefusedConnectionAndAForeignNumberFail) {
    u_short port = 0;
    { port = Listener().Port(); }
    const SOCKET opened = socket(AF_INET, SOCK_STREAM, 0);
    EXPECT_EQ(Connect(opened, Address(port)), SOCKET_ERROR);
    EXPECT_EQ(WSAGetLastError(), WSAECONNREFUSED);
    closesocket(opened);
    EXPECT_EQ(closesocket(1), SOCKET_ERROR) << "standard output is no socket of ours";
}

// The display hears whom the program waits for, and how long already, as often as it must repaint.
TEST_F(Sockets, WaitsAreToldUntilTheConnectionIsClosed) {
    Listener listener;
    listener.Fill();
    const std::string peer = "127.0.0.1:" + std::to_string(listener.Port());
    std::vector<unsigned> told;
    bool ended = false;
    Headless().OnWaiting([&](const char* what, unsigned milliseconds) {
        ended = what == nullptr;
        if (ended) return;
        EXPECT_EQ(what, peer);
        told.push_back(milliseconds);
    });
    ReplaceTime([](Milliseconds) {});
    Sleep(500);
    EXPECT_TRUE(told.empty()) << "of a pause nobody knows what it is for";
    const SOCKET opened = socket(AF_INET, SOCK_STREAM, 0);
    EXPECT_EQ(Connect(opened, Address(listener.Port())), SOCKET_ERROR);
    EXPECT_EQ(WSAGetLastError(), WSAETIMEDOUT);
    EXPECT_THAT(told, testing::SizeIs(21000 / 50));
    EXPECT_EQ(told.front(), 50u);
    EXPECT_EQ(told.back(), 21000u);
    Sleep(250);
    EXPECT_EQ(told.back(), 21250u) << "a pause while a connection is open is for its peer";
    EXPECT_FALSE(ended);
    closesocket(opened);
    EXPECT_TRUE(ended);
    ReplaceTime(nullptr);
    const DWORD before = GetTickCount();
    Sleep(120);
    EXPECT_GE(GetTickCount() - before, 119u);
    Headless().OnWaiting(nullptr);
}

TEST_F(Sockets, AddressesAreReadInTheirUsualForms) {
    const struct {
        const char* text;
        ULONG expected;  // network byte order, as bytes of a little-endian number
    } rows[] = {
        {"10.0.0.5", 0x0500000A},    {"1.2.3", 0x03000201},      {"0x7f.1", 0x0100007F},
        {"010.0.0.1", 0x01000008},   {"10.0.0.5 x", 0x0500000A}, {"256.1.1.1", INADDR_NONE},
        {"1.2.3.4.5", INADDR_NONE},  {"", INADDR_NONE},          {"1..2", INADDR_NONE},
        {"\\\\server", INADDR_NONE}, {"1.2.3.4:9", INADDR_NONE}, {"4294967296", INADDR_NONE}};
    for (const auto& row : rows) EXPECT_EQ(inet_addr(row.text), row.expected) << row.text;
}

TEST_F(Sockets, NamesAreLookedUpBetweenStartAndCleanUp) {
    const hostent* found = gethostbyname("localhost");
    ASSERT_TRUE(found);
    EXPECT_EQ(found->h_length, 4);
    EXPECT_EQ(std::memcmp(found->h_addr_list[0], "\x7F\0\0\1", 4), 0);
    EXPECT_EQ(gethostbyname(""), nullptr);
    WSACleanup();
    EXPECT_EQ(gethostbyname("localhost"), nullptr);
    EXPECT_EQ(WSAGetLastError(), WSANOTINITIALISED);
    EXPECT_EQ(socket(AF_INET, SOCK_STREAM, 0), INVALID_SOCKET);
    WSADATA data;
    WSAStartup(MAKEWORD(1, 1), &data);
}

}  // namespace
}  // namespace kv::test
