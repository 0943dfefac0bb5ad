// The road to the printer: what its port says, whether and how it can be asked, and asking it
// without the driver between, to tell people what came.
#pragma once

#include <kvcore.h>
#include <windows.h>

#include <string>

namespace kvhost {

struct PrinterRoad {
    std::string port;
    std::string kind;     // "usb", "tcp", "lpr", "smb", "ipp", "tarrow"; empty: unknown
    std::string address;  // of the network, or a device file; empty: unknown
    bool queryable = false;
    bool isDirect = false;  // a connection of the driver's own, not through the spooler
    std::string reason;     // why it can or cannot be asked
};

PrinterRoad RoadTo(const PrinterBlock& printer);

// Whatever the printer answers to "@PJL INFO CONFIG", up to its form feed or until it takes too
// long. Empty when nothing came; `problem` is then why, and also what is wrong with an answer that
// says nothing of the options.
std::string AskForOptions(const PrinterRoad& road, std::string& problem);

}  // namespace kvhost
