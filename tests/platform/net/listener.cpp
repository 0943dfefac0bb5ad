// The socket tests' peer.
#include "tests/platform/net/listener.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace kv::test {

Listener::Listener() : socket_(socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    bind(socket_, reinterpret_cast<sockaddr*>(&address), length);
    listen(socket_, 1);
    getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &length);
    port_ = ntohs(address.sin_port);
}

Listener::~Listener() {
    close(socket_);
    for (const int socket : waiting_) close(socket);
}

void Listener::Fill() {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port_);
    for (int i = 0; i < 4; ++i) {
        waiting_.push_back(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0));
        connect(waiting_.back(), reinterpret_cast<sockaddr*>(&address), sizeof address);
    }
}

void Listener::EchoOnce() {
    const int peer = accept(socket_, nullptr, nullptr);
    char buffer[64];
    const ssize_t got = read(peer, buffer, sizeof buffer);
    if (got > 0) send(peer, buffer, static_cast<size_t>(got), MSG_NOSIGNAL);
    close(peer);
}

}  // namespace kv::test
