// The last error of each thread, and host errors as platform error codes.
#include <platform/shell/errors.h>

#include <sys/stat.h>

#include <cerrno>
#include <cstring>

namespace {

thread_local DWORD lastError = ERROR_SUCCESS;

bool HasFolder(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return true;
    struct stat info;
    const std::string folder = slash == 0 ? "/" : path.substr(0, slash);
    return stat(folder.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

}  // namespace

DWORD GetLastError() {
    return lastError;
}

void SetLastError(DWORD error) {
    lastError = error;
}

namespace kv {

DWORD ErrorFromErrno(int error, const std::string& path) {
    switch (error) {
        case 0:
            return ERROR_SUCCESS;
        case ENOENT:
            return HasFolder(path) ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
        case ENOTDIR:
            return ERROR_PATH_NOT_FOUND;
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
            return ERROR_ACCESS_DENIED;
        case EMFILE:
        case ENFILE:
            return kErrorTooManyOpenFiles;
        case ENOMEM:
            return ERROR_NOT_ENOUGH_MEMORY;
        case EEXIST:
            return ERROR_FILE_EXISTS;
        case ENAMETOOLONG:
        case EINVAL:
        case ELOOP:
            return ERROR_INVALID_NAME;
        case EBUSY:
        case ETXTBSY:
        case EAGAIN:
            return ERROR_SHARING_VIOLATION;
        case ENOSPC:
        case EDQUOT:
            return kErrorDiskFull;
        case EFBIG:
            return kErrorFileTooLarge;
        default:
            return kErrorIoDevice;
    }
}

std::string ErrnoInWords(int error) {
    switch (error) {
        case ENOSPC:
        case EDQUOT:
            return "the disk is full";
        case EACCES:
        case EPERM:
            return "not permitted; check its owner and mode";
        case EROFS:
            return "the disk can only be read";
        case EIO:
            return "the disk reports an error";
        case EWOULDBLOCK:
            return "another program is storing there; try again";
        case EMFILE:
        case ENFILE:
            return "too many files are open";
        case ENOMEM:
            return "not enough memory";
        default:
            return std::strerror(error);
    }
}

}  // namespace kv
