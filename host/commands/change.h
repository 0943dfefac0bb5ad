// Changing a printer's settings through its headless sheet: all of what a command asks for or
// nothing, told as text or JSON.
#pragma once

#include <host/controls/control_driver.h>
#include <host/controls/session.h>

#include <functional>
#include <string>
#include <vector>

namespace kvhost {

struct Changes {
    std::vector<std::string> notes;
    std::vector<std::string> results;  // what to tell before the fields that have changed
    std::string error;     // why nothing was stored
    std::string control;   // what was refused
    std::string expected;  // what would have done
};

// Takes over what became of one control; answers its status.
ExitStatus TakeOver(const SetOutcome& outcome, const std::string& control, Changes& changes);

ExitStatus PrintRefusal(const Options& options, const Changes& changes, ExitStatus status);

// What is done to the open sheet.
using Work = std::function<ExitStatus(Session&, ControlDriver&, Changes&)>;

// Opens the sheet, works it and stores what came of it. When somebody else stores meanwhile, all of
// it is done anew on top of that, so that neither's change is lost.
ExitStatus Change(const Options& options, ConflictPolicy policy, const Work& work);

}  // namespace kvhost
