// Writing beside a place and moving there; see whole_file.h.
#include <platform/shell/whole_file.h>

#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include <platform/shell/file_changes.h>
#include <platform/shell/paths.h>

namespace kv {

namespace {

constexpr const char* kSuffix = ".new";
constexpr int kMostNames = 1000;

// "settings.record" is written as "settings.record.new4711", or ".new4711-2" when that is taken.
bool IsFreshNameOf(std::string_view name, std::string_view target) {
    if (name.substr(0, target.size()) != target) return false;
    name.remove_prefix(target.size());
    if (name.substr(0, 4) != kSuffix) return false;
    return name.substr(4).find_first_not_of("0123456789-") == name.npos;
}

// A writer holds a lock on its file as long as it lives, whatever its process number means here. A
// file that took its place since it was opened is not the one that its name stands for by now.
bool IsAbandoned(int fd, const std::string& path) {
    struct stat open {};
    struct stat named {};
    return flock(fd, LOCK_EX | LOCK_NB) == 0 && fstat(fd, &open) == 0 &&
           lstat(path.c_str(), &named) == 0 && open.st_dev == named.st_dev &&
           open.st_ino == named.st_ino;
}

void ClearAbandoned(const std::string& target) {
    const std::string folder = FolderOf(target);
    DIR* const list = opendir(folder.c_str());
    if (!list) return;
    while (const dirent* entry = readdir(list)) {
        if (!IsFreshNameOf(entry->d_name, BaseName(target))) continue;
        const std::string path = folder + "/" + entry->d_name;
        const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
        if (fd < 0) continue;
        if (IsAbandoned(fd, path)) unlink(path.c_str());
        close(fd);
    }
    closedir(list);
}

}  // namespace

WholeFile::WholeFile(const std::string& target, mode_t mode) : target_(target) {
    ClearAbandoned(target);
    const std::string first = target + kSuffix + std::to_string(getpid());
    bool made = Make(first, mode);
    for (int n = 2; !made && errno == EEXIST && n < kMostNames; ++n) {
        made = Make(first + "-" + std::to_string(n), mode);
    }
    Keep(made);
}

WholeFile::~WholeFile() {
    if (!path_.empty()) unlink(path_.c_str());
    if (fd_ >= 0) close(fd_);
}

// Between being made and being locked the file looks abandoned: whoever clears it away in that
// moment holds the lock or has taken the name, and another one is made.
bool WholeFile::Make(const std::string& path, mode_t mode) {
    const int fd = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (fd < 0) return false;
    struct stat info {};
    const bool mine = flock(fd, LOCK_EX | LOCK_NB) == 0 && fstat(fd, &info) == 0 && info.st_nlink;
    if (mine) {
        fd_ = fd;
        path_ = path;
        return true;
    }
    close(fd);
    errno = EEXIST;
    return false;
}

bool WholeFile::Keep(bool done) {
    if (!done && problem_ == 0) problem_ = errno;
    return problem_ == 0;
}

bool WholeFile::Write(std::string_view bytes) {
    while (problem_ == 0 && !bytes.empty()) {
        const ssize_t put = write(fd_, bytes.data(), bytes.size());
        if (put < 0 && errno == EINTR) continue;
        if (put == 0) errno = EIO;
        if (Keep(put > 0)) bytes.remove_prefix(static_cast<std::size_t>(put));
    }
    return problem_ == 0;
}

bool WholeFile::TakeRightsOf(uid_t user, gid_t group, mode_t mode) {
    if (problem_ != 0) return false;
    // Only root can give a file away; for others the owner is the same already.
    if (fchown(fd_, user, group) != 0) errno = 0;
    return Keep(fchmod(fd_, mode) == 0);
}

bool WholeFile::TakePlace() {
    if (problem_ != 0 || !Keep(fsync(fd_) == 0)) return false;
    if (!Keep(rename(path_.c_str(), target_.c_str()) == 0)) return false;
    path_.clear();
    return Finish();
}

bool WholeFile::TakeFreePlace() {
    if (problem_ != 0 || !Keep(fsync(fd_) == 0)) return false;
    // A link refuses an existing target where a rename would not.
    if (!Keep(link(path_.c_str(), target_.c_str()) == 0)) return false;
    return Finish();
}

// The new name is durable only when its folder is; there are file systems that cannot promise that.
bool WholeFile::Finish() {
    NoteFileChange();
    SyncFolder(FolderOf(target_));
    return true;
}

}  // namespace kv
