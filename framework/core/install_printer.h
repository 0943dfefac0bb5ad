// Creating, removing and addressing printers of the served model. Used by the host's first run and
// its printer commands.
#pragma once

#include <platform/registry/state_store.h>
#include <printer_block.h>

#include <string>
#include <vector>

namespace kvcore {

// "Varnell Tessora 7720MF": the driver's name, and the printer's when nobody chose another.
extern const char* const kDriverName;

struct NewPrinter {
    std::string name;
    std::string port;
    kv::StatePlace place = kv::StatePlace::kPerson;
    bool isBidirectional = true;  // the port brings answers back
    bool isShared = false;        // with other machines
    std::string device = {};      // file behind a USB port; empty: unknown
};
// Takes the model's files in modelsDir over into the driver's folder of the place and creates the
// printer there. `done` gets a line for what was done to files that were there already. False with
// one line for people in `error`; no printer is created then.
bool InstallPrinter(const NewPrinter& printer, const std::string& modelsDir, std::string& error,
                    std::vector<std::string>* done = nullptr);
// The printer of a first run. When another program makes it at the same moment, that one will do.
bool InstallFirstPrinter(const std::string& modelsDir, std::string& error);
bool RemovePrinter(kv::StatePlace place, const std::string& name, std::string& error);

// What a printer may be called; false with a line for people.
bool CheckPrinterName(const std::string& name, std::string& error);
// A store's error about a printer, in a line for people.
std::string StoreProblem(kv::StatePlace place, const std::string& name, DWORD code);

// Finds a printer, an own one before one of the machine, and puts its place in force.
bool ChoosePrinter(const std::string& name, std::string& error);
// The block that the module and the framework's services work with.
bool MakePrinterBlock(const std::string& name, PrinterBlock& block, std::string& error);

}  // namespace kvcore
