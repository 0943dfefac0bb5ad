// Where lists are kept: the common list in the printer's data, a user's own entries in the user's
// part of the registry. Used by the working copies.
#pragma once

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

// Null pointers are parts that did not change. Both parts are stored together or none is; the
// answer is a platform error code, ERROR_ACCESS_DENIED when the common part takes an administrator.
// More records than a reader takes are refused.
DWORD WriteLists(const ListFormat& format, const std::string& printer, const Records* common,
                 const Records* own);

}  // namespace kvlist
