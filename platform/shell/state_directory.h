// Where the program keeps its data: $KVPREFS_STATE, else $XDG_DATA_HOME/kvprefs, else
// ~/.local/share/kvprefs. Used by the store, the platform's own folders and the host.
#pragma once

#include <string>

namespace kv {

// Absolute path without a trailing slash; empty when no variable names one (see the message).
// Nothing is created by asking.
std::string StateDirectory();

// Overrides the environment; an empty path returns to it. Called by SetStateDirectory of the store,
// which is closed first.
void OverrideStateDirectory(const std::string& path);

// Creates the directory with mode 0700. False, with ERROR_PATH_NOT_FOUND or ERROR_ACCESS_DENIED as
// last error, when that is impossible.
bool MakeStateDirectory();

// One line for people when StateDirectory() is empty.
const char* NoStateDirectoryMessage();

}  // namespace kv
