// What the parts of the state store share: the connection, its lock and the transaction depth.
#pragma once

#include <winbase.h>

#include <mutex>

#include <platform/registry/state_store.h>
#include <platform/registry/store_database.h>
#include <platform/shell/file_changes.h>

namespace kv {

struct StateStore::Inside {
    std::recursive_mutex lock;
    StoreDatabase database;
    int depth = 0;        // nested transactions
    bool failed = false;  // an inner transaction was given up: the outermost may not commit

    // The printer that every open handle asks for, as long as what was read can be trusted.
    PrinterRecord printer;
    unsigned long long printerTrust = 0;

    // Ready for a read or a write? Inside a transaction the connection stays as it is.
    DWORD Prepare(StoreAccess access) {
        if (access == StoreAccess::kWrite) NoteFileChange();
        return depth > 0 ? DWORD{ERROR_SUCCESS} : database.Prepare(access);
    }
};

constexpr std::size_t kLargestValue = std::size_t{64} << 20;

}  // namespace kv
