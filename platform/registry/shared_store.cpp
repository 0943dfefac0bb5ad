// The machine's store: a file that is read without locks and only ever replaced whole.
#include <platform/registry/store_database.h>

#include <winbase.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>

#include <platform/security/access.h>
#include <platform/shell/errors.h>
#include <platform/shell/paths.h>
#include <platform/shell/whole_file.h>

namespace kv {

namespace {

// Two bytes of an SQLite file's head say how it is written: 2 with a write-ahead log, 1 without.
constexpr std::size_t kFormatBytes = 18;
constexpr char kWithoutLog = 1;

bool AdministratorsOnly(const struct stat& info) {
    if (info.st_uid != 0 && info.st_uid != geteuid()) return false;
    if ((info.st_mode & S_IWOTH) != 0) return false;
    return (info.st_mode & S_IWGRP) == 0 || info.st_gid == 0 || IsAdministratorGroup(info.st_gid);
}

std::string BadRights(const char* what, const struct stat& info, unsigned expected) {
    char text[200];
    snprintf(text, sizeof text,
             "is not used: others than administrators can change %s (mode %04o, user %u, group %u;"
             " expected %04o, root, %s)",
             what, static_cast<unsigned>(info.st_mode & 07777), info.st_uid, info.st_gid, expected,
             kAdministratorGroup);
    return text;
}

}  // namespace

// What anybody could have written is nothing that everybody may be given. Nothing is put right
// here: whoever did it has to know.
DWORD StoreDatabase::CheckSharedRights() {
    struct stat folder {};
    struct stat file {};
    if (stat(FolderOf(path_).c_str(), &folder) != 0) return ERROR_SUCCESS;
    if (!AdministratorsOnly(folder)) {
        return Refuse(ERROR_ACCESS_DENIED,
                      BadRights("its folder", folder, NewFolderMode(StatePlace::kMachine)));
    }
    if (stat(path_.c_str(), &file) == 0 && (file.st_mode & S_IWOTH) != 0) {
        return Refuse(ERROR_ACCESS_DENIED,
                      BadRights("it", file, NewFileMode(StatePlace::kMachine)));
    }
    return ERROR_SUCCESS;
}

DWORD StoreDatabase::OpenShared(const std::string& path) {
    path_ = path;
    if (const DWORD error = CheckSharedRights()) return error;
    struct stat info {};
    if (stat(path.c_str(), &info) != 0) {
        if (errno == ENOENT || errno == ENOTDIR) return ERROR_SUCCESS;
        return Refuse(ErrorFromErrno(errno, path), "cannot be read: " + ErrnoInWords(errno));
    }
    if (!S_ISREG(info.st_mode)) return Refuse(kErrorFileCorrupt, "is not a file");
    if (access(path.c_str(), R_OK) != 0) {
        return Refuse(ERROR_ACCESS_DENIED, "cannot be read; check its owner and mode");
    }
    if (info.st_size == 0) return ERROR_SUCCESS;  // made and never filled
    const DWORD error = OpenUnchanging(path, kErrorFileCorrupt);
    if (error != ERROR_SUCCESS) Close();
    return error;
}

// The file as it is when it is this program's turn, in memory.
DWORD StoreDatabase::OpenCopy() {
    const std::string folder = FolderOf(path_);
    Close();
    turn_ = std::make_unique<FolderLock>(folder);
    if (const int problem = turn_->Problem()) {
        turn_.reset();
        if (problem == EWOULDBLOCK) {
            return Refuse(ERROR_SHARING_VIOLATION, "is in use by another program; try again");
        }
        const bool denied = problem == EACCES || problem == EPERM;
        return Refuse(
            ErrorFromErrno(problem, folder),
            "cannot be written: " +
                (denied ? "you have not the right to" + WhoAdministers() : ErrnoInWords(problem)));
    }
    std::ifstream file(path_, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    int result = sqlite3_open_v2(":memory:", &connection_,
                                 SQLITE_OPEN_READWRITE | SQLITE_OPEN_FULLMUTEX, nullptr);
    owner_ = getpid();
    if (result == SQLITE_OK && !bytes.empty()) {
        auto* copy = static_cast<unsigned char*>(sqlite3_malloc64(bytes.size()));
        if (copy == nullptr) {
            DropCopy();
            return Refuse(ERROR_NOT_ENOUGH_MEMORY, "cannot be used: not enough memory");
        }
        std::memcpy(copy, bytes.data(), bytes.size());
        if (bytes.size() > kFormatBytes + 1)
            copy[kFormatBytes] = copy[kFormatBytes + 1] = kWithoutLog;
        result =
            sqlite3_deserialize(connection_, "main", copy, static_cast<sqlite3_int64>(bytes.size()),
                                static_cast<sqlite3_int64>(bytes.size()),
                                SQLITE_DESERIALIZE_FREEONCLOSE | SQLITE_DESERIALIZE_RESIZEABLE);
    }
    DWORD error = Fail(result);
    if (!error) {
        sqlite3_extended_result_codes(connection_, 1);
        error =
            Fail(sqlite3_exec(connection_, "PRAGMA foreign_keys=ON", nullptr, nullptr, nullptr));
    }
    if (!error) error = CheckVersion(StoreAccess::kWrite);
    if (error) DropCopy();
    return error;
}

DWORD StoreDatabase::PublishCopy() {
    sqlite3_int64 size = 0;
    const std::unique_ptr<unsigned char, void (*)(void*)> bytes(
        sqlite3_serialize(connection_, "main", &size, 0), sqlite3_free);
    if (!bytes) return Refuse(ERROR_NOT_ENOUGH_MEMORY, "cannot be used: not enough memory");
    WholeFile file(path_, NewFileMode(StatePlace::kMachine));
    file.Write({reinterpret_cast<const char*>(bytes.get()), static_cast<std::size_t>(size)});
    // Whatever the writer's mask, everybody is to read it; the folder gives it its group.
    file.TakeRightsOf(static_cast<uid_t>(-1), static_cast<gid_t>(-1),
                      NewFileMode(StatePlace::kMachine));
    if (file.TakePlace()) return ERROR_SUCCESS;
    return Refuse(ErrorFromErrno(file.Problem(), path_),
                  "cannot be written: " + ErrnoInWords(file.Problem()));
}

void StoreDatabase::DropCopy() {
    Close();
    turn_.reset();
}

}  // namespace kv
