// Where the program and its data lie.
#pragma once

#include <string>

namespace kvhost {

// Folder of the running program, without a trailing slash.
std::string ProgramDirectory();
// The source tree's models folder, for programs run from a build tree.
extern const char* const kSourceModels;
// Full path of the Qt display plugin, empty when it is not installed.
std::string QtDisplayPath();

}  // namespace kvhost
