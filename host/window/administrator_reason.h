// Tells a person why some controls of a page are disabled for them: only who administers the
// printer may use these.
#pragma once

#include <printer_block.h>
#include <windows.h>

#include <string>

namespace kvhost {

// In force from its making to its end.
class AdministratorReason {
 public:
    explicit AdministratorReason(const PrinterBlock& printer);
    ~AdministratorReason();
    AdministratorReason(const AdministratorReason&) = delete;
    AdministratorReason& operator=(const AdministratorReason&) = delete;

    // The line for a page that has such controls, all disabled; else empty.
    std::string OfPage(HWND page) const;

 private:
    std::string text_;  // empty for an administrator
};

}  // namespace kvhost
