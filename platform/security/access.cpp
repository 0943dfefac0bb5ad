// The administrator test on the operating system's users and groups.
#include <platform/security/access.h>

#include <grp.h>
#include <unistd.h>

#include <algorithm>
#include <vector>

namespace kv {

namespace {

constexpr const char* kAdministratorGroup = "lpadmin";

std::optional<bool>& Acting() {
    static std::optional<bool> acting;
    return acting;
}

bool FindGroup(const char* name, gid_t& id) {
    std::vector<char> buffer(16384);
    group entry{};
    group* found = nullptr;
    if (getgrnam_r(name, &entry, buffer.data(), buffer.size(), &found) != 0 || !found) return false;
    id = entry.gr_gid;
    return true;
}

}  // namespace

bool IsSystemAdministrator() {
    if (geteuid() == 0) return true;
    gid_t administrators = 0;
    if (!FindGroup(kAdministratorGroup, administrators)) return false;
    if (getegid() == administrators) return true;
    const int count = getgroups(0, nullptr);
    std::vector<gid_t> groups(count > 0 ? static_cast<std::size_t>(count) : 0);
    if (groups.empty() || getgroups(count, groups.data()) != count) return false;
    return std::find(groups.begin(), groups.end(), administrators) != groups.end();
}

bool ActsAsAdministrator() {
    return Acting() ? *Acting() : IsSystemAdministrator();
}

void SetActingAsAdministrator(std::optional<bool> administrator) {
    Acting() = administrator;
}

}  // namespace kv
