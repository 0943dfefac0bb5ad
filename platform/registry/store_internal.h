// What the parts of the state store share: the connection, its lock and the transaction depth.
#pragma once

#include <winbase.h>

#include <mutex>

#include <platform/registry/state_store.h>
#include <platform/registry/store_database.h>
#include <platform/shell/file_changes.h>

namespace kv {

struct StateStore::Inside {
    explicit Inside(StatePlace place) : database(place) {}

    std::recursive_mutex lock;
    StoreDatabase database;
    int depth = 0;        // nested transactions
    bool failed = false;  // an inner transaction was given up: the outermost may not commit

    // The printer that every open handle asks for, as long as what was read can be trusted.
    PrinterRecord printer;
    unsigned long long printerTrust = 0;

    // Ready for a read? Inside a transaction the connection stays as it is.
    DWORD PrepareRead() {
        return depth > 0 ? DWORD{ERROR_SUCCESS} : database.Prepare(StoreAccess::kRead);
    }
};

// A statement that failed changed nothing: what stands around it may go on.
template <typename Statement>
DWORD StateStore::Change(Statement statement) {
    StoreTransaction transaction(*this);
    if (const DWORD error = transaction.Error()) return error;
    const DWORD failed = statement();
    if (failed && !transaction.IsInner()) return failed;
    const DWORD error = transaction.Commit();
    return failed ? failed : error;
}

constexpr std::size_t kLargestValue = std::size_t{64} << 20;

}  // namespace kv
