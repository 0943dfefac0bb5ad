// Taking turns at a folder; see folder_lock.h.
#include <platform/shell/folder_lock.h>

#include <winbase.h>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>

namespace kv {

namespace {

constexpr int kAttempts = 400;  // of 5 ms: two seconds
constexpr DWORD kPause = 5;

}  // namespace

FolderLock::FolderLock(const std::string& folder)
    : fd_(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    problem_ = fd_ < 0 ? errno : EWOULDBLOCK;
    for (int attempt = 0; fd_ >= 0 && attempt < kAttempts; ++attempt) {
        problem_ = flock(fd_, LOCK_EX | LOCK_NB) == 0 ? 0 : errno;
        if (problem_ == EWOULDBLOCK) Sleep(kPause);
        if (problem_ != EWOULDBLOCK && problem_ != EINTR) return;
    }
}

FolderLock::~FolderLock() {
    if (fd_ >= 0) close(fd_);
}

}  // namespace kv
