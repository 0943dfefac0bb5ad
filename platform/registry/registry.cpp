// The registry functions on the state stores: the user's keys in the person's, all others in that
// of the place in force. Everybody may read; keys of the machine may be changed only by an
// administrator, keys of the user by that user.
#include <winbase.h>
#include <winreg.h>

#include <unistd.h>

#include <cstdio>
#include <cstring>

#include <platform/registry/state_store.h>
#include <platform/security/access.h>
#include <platform/shell/errors.h>
#include <platform/shell/handle_table.h>

namespace kv {

namespace {

constexpr REGSAM kDelete = 0x00010000;
constexpr REGSAM kMaximumAllowed = 0x02000000;
constexpr REGSAM kChanges = KEY_SET_VALUE | KEY_CREATE_SUB_KEY | kDelete;

struct OpenKey {
    StatePlace place = StatePlace::kPerson;
    KeyId id = 0;
    bool isMachine = false;
    REGSAM access = 0;
};

auto& Keys() {
    static auto* table = new HandleTable<OpenKey, HandleSpace::kRegistry>;
    return *table;
}

struct Place {
    StatePlace state = StatePlace::kPerson;
    KeyId parent = 0;
    std::string path;
    bool isMachine = false;
    REGSAM access = KEY_ALL_ACCESS;

