// Changes of a printer that are stored together (kvspool.h).
#include "printer_change.h"

#include <kvspool.h>
#include <winbase.h>

#include <memory>

namespace kvspool {
namespace {
ChangeWatcher* watching = nullptr;
}  // namespace

void WatchChanges(ChangeWatcher* watcher) {
    watching = watcher;
}

}  // namespace kvspool

DWORD KVSPBeginPrinterChange(HANDLE printer) {
    const auto open = kvspool::FindHandle(printer);
    if (!open) return ERROR_INVALID_HANDLE;
    if (!open->MayAdminister()) return ERROR_ACCESS_DENIED;
    if (open->change) return ERROR_INVALID_PARAMETER;
    auto change = std::make_unique<kv::StoreTransaction>(open->Store());
    if (const DWORD error = change->Error()) return error;
    open->change = std::move(change);
    if (kvspool::watching) kvspool::watching->Begun(*open);
    return ERROR_SUCCESS;
}

DWORD KVSPEndPrinterChange(HANDLE printer, BOOL keep) {
    const auto open = kvspool::FindHandle(printer);
    if (!open || !open->change) return ERROR_INVALID_HANDLE;
    const std::unique_ptr<kv::StoreTransaction> change = std::move(open->change);
    if (!keep) return ERROR_SUCCESS;
    if (kvspool::watching) kvspool::watching->Ending(*open);
    const DWORD error = change->Commit();
    if (kvspool::watching) kvspool::watching->Ended(error == ERROR_SUCCESS);
    return error;
}
