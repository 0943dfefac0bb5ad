// The socket functions of the platform. The library must be started before look-ups and sockets,
// and every start needs its clean-up.
#include <winsock2.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <platform/display/waiting.h>
#include <platform/net/host_socket.h>

namespace {

constexpr WORD kHighestVersion = 0x0202;

thread_local int lastSocketError = 0;
int startCount = 0;  // clean-ups that are still due

struct OpenSocket {
    std::string peer;  // "10.0.0.5:9100" once it is connected
    // What a program waits for that has an open connection.
    std::unique_ptr<kv::WaitSubject> subject;
};

// Only sockets that were opened here may be used and closed: a number can be any open file.
using SocketTable = std::map<SOCKET, OpenSocket>;
SocketTable& OpenSockets() {
    static auto* sockets = new SocketTable;
    return *sockets;
}

struct ErrorRow {
    int host;
    int platform;
};

// Columns: the host system's error, the platform's.
constexpr ErrorRow kErrors[] = {
    {EINTR, WSAEINTR},
    {EACCES, WSAEACCES},
    {EPERM, WSAEACCES},
    {EINVAL, WSAEINVAL},
    {EAGAIN, WSAEWOULDBLOCK},
    {EINPROGRESS, WSAEWOULDBLOCK},
    {ENETUNREACH, WSAENETUNREACH},
    {ECONNRESET, WSAECONNRESET},
    {EPIPE, WSAECONNRESET},
    {ENOTCONN, WSAENOTCONN},
    {ETIMEDOUT, WSAETIMEDOUT},
    {ECONNREFUSED, WSAECONNREFUSED},
    {EHOSTUNREACH, WSAEHOSTUNREACH},
};

int Fail(int platformError) {
    lastSocketError = platformError;
    return SOCKET_ERROR;
}

// A host result below zero is an error of that number.
int Outcome(long result) {
    if (result >= 0) return static_cast<int>(result);
    for (const ErrorRow& row : kErrors) {
        if (row.host == -result) return Fail(row.platform);
    }
    return Fail(WSAEINVAL);
}

bool IsOpen(SOCKET socket) {
    if (OpenSockets().count(socket) > 0) return true;
    Fail(WSAENOTSOCK);
    return false;
}

// The command of the job language in what is sent to a printer; empty when there is none.
std::string_view CommandIn(std::string_view bytes) {
    const size_t start = bytes.find("@PJL");
    if (start == bytes.npos) return {};
    return bytes.substr(start, bytes.find_first_of("\r\n", start) - start);
}

bool IsStarted() {
    if (startCount > 0) return true;
    Fail(WSANOTINITIALISED);
    return false;
}

// Text of one part of a dotted address: decimal, octal with a leading 0, or hexadecimal with 0x.
bool ReadPart(const char*& text, std::uint64_t& value) {
    const bool octalOrHex = text[0] == '0';
    const bool hex = octalOrHex && (text[1] == 'x' || text[1] == 'X');
    const unsigned base = hex ? 16 : octalOrHex ? 8 : 10;
    if (hex) text += 2;
    value = 0;
    const char* begin = text;
    for (;; ++text) {
        const char c = *text;
        const unsigned digit = c >= '0' && c <= '9'   ? static_cast<unsigned>(c - '0')
                               : c >= 'a' && c <= 'f' ? static_cast<unsigned>(c - 'a') + 10
                               : c >= 'A' && c <= 'F' ? static_cast<unsigned>(c - 'A') + 10
                                                      : 99u;
        if (digit >= base) break;
        value = value * base + digit;
        if (value > 0xFFFFFFFFu) return false;
    }
    return text != begin;
}

// What gethostbyname answers lives here until the thread's next look-up.
struct HostAnswer {
    std::string name;
    std::vector<std::uint32_t> addresses;
    std::vector<char*> addressList;
    char* aliases[1] = {nullptr};
    hostent entry{};
};

}  // namespace

int WSAStartup(WORD version, WSADATA* data) {
    if (LOBYTE(version) == 0) return WSAVERNOTSUPPORTED;
    if (!data) return WSAEINVAL;
    *data = {};
    data->wVersion =
        version == 0x0001 || version == 0x0101 || version == 0x0002 ? version : kHighestVersion;
    data->wHighVersion = kHighestVersion;
    std::snprintf(data->szDescription, sizeof data->szDescription, "Stream sockets");
    std::snprintf(data->szSystemStatus, sizeof data->szSystemStatus, "Running");
    ++startCount;
    return 0;
}

int WSACleanup() {
    if (!IsStarted()) return SOCKET_ERROR;
    if (--startCount == 0) {
        for (const auto& [socket, inside] : OpenSockets())
            kv::CloseSocket(static_cast<int>(socket));
        OpenSockets().clear();
    }
    return 0;
}

int WSAGetLastError() {
    return lastSocketError;
}

