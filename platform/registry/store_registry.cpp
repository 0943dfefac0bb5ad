// The registry half of the state store: a tree of keys with values.
#include <platform/registry/store_internal.h>

#include <algorithm>

#include <platform/shell/errors.h>

namespace kv {

namespace {

constexpr std::size_t kLongestKeyName = 255;

// Key names of a path; false for an empty name in the middle, a leading backslash or a name that
// is too long. A trailing backslash is tolerated.
bool SplitPath(const std::string& path, std::vector<std::string>& names) {
    std::size_t start = 0;
    while (start < path.size()) {
        const std::size_t end = std::min(path.find('\\', start), path.size());
        if (end == start || end - start > kLongestKeyName) return false;
        names.push_back(path.substr(start, end - start));
        start = end + 1;
    }
    return true;
}

DWORD FindChild(StoreDatabase& database, KeyId parent, const std::string& name, KeyId& key) {
    Statement query = database.Use("SELECT id FROM registry_key WHERE parent = ?1 AND name = ?2");
    if (query.Number(1, parent).Text(2, name).NextRow()) {
        key = query.WideNumberAt(0);
        return ERROR_SUCCESS;
    }
    const DWORD failed = database.Fail(query.Result());
    return failed ? failed : DWORD{ERROR_FILE_NOT_FOUND};
}

DWORD CheckKey(StoreDatabase& database, KeyId key) {
    Statement query = database.Use("SELECT 1 FROM registry_key WHERE id = ?1");
    if (query.Number(1, key).NextRow()) return ERROR_SUCCESS;
    const DWORD failed = database.Fail(query.Result());
    return failed ? failed : kErrorKeyDeleted;
}

DWORD AddChild(StoreDatabase& database, KeyId parent, const std::string& name) {
    Statement insert = database.Use("INSERT INTO registry_key (parent, name) VALUES (?1, ?2)");
    insert.Number(1, parent).Text(2, name).Run();
    return database.Fail(insert.Result());
}

}  // namespace

DWORD StateStore::FindKey(KeyId parent, const std::string& path, KeyId& key) {
    std::lock_guard guard(inside_->lock);
    std::vector<std::string> names;
    if (!SplitPath(path, names)) return kErrorBadPathname;
    if (const DWORD error = inside_->PrepareRead()) return error;
    if (!inside_->database.IsOpen()) return ERROR_FILE_NOT_FOUND;
    if (const DWORD error = CheckKey(inside_->database, parent)) return error;
    key = parent;
    for (const std::string& name : names) {
        if (const DWORD error = FindChild(inside_->database, key, name, key)) return error;
    }
    return ERROR_SUCCESS;
}

DWORD StateStore::CreateKey(KeyId parent, const std::string& path, KeyId& key, bool& created) {
    created = false;
    const DWORD found = FindKey(parent, path, key);
    if (found != ERROR_FILE_NOT_FOUND) return found;
    StoreTransaction transaction(*this);
    if (const DWORD error = transaction.Error()) return error;
    if (const DWORD error = CheckKey(inside_->database, parent)) return error;
    std::vector<std::string> names;
    SplitPath(path, names);
    key = parent;
    for (const std::string& name : names) {
        KeyId child = 0;
        DWORD error = FindChild(inside_->database, key, name, child);
        if (error == ERROR_FILE_NOT_FOUND) {
            created = true;
            error = AddChild(inside_->database, key, name);
            if (error == ERROR_SUCCESS) error = FindChild(inside_->database, key, name, child);
        }
        if (error != ERROR_SUCCESS) return error;
        key = child;
    }
    return transaction.Commit();
}

DWORD StateStore::DeleteKey(KeyId parent, const std::string& path) {
    std::lock_guard guard(inside_->lock);
    KeyId key = 0;
    if (const DWORD error = FindKey(parent, path, key)) return error;
    if (key <= kUsersRoot) return ERROR_ACCESS_DENIED;
    return Change([&]() -> DWORD {
        Statement remove = inside_->database.Use(
            "DELETE FROM registry_key WHERE id = ?1"
            " AND NOT EXISTS (SELECT 1 FROM registry_key child WHERE child.parent = ?1)");
        const int changed = remove.Number(1, key).Run();
        const DWORD failed = inside_->database.Fail(remove.Result());
        return failed || changed ? failed : DWORD{ERROR_ACCESS_DENIED};
    });
}

DWORD StateStore::EnumKey(KeyId key, DWORD index, std::string& name) {
    std::lock_guard guard(inside_->lock);
    if (const DWORD error = inside_->PrepareRead()) return error;
    if (!inside_->database.IsOpen()) return ERROR_NO_MORE_ITEMS;
    Statement query = inside_->database.Use(
        "SELECT name FROM registry_key WHERE parent = ?1 ORDER BY name LIMIT 1 OFFSET ?2");
    if (query.Number(1, key).Number(2, index).NextRow()) {
        name = query.TextAt(0);
        return ERROR_SUCCESS;
    }
    if (const DWORD failed = inside_->database.Fail(query.Result())) return failed;
    const DWORD gone = CheckKey(inside_->database, key);
    return gone ? gone : DWORD{ERROR_NO_MORE_ITEMS};
}

DWORD StateStore::GetValue(KeyId key, const std::string& name, StoredValue& value) {
    std::lock_guard guard(inside_->lock);
    if (const DWORD error = inside_->PrepareRead()) return error;
    if (!inside_->database.IsOpen()) return ERROR_FILE_NOT_FOUND;
    Statement query = inside_->database.Use(
        "SELECT name, type, data FROM registry_value WHERE key = ?1 AND name = ?2");
    if (query.Number(1, key).Text(2, name).NextRow()) {
        value = {query.TextAt(0), query.NumberAt(1), query.TextAt(2)};
        return ERROR_SUCCESS;
    }
    if (const DWORD failed = inside_->database.Fail(query.Result())) return failed;
    const DWORD gone = CheckKey(inside_->database, key);
    return gone ? gone : DWORD{ERROR_FILE_NOT_FOUND};
}

DWORD StateStore::SetValue(KeyId key, const std::string& name, DWORD type, const void* data,
                           std::size_t size) {
    std::lock_guard guard(inside_->lock);
    if (size > kLargestValue || (size > 0 && !data)) return ERROR_INVALID_PARAMETER;
    if (const DWORD error = inside_->PrepareRead()) return error;
    if (inside_->database.IsOpen()) {
        Statement same = inside_->database.Use(
            "SELECT 1 FROM registry_value WHERE key = ?1 AND name = ?2 AND type = ?3 AND data = "
            "?4");
        if (same.Number(1, key).Text(2, name).Number(3, type).Blob(4, data, size).NextRow()) {
            return ERROR_SUCCESS;
        }
    }
    return Change([&]() -> DWORD {
        Statement upsert = inside_->database.Use(
            "INSERT INTO registry_value (key, name, type, data)"
            " SELECT id, ?2, ?3, ?4 FROM registry_key WHERE id = ?1"
            " ON CONFLICT (key, name) DO UPDATE SET type = excluded.type, data = excluded.data");
        const int changed =
            upsert.Number(1, key).Text(2, name).Number(3, type).Blob(4, data, size).Run();
        const DWORD failed = inside_->database.Fail(upsert.Result());
        return failed || changed ? failed : kErrorKeyDeleted;
    });
}

DWORD StateStore::DeleteValue(KeyId key, const std::string& name) {
    return Change([&]() -> DWORD {
        Statement remove =
            inside_->database.Use("DELETE FROM registry_value WHERE key = ?1 AND name = ?2");
        const int changed = remove.Number(1, key).Text(2, name).Run();
        const DWORD failed = inside_->database.Fail(remove.Result());
        return failed || changed ? failed : DWORD{ERROR_FILE_NOT_FOUND};
    });
}

DWORD StateStore::EnumValue(KeyId key, DWORD index, StoredValue& value) {
    std::lock_guard guard(inside_->lock);
    if (const DWORD error = inside_->PrepareRead()) return error;
    if (!inside_->database.IsOpen()) return ERROR_NO_MORE_ITEMS;
    Statement query = inside_->database.Use(
        "SELECT name, type, data FROM registry_value WHERE key = ?1 ORDER BY rowid"
        " LIMIT 1 OFFSET ?2");
    if (query.Number(1, key).Number(2, index).NextRow()) {
        value = {query.TextAt(0), query.NumberAt(1), query.TextAt(2)};
        return ERROR_SUCCESS;
    }
    if (const DWORD failed = inside_->database.Fail(query.Result())) return failed;
    const DWORD gone = CheckKey(inside_->database, key);
    return gone ? gone : DWORD{ERROR_NO_MORE_ITEMS};
}

}  // namespace kv
