// The language monitor: carries requests that the driver writes as specially named printer data to
// the printer and brings back its replies. Used by the printer-data functions of the spooler layer.
#pragma once

#include <windef.h>

#include <functional>
#include <string>

namespace kvmonitor {

// Sends a command in the printer's job language to the port and collects the reply. Answers a
// platform error code.
using Transport =
    std::function<DWORD(const std::string& port, const std::string& command, std::string& reply)>;

// For tests, instead of the real road (printer_link.h), which an empty one brings back.
void SetMonitorTransport(Transport transport);

// "#GET#" or "#SET#" (in any case), then a blank or a line end, then the command.
bool IsRequest(const std::string& valueName);

// Reading a request's value: the printer's reply.
DWORD Ask(const std::string& port, const std::string& valueName, std::string& reply);
// Writing it: a "#SET#" command goes to the printer; "#GET#" only announces the next read.
DWORD Tell(const std::string& port, const std::string& valueName);

}  // namespace kvmonitor
