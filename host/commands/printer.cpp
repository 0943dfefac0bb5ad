// kvprefs printer: which printers there are.
#include <framework/core/copy_printer.h>
#include <framework/core/install_printer.h>
#include <framework/list/list_store.h>
#include <framework/spool/printer_places.h>
#include <host/commands/commands.h>
#include <host/host_paths.h>
#include <platform/security/access.h>
#include <platform/shell/state_directory.h>
#include <unistd.h>
#include <windows.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <nlohmann/json.hpp>

namespace kvhost {
namespace {

using kv::StatePlace;
using kvspool::PlacedPrinter;

const char* PlaceName(StatePlace place) {
    return place == StatePlace::kMachine ? "shared" : "private";
}

bool MayAdminister(StatePlace place, const std::string& what, const std::string& name) {
    if (place == StatePlace::kPerson || kv::ActsAsAdministrator(place)) return true;
    PrintError(what + " the shared printer \"" + name + "\" needs an administrator" +
               kv::WhoAdministers());
    return false;
}

// Settings lie in a file named after the printer, in which most characters take three.
bool HasRoomForSettings(const std::string& name, StatePlace place) {
    constexpr size_t kLongestFileName = 255;
    constexpr size_t kRoomBehind = 32;  // what names of temporary and refused files add
    const std::string file =
        std::filesystem::path(RecordStore(name, place).path()).filename().string();
    if (file.size() + kRoomBehind <= kLongestFileName) return true;
    PrintError("printer name \"" + name + "\": its settings could not be stored, the name is " +
               std::to_string(file.size() + kRoomBehind - kLongestFileName) +
               " too long; letters A to Z, digits, - and _ count 1, all others 3 a byte");
    return false;
}

// An own printer hides a shared one of its name from its owner: only on purpose.
bool MayHide(const std::string& name, bool onPurpose) {
    PlacedPrinter shared;
    shared.place = StatePlace::kMachine;
    if (onPurpose || shared.Store().GetPrinter(name, shared.record) != ERROR_SUCCESS) return true;
    PrintError("there is a shared printer \"" + shared.record.name +
               "\", which an own one of that name would hide from you; choose another name, or say "
               "--hide-shared");
    return false;
}

// Without a place for the machine's printers an administrator, too, makes an own one.
StatePlace PlaceOfNewPrinter(bool isPrivate) {
    const bool shared = !isPrivate && kv::ActsAsAdministrator(StatePlace::kMachine);
    if (shared && kv::HasMachineState()) return StatePlace::kMachine;
    if (shared) {
        PrintNote(kv::StateDirectoryOf(StatePlace::kMachine) +
                  " is not there, so the printer is your own");
    }
    return StatePlace::kPerson;
}

bool FindEither(const std::string& name, PlacedPrinter& printer) {
    const DWORD error = kvspool::FindPrinter(name, printer);
    if (error != ERROR_SUCCESS) PrintError(kvcore::StoreProblem(printer.place, name, error));
    return error == ERROR_SUCCESS;
}

bool FindIn(StatePlace place, const std::string& name, PlacedPrinter& printer) {
    printer.place = place;
    const DWORD error = printer.Store().GetPrinter(name, printer.record);
    if (error == ERROR_SUCCESS) return true;
    const bool unknown = error == ERROR_INVALID_PRINTER_NAME;
    PrintError(unknown
                   ? std::string("there is no ") + PlaceName(place) + " printer \"" + name + "\""
                   : kvcore::StoreProblem(place, name, error));
    return false;
}

// The person's settings and own list entries of one printer, for the other one too.
bool CopyOwnSettings(const kvcore::PrinterAddress& from, const kvcore::PrinterAddress& to) {
    Record record{};
    std::string problem;
    bool done = kvlist::CopyOwnLists(from.place, from.name, to.place, to.name) == ERROR_SUCCESS;
    if (!done) problem = kv::StateStore::Of(StatePlace::kPerson).LastMessage();
    const RecordStore own(from.name, from.place);
    if (done && own.Read(record, problem) == RecordStore::Found::kGood) {
        done = RecordStore(to.name, to.place).Store(record, problem);
    }
    if (!done) PrintError("your own settings of \"" + from.name + "\" were not copied: " + problem);
    return done;
}

bool Copy(const kvcore::PrinterAddress& from, const kvcore::PrinterAddress& to) {
    if (!HasRoomForSettings(to.name, to.place)) return false;
    std::string error;
    std::vector<std::string> done;
    const bool copied = kvcore::CopyPrinter(from, to, DataPath("models"), done, error);
    for (const std::string& line : done) PrintNote(line);
    if (!copied) PrintError(error);
    return copied && CopyOwnSettings(from, to);
}

}  // namespace

ExitStatus RunPrinterList(const Options& options) {
    std::vector<PlacedPrinter> printers;
    std::string problem;
    const DWORD error = kvspool::ListPrinters(printers, problem);
    if (error != ERROR_SUCCESS) PrintError(problem);
    if (error != ERROR_SUCCESS && printers.empty()) return kBadInput;
    // No printers yet is one thing, no place to have any another.
    if (printers.empty() && !kv::StateDirectory().empty() && !kv::MakeStateDirectory()) {
        PrintError(kv::StateDirectory() + ": cannot be made: " + std::strerror(errno));
        return kBadInput;
    }
    nlohmann::ordered_json rows = nlohmann::ordered_json::array();
    for (const auto& [printer, place, isHidden] : printers) {
        if (options.json) {
            rows.push_back({{"name", printer.name},
                            {"port", printer.port},
                            {"place", PlaceName(place)},
                            {"hidden", isHidden}});
        } else {
            std::printf("%s\t%s\t%s%s\n", printer.name.c_str(), printer.port.c_str(),
                        PlaceName(place), isHidden ? ", hidden by your own" : "");
        }
    }
    if (options.json) {
        // A name may be in any character set.
        constexpr auto kReplace = nlohmann::json::error_handler_t::replace;
        std::printf("%s\n", rows.dump(2, ' ', false, kReplace).c_str());
    }
    return error == ERROR_SUCCESS ? kDone : kBadInput;
}

ExitStatus RunPrinterAdd(const PrinterArguments& args) {
    const StatePlace place = PlaceOfNewPrinter(args.isPrivate);
    const bool isOwn = place == StatePlace::kPerson;
    if (!HasRoomForSettings(args.name, place)) return kBadInput;
    if (const std::string foreign = isOwn ? kv::ForeignHomeMessage() : ""; !foreign.empty()) {
        PrintError(foreign);
        return kBadInput;
    }
    if (isOwn && !MayHide(args.name, args.hideShared)) return kRefused;
    if (!args.device.empty() && args.port.rfind("USB", 0) != 0) {
        PrintError("--device goes with a USB port, such as USB001, not with \"" + args.port + "\"");
        return kBadInput;
    }
    std::string error;
    std::vector<std::string> done;
    const bool added = kvcore::InstallPrinter(
        {args.name, args.port, place, !args.oneDirection, args.isShared, args.device},
        DataPath("models"), error, &done);
    for (const std::string& line : done) PrintNote(line);
    if (!added) PrintError(error);
    return added ? kDone : kBadInput;
}

ExitStatus RunPrinterRemove(const PrinterArguments& args) {
    PlacedPrinter found;
    const bool known = args.isShared ? FindIn(StatePlace::kMachine, args.name, found)
                                     : FindEither(args.name, found);
    if (!known) return kBadInput;
    if (!MayAdminister(found.place, "removing", found.record.name)) return kRefused;
    std::string error;
    if (kvcore::RemovePrinter(found.place, args.name, error)) return kDone;
    PrintError(error);
    return kBadInput;
}

// The own printer becomes everybody's: nothing is left that would hide it.
ExitStatus RunPrinterShare(const PrinterArguments& args) {
    PlacedPrinter own;
    if (!FindIn(StatePlace::kPerson, args.name, own)) return kBadInput;
    const std::string& name = own.record.name;
    if (!kv::HasMachineState()) {
        PrintError(kv::StateDirectoryOf(StatePlace::kMachine) +
                   " is not there, so this machine has no place for shared printers; the package "
                   "kvprefs makes it");
        return kRefused;
    }
    if (!kv::ActsAsAdministrator(StatePlace::kMachine)) {
        PrintError("sharing the printer \"" + name + "\" needs an administrator" +
                   kv::WhoAdministers());
        return kRefused;
    }
    if (!Copy({StatePlace::kPerson, name}, {StatePlace::kMachine, name})) return kBadInput;
    std::string error;
    if (!kvcore::RemovePrinter(StatePlace::kPerson, name, error)) {
        PrintError(error);
        return kBadInput;
    }
    unlink(RecordStore(name).path().c_str());
    kvlist::DropOwnLists(StatePlace::kPerson, name);
    return kDone;
}

ExitStatus RunPrinterTake(const PrinterArguments& args) {
    PlacedPrinter shared;
    if (!FindIn(StatePlace::kMachine, args.name, shared)) return kBadInput;
    const std::string& name = shared.record.name;
    const std::string own = args.newName.empty() ? name : args.newName;
    if (const std::string foreign = kv::ForeignHomeMessage(); !foreign.empty()) {
        PrintError(foreign);
        return kBadInput;
    }
    if (!MayHide(own, args.hideShared)) return kRefused;
    return Copy({StatePlace::kMachine, name}, {StatePlace::kPerson, own}) ? kDone : kBadInput;
}

}  // namespace kvhost
