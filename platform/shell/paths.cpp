// Path mapping and the platform's own folders.
#include <platform/shell/paths.h>

#include <winbase.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include <platform/shell/drives.h>
#include <platform/shell/state_directory.h>

namespace kv {

std::string NativePath(LPCSTR path) {
    std::string native = path ? path : "";
    for (char& character : native) {
        if (character == '\\') character = '/';
    }
    std::string folder;
    const bool hasLetter = native.size() > 2 && native[1] == ':' && native[2] == '/';
    if (hasLetter && FolderOfDrive(native[0], folder)) native.replace(0, 2, folder);
    return native;
}

bool MakeFolders(const std::string& path) {
    struct stat info;
    if (stat(path.c_str(), &info) == 0) {
        if (S_ISDIR(info.st_mode)) return true;
        errno = ENOTDIR;
        return false;
    }
    const std::string parent = FolderOf(path);
    if (parent != path && !MakeFolders(parent)) return false;
    if (mkdir(path.c_str(), 0700) != 0) return errno == EEXIST;
    // Whatever the mask of who makes it.
    return !IsInMachineState(path) || chmod(path.c_str(), NewFolderMode(StatePlace::kMachine)) == 0;
}

std::string_view BaseName(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string_view::npos ? path : path.substr(slash + 1);
}

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

bool SyncFolder(const std::string& folder) {
    const int fd = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return false;
    const bool synced = fsync(fd) == 0;
    close(fd);
    return synced;
}

std::string LowerCase(std::string_view text) {
    std::string lower(text);
    for (char& character : lower) character = FoldCase(character);
    return lower;
}

bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
    if (left.size() != right.size()) return false;
    for (std::size_t i = 0; i < left.size(); ++i) {
        if (FoldCase(left[i]) != FoldCase(right[i])) return false;
    }
    return true;
}

namespace {

// A folder that cannot be made is still named: look-ups in it then simply find nothing.
std::string StateFolder(const char* name) {
    std::string path = StateDirectory();
    if (path.empty()) {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return path;
    }
    path += name;
    MakeFolders(path);
    return path;
}

UINT CopyDirectory(const std::string& path, LPSTR buffer, UINT size) {
    if (path.empty()) return 0;
    const UINT length = static_cast<UINT>(path.size());
    if (!buffer || size <= length) return length + 1;
    std::memcpy(buffer, path.c_str(), length + 1);
    return length;
}

}  // namespace

std::string WindowsDirectory() {
    return StateFolder("/windows");
}

std::string SystemDirectory() {
    return StateFolder("/windows/system32");
}

}  // namespace kv

UINT GetWindowsDirectoryA(LPSTR buffer, UINT size) {
    return kv::CopyDirectory(kv::WindowsDirectory(), buffer, size);
}

UINT GetSystemDirectoryA(LPSTR buffer, UINT size) {
    return kv::CopyDirectory(kv::SystemDirectory(), buffer, size);
}
