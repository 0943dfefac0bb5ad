// Where the driver's files lie and what they are called. Used by the driver queries of the spooler
// layer and by the installation of printers.
#pragma once

#include <platform/shell/state_directory.h>

#include <string>

namespace kvspool {

constexpr const char* kDriverName = "Varnell Tessora 7720MF";
constexpr const char* kEnvironment = "Windows NT x86";
constexpr int kDriverVersion = 3;
constexpr const char* kModuleFile = "KVUIMOD.DLL";
constexpr const char* kRulesFile = "KVUIMOD.ini";
constexpr const char* kDescriptionFile = "tessora7720mf.ini";

// "<state>/driver" of a place; empty when there is no state directory.
std::string DriverDirectory(kv::StatePlace place);
// A file of the driver in the version's folder, with the platform's separators:
// "<state>/driver\3\KVUIMOD.ini". Empty when there is no state directory.
std::string DriverFile(kv::StatePlace place, const char* name);

}  // namespace kvspool
