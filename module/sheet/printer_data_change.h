// Several values of the printer's data as one: what is read meanwhile (sheet/printer_values.h) is
// what is stored now, and what is written is stored together by Commit, or not at all. Lists that
// several people change are read, changed and written within one.
#pragma once

#include "sheet/sheet_context.h"

namespace kvui {

class PrinterDataChange {
 public:
    explicit PrinterDataChange(const SheetContext& context);
    // Without Commit nothing is changed.
    ~PrinterDataChange();
    PrinterDataChange(const PrinterDataChange&) = delete;
    PrinterDataChange& operator=(const PrinterDataChange&) = delete;

    // False when the caller may not write the printer's data, or somebody else does for too long.
    explicit operator bool() const { return open_; }
    // False when nothing was stored.
    bool Commit();

 private:
    HANDLE printer_ = nullptr;
    bool open_ = false;
};

}  // namespace kvui
