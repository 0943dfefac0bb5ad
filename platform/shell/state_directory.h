// Where the program keeps its data. A person's place: $KVPREFS_STATE, else $XDG_DATA_HOME/kvprefs,
// else
// ~/.local/share/kvprefs. The machine's, which all its users share: $KVPREFS_SYSTEM, else
// /var/lib/kvprefs. Used by the store, the platform's own folders and the host.
#pragma once

#include <sys/types.h>

#include <string>

namespace kv {

enum class StatePlace { kPerson, kMachine };

// Absolute path of the person's place without a trailing slash; empty when no variable names one
// (see the message). Nothing is created by asking.
std::string StateDirectory();
std::string StateDirectoryOf(StatePlace place);
// Whether the machine has a place: an administrator makes it, by installing the package for one.
bool HasMachineState();
bool IsInMachineState(const std::string& path);

// The place of the printer that is being worked on: it decides where what belongs to no printer by
// name lies (the machine's part of the registry, driver files), and who administers.
StatePlace PlaceInForce();
void SetPlaceInForce(StatePlace place);

// Rights of what is made in a place: a person's is nobody else's business, the machine's is written
// by its group and read by all.
mode_t NewFileMode(StatePlace place);
mode_t NewFolderMode(StatePlace place);

// Overrides the environment for the person's place; an empty path returns to it. Called by
// SetStateDirectory of the store, which is closed first.
void OverrideStateDirectory(const std::string& path);

// Creates the person's directory with mode 0700. False, with ERROR_PATH_NOT_FOUND or
// ERROR_ACCESS_DENIED as last error, when that is impossible.
bool MakeStateDirectory();

// One line for people when StateDirectory() is empty.
const char* NoStateDirectoryMessage();
// One line when the person's place is to be in somebody else's home, empty otherwise: what root
// would make there could not be changed by its owner. A place that was named on purpose is taken as
// it is.
std::string ForeignHomeMessage();

}  // namespace kv
