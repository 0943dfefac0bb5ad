// kvprinter: the command line.
#include <CLI/CLI.hpp>

#include <csignal>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "tools/kvprinter/server.h"

namespace {

kvprinter::Server* running = nullptr;

void StopRunning(int /*signal*/) {
    if (running != nullptr) running->Stop();
}

struct Arguments {
    std::string listen = "127.0.0.1:9100";
    std::vector<std::string> installed;
    std::vector<std::string> manners;
    std::string replay;
    kvprinter::Machine machine;
    bool offline = false;
    bool quiet = false;
};

void DescribeArguments(CLI::App& app, Arguments& args) {
    app.add_option("option", args.installed, "Installed options")
        ->transform(CLI::IsMember(kvprinter::OptionNames(), CLI::ignore_case));
    app.add_option("--listen", args.listen, "ADDRESS[:PORT]; port 0 takes a free one")
        ->capture_default_str();
    app.add_option("--misbehave", args.manners, "WAY[=N], also several times; see below")
        ->allow_extra_args(false);
    app.add_option("--replay", args.replay, "Answers with the bytes of a recorded answer");
    app.add_option("--model", args.machine.model, "What INFO ID says")->capture_default_str();
    app.add_option("--code", args.machine.code, "State as a number")->capture_default_str();
    app.add_option("--display", args.machine.display, "State in words")->capture_default_str();
    app.add_flag("--offline", args.offline, "Says that it is not online");
    app.add_flag("--quiet", args.quiet, "Does not print the commands that come");
    app.footer("Ways to misbehave:\n" + kvprinter::DescribeManners() +
               "Example:\n  kvprinter --listen 127.0.0.5 TRAY2 DUPLEX --misbehave split=3");
}

bool Fail(const std::string& error) {
    std::fprintf(stderr, "error: %s\n", error.c_str());
    return false;
}

bool ReadReplay(const std::string& path, std::string& bytes) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    if (!file || !(text << file.rdbuf())) return Fail(path + ": cannot be read, or is empty");
    bytes = text.str();
    return true;
}

bool MakeBehaviour(const Arguments& args, kvprinter::Behaviour& behaviour) {
    behaviour.machine = args.machine;
    behaviour.machine.installed = {args.installed.begin(), args.installed.end()};
    behaviour.machine.online = !args.offline;
    std::string error;
    for (const std::string& way : args.manners) {
        if (!kvprinter::ReadManner(way, behaviour.manners, error)) return Fail(error);
    }
    return args.replay.empty() || ReadReplay(args.replay, behaviour.replay);
}

bool SplitListen(const std::string& text, std::string& address, unsigned& port) {
    constexpr unsigned kRawPort = 9100;
    const std::size_t colon = text.find(':');
    address = text.substr(0, colon);
    port = kRawPort;
    if (colon == std::string::npos) return true;
    const std::string number = text.substr(colon + 1);
    if (CLI::detail::lexical_cast(number, port) && port <= 65535) return true;
    return Fail(text + ": expected a port from 0 to 65535");
}

}  // namespace

int main(int argc, char** argv) {
    constexpr int kBadUsage = 2;
    CLI::App app("A printer to talk to: answers PJL for the options it is told", "kvprinter");
    Arguments args;
    DescribeArguments(app, args);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& problem) {
        return app.exit(problem) == 0 ? 0 : kBadUsage;
    }
    kvprinter::Behaviour behaviour;
    std::string address, error;
    unsigned port = 0;
    if (!MakeBehaviour(args, behaviour) || !SplitListen(args.listen, address, port)) {
        return kBadUsage;
    }
    kvprinter::Server server(behaviour);
    if (!server.Listen(address, static_cast<std::uint16_t>(port), error)) {
        Fail(error);
        return 1;
    }
    if (!args.quiet) {
        server.OnCommand([](const std::string& command) {
            std::printf("%s\n", command.c_str());
            std::fflush(stdout);
        });
    }
    running = &server;
    std::signal(SIGINT, StopRunning);
    std::signal(SIGTERM, StopRunning);
    // Whoever starts it waits for this line.
    std::printf("listening on %s:%u\n", address.c_str(), server.Port());
    std::fflush(stdout);
    server.Run();
    return 0;
}
