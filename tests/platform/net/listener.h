// A listening socket of the host system for the socket tests; its headers cannot meet winsock2.h.
#pragma once

#include <vector>

namespace kv::test {

class Listener {
 public:
    Listener();
    ~Listener();
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    unsigned short Port() const { return port_; }
    // Accepts one connection, sends back what it reads first, and closes.
    void EchoOnce();
    // Takes all room for connections that nobody accepts: further ones are left without an answer.
    void Fill();

 private:
    int socket_;
    std::vector<int> waiting_;
    unsigned short port_ = 0;
};

}  // namespace kv::test
