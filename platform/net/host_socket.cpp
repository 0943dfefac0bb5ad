// POSIX sockets for winsock.cpp.
#include <platform/net/host_socket.h>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace kv {

namespace {

int Outcome(int result) {
    return result < 0 ? -errno : result;
}

// A connect that a signal interrupts goes on by itself; its end is waited for.
int FinishConnect(int socket) {
    pollfd entry{socket, POLLOUT, 0};
    while (poll(&entry, 1, -1) < 0) {
        if (errno != EINTR) return -errno;
    }
    int error = 0;
    socklen_t length = sizeof error;
    if (getsockopt(socket, SOL_SOCKET, SO_ERROR, &error, &length) != 0) return -errno;
    return -error;
}

}  // namespace

int OpenStreamSocket() {
    return Outcome(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
}

int ConnectSocket(int socket, std::uint32_t address, std::uint16_t port) {
    sockaddr_in target{};
    target.sin_family = AF_INET;
    target.sin_port = htons(port);
    target.sin_addr.s_addr = address;
    const int result = connect(socket, reinterpret_cast<const sockaddr*>(&target), sizeof target);
    if (result < 0 && errno == EINTR) return FinishConnect(socket);
    return Outcome(result);
}

int SetBlocking(int socket, bool blocking) {
    const int flags = fcntl(socket, F_GETFL);
    if (flags < 0) return -errno;
    return Outcome(fcntl(socket, F_SETFL, blocking ? flags & ~O_NONBLOCK : flags | O_NONBLOCK));
}

long SendBytes(int socket, const char* data, std::size_t length) {
    ssize_t sent;
    while ((sent = send(socket, data, length, MSG_NOSIGNAL)) < 0 && errno == EINTR) {
    }
    return sent < 0 ? -errno : static_cast<long>(sent);
}

long ReceiveBytes(int socket, char* data, std::size_t length) {
    ssize_t got;
    while ((got = recv(socket, data, length, 0)) < 0 && errno == EINTR) {
    }
    return got < 0 ? -errno : static_cast<long>(got);
}

int CloseSocket(int socket) {
    return Outcome(close(socket));
}

std::vector<std::uint32_t> LookUpHost(const char* name) {
    std::vector<std::uint32_t> addresses;
    addrinfo hints{};
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    if (getaddrinfo(name, nullptr, &hints, &found) != 0) return addresses;
    for (const addrinfo* entry = found; entry; entry = entry->ai_next) {
        sockaddr_in address;
        std::memcpy(&address, entry->ai_addr, sizeof address);
        addresses.push_back(address.sin_addr.s_addr);
    }
    freeaddrinfo(found);
    return addresses;
}

}  // namespace kv
