// Which loaded objects (the program, its libraries) have which module handle. The resource folder
// ties resources to the module that registered them; modules.cpp serves LoadLibraryA and its kin.
#pragma once

#include <windef.h>

#include <string>

namespace kv {

// The handle of the loaded object that contains the address; the same handle as long as the object
// stays loaded, whether it was linked, or loaded by LoadLibraryA. Null for an address of no object.
HMODULE ModuleFromAddress(const void* address);

// True for null (the program) and for a handle whose object is still loaded.
bool IsLiveModule(HMODULE module);

// The null module means the program: answers its real handle, any other handle unchanged.
HMODULE RealModule(HMODULE module);

// Full path of the object's file; empty for a stale or foreign handle.
std::string ModulePath(HMODULE module);

}  // namespace kv
