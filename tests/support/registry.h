// Values of the registry, to look at and to put there.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>
#include <winreg.h>

#include <string>

namespace kvtest {

// Empty when there is none.
inline std::string RegistryValue(HKEY root, const std::string& path, const char* name) {
    HKEY key = nullptr;
    if (RegOpenKeyExA(root, path.c_str(), 0, KEY_READ, &key) != 0) return "";
    std::string bytes(1 << 16, '\0');
    DWORD size = static_cast<DWORD>(bytes.size());
    const LSTATUS error =
        RegQueryValueExA(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(bytes.data()), &size);
    RegCloseKey(key);
    bytes.resize(error == 0 ? size : 0);
    return bytes;
}

inline void PutRegistryValue(HKEY root, const std::string& path, const char* name, DWORD type,
                             const std::string& bytes) {
    HKEY key = nullptr;
    ASSERT_EQ(
        RegCreateKeyExA(root, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
        0);
    RegSetValueExA(key, name, 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                   static_cast<DWORD>(bytes.size()));
    RegCloseKey(key);
}

}  // namespace kvtest
