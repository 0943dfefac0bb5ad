// What the name of a printer's port says: which monitor it belongs to, where the printer is on the
// network, and whether, and by which road, it can be asked for its configuration. Needs no sheet:
// the command line tells it too.
#pragma once

#include <winsock2.h>

#include <windows.h>

#include <string>

namespace kvui {

enum PortKind : DWORD {
    kPortUnresolved = 0,
    kPortUsb = 2,
    kPortTcp = 3,
    kPortLpr = 4,
    kPortSharedSmb = 5,
    kPortIpp = 6,
    kPortTarrow = 7,
};

struct PrinterPortAddress {
    DWORD found;
    sockaddr_in address;
    SOCKET socket;
    DWORD kind;
    DWORD openCount;
};

// True when a printer with these PRINTER_ATTRIBUTE_... bits can be asked; the address is filled
// either way.
bool ClassifyPort(const std::string& port, DWORD attributes, PrinterPortAddress& address);
// Over a connection of the driver's own, not through the spooler.
bool IsAskedDirectly(const PrinterPortAddress& address);

void ResolvePortAddress(const char* portName, PrinterPortAddress& address);
// Dotted-decimal text or a host name; FALSE when the look-up fails or the text is empty.
BOOL ResolveHostAddress(PrinterPortAddress& address, const char* text);

}  // namespace kvui
