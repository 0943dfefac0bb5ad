// How a module's compiled resources become known to the layer: build output linked into the module
// holds the bytes and one static ModuleResources object.
#pragma once

#include <cstddef>

namespace kv {

// Makes the bytes of a compiled resource file the resources of the module that the anchor lies in.
// The bytes are not copied and must live until they are unregistered. A malformed file is reported
// on stderr and leaves the module without these resources.
void RegisterModuleResources(const void* anchorInModule, const void* begin, std::size_t size);
void UnregisterModuleResources(const void* begin);

// Keeps a module's resources registered while the module is loaded.
class ModuleResources {
 public:
    ModuleResources(const void* anchorInModule, const void* begin, std::size_t size)
        : bytes(begin) {
        RegisterModuleResources(anchorInModule, begin, size);
    }
    ~ModuleResources() { UnregisterModuleResources(bytes); }
    ModuleResources(const ModuleResources&) = delete;
    ModuleResources& operator=(const ModuleResources&) = delete;

 private:
    const void* bytes;
};

}  // namespace kv
