// See install_printer.h.
#include "install_printer.h"

#include <framework/spool/driver_folder.h>
#include <framework/spool/printer_places.h>
#include <platform/registry/state_store.h>
#include <platform/shell/errors.h>
#include <platform/shell/paths.h>
#include <platform/shell/state_directory.h>
#include <platform/shell/whole_file.h>
#include <winreg.h>
#include <winspool.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "description.h"
#include "driver_files.h"
#include "port_entries.h"

namespace kvcore {

const char* const kDriverName = kvspool::kDriverName;

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMaxNameLength = 220;  // what printer names and ports have room for elsewhere

bool CheckText(const char* what, const std::string& text, std::string& error) {
    const bool control = std::any_of(text.begin(), text.end(), [](char character) {
        return static_cast<unsigned char>(character) < 0x20;
    });
    if (!text.empty() && text.size() <= kMaxNameLength && !control) return true;
    error = std::string(what) + " \"" + text + "\": expected 1 to " +
            std::to_string(kMaxNameLength) + " characters without control characters";
    return false;
}

kv::PrinterRecord RecordOf(const NewPrinter& printer) {
    kv::PrinterRecord record;
    record.name = printer.name;
    record.port = printer.port;
    record.driver = kvspool::kDriverName;
    record.printProcessor = "winprint";
    record.dataType = "RAW";
    record.attributes = PRINTER_ATTRIBUTE_LOCAL;
    if (printer.isBidirectional) record.attributes |= PRINTER_ATTRIBUTE_ENABLE_BIDI;
    if (printer.isShared) record.attributes |= PRINTER_ATTRIBUTE_SHARED;
    return record;
}

bool CopyPath(char* target, std::size_t size, const std::string& path, std::string& error) {
    if (path.size() >= size) {
        error = path + ": expected a path of fewer than " + std::to_string(size) + " characters";
        return false;
    }
    std::snprintf(target, size, "%s", path.c_str());
    return true;
}

}  // namespace

bool CheckPrinterName(const std::string& name, std::string& error) {
    if (!CheckText("printer name", name, error)) return false;
    if (name.find_first_of(",\\") == std::string::npos) return true;
    error = "printer name \"" + name + "\": commas and backslashes are not possible";
    return false;
}

std::string StoreProblem(kv::StatePlace place, const std::string& name, DWORD code) {
    const std::string what = "printer \"" + name + "\"";
    if (code == ERROR_INVALID_PRINTER_NAME) return "there is no " + what;
    if (code == kv::kErrorPrinterAlreadyExists) return what + " exists already";
    const std::string message = kv::StateStore::Of(place).LastMessage();
    return what + ": " + (message.empty() ? "error " + std::to_string(code) : message);
}

bool InstallPrinter(const NewPrinter& printer, const std::string& modelsDir, std::string& error,
                    std::vector<std::string>* done) {
    const std::string& name = printer.name;
    const std::string& port = printer.port;
    const kv::StatePlace place = printer.place;
    if (!CheckPrinterName(name, error) || !CheckText("port", port, error)) return false;
    if (place == kv::StatePlace::kPerson && !kv::MakeStateDirectory()) {
        const std::string state = kv::StateDirectory();
        error = state.empty() ? kv::NoStateDirectoryMessage() : state + ": cannot be created";
        return false;
    }
    const fs::path models(modelsDir);
    const auto description = LoadDescription((models / kvspool::kDescriptionFile).string());
    if (!description->problems.empty()) {
        error = description->problems.front();
        return false;
    }
    kv::StateStore& store = kv::StateStore::Of(place);
    kv::PrinterRecord existing;
    const DWORD found = store.GetPrinter(name, existing);
    if (found == ERROR_SUCCESS) {
        error = StoreProblem(place, existing.name, kv::kErrorPrinterAlreadyExists);
        return false;
    }
    // A store that cannot be read, of a newer version for one, belongs to files that are not ours.
    if (found != ERROR_INVALID_PRINTER_NAME) {
        error = StoreProblem(place, name, found);
        return false;
    }
    const DriverFiles files = TakeOverModel(modelsDir, place);
    if (done != nullptr) *done = files.done;
    if (!files.error.empty()) {
        error = files.error;
        return false;
    }
    kv::StoreTransaction transaction(store);
    DWORD code = transaction.Error();
    if (code == ERROR_SUCCESS) code = store.AddPrinter(RecordOf(printer));
    if (code == ERROR_SUCCESS) code = RegisterPort(store, port, printer.device);
    if (code == ERROR_SUCCESS) code = transaction.Commit();
    if (code != ERROR_SUCCESS) error = StoreProblem(place, name, code);
    return code == ERROR_SUCCESS;
}

bool InstallFirstPrinter(const std::string& modelsDir, std::string& error) {
    if (InstallPrinter({kDriverName, "USB001"}, modelsDir, error)) return true;
    kv::PrinterRecord made;
    const auto place = kv::StatePlace::kPerson;
    return kv::StateStore::Of(place).GetPrinter(kDriverName, made) == ERROR_SUCCESS;
}

bool RemovePrinter(kv::StatePlace place, const std::string& name, std::string& error) {
    const DWORD code = kv::StateStore::Of(place).RemovePrinter(name);
    if (code != ERROR_SUCCESS) error = StoreProblem(place, name, code);
    return code == ERROR_SUCCESS;
}

bool ChoosePrinter(const std::string& name, std::string& error) {
    kv::SetPlaceInForce(kv::StatePlace::kPerson);
    kvspool::PlacedPrinter found;
    const DWORD code = kvspool::FindPrinter(name, found);
    if (code != ERROR_SUCCESS) error = StoreProblem(found.place, name, code);
    if (code == ERROR_SUCCESS) kv::SetPlaceInForce(found.place);
    return code == ERROR_SUCCESS;
}

bool MakePrinterBlock(const std::string& name, PrinterBlock& block, std::string& error) {
    kvspool::PlacedPrinter found;
    const DWORD code = kvspool::FindPrinter(name, found);
    if (code != ERROR_SUCCESS) {
        error = StoreProblem(found.place, name, code);
        return false;
    }
    const kv::PrinterRecord& record = found.record;
    block = {};
    block.size = sizeof block;
    return CopyPath(block.printerName, sizeof block.printerName, record.name, error) &&
           CopyPath(block.modelName, sizeof block.modelName, record.driver, error) &&
           CopyPath(block.driverPath, sizeof block.driverPath,
                    kvspool::DriverFile(found.place, kvspool::kModuleFile), error) &&
           CopyPath(block.descriptionPath, sizeof block.descriptionPath,
                    kvspool::DriverFile(found.place, kvspool::kDescriptionFile), error);
}

}  // namespace kvcore
