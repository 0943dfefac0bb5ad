// The printer's five lists: what their records look like and what they are called where they are
// stored. One table row per list; everything else of the list service works on rows.
#pragma once

#include <list_records.h>

#include <cstddef>
#include <span>
#include <string_view>

namespace kvlist {

enum class ListKind { kPaper, kWatermark, kInputBin, kOutputBin };

struct Field {
    std::size_t offset;
    std::size_t size;
};

struct ListFormat {
    ListKind kind;
    DWORD number;           // which of several lists of the kind
    std::string_view name;  // of the stored value
    std::size_t recordSize;
    std::size_t idOffset;
    DWORD firstUserId;  // lower ids belong to the printer description; 0: no such split
    // Users who may not change the common list give their own entries ids from here on, which no
    // common entry is ever given.
    DWORD firstPrivateId;
    DWORD lastId;
    std::span<const Field> texts;
    // What readers work out anew and may keep in their copy even of entries that they may not
    // change (the angle of a diagonal watermark follows the paper); size 0: nothing.
    Field derived;
};

// Null when there is no such list.
const ListFormat* FindListFormat(ListKind kind, DWORD number);

DWORD RecordId(const ListFormat& format, const void* record);
// Every text ends inside its field, so that readers cannot run past it.
bool TextsEnd(const ListFormat& format, const void* record);

}  // namespace kvlist
