// kvprinter in the test's own process, answering in a thread until it goes.
#pragma once

#include <gtest/gtest.h>
#include <tools/kvprinter/server.h>
#include <unistd.h>

#include <sstream>
#include <string>
#include <thread>

namespace kvtest {

// Options it has and ways to misbehave, as kvprinter's command line has them: "TRAY2 DUPLEX
// ~slow=1".
inline kvprinter::Behaviour BehaviourOf(const std::string& words) {
    kvprinter::Behaviour behaviour;
    std::istringstream text(words);
    for (std::string word; text >> word;) {
        std::string error;
        if (word[0] != '~') {
            behaviour.machine.installed.insert(word);
        } else if (!kvprinter::ReadManner(word.substr(1), behaviour.manners, error)) {
            ADD_FAILURE() << error;
        }
    }
    return behaviour;
}

// An address of the loopback network that no other test process has.
inline std::string OwnAddress() {
    const int number = getpid();
    return "127." + std::to_string(1 + (number >> 16) % 200) + "." +
           std::to_string((number >> 8) & 255) + "." + std::to_string(number & 255);
}

class RunningPrinter {
 public:
    // Port 0 takes a free one.
    RunningPrinter(kvprinter::Behaviour behaviour, const std::string& address, std::uint16_t port)
        : server_(std::move(behaviour)) {
        std::string error;
        EXPECT_TRUE(server_.Listen(address, port, error)) << error;
        thread_ = std::thread([this] { server_.Run(); });
    }
    ~RunningPrinter() {
        server_.Stop();
        thread_.join();
    }
    RunningPrinter(const RunningPrinter&) = delete;
    RunningPrinter& operator=(const RunningPrinter&) = delete;

    std::uint16_t Port() const { return server_.Port(); }
    std::string Received() const { return server_.Received(); }

 private:
    kvprinter::Server server_;
    std::thread thread_;
};

}  // namespace kvtest
