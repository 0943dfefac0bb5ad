// See pjl_socket.h. The time a silent printer may take is 60 polls, 250 ms apart.
#include "device/pjl_socket.h"

#include <cctype>
#include <cstring>
#include <string>
#include <string_view>

namespace kvui {
namespace {

constexpr u_short kRawPort = 9100;
constexpr int kPolls = 60;
constexpr DWORD kPollPause = 250;  // milliseconds
constexpr size_t kLongestCommand = 255;
constexpr size_t kRequestSize = 256;  // with a zero at its end
constexpr char kFormFeed = '\f';
constexpr std::string_view kUniversalExit = "\x1B%-12345X";
constexpr std::string_view kLineEnd = "\r\n";
// What a printer that takes nothing is said to have answered.
constexpr std::string_view kBusyReply = "@PJL INFO STATUS\r\nCODE=999999\r\n\f";

enum class Mode { kNothing, kRead, kSet, kGet };

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return upper;
}

Mode ModeOf(const std::string& command) {
    const std::string upper = UpperCase(command);
    if (upper == "READ") return Mode::kRead;
    if (upper.find("#SET#") != std::string::npos) return Mode::kSet;
    if (upper.find("#GET#") != std::string::npos) return Mode::kGet;
    return Mode::kNothing;
}

// What stands behind the verb; false when the command does not begin with one.
bool SplitCommand(const std::string& command, std::string& text) {
    constexpr char kSeparators[] = " \n";
    const size_t begin = command.find_first_not_of(kSeparators);
    if (begin == std::string::npos) return false;
    const size_t end = command.find_first_of(kSeparators, begin);
    const std::string verb = UpperCase(command.substr(begin, end - begin));
    if (verb != "#SET#" && verb != "#GET#") return false;
    text = end == std::string::npos ? "" : command.substr(end + 1);
    return true;
}

bool SetBlocking(SOCKET socket, bool blocking) {
    u_long nonBlocking = blocking ? 0 : 1;
    return ioctlsocket(socket, static_cast<LONG>(FIONBIO), &nonBlocking) == 0;
}

bool Connect(PrinterPortAddress& address) {
    address.socket = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    if (address.socket == INVALID_SOCKET) return false;
    address.address.sin_port = htons(kRawPort);
    const auto* target = reinterpret_cast<const sockaddr*>(&address.address);
    return connect(address.socket, target, sizeof address.address) == 0 &&
           SetBlocking(address.socket, false);
}

// The connection of an address, opened at most once however often it is asked for.
class Connection {
 public:
    explicit Connection(PrinterPortAddress& address) : address_(address) {
        if (address.openCount == 0) {
            if (!address.found) return;
            if (!Connect(address)) {
                CloseSocket();
                return;
            }
        }
        ++address.openCount;
        open_ = true;
    }
    ~Connection() {
        if (!open_ || --address_.openCount != 0) return;
        SetBlocking(address_.socket, true);
        CloseSocket();
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    explicit operator bool() const { return open_; }

    // False when the connection is broken. A printer that cannot take anything now, or has nothing
    // to say, moves 0 bytes.
    bool Send(std::string_view bytes, DWORD& moved) {
        return Done(send(address_.socket, bytes.data(), static_cast<int>(bytes.size()), 0), moved);
    }
    bool Receive(char* buffer, DWORD size, DWORD& moved) {
        const int got = recv(address_.socket, buffer, static_cast<int>(size), 0);
        return got != 0 && Done(got, moved);
    }

 private:
    static bool Done(int result, DWORD& moved) {
        moved = result > 0 ? static_cast<DWORD>(result) : 0;
        return result >= 0 || WSAGetLastError() == WSAEWOULDBLOCK;
    }
    void CloseSocket() {
        if (address_.socket != INVALID_SOCKET) closesocket(address_.socket);
        address_.socket = INVALID_SOCKET;
    }

    PrinterPortAddress& address_;
    bool open_ = false;
};

// Nothing came in time: no failure as long as the printer may still say something.
BOOL EndOfPatience(DWORD* length) {
    *length = 0;
    return WSAGetLastError() == WSAEWOULDBLOCK;
}

BOOL ReadOnce(Connection& connection, char* reply, DWORD capacity, DWORD* length) {
    for (int attempt = 0; attempt < kPolls; ++attempt) {
        if (!connection.Receive(reply, capacity, *length)) return FALSE;
        if (*length > 0) return TRUE;
    }
    return EndOfPatience(length);
}

BOOL GiveBusyReply(char* reply, DWORD capacity, DWORD* length) {
    if (capacity <= kBusyReply.size() + 1) return FALSE;
    std::memcpy(reply, kBusyReply.data(), kBusyReply.size());
    *length = static_cast<DWORD>(kBusyReply.size());
    return TRUE;
}

// Reads to a form feed. A reply that fills the buffer without one has failed: it would never end.
BOOL ReadReply(Connection& connection, char* reply, DWORD capacity, DWORD* length) {
    DWORD filled = 0;
    for (int poll = 0; poll < kPolls && filled < capacity; ++poll) {
        Sleep(kPollPause);
        DWORD got = 0;
        if (!connection.Receive(reply + filled, capacity - filled, got)) return FALSE;
        const bool ended = std::memchr(reply + filled, kFormFeed, got) != nullptr;
        filled += got;
        if (ended) {
            *length = filled;
            return TRUE;
        }
    }
    return filled < capacity && EndOfPatience(length);
}

BOOL SendRequest(Connection& connection, Mode mode, const std::string& text, char* reply,
                 DWORD capacity, DWORD* length) {
    std::string request(kUniversalExit);
    request.append(text).append(kLineEnd).append(kUniversalExit);
    if (request.size() >= kRequestSize) return FALSE;
    DWORD sent = 0;
    if (!connection.Send(request, sent)) return FALSE;
    if (mode == Mode::kSet) return TRUE;
    return sent == 0 ? GiveBusyReply(reply, capacity, length)
                     : ReadReply(connection, reply, capacity, length);
}

}  // namespace

BOOL PjlSocketExchange(PrinterPortAddress& address, const char* command, char* reply,
                       DWORD capacity, DWORD* length) {
    *length = 0;
    const std::string given(command, strnlen(command, kLongestCommand));
    const Mode mode = ModeOf(given);
    if (mode == Mode::kNothing) return TRUE;
    Connection connection(address);
    if (!connection) return FALSE;
    if (mode == Mode::kRead) return ReadOnce(connection, reply, capacity, length);
    std::string text;
    if (!SplitCommand(given, text)) return TRUE;
    return SendRequest(connection, mode, text, reply, capacity, length);
}

}  // namespace kvui
