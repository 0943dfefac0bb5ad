// Reading profile files and remembering what they hold.
#include <platform/profile/profile_cache.h>

#include <winbase.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>
#include <list>
#include <mutex>

#include <platform/shell/errors.h>
#include <platform/shell/file_changes.h>
#include <platform/shell/paths.h>

namespace kv {

namespace {

constexpr std::size_t kMostDocuments = 8;
constexpr std::size_t kMostCachedBytes = ProfileDocument::kLargestFile * 2;
// The file system stamps changes with the clock of the last tick. A file read within that time of
// its change may change again under the same stamp, so its text is compared for a little longer.
constexpr long long kStampNanoseconds = 20'000'000;

struct Identity {
    dev_t device = 0;
    ino_t inode = 0;
    off_t size = 0;
    long long changed = 0;
    bool operator==(const Identity&) const = default;
};

struct CachedProfile {
    std::string path;
    Identity identity;
    bool fresh = false;  // read too soon after its change for the stamp to be trusted
    unsigned long long trusted = 0;  // TrustNumber() at the last check
    std::shared_ptr<const ProfileDocument> document;
};

struct Cache {
    std::mutex lock;
    std::list<CachedProfile> profiles;  // the one used last comes first
};

Cache& TheCache() {
    static auto* cache = new Cache;
    return *cache;
}

long long Nanoseconds(const timespec& time) {
    return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

Identity IdentityOf(const struct stat& info) {
    return {info.st_dev, info.st_ino, info.st_size, Nanoseconds(info.st_mtim)};
}

bool IsFresh(const Identity& identity) {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    return Nanoseconds(now) - identity.changed < kStampNanoseconds;
}

// Driver code passes the same path at every read: mapping it must not cost an allocation.
class PathBuffer {
 public:
    explicit PathBuffer(LPCSTR fileName) {
        const std::size_t length = fileName ? std::strlen(fileName) : 0;
        bool hasFolder = false;
        if (length < sizeof buffer_) {
            for (std::size_t i = 0; i <= length && fileName; ++i) {
                const char character = fileName[i] == '\\' ? '/' : fileName[i];
                hasFolder = hasFolder || character == '/';
                buffer_[i] = character;
            }
        }
        if (hasFolder) {
            path_ = std::string_view(buffer_, length);
        } else {
            long_ = ProfilePath(fileName);
            path_ = long_;
        }
    }
    PathBuffer(const PathBuffer&) = delete;
    PathBuffer& operator=(const PathBuffer&) = delete;
    std::string_view View() const { return path_; }
    const char* Text() const { return path_.data(); }

 private:
    char buffer_[512];
    std::string long_;
    std::string_view path_;
};

std::list<CachedProfile>::iterator FindCached(std::string_view path) {
    auto& profiles = TheCache().profiles;
    for (auto profile = profiles.begin(); profile != profiles.end(); ++profile) {
        if (profile->path != path) continue;
        if (profile != profiles.begin()) profiles.splice(profiles.begin(), profiles, profile);
        return profiles.begin();
    }
    return profiles.end();
}

void Trim() {
    auto& profiles = TheCache().profiles;
    std::size_t bytes = 0;
    std::size_t count = 0;
    for (auto profile = profiles.begin(); profile != profiles.end();) {
        bytes += profile->document->Text().size();
        const bool keep = ++count == 1 || (count <= kMostDocuments && bytes <= kMostCachedBytes);
        profile = keep ? std::next(profile) : profiles.erase(profile);
    }
}

bool ReadDescriptor(int fd, std::string& text, struct stat& info, DWORD& error) {
    if (fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
        error = ERROR_ACCESS_DENIED;
        return false;
    }
    text.clear();
    text.resize(std::min<std::size_t>(static_cast<std::size_t>(info.st_size),
                                      ProfileDocument::kLargestFile) +
                1);
    std::size_t size = 0;
    // One byte of room beyond the expected size notices a file that grows meanwhile.
    for (;;) {
        if (size > ProfileDocument::kLargestFile) {
            error = kErrorFileTooLarge;
            return false;
        }
        const ssize_t got = read(fd, text.data() + size, text.size() - size);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) {
            error = ErrorFromErrno(errno);
            return false;
        }
        if (got == 0) break;
        size += static_cast<std::size_t>(got);
        if (size == text.size()) text.resize(size + 65536);
    }
    text.resize(size);
    return true;
}

bool ReadFileAt(const char* path, std::string& text, struct stat& info, DWORD& error) {
    const int fd = open(path, O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    if (fd < 0) {
        error = ErrorFromErrno(errno, path);
        return false;
    }
    const bool done = ReadDescriptor(fd, text, info, error);
    close(fd);
    return done;
}

}  // namespace

std::string ProfilePath(LPCSTR fileName) {
    std::string path = NativePath(fileName ? fileName : "WIN.INI");
    if (path.empty() || path.find('/') != std::string::npos) return path;
    const std::string folder = WindowsDirectory();
    return folder.empty() ? std::string() : folder + "/" + path;
}

bool ReadProfileText(const std::string& path, std::string& text, DWORD& error) {
    struct stat info;
    return ReadFileAt(path.c_str(), text, info, error);
}

std::shared_ptr<const ProfileDocument> LoadProfile(LPCSTR fileName, DWORD& error) {
    const PathBuffer path(fileName);
    struct stat info;
    error = ERROR_SUCCESS;
    const unsigned long long trust = TrustNumber();
    if (trust != 0) {
        std::lock_guard guard(TheCache().lock);
        const auto checked = FindCached(path.View());
        if (checked != TheCache().profiles.end() && checked->trusted == trust) {
            return checked->document;
        }
    }
    if (path.View().empty() || stat(path.Text(), &info) != 0) {
        error =
            path.View().empty() ? DWORD{ERROR_FILE_NOT_FOUND} : ErrorFromErrno(errno, path.Text());
        return nullptr;
    }
    std::lock_guard guard(TheCache().lock);
    auto cached = FindCached(path.View());
    const bool known = cached != TheCache().profiles.end() && cached->identity == IdentityOf(info);
    if (known && !cached->fresh) {
        cached->trusted = trust;
        return cached->document;
    }
    std::string text;
    // Opening a pipe or a device could have effects; only plain files are opened at all.
    if (!S_ISREG(info.st_mode)) error = ERROR_ACCESS_DENIED;
    if (error || !ReadFileAt(path.Text(), text, info, error)) {
        if (cached != TheCache().profiles.end()) TheCache().profiles.erase(cached);
        return nullptr;
    }
    if (cached == TheCache().profiles.end()) {
        cached = TheCache().profiles.emplace(TheCache().profiles.begin());
        cached->path = path.View();
    }
    cached->identity = IdentityOf(info);
    cached->fresh = IsFresh(cached->identity);
    cached->trusted = trust;
    if (!cached->document || cached->document->Text() != text) {
        cached->document = std::make_shared<ProfileDocument>(std::move(text));
    }
    const auto document = cached->document;
    Trim();
    return document;
}

void DropProfileCache() {
    std::lock_guard guard(TheCache().lock);
    TheCache().profiles.clear();
}

}  // namespace kv
