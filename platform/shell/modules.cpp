// Loaded objects and their handles: LoadLibraryA, FreeLibrary, GetProcAddress and their kin over
// the dynamic loader. Driver code names libraries the platform's way; "KVLIST.DLL" is libkvlist.so.
#include <winbase.h>

#include <dlfcn.h>
#include <link.h>
#include <sys/auxv.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <cstring>
#include <map>
#include <mutex>
#include <unordered_map>
#include <vector>

#include <platform/shell/errors.h>
#include <platform/shell/handle_table.h>
#include <platform/shell/module_table.h>
#include <platform/shell/paths.h>

namespace kv {

namespace {

struct Module {
    const void* base = nullptr;
    std::string path;
    std::vector<void*> loads;  // one loader reference per LoadLibraryA
};

struct ModuleTable {
    std::recursive_mutex lock;  // a library's start-up code asks for its own handle while loading
    HandleTable<Module, HandleSpace::kModule> handles;
    std::map<const void*, std::uintptr_t> byBase;
};

ModuleTable& Table() {
    static auto* table = new ModuleTable;
    return *table;
}

// The platform's own libraries are all this one.
constexpr const char* kSystemLibraries[] = {"kernel32", "user32",   "gdi32",    "advapi32",
                                            "shell32",  "comctl32", "comdlg32", "winspool",
                                            "hhctrl",   "version",  "ws2_32",   "wsock32"};

const void* ProgramAddress() {
    return reinterpret_cast<const void*>(getauxval(AT_PHDR));
}

std::string FullPath(const std::string& path) {
    char resolved[PATH_MAX];
    return realpath(path.c_str(), resolved) ? resolved : path;
}

const std::string& ProgramPath() {
    static const auto* path = new std::string(FullPath("/proc/self/exe"));
    return *path;
}

// The full path of a mapped object. The loader's name for it stays the same as long as it is
// mapped, and every look at a module handle asks; the file system is asked once.
std::string ObjectPath(const char* loaderName) {
    static auto* known = new std::unordered_map<std::string, std::string>;
    static auto* lock = new std::mutex;
    std::lock_guard guard(*lock);
    const auto [place, added] = known->try_emplace(loaderName ? loaderName : "");
    if (added) place->second = FullPath(place->first);
    return place->second;
}

bool FindObject(const void* address, const void*& base, std::string& path) {
    Dl_info info;
    if (!address || dladdr(address, &info) == 0 || !info.dli_fbase) return false;
    base = info.dli_fbase;
    Dl_info program;
    const bool isProgram =
        dladdr(ProgramAddress(), &program) != 0 && program.dli_fbase == info.dli_fbase;
    path = isProgram ? ProgramPath() : ObjectPath(info.dli_fname);
    return true;
}

// An object may have been unloaded behind our back, and another one mapped at its place.
bool StillLoaded(const Module& module) {
    const void* base = nullptr;
    std::string path;
    return FindObject(module.base, base, path) && base == module.base && path == module.path;
}

std::shared_ptr<Module> FindModule(HMODULE handle) {
    const auto number = reinterpret_cast<std::uintptr_t>(RealModule(handle));
    std::lock_guard guard(Table().lock);
    auto module = Table().handles.Find(number);
    if (!module) return nullptr;
    if (StillLoaded(*module)) return module;
    Table().byBase.erase(module->base);
    Table().handles.Remove(number);
    return nullptr;
}

// "KVLIST.DLL", "kvlist" and "/x/libkvlist.so" all give "kvlist".
std::string ModuleName(std::string_view path) {
    std::string name = LowerCase(BaseName(path));
    if (const std::size_t so = name.find(".so"); so != std::string::npos && so > 0) {
        name.resize(so);
        if (name.rfind("lib", 0) == 0) name.erase(0, 3);
        return name;
    }
    for (const char* extension : {".dll", ".exe", ".ocx", ".drv"}) {
        const std::size_t length = std::strlen(extension);
        if (name.size() > length && name.compare(name.size() - length, length, extension) == 0) {
            name.resize(name.size() - length);
            break;
        }
    }
    return name;
}

bool IsSystemLibrary(const std::string& name) {
    for (const char* system : kSystemLibraries) {
        if (name == system) return true;
    }
    return false;
}

std::string PlatformPath() {
    return ModulePath(ModuleFromAddress(&kSystemLibraries));
}

// The files that a library name may mean, best first.
std::vector<std::string> Candidates(const std::string& path) {
    const std::string name = ModuleName(path);
    if (IsSystemLibrary(name)) return {PlatformPath()};
    const std::string own = "lib" + name + ".so";
    if (path.find('/') != std::string::npos) return {path, FolderOf(path) + "/" + own};
    std::vector<std::string> found;
    const std::string folders[] = {FolderOf(ProgramPath()), FolderOf(PlatformPath()),
                                   SystemDirectory()};
    for (const std::string& folder : folders) {
        if (folder.empty()) continue;
        found.push_back(folder + "/" + path);
        found.push_back(folder + "/" + own);
    }
    return found;
}

void* Load(const std::string& path, DWORD& error) {
    bool damaged = false;
    for (const std::string& candidate : Candidates(path)) {
        if (access(candidate.c_str(), F_OK) != 0) continue;
        if (void* loaded = dlopen(candidate.c_str(), RTLD_NOW | RTLD_LOCAL)) return loaded;
        damaged = true;
    }
    error = damaged ? kErrorBadExeFormat : ERROR_MOD_NOT_FOUND;
    return nullptr;
}

const void* BaseOfLoaded(void* loaded) {
    link_map* map = nullptr;
    if (dlinfo(loaded, RTLD_DI_LINKMAP, &map) != 0 || !map) return nullptr;
    // The dynamic section lies inside the object wherever the object was mapped.
    return map->l_ld;
}

struct NameSearch {
    std::string name;
    const void* address = nullptr;
};

int CompareObject(dl_phdr_info* info, std::size_t, void* data) {
    auto& search = *static_cast<NameSearch*>(data);
    if (!info->dlpi_name || !*info->dlpi_name || ModuleName(info->dlpi_name) != search.name) {
        return 0;
    }
    for (int i = 0; i < info->dlpi_phnum; ++i) {
        if (info->dlpi_phdr[i].p_type != PT_LOAD) continue;
        search.address =
            reinterpret_cast<const void*>(info->dlpi_addr + info->dlpi_phdr[i].p_vaddr);
        return 1;
    }
    return 0;
}

void* FindSymbol(const Module& module, LPCSTR name) {
    const bool isProgram = module.path == ProgramPath();
    void* loaded = dlopen(isProgram ? nullptr : module.path.c_str(), RTLD_LAZY | RTLD_NOLOAD);
    if (!loaded) return nullptr;
    void* symbol = dlsym(loaded, name);
    dlclose(loaded);
    // The loader also searches what the object depends on; only the object's own exports count.
    Dl_info info;
    if (!symbol || dladdr(symbol, &info) == 0 || info.dli_fbase != module.base) return nullptr;
    return symbol;
}

}  // namespace

HMODULE ModuleFromAddress(const void* address) {
    const void* base = nullptr;
    std::string path;
    if (!FindObject(address, base, path)) return nullptr;
    std::lock_guard guard(Table().lock);
    const auto known = Table().byBase.find(base);
    if (known != Table().byBase.end()) {
        const auto module = Table().handles.Find(known->second);
        if (module && module->path == path) return reinterpret_cast<HMODULE>(known->second);
        Table().handles.Remove(known->second);
    }
    auto module = std::make_shared<Module>();
    module->base = base;
    module->path = path;
    const std::uintptr_t handle = Table().handles.Add(std::move(module));
    Table().byBase[base] = handle;
    return reinterpret_cast<HMODULE>(handle);
}

HMODULE RealModule(HMODULE module) {
    if (module) return module;
    static const HMODULE program = ModuleFromAddress(ProgramAddress());
    return program;
}

bool IsLiveModule(HMODULE module) {
    return FindModule(module) != nullptr;
}

std::string ModulePath(HMODULE module) {
    const auto found = FindModule(module);
    return found ? found->path : std::string();
}

}  // namespace kv

