// The files in the driver's folder of a place: made and brought up to date when a printer is added,
// looked after when one is used; then they are those of the place in force.
#pragma once

#include <platform/shell/state_directory.h>

#include <string>
#include <vector>

namespace kvcore {

struct DriverFiles {
    std::vector<std::string> done;  // what was restored or taken over, one line each
    std::string error;              // empty while the files can be worked with
};

// Takes the model's files over: the description and the help pages as they are, of the rules file
// the vendor's sections. A file that is replaced, and was not the model's, is kept beside it.
DriverFiles TakeOverModel(const std::string& modelsDir, kv::StatePlace place);

// Restores files that are missing or empty from the model's. An error for what cannot be restored,
// and for what is there and cannot be read.
DriverFiles RestoreDriverFiles(const std::string& modelsDir);

// What is wrong with the rules file as a file: that it cannot be read, or is none; empty for a good
// one.
std::string RulesFileProblem();
std::string RulesFilePath();

}  // namespace kvcore
