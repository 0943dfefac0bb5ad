// The settings records on the disk: what is refused, what is kept, and where the files lie.
#include <framework/core/install_printer.h>
#include <gtest/gtest.h>
#include <host/host_paths.h>
#include <host/record/record_check.h>
#include <host/record/record_store.h>
#include <host/controls/session.h>
#include <platform/registry/state_store.h>
#include <platform/shell/folder_lock.h>
#include <platform/shell/paths.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>

#include "tests/support/faults.h"

namespace kvhost {
namespace {

namespace fs = std::filesystem;
using kv::test::Call;

class RecordStoreTest : public testing::Test {
 protected:
    void SetUp() override {
        char folder[] = "/tmp/kvrecordXXXXXX";
        ASSERT_NE(mkdtemp(folder), nullptr);
        state_ = folder;
        kv::SetStateDirectory(state_);
        std::string error;
        ASSERT_TRUE(kvcore::InstallPrinter({kName, "USB001"}, DataPath("models"), error)) << error;
        ASSERT_TRUE(kvcore::MakePrinterBlock(kName, printer_, error)) << error;
    }
    void TearDown() override {
        kv::SetStateDirectory({});
        fs::remove_all(state_);
    }
    Record Load(std::string& warning) {
        Record record{};
        std::string error;
        EXPECT_TRUE(RecordStore(kName).Load(printer_, record, warning, error)) << error;
        return record;
    }
    Record Defaults() {
        std::string warning;
        return Load(warning);
    }