HMODULE LoadLibraryA(LPCSTR fileName) {
    if (!fileName || !*fileName) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    DWORD error = ERROR_SUCCESS;
    void* loaded = kv::Load(kv::NativePath(fileName), error);
    if (!loaded) {
        SetLastError(error);
        return nullptr;
    }
    std::lock_guard guard(kv::Table().lock);
    const HMODULE handle = kv::ModuleFromAddress(kv::BaseOfLoaded(loaded));
    const auto module = kv::FindModule(handle);
    if (!handle || !module) {
        dlclose(loaded);
        SetLastError(ERROR_MOD_NOT_FOUND);
        return nullptr;
    }
    module->loads.push_back(loaded);
    return handle;
}

// Answers true for a linked object too: it simply stays.
BOOL FreeLibrary(HMODULE handle) {
    const auto module = handle ? kv::FindModule(handle) : nullptr;
    if (!module) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    std::lock_guard guard(kv::Table().lock);
    if (module->loads.empty()) return TRUE;
    void* loaded = module->loads.back();
    module->loads.pop_back();
    dlclose(loaded);
    kv::FindModule(handle);  // forgets the handle when this was the last reference
    return TRUE;
}

FARPROC GetProcAddress(HMODULE handle, LPCSTR procName) {
    const auto module = kv::FindModule(handle);
    if (!module) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    // Numbers below 0x10000 name exports by ordinal, which objects here do not have.
    const bool named = reinterpret_cast<UINT_PTR>(procName) > 0xFFFF && *procName;
    void* symbol = named ? kv::FindSymbol(*module, procName) : nullptr;
    if (!symbol) SetLastError(ERROR_PROC_NOT_FOUND);
    return reinterpret_cast<FARPROC>(symbol);
}

HMODULE GetModuleHandleA(LPCSTR moduleName) {
    if (!moduleName) return kv::RealModule(nullptr);
    const std::string name = kv::ModuleName(kv::NativePath(moduleName));
    if (kv::IsSystemLibrary(name)) return kv::ModuleFromAddress(&kv::kSystemLibraries);
    if (name == kv::ModuleName(kv::ProgramPath())) return kv::RealModule(nullptr);
    kv::NameSearch search{name};
    if (!name.empty()) dl_iterate_phdr(kv::CompareObject, &search);
    if (!search.address) {
        SetLastError(ERROR_MOD_NOT_FOUND);
        return nullptr;
    }
    return kv::ModuleFromAddress(search.address);
}

DWORD GetModuleFileNameA(HMODULE handle, LPSTR fileName, DWORD size) {
    const std::string path = kv::ModulePath(handle);
    if (path.empty()) SetLastError(ERROR_INVALID_HANDLE);
    if (path.empty() || !fileName || size == 0) return 0;
    if (path.size() < size) {
        std::memcpy(fileName, path.c_str(), path.size() + 1);
        SetLastError(ERROR_SUCCESS);
        return static_cast<DWORD>(path.size());
    }
    std::memcpy(fileName, path.c_str(), size - 1);
    fileName[size - 1] = '\0';
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    return size;
}
