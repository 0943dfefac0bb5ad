// FindResourceA, LoadResource, LockResource and SizeofResource. Driver code and the loaders of
// bitmaps, icons and dialog templates call them.
#include <platform/resource/registry_of_files.h>
#include <winbase.h>

using namespace kv;

extern "C" {

// The handle is the entry itself; it is checked against the module's files before every use.
HRSRC WINAPI FindResourceA(HMODULE module, LPCSTR name, LPCSTR type) {
    const ResourceFiles files = FilesOfModule(module);
    if (files.empty()) {
        SetLastError(ERROR_RESOURCE_DATA_NOT_FOUND);
        return nullptr;
    }
    const ResourceName typeName = ResourceNameOf(type);
    const ResourceName ownName = ResourceNameOf(name);
    DWORD error = ERROR_RESOURCE_TYPE_NOT_FOUND;
    for (const auto& file : files) {
        ResourceFile::Found found;
        const ResourceEntry* entry = file->Find(typeName, ownName, found);
        if (entry) return reinterpret_cast<HRSRC>(const_cast<ResourceEntry*>(entry));
        if (found == ResourceFile::Found::kNoName) error = ERROR_RESOURCE_NAME_NOT_FOUND;
    }
    SetLastError(error);
    return nullptr;
}

static const ResourceEntry* EntryOf(HMODULE module, HRSRC resource) {
    const auto* entry = reinterpret_cast<const ResourceEntry*>(resource);
    if (entry && IsEntryOfModule(module, entry)) return entry;
    SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
}

// Resources lie in the module's image, so that loading one only gives its address; locking gives
// the same address, and there is nothing to free.
HGLOBAL WINAPI LoadResource(HMODULE module, HRSRC resource) {
    const ResourceEntry* entry = EntryOf(module, resource);
    return entry ? const_cast<BYTE*>(entry->bytes) : nullptr;
}

LPVOID WINAPI LockResource(HGLOBAL resource) {
    return resource;
}

DWORD WINAPI SizeofResource(HMODULE module, HRSRC resource) {
    const ResourceEntry* entry = EntryOf(module, resource);
    return entry ? entry->size : 0;
}
}
