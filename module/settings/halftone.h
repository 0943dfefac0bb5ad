// Halftone selection: from the record's choice of a pattern to the three parameters that the
// rendering side reads. The settings reactor calls it.
#pragma once

#include <array>
#include <vector>

#include "sheet/sheet_context.h"

namespace kvui {

// One halftone, "name=file;comment"; a part that the text lacks is empty.
struct HalftoneEntry {
    const char* name;
    const char* file;
    const char* comment;
};

struct HalftoneParameters {
    DWORD dither;
    DWORD grayBits;
    DWORD cellSize;
};

// The halftones on offer, gathered anew for each use: those of the module, of the table library
// when the printer uses it, and of the framework's QDM.INI.
class HalftoneList {
 public:
    explicit HalftoneList(const SheetContext& context);
    HalftoneList(const HalftoneList&) = delete;
    HalftoneList& operator=(const HalftoneList&) = delete;

    // Null beyond the last one.
    const HalftoneEntry* Find(DWORD index) const {
        return index < count_ ? &entries_[index] : nullptr;
    }
    DWORD count() const { return count_; }
    // Keys of the framework's section of halftones, in its order.
    const std::vector<const char*>& keyNames() const { return keyNames_; }

    PrinterBlock* const printer;
    const HMODULE uiHost;
    // What the record says at the moment.
    const HalftoneParameters current;
    const DWORD dotGainAdjust;
    const DWORD depletion;

 private:
    static constexpr DWORD kMaxEntries = 64;
    static constexpr size_t kPoolSize = 32768;

    char* Keep(const char* text);
    void Add(const char* text);
    void AddStrings(HMODULE module, UINT firstId);
    void AddFrameworkSection();

    std::array<HalftoneEntry, kMaxEntries> entries_{};
    DWORD count_ = 0;
    std::vector<const char*> keyNames_;
    std::array<char, kPoolSize> pool_;
    size_t poolUsed_ = 0;
};

// The three hexadecimal digits that an entry's file name carries; false when it has none.
bool ParseHalftoneFile(const char* file, HalftoneParameters* result);

// Brings the record's halftone parameters to the chosen pattern (mdmDitherPattern) and publishes
// the threshold tables that belong to them. A pattern that nobody offers leaves the parameters.
void SelectHalftone(SheetContext& context);

}  // namespace kvui
