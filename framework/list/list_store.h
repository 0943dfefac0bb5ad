// Where lists are kept: the common list in the printer's data, a user's own entries in the user's
// part of the registry, apart for own printers and for those of the machine. Used by the working
// copies.
#pragma once

#include <platform/shell/state_directory.h>

#include <string>
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

// Null pointers are parts that did not change. Both parts are stored together or none is, where
// they lie in one store; of two, the user's is stored first. The answer is a platform error code,
// ERROR_ACCESS_DENIED when the common part takes an administrator. More records than a reader takes
// are refused.
DWORD WriteLists(const ListFormat& format, const std::string& printer, const Records* common,
                 const Records* own);

// The user's own entries of one printer become those of another, too. Where there are none, none
// are taken from it. A platform error code.
DWORD CopyOwnLists(kv::StatePlace fromPlace, const std::string& from, kv::StatePlace toPlace,
                   const std::string& to);
DWORD DropOwnLists(kv::StatePlace place, const std::string& printer);

}  // namespace kvlist
