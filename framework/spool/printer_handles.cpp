// The table of open printers.
#include "printer_handles.h"

#include <platform/shell/handle_table.h>
#include <platform/shell/paths.h>

#include <algorithm>
#include <mutex>
#include <vector>

namespace kvspool {
namespace {

// A number of its own beside those of the platform's tables.
constexpr auto kPrinterSpace = static_cast<kv::HandleSpace>(8);
using PrinterTable = kv::HandleTable<OpenPrinter, kPrinterSpace>;

// Lives until the process ends: a library's exit code may still close printers.
struct Handles {
    PrinterTable table;
    std::mutex lock;
    std::vector<std::weak_ptr<OpenPrinter>> open;
};
Handles& Table() {
    static auto* handles = new Handles;
    return *handles;
}

}  // namespace

HANDLE AddHandle(OpenPrinter printer) {
    Handles& handles = Table();
    auto object = std::make_shared<OpenPrinter>(std::move(printer));
    std::lock_guard guard(handles.lock);
    std::erase_if(handles.open, [](const auto& entry) { return entry.expired(); });
    handles.open.push_back(object);
    return reinterpret_cast<HANDLE>(handles.table.Add(std::move(object)));
}

std::shared_ptr<const OpenPrinter> FindHandle(HANDLE handle) {
    auto found = Table().table.Find(reinterpret_cast<std::uintptr_t>(handle));
    if (!found) SetLastError(ERROR_INVALID_HANDLE);
    return found;
}

bool RemoveHandle(HANDLE handle) {
    if (Table().table.Remove(reinterpret_cast<std::uintptr_t>(handle))) return true;
    SetLastError(ERROR_INVALID_HANDLE);
    return false;
}

void RenameHandles(kv::StatePlace place, const std::string& from, const std::string& to) {
    Handles& handles = Table();
    std::lock_guard guard(handles.lock);
    for (const auto& entry : handles.open) {
        const auto printer = entry.lock();
        const bool same = printer && printer->place == place;
        if (same && kv::EqualsIgnoringCase(printer->name, from)) printer->name = to;
    }
}

}  // namespace kvspool
