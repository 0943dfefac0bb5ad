// Changes of a printer that are stored together (kvspool.h).
#include <kvspool.h>

#include <memory>

#include "printer_handles.h"

DWORD KVSPBeginPrinterChange(HANDLE printer) {
    const auto open = kvspool::FindHandle(printer);
    if (!open) return ERROR_INVALID_HANDLE;
    if (!open->MayAdminister()) return ERROR_ACCESS_DENIED;
    if (open->change) return ERROR_INVALID_PARAMETER;
    auto change = std::make_unique<kv::StoreTransaction>(open->Store());
    const DWORD error = change->Error();
    if (error == ERROR_SUCCESS) open->change = std::move(change);
    return error;
}

DWORD KVSPEndPrinterChange(HANDLE printer, BOOL keep) {
    const auto open = kvspool::FindHandle(printer);
    if (!open || !open->change) return ERROR_INVALID_HANDLE;
    const std::unique_ptr<kv::StoreTransaction> change = std::move(open->change);
    return keep ? change->Commit() : DWORD{ERROR_SUCCESS};
}
