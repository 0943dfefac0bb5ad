// The administrator test on the operating system's users and groups.
#include <platform/security/access.h>

#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <vector>

namespace kv {

const char* const kAdministratorGroup = "lpadmin";

namespace {

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

// A state that was not made yet will be this person's.
bool OwnsState() {
    struct stat info {};
    return geteuid() == 0 || stat(StateDirectory().c_str(), &info) != 0 || info.st_uid == geteuid();
}

}  // namespace

bool IsAdministratorGroup(gid_t group) {
    gid_t administrators = 0;
    return FindGroup(kAdministratorGroup, administrators) && group == administrators;
}

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

std::string Administrators(StatePlace place) {
    if (place == StatePlace::kPerson) return "the owner of " + StateDirectoryOf(place);
    return std::string("root or a member of group ") + kAdministratorGroup;
}

std::string WhoAdministers() {
    return "; an administrator can: " + Administrators(StatePlace::kMachine);
}

bool ActsAsAdministrator(StatePlace place) {
    if (Acting()) return *Acting();
    return place == StatePlace::kMachine ? IsSystemAdministrator() : OwnsState();
}

void SetActingAsAdministrator(std::optional<bool> administrator) {
    Acting() = administrator;
}

}  // namespace kv
