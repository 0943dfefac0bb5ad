// kvprefs printer: which printers there are.
#include <framework/core/install_printer.h>
#include <host/commands/commands.h>
#include <host/host_paths.h>
#include <platform/registry/state_store.h>
#include <platform/security/access.h>
#include <platform/shell/state_directory.h>
#include <windows.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <nlohmann/json.hpp>

namespace kvhost {
namespace {

bool MayChangePrinters(const char* what) {
    if (kv::ActsAsAdministrator()) return true;
    PrintError(std::string(what) + " a printer needs an administrator");
    return false;
}

// Settings lie in a file named after the printer, in which most characters take three.
bool HasRoomForSettings(const std::string& name) {
    constexpr size_t kLongestFileName = 255;
    constexpr size_t kRoomBehind = 32;  // what names of temporary and refused files add
    const std::string file = std::filesystem::path(RecordStore(name).path()).filename().string();
    if (file.size() + kRoomBehind <= kLongestFileName) return true;
    PrintError("printer name \"" + name + "\": its settings could not be stored, the name is " +
               std::to_string(file.size() + kRoomBehind - kLongestFileName) +
               " too long; letters A to Z, digits, - and _ count 1, all others 3 a byte");
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
    // No printers yet is one thing, no place to have any another.
    if (printers.empty() && !kv::StateDirectory().empty() && !kv::MakeStateDirectory()) {
        PrintError(kv::StateDirectory() + ": cannot be made: " + std::strerror(errno));
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
    if (options.json) {
        // A name may be in any character set.
        constexpr auto kReplace = nlohmann::json::error_handler_t::replace;
        std::printf("%s\n", rows.dump(2, ' ', false, kReplace).c_str());
    }
    return kDone;
}

ExitStatus RunPrinterAdd(const std::string& name, const std::string& port) {
    if (!MayChangePrinters("adding")) return kRefused;
    if (!HasRoomForSettings(name)) return kBadInput;
    std::string error;
    std::vector<std::string> done;
    const bool added = kvcore::InstallPrinter(name, port, DataPath("models"), error, &done);
    for (const std::string& line : done) PrintNote(line);
    if (!added) PrintError(error);
    return added ? kDone : kBadInput;
}

ExitStatus RunPrinterRemove(const std::string& name) {
    if (!MayChangePrinters("removing")) return kRefused;
    std::string error;
    if (kvcore::RemovePrinter(name, error)) return kDone;
    PrintError(error);
    return kBadInput;
}

}  // namespace kvhost
