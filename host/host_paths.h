// Where the program and its data lie.
#pragma once

#include <string>

namespace kvhost {

// Folder of the running program, without a trailing slash.
std::string ProgramDirectory();
// Path of a file or folder of the program's data; a build tree lays them out like an installation.
std::string DataPath(const char* name);
// Full path of the Qt display plugin, empty when it is not installed.
std::string QtDisplayPath();

}  // namespace kvhost
