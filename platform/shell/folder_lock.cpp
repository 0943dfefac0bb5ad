// Taking turns at a folder; see folder_lock.h.
#include <platform/shell/folder_lock.h>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <optional>

#include <platform/display/waiting.h>
#include <platform/shell/state_directory.h>

namespace kv {

namespace {

constexpr int kAttempts = 400;  // of 5 ms: two seconds
constexpr Milliseconds kPause{5};
constexpr mode_t kLockMode = 0660;

int OpenLock(const std::string& folder) {
    if (!IsInMachineState(folder)) {
        return open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    }
    const std::string path = folder + "/.lock";
    const int fd = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, kLockMode);
    struct stat info {};
    // Whoever makes it, with whatever mask, makes it for the group; only its owner can.
    if (fd >= 0 && fstat(fd, &info) == 0 && info.st_uid == geteuid()) fchmod(fd, kLockMode);
    return fd;
}

}  // namespace

FolderLock::FolderLock(const std::string& folder) : fd_(OpenLock(folder)) {
    std::optional<WaitSubject> subject;
    problem_ = fd_ < 0 ? errno : EWOULDBLOCK;
    for (int attempt = 0; fd_ >= 0 && attempt < kAttempts; ++attempt) {
        problem_ = flock(fd_, LOCK_EX | LOCK_NB) == 0 ? 0 : errno;
        if (problem_ == EWOULDBLOCK) {
            if (!subject) subject.emplace(folder + ", which another program uses");
            PassTime(kPause);
        }
        if (problem_ != EWOULDBLOCK && problem_ != EINTR) return;
    }
}

FolderLock::~FolderLock() {
    if (fd_ >= 0) close(fd_);
}

}  // namespace kv
