// POSIX sockets for winsock.cpp.
#include <platform/net/host_socket.h>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <future>

namespace kv {

namespace {

int Outcome(int result) {
    return result < 0 ? -errno : result;
}

bool IsBlocking(int socket) {
    return (fcntl(socket, F_GETFL) & O_NONBLOCK) == 0;
}

bool IsNoSocket(ssize_t result) {
    return result < 0 && errno == ENOTSOCK;
}

// Tries until something was moved, or the socket does not wait.
template <typename Attempt>
long Transfer(Ready ready, int socket, Attempt attempt) {
    for (;;) {
        const ssize_t moved = attempt();
        if (moved >= 0) return moved;
        if (errno == EINTR) continue;
        if (errno != EAGAIN || !IsBlocking(socket)) return -errno;
        WaitUntil(ready, socket, Milliseconds::max() / 2);
    }
}

int FinishConnect(int socket, Milliseconds limit) {
    if (!WaitUntil(Ready::kToWrite, socket, limit)) return -ETIMEDOUT;
    int error = 0;
    socklen_t length = sizeof error;
    if (getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &length) != 0) return -errno;
    return -error;
}

std::vector<std::uint32_t> AskForHost(const std::string& name) {
    std::vector<std::uint32_t> addresses;
    addrinfo hints{};
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(name.c_str(), nullptr, &hints, &found) != 0) return addresses;
    for (const addrinfo* entry = found; entry; entry = entry->ai_next) {
        sockaddr_in address;
        std::memcpy(&address, entry->ai_addr, sizeof address);
        addresses.push_back(address.sin_addr.s_addr);
    }
    freeaddrinfo(found);
    return addresses;
}

}  // namespace

int OpenStreamSocket() {
    return Outcome(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
}

int ConnectSocket(int socket, std::uint32_t address, std::uint16_t port, Milliseconds limit) {
    sockaddr_in target{};
    target.sin_family = AF_INET;
    target.sin_port = htons(port);
    target.sin_addr.s_addr = address;
    // A socket that waits is made one that does not: the wait here tells the display.
    const bool waits = IsBlocking(socket);
    if (waits) SetBlocking(socket, false);
    int result =
        Outcome(connect(socket, reinterpret_cast<const sockaddr*>(&target), sizeof target));
    if (waits && (result == -EINPROGRESS || result == -EINTR))
        result = FinishConnect(socket, limit);
    if (waits) SetBlocking(socket, true);
    return result;
}

int OpenDevice(const char* path) {
    return Outcome(open(path, O_RDWR | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
}

int SetBlocking(int socket, bool blocking) {
    const int flags = fcntl(socket, F_GETFL);
    if (flags < 0) return -errno;
    return Outcome(fcntl(socket, F_SETFL, blocking ? flags & ~O_NONBLOCK : flags | O_NONBLOCK));
}

long SendBytes(int socket, const char* data, std::size_t length) {
    return Transfer(Ready::kToWrite, socket, [&] {
        const ssize_t sent = send(socket, data, length, MSG_NOSIGNAL | MSG_DONTWAIT);
        return IsNoSocket(sent) ? write(socket, data, length) : sent;
    });
}

long ReceiveBytes(int socket, char* data, std::size_t length) {
    return Transfer(Ready::kToRead, socket, [&] {
        const ssize_t got = recv(socket, data, length, MSG_DONTWAIT);
        return IsNoSocket(got) ? read(socket, data, length) : got;
    });
}

int CloseSocket(int socket) {
    return Outcome(close(socket));
}

// The host system's look-up waits by itself, so it has a thread of its own.
std::vector<std::uint32_t> LookUpHost(const std::string& name) {
    auto answer = std::async(std::launch::async, AskForHost, name);
    while (answer.wait_for(kWaitStep) != std::future_status::ready) TellWaiting();
    return answer.get();
}

}  // namespace kv
