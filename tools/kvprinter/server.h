// The printer at its address: takes one connection after the other, as a printer's raw port does,
// and answers what comes over it.
#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "tools/kvprinter/machine.h"
#include "tools/kvprinter/manners.h"

namespace kvprinter {

struct Behaviour {
    Machine machine;
    Manners manners;
    std::string replay;  // bytes to answer every question with; empty for answers of its own
};

class Server {
 public:
    explicit Server(Behaviour behaviour);
    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    // Port 0 takes a free one. False with a line for people.
    bool Listen(const std::string& address, std::uint16_t port, std::string& error);
    std::uint16_t Port() const { return port_; }
    // Called with each command that comes, from the thread that runs.
    void OnCommand(std::function<void(const std::string&)> told) { told_ = std::move(told); }
    // Until Stop.
    void Run();
    // From any thread, or a signal handler.
    void Stop();
    // The bytes that came so far, of all connections.
    std::string Received() const;

 private:
    class Connection;
    std::string AnswerFor(const std::string& command) const;
    void Serve(int socket);

    Behaviour behaviour_;
    std::function<void(const std::string&)> told_;
    mutable std::mutex lock_;  // of received_
    std::string received_;
    int listener_ = -1;
    int stop_ = -1;  // readable once Stop was called
    std::uint16_t port_ = 0;
};

}  // namespace kvprinter
