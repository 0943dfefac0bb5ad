// The registry functions: keys, values, enumeration, rights and handles.
#include <platform/shell/errors.h>

#include <cstring>

#include "tests/platform/shell/scratch.h"

namespace kv::test {
namespace {

class Registry : public ScratchTest {
 protected:
    Registry() { SetActingAsAdministrator(true); }

    static HKEY Create(HKEY parent, const char* path, LSTATUS expected = ERROR_SUCCESS) {
        HKEY key{};
        EXPECT_EQ(
            RegCreateKeyExA(parent, path, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr),
            expected)
            << path;
        return key;
    }
    static LSTATUS Open(HKEY parent, const char* path, REGSAM access, HKEY& key) {
        return RegOpenKeyExA(parent, path, 0, access, &key);
    }
    static LSTATUS Set(HKEY key, const char* name, const std::string& bytes, DWORD type = REG_SZ) {
        return RegSetValueExA(key, name, 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                              static_cast<DWORD>(bytes.size()));
    }
};

TEST_F(Registry, KeysAndValuesAreFoundInAnyCase) {
    DWORD disposition = 0;
    HKEY key{};
    ASSERT_EQ(RegCreateKeyExA(HKEY_LOCAL_MACHINE, "Soft\\Deep\\Key", 0, nullptr, 0, KEY_ALL_ACCESS,
                              nullptr, &key, &disposition),
              ERROR_SUCCESS);
    EXPECT_EQ(disposition, REG_CREATED_NEW_KEY);
    EXPECT_EQ(Set(key, "Name", "text"), ERROR_SUCCESS);
    EXPECT_EQ(Set(key, nullptr, "the key's own"), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_INVALID_HANDLE);

    ASSERT_EQ(Open(HKEY_LOCAL_MACHINE, "SOFT\\deep\\KEY\\", KEY_READ, key), ERROR_SUCCESS);
    BYTE data[16];
    DWORD size = sizeof data;
    DWORD type = 0;
    EXPECT_EQ(RegQueryValueExA(key, "nAME", nullptr, &type, data, &size), ERROR_SUCCESS);
    EXPECT_EQ(std::string(data, data + size), "text");
    EXPECT_EQ(type, REG_SZ);
    EXPECT_EQ(data[4], 0) << "text gets a zero where there is room";
    size = 3;
    EXPECT_EQ(RegQueryValueExA(key, "", nullptr, nullptr, data, &size), ERROR_MORE_DATA);
    EXPECT_EQ(size, 13u);
    size = 0;
    EXPECT_EQ(RegQueryValueExA(key, "Name", nullptr, nullptr, nullptr, &size), ERROR_SUCCESS);
    EXPECT_EQ(size, 4u);
    EXPECT_EQ(RegQueryValueExA(key, "None", nullptr, nullptr, data, &size), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegQueryValueExA(key, "Name", nullptr, nullptr, data, nullptr),
              ERROR_INVALID_PARAMETER);
    EXPECT_EQ(Set(key, "Name", "x"), ERROR_ACCESS_DENIED) << "the key was opened for reading";
}

TEST_F(Registry, EnumerationEndsAndReportsShortBuffers) {
    const HKEY ports = Create(HKEY_LOCAL_MACHINE, "Ports");
    for (const char* name : {"IP_2", "ip_10", "IP_1"}) RegCloseKey(Create(ports, name));
    char name[8];
    std::string found;
    for (DWORD index = 0;; ++index) {
        DWORD size = sizeof name;
        const LSTATUS status =
            RegEnumKeyExA(ports, index, name, &size, nullptr, nullptr, nullptr, nullptr);
        if (status == ERROR_NO_MORE_ITEMS) break;
        ASSERT_EQ(status, ERROR_SUCCESS);
        EXPECT_EQ(size, std::strlen(name));
        found += std::string(name) + " ";
    }
    EXPECT_EQ(found, "IP_1 ip_10 IP_2 ");
    DWORD size = 4;
    EXPECT_EQ(RegEnumKeyExA(ports, 0, name, &size, nullptr, nullptr, nullptr, nullptr),
              ERROR_MORE_DATA);
    Set(ports, "b", "1");
    Set(ports, "a", "2");
    size = sizeof name;
    EXPECT_EQ(RegEnumValueA(ports, 0, name, &size, nullptr, nullptr, nullptr, nullptr),
              ERROR_SUCCESS);
    EXPECT_STREQ(name, "b") << "values come in the order they were made";
    size = sizeof name;
    EXPECT_EQ(RegEnumValueA(ports, 2, name, &size, nullptr, nullptr, nullptr, nullptr),
              ERROR_NO_MORE_ITEMS);
}

TEST_F(Registry, AKeyIsDeletedOnlyWithoutSubKeys) {
    const HKEY key = Create(HKEY_LOCAL_MACHINE, "A\\B");
    Set(key, "v", "1");
    EXPECT_EQ(RegDeleteKeyA(HKEY_LOCAL_MACHINE, "A"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegDeleteValueA(key, "V"), ERROR_SUCCESS);
    EXPECT_EQ(RegDeleteValueA(key, "V"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegDeleteKeyA(HKEY_LOCAL_MACHINE, "a\\b"), ERROR_SUCCESS);
    EXPECT_EQ(Set(key, "v", "1"), static_cast<LSTATUS>(kErrorKeyDeleted));
    Create(HKEY_LOCAL_MACHINE, "A\\B");
    EXPECT_EQ(Set(key, "v", "1"), static_cast<LSTATUS>(kErrorKeyDeleted))
        << "an old handle does not come to name a new key";
    EXPECT_EQ(RegDeleteKeyA(HKEY_LOCAL_MACHINE, "none"), ERROR_FILE_NOT_FOUND);
}

TEST_F(Registry, OnlyAnAdministratorChangesTheMachine) {
    Create(HKEY_LOCAL_MACHINE, "Shared");
    SetActingAsAdministrator(false);
    HKEY key{};
    EXPECT_EQ(Open(HKEY_LOCAL_MACHINE, "Shared", KEY_ALL_ACCESS, key), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Open(HKEY_LOCAL_MACHINE, "Shared", KEY_READ, key), ERROR_SUCCESS);
    Create(HKEY_LOCAL_MACHINE, "Mine", ERROR_ACCESS_DENIED);
    Create(key, "Mine", ERROR_ACCESS_DENIED);
    EXPECT_EQ(Set(HKEY_LOCAL_MACHINE, "v", "1"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegDeleteKeyA(HKEY_LOCAL_MACHINE, "Shared"), ERROR_ACCESS_DENIED);
    const HKEY own = Create(HKEY_CURRENT_USER, "Software\\Mine");
    EXPECT_EQ(Set(own, "v", "1"), ERROR_SUCCESS);
    EXPECT_EQ(Set(HKEY_CURRENT_USER, "v", "1"), ERROR_SUCCESS);
}

TEST_F(Registry, BadArgumentsAreAnswered) {
    HKEY key{};
    EXPECT_EQ(Open(reinterpret_cast<HKEY>(UINT_PTR{12345}), "x", KEY_READ, key),
              ERROR_INVALID_HANDLE);
    EXPECT_EQ(Open(HKEY_LOCAL_MACHINE, "none", KEY_READ, key), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(key, nullptr);
    Create(HKEY_LOCAL_MACHINE, "\\lead", static_cast<LSTATUS>(kErrorBadPathname));
    Create(HKEY_LOCAL_MACHINE, "a\\\\b", static_cast<LSTATUS>(kErrorBadPathname));
    EXPECT_EQ(RegOpenKeyExA(HKEY_LOCAL_MACHINE, "x", 0, KEY_READ, nullptr),
              ERROR_INVALID_PARAMETER);
    EXPECT_EQ(RegSetValueExA(HKEY_CURRENT_USER, "v", 0, REG_SZ, nullptr, 4),
              static_cast<LSTATUS>(kErrorNoAccess));
}

}  // namespace
}  // namespace kv::test
