// Where a printer's window was when it was closed, and which page it showed: a small file beside the
// printer's record. Only windows read and write it, no command does.
#pragma once

#include <host/record/record_store.h>

#include <optional>
#include <string>

namespace kvhost {

struct WindowPlace {
    std::string page;             // the catalogue's dialog name; empty: the first page
    std::optional<POINT> corner;  // of the frame, in the desktop's points
};

// Nothing where the file is missing or damaged.
WindowPlace ReadWindowPlace(const RecordStore& store);
// A place that cannot be kept is no loss that a person should hear of.
void KeepWindowPlace(const RecordStore& store, const WindowPlace& place);

}  // namespace kvhost
