// The list service: scopes, rights, ids, commit and cancel, and stored lists that are damaged.
#include <kvlist.h>

#include <platform/registry/state_store.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <set>
#include <span>
#include <vector>

#include "tests/support/printer_fixture.h"
#include "tests/support/registry.h"

namespace kvtest {
namespace {

constexpr int kDescribedPapers = 25;

class Lists : public PrinterTest {
 protected:
    static CustomPaperRecord Paper(DWORD id, const char* name) {
        CustomPaperRecord record;
        std::memset(&record, 0x5A, sizeof record);  // odd bytes everywhere must come back
        record.id = id;
        std::snprintf(record.displayName, sizeof record.displayName, "%s", name);
        return record;
    }
    int AddTo(DWORD scope, DWORD id, const char* name) {
        CustomPaperRecord record = Paper(id, name);
        return QDMMLTAddPaper(papers, &printer, &record, scope);
    }
    void Commit() {
        EXPECT_TRUE(QDMMLTWritePaper(papers, &printer));
        papers = QDMMLTReadPaper(&printer);
    }
    void Drop() {
        EXPECT_TRUE(QDMMLTCancelPaper(papers, &printer));
        papers = QDMMLTReadPaper(&printer);
    }
    void SetUp() override {
        PrinterTest::SetUp();
        papers = QDMMLTReadPaper(&printer);
        ASSERT_TRUE(papers);
    }
    void TearDown() override { QDMMLTCancelPaper(papers, &printer); }
    // Names of user-defined papers of a scope, in stored order.
    std::vector<std::string> Names(DWORD scope) {
        std::vector<CustomPaperRecord> all(QDMMLTGetPaperNum(papers, &printer, scope));
        QDMMLTGetPaperArray(papers, &printer, all.data(), scope);
        std::vector<std::string> names;
        for (const CustomPaperRecord& record : all) {
            if (record.id >= 512) names.push_back(record.displayName);
        }
        return names;
    }

    // As a list is stored.
    static std::string Stored(DWORD recordSize, DWORD count, const std::string& records) {
        return "KVL1" + BytesOf(std::array<DWORD, 3>{recordSize, count, 0}) + records;
    }

