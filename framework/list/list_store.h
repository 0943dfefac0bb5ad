// Where lists are kept: the common list in the printer's data, a user's own entries in the user's
// part of the registry, apart for own printers and for those of the machine. Used by the working
// copies.
#pragma once

#include <platform/shell/state_directory.h>

#include <functional>
#include <string>
#include <unordered_set>
#include <vector>

#include "list_format.h"

namespace kvlist {

using Record = std::string;  // exactly the format's record size
using Records = std::vector<Record>;

enum class StoredList { kMissing, kFound, kUnreadable };

// What is stored. A list that is damaged, in one record even, or that could not be read is
// kUnreadable, and the last error says which: nobody may take it for an empty one and write over
// it.
StoredList ReadCommonList(const ListFormat& format, const std::string& printer, Records& records);
StoredList ReadOwnList(const ListFormat& format, const std::string& printer, Records& records);

struct ListParts {
    bool common, own;
};
// Changes what is stored now. `change` is given the parts that change, as they are stored, the
// common one with `initial` where there is none yet; meanwhile nobody else writes them. Both are
// stored together or none is, where they lie in one store; of two, the user's is stored first. The
// answer is a platform error code: that of `change`, ERROR_ACCESS_DENIED when the common part takes
// an administrator, ERROR_INVALID_DATA (13) when what is stored cannot be read. More records than a
// reader takes are refused.
using ListChange = std::function<DWORD(Records& common, Records& own)>;
DWORD ChangeLists(const ListFormat& format, const std::string& printer, ListParts parts,
                  const Records& initial, const ListChange& change);

// Who watches what this process stores is told of every change that is on the disk: the records of
// the parts that changed, before and after. An empty function ends it; one watches at a time.
using ListWatcher = std::function<void(const ListFormat& format, const std::string& printer,
                                       const Records& before, const Records& after)>;
void WatchLists(ListWatcher watcher);

// Ids are given in turn: `pick` is told the one behind the last one that was given in the caller's
// range and those that stored entries have now, and answers the one that it takes, or 0. The range
// is that of common entries, or the private one for users who may not change these.
struct IdRange {
    DWORD lowest, highest;
};
using IdPick = std::function<DWORD(IdRange range, DWORD next, std::unordered_set<DWORD> taken)>;
DWORD ReserveId(const ListFormat& format, const std::string& printer, IdRange wanted,
                const IdPick& pick, DWORD& id);

// The user's own entries of one printer become those of another, too. Where there are none, none
// are taken from it. A platform error code.
DWORD CopyOwnLists(kv::StatePlace fromPlace, const std::string& from, kv::StatePlace toPlace,
                   const std::string& to);
DWORD DropOwnLists(kv::StatePlace place, const std::string& printer);

}  // namespace kvlist
