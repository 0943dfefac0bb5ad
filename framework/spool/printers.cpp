// Printers under the spooler's standard names: opening, information, changes, enumeration.
#include <platform/registry/state_store.h>
#include <platform/security/access.h>
#include <winspool.h>

#include <algorithm>
#include <string>
#include <vector>

#include "driver_folder.h"
#include "packed_record.h"
#include "printer_handles.h"
#include "printer_places.h"

namespace kvspool {
namespace {

constexpr DWORD kLevel = 2;
constexpr DWORD kSetInformation = 0;

std::size_t FillBrief(BYTE* buffer, const kv::PrinterRecord& printer) {
    TextArea texts(buffer, sizeof(PRINTER_INFO_1A));
    PRINTER_INFO_1A scratch;
    PRINTER_INFO_1A& info = buffer ? *reinterpret_cast<PRINTER_INFO_1A*>(buffer) : scratch;
    info.Flags = PRINTER_ENUM_ICON8;  // a printer, not a group of them
    info.pDescription = texts.Add(printer.name + "," + printer.driver + "," + printer.location);
    info.pName = texts.Add(printer.name);
    info.pComment = texts.Add(printer.comment);
    return texts.Used();
}

void FillInfo(PRINTER_INFO_2A& info, const kv::PrinterRecord& printer, TextArea& texts) {
    info = {};
    info.pServerName = nullptr;
    info.pPrinterName = texts.Add(printer.name);
    info.pShareName = texts.Add(printer.share);
    info.pPortName = texts.Add(printer.port);
    info.pDriverName = texts.Add(printer.driver);
    info.pComment = texts.Add(printer.comment);
    info.pLocation = texts.Add(printer.location);
    info.pSepFile = texts.Add(printer.separatorFile);
    info.pPrintProcessor = texts.Add(printer.printProcessor);
    info.pDatatype = texts.Add(printer.dataType);
    info.pParameters = texts.Add(printer.parameters);
    if (printer.deviceMode.size() >= sizeof(DEVMODEA)) {
        info.pDevMode = static_cast<DEVMODEA*>(texts.AddBytes(
            printer.deviceMode.data(), printer.deviceMode.size(), alignof(DEVMODEA)));
    }
    info.Attributes = printer.attributes;
    info.Priority = printer.priority;
    info.DefaultPriority = printer.defaultPriority;
    info.StartTime = printer.startTime;
    info.UntilTime = printer.untilTime;
}

// The bytes used by all records; fills nothing when `buffer` is null.
std::size_t FillInfos(BYTE* buffer, const std::vector<kv::PrinterRecord>& printers) {
    TextArea texts(buffer, printers.size() * sizeof(PRINTER_INFO_2A));
    PRINTER_INFO_2A scratch;
    auto* infos = reinterpret_cast<PRINTER_INFO_2A*>(buffer);
    for (std::size_t i = 0; i < printers.size(); ++i) {
        FillInfo(buffer ? infos[i] : scratch, printers[i], texts);
    }
    return texts.Used();
}

// Texts that the caller leaves null keep their value.
void TakeText(std::string& text, LPCSTR given) {
    if (given) text = given;
}

void TakeDeviceMode(std::string& bytes, const DEVMODEA* given) {
    if (!given || given->dmSize < sizeof(DEVMODEA)) return;
    bytes.assign(reinterpret_cast<const char*>(given), given->dmSize + given->dmDriverExtra);
}

}  // namespace
}  // namespace kvspool

using kvspool::Fail;

// Printing needs no rights; changing a printer takes an administrator. The right is checked here
// and kept with the handle, so that a handle never gains rights later.
BOOL WINAPI OpenPrinterA(LPSTR printerName, HANDLE* printer, PRINTER_DEFAULTSA* defaults) {
    if (!printer) return Fail(ERROR_INVALID_PARAMETER);
    *printer = nullptr;
    if (!printerName || !*printerName) return Fail(ERROR_INVALID_PRINTER_NAME);
    kvspool::PlacedPrinter found;
    const DWORD error = kvspool::FindPrinter(printerName, found);
    if (error != ERROR_SUCCESS) return Fail(error);
    DWORD access = defaults ? defaults->DesiredAccess : 0;
    if (access == 0) access = PRINTER_ACCESS_USE;
    if ((access & PRINTER_ACCESS_ADMINISTER) && !kv::ActsAsAdministrator(found.place)) {
        return Fail(ERROR_ACCESS_DENIED);
    }
    *printer = kvspool::AddHandle({found.record.name, found.place, access, nullptr});
    return *printer ? TRUE : Fail(ERROR_NOT_ENOUGH_MEMORY);
}

