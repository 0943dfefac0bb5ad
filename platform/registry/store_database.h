// The SQLite connection under the state store: opening, checking and refusing the file, prepared
// statements, transactions, and SQLite's results as platform error codes.
//
// A person's file is written in place, with a write-ahead log. The machine's never is: those who
// may only read it could not take part in a log, nor mend what a killed writer left in a journal,
// and their locks could keep its writers out. A transaction works on a copy in memory that takes
// the file's place; readers open the file as one that does not change, and notice when it is
// another one.
#pragma once

#include <windef.h>

#include <sqlite3.h>
#include <sys/types.h>

#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include <platform/shell/folder_lock.h>
#include <platform/shell/state_directory.h>

namespace kv {

enum class StoreAccess { kRead, kWrite };

// One use of a prepared statement; the statement goes back to the connection's cache afterwards.
class Statement {
 public:
    Statement(sqlite3* connection, sqlite3_stmt* statement, int result)
        : connection_(connection), statement_(statement), result_(result) {}
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    Statement& Text(int parameter, std::string_view text);
    Statement& Blob(int parameter, const void* data, std::size_t size);
    Statement& Number(int parameter, sqlite3_int64 value);

    bool NextRow();  // false at the end and on an error
    int Result() const { return result_; }
    // Runs a statement without rows to its end; answers the number of rows it changed.
    int Run();

    std::string TextAt(int column) const;  // also for blobs
    DWORD NumberAt(int column) const;
    sqlite3_int64 WideNumberAt(int column) const;

 private:
    void Keep(int result) {
        if (result_ == SQLITE_OK) result_ = result;
    }
    sqlite3* connection_;
    sqlite3_stmt* statement_;
    int result_;
};

class StoreDatabase {
 public:
    explicit StoreDatabase(StatePlace place) : place_(place) {}
    ~StoreDatabase() { Close(); }
    StoreDatabase(const StoreDatabase&) = delete;
    StoreDatabase& operator=(const StoreDatabase&) = delete;

    // Makes the connection ready. Reading where no store was ever written succeeds without one:
    // IsOpen() is then false and nothing is created.
    DWORD Prepare(StoreAccess access);
    bool IsOpen() const { return connection_ != nullptr; }
    void Close();

    Statement Use(const char* sql);
    DWORD Begin();
    DWORD Commit();
    void Rollback();

    // The platform's error for a result, and the sentence for people that goes with it.
    DWORD Fail(int result);
    const std::string& Message() const { return message_; }

 private:
    struct Identity {
        dev_t device = 0;
        ino_t inode = 0;
        off_t size = 0;
        timespec changed{};
    };

    bool IsShared() const { return place_ == StatePlace::kMachine; }
    DWORD OpenShared(const std::string& path);
    DWORD CheckSharedRights();
    DWORD OpenCopy();
    DWORD PublishCopy();
    void DropCopy();
    DWORD Open(const std::string& path, StoreAccess access);
    DWORD OpenConnection(const std::string& path, StoreAccess access);
    DWORD OpenUnchanging(const std::string& path, DWORD why);
    DWORD BePatient();
    void Withdraw();
    DWORD CheckVersion(StoreAccess access);
    DWORD CreateSchema();
    int Execute(const char* sql);
    DWORD Refuse(DWORD error, const std::string& reason);
    bool IsSameFile(const std::string& path) const;
    void Remember(const std::string& path);

    const StatePlace place_;
    std::unique_ptr<FolderLock> turn_;  // while a copy of the machine's file is open
    sqlite3* connection_ = nullptr;
    std::map<const char*, sqlite3_stmt*> statements_;  // by the address of the SQL literal
    std::string path_;
    Identity identity_;
    pid_t owner_ = 0;
    bool readOnly_ = false;
    bool unchanging_ = false;  // opened without locks, for want of rights or room
    std::string message_;
    std::chrono::steady_clock::time_point inVain_{};  // when another program was waited for last
};

}  // namespace kv
