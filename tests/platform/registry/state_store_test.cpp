// The store's file: rights, refusals, locks, crashes; printers and their data.
#include <platform/registry/state_store.h>

#include <sqlite3.h>
#include <sys/wait.h>

#include <chrono>
#include <cerrno>
#include <csignal>

#include <platform/shell/errors.h>
#include <platform/shell/state_directory.h>

#include "tests/platform/shell/scratch.h"
#include "tests/support/faults.h"

namespace kv::test {
namespace {

class Store : public ScratchTest {
 protected:
    static StateStore& Get() { return StateStore::Get(); }
    std::string File() const { return State() + "/store.sqlite"; }
    static PrinterRecord Printer(const std::string& name) {
        PrinterRecord printer;
        printer.name = name;
        printer.port = "IP_10.0.0.5";
        printer.attributes = 0x840;
        return printer;
    }
    static DWORD Put(const std::string& text, const std::string& name = "Value") {
        return Get().SetPrinterData("Tray", name, REG_BINARY, text.data(), text.size());
    }
    static std::string Got(const std::string& name = "Value") {
        StoredValue value;
        const DWORD error = Get().GetPrinterData("Tray", name, value);
        return error ? "error " + std::to_string(error) : value.data;
    }
    void FillAndClose() {
        ASSERT_EQ(Get().AddPrinter(Printer("Tray")), ERROR_SUCCESS);
        ASSERT_EQ(Put("first"), ERROR_SUCCESS);
        CloseStateStore();
    }
    void Sql(const char* sql) {
        sqlite3* other = nullptr;
        ASSERT_EQ(sqlite3_open(File().c_str(), &other), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(other, sql, nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(other);
    }
};

TEST_F(Store, PrintersAreKeptWithTheirData) {
    ASSERT_EQ(Get().AddPrinter(Printer("Zeta")), ERROR_SUCCESS);
    ASSERT_EQ(Get().AddPrinter(Printer("Tray")), ERROR_SUCCESS);
    EXPECT_EQ(Get().AddPrinter(Printer("tRAY")), kErrorPrinterAlreadyExists);
    for (const char* name : {"", "a,b", "\\\\x\\y", "a\nb"}) {
        EXPECT_EQ(Get().AddPrinter(Printer(name)), ERROR_INVALID_PRINTER_NAME) << name;
    }
    const std::string bytes("\0\xFFz\0", 4);
    ASSERT_EQ(Put(bytes), ERROR_SUCCESS);
    ASSERT_EQ(Put("", "Empty"), ERROR_SUCCESS);
    CloseStateStore();

    std::vector<PrinterRecord> printers;
    ASSERT_EQ(Get().ListPrinters(printers), ERROR_SUCCESS);
    ASSERT_EQ(printers.size(), 2u);
    EXPECT_EQ(printers[0].name, "Tray");
    EXPECT_EQ(printers[0].attributes, 0x840u);
    EXPECT_EQ(Got("vALUE"), bytes);
    EXPECT_EQ(Got("Empty"), "");

    PrinterRecord renamed = printers[0];
    renamed.name = "Shelf";
    renamed.comment = "moved";
    renamed.deviceMode = bytes;
    EXPECT_EQ(Get().SetPrinter("TRAY", renamed), ERROR_SUCCESS);
    StoredValue value;
    EXPECT_EQ(Get().GetPrinterData("shelf", "Value", value), ERROR_SUCCESS);
    PrinterRecord read;
    EXPECT_EQ(Get().GetPrinter("SHELF", read), ERROR_SUCCESS);
    EXPECT_EQ(read.deviceMode, bytes);
    EXPECT_EQ(read.comment, "moved");
    renamed.name = "zeta";
    EXPECT_EQ(Get().SetPrinter("Shelf", renamed), kErrorPrinterAlreadyExists);

    EXPECT_EQ(Get().RemovePrinter("Shelf"), ERROR_SUCCESS);
    EXPECT_EQ(Get().GetPrinterData("Shelf", "Value", value), ERROR_INVALID_PRINTER_NAME);
    EXPECT_EQ(Get().RemovePrinter("Shelf"), ERROR_INVALID_PRINTER_NAME);
    ASSERT_EQ(Get().AddPrinter(Printer("Tray")), ERROR_SUCCESS);
    EXPECT_EQ(Got(), "error 2") << "a new printer inherits nothing";
}

TEST_F(Store, PrinterDataIsReplacedListedAndDeleted) {
    FillAndClose();
    EXPECT_EQ(Put("second", "VALUE"), ERROR_SUCCESS);
    EXPECT_EQ(Put("x", "Another"), ERROR_SUCCESS);
    std::vector<StoredValue> values;
    ASSERT_EQ(Get().ListPrinterData("tray", values), ERROR_SUCCESS);
    ASSERT_EQ(values.size(), 2u);
    EXPECT_EQ(values[1].name, "Value");
    EXPECT_EQ(values[1].data, "second");
    EXPECT_EQ(Get().DeletePrinterData("Tray", "value"), ERROR_SUCCESS);
    EXPECT_EQ(Get().DeletePrinterData("Tray", "value"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(Get().ListPrinterData("Nobody", values), ERROR_INVALID_PRINTER_NAME);
    EXPECT_EQ(Get().SetPrinterData("Nobody", "v", 1, "x", 1), ERROR_INVALID_PRINTER_NAME);
}

TEST_F(Store, ReadingCreatesNothing) {
    std::vector<PrinterRecord> printers;
    EXPECT_EQ(Get().ListPrinters(printers), ERROR_SUCCESS);
    EXPECT_EQ(Got(), "error 1801");
    EXPECT_FALSE(std::filesystem::exists(State()));
    FillAndClose();
    EXPECT_EQ(ModeOf(State()), 0700u);
    EXPECT_EQ(ModeOf(File()), 0600u);
}

TEST_F(Store, WithoutAStateDirectoryTheErrorSaysWhatToSet) {
    SetStateDirectory({});
    for (const char* name : {"KVPREFS_STATE", "XDG_DATA_HOME", "HOME"}) SetVariable(name, nullptr);
    EXPECT_EQ(Get().AddPrinter(Printer("Tray")), ERROR_PATH_NOT_FOUND);
    EXPECT_NE(Get().LastMessage().find("HOME"), std::string::npos);
    SetVariable("HOME", "/h");
    EXPECT_EQ(StateDirectory(), "/h/.local/share/kvprefs");
    SetVariable("XDG_DATA_HOME", "/x");
    EXPECT_EQ(StateDirectory(), "/x/kvprefs");
    SetVariable("KVPREFS_STATE", "/s/");
    EXPECT_EQ(StateDirectory(), "/s");
}

TEST_F(Store, TransactionsStoreAllOrNothing) {
    FillAndClose();
    {
        StoreTransaction outer(Get());
        ASSERT_EQ(outer.Error(), ERROR_SUCCESS);
        EXPECT_EQ(Put("half"), ERROR_SUCCESS);
    }
    EXPECT_EQ(Got(), "first");
    {
        StoreTransaction outer(Get());
        EXPECT_EQ(Put("whole"), ERROR_SUCCESS);
        StoreTransaction inner(Get());
        EXPECT_EQ(Put("more", "Other"), ERROR_SUCCESS);
        EXPECT_EQ(inner.Commit(), ERROR_SUCCESS);
        EXPECT_EQ(outer.Commit(), ERROR_SUCCESS);
    }
    CloseStateStore();
    EXPECT_EQ(Got() + Got("Other"), "wholemore");
    {
        StoreTransaction outer(Get());
        EXPECT_EQ(Put("lost"), ERROR_SUCCESS);
        { const StoreTransaction abandoned(Get()); }
        EXPECT_NE(outer.Commit(), ERROR_SUCCESS);
    }
    EXPECT_EQ(Got(), "whole");
}

TEST_F(Store, ANewerFileIsRefusedAndLeftAlone) {
    FillAndClose();
    Sql("PRAGMA user_version = 7");
    const std::string before = Read(File());
    EXPECT_EQ(Put("x"), kErrorRevisionMismatch);
    EXPECT_NE(Get().LastMessage().find("newer version"), std::string::npos);
    EXPECT_EQ(Got(), "error " + std::to_string(kErrorRevisionMismatch));
    EXPECT_EQ(Read(File()), before);
}

TEST_F(Store, ADamagedOrForeignFileIsRefusedAndLeftAlone) {
    FillAndClose();
    const std::string good = Read(File());
    std::string torn = good;
    for (std::size_t i = 100; i < torn.size(); ++i) torn[i] = static_cast<char>(i * 7);
    const std::string files[] = {"not a database at all, but long enough to be looked at as one",
                                 std::string(8192, '\0'), good.substr(0, 1000), torn};
    for (const std::string& bytes : files) {
        Write("state/store.sqlite", bytes);
        EXPECT_EQ(Put("x"), kErrorFileCorrupt);
        EXPECT_EQ(Got(), "error " + std::to_string(kErrorFileCorrupt));
        EXPECT_NE(Get().LastMessage().find(File()), std::string::npos);
        EXPECT_EQ(Read(File()), bytes);
        CloseStateStore();
    }
    std::filesystem::remove(File());
    Sql("CREATE TABLE theirs (x)");
    EXPECT_EQ(Put("x"), kErrorFileCorrupt);
    Write("state/store.sqlite", good);
    EXPECT_EQ(Got(), "first");
}

TEST_F(Store, AReadOnlyDirectoryCanBeReadButNotWritten) {
    FillAndClose();
    chmod(File().c_str(), 0644);
    chmod(State().c_str(), 0555);
    {
        const AsOrdinaryUser user;
        EXPECT_EQ(Got(), "first");
        EXPECT_EQ(Put("x"), ERROR_ACCESS_DENIED);
        EXPECT_NE(Get().LastMessage().find("owner and mode"), std::string::npos);
        EXPECT_EQ(Got(), "first");
        CloseStateStore();
    }
    chmod(State().c_str(), 0700);
    EXPECT_EQ(Put("second"), ERROR_SUCCESS);
}

TEST_F(Store, ALockedStoreIsReadAtOnceAndWaitedForOnce) {
    FillAndClose();
    KeyId key = 0;
    bool created = false;
    ASSERT_EQ(Get().CreateKey(kMachineRoot, "Soft", key, created), ERROR_SUCCESS);
    ASSERT_EQ(Get().SetValue(key, "v", REG_SZ, "x", 2), ERROR_SUCCESS);
    CloseStateStore();
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(File().c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    const auto start = std::chrono::steady_clock::now();
    const auto waited = [&] { return std::chrono::steady_clock::now() - start; };
    EXPECT_EQ(Got(), "first");
    EXPECT_EQ(Put("first"), ERROR_SUCCESS) << "what stands there need not be written";
    EXPECT_EQ(Get().SetValue(key, "V", REG_SZ, "x", 2), ERROR_SUCCESS);
    EXPECT_EQ(Put("x"), ERROR_SHARING_VIOLATION);
    EXPECT_GT(waited(), std::chrono::milliseconds(1500));
    EXPECT_NE(Get().LastMessage().find("in use by another program"), std::string::npos);
    for (int more = 0; more < 4; ++more) EXPECT_EQ(Put("x"), ERROR_SHARING_VIOLATION);
    EXPECT_LT(waited(), std::chrono::milliseconds(8000));
    EXPECT_EQ(Got(), "first");
    sqlite3_close(other);
    EXPECT_EQ(Put("second"), ERROR_SUCCESS);
}

TEST_F(Store, ADiskThatIsFullOrBrokenIsNamedAndNothingHalfIsKept) {
    FillAndClose();
    // the file and call that fail, how; the answer and its words
    const struct {
        const char* file;
        Call call;
        int error;
        DWORD answer;
        const char* words;
    } kCases[] = {
        {"-shm", Call::kWrite, ENOSPC, kErrorDiskFull, "the disk is full"},
        {"-wal", Call::kWrite, ENOSPC, kErrorDiskFull, "the disk is full"},
        {"-wal", Call::kWrite, EIO, kErrorIoDevice, "the disk reports an error"},
        {"-wal", Call::kSync, EIO, kErrorIoDevice, "the disk reports an error"},
        {"sqlite", Call::kOpen, EMFILE, kErrorTooManyOpenFiles, "too many files are open"},
    };
    for (const auto& c : kCases) {
        // A program that ends at once leaves the log as it is.
        const pid_t child = fork();
        if (child == 0) {
            // What is written into a log that is in use already is all there when the disk is
            // asked.
            if (c.call == Call::kSync) Put("first", "Another");
            const Fault fault(c.call, c.error, c.file);
            // Reading needs no room.
            if (c.error == ENOSPC && Got() != "first") _exit(1);
            if (Get().AddPrinter(Printer("Other")) != c.answer) _exit(2);
            _exit(Get().LastMessage().find(c.words) == std::string::npos ? 3 : 0);
        }
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(WEXITSTATUS(status), 0) << c.file << " " << c.error;
        std::vector<PrinterRecord> printers;
        EXPECT_EQ(Get().ListPrinters(printers), ERROR_SUCCESS) << Get().LastMessage();
        EXPECT_EQ(printers.size(), 1u) << c.file << " " << c.error;
        CloseStateStore();
    }
}

TEST_F(Store, AReplacedOrRemovedFileIsNoticed) {
    FillAndClose();
    EXPECT_EQ(Got(), "first");
    std::filesystem::remove_all(State());
    EXPECT_EQ(Got(), "error 1801");
    EXPECT_EQ(Get().AddPrinter(Printer("Tray")), ERROR_SUCCESS);
    EXPECT_EQ(Put("again"), ERROR_SUCCESS);
    CloseStateStore();
    EXPECT_EQ(Got(), "again");
}

TEST_F(Store, WhatWasReportedAsWrittenSurvivesAKill) {
    FillAndClose();
    for (int round = 0; round < 8; ++round) {
        int report[2];
        ASSERT_EQ(pipe(report), 0);
        const pid_t child = fork();
        if (child == 0) {
            for (int count = 1;; ++count) {
                if (Put(std::to_string(count)) != ERROR_SUCCESS) _exit(1);
                if (write(report[1], &count, sizeof count) != sizeof count) _exit(1);
            }
        }
        close(report[1]);
        usleep(static_cast<useconds_t>(20000 + 7000 * round));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        int last = 0;
        while (read(report[0], &last, sizeof last) == sizeof last) {
        }
        close(report[0]);
        const std::string stored = Got();
        if (last > 0) {
            EXPECT_TRUE(stored == std::to_string(last) || stored == std::to_string(last + 1))
                << stored << " after " << last;
        }
        CloseStateStore();
    }
}

TEST_F(Store, AForkedChildDoesNotDisturbItsParentsConnection) {
    FillAndClose();
    EXPECT_EQ(Put("parent"), ERROR_SUCCESS);
    const pid_t child = fork();
    if (child == 0) {
        const bool done = Got() == "parent" && Put("child") == ERROR_SUCCESS;
        CloseStateStore();
        _exit(done ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(Got(), "child");
    EXPECT_EQ(Put("both"), ERROR_SUCCESS);
}

}  // namespace
}  // namespace kv::test
