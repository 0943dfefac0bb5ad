// The writing profile functions. A file is replaced whole, by renaming a finished copy over it, and
// under a lock on its folder, so that two programs cannot lose each other's keys.
#include <winbase.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>

#include <platform/profile/profile_cache.h>
#include <platform/profile/profile_edit.h>
#include <platform/registry/state_directory.h>
#include <platform/shell/errors.h>
#include <platform/shell/file_changes.h>
#include <platform/shell/paths.h>

namespace kv {

namespace {

constexpr int kLockAttempts = 400;  // of 5 ms: two seconds
constexpr DWORD kLockPause = 5;

// A lock on the folder leaves no lock files behind, and stays put while files in it are replaced.
class FolderLock {
 public:
    explicit FolderLock(const std::string& folder)
        : fd_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
        if (fd_ < 0) {
            error_ = errno == ENOENT ? DWORD{ERROR_PATH_NOT_FOUND} : ErrorFromErrno(errno);
            return;
        }
        for (int attempt = 0; attempt < kLockAttempts; ++attempt) {
            if (flock(fd_, LOCK_EX | LOCK_NB) == 0) return;
            if (errno != EWOULDBLOCK && errno != EINTR) {
                error_ = ErrorFromErrno(errno);
                return;
            }
            Sleep(kLockPause);
        }
        error_ = ERROR_SHARING_VIOLATION;
    }
    ~FolderLock() {
        if (fd_ >= 0) close(fd_);
    }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;
    DWORD Error() const { return error_; }

 private:
    int fd_;
    DWORD error_ = ERROR_SUCCESS;
};

// A link is followed to the file that it names: the rename must not replace the link.
std::string FinalPath(const std::string& path) {
    char resolved[PATH_MAX];
    if (realpath(path.c_str(), resolved)) return resolved;
    return path;
}

bool IsInStateDirectory(const std::string& path) {
    const std::string state = FinalPath(StateDirectory()) + "/";
    return FinalPath(FolderOf(path)).append("/").rfind(state, 0) == 0;
}

bool WriteAll(int fd, const std::string& text) {
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t put = write(fd, text.data() + done, text.size() - done);
        if (put < 0 && errno == EINTR) continue;
        if (put < 0) return false;
        done += static_cast<std::size_t>(put);
    }
    return true;
}

// `existing` gives mode and owner of the file to replace, null for a new one. The lock is held, so
// a copy that lies there is left from a program that was killed.
DWORD ReplaceFile(const std::string& path, const std::string& text, const struct stat* existing) {
    const std::string folder = FolderOf(path);
    const std::string temporary = folder + "/." + std::string(BaseName(path)) + ".new";
    unlink(temporary.c_str());
    const mode_t newMode = IsInStateDirectory(path) ? 0600 : 0666;
    const int fd =
        open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, existing ? 0600 : newMode);
    if (fd < 0) return ErrorFromErrno(errno, path);
    bool done = WriteAll(fd, text);
    if (done && existing) {
        // Only root can give a file away; for others the owner is the same already.
        if (fchown(fd, existing->st_uid, existing->st_gid) != 0) errno = 0;
        done = fchmod(fd, existing->st_mode & 07777) == 0;
    }
    done = done && fsync(fd) == 0;
    int failure = done ? 0 : errno;
    close(fd);
    if (done && rename(temporary.c_str(), path.c_str()) != 0) failure = errno;
    if (failure != 0) {
        unlink(temporary.c_str());
        return ErrorFromErrno(failure, path);
    }
    NoteFileChange();
    SyncFolder(folder);
    return ERROR_SUCCESS;
}

using Edit = std::function<std::string(const std::string&)>;

DWORD ChangeProfile(LPCSTR fileName, const Edit& edit) {
    const std::string path = FinalPath(ProfilePath(fileName));
    if (path.empty()) return ERROR_PATH_NOT_FOUND;
    const FolderLock lock(FolderOf(path));
    if (lock.Error() != ERROR_SUCCESS) return lock.Error();
    struct stat info;
    const bool exists = stat(path.c_str(), &info) == 0;
    std::string text;
    DWORD error = ERROR_SUCCESS;
    if (exists) {
        // Renaming would get around the file's own rights.
        const bool writable = S_ISREG(info.st_mode) && (info.st_mode & 0222) != 0 &&
                              faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
        if (!writable) return ERROR_ACCESS_DENIED;
        if (!ReadProfileText(path, text, error)) return error;
    }
    const std::string changed = edit(text);
    if (changed == text) return ERROR_SUCCESS;
    if (changed.size() > ProfileDocument::kLargestFile) return kErrorFileTooLarge;
    return ReplaceFile(path, changed, exists ? &info : nullptr);
}

bool IsOneLine(std::string_view text) {
    return text.find_first_of("\r\n") == text.npos;
}

// Names that could not be found again, and values that would not be one line, are refused: writing
// them would change the meaning of the rest of the file.
bool IsSectionName(std::string_view name) {
    return IsOneLine(name) && name.find(']') == name.npos && !TrimBlanks(name).empty();
}

bool IsKeyName(std::string_view name) {
    const std::string_view key = TrimBlanks(name);
    return IsOneLine(key) && !key.empty() && key[0] != ';' && key[0] != '[' &&
           key.find('=') == key.npos;
}

bool AreLines(LPCSTR block) {
    for (; *block; block += std::string_view(block).size() + 1) {
        if (!IsOneLine(block) || TrimBlanks(block).substr(0, 1) == "[") return false;
    }
    return true;
}

BOOL Answer(DWORD error) {
    SetLastError(error);
    return error == ERROR_SUCCESS ? TRUE : FALSE;
}

}  // namespace

}  // namespace kv

// Without a section the call only drops what is cached, and answers FALSE as on the platform.
BOOL WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR text, LPCSTR fileName) {
    if (!section) {
        kv::DropProfileCache();
        return kv::Answer(key || text ? DWORD{ERROR_INVALID_PARAMETER} : DWORD{ERROR_SUCCESS}) &&
               FALSE;
    }
    if (!key) return WritePrivateProfileSectionA(section, nullptr, fileName);
    if (!kv::IsSectionName(section) || !kv::IsKeyName(key) || (text && !kv::IsOneLine(text))) {
        return kv::Answer(ERROR_INVALID_PARAMETER);
    }
    const auto value = text ? std::optional<std::string_view>(text) : std::nullopt;
    return kv::Answer(kv::ChangeProfile(fileName, [&](const std::string& before) {
        return kv::EditProfileKey(before, section, key, value);
    }));
}

BOOL WritePrivateProfileSectionA(LPCSTR section, LPCSTR text, LPCSTR fileName) {
    if (!section || !kv::IsSectionName(section) || (text && !kv::AreLines(text))) {
        return kv::Answer(ERROR_INVALID_PARAMETER);
    }
    return kv::Answer(kv::ChangeProfile(fileName, [&](const std::string& before) {
        return kv::EditProfileSection(before, section, text);
    }));
}
