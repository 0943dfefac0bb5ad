// A scratch directory with a state directory in it, for the tests of files and storage. Everything
// is removed at the end; acting rights and variables return to what they were.
#pragma once

#include <gtest/gtest.h>

#include <windows.h>

#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <platform/registry/state_store.h>
#include <platform/security/access.h>

#include "tests/support/scratch_folder.h"

namespace kv::test {

class ScratchTest : public ::testing::Test, protected ScratchFolder {
 protected:
    ScratchTest() { SetStateDirectory(State()); }
    ~ScratchTest() override {
        SetStateDirectory({});
        SetActingAsAdministrator(std::nullopt);
        for (const auto& [name, value] : saved_) {
            value ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str());
        }
    }

    void SetVariable(const char* name, const char* value) {
        const char* old = std::getenv(name);
        saved_.try_emplace(name, old ? std::optional<std::string>(old) : std::nullopt);
        value ? setenv(name, value, 1) : unsetenv(name);
    }
    static unsigned ModeOf(const std::string& path) {
        struct stat info {};
        return stat(path.c_str(), &info) == 0 ? info.st_mode & 07777 : 0;
    }

 private:
    std::map<std::string, std::optional<std::string>> saved_;
};

// Root passes every file right: while one of these lives, the process is an ordinary user.
class AsOrdinaryUser {
 public:
    AsOrdinaryUser() : user_(geteuid()), group_(getegid()), groups_(getgroups(0, nullptr)) {
        if (user_ != 0) return;
        getgroups(static_cast<int>(groups_.size()), groups_.data());
        if (setgroups(0, nullptr) != 0 || setegid(kNobody) != 0 || seteuid(kNobody) != 0) {
            ADD_FAILURE() << "cannot become another user";
        }
    }
    ~AsOrdinaryUser() {
        if (user_ != 0) return;
        if (seteuid(user_) != 0 || setegid(group_) != 0) std::abort();
        if (setgroups(groups_.size(), groups_.data()) != 0) std::abort();
    }
    AsOrdinaryUser(const AsOrdinaryUser&) = delete;
    AsOrdinaryUser& operator=(const AsOrdinaryUser&) = delete;

 private:
    static constexpr uid_t kNobody = 65534;
    const uid_t user_;
    const gid_t group_;
    std::vector<gid_t> groups_;
};

}  // namespace kv::test
