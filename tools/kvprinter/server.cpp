// See server.h.
#include "tools/kvprinter/server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "tools/kvprinter/command_reader.h"

namespace kvprinter {

// One connection. Every wait ends when the server is to stop.
class Server::Connection {
 public:
    Connection(int socket, int stop) : socket_(socket), stop_(stop) {
        const int on = 1;  // packets leave as they are written
        setsockopt(socket_, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    }
    ~Connection() { close(socket_); }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    // Empty when the other side is done, or the server is to stop.
    std::string Receive() {
        char buffer[4096];
        if (!Await(POLLIN)) return "";
        const ssize_t got = recv(socket_, buffer, sizeof buffer, 0);
        return got > 0 ? std::string(buffer, static_cast<std::size_t>(got)) : "";
    }
    // False when the connection is over.
    bool Send(const char* data, std::size_t length) {
        while (length > 0) {
            if (!Await(POLLOUT)) return false;
            const ssize_t sent = send(socket_, data, length, MSG_NOSIGNAL | MSG_DONTWAIT);
            if (sent < 0 && errno != EINTR && errno != EAGAIN) return false;
            if (sent <= 0) continue;
            data += sent;
            length -= static_cast<std::size_t>(sent);
        }
        return true;
    }
    // False when the server is to stop meanwhile.
    bool Rest(std::size_t milliseconds) {
        pollfd stop{stop_, POLLIN, 0};
        return poll(&stop, 1, static_cast<int>(std::min<std::size_t>(milliseconds, 1u << 30))) == 0;
    }
    // As the manners want it. False when the connection is over.
    bool Deliver(const Manners& manners, const std::string& answer) {
        const std::size_t whole = std::min(answer.size(), manners.close.value_or(answer.size()));
        const std::size_t step = manners.split.value_or(std::max<std::size_t>(whole, 1));
        for (std::size_t at = 0; at < whole; at += step) {
            if (manners.slow && !Rest(*manners.slow)) return false;
            if (!Send(answer.data() + at, std::min(step, whole - at))) return false;
        }
        while (manners.endless && !manners.close) {
            if (manners.slow && !Rest(*manners.slow)) return false;
            if (!Send(kFilling.data(), kFilling.size())) return false;
        }
        return !manners.close;
    }

 private:
    bool Await(short events) {
        pollfd entries[] = {{socket_, events, 0}, {stop_, POLLIN, 0}};
        while (poll(entries, 2, -1) < 0) {
            if (errno != EINTR) return false;
        }
        return entries[1].revents == 0;
    }

    int socket_;
    int stop_;
};

Server::Server(Behaviour behaviour)
    : behaviour_(std::move(behaviour)), stop_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

Server::~Server() {
    if (listener_ >= 0) close(listener_);
    close(stop_);
}

bool Server::Listen(const std::string& address, std::uint16_t port, std::string& error) {
    const std::string where = address + ":" + std::to_string(port);
    sockaddr_in own{};
    own.sin_family = AF_INET;
    own.sin_port = htons(port);
    if (inet_pton(AF_INET, address.c_str(), &own.sin_addr) != 1) {
        error = where + ": expected an address in four numbers";
        return false;
    }
    listener_ = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int on = 1;
    setsockopt(listener_, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    socklen_t length = sizeof own;
    if (bind(listener_, reinterpret_cast<sockaddr*>(&own), length) != 0 ||
        listen(listener_, SOMAXCONN) != 0 ||
        getsockname(listener_, reinterpret_cast<sockaddr*>(&own), &length) != 0) {
        error = where + ": " + std::strerror(errno);
        return false;
    }
    port_ = ntohs(own.sin_port);
    return true;
}

void Server::Run() {
    for (;;) {
        pollfd entries[] = {{listener_, POLLIN, 0}, {stop_, POLLIN, 0}};
        if (poll(entries, 2, -1) < 0 && errno != EINTR) return;
        if (entries[1].revents != 0) return;
        if (entries[0].revents == 0) continue;
        const int socket = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        if (socket >= 0) Serve(socket);
    }
}

void Server::Stop() {
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = write(stop_, &one, sizeof one);
}

std::string Server::Received() const {
    std::lock_guard guard(lock_);
    return received_;
}

std::string Server::AnswerFor(const std::string& command) const {
    const std::string answer = AnswerTo(behaviour_.machine, command);
    // What is no question is none for a recording either.
    if (answer.empty() || !behaviour_.replay.empty())
        return answer.empty() ? "" : behaviour_.replay;
    return Bend(behaviour_.manners, behaviour_.machine, command, answer);
}

void Server::Serve(int socket) {
    Connection connection(socket, stop_);
    const Manners& manners = behaviour_.manners;
    if (manners.close && *manners.close == 0) return;
    CommandReader reader;
    for (std::string bytes = connection.Receive(); !bytes.empty(); bytes = connection.Receive()) {
        {
            std::lock_guard guard(lock_);
            received_ += bytes;
        }
        for (const std::string& command : reader.Take(bytes)) {
            if (told_) told_(command);
            if (manners.silent) continue;
            const std::string answer = AnswerFor(command);
            if (!answer.empty() && !connection.Deliver(manners, answer)) return;
        }
    }
}

}  // namespace kvprinter
