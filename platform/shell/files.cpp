// Files: opening, reading, writing, copying, deleting, attributes. Share modes are not enforced:
// the driver's files are replaced whole, never locked.
#include <winbase.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include <platform/shell/errors.h>
#include <platform/shell/file_changes.h>
#include <platform/shell/kernel_objects.h>
#include <platform/shell/paths.h>
#include <platform/shell/whole_file.h>

namespace kv {

namespace {

constexpr DWORD kAttributeReadOnly = 0x1;
constexpr DWORD kLastDisposition = 5;

struct FileObject : KernelObject {
    explicit FileObject(int descriptor, DWORD granted) : fd(descriptor), access(granted) {}
    ~FileObject() override { close(fd); }
    const int fd;
    const DWORD access;
};

BOOL Fail(DWORD error) {
    SetLastError(error);
    return FALSE;
}

// Columns: open flags by disposition CREATE_NEW (1) ... TRUNCATE_EXISTING (5).
constexpr int kDispositionFlags[kLastDisposition + 1] = {0, O_CREAT | O_EXCL, O_CREAT | O_TRUNC,
                                                         0, O_CREAT,          O_TRUNC};

int OpenFlags(DWORD access, DWORD disposition) {
    const bool reads = (access & GENERIC_READ) != 0;
    const bool writes = (access & GENERIC_WRITE) != 0;
    const int mode = writes ? (reads ? O_RDWR : O_WRONLY) : O_RDONLY;
    // A pipe must not block the dialog thread until somebody opens its other end.
    return mode | kDispositionFlags[disposition] | O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
}

class Descriptor {
 public:
    explicit Descriptor(int fd) : fd_(fd) {}
    ~Descriptor() {
        if (fd_ >= 0) close(fd_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    int Get() const { return fd_; }

 private:
    const int fd_;
};

// The copy appears whole or not at all.
DWORD CopyWhole(int source, mode_t mode, const std::string& target, bool overwrite) {
    WholeFile copy(target, mode & 0777);
    std::string buffer(65536, '\0');
    while (copy.Problem() == 0) {
        const ssize_t got = read(source, buffer.data(), buffer.size());
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return ErrorFromErrno(errno);
        if (got == 0) break;
        copy.Write({buffer.data(), static_cast<std::size_t>(got)});
    }
    const bool done = overwrite ? copy.TakePlace() : copy.TakeFreePlace();
    return done ? DWORD{ERROR_SUCCESS} : ErrorFromErrno(copy.Problem(), target);
}

}  // namespace

}  // namespace kv

HANDLE CreateFileA(LPCSTR fileName, DWORD access, DWORD, SECURITY_ATTRIBUTES*, DWORD disposition,
                   DWORD, HANDLE) {
    const std::string path = kv::NativePath(fileName);
    if (path.empty() || disposition == 0 || disposition > kv::kLastDisposition) {
        SetLastError(path.empty() ? ERROR_PATH_NOT_FOUND : ERROR_INVALID_PARAMETER);
        return INVALID_HANDLE_VALUE;
    }
    struct stat info;
    const bool existed = stat(path.c_str(), &info) == 0;
    if (existed && S_ISDIR(info.st_mode)) {
        SetLastError(ERROR_ACCESS_DENIED);
        return INVALID_HANDLE_VALUE;
    }
    const int fd = open(path.c_str(), kv::OpenFlags(access, disposition), 0666);
    if (fd < 0) {
        SetLastError(kv::ErrorFromErrno(errno, path));
        return INVALID_HANDLE_VALUE;
    }
    fcntl(fd, F_SETFL, fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    const auto handle = kv::KernelObjects().Add(std::make_shared<kv::FileObject>(fd, access));
    const bool replaced = existed && (disposition == CREATE_ALWAYS || disposition == 4);
    SetLastError(replaced ? ERROR_ALREADY_EXISTS : ERROR_SUCCESS);
    return reinterpret_cast<HANDLE>(handle);
}

BOOL ReadFile(HANDLE handle, LPVOID buffer, DWORD bytes, LPDWORD bytesRead, OVERLAPPED*) {
    if (bytesRead) *bytesRead = 0;
    const auto file = kv::KernelObjectOf<kv::FileObject>(handle);
    if (!file) return FALSE;
    if (!(file->access & GENERIC_READ)) return kv::Fail(ERROR_ACCESS_DENIED);
    if (bytes > 0 && !buffer) return kv::Fail(kv::kErrorNoAccess);
    DWORD done = 0;
    while (done < bytes) {
        const ssize_t got = read(file->fd, static_cast<char*>(buffer) + done, bytes - done);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return kv::Fail(kv::ErrorFromErrno(errno));
        if (got == 0) break;
        done += static_cast<DWORD>(got);
    }
    if (bytesRead) *bytesRead = done;
    return TRUE;
}

BOOL WriteFile(HANDLE handle, LPCVOID buffer, DWORD bytes, LPDWORD bytesWritten, OVERLAPPED*) {
    if (bytesWritten) *bytesWritten = 0;
    const auto file = kv::KernelObjectOf<kv::FileObject>(handle);
    if (!file) return FALSE;
    if (!(file->access & GENERIC_WRITE)) return kv::Fail(ERROR_ACCESS_DENIED);
    if (bytes > 0 && !buffer) return kv::Fail(kv::kErrorNoAccess);
    kv::NoteFileChange();
    DWORD done = 0;
    while (done < bytes) {
        const ssize_t put = write(file->fd, static_cast<const char*>(buffer) + done, bytes - done);
        if (put < 0 && errno == EINTR) continue;
        if (put < 0) return kv::Fail(kv::ErrorFromErrno(errno));
        done += static_cast<DWORD>(put);
        if (bytesWritten) *bytesWritten = done;
    }
    return TRUE;
}

DWORD GetFileSize(HANDLE handle, LPDWORD sizeHigh) {
    const auto file = kv::KernelObjectOf<kv::FileObject>(handle);
    struct stat info;
    if (!file || fstat(file->fd, &info) != 0) return 0xFFFFFFFFu;
    const ULONGLONG size = static_cast<ULONGLONG>(info.st_size);
    if (sizeHigh) *sizeHigh = static_cast<DWORD>(size >> 32);
    SetLastError(ERROR_SUCCESS);
    return static_cast<DWORD>(size);
}

BOOL CopyFileA(LPCSTR existing, LPCSTR created, BOOL failIfExists) {
    const std::string from = kv::NativePath(existing);
    const std::string to = kv::NativePath(created);
    struct stat source;
    struct stat target;
    if (stat(from.c_str(), &source) != 0) return kv::Fail(kv::ErrorFromErrno(errno, from));
    if (!S_ISREG(source.st_mode)) return kv::Fail(ERROR_ACCESS_DENIED);
    if (stat(to.c_str(), &target) == 0) {
        if (failIfExists) return kv::Fail(ERROR_FILE_EXISTS);
        const bool same = source.st_dev == target.st_dev && source.st_ino == target.st_ino;
        if (same) return kv::Fail(ERROR_SHARING_VIOLATION);
        if (!S_ISREG(target.st_mode) || !(target.st_mode & 0222)) {
            return kv::Fail(ERROR_ACCESS_DENIED);
        }
    }
    const kv::Descriptor file(open(from.c_str(), O_RDONLY | O_CLOEXEC));
    if (file.Get() < 0) return kv::Fail(kv::ErrorFromErrno(errno, from));
    const DWORD error = kv::CopyWhole(file.Get(), source.st_mode, to, !failIfExists);
    return error == ERROR_SUCCESS ? TRUE : kv::Fail(error);
}

BOOL DeleteFileA(LPCSTR fileName) {
    const std::string path = kv::NativePath(fileName);
    struct stat info;
    if (lstat(path.c_str(), &info) != 0) return kv::Fail(kv::ErrorFromErrno(errno, path));
    const bool writable = S_ISLNK(info.st_mode) || (info.st_mode & 0222) != 0;
    if (S_ISDIR(info.st_mode) || !writable) return kv::Fail(ERROR_ACCESS_DENIED);
    if (unlink(path.c_str()) != 0) return kv::Fail(kv::ErrorFromErrno(errno, path));
    kv::NoteFileChange();
    return TRUE;
}

BOOL CreateDirectoryA(LPCSTR path, SECURITY_ATTRIBUTES*) {
    const std::string native = kv::NativePath(path);
    if (native.empty()) return kv::Fail(ERROR_PATH_NOT_FOUND);
    if (mkdir(native.c_str(), 0777) == 0) return TRUE;
    const DWORD error = kv::ErrorFromErrno(errno, native);
    if (error == ERROR_FILE_EXISTS) return kv::Fail(ERROR_ALREADY_EXISTS);
    // Whatever is missing lies before the last name.
    return kv::Fail(error == ERROR_FILE_NOT_FOUND ? ERROR_PATH_NOT_FOUND : error);
}

DWORD GetFileAttributesA(LPCSTR fileName) {
    const std::string path = kv::NativePath(fileName);
    struct stat info;
    if (stat(path.c_str(), &info) != 0) {
        SetLastError(kv::ErrorFromErrno(errno, path));
        return INVALID_FILE_ATTRIBUTES;
    }
    if (S_ISDIR(info.st_mode)) return FILE_ATTRIBUTE_DIRECTORY;
    return info.st_mode & 0222 ? FILE_ATTRIBUTE_NORMAL : kv::kAttributeReadOnly;
}
