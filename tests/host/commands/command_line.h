// kvprefs as an administrator's script runs it: a process, its output, its exit status and its
// files.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <test_paths.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

namespace kvtest {

namespace fs = std::filesystem;

struct Ran {
    int status;
    std::string output;  // both streams, errors last
    std::string errors;
};

class CommandLine : public testing::Test {
 protected:
    void SetUp() override {
        char folder[] = "/tmp/kvcliXXXXXX";
        ASSERT_NE(mkdtemp(folder), nullptr);
        state_ = folder;
    }
    void TearDown() override {
        fs::remove_all(state_);
        fs::remove(ErrorFile());
    }

    // `environment` stands before the program: what env(1) takes, or a program that runs it.
    Ran Run(const std::string& arguments, const std::string& environment = "") {
        const std::string state = "--state " + state_.string() + " ";
        const std::string command = "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM " +
                                    environment + " " KV_BIN_DIR "/kvprefs </dev/null 2>" +
                                    ErrorFile() + " " + (state_.empty() ? "" : state) + arguments;
        Ran ran{};
        FILE* pipe = popen(command.c_str(), "r");
        std::array<char, 4096> part{};
        while (const size_t size = fread(part.data(), 1, part.size(), pipe)) {
            ran.output.append(part.data(), size);
        }
        const int status = pclose(pipe);
        ran.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128;
        ran.errors = Bytes(ErrorFile());
        ran.output += ran.errors;
        return ran;
    }
    static std::string ErrorFile() {
        return testing::TempDir() + "kvcli" + std::to_string(getpid()) + ".errors";
    }
    nlohmann::ordered_json Json(const std::string& arguments, int status = 0) {
        const Ran ran = Run(arguments);
        EXPECT_EQ(ran.status, status) << ran.output;
        const std::string text = ran.output.substr(0, ran.output.size() - ran.errors.size());
        const auto json = nlohmann::ordered_json::parse(text, nullptr, false);
        EXPECT_FALSE(json.is_discarded()) << ran.output;
        return json;
    }
    // On a terminal of its own, on which `typed` is typed.
    Ran RunOnTerminal(const std::string& arguments, const std::string& typed) {
        const std::string command = "exec env -u DISPLAY -u WAYLAND_DISPLAY " KV_BIN_DIR
                                    "/kvprefs --state " +
                                    state_.string() + " " + arguments;
        Ran ran{};
        int terminal = -1;
        const pid_t child = forkpty(&terminal, nullptr, nullptr, nullptr);
        if (child == 0) {
            execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
            _exit(127);
        }
        EXPECT_EQ(write(terminal, typed.data(), typed.size()), static_cast<ssize_t>(typed.size()));
        std::array<char, 4096> part{};
        for (ssize_t size; (size = read(terminal, part.data(), part.size())) > 0;) {
            ran.output.append(part.data(), static_cast<size_t>(size));
        }
        close(terminal);
        int status = 0;
        waitpid(child, &status, 0);
        ran.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128;
        return ran;
    }
    fs::path RecordFile() {
        for (const auto& entry : fs::directory_iterator(state_ / "records")) {
            if (entry.path().extension() == ".record") return entry.path();
        }
        return {};
    }
    fs::path RulesFile() {
        for (const auto& entry : fs::recursive_directory_iterator(state_)) {
            if (entry.path().filename() == "KVUIMOD.ini") return entry.path();
        }
        return {};
    }
    // Every file below the state directory with its bytes.
    std::map<std::string, std::string> AllFiles() {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::recursive_directory_iterator(state_)) {
            files[entry.path().string()] = entry.is_regular_file() ? Bytes(entry.path()) : "";
        }
        return files;
    }
    static std::string Bytes(const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    fs::path state_;
};

}  // namespace kvtest
