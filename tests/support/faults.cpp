// The calls that can fail; see faults.h. A program's own definition comes before the C library's.
#include "tests/support/faults.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>

namespace kv::test {

namespace {

struct Active {
    Call call;
    int error;
    std::string pathEnd;
};
const Active* active = nullptr;

bool Fails(Call call, const std::string& path) {
    if (!active || active->call != call || path.size() < active->pathEnd.size()) return false;
    if (path.compare(path.size() - active->pathEnd.size(), path.npos, active->pathEnd) != 0) {
        return false;
    }
    errno = active->error;
    return true;
}

bool Fails(Call call, int fd) {
    if (!active || active->call != call) return false;
    char path[4096];
    const std::string link = "/proc/self/fd/" + std::to_string(fd);
    const ssize_t size = readlink(link.c_str(), path, sizeof path);
    return size > 0 && Fails(call, std::string(path, static_cast<std::size_t>(size)));
}

int Open(const char* path, int flags, va_list more) {
    const int mode = flags & O_CREAT ? va_arg(more, int) : 0;
    if (Fails(Call::kOpen, path)) return -1;
    return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

}  // namespace

Fault::Fault(Call call, int error, const std::string& pathEnd) {
    active = new Active{call, error, pathEnd};
}

Fault::~Fault() {
    delete active;
    active = nullptr;
}

}  // namespace kv::test

#define KV_CALL extern "C" __attribute__((visibility("default")))
using kv::test::Call;

KV_CALL int open(const char* path, int flags, ...) {
    va_list more;
    va_start(more, flags);
    const int fd = kv::test::Open(path, flags, more);
    va_end(more);
    return fd;
}

KV_CALL int open64(const char* path, int flags, ...) {
    va_list more;
    va_start(more, flags);
    const int fd = kv::test::Open(path, flags, more);
    va_end(more);
    return fd;
}

KV_CALL ssize_t read(int fd, void* bytes, size_t size) {
    return kv::test::Fails(Call::kRead, fd) ? -1 : syscall(SYS_read, fd, bytes, size);
}

KV_CALL ssize_t write(int fd, const void* bytes, size_t size) {
    return kv::test::Fails(Call::kWrite, fd) ? -1 : syscall(SYS_write, fd, bytes, size);
}

KV_CALL ssize_t pwrite64(int fd, const void* bytes, size_t size, off64_t at) {
    return kv::test::Fails(Call::kWrite, fd) ? -1 : syscall(SYS_pwrite64, fd, bytes, size, at);
}

KV_CALL int fsync(int fd) {
    return kv::test::Fails(Call::kSync, fd) ? -1 : static_cast<int>(syscall(SYS_fsync, fd));
}

KV_CALL int fdatasync(int fd) {
    return kv::test::Fails(Call::kSync, fd) ? -1 : static_cast<int>(syscall(SYS_fdatasync, fd));
}
