// The state directory: where it is, and making it.
#include <platform/shell/state_directory.h>

#include <unistd.h>

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

}  // namespace

std::string StateDirectory() {
    {
        std::lock_guard guard(overrideLock);
        if (!Override().empty()) return Override();
    }
    return Absolute(FromEnvironment());
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

}  // namespace kv
