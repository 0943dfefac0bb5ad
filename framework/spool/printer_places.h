// The printers of both places under their names: a person's own and those of the machine. Used by the
// spooler's functions, by the installation of printers and by the host.
#pragma once

#include <platform/registry/state_store.h>

#include <string>
#include <vector>

namespace kvspool {

struct PlacedPrinter {
    kv::PrinterRecord record;
    kv::StatePlace place = kv::StatePlace::kPerson;
    bool isHidden = false;  // one of the machine's, whose name an own printer has

    kv::StateStore& Store() const { return kv::StateStore::Of(place); }
};

// Looks in the place in force first. After a failure `place` says which store has the message;
// ERROR_INVALID_PRINTER_NAME when neither knows the name.
DWORD FindPrinter(const std::string& name, PlacedPrinter& printer);

// Own printers before those of the machine, both by their names. A place that cannot be read leaves
// the printers of the other one; `problem` gets its message, and the answer is its error.
DWORD ListPrinters(std::vector<PlacedPrinter>& printers, std::string& problem);

}  // namespace kvspool
