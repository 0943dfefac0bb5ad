// Stored settings records: a person's, one file per printer in the person's state directory. A
// record is checked before it is used or stored; a bad one is kept aside and the printer's defaults
// take its place.
#pragma once

#include <platform/shell/state_directory.h>
#include <printer_block.h>
#include <wingdi.h>

#include <array>
#include <string>

namespace kvhost {

constexpr unsigned kRecordBytes = 1296;
using Record = std::array<BYTE, kRecordBytes>;

class RecordStore {
 public:
    // Own printers and those of the machine may have the same name.
    explicit RecordStore(const std::string& printerName,
                         kv::StatePlace place = kv::StatePlace::kPerson);
    const std::string& path() const { return path_; }

    // A bad one was read and is no record; an unreadable one may well be good.
    enum class Found { kNothing, kGood, kBad, kUnreadable };
    // Reads the file and leaves it alone; `problem` says what is wrong with it.
    Found Read(Record& record, std::string& problem) const;
    static bool ReadDefaults(PrinterBlock& printer, Record& record, std::string& error);
    // The stored record, else the printer's defaults. `warning` tells of a record that was put
    // aside. False with an error when the record cannot be read, or there are no defaults either.
    bool Load(PrinterBlock& printer, Record& record, std::string& warning, std::string& error);
    // Atomic and durable: the old record or the new one, never half of either.
    bool Store(const Record& record, std::string& error);

    enum class Outcome { kStored, kChangedMeanwhile, kFailed };
    // Stores only when the file still holds `expected`, or nothing, so that nobody's settings are
    // overwritten unseen; otherwise `found` is what it holds. Programs take turns at this.
    Outcome StoreUnlessChanged(const Record& expected, const Record& record, Record& found,
                               std::string& error);

    // Makes the folder of the records; false when that is impossible.
    bool MakeFolder(std::string& error) const;

 private:
    Found PutAside(Record& record, std::string& warning, std::string& problem) const;

    std::string path_;
};

// Reads a whole file of at most `limit` bytes; false with an error otherwise.
bool ReadWholeFile(const std::string& path, size_t limit, std::string& bytes, std::string& error);
bool WriteWholeFile(const std::string& path, const void* bytes, size_t size, std::string& error);

}  // namespace kvhost
