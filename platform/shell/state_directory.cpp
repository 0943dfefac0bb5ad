// The state directories: where they are, and making one.
#include <platform/shell/state_directory.h>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <mutex>

#include <platform/shell/errors.h>
#include <platform/shell/paths.h>

namespace kv {

namespace {

std::mutex overrideLock;

std::string& Override() {
    static auto* path = new std::string;
    return *path;
}

std::atomic<StatePlace> placeInForce{StatePlace::kPerson};

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string FromEnvironment() {
    if (std::string path = Variable("KVPREFS_STATE"); !path.empty()) return path;
    // The base directory rules say that a relative path here is to be ignored.
    if (const std::string base = Variable("XDG_DATA_HOME"); !base.empty() && base[0] == '/') {
        return base + "/kvprefs";
    }
    const std::string home = Variable("HOME");
    return home.empty() ? std::string() : home + "/.local/share/kvprefs";
}

std::string Absolute(std::string path) {
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    if (path.empty() || path[0] == '/') return path;
    char current[PATH_MAX];
    if (!getcwd(current, sizeof current)) return {};
    return std::string(current) + "/" + path;
}

bool IsNamedOnPurpose() {
    std::lock_guard guard(overrideLock);
    return !Override().empty() || !Variable("KVPREFS_STATE").empty();
}

// The first folder on the way up that is there.
bool FindExisting(std::string path, struct stat& info) {
    while (stat(path.c_str(), &info) != 0) {
        const std::string parent = FolderOf(path);
        if (parent == path) return false;
        path = parent;
    }
    return true;
}

std::string UserName(uid_t user) {
    const passwd* entry = getpwuid(user);
    return entry ? entry->pw_name : std::to_string(user);
}

}  // namespace

std::string StateDirectory() {
    {
        std::lock_guard guard(overrideLock);
        if (!Override().empty()) return Override();
    }
    return Absolute(FromEnvironment());
}

std::string StateDirectoryOf(StatePlace place) {
    if (place == StatePlace::kPerson) return StateDirectory();
    const std::string named = Variable("KVPREFS_SYSTEM");
    return Absolute(named.empty() ? "/var/lib/kvprefs" : named);
}

bool HasMachineState() {
    struct stat info;
    const std::string path = StateDirectoryOf(StatePlace::kMachine);
    return stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

bool IsInMachineState(const std::string& path) {
    return (path + "/").rfind(StateDirectoryOf(StatePlace::kMachine) + "/", 0) == 0;
}

StatePlace PlaceInForce() {
    return placeInForce;
}

void SetPlaceInForce(StatePlace place) {
    placeInForce = place;
}

mode_t NewFileMode(StatePlace place) {
    return place == StatePlace::kMachine ? 0664 : 0600;
}

mode_t NewFolderMode(StatePlace place) {
    return place == StatePlace::kMachine ? 02775 : 0700;
}

void OverrideStateDirectory(const std::string& path) {
    std::lock_guard guard(overrideLock);
    Override() = Absolute(path);
}

bool MakeStateDirectory() {
    const std::string path = StateDirectory();
    if (path.empty()) {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return false;
    }
    if (MakeFolders(path)) return true;
    SetLastError(ErrorFromErrno(errno, path));
    return false;
}

const char* NoStateDirectoryMessage() {
    return "No directory for settings: set HOME, XDG_DATA_HOME or KVPREFS_STATE, or name one with "
           "--state.";
}

std::string ForeignHomeMessage() {
    struct stat info {};
    const std::string path = StateDirectory();
    if (path.empty() || IsNamedOnPurpose() || !FindExisting(path, info)) return {};
    // What nobody owns in particular, as a home that root will make, is not somebody else's.
    if (info.st_uid == geteuid() || info.st_uid == 0) return {};
    return path + " belongs to " + UserName(info.st_uid) + ", and you are " + UserName(geteuid()) +
           ": set HOME to your own, or name a place with --state";
}

}  // namespace kv
