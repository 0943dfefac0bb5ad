// Creating, removing and addressing printers of the served model. Used by the host's first run and
// its printer commands.
#pragma once

#include <printer_block.h>

#include <string>

namespace kvcore {

// "Varnell Tessora 7720MF": the driver's name, and the printer's when nobody chose another.
extern const char* const kDriverName;

// Copies the model's files from modelsDir to the driver's folder and creates the printer. Files
// that the driver's folder has already are kept, except the printer description: the rules file
// also holds what users stored. False with one line for people in `error`; nothing is created then.
bool InstallPrinter(const std::string& name, const std::string& port, const std::string& modelsDir,
                    std::string& error);
// The printer of a first run. When another program makes it at the same moment, that one will do.
bool InstallFirstPrinter(const std::string& modelsDir, std::string& error);
bool RemovePrinter(const std::string& name, std::string& error);

// The block that the module and the framework's services work with.
bool MakePrinterBlock(const std::string& name, PrinterBlock& block, std::string& error);

}  // namespace kvcore
