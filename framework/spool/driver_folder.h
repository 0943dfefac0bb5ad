// Where the driver's files lie and what they are called. Used by the driver queries of the spooler
// layer and by the installation of printers.
#pragma once

#include <string>

namespace kvspool {

constexpr const char* kDriverName = "Varnell Tessora 7720MF";
constexpr const char* kEnvironment = "Windows NT x86";
constexpr int kDriverVersion = 3;
constexpr const char* kModuleFile = "KVUIMOD.DLL";
constexpr const char* kRulesFile = "KVUIMOD.ini";
constexpr const char* kDescriptionFile = "tessora7720mf.ini";

// "<state>/driver"; empty when there is no state directory.
std::string DriverDirectory();
// A file of the driver in the version's folder, with the platform's separators:
// "<state>/driver\3\KVUIMOD.ini". Empty when there is no state directory.
std::string DriverFile(const char* name);

}  // namespace kvspool