BOOL WINAPI ClosePrinter(HANDLE printer) {
    return kvspool::RemoveHandle(printer);
}

BOOL WINAPI GetPrinterA(HANDLE printer, DWORD level, LPBYTE buffer, DWORD size, LPDWORD needed) {
    const auto open = kvspool::FindHandle(printer);
    if (!open) return FALSE;
    if (level != 1 && level != kvspool::kLevel) return Fail(kvspool::kErrorInvalidLevel);
    std::vector<kv::PrinterRecord> records(1);
    const DWORD error = open->Store().GetPrinter(open->name, records[0]);
    if (error != ERROR_SUCCESS) return Fail(error);
    if (level == 1) {
        return kvspool::AnswerInBuffer(buffer, size, needed, [&](BYTE* target) {
            return kvspool::FillBrief(target, records[0]);
        });
    }
    return kvspool::AnswerInBuffer(
        buffer, size, needed, [&](BYTE* target) { return kvspool::FillInfos(target, records); });
}

BOOL WINAPI SetPrinterA(HANDLE printer, DWORD level, LPBYTE info, DWORD command) {
    const auto open = kvspool::FindHandle(printer);
    if (!open) return FALSE;
    if (level != kvspool::kLevel) return Fail(kvspool::kErrorInvalidLevel);
    if (command != kvspool::kSetInformation || !info) return Fail(ERROR_INVALID_PARAMETER);
    if (!open->MayAdminister()) return Fail(ERROR_ACCESS_DENIED);
    kv::StateStore& store = open->Store();
    const std::string name = open->name;
    kv::PrinterRecord record;
    DWORD error = store.GetPrinter(name, record);
    if (error != ERROR_SUCCESS) return Fail(error);
    const auto& given = *reinterpret_cast<const PRINTER_INFO_2A*>(info);
    kvspool::TakeText(record.name, given.pPrinterName);
    kvspool::TakeText(record.share, given.pShareName);
    kvspool::TakeText(record.port, given.pPortName);
    kvspool::TakeText(record.driver, given.pDriverName);
    kvspool::TakeText(record.comment, given.pComment);
    kvspool::TakeText(record.location, given.pLocation);
    kvspool::TakeText(record.separatorFile, given.pSepFile);
    kvspool::TakeText(record.printProcessor, given.pPrintProcessor);
    kvspool::TakeText(record.dataType, given.pDatatype);
    kvspool::TakeText(record.parameters, given.pParameters);
    kvspool::TakeDeviceMode(record.deviceMode, given.pDevMode);
    record.attributes = given.Attributes;
    record.priority = given.Priority;
    record.defaultPriority = given.DefaultPriority;
    record.startTime = given.StartTime;
    record.untilTime = given.UntilTime;
    error = store.SetPrinter(name, record);
    if (error != ERROR_SUCCESS) return Fail(error);
    if (record.name != name) kvspool::RenameHandles(open->place, name, record.name);
    return TRUE;
}

BOOL WINAPI EnumPrintersA(DWORD flags, LPSTR /*name*/, DWORD level, LPBYTE buffer, DWORD size,
                          LPDWORD needed, LPDWORD returned) {
    if (!needed || !returned) return Fail(ERROR_INVALID_PARAMETER);
    *needed = 0;
    *returned = 0;
    if (level != kvspool::kLevel) return Fail(kvspool::kErrorInvalidLevel);
    if (!(flags & PRINTER_ENUM_LOCAL)) return TRUE;  // there are no printers of other kinds
    std::vector<kvspool::PlacedPrinter> placed;
    std::string problem;
    const DWORD error = kvspool::ListPrinters(placed, problem);
    if (error != ERROR_SUCCESS && placed.empty()) return Fail(error);
    std::vector<kv::PrinterRecord> printers;
    for (kvspool::PlacedPrinter& printer : placed) {
        if (!printer.isHidden) printers.push_back(std::move(printer.record));
    }
    if (printers.empty()) return TRUE;
    if (!kvspool::AnswerInBuffer(buffer, size, needed, [&](BYTE* target) {
            return kvspool::FillInfos(target, printers);
        })) {
        return FALSE;
    }
    *returned = static_cast<DWORD>(printers.size());
    return TRUE;
}
