// Keeps the resource files of the loaded modules. Modules register while the loader runs their
// static objects and unregister when they are unloaded.
#include <platform/resource/register.h>
#include <platform/resource/registry_of_files.h>
#include <platform/shell/module_table.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <functional>
#include <mutex>
#include <shared_mutex>

namespace kv {
namespace {

struct Registration {
    HMODULE module = nullptr;
    const void* begin = nullptr;
    std::shared_ptr<const ResourceFile> file;
};

struct Registrations {
    std::shared_mutex lock;
    std::vector<Registration> rows;
    std::atomic<unsigned> generation = 0;
};

// Never destroyed: a library may unregister after this one's static objects are gone.
Registrations& All() {
    static Registrations* const all = new Registrations;
    return *all;
}

}  // namespace

void RegisterModuleResources(const void* anchorInModule, const void* begin, std::size_t size) {
    const HMODULE module = ModuleFromAddress(anchorInModule);
    auto file = std::make_shared<ResourceFile>();
    const std::string error = file->Parse({static_cast<const BYTE*>(begin), begin ? size : 0});
    if (!error.empty()) {
        std::fprintf(stderr, "%s: %s\n", ModulePath(module).c_str(), error.c_str());
        return;
    }
    std::unique_lock guard(All().lock);
    All().rows.push_back({module, begin, std::move(file)});
    ++All().generation;
}

void UnregisterModuleResources(const void* begin) {
    std::unique_lock guard(All().lock);
    std::erase_if(All().rows, [=](const Registration& row) { return row.begin == begin; });
    ++All().generation;
}

unsigned RegistryGeneration() {
    return All().generation;
}

ResourceFiles FilesOfModule(HMODULE module) {
    const HMODULE real = RealModule(module);
    ResourceFiles files;
    std::shared_lock guard(All().lock);
    for (const Registration& row : All().rows) {
        if (row.module == real) files.push_back(row.file);
    }
    return files;
}

HeldEntry FindEntryById(HMODULE module, WORD type, WORD name) {
    const HMODULE real = RealModule(module);
    std::shared_lock guard(All().lock);
    for (const Registration& row : All().rows) {
        if (row.module != real) continue;
        if (const ResourceEntry* entry = row.file->FindById(type, name)) return {row.file, entry};
    }
    return {};
}

bool IsEntryOfModule(HMODULE module, const ResourceEntry* entry) {
    const HMODULE real = RealModule(module);
    const std::less<const ResourceEntry*> before;
    const auto address = reinterpret_cast<std::uintptr_t>(entry);
    std::shared_lock guard(All().lock);
    return std::any_of(All().rows.begin(), All().rows.end(), [&](const Registration& row) {
        const auto& entries = row.file->entries();
        if (row.module != real || entries.empty()) return false;
        const ResourceEntry* first = entries.data();
        if (before(entry, first) || !before(entry, first + entries.size())) return false;
        return (address - reinterpret_cast<std::uintptr_t>(first)) % sizeof *entry == 0;
    });
}

}  // namespace kv
