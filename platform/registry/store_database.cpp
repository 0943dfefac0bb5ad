// Opening the store's file safely: a damaged, newer or foreign file is refused and left as it is.
#include <platform/registry/store_database.h>

#include <winbase.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include <platform/registry/store_schema.h>
#include <platform/shell/errors.h>
#include <platform/shell/paths.h>
#include <platform/shell/state_directory.h>

namespace kv {

namespace {

// How long another program's write is waited for; soon after it was waited for in vain, which a
// person has noticed, it is not worth as long again.
constexpr int kBusyMilliseconds = 2000;
constexpr int kBusyAgainMilliseconds = 100;
constexpr auto kSoon = std::chrono::seconds(5);

bool HasContent(const std::string& path) {
    struct stat info;
    return stat(path.c_str(), &info) == 0 && info.st_size > 0;
}

DWORD ErrorFromResult(int result) {
    switch (result & 0xFF) {
        case SQLITE_OK:
        case SQLITE_ROW:
        case SQLITE_DONE:
            return ERROR_SUCCESS;
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return ERROR_SHARING_VIOLATION;
        case SQLITE_PERM:
        case SQLITE_AUTH:
        case SQLITE_CANTOPEN:
        case SQLITE_READONLY:
            return ERROR_ACCESS_DENIED;
        case SQLITE_NOMEM:
            return ERROR_NOT_ENOUGH_MEMORY;
        case SQLITE_FULL:
            return kErrorDiskFull;
        case SQLITE_TOOBIG:
            return ERROR_INVALID_PARAMETER;
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
        case SQLITE_ERROR:  // a statement that does not fit the file's tables
        case SQLITE_FORMAT:
            return kErrorFileCorrupt;
        default:
            return kErrorIoDevice;
    }
}

const char* Reason(DWORD error) {
    switch (error) {
        case ERROR_SHARING_VIOLATION:
            return "is in use by another program; try again";
        case ERROR_ACCESS_DENIED:
            return "cannot be written; check its owner and mode";
        case kErrorFileCorrupt:
            return "is damaged; it was left as it is";
        case kErrorDiskFull:
            return "cannot grow: the disk is full";
        case kErrorTooManyOpenFiles:
            return "cannot be opened: too many files are open";
        case ERROR_NOT_ENOUGH_MEMORY:
            return "cannot be used: not enough memory";
        default:
            return "cannot be read or written: the disk reports an error";
    }
}

}  // namespace

DWORD StoreDatabase::Refuse(DWORD error, const std::string& reason) {
    message_ = "The settings store " + path_ + " " + reason + ".";
    return error;
}

DWORD StoreDatabase::Fail(int result) {
    DWORD error = ErrorFromResult(result);
    if (error == ERROR_SUCCESS) return error;
    if (error == ERROR_SHARING_VIOLATION) inVain_ = std::chrono::steady_clock::now();
    // Of files that cannot be opened or written the system says more.
    const int base = result & 0xFF;
    const int number = connection_ ? sqlite3_system_errno(connection_) : 0;
    if (number != 0 && (base == SQLITE_IOERR || base == SQLITE_CANTOPEN)) {
        error = ErrorFromErrno(number, path_);
    }
    if (result == SQLITE_IOERR_FSYNC) Withdraw();
    return Refuse(error, Reason(error));
}

// A change that the disk would not confirm stands in the log all the same, and would count as made
// when the program ends now. Another one, which changes nothing, takes its place there.
void StoreDatabase::Withdraw() {
    if (!connection_ || readOnly_) return;
    Rollback();
    const std::string again = "PRAGMA user_version=" + std::to_string(kSchemaVersion);
    Execute(again.c_str());
}

bool StoreDatabase::IsSameFile(const std::string& path) const {
    struct stat info;
    if (path != path_ || stat(path.c_str(), &info) != 0) return false;
    if (info.st_dev != identity_.device || info.st_ino != identity_.inode) return false;
    if (!unchanging_) return true;
    return info.st_size == identity_.size && info.st_mtim.tv_sec == identity_.changed.tv_sec &&
           info.st_mtim.tv_nsec == identity_.changed.tv_nsec && !HasContent(path + "-wal");
}

void StoreDatabase::Remember(const std::string& path) {
    struct stat info {};
    if (stat(path.c_str(), &info) != 0) info = {};
    identity_ = {info.st_dev, info.st_ino, info.st_size, info.st_mtim};
    owner_ = getpid();
}

DWORD StoreDatabase::Prepare(StoreAccess access) {
    const std::string directory = StateDirectoryOf(place_);
    if (directory.empty()) {
        message_ = NoStateDirectoryMessage();
        return ERROR_PATH_NOT_FOUND;
    }
    const std::string path = directory + "/store.sqlite";
    if (connection_) {
        // A connection belongs to the process that opened it, and to the file that was there then.
        // One that could only read is given up for a write: the rights may have been put right.
        const bool usable = owner_ == getpid() && IsSameFile(path);
        const bool mustWrite = access == StoreAccess::kWrite && !IsShared();
        if (usable && !(mustWrite && readOnly_)) return BePatient();
        Close();
    }
    return IsShared() ? OpenShared(path) : Open(path, access);
}

DWORD StoreDatabase::BePatient() {
    const bool soon = std::chrono::steady_clock::now() - inVain_ < kSoon;
    sqlite3_busy_timeout(connection_, soon ? kBusyAgainMilliseconds : kBusyMilliseconds);
    return ERROR_SUCCESS;
}

DWORD StoreDatabase::Open(const std::string& path, StoreAccess access) {
    path_ = path;
    struct stat info;
    if (stat(path.c_str(), &info) != 0) {
        if (errno != ENOENT && errno != ENOTDIR) {
            const DWORD error = ErrorFromErrno(errno, path);
            return Refuse(error, Reason(error));
        }
        if (access == StoreAccess::kRead) return ERROR_SUCCESS;
        if (!MakeStateDirectory()) {
            const DWORD error = GetLastError();
            return Refuse(error, "cannot be created; check the directory");
        }
        const int fd = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        if (fd < 0) {
            const DWORD error = ErrorFromErrno(errno, path);
            return Refuse(error, "cannot be created; check the directory");
        }
        close(fd);
        SyncFolder(FolderOf(path));
    } else if (!S_ISREG(info.st_mode)) {
        return Refuse(kErrorFileCorrupt, "is not a file");
    }
    DWORD error = OpenConnection(path, access);
    const bool noRoom = error == ERROR_ACCESS_DENIED || error == kErrorDiskFull;
    if (noRoom && access == StoreAccess::kRead) error = OpenUnchanging(path, error);
    if (error != ERROR_SUCCESS) Close();
    return error;
}

DWORD StoreDatabase::OpenConnection(const std::string& path, StoreAccess access) {
    constexpr int kFlags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_FULLMUTEX;
    const int result = sqlite3_open_v2(path.c_str(), &connection_, kFlags, nullptr);
    if (result != SQLITE_OK) return Fail(result);
    Remember(path);
    sqlite3_extended_result_codes(connection_, 1);
    BePatient();
    readOnly_ = sqlite3_db_readonly(connection_, "main") != 0;
    unchanging_ = false;
    if (readOnly_ && access == StoreAccess::kWrite) {
        return Refuse(ERROR_ACCESS_DENIED, Reason(ERROR_ACCESS_DENIED));
    }
    if (const DWORD error = CheckVersion(access); error != ERROR_SUCCESS || !connection_) {
        return error;
    }
    if (!readOnly_) {
        if (const int wal = Execute("PRAGMA journal_mode=WAL"); wal != SQLITE_OK) return Fail(wal);
    }
    // A short log is soon written over instead of growing: a synchronisation that need not extend
    // the file takes about half the time, and there are at most a few pages to carry over.
    return Fail(
        Execute("PRAGMA synchronous=FULL; PRAGMA foreign_keys=ON; PRAGMA wal_autocheckpoint=64"));
}

// In a directory that cannot be written, or on a full disk, there is no room for the lock files of
// shared reading. The
// file is then read as one that nobody changes; IsSameFile notices when somebody does.
DWORD StoreDatabase::OpenUnchanging(const std::string& path, DWORD why) {
    const std::string refusal = message_;
    if (!IsShared() && HasContent(path + "-wal")) return why;
    Close();
    std::string uri = "file:";
    for (const char character : path) {
        char escaped[4] = {character, 0, 0, 0};
        if (character == '%' || character == '?' || character == '#') {
            snprintf(escaped, sizeof escaped, "%%%02X", character);
        }
        uri += escaped;
    }
    uri += "?immutable=1";
    constexpr int kFlags = SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | SQLITE_OPEN_FULLMUTEX;
    Remember(path);  // before it is opened: a file that takes the place meanwhile is noticed
    const int result = sqlite3_open_v2(uri.c_str(), &connection_, kFlags, nullptr);
    if (result != SQLITE_OK) {
        message_ = refusal;
        return why;
    }
    readOnly_ = unchanging_ = true;
    return CheckVersion(StoreAccess::kRead);
}

DWORD StoreDatabase::CheckVersion(StoreAccess access) {
    sqlite3_int64 version = 0;
    sqlite3_int64 tables = 0;
    {
        Statement query = Use("PRAGMA user_version");
        if (!query.NextRow()) return Fail(query.Result());
        version = query.WideNumberAt(0);
        Statement count = Use("SELECT count(*) FROM sqlite_master");
        if (!count.NextRow()) return Fail(count.Result());
        tables = count.WideNumberAt(0);
    }
    if (version == kSchemaVersion) return ERROR_SUCCESS;
    if (version > kSchemaVersion) {
        char reason[128];
        snprintf(reason, sizeof reason,
                 "was written by a newer version (format %lld, this program knows %d)",
                 static_cast<long long>(version), kSchemaVersion);
        return Refuse(kErrorRevisionMismatch, reason);
    }
    if (version != 0 || tables != 0) {
        return Refuse(kErrorFileCorrupt, "is not a settings store; it was left as it is");
    }
    if (access == StoreAccess::kWrite) return CreateSchema();
    Close();  // created but never filled: as good as absent
    return ERROR_SUCCESS;
}

// Another process may create the schema at the same moment; the second to get the lock finds it.
DWORD StoreDatabase::CreateSchema() {
    if (const int result = Execute("BEGIN IMMEDIATE"); result != SQLITE_OK) return Fail(result);
    sqlite3_int64 version = 0;
    {
        Statement query = Use("PRAGMA user_version");
        if (query.NextRow()) version = query.WideNumberAt(0);
    }
    if (version == 0) {
        if (const int result = Execute(kSchema); result != SQLITE_OK) {
            const DWORD error = Fail(result);
            Execute("ROLLBACK");
            return error;
        }
    }
    return Fail(Execute("COMMIT"));
}

int StoreDatabase::Execute(const char* sql) {
    return sqlite3_exec(connection_, sql, nullptr, nullptr, nullptr);
}

void StoreDatabase::Close() {
    // In a forked child the connection is the parent's: it is forgotten, not closed.
    if (connection_ && owner_ == getpid()) {
        for (const auto& [sql, statement] : statements_) sqlite3_finalize(statement);
        sqlite3_close_v2(connection_);
    }
    statements_.clear();
    connection_ = nullptr;
    readOnly_ = unchanging_ = false;
}

Statement StoreDatabase::Use(const char* sql) {
    sqlite3_stmt*& statement = statements_[sql];
    int result = SQLITE_OK;
    if (!statement) {
        result = sqlite3_prepare_v3(connection_, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement,
                                    nullptr);
    }
    return Statement(connection_, statement, result);
}

DWORD StoreDatabase::Begin() {
    if (IsShared()) {
        if (const DWORD error = OpenCopy()) return error;
    }
    Statement begin = Use("BEGIN IMMEDIATE");
    begin.Run();
    return Fail(begin.Result());
}

DWORD StoreDatabase::Commit() {
    int result;
    {
        Statement commit = Use("COMMIT");
        commit.Run();
        result = commit.Result();
    }
    if (result != SQLITE_OK) Rollback();
    if (result != SQLITE_OK || !IsShared()) return Fail(result);
    const DWORD error = PublishCopy();
    DropCopy();
    return error;
}

void StoreDatabase::Rollback() {
    if (IsShared()) return DropCopy();
    if (connection_ && !sqlite3_get_autocommit(connection_)) Use("ROLLBACK").Run();
}

Statement::~Statement() {
    if (!statement_) return;
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
}

// Values stay alive until the statement is reset, so SQLite needs no copies of them.
Statement& Statement::Text(int parameter, std::string_view text) {
    Keep(sqlite3_bind_text(statement_, parameter, text.data() ? text.data() : "",
                           static_cast<int>(text.size()), SQLITE_STATIC));
    return *this;
}

Statement& Statement::Blob(int parameter, const void* data, std::size_t size) {
    // A null pointer would bind NULL; an empty value is a value.
    Keep(sqlite3_bind_blob64(statement_, parameter, size ? data : "", size, SQLITE_STATIC));
    return *this;
}

Statement& Statement::Number(int parameter, sqlite3_int64 value) {
    Keep(sqlite3_bind_int64(statement_, parameter, value));
    return *this;
}

bool Statement::NextRow() {
    if (result_ != SQLITE_OK) return false;
    const int step = sqlite3_step(statement_);
    if (step == SQLITE_ROW) return true;
    if (step != SQLITE_DONE) result_ = step;
    return false;
}

int Statement::Run() {
    NextRow();
    return result_ == SQLITE_OK ? sqlite3_changes(connection_) : 0;
}

std::string Statement::TextAt(int column) const {
    const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement_, column));
    const int size = sqlite3_column_bytes(statement_, column);
    return bytes ? std::string(bytes, static_cast<std::size_t>(size)) : std::string();
}

DWORD Statement::NumberAt(int column) const {
    return static_cast<DWORD>(sqlite3_column_int64(statement_, column));
}

sqlite3_int64 Statement::WideNumberAt(int column) const {
    return sqlite3_column_int64(statement_, column);
}

}  // namespace kv
