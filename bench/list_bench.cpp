// A long list of papers: read, one added under an id of its own, one deleted, and written; beside
// SQLite storing the same bytes as one value.
#include <benchmark/benchmark.h>
#include <kvlist.h>
#include <sqlite3.h>

#include <cstring>
#include <string>

#include "desk.h"

namespace {

using kvbench::TheDesk;

constexpr DWORD kLastId = 0x7FFFFFFF;

void Check(bool done, const char* what) {
    if (done) return;
    std::fprintf(stderr, "kvbench: %s\n", what);
    std::exit(1);
}

DWORD AddOne(ListHandle list, PrinterBlock& printer) {
    CustomPaperRecord record{};
    record.id = QDMMLTGetPaperID(list, 512, kLastId);
    std::strcpy(record.displayName, "Card");
    Check(QDMMLTAddPaper(list, &printer, &record, kScopeCommonAndOwn), "no paper was added");
    return record.id;
}

// The user's own list of the state's size; the id of its last entry.
DWORD FillList(PrinterBlock& printer, DWORD count) {
    ListHandle list = QDMMLTReadPaper(&printer);
    std::string all(static_cast<size_t>(QDMMLTGetPaperNum(list, &printer, kScopeUser)) *
                        sizeof(CustomPaperRecord),
                    '\0');
    auto* records = reinterpret_cast<CustomPaperRecord*>(all.data());
    const int found = QDMMLTGetPaperArray(list, &printer, records, kScopeUser);
    for (int i = 0; i < found; ++i) {
        if (records[i].id >= 512) QDMMLTDeletePaper(list, &printer, records[i].id);
    }
    CustomPaperRecord record{};
    for (record.id = 512; record.id < 512 + count; ++record.id) {
        QDMMLTAddPaper(list, &printer, &record, kScopeCommonAndOwn);
    }
    Check(QDMMLTWritePaper(list, &printer), "the list was not filled");
    return record.id - 1;
}

void ListEdit(benchmark::State& state) {
    PrinterBlock& printer = TheDesk().printer;
    DWORD last = FillList(printer, static_cast<DWORD>(state.range(0)));
    for (auto _ : state) {
        ListHandle list = QDMMLTReadPaper(&printer);
        QDMMLTDeletePaper(list, &printer, last);
        last = AddOne(list, printer);
        Check(QDMMLTWritePaper(list, &printer), "the list was not written");
    }
    // The sheets that others measure are of a printer without them.
    FillList(printer, 0);
}
BENCHMARK(ListEdit)->Arg(4096)->Unit(benchmark::kMicrosecond);

void ListEditQuarter(benchmark::State& state) {
    ListEdit(state);
}
BENCHMARK(ListEditQuarter)->Arg(1024)->Unit(benchmark::kMicrosecond);

void ListBlobSqlite(benchmark::State& state) {
    sqlite3* store = nullptr;
    sqlite3_open((TheDesk().state + "/blob.sqlite").c_str(), &store);
    sqlite3_exec(store,
                 "PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL;"
                 "CREATE TABLE IF NOT EXISTS list (id INTEGER PRIMARY KEY, data BLOB)",
                 nullptr, nullptr, nullptr);
    std::string bytes(16 + 4096 * sizeof(CustomPaperRecord), '\0');
    sqlite3_stmt* write = nullptr;
    sqlite3_prepare_v2(store, "INSERT OR REPLACE INTO list VALUES (1, ?1)", -1, &write, nullptr);
    for (auto _ : state) {
        ++bytes[20];
        sqlite3_bind_blob(write, 1, bytes.data(), static_cast<int>(bytes.size()), SQLITE_STATIC);
        Check(sqlite3_step(write) == SQLITE_DONE, "SQLite stored nothing");
        sqlite3_reset(write);
    }
    sqlite3_finalize(write);
    sqlite3_close(store);
}
BENCHMARK(ListBlobSqlite)->Unit(benchmark::kMicrosecond);

}  // namespace
