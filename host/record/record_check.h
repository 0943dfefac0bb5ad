// What a settings record may hold: its size and head, and the bounds that the printer's rules put
// on single values. Used before a record is taken from a file, and for what is stored.
#pragma once

#include <host/record/record_store.h>

#include <string>
#include <vector>

namespace kvhost {

// Says what is wrong with the bytes as a settings record at all; empty when nothing is.
std::string CheckRecord(const BYTE* bytes, size_t size);

struct ValueBounds {
    const char* field;
    size_t offset;  // of a 16-bit word of the public part
    LONG low;
    LONG high;
    std::vector<LONG> beyond;  // single values outside that the rules set themselves

    bool Admits(LONG value) const;
};

// The values that the printer's pages and its renderer can mean, by the rules in force now. Other
// odd values fall back page by page.
std::vector<ValueBounds> BoundsInForce(const PrinterBlock& printer);

// One line for each value out of bounds: "dmCopies is 5000, expected 1 to 999".
std::vector<std::string> ValuesOutOfBounds(const Record& record,
                                           const std::vector<ValueBounds>& bounds);

// Puts the printer's default in the place of each value out of bounds and leaves all others alone.
// A line for each: "dmCopies is 5000, expected 1 to 999; 1 is used instead".
std::vector<std::string> PutBackOutOfBounds(PrinterBlock& printer, Record& record);

}  // namespace kvhost
