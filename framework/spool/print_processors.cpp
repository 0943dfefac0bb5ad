// Print processors: programs of the driver package that turn spooled jobs into the printer's data.
// Which ones are installed stands in the registry, as on the genuine platform; their files lie in
// the spooler's own folder.
#include <platform/registry/state_store.h>
#include <platform/security/access.h>
#include <winreg.h>
#include <winspool.h>

#include <string>
#include <vector>

#include "driver_folder.h"
#include "packed_record.h"

namespace kvspool {
namespace {

constexpr char kEnvironments[] = "SYSTEM\\CurrentControlSet\\Control\\Print\\Environments\\";
constexpr char kFolder[] = "\\spool\\prtprocs\\w32x86\\";
constexpr char kStandard[] = "winprint";  // comes with the spooler
constexpr char kDriverValue[] = "Driver";

std::string KeyOfProcessors() {
    return std::string(kEnvironments) + kEnvironment + "\\Print Processors";
}

// This server and this environment, or why not.
DWORD CheckPlace(LPCSTR server, LPCSTR environment) {
    if (server && *server) return ERROR_INVALID_NAME;
    if (environment && *environment && lstrcmpiA(environment, kEnvironment) != 0) {
        return ERROR_INVALID_ENVIRONMENT;
    }
    return ERROR_SUCCESS;
}

DWORD ListProcessors(std::vector<std::string>& names) {
    names = {kStandard};
    kv::StateStore& store = kv::StateStore::Get();
    kv::KeyId key = 0;
    DWORD error = store.FindKey(kv::kMachineRoot, KeyOfProcessors(), key);
    if (error == ERROR_FILE_NOT_FOUND) return ERROR_SUCCESS;
    std::string name;
    for (DWORD i = 0; error == ERROR_SUCCESS; ++i) {
        error = store.EnumKey(key, i, name);
        if (error == ERROR_SUCCESS) names.push_back(name);
    }
    return error == ERROR_NO_MORE_ITEMS ? ERROR_SUCCESS : error;
}

std::size_t FillNames(BYTE* buffer, const std::vector<std::string>& names) {
    TextArea texts(buffer, names.size() * sizeof(PRINTPROCESSOR_INFO_1A));
    auto* infos = reinterpret_cast<PRINTPROCESSOR_INFO_1A*>(buffer);
    for (std::size_t i = 0; i < names.size(); ++i) {
        char* place = texts.Add(names[i]);
        if (buffer) infos[i].pName = place;
    }
    return texts.Used();
}

bool IsPlainName(LPCSTR name) {
    return name && *name && std::string(name).find_first_of("\\/") == std::string::npos;
}

bool FileIsThere(LPCSTR name) {
    char folder[MAX_PATH];
    const UINT length = GetSystemDirectoryA(folder, sizeof folder);
    if (length == 0 || length >= sizeof folder) return false;
    const DWORD attributes = GetFileAttributesA((std::string(folder) + kFolder + name).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

}  // namespace
}  // namespace kvspool

using kvspool::Fail;

BOOL WINAPI EnumPrintProcessorsA(LPSTR server, LPSTR environment, DWORD level, LPBYTE buffer,
                                 DWORD size, LPDWORD needed, LPDWORD returned) {
    if (!needed || !returned) return Fail(ERROR_INVALID_PARAMETER);
    *needed = 0;
    *returned = 0;
    if (level != 1) return Fail(kvspool::kErrorInvalidLevel);
    DWORD error = kvspool::CheckPlace(server, environment);
    std::vector<std::string> names;
    if (error == ERROR_SUCCESS) error = kvspool::ListProcessors(names);
    if (error != ERROR_SUCCESS) return Fail(error);
    if (!kvspool::AnswerInBuffer(buffer, size, needed,
                                 [&](BYTE* target) { return kvspool::FillNames(target, names); })) {
        return FALSE;
    }
    *returned = static_cast<DWORD>(names.size());
    return TRUE;
}

// The file must have been copied to the folder of print processors before.
BOOL WINAPI AddPrintProcessorA(LPSTR server, LPSTR environment, LPSTR path, LPSTR name) {
    DWORD error = kvspool::CheckPlace(server, environment);
    if (error != ERROR_SUCCESS) return Fail(error);
    if (!kvspool::IsPlainName(path) || !kvspool::IsPlainName(name)) {
        return Fail(ERROR_INVALID_PARAMETER);
    }
    if (!kv::ActsAsAdministrator()) return Fail(ERROR_ACCESS_DENIED);
    std::vector<std::string> names;
    error = kvspool::ListProcessors(names);
    if (error != ERROR_SUCCESS) return Fail(error);
    for (const std::string& known : names) {
        if (lstrcmpiA(known.c_str(), name) == 0) {
            return Fail(ERROR_PRINT_PROCESSOR_ALREADY_INSTALLED);
        }
    }
    if (!kvspool::FileIsThere(path)) return Fail(ERROR_FILE_NOT_FOUND);
    kv::StateStore& store = kv::StateStore::Get();
    kv::StoreTransaction transaction(store);
    kv::KeyId key = 0;
    bool created = false;
    error = transaction.Error();
    if (error == ERROR_SUCCESS) {
        const std::string place = kvspool::KeyOfProcessors() + "\\" + name;
        error = store.CreateKey(kv::kMachineRoot, place, key, created);
    }
    const std::string file = path;
    if (error == ERROR_SUCCESS) {
        error = store.SetValue(key, kvspool::kDriverValue, REG_SZ, file.c_str(), file.size() + 1);
    }
    if (error == ERROR_SUCCESS) error = transaction.Commit();
    return error == ERROR_SUCCESS ? TRUE : Fail(error);
}
