// Module handles: stable while the object is loaded, refused afterwards.
#include <platform/shell/module_table.h>

#include <dlfcn.h>

#include "tests/platform/shell/scratch.h"

// An export of the program, which its libraries do not have.
extern "C" __attribute__((visibility("default"))) int KvTestExport() {
    return 42;
}

namespace kv::test {
namespace {

class Modules : public ScratchTest {};

// A small library of the system that nothing here links, and an export of it.
constexpr const char* kSpareLibrary = "libBrokenLocale.so.1";
constexpr const char* kSpareExport = "__ctype_get_mb_cur_max";

std::string SparePath() {
    void* loaded = dlopen(kSpareLibrary, RTLD_NOW);
    if (!loaded) return {};
    Dl_info info;
    const bool found = dladdr(dlsym(loaded, kSpareExport), &info) != 0;
    const std::string path = found ? info.dli_fname : "";
    dlclose(loaded);
    return path;
}

TEST_F(Modules, TheProgramAndItsLibrariesHaveStableHandles) {
    const HMODULE program = GetModuleHandleA(nullptr);
    ASSERT_TRUE(program);
    EXPECT_EQ(ModuleFromAddress(reinterpret_cast<const void*>(&KvTestExport)), program);
    const HMODULE platform = ModuleFromAddress(reinterpret_cast<const void*>(&GetTickCount));
    EXPECT_NE(platform, program);
    EXPECT_EQ(GetModuleHandleA("KERNEL32.DLL"), platform);
    EXPECT_EQ(LoadLibraryA("hhctrl.ocx"), platform);
    EXPECT_TRUE(FreeLibrary(platform));
    EXPECT_TRUE(IsLiveModule(platform)) << "a linked library stays";
    EXPECT_EQ(ModuleFromAddress(nullptr), nullptr);
    int local = 0;
    EXPECT_EQ(ModuleFromAddress(&local), nullptr);
    EXPECT_EQ(GetModuleHandleA("KVNONE.DLL"), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_MOD_NOT_FOUND);

    char path[MAX_PATH];
    const DWORD length = GetModuleFileNameA(nullptr, path, MAX_PATH);
    EXPECT_TRUE(std::filesystem::equivalent(path, "/proc/self/exe"));
    EXPECT_EQ(GetModuleFileNameA(nullptr, path, length), length);
    EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
    EXPECT_EQ(std::string(path).size(), length - 1);
}

TEST_F(Modules, OnlyAModulesOwnExportsAreFound) {
    const HMODULE platform = GetModuleHandleA("user32");
    const FARPROC found = GetProcAddress(platform, "GetTickCount");
    EXPECT_EQ(reinterpret_cast<void*>(found), reinterpret_cast<void*>(&GetTickCount));
    EXPECT_NE(GetProcAddress(platform, "HtmlHelpA"), nullptr);
    EXPECT_EQ(GetProcAddress(platform, "getpid"), nullptr) << "that is the C library's";
    EXPECT_EQ(GetLastError(), ERROR_PROC_NOT_FOUND);
    EXPECT_EQ(GetProcAddress(platform, reinterpret_cast<LPCSTR>(UINT_PTR{3})), nullptr);
    int local = 0;
    EXPECT_EQ(GetProcAddress(reinterpret_cast<HMODULE>(&local), "GetTickCount"), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST_F(Modules, AHandleEndsWithItsLibrary) {
    const std::string path = SparePath();
    if (path.empty()) GTEST_SKIP() << "no library to load and unload on this system";
    const HMODULE first = LoadLibraryA(path.c_str());
    ASSERT_TRUE(first);
    EXPECT_EQ(LoadLibraryA(path.c_str()), first);
    EXPECT_NE(GetProcAddress(first, kSpareExport), nullptr);
    EXPECT_TRUE(FreeLibrary(first));
    EXPECT_TRUE(IsLiveModule(first));
    EXPECT_TRUE(FreeLibrary(first));
    EXPECT_FALSE(IsLiveModule(first));
    EXPECT_FALSE(FreeLibrary(first));
    EXPECT_EQ(GetProcAddress(first, kSpareExport), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    const HMODULE second = LoadLibraryA(path.c_str());
    EXPECT_NE(second, first);
    FreeLibrary(second);
}

TEST_F(Modules, WhatIsMissingOrNoLibraryIsRefused) {
    EXPECT_EQ(LoadLibraryA("KVNONE.DLL"), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_MOD_NOT_FOUND);
    EXPECT_EQ(LoadLibraryA(Write("state/windows/system32/KVBAD.DLL", "MZ").c_str()), nullptr);
    EXPECT_EQ(GetLastError(), 193u);
    EXPECT_EQ(LoadLibraryA("KVBAD.DLL"), nullptr) << "found in the system directory";
    EXPECT_EQ(GetLastError(), 193u);
    EXPECT_EQ(LoadLibraryA(nullptr), nullptr);
}

}  // namespace
}  // namespace kv::test
