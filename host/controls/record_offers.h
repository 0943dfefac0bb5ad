// Which values of a settings record no control of the printer's pages offers. Used before a record
// is taken from a file: such values can be neither seen nor chosen, and the pages would replace
// them.
#pragma once

#include <host/controls/session.h>

#include <string>
#include <vector>

namespace kvhost {

struct UnofferedValue {
    const char* field;
    LONG value;
    std::string caption;   // of the control that would show it
    std::string expected;  // "one of 1 "Off", 2 "On"", "from 1 to 999"
};

// In the order of the pages. Opens the sheet without a screen on `record`; nothing of the record
// outlives it. False after printing why the sheet does not open.
bool FindUnofferedValues(Session& session, const Record& record,
                         std::vector<UnofferedValue>& values);

}  // namespace kvhost