hostent* gethostbyname(const char* name) {
    static thread_local HostAnswer answer;
    if (!IsStarted()) return nullptr;
    answer.name = name ? name : "";
    const kv::WaitSubject subject("the address of " + answer.name);
    answer.addresses =
        answer.name.empty() ? std::vector<std::uint32_t>{} : kv::LookUpHost(answer.name);
    if (answer.addresses.empty()) {
        Fail(WSAHOST_NOT_FOUND);
        return nullptr;
    }
    answer.addressList.clear();
    for (std::uint32_t& address : answer.addresses) {
        answer.addressList.push_back(reinterpret_cast<char*>(&address));
    }
    answer.addressList.push_back(nullptr);
    answer.entry = {answer.name.data(), answer.aliases, AF_INET, sizeof(std::uint32_t),
                    answer.addressList.data()};
    return &answer.entry;
}

// One to four parts; the last one fills the bytes that are left. A blank ends the address.
u_long inet_addr(const char* text) {
    if (!text) return INADDR_NONE;
    std::uint64_t address = 0;
    for (int part = 0; part < 4; ++part) {
        std::uint64_t value = 0;
        if (!ReadPart(text, value)) return INADDR_NONE;
        if (*text != '.' || part == 3) {
            const std::uint64_t limit = std::uint64_t{1} << (8 * (4 - part));
            if (value >= limit || (*text != '\0' && *text != ' ')) return INADDR_NONE;
            address |= value;
            break;
        }
        if (value > 255) return INADDR_NONE;
        address |= value << (8 * (3 - part));
        ++text;
    }
    return static_cast<u_long>((address >> 24) | ((address >> 8) & 0xFF00) |
                               ((address << 8) & 0xFF0000) | ((address << 24) & 0xFF000000));
}

char* inet_ntoa(in_addr address) {
    static thread_local char text[16];
    const u_long bits = address.s_addr;
    std::snprintf(text, sizeof text, "%u.%u.%u.%u", bits & 0xFF, bits >> 8 & 0xFF,
                  bits >> 16 & 0xFF, bits >> 24);
    return text;
}

u_short htons(u_short value) {
    return static_cast<u_short>((value << 8) | (value >> 8));
}

SOCKET socket(int family, int type, int) {
    if (!IsStarted()) return INVALID_SOCKET;
    const int opened =
        Outcome(family == AF_INET && type == SOCK_STREAM ? kv::OpenStreamSocket() : -EINVAL);
    if (opened < 0) return INVALID_SOCKET;
    OpenSockets()[static_cast<SOCKET>(opened)] = {};
    return static_cast<SOCKET>(opened);
}

int connect(SOCKET socket, const sockaddr* address, int length) {
    if (!IsOpen(socket)) return SOCKET_ERROR;
    sockaddr_in target;
    if (!address || length < static_cast<int>(sizeof target)) return Fail(WSAEINVAL);
    std::memcpy(&target, address, sizeof target);
    if (target.sin_family != AF_INET) return Fail(WSAEINVAL);
    OpenSocket& open = OpenSockets()[socket];
    open.peer =
        std::string(inet_ntoa(target.sin_addr)) + ":" + std::to_string(htons(target.sin_port));
    open.subject = std::make_unique<kv::WaitSubject>(open.peer);
    const int result = Outcome(kv::ConnectSocket(static_cast<int>(socket), target.sin_addr.s_addr,
                                                 htons(target.sin_port)));
    return result < 0 ? SOCKET_ERROR : 0;
}

int ioctlsocket(SOCKET socket, LONG command, u_long* argument) {
    if (!IsOpen(socket)) return SOCKET_ERROR;
    if (static_cast<DWORD>(command) != FIONBIO || !argument) return Fail(WSAEINVAL);
    const int result = Outcome(kv::SetBlocking(static_cast<int>(socket), *argument == 0));
    return result < 0 ? SOCKET_ERROR : 0;
}

int send(SOCKET socket, const char* data, int length, int) {
    if (!IsOpen(socket)) return SOCKET_ERROR;
    if (length < 0 || !data) return Fail(WSAEINVAL);
    const std::string_view bytes(data, static_cast<std::size_t>(length));
    const OpenSocket& open = OpenSockets()[socket];
    const std::string_view command = CommandIn(bytes);
    if (open.subject && !command.empty()) {
        open.subject->Rename(open.peer + " to answer " + std::string(command));
    }
    return Outcome(kv::SendBytes(static_cast<int>(socket), bytes.data(), bytes.size()));
}

int recv(SOCKET socket, char* data, int length, int) {
    if (!IsOpen(socket)) return SOCKET_ERROR;
    if (length < 0 || !data) return Fail(WSAEINVAL);
    return Outcome(
        kv::ReceiveBytes(static_cast<int>(socket), data, static_cast<std::size_t>(length)));
}

int closesocket(SOCKET socket) {
    if (!IsOpen(socket)) return SOCKET_ERROR;
    OpenSockets().erase(socket);
    kv::CloseSocket(static_cast<int>(socket));
    return 0;
}
