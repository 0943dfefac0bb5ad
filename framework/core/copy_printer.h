// A printer with everything that belongs to it, copied from a person's place to the machine's or back.
// Used by the host's printer commands.
#pragma once

#include <platform/shell/state_directory.h>

#include <string>
#include <vector>

namespace kvcore {

struct PrinterAddress {
    kv::StatePlace place = kv::StatePlace::kPerson;
    std::string name;
};

// The printer, its data with the common lists in them, and the driver's files where the place has none
// yet or older ones; `done` as for InstallPrinter. False with one line for people in `error`; nothing
// of the printer is there then.
bool CopyPrinter(const PrinterAddress& from, const PrinterAddress& to, const std::string& modelsDir,
                 std::vector<std::string>& done, std::string& error);

}  // namespace kvcore
