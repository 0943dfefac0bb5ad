// Where the printer behind a port is, as the entries of the port monitors say.
#pragma once

#include <cstdint>
#include <string>

namespace kvmonitor {

struct PrinterAddress {
    std::string host;  // name or address; empty for a device
    std::uint16_t port = 0;
    std::string device;  // path of a device file
};

// Of several ports, separated by commas, the first one counts. False when no monitor knows it.
bool FindPrinterAddress(const std::string& port, PrinterAddress& address);

}  // namespace kvmonitor
