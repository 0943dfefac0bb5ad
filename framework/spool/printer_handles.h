// Open printers: checked handles that remember the printer's name and the rights they were opened
// with. Shared by the files of the spooler layer.
#pragma once

#include <platform/registry/state_store.h>
#include <winspool.h>

#include <memory>
#include <string>

namespace kvspool {

struct OpenPrinter {
    std::string name;
    kv::StatePlace place = kv::StatePlace::kPerson;
    DWORD access = 0;
    // Of what is written until KVSPEndPrinterChange; null while nothing is held together.
    mutable std::unique_ptr<kv::StoreTransaction> change;

    kv::StateStore& Store() const { return kv::StateStore::Of(place); }
    bool MayAdminister() const { return (access & PRINTER_ACCESS_ADMINISTER) != 0; }
};

HANDLE AddHandle(OpenPrinter printer);
// Null, with ERROR_INVALID_HANDLE as last error, when the handle names no open printer.
std::shared_ptr<const OpenPrinter> FindHandle(HANDLE handle);
bool RemoveHandle(HANDLE handle);
// A printer that was renamed through one handle stays reachable by the others.
void RenameHandles(kv::StatePlace place, const std::string& from, const std::string& to);

}  // namespace kvspool
