// The resource files of the loaded modules. register.cpp fills it; find.cpp and strings.cpp read
// it.
#pragma once

#include <platform/resource/resource_file.h>

#include <memory>
#include <vector>

namespace kv {

using ResourceFiles = std::vector<std::shared_ptr<const ResourceFile>>;

// The files of the module (null means the program), in the order of their registration.
ResourceFiles FilesOfModule(HMODULE module);

// Grows whenever files are registered or unregistered: what was found before may be gone.
unsigned RegistryGeneration();

// The entry of a number type and number name in the module's files, and what keeps it alive.
struct HeldEntry {
    std::shared_ptr<const ResourceFile> file;
    const ResourceEntry* entry = nullptr;
};
HeldEntry FindEntryById(HMODULE module, WORD type, WORD name);

// True when the handle names an entry of one of the module's registered files.
bool IsEntryOfModule(HMODULE module, const ResourceEntry* entry);

}  // namespace kv
