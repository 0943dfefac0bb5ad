// Printer data: named values of a printer. Names that begin with "#GET#" or "#SET#" are no values
// but requests to the printer, which the language monitor carries.
#include <framework/monitor/language_monitor.h>
#include <winreg.h>
#include <winspool.h>

#include <cstring>
#include <string>

#include "printer_handles.h"

namespace {

// The printer's record in the store holds everything else; a megabyte is a fault of the caller.
constexpr DWORD kMaxValueSize = 1 << 20;

DWORD CopyOut(const std::string& bytes, LPBYTE data, DWORD size, LPDWORD needed) {
    *needed = static_cast<DWORD>(bytes.size());
    if (size < bytes.size() || (!data && !bytes.empty())) return ERROR_MORE_DATA;
    if (!bytes.empty()) std::memcpy(data, bytes.data(), bytes.size());
    return ERROR_SUCCESS;
}

// Replies have no terminating zero of their own; readers treat them as text, so one follows when
// there is room.
DWORD CopyReply(const std::string& reply, LPBYTE data, DWORD size, LPDWORD needed) {
    const DWORD error = CopyOut(reply, data, size, needed);
    if (error == ERROR_SUCCESS && data && reply.size() < size) data[reply.size()] = 0;
    return error;
}

DWORD ReadFromPrinter(const kvspool::OpenPrinter& printer, LPCSTR request, LPDWORD type,
                      LPBYTE data, DWORD size, LPDWORD needed) {
    kv::PrinterRecord record;
    DWORD error = printer.Store().GetPrinter(printer.name, record);
    if (error != ERROR_SUCCESS) return error;
    std::string reply;
    error = kvmonitor::Ask(record.port, request, reply);
    if (error != ERROR_SUCCESS) return error;
    if (type) *type = REG_BINARY;
    return CopyReply(reply, data, size, needed);
}

}  // namespace

DWORD WINAPI GetPrinterDataA(HANDLE printer, LPSTR valueName, LPDWORD type, LPBYTE data, DWORD size,
                             LPDWORD needed) {
    const auto open = kvspool::FindHandle(printer);
    if (!open) return ERROR_INVALID_HANDLE;
    if (!valueName || !needed) return ERROR_INVALID_PARAMETER;
    *needed = 0;
    if (kvmonitor::IsRequest(valueName)) {
        return ReadFromPrinter(*open, valueName, type, data, size, needed);
    }
    kv::StoredValue value;
    const DWORD error = open->Store().GetPrinterData(open->name, valueName, value);
    if (error != ERROR_SUCCESS) return error;
    if (type) *type = value.type;
    return CopyOut(value.data, data, size, needed);
}

DWORD WINAPI SetPrinterDataA(HANDLE printer, LPSTR valueName, DWORD type, LPBYTE data, DWORD size) {
    const auto open = kvspool::FindHandle(printer);
    if (!open) return ERROR_INVALID_HANDLE;
    if (!valueName || !*valueName || (!data && size != 0) || size > kMaxValueSize) {
        return ERROR_INVALID_PARAMETER;
    }
    if (!open->MayAdminister()) return ERROR_ACCESS_DENIED;
    if (kvmonitor::IsRequest(valueName)) {
        kv::PrinterRecord record;
        const DWORD error = open->Store().GetPrinter(open->name, record);
        if (error != ERROR_SUCCESS) return error;
        return kvmonitor::Tell(record.port, valueName);
    }
    return open->Store().SetPrinterData(open->name, valueName, type, data, size);
}

DWORD WINAPI DeletePrinterDataA(HANDLE printer, LPSTR valueName) {
    const auto open = kvspool::FindHandle(printer);
    if (!open) return ERROR_INVALID_HANDLE;
    if (!valueName) return ERROR_INVALID_PARAMETER;
    if (!open->MayAdminister()) return ERROR_ACCESS_DENIED;
    return open->Store().DeletePrinterData(open->name, valueName);
}
