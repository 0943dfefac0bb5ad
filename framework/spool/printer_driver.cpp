// The driver of a printer and the folder of its files, as the spooler's queries answer them.
#include <winspool.h>

#include <string>

#include "driver_folder.h"
#include "packed_record.h"
#include "printer_handles.h"

namespace kvspool {

std::string DriverDirectory(kv::StatePlace place) {
    const std::string state = kv::StateDirectoryOf(place);
    return state.empty() ? std::string() : state + "/driver";
}

std::string DriverFile(kv::StatePlace place, const char* name) {
    const std::string folder = DriverDirectory(place);
    if (folder.empty()) return {};
    return folder + "\\" + std::to_string(kDriverVersion) + "\\" + name;
}

namespace {

std::size_t FillDriver(BYTE* buffer, kv::StatePlace place, const std::string& driver) {
    TextArea texts(buffer, sizeof(DRIVER_INFO_2A));
    DRIVER_INFO_2A scratch;
    DRIVER_INFO_2A& info = buffer ? *reinterpret_cast<DRIVER_INFO_2A*>(buffer) : scratch;
    info.cVersion = kDriverVersion;
    info.pName = texts.Add(driver);
    info.pEnvironment = texts.Add(kEnvironment);
    info.pDriverPath = texts.Add(DriverFile(place, kModuleFile));
    info.pDataFile = texts.Add(DriverFile(place, kDescriptionFile));
    info.pConfigFile = texts.Add(DriverFile(place, kModuleFile));
    return texts.Used();
}

}  // namespace
}  // namespace kvspool

using kvspool::Fail;

BOOL WINAPI GetPrinterDriverA(HANDLE printer, LPSTR /*environment*/, DWORD level, LPBYTE buffer,
                              DWORD size, LPDWORD needed) {
    const auto open = kvspool::FindHandle(printer);
    if (!open) return FALSE;
    if (level != 2) return Fail(kvspool::kErrorInvalidLevel);
    kv::PrinterRecord record;
    const DWORD error = open->Store().GetPrinter(open->name, record);
    if (error != ERROR_SUCCESS) return Fail(error);
    return kvspool::AnswerInBuffer(buffer, size, needed, [&](BYTE* target) {
        return kvspool::FillDriver(target, open->place, record.driver);
    });
}

BOOL WINAPI GetPrinterDriverDirectoryA(LPSTR server, LPSTR /*environment*/, DWORD level,
                                       LPBYTE directory, DWORD size, LPDWORD needed) {
    if (level != 1) return Fail(kvspool::kErrorInvalidLevel);
    if (server && *server) return Fail(ERROR_INVALID_NAME);  // there is no server but this one
    const std::string folder = kvspool::DriverDirectory(kv::PlaceInForce());
    if (folder.empty()) return Fail(ERROR_PATH_NOT_FOUND);
    return kvspool::AnswerInBuffer(directory, size, needed, [&](BYTE* target) {
        kvspool::TextArea texts(target, 0);
        texts.Add(folder);
        return texts.Used();
    });
}
