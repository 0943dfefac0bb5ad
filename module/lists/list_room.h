// How many entries of their own users may add to a list, by the rules file: to the common list, and
// each to the own one.
#pragma once

#include "sheet/sheet_context.h"

namespace kvui {

struct ListRoom {
    int common, commonLimit;
    int own, ownLimit;
    bool everybodyAddsCommon;  // a system without users: there is no other list

    bool ForCommon() const { return common < commonLimit; }
    bool ForOwn() const { return own < ownLimit; }
    // The caller can add nothing.
    bool IsFull() const;
};

// `section` of the rules file has the limits; entries of the printer's description that count are
// `described`. `all` are the common ones and the user's own.
ListRoom RoomOf(const SheetContext& context, const char* section, int described, int common,
                int all);

}  // namespace kvui