    static constexpr char kName[] = "Hall/3.. 50%";
    std::string state_;
    PrinterBlock printer_{};
};

TEST_F(RecordStoreTest, EveryNameHasItsOwnFileInTheRecordsFolder) {
    const char* const kNames[] = {"../../etc/passwd", ".", "a/b", "a%2Fb", "a_b", "A_B", "\xE4"};
    std::vector<std::string> paths;
    for (const char* name : kNames) {
        const fs::path path = RecordStore(name).path();
        EXPECT_EQ(path.parent_path(), fs::path(state_) / "records") << name;
        for (const std::string& other : paths) EXPECT_NE(path, other) << name;
        paths.push_back(path);
    }
}

TEST_F(RecordStoreTest, OnlyValuesInTheBoundsInForceAreTakenAndTheRestOfTheRecordIsKept) {
    const Record good = Defaults();
    ASSERT_EQ(CheckRecord(good.data(), good.size()), "");
    for (const size_t head : {offsetof(DEVMODEA, dmSize), offsetof(DEVMODEA, dmDriverExtra)}) {
        Record record = good;
        ++record[head];
        EXPECT_EQ(CheckRecord(record.data(), record.size()).rfind("dm", 0), 0u) << head;
    }
    constexpr size_t kCopies = offsetof(DEVMODEA, dmCopies);
    constexpr SHORT kDefaultPaper = -2;
    const char* const kForced =
        "[ConflictConditions]\nComboNup0=(2),0,0,(EditCopies,0,0,(1,2),1500)";
    // rules, field, offset, stored value, what is used
    const struct {
        const char* rules;
        const char* field;
        size_t offset;
        SHORT value;
        SHORT used;
    } kCases[] = {
        {"", "dmOrientation", offsetof(DEVMODEA, dmOrientation), 0, 1},
        {"", "dmOrientation", offsetof(DEVMODEA, dmOrientation), 2, 2},
        {"", "dmPaperSize", offsetof(DEVMODEA, dmPaperSize), -1, kDefaultPaper},
        {"", "dmPaperSize", offsetof(DEVMODEA, dmPaperSize), 32767, 32767},
        {"", "dmColor", offsetof(DEVMODEA, dmColor), 3, 2},
        {"", "dmDuplex", offsetof(DEVMODEA, dmDuplex), 4, 1},
        {"", "dmCopies", kCopies, 999, 999},
        {"", "dmCopies", kCopies, 1000, 1},
        {"[EditAttribute]\nEditCopies=4,1,9999", "dmCopies", kCopies, 5000, 5000},
        {"[EditAttribute]\nEditCopies=4,1,9999", "dmCopies", kCopies, 10000, 1},
        {"[EditAttribute]\nEditCopies=3,0,999", "dmCopies", kCopies, 0, 0},
        {"[EditAttribute]\nEditCopies=3,0,0", "dmCopies", kCopies, 0, 1},
        {"[EditAttribute]\nEditCopies=3,0,999,1", "dmCopies", kCopies, 0, 1},
        {"[EditAttribute]\nEditCopies=2,5,20", "dmCopies", kCopies, 3, 5},
        {kForced, "dmCopies", kCopies, 1500, 1500},
        {kForced, "dmCopies", kCopies, 1501, 1},
    };
    for (const auto& c : kCases) {
        std::ofstream(state_ + "/driver/3/KVUIMOD.ini") << c.rules << '\n';
        Record stored = good;
        stored[offsetof(DEVMODEA, dmScale)] = 77;
        Record expected = stored;
        std::memcpy(stored.data() + c.offset, &c.value, sizeof c.value);
        if (c.used != kDefaultPaper) {
            std::memcpy(expected.data() + c.offset, &c.used, sizeof c.used);
        }
        std::string error;
        ASSERT_TRUE(RecordStore(kName).Store(stored, error)) << error;
        Session session;
        testing::internal::CaptureStderr();
        EXPECT_TRUE(session.Open({}));
        const std::string told = testing::internal::GetCapturedStderr();
        EXPECT_EQ(session.record(), expected) << c.rules << " " << c.field << "=" << c.value;
        EXPECT_EQ(session.stored(), stored) << c.field;
        EXPECT_EQ(told.find(std::string(c.field) + " is " + std::to_string(c.value)) != told.npos,
                  c.used != c.value)
            << told;
    }
}

TEST_F(RecordStoreTest, AHugeFileIsPutAside) {
    const Record defaults = Defaults();
    RecordStore store(kName);
    std::string error;
    ASSERT_TRUE(store.Store(defaults, error)) << error;
    fs::resize_file(store.path(), std::uintmax_t{1} << 40);  // without blocks on the disk
    std::string warning;
    EXPECT_EQ(Load(warning), defaults);
    EXPECT_NE(warning.find("larger than 1296 bytes"), std::string::npos) << warning;
    EXPECT_EQ(fs::file_size(store.path() + ".bad1"), std::uintmax_t{1} << 40);
    ASSERT_TRUE(store.Store(defaults, error)) << error;
    warning.clear();
    EXPECT_EQ(Load(warning), defaults);
    EXPECT_EQ(warning, "");
}

TEST_F(RecordStoreTest, ARecordThatCannotBeReadIsSaidAndNothingIsTouched) {
    const Record defaults = Defaults();
    Record record = defaults;
    Record found{};
    record[200] ^= 1;
    RecordStore store(kName);
    std::string error;
    ASSERT_TRUE(store.Store(record, error)) << error;
    const std::string kept = state_ + "/kept";
    // the call that fails, how; the kind of file that stands there instead; how it is said
    const struct {
        Call call;
        int error;
        mode_t kind;
        const char* words;
    } kCases[] = {
        {Call::kOpen, EMFILE, 0, "too many files are open"},
        {Call::kOpen, EACCES, 0, "check its owner and mode"},
        {Call::kRead, EIO, 0, "the disk reports an error"},
        {Call::kRead, ENOMEM, 0, "not enough memory"},
        {Call::kOpen, 0, S_IFDIR, "expected a file"},
        {Call::kOpen, 0, S_IFIFO, "expected a file"},
    };
    for (const auto& [call, number, kind, words] : kCases) {
        for (const bool storing : {false, true}) {
            std::optional<kv::test::Fault> fault;
            if (number != 0) fault.emplace(call, number, ".record");
            if (kind != 0) fs::rename(store.path(), kept);
            if (kind == S_IFDIR) fs::create_directory(store.path());
            if (kind == S_IFIFO) mkfifo(store.path().c_str(), 0600);
            error.clear();
            if (storing) {
                EXPECT_EQ(store.StoreUnlessChanged(record, defaults, found, error),
                          RecordStore::Outcome::kFailed);
            } else {
                Session session;
                testing::internal::CaptureStderr();
                EXPECT_FALSE(session.Open({}));
                error = testing::internal::GetCapturedStderr();
                EXPECT_EQ(std::count(error.begin(), error.end(), '\n'), 1) << error;
            }
            EXPECT_NE(error.find(words), error.npos) << error;
            fault.reset();
            if (kind != 0) {
                fs::remove(store.path());
                fs::rename(kept, store.path());
            }
            ASSERT_EQ(store.Read(found, error), RecordStore::Found::kGood) << error;
            EXPECT_EQ(found, record);
        }
    }
    const auto files = fs::directory_iterator(fs::path(state_) / "records");
    EXPECT_EQ(std::distance(begin(files), end(files)), 1);
}

TEST_F(RecordStoreTest, ARecordThatCannotBeWrittenLeavesTheOldOneAndNothingElse) {
    Record record = Defaults();
    RecordStore store(kName);
    std::string error;
    ASSERT_TRUE(store.Store(record, error)) << error;
    // A folder with something in it cannot be replaced by a file.
    fs::rename(store.path(), state_ + "/kept");
    fs::create_directories(store.path() + "/full");
    record[200] ^= 1;
    EXPECT_FALSE(store.Store(record, error));
    EXPECT_NE(error.find(store.path()), std::string::npos) << error;
    const auto files = fs::directory_iterator(fs::path(state_) / "records");
    EXPECT_EQ(std::distance(begin(files), end(files)), 1) << "a temporary file was left";

    fs::remove_all(fs::path(state_) / "records");
    std::ofstream(state_ + "/records") << "a file where the folder should be";
    error.clear();
    EXPECT_FALSE(store.Store(record, error));
    EXPECT_FALSE(error.empty());
}

TEST_F(RecordStoreTest, AKilledWriterLeavesTheOldOrTheNewRecordAndTheNextOneClearsUp) {
    const auto content = [](BYTE mark) {
        Record record;
        record.fill(mark);
        return record;
    };
    RecordStore store(kName);
    std::string error;
    ASSERT_TRUE(store.Store(content(0), error)) << error;
    const std::string abandoned = store.path() + ".new123456789";
    std::ofstream(abandoned) << "half a rec";
    const std::string others = state_ + "/records/Other.record.new123456789";
    std::ofstream(others) << "not ours";
    for (int round = 0; round < 10; ++round) {
        const pid_t child = fork();
        if (child == 0) {
            for (BYTE mark = 1;; ++mark) store.Store(content(mark), error);
        }
        usleep(static_cast<useconds_t>(3000 + 1700 * round));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        std::string bytes;
        ASSERT_TRUE(ReadWholeFile(store.path(), kRecordBytes, bytes, error)) << error;
        ASSERT_EQ(bytes, std::string(kRecordBytes, bytes[0])) << "round " << round;
    }
    ASSERT_TRUE(store.Store(content(1), error)) << error;
    const auto files = fs::directory_iterator(fs::path(state_) / "records");
    EXPECT_EQ(std::distance(begin(files), end(files)), 2);
    EXPECT_TRUE(fs::exists(others));
}

TEST_F(RecordStoreTest, WhyARecordCannotBeStoredIsSaidInWords) {
    const Record record = Defaults();
    Record found{};
    RecordStore store(kName);
    std::string error;
    ASSERT_TRUE(store.Store(record, error)) << error;
    const std::string fresh = ".new" + std::to_string(getpid());
    const auto storing = [&] {
        error.clear();
        EXPECT_FALSE(store.Store(Record{}, error));
        return error;
    };
    {
        const kv::test::Fault fault(Call::kWrite, ENOSPC, fresh);
        EXPECT_EQ(storing(), store.path() + ": the disk is full");
    }
    {
        const kv::test::Fault fault(Call::kSync, EIO, fresh);
        EXPECT_EQ(storing(), store.path() + ": the disk reports an error");
    }
    {
        const kv::FolderLock other(kv::FolderOf(store.path()));
        EXPECT_NE(storing().find("another program is storing there"), error.npos) << error;
        EXPECT_EQ(store.Read(found, error), RecordStore::Found::kGood)
            << "reading waits for nobody";
    }
    EXPECT_EQ(store.Read(found, error), RecordStore::Found::kGood);
    EXPECT_EQ(found, record);
}

}  // namespace
}  // namespace kvhost
