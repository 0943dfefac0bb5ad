// The machine's store: who may change it, what readers see meanwhile, what is left after a crash.
#include <platform/registry/state_store.h>

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/file.h>
#include <sys/wait.h>

#include <csignal>
#include <set>

#include <platform/shell/errors.h>
#include <platform/shell/folder_lock.h>

#include "tests/platform/shell/scratch.h"
#include "tests/support/faults.h"

namespace kv::test {
namespace {

namespace fs = std::filesystem;

class SharedStore : public ScratchTest {
 protected:
    void SetUp() override {
        fs::create_directories(Folder());
        chmod(Folder().c_str(), 02775);
        SetVariable("KVPREFS_SYSTEM", Folder().c_str());
        umask(0077);  // whatever the administrator's is
        PrinterRecord printer;
        printer.name = "Hall";
        ASSERT_EQ(Get().AddPrinter(printer), ERROR_SUCCESS) << Get().LastMessage();
        ASSERT_EQ(Put("first"), ERROR_SUCCESS);
    }
    void TearDown() override {
        umask(0022);
        CloseStateStore();
    }

    static StateStore& Get() { return StateStore::Of(StatePlace::kMachine); }
    std::string Folder() const { return Path("machine"); }
    std::string File() const { return Folder() + "/store.sqlite"; }
    static DWORD Put(const std::string& text, const char* name = "Value") {
        return Get().SetPrinterData("Hall", name, 3, text.data(), text.size());
    }
    static std::string Got(const char* name = "Value") {
        StoredValue value;
        const DWORD error = Get().GetPrinterData("Hall", name, value);
        return error ? "error " + std::to_string(error) : value.data;
    }
    std::set<std::string> Names() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(Folder())) {
            names.insert(entry.path().filename());
        }
        return names;
    }
    // Runs in a child, whose exit status it answers.
    template <typename Body>
    static pid_t Start(Body body) {
        const pid_t child = fork();
        if (child == 0) _exit(body());
        return child;
    }
    static int Ended(pid_t child) {
        int status = -1;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
};

TEST_F(SharedStore, EverybodyReadsAndOnlyAdministratorsWrite) {
    EXPECT_EQ(ModeOf(File()), 0664u);
    EXPECT_EQ(ModeOf(Folder() + "/.lock"), 0660u);
    CloseStateStore();
    const auto names = Names();
    const std::string bytes = Read(File());
    {
        const AsOrdinaryUser user;
        EXPECT_EQ(Got(), "first");
        SetActingAsAdministrator(true);  // says what the driver is told, not what files allow
        EXPECT_EQ(Put("theirs"), ERROR_ACCESS_DENIED);
        EXPECT_NE(Get().LastMessage().find("root or a member of group lpadmin"), std::string::npos)
            << Get().LastMessage();
        EXPECT_EQ(Put("first"), ERROR_SUCCESS) << "what stands there need not be written";
        EXPECT_EQ(Got(), "first");
    }
    EXPECT_EQ(Names(), names);
    EXPECT_TRUE(Read(File()) == bytes);
    EXPECT_EQ(Put("second"), ERROR_SUCCESS);
    EXPECT_EQ(Got(), "second");
}

TEST_F(SharedStore, ReadersSeeEachCommittedStateWhileSomebodyWrites) {
    int toParent[2], toChild[2];
    ASSERT_EQ(pipe(toParent) | pipe(toChild), 0);
    char turn = 0;
    const pid_t writer = Start([&] {
        StoreTransaction transaction(Get());
        const bool written = Put("half") == ERROR_SUCCESS && Got() == "half";
        if (write(toParent[1], "w", 1) != 1 || read(toChild[0], &turn, 1) != 1) return 1;
        return written && transaction.Commit() == ERROR_SUCCESS ? 0 : 2;
    });
    ASSERT_EQ(read(toParent[0], &turn, 1), 1);
    {
        const AsOrdinaryUser user;
        EXPECT_EQ(Got(), "first");
        // Nor can a reader keep administrators out.
        EXPECT_EQ(FolderLock(Folder()).Problem(), EACCES);
        const int folder = open(Folder().c_str(), O_RDONLY | O_DIRECTORY);
        const int file = open(File().c_str(), O_RDONLY);
        EXPECT_EQ(flock(folder, LOCK_EX | LOCK_NB) | flock(file, LOCK_EX | LOCK_NB), 0);
        ASSERT_EQ(write(toChild[1], "c", 1), 1);
        EXPECT_EQ(Ended(writer), 0);
        EXPECT_EQ(Got(), "half") << "what was open before is not what stands there now";
        close(folder);
        close(file);
    }
}

TEST_F(SharedStore, AWriterThatWasKilledOrFoundNoRoomLeavesWhatStoodThere) {
    const pid_t killed = Start([] {
        StoreTransaction transaction(Get());
        Put("half");
        raise(SIGKILL);
        return 0;
    });
    EXPECT_EQ(Ended(killed), -1);
    EXPECT_EQ(Got(), "first");
    // the call that fails, how; the answer
    const struct {
        Call call;
        int error;
        DWORD answer;
    } kCases[] = {
        {Call::kWrite, ENOSPC, kErrorDiskFull},
        {Call::kSync, EIO, kErrorIoDevice},
        {Call::kOpen, EROFS, ERROR_ACCESS_DENIED},
    };
    for (const auto& c : kCases) {
        const pid_t child = Start([&] {
            const Fault fault(c.call, c.error, "store.sqlite.new" + std::to_string(getpid()));
            if (const DWORD error = Put("half"); error != c.answer) return static_cast<int>(error);
            return Got() == "first" ? 0 : 1;
        });
        EXPECT_EQ(Ended(child), 0) << c.error;
        EXPECT_EQ(Names(), (std::set<std::string>{".lock", "store.sqlite"}));
    }
    EXPECT_EQ(Put("second"), ERROR_SUCCESS);
    EXPECT_EQ(Got(), "second");
}

TEST_F(SharedStore, WritersTakeTurnsAndLoseNothing) {
    constexpr int kWriters = 3;
    constexpr int kWrites = 20;
    std::vector<pid_t> writers;
    for (int w = 0; w < kWriters; ++w) {
        writers.push_back(Start([w] {
            for (int i = 0; i < kWrites; ++i) {
                const std::string name = std::to_string(w) + "." + std::to_string(i);
                if (Put("x", name.c_str()) != ERROR_SUCCESS) return 1;
            }
            return 0;
        }));
    }
    std::size_t seen = 0;
    for (int i = 0; i < 200; ++i) {
        std::vector<StoredValue> values;
        ASSERT_EQ(Get().ListPrinterData("Hall", values), ERROR_SUCCESS) << Get().LastMessage();
        EXPECT_GE(values.size(), seen);
        seen = values.size();
    }
    for (const pid_t writer : writers) EXPECT_EQ(Ended(writer), 0);
    std::vector<StoredValue> values;
    ASSERT_EQ(Get().ListPrinterData("Hall", values), ERROR_SUCCESS);
    EXPECT_EQ(values.size(), 1u + kWriters * kWrites);
}

TEST_F(SharedStore, WhatIsWrongWithItIsNamedAndNotPutRight) {
    using Spoil = void (*)(const std::string& folder, const std::string& file);
    // what was done; the answer to a reader, what is said
    const struct {
        Spoil spoil;
        DWORD answer;
        const char* says;
    } kCases[] = {
        {[](auto& folder, auto&) { chmod(folder.c_str(), 0777); }, ERROR_ACCESS_DENIED,
         "others than administrators can change its folder (mode 0777, user 0, group 0"},
        {[](auto&, auto& file) { chmod(file.c_str(), 0666); }, ERROR_ACCESS_DENIED, "change it"},
        {[](auto& folder, auto&) { (void)!chown(folder.c_str(), 65534, 0); }, ERROR_ACCESS_DENIED,
         "user 65534"},
        {[](auto& folder, auto&) { (void)!chown(folder.c_str(), 0, 65534); }, ERROR_ACCESS_DENIED,
         "group 65534"},
        {[](auto&, auto& file) { fs::resize_file(file, 5000); }, kErrorFileCorrupt, "is damaged"},
        {[](auto&, auto& file) { std::ofstream(file) << "text"; }, kErrorFileCorrupt, "is damaged"},
        {[](auto&, auto& file) {
             std::fstream(file, std::ios::in | std::ios::out | std::ios::binary)
                 .seekp(60)
                 .write("\0\0\0\2", 4);
         },
         kErrorRevisionMismatch, "newer version"},
        {[](auto&, auto& file) {
             fs::remove(file);
             fs::create_directory(file);
         },
         kErrorFileCorrupt, "is not a file"},
    };
    if (geteuid() != 0) GTEST_SKIP() << "only root can give files away";
    const std::string good = Read(File());
    for (const auto& c : kCases) {
        CloseStateStore();
        c.spoil(Folder(), File());
        struct stat folder {};
        stat(Folder().c_str(), &folder);
        const std::string bytes = Read(File());
        std::vector<PrinterRecord> printers;
        EXPECT_EQ(Get().ListPrinters(printers), c.answer) << c.says;
        EXPECT_NE(Get().LastMessage().find(c.says), std::string::npos) << Get().LastMessage();
        EXPECT_EQ(Put("x"), c.answer) << c.says;
        EXPECT_TRUE(Read(File()) == bytes);
        struct stat after {};
        stat(Folder().c_str(), &after);
        EXPECT_TRUE(after.st_mode == folder.st_mode && after.st_uid == folder.st_uid) << c.says;
        fs::remove_all(File());
        ASSERT_EQ(chown(Folder().c_str(), 0, 0), 0);
        chmod(Folder().c_str(), 02775);
        Write("machine/store.sqlite", good);
    }
    EXPECT_EQ(Got(), "first");
}

TEST_F(SharedStore, AMissingAnEmptyAndALoggedFileAreWrittenAsIfNew) {
    CloseStateStore();
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(File().c_str(), &other), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(other, "PRAGMA journal_mode=WAL", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(other);
    EXPECT_EQ(Got(), "first");
    EXPECT_EQ(Put("second"), ERROR_SUCCESS) << Get().LastMessage();
    EXPECT_EQ(Got(), "second");
    fs::resize_file(File(), 0);
    EXPECT_EQ(Got(), "error 1801");
    fs::remove(File());
    EXPECT_EQ(Got(), "error 1801");
    PrinterRecord printer;
    printer.name = "Hall";
    EXPECT_EQ(Get().AddPrinter(printer), ERROR_SUCCESS);
    fs::remove_all(Folder());
    EXPECT_EQ(Put("x"), ERROR_FILE_NOT_FOUND) << "the program never makes the machine's folder";
    EXPECT_NE(Get().LastMessage().find("cannot be written"), std::string::npos);
    EXPECT_FALSE(fs::exists(Folder()));
    EXPECT_FALSE(HasMachineState());
}

}  // namespace
}  // namespace kv::test