    StateStore& Store() const { return StateStore::Of(state); }
};

std::string UserName() {
    char name[24];
    std::snprintf(name, sizeof name, "%lu", static_cast<unsigned long>(geteuid()));
    return name;
}

// Where a key and a path below it lie in the store.
bool Locate(HKEY key, LPCSTR subKey, Place& place) {
    place.path = subKey ? subKey : "";
    if (key == HKEY_LOCAL_MACHINE || key == HKEY_CLASSES_ROOT) {
        place.parent = key == HKEY_LOCAL_MACHINE ? kMachineRoot : kClassesRoot;
        place.isMachine = true;
        place.state = PlaceInForce();
        return true;
    }
    if (key == HKEY_CURRENT_USER) {
        place.parent = kUsersRoot;
        place.path = UserName() + (place.path.empty() ? "" : "\\" + place.path);
        return true;
    }
    const auto open = Keys().Find(reinterpret_cast<std::uintptr_t>(key));
    if (!open) return false;
    place.state = open->place;
    place.parent = open->id;
    place.isMachine = open->isMachine;
    place.access = open->access;
    return true;
}

bool MayChange(const Place& place) {
    return !place.isMachine || ActsAsAdministrator(place.state);
}

LSTATUS Status(DWORD error) {
    return static_cast<LSTATUS>(error);
}

// The key itself, for the functions on values. The user's own root comes into being when written.
DWORD ResolveKey(HKEY key, REGSAM needed, Place& place, KeyId& id) {
    if (!Locate(key, nullptr, place)) return ERROR_INVALID_HANDLE;
    if ((needed & kChanges) && !MayChange(place)) return ERROR_ACCESS_DENIED;
    if (!(place.access & needed)) return ERROR_ACCESS_DENIED;
    if (place.path.empty()) {
        id = place.parent;
        return ERROR_SUCCESS;
    }
    bool created = false;
    return needed & kChanges ? place.Store().CreateKey(place.parent, place.path, id, created)
                             : place.Store().FindKey(place.parent, place.path, id);
}

DWORD OpenHandle(const Place& place, KeyId id, REGSAM access, HKEY* result) {
    if (access & kMaximumAllowed) access = MayChange(place) ? KEY_ALL_ACCESS : KEY_READ;
    auto key = std::make_shared<OpenKey>(OpenKey{place.state, id, place.isMachine, access});
    *result = reinterpret_cast<HKEY>(Keys().Add(std::move(key)));
    return *result ? DWORD{ERROR_SUCCESS} : DWORD{ERROR_NOT_ENOUGH_MEMORY};
}

bool IsText(DWORD type) {
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

// Copies value bytes under the platform's rules for a size with or without a buffer.
DWORD CopyValue(const StoredValue& value, LPBYTE data, LPDWORD size) {
    const DWORD stored = static_cast<DWORD>(value.data.size());
    if (!size) return data ? DWORD{ERROR_INVALID_PARAMETER} : DWORD{ERROR_SUCCESS};
    const DWORD room = *size;
    *size = stored;
    if (!data) return ERROR_SUCCESS;
    if (room < stored) return ERROR_MORE_DATA;
    std::memcpy(data, value.data.data(), stored);
    // Text that was stored without its zero gets one where there is room, uncounted.
    if (IsText(value.type) && room > stored && (stored == 0 || data[stored - 1] != 0)) {
        data[stored] = 0;
    }
    return ERROR_SUCCESS;
}

// On return the size is the name's length without the zero.
DWORD CopyName(const std::string& text, LPSTR name, LPDWORD size) {
    if (!name || !size) return ERROR_INVALID_PARAMETER;
    if (*size <= text.size()) return ERROR_MORE_DATA;
    std::memcpy(name, text.c_str(), text.size() + 1);
    *size = static_cast<DWORD>(text.size());
    return ERROR_SUCCESS;
}

}  // namespace

}  // namespace kv

LSTATUS RegCreateKeyExA(HKEY key, LPCSTR subKey, DWORD, LPSTR, DWORD, REGSAM access,
                        SECURITY_ATTRIBUTES*, HKEY* result, LPDWORD disposition) {
    kv::Place place;
    if (!result) return kv::Status(ERROR_INVALID_PARAMETER);
    *result = nullptr;
    if (!subKey) return kv::Status(kv::kErrorBadKey);
    if (!kv::Locate(key, subKey, place)) return kv::Status(ERROR_INVALID_HANDLE);
    kv::KeyId id = 0;
    bool created = false;
    DWORD error = place.Store().FindKey(place.parent, place.path, id);
    const bool missing = error == ERROR_FILE_NOT_FOUND;
    if ((missing || (access & kv::kChanges)) && !kv::MayChange(place)) {
        error = ERROR_ACCESS_DENIED;
    } else if (missing) {
        error = place.Store().CreateKey(place.parent, place.path, id, created);
    }
    if (error != ERROR_SUCCESS) return kv::Status(error);
    if (disposition) *disposition = created ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY;
    return kv::Status(kv::OpenHandle(place, id, access, result));
}

LSTATUS RegOpenKeyExA(HKEY key, LPCSTR subKey, DWORD, REGSAM access, HKEY* result) {
    kv::Place place;
    if (!result) return kv::Status(ERROR_INVALID_PARAMETER);
    *result = nullptr;
    if (!kv::Locate(key, subKey, place)) return kv::Status(ERROR_INVALID_HANDLE);
    kv::KeyId id = 0;
    if (const DWORD error = place.Store().FindKey(place.parent, place.path, id)) {
        return kv::Status(error);
    }
    if ((access & kv::kChanges) && !kv::MayChange(place)) return kv::Status(ERROR_ACCESS_DENIED);
    return kv::Status(kv::OpenHandle(place, id, access, result));
}

LSTATUS RegCloseKey(HKEY key) {
    kv::Place place;
    if (!kv::Locate(key, nullptr, place)) return kv::Status(ERROR_INVALID_HANDLE);
    kv::Keys().Remove(reinterpret_cast<std::uintptr_t>(key));  // predefined keys stay open
    return kv::Status(ERROR_SUCCESS);
}

LSTATUS RegQueryValueExA(HKEY key, LPCSTR name, LPDWORD, LPDWORD type, LPBYTE data, LPDWORD size) {
    kv::Place place;
    kv::KeyId id = 0;
    kv::StoredValue value;
    if (data && !size) return kv::Status(ERROR_INVALID_PARAMETER);
    DWORD error = kv::ResolveKey(key, KEY_QUERY_VALUE, place, id);
    if (error == ERROR_SUCCESS) error = place.Store().GetValue(id, name ? name : "", value);
    if (error != ERROR_SUCCESS) return kv::Status(error);
    if (type) *type = value.type;
    return kv::Status(kv::CopyValue(value, data, size));
}

LSTATUS RegSetValueExA(HKEY key, LPCSTR name, DWORD, DWORD type, const BYTE* data, DWORD size) {
    kv::Place place;
    kv::KeyId id = 0;
    if (size > 0 && !data) return kv::Status(kv::kErrorNoAccess);
    if (const DWORD error = kv::ResolveKey(key, KEY_SET_VALUE, place, id)) return kv::Status(error);
    return kv::Status(place.Store().SetValue(id, name ? name : "", type, data, size));
}

LSTATUS RegDeleteValueA(HKEY key, LPCSTR name) {
    kv::Place place;
    kv::KeyId id = 0;
    if (const DWORD error = kv::ResolveKey(key, KEY_SET_VALUE, place, id)) return kv::Status(error);
    return kv::Status(place.Store().DeleteValue(id, name ? name : ""));
}

LSTATUS RegDeleteKeyA(HKEY key, LPCSTR subKey) {
    kv::Place place;
    if (!subKey) return kv::Status(ERROR_INVALID_PARAMETER);
    if (!kv::Locate(key, subKey, place)) return kv::Status(ERROR_INVALID_HANDLE);
    if (!kv::MayChange(place)) return kv::Status(ERROR_ACCESS_DENIED);
    return kv::Status(place.Store().DeleteKey(place.parent, place.path));
}

LSTATUS RegEnumKeyExA(HKEY key, DWORD index, LPSTR name, LPDWORD nameSize, LPDWORD, LPSTR keyClass,
                      LPDWORD classSize, FILETIME*) {
    kv::Place place;
    kv::KeyId id = 0;
    std::string text;
    DWORD error = kv::ResolveKey(key, KEY_ENUMERATE_SUB_KEYS, place, id);
    if (error == ERROR_SUCCESS) error = place.Store().EnumKey(id, index, text);
    if (error != ERROR_SUCCESS) return kv::Status(error);
    if (keyClass && classSize && *classSize > 0) keyClass[0] = '\0';
    if (classSize) *classSize = 0;
    return kv::Status(kv::CopyName(text, name, nameSize));
}

LSTATUS RegEnumValueA(HKEY key, DWORD index, LPSTR name, LPDWORD nameSize, LPDWORD, LPDWORD type,
                      LPBYTE data, LPDWORD size) {
    kv::Place place;
    kv::KeyId id = 0;
    kv::StoredValue value;
    if (data && !size) return kv::Status(ERROR_INVALID_PARAMETER);
    DWORD error = kv::ResolveKey(key, KEY_QUERY_VALUE, place, id);
    if (error == ERROR_SUCCESS) error = place.Store().EnumValue(id, index, value);
    if (error == ERROR_SUCCESS) error = kv::CopyName(value.name, name, nameSize);
    if (error != ERROR_SUCCESS) return kv::Status(error);
    if (type) *type = value.type;
    return kv::Status(kv::CopyValue(value, data, size));
}
