// See copy_printer.h.
#include "copy_printer.h"

#include <platform/registry/state_store.h>
#include <platform/shell/errors.h>
#include <winbase.h>

#include "driver_files.h"
#include "install_printer.h"
#include "port_entries.h"

namespace kvcore {
namespace {

DWORD ReadAll(const PrinterAddress& from, kv::PrinterRecord& record,
              std::vector<kv::StoredValue>& values) {
    kv::StateStore& store = kv::StateStore::Of(from.place);
    const DWORD error = store.GetPrinter(from.name, record);
    return error != ERROR_SUCCESS ? error : store.ListPrinterData(from.name, values);
}

DWORD WriteAll(const PrinterAddress& to, const kv::PrinterRecord& record,
               const std::vector<kv::StoredValue>& values, const std::string& device) {
    kv::StateStore& store = kv::StateStore::Of(to.place);
    kv::StoreTransaction transaction(store);
    DWORD error = transaction.Error();
    if (error == ERROR_SUCCESS) error = store.AddPrinter(record);
    if (error == ERROR_SUCCESS) error = RegisterPort(store, record.port, device);
    for (const kv::StoredValue& value : values) {
        if (error != ERROR_SUCCESS) break;
        error = store.SetPrinterData(record.name, value.name, value.type, value.data.data(),
                                     value.data.size());
    }
    return error == ERROR_SUCCESS ? transaction.Commit() : error;
}

}  // namespace

bool CopyPrinter(const PrinterAddress& from, const PrinterAddress& to, const std::string& modelsDir,
                 std::vector<std::string>& done, std::string& error) {
    kv::PrinterRecord record;
    std::vector<kv::StoredValue> values;
    if (!CheckPrinterName(to.name, error)) return false;
    if (const DWORD code = ReadAll(from, record, values)) {
        error = StoreProblem(from.place, from.name, code);
        return false;
    }
    kv::PrinterRecord existing;
    if (kv::StateStore::Of(to.place).GetPrinter(to.name, existing) == ERROR_SUCCESS) {
        error = StoreProblem(to.place, existing.name, kv::kErrorPrinterAlreadyExists);
        return false;
    }
    const DriverFiles files = TakeOverModel(modelsDir, to.place);
    done = files.done;
    error = files.error;
    if (!error.empty()) return false;
    record.name = to.name;
    const DWORD code =
        WriteAll(to, record, values, DeviceOfPort(kv::StateStore::Of(from.place), record.port));
    if (code != ERROR_SUCCESS) error = StoreProblem(to.place, to.name, code);
    return code == ERROR_SUCCESS;
}

}  // namespace kvcore
