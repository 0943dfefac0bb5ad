// A folder of its own for one test, which goes with the object.
#pragma once

#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace kv::test {

class ScratchFolder {
 public:
    ScratchFolder() {
        char name[] = "/tmp/kvscratch.XXXXXX";
        root_ = mkdtemp(name);
        chmod(root_.c_str(), 0755);
    }
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(root_, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    std::string Path(const std::string& name) const { return root_ + "/" + name; }
    std::string State() const { return Path("state"); }
    std::string Write(const std::string& name, const std::string& text) const {
        std::filesystem::create_directories(std::filesystem::path(Path(name)).parent_path());
        std::ofstream(Path(name), std::ios::binary) << text;
        return Path(name);
    }
    static std::string Read(const std::string& path) {
        std::ostringstream text;
        text << std::ifstream(path, std::ios::binary).rdbuf();
        return text.str();
    }

 private:
    std::string root_;
};

}  // namespace kv::test
