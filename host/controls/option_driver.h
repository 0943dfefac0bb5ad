// The printer's options on the Device Options page of a headless sheet: which there are, and moving
// them as a person would.
#pragma once

#include <host/controls/control_driver.h>

#include <string>
#include <vector>

namespace kvhost {

struct DeviceOption {
    DWORD bit;  // of mdmInstalledOptions
    const char* name;
    std::string label;
    bool installed;
    bool offered;  // by the rules of the model
};

class OptionDriver {
 public:
    OptionDriver(Session& session, ControlDriver& driver);

    // "Tray3", ... of all there are; needs no printer.
    static std::vector<std::string> Names();
    std::vector<DeviceOption> All() const;
    // By name ("InstTray3" or "Tray3"), label or number of the bit, in any case; kBadInput with
    // what would do when there is none.
    SetOutcome Find(const std::string& text, DeviceOption& found) const;
    // Selects the option's row and its other state; nothing to do when it has that state already.
    SetOutcome Put(const DeviceOption& option, bool installed);
    // Why this user cannot work the page's options; empty when nothing is known.
    std::string WhyLocked() const;
    // Has the page ask the printer what it has; Auto Configure is afterwards as it was.
    SetOutcome AskPrinter();

 private:
    HWND OnPage(DWORD id) const { return GetDlgItem(page_, static_cast<int>(id)); }

    Session& session_;
    ControlDriver& driver_;
    HWND page_;
};

}  // namespace kvhost
