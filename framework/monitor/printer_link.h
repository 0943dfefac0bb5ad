// Talks to the printer behind a port: one connection, or the device file, for one command and its
// reply. The language monitor's own road.
#pragma once

#include <windef.h>

#include <string>

#include "printer_address.h"

namespace kvmonitor {

// Frames the command and sends it; with a reply wanted, collects it up to its form feed. A printer
// that ends the connection, takes too long or never comes to an end is handed back as far as it
// came. ERROR_UNKNOWN_PORT, ERROR_NOT_READY when nobody is there or nothing came, ERROR_TIMEOUT
// when nothing came in time.
DWORD AskPrinter(const std::string& port, const std::string& command, std::string& reply);
// The same without a port of the spooler.
DWORD AskPrinterAt(const PrinterAddress& address, const std::string& command, std::string& reply);
DWORD TellPrinter(const std::string& port, const std::string& command);

}  // namespace kvmonitor
