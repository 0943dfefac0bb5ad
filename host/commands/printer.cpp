// kvprefs printer: which printers there are.
#include <framework/core/install_printer.h>
#include <host/commands/commands.h>
#include <host/host_paths.h>
#include <platform/registry/state_store.h>
#include <platform/security/access.h>
#include <windows.h>

#include <cstdio>
#include <nlohmann/json.hpp>

namespace kvhost {
namespace {

bool MayChangePrinters(const char* what) {
    if (kv::ActsAsAdministrator()) return true;
    PrintError(std::string(what) + " a printer needs an administrator");
    return false;
}

}  // namespace

ExitStatus RunPrinterList(const Options& options) {
    std::vector<kv::PrinterRecord> printers;
    const DWORD error = kv::StateStore::Get().ListPrinters(printers);
    if (error != ERROR_SUCCESS && error != ERROR_FILE_NOT_FOUND) {
        PrintError(kv::StateStore::Get().LastMessage());
        return kBadInput;
    }
    nlohmann::ordered_json rows = nlohmann::ordered_json::array();
    for (const kv::PrinterRecord& printer : printers) {
        if (options.json) {
            rows.push_back({{"name", printer.name}, {"port", printer.port}});
        } else {
            std::printf("%s\t%s\n", printer.name.c_str(), printer.port.c_str());
        }
    }
    if (options.json) std::printf("%s\n", rows.dump(2).c_str());
    return kDone;
}

ExitStatus RunPrinterAdd(const std::string& name, const std::string& port) {
    if (!MayChangePrinters("adding")) return kRefused;
    std::string error;
    if (kvcore::InstallPrinter(name, port, DataPath("models"), error)) return kDone;
    PrintError(error);
    return kBadInput;
}

ExitStatus RunPrinterRemove(const std::string& name) {
    if (!MayChangePrinters("removing")) return kRefused;
    std::string error;
    if (kvcore::RemovePrinter(name, error)) return kDone;
    PrintError(error);
    return kBadInput;
}

}  // namespace kvhost