    ListHandle papers{};
};

TEST_F(Lists, DescribedPapersBeginTheCommonListAndStayAsTheyAre) {
    ASSERT_EQ(QDMMLTGetPaperNum(papers, &printer, kScopeCommon), kDescribedPapers);
    std::vector<CustomPaperRecord> all(kDescribedPapers);
    EXPECT_EQ(QDMMLTGetPaperArray(papers, &printer, all.data(), kScopeCommon), kDescribedPapers);
    EXPECT_EQ(all[0].id, 9u);
    EXPECT_EQ(all[0].unit, 0u);
    EXPECT_EQ(all[0].kept[0], 42u);
    CustomPaperRecord letter{};
    ASSERT_TRUE(QDMMLTGetPaperWithID(papers, &printer, &letter, 1));
    EXPECT_STREQ(letter.displayName, "Letter (8 1/2 x 11 inch)");
    EXPECT_EQ(letter.widthTenths, 2159u);
    EXPECT_EQ(letter.widthInches, 8u << 16 | 8);
    EXPECT_EQ(letter.heightInches, 11u << 16);
    CustomPaperRecord monarch{};
    ASSERT_TRUE(QDMMLTGetPaperWithID(papers, &printer, &monarch, 37));
    EXPECT_EQ(monarch.widthInches, 3u << 16 | 14);
    letter.unit = 0;
    EXPECT_FALSE(QDMMLTUpdatePaper(papers, &printer, &letter));
    EXPECT_FALSE(QDMMLTDeletePaper(papers, &printer, 1));
}

TEST_F(Lists, ScopesTellCommonEntriesFromTheUsersOwn) {
    ASSERT_TRUE(AddTo(2, 512, "mine"));
    ASSERT_TRUE(AddTo(1, 513, "ours"));
    EXPECT_THAT(Names(kScopeCommon), testing::ElementsAre("ours"));
    for (DWORD scope : {kScopeCommonAndOwn, kScopeUser, kScopeAdministrator}) {
        EXPECT_THAT(Names(scope), testing::ElementsAre("ours", "mine")) << scope;
    }
    EXPECT_EQ(QDMMLTGetPaperNum(papers, &printer, 5), 0);
    EXPECT_EQ(QDMMLTGetPaperID(papers, 512, 0x7FFFFFFF), 514u);
    EXPECT_EQ(QDMMLTGetPaperID(papers, 512, 513), 0u) << "the range is used up";
    EXPECT_FALSE(AddTo(1, 513, "again"));
    EXPECT_FALSE(AddTo(2, 511, "an id of the description"));
    EXPECT_FALSE(AddTo(7, 600, "no scope to add in"));
}

TEST_F(Lists, CommonEntriesBelongToAdministrators) {
    AddTo(1, 512, "ours");
    Commit();
    Act(Actor::kUser);
    EXPECT_FALSE(AddTo(1, 513, "x"));
    CustomPaperRecord changed = Paper(512, "changed");
    EXPECT_FALSE(QDMMLTUpdatePaper(papers, &printer, &changed));
    EXPECT_FALSE(QDMMLTDeletePaper(papers, &printer, 512));
    ASSERT_TRUE(AddTo(2, 513, "mine"));
    Commit();
    EXPECT_THAT(Names(kScopeUser), testing::ElementsAre("ours", "mine"));
    ASSERT_TRUE(QDMMLTDeletePaper(papers, &printer, 513));
    Commit();
    EXPECT_THAT(Names(kScopeUser), testing::ElementsAre("ours"));
}

TEST_F(Lists, CancelDropsAndWriteKeepsEveryByte) {
    AddTo(1, 512, "dropped");
    Drop();
    EXPECT_THAT(Names(kScopeCommonAndOwn), testing::IsEmpty());
    AddTo(2, 700, "kept");
    Commit();
    CustomPaperRecord stored{};
    ASSERT_TRUE(QDMMLTGetPaperWithID(papers, &printer, &stored, 700));
    const CustomPaperRecord given = Paper(700, "kept");
    EXPECT_EQ(std::memcmp(&stored, &given, sizeof given), 0);
    stored.kept[3] = 25;
    EXPECT_TRUE(QDMMLTUpdatePaper(papers, &printer, &stored));
    Commit();
    CustomPaperRecord again{};
    QDMMLTGetPaperWithID(papers, &printer, &again, 700);
    EXPECT_EQ(again.kept[3], 25u);
}

TEST_F(Lists, AHandleEndsWithItsCopyAndServesOneKindOnly) {
    EXPECT_EQ(QDMMLTGetWatermarkNum(papers, &printer, kScopeCommon), 0);
    EXPECT_FALSE(QDMMLTCancelWatermark(papers, &printer));
    const ListHandle old = papers;
    Drop();
    EXPECT_EQ(QDMMLTGetPaperNum(old, &printer, kScopeCommon), 0);
    EXPECT_FALSE(QDMMLTWritePaper(old, &printer));
    EXPECT_EQ(QDMMLTGetPaperID(nullptr, 512, 600), 0u);
    EXPECT_FALSE(QDMMLTReadBin(&printer, 2));
    EXPECT_FALSE(QDMMLTReadPaper(nullptr));
}

TEST_F(Lists, TextWithoutEndIsRefused) {
    CustomPaperRecord record = Paper(512, "x");
    std::memset(record.displayName, 'x', sizeof record.displayName);
    EXPECT_FALSE(QDMMLTAddPaper(papers, &printer, &record, 1));
}

TEST_F(Lists, AListThatCannotBeReadIsNoEmptyOne) {
    CustomPaperRecord endless = Paper(600, "");
    std::memset(endless.displayName, 'x', sizeof endless.displayName);
    const std::string good = BytesOf(Paper(600, "good"));
    const std::pair<DWORD, std::string> cases[] = {
        {REG_BINARY, ""},
        {REG_BINARY, "KVL1"},
        {REG_BINARY, Stored(168, 2, good)},
        {REG_BINARY, Stored(168, 0xFFFFFFFF, good)},
        {REG_BINARY, Stored(344, 1, good)},
        {REG_BINARY, Stored(0, 5, "")},
        {REG_BINARY, std::string((1 << 20) - 7, 'x')},
        {REG_SZ, Stored(168, 1, good)},
        {REG_BINARY, Stored(168, 1, BytesOf(endless))},
        {REG_BINARY, Stored(168, 1, BytesOf(Paper(9, "not the user's")))},
        {REG_BINARY, Stored(168, 2, good + good)},
    };
    const char own[] = "Software\\Varnell\\Tessora\\Lists\\Office Tessora";
    for (const auto& [type, bytes] : cases) {
        SCOPED_TRACE(bytes.substr(0, 20));
        ASSERT_EQ(Put("KVList.Papers", type, bytes), ERROR_SUCCESS);
        EXPECT_FALSE(QDMMLTReadPaper(&printer));
        Put("KVList.Papers", REG_BINARY, Stored(168, 1, good));
        PutRegistryValue(HKEY_CURRENT_USER, own, "Papers", type, bytes);
        EXPECT_FALSE(QDMMLTReadPaper(&printer)) << "of the user's own";
        RegDeleteKeyA(HKEY_CURRENT_USER, own);
    }
    Drop();
    EXPECT_THAT(Names(kScopeUser), testing::ElementsAre("good"));
}

// Neither more than the reader takes nor, for large records, more bytes.
TEST_F(Lists, WhatCouldNotBeReadAgainIsRefusedWhenItIsWritten) {
    constexpr int kMost = 4096;
    for (int i = 0; i < kMost; ++i) ASSERT_TRUE(AddTo(2, 512 + static_cast<DWORD>(i), "many"));
    Commit();
    ASSERT_EQ(Names(kScopeUser).size(), static_cast<size_t>(kMost));
    for (const DWORD scope : {2, 1}) {
        const ListHandle marks = QDMMLTReadWatermark(&printer);
        ASSERT_TRUE(marks);
        WatermarkRecord mark{};
        for (mark.id = 128; mark.id < 128 + 3100; ++mark.id) {
            ASSERT_TRUE(QDMMLTAddWatermark(marks, &printer, &mark, scope));
        }
        EXPECT_FALSE(QDMMLTWriteWatermark(marks, &printer)) << scope;
    }
    ASSERT_TRUE(AddTo(2, 512 + kMost, "one too many"));
    EXPECT_FALSE(QDMMLTWritePaper(papers, &printer));
    papers = QDMMLTReadPaper(&printer);
    EXPECT_EQ(Names(kScopeUser).size(), static_cast<size_t>(kMost)) << "what was stored is kept";
}

TEST_F(Lists, AnOwnEntryWhoseIdBecameCommonGetsAnother) {
    AddTo(2, 512, "mine");
    AddTo(2, 0x4000, "private");
    Commit();
    Put("KVList.Papers", REG_BINARY, Stored(168, 1, BytesOf(Paper(512, "ours"))));
    Drop();
    const ListHandle other = QDMMLTReadPaper(&printer);
    EXPECT_THAT(Names(kScopeUser), testing::ElementsAre("ours", "mine", "private"));
    CustomPaperRecord record{};
    ASSERT_TRUE(QDMMLTGetPaperWithID(papers, &printer, &record, 0x4001));
    EXPECT_STREQ(record.displayName, "mine");
    ASSERT_TRUE(QDMMLTGetPaperWithID(papers, &printer, &record, 0x4000)) << "keeps its id";
    EXPECT_STREQ(record.displayName, "private");
    ASSERT_TRUE(AddTo(2, 0x4002, "new"));
    Commit();
    EXPECT_THAT(Names(kScopeUser), testing::ElementsAre("ours", "private", "mine", "new"));
    record = Paper(0x4001, "changed");
    ASSERT_TRUE(QDMMLTUpdatePaper(papers, &printer, &record));
    Commit();
    ASSERT_TRUE(QDMMLTWritePaper(other, &printer)) << "which mended the same";
    Drop();
    EXPECT_THAT(Names(kScopeUser), testing::ElementsAre("ours", "private", "changed", "new"));
}

// Ids go round: when the last one was given, those that no entry has are given again, in turn.
TEST_F(Lists, IdsAreGivenAgainWhenAllWereAndNeverTwiceInARow) {
    const auto next = [&](ListHandle list) { return QDMMLTGetPaperID(list, 512, 0x7FFFFFFF); };
    ASSERT_TRUE(AddTo(1, 512, "read by both"));
    Commit();
    const ListHandle other = QDMMLTReadPaper(&printer);
    ASSERT_TRUE(AddTo(1, 514, "unseen by the other"));
    Commit();
    for (const DWORD stored : {0x4000u, 0xFFFFFFFFu}) {
        ASSERT_EQ(PutNumber("KVList.Papers.Next", stored), ERROR_SUCCESS);
        EXPECT_EQ(next(other), 513u);
        EXPECT_EQ(next(other), 515u) << "behind one that it does not know";
        EXPECT_EQ(next(papers), 516u);
    }
    ASSERT_EQ(PutNumber("KVList.Papers.Next", 0x3FFF), ERROR_SUCCESS);
    EXPECT_EQ(next(other), 0x3FFFu) << "the last one that fits common papers";
    EXPECT_EQ(next(other), 513u);
    ASSERT_EQ(Put("KVList.Papers", REG_BINARY, "damaged"), ERROR_SUCCESS);
    EXPECT_EQ(next(papers), 0u) << "what is taken cannot be known";
    QDMMLTCancelPaper(other, &printer);
}

// Two people at one list: what either did is there afterwards.
TEST_F(Lists, AWriteAppliesWhatWasChangedToWhatIsStoredNow) {
    for (const DWORD id : {600, 601, 602, 603}) {
        ASSERT_TRUE(AddTo(1, id, std::to_string(id).c_str()));
    }
    Commit();
    const ListHandle other = QDMMLTReadPaper(&printer);
    const auto change = [&](ListHandle list, DWORD id, const char* name) {
        const CustomPaperRecord record = Paper(id, name);
        ASSERT_TRUE(QDMMLTUpdatePaper(list, &printer, &record));
    };
    const auto add = [&](ListHandle list, const char* name, DWORD scope) {
        CustomPaperRecord record = Paper(QDMMLTGetPaperID(list, 512, 0x7FFFFFFF), name);
        EXPECT_TRUE(QDMMLTAddPaper(list, &printer, &record, scope));
        return record.id;
    };
    const DWORD mine = add(papers, "mine", 1), theirs = add(other, "theirs", 1);
    EXPECT_NE(mine, theirs);
    add(other, "own", 2);
    change(papers, 600, "first");
    change(other, 600, "later");
    change(papers, 601, "changed");
    EXPECT_TRUE(QDMMLTDeletePaper(papers, &printer, 602));
    EXPECT_TRUE(QDMMLTDeletePaper(papers, &printer, 603));
    change(other, 602, "comes back");
    Commit();
    EXPECT_TRUE(QDMMLTWritePaper(other, &printer));
    Drop();
    EXPECT_THAT(Names(kScopeUser),
                testing::ElementsAre("later", "changed", "mine", "comes back", "theirs", "own"));
    // An id is not given again, so that no settings come upon another paper by it.
    EXPECT_TRUE(QDMMLTDeletePaper(papers, &printer, theirs));
    Commit();
    EXPECT_GT(QDMMLTGetPaperID(papers, 512, 0x7FFFFFFF), theirs);

    ASSERT_TRUE(AddTo(1, 700, "late"));
    ASSERT_EQ(Put("KVList.Papers", REG_BINARY, "damaged"), ERROR_SUCCESS);
    EXPECT_FALSE(QDMMLTWritePaper(papers, &printer)) << "what cannot be read is not overwritten";
    kv::StoredValue stored;
    kv::StateStore::Get().GetPrinterData(printer.printerName, "KVList.Papers", stored);
    EXPECT_EQ(stored.data, "damaged");
    papers = nullptr;
}

// The angle of a diagonal watermark is worked out by every reader: it undoes no change of others.
TEST_F(Lists, WhatIsDerivedIsNoChangeOfAnEntry) {
    ListHandle marks = QDMMLTReadWatermark(&printer);
    WatermarkRecord record{};
    record.id = 128;
    record.angleMode = 2;
    ASSERT_TRUE(QDMMLTAddWatermark(marks, &printer, &record, 1));
    ASSERT_TRUE(QDMMLTWriteWatermark(marks, &printer));
    marks = QDMMLTReadWatermark(&printer);
    const ListHandle other = QDMMLTReadWatermark(&printer);
    record.angle = 35;
    ASSERT_TRUE(QDMMLTUpdateWatermark(marks, &printer, &record));
    record.angle = 0;
    std::strcpy(record.name, "renamed");
    ASSERT_TRUE(QDMMLTUpdateWatermark(other, &printer, &record));
    ASSERT_TRUE(QDMMLTWriteWatermark(other, &printer));
    ASSERT_TRUE(QDMMLTWriteWatermark(marks, &printer));
    marks = QDMMLTReadWatermark(&printer);
    ASSERT_TRUE(QDMMLTGetWatermarkWithID(marks, &printer, &record, 128));
    EXPECT_STREQ(record.name, "renamed");
    EXPECT_EQ(record.angle, 35);
    QDMMLTCancelWatermark(marks, &printer);
}

// Eight writers, two of which are killed in the middle of it.
TEST_F(Lists, NoEntryIsLostAmongManyWritersAndKilledOnes) {
    const char* many = std::getenv("KV_MANY");
    const int count = 25 * (many != nullptr ? std::max(1, std::atoi(many)) : 1);
    constexpr int kWriters = 8, kKilled = 2;
    int report[2];
    ASSERT_EQ(pipe(report), 0);
    QDMMLTCancelPaper(papers, &printer);
    kv::CloseStateStore();
    pid_t children[kWriters];
    for (pid_t& child : children) {
        const bool isKilled = &child - children < kKilled;
        child = fork();
        if (child != 0) continue;
        for (int done = 0; isKilled || done < count;) {
            papers = QDMMLTReadPaper(&printer);
            const DWORD id = QDMMLTGetPaperID(papers, 512, 0x7FFFFFFF);
            if (id == 0 || !AddTo(1, id, "many") || !QDMMLTWritePaper(papers, &printer)) continue;
            if (write(report[1], &id, sizeof id) != sizeof id) _exit(1);
            ++done;
        }
        kv::CloseStateStore();
        _exit(0);
    }
    close(report[1]);
    std::vector<DWORD> reported;
    DWORD id = 0;
    while (read(report[0], &id, sizeof id) == sizeof id) {
        reported.push_back(id);
        if (reported.size() == 20) {
            for (int i = 0; i < kKilled; ++i) kill(children[i], SIGKILL);
        }
    }
    close(report[0]);
    for (int i = 0; i < kWriters; ++i) {
        int status = 0;
        waitpid(children[i], &status, 0);
        EXPECT_EQ(status, i < kKilled ? SIGKILL : 0);
    }
    papers = QDMMLTReadPaper(&printer);
    ASSERT_TRUE(papers);
    EXPECT_GE(reported.size(), static_cast<size_t>((kWriters - kKilled) * count));
    EXPECT_EQ(std::set<DWORD>(reported.begin(), reported.end()).size(), reported.size());
    CustomPaperRecord record{};
    for (const DWORD wanted : reported) {
        EXPECT_TRUE(QDMMLTGetPaperWithID(papers, &printer, &record, wanted)) << wanted;
    }
}

// One writer after the other is killed at another moment of its work: KV_MANY=100 makes 10,000.
TEST_F(Lists, AKillAtAnyMomentLosesNoReportedEntry) {
    const char* many = std::getenv("KV_MANY");
    const int rounds = 100 * (many != nullptr ? std::max(1, std::atoi(many)) : 1);
    for (int round = 0; round < rounds; ++round) {
        QDMMLTCancelPaper(papers, &printer);
        kv::CloseStateStore();
        int report[2];
        ASSERT_EQ(pipe(report), 0);
        const pid_t child = fork();
        for (DWORD scope = 1; child == 0; scope = 3 - scope) {
            papers = QDMMLTReadPaper(&printer);
            const DWORD id = QDMMLTGetPaperID(papers, 512, 0x7FFFFFFF);
            if (id == 0 || !AddTo(scope, id, "kept") || !AddTo(3 - scope, id + 0x4000, "kept") ||
                !QDMMLTWritePaper(papers, &printer) ||
                write(report[1], &id, sizeof id) != sizeof id) {
                _exit(1);
            }
        }
        close(report[1]);
        // From its first entry on, which is in however little of the machine it gets.
        DWORD id = 0;
        ASSERT_EQ(read(report[0], &id, sizeof id), ssize_t{sizeof id});
        usleep(static_cast<useconds_t>(round * 37 % 3000));
        kill(child, SIGKILL);
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_EQ(status, SIGKILL) << "a write was refused";
        papers = QDMMLTReadPaper(&printer);
        ASSERT_TRUE(papers);
        do {
            EXPECT_TRUE(QDMMLTDeletePaper(papers, &printer, id)) << id;
            EXPECT_TRUE(QDMMLTDeletePaper(papers, &printer, id + 0x4000)) << id;
        } while (read(report[0], &id, sizeof id) == sizeof id);
        close(report[0]);
        // What was written last and not reported: both parts or none.
        std::vector<CustomPaperRecord> left(QDMMLTGetPaperNum(papers, &printer, kScopeUser));
        QDMMLTGetPaperArray(papers, &printer, left.data(), kScopeUser);
        std::erase_if(left, [](const CustomPaperRecord& record) { return record.id < 512; });
        EXPECT_TRUE(left.size() == 0 || left.size() == 2) << left.size();
        for (const CustomPaperRecord& record : left) {
            EXPECT_TRUE(QDMMLTDeletePaper(papers, &printer, record.id));
        }
        Commit();
    }
}

TEST_F(Lists, UsersMayTurnADiagonalWatermarkInTheirCopyOnly) {
    Act(Actor::kUser);
    ListHandle marks = QDMMLTReadWatermark(&printer);
    WatermarkRecord record{};
    ASSERT_TRUE(QDMMLTGetWatermarkWithID(marks, &printer, &record, 0)) << "no watermark";
    EXPECT_STREQ(record.name, "<NONE>");
    ASSERT_TRUE(QDMMLTGetWatermarkWithID(marks, &printer, &record, 1));
    EXPECT_STREQ(record.text, "CONFIDENTIAL");
    EXPECT_EQ(record.angleMode, 2);
    record.angle = 54;
    EXPECT_TRUE(QDMMLTUpdateWatermark(marks, &printer, &record));
    record.size = 10;
    EXPECT_FALSE(QDMMLTUpdateWatermark(marks, &printer, &record));
    QDMMLTGetWatermarkWithID(marks, &printer, &record, 1);
    EXPECT_EQ(record.angle, 54);
    EXPECT_TRUE(QDMMLTWriteWatermark(marks, &printer)) << "nothing to store needs no rights";
    marks = QDMMLTReadWatermark(&printer);
    QDMMLTGetWatermarkWithID(marks, &printer, &record, 1);
    EXPECT_EQ(record.angle, 45);
    QDMMLTCancelWatermark(marks, &printer);
}

class Bins : public PrinterTest {
 protected:
    std::vector<DWORD> Sources(ListHandle list) {
        std::vector<BinRecord> all(QDMMLTGetBinNum(list, &printer));
        QDMMLTGetBinArray(list, &printer, all.data());
        std::vector<DWORD> ids;
        for (const BinRecord& bin : all) ids.push_back(bin.identifier);
        return ids;
    }
};

TEST_F(Bins, AListBeginsWithAllSourcesAndHoldsWhatWasWritten) {
    ListHandle first = QDMMLTReadBin(&printer, 0);
    // Readers leave out those whose option is missing.
    EXPECT_THAT(Sources(first), testing::ElementsAre(7, 1, 2, 3, 5, 11, 4));
    BinRecord described[64];
    ASSERT_EQ(QDMMLTLoadQDDBinInfo(first, &printer, described, 0), 7);
    EXPECT_STREQ(described[2].displayName, "Tray 2");
    EXPECT_STREQ(described[2].optionItem, "BinTray2");
    EXPECT_EQ(QDMMLTLoadQDDBinInfo(first, &printer, described, 2), 0);

    for (const BinRecord& bin : std::span(described, 7)) {
        EXPECT_TRUE(QDMMLTDeleteBin(first, &printer, &bin));
    }
    EXPECT_TRUE(QDMMLTWriteBin(first, &printer, 0));
    first = QDMMLTReadBin(&printer, 0);
    EXPECT_THAT(Sources(first), testing::IsEmpty());
    for (const int i : {1, 6, 2}) EXPECT_TRUE(QDMMLTAddBin(first, &printer, &described[i]));
    EXPECT_FALSE(QDMMLTAddBin(first, &printer, &described[2])) << "already there";
    EXPECT_FALSE(QDMMLTWriteBin(first, &printer, 1)) << "a copy of list 0";
    EXPECT_TRUE(QDMMLTWriteBin(first, &printer, 0));
    first = QDMMLTReadBin(&printer, 0);
    ListHandle second = QDMMLTReadBin(&printer, 1);
    EXPECT_THAT(Sources(first), testing::ElementsAre(1, 4, 2));
    EXPECT_TRUE(QDMMLTDeleteBin(first, &printer, &described[1]));
    EXPECT_TRUE(QDMMLTAddBin(first, &printer, &described[1]));
    EXPECT_TRUE(QDMMLTWriteBin(first, &printer, 0));
    first = QDMMLTReadBin(&printer, 0);
    EXPECT_THAT(Sources(first), testing::ElementsAre(4, 2, 1)) << "in the order of the copy";
    EXPECT_THAT(Sources(second), testing::SizeIs(7));
    QDMMLTCancelBin(first, &printer);
    QDMMLTCancelBin(second, &printer);
}

TEST_F(Bins, MailboxNamesAreKeptForEverybody) {
    ListHandle list = QDMMLTReadOUTBin(&printer);
    BinRecord bins[9];
    ASSERT_EQ(QDMMLTGetOUTBinNum(list, &printer), 9);
    QDMMLTGetOUTBinArray(list, &printer, bins);
    EXPECT_EQ(bins[8].identifier, 0x400u);
    EXPECT_STREQ(bins[8].displayName, "Bin 10");
    std::snprintf(bins[8].displayName, sizeof bins[8].displayName, "Ada");
    EXPECT_TRUE(QDMMLTUpdateOUTBin(list, &printer, &bins[8], bins[8].entryId));
    EXPECT_FALSE(QDMMLTUpdateOUTBin(list, &printer, &bins[8], 77));
    Act(Actor::kUser);
    EXPECT_FALSE(QDMMLTWriteOUTBin(list, &printer));
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);

    Act(Actor::kAdministrator);
    list = QDMMLTReadOUTBin(&printer);
    EXPECT_TRUE(QDMMLTUpdateOUTBin(list, &printer, &bins[8], bins[8].entryId));
    EXPECT_TRUE(QDMMLTWriteOUTBin(list, &printer));
    list = QDMMLTReadOUTBin(&printer);
    QDMMLTGetOUTBinArray(list, &printer, bins);
    EXPECT_STREQ(bins[8].displayName, "Ada");
    QDMMLTCancelOUTBin(list, &printer);
}

}  // namespace
}  // namespace kvtest
