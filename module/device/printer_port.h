// Classification of the printer's port: whether, and by which road, the printer can be asked for
// its configuration.
#pragma once

#include <winsock2.h>

#include "sheet/sheet_context.h"

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

// Set by the Basic page when it first becomes active, or by the Device Options page of a sheet that
// opens with it.
extern BOOL printerQueryable;
void FindOutWhetherQueryable(SheetContext& context);

// TRUE when the printer can be queried; copies the address out when asked.
BOOL ClassifyPrinterPort(const SheetContext& context, PrinterPortAddress* address);
void ResolvePortAddress(const char* portName, PrinterPortAddress& address);
// Dotted-decimal text or a host name; FALSE when the look-up fails or the text is empty.
BOOL ResolveHostAddress(PrinterPortAddress& address, const char* text);

}  // namespace kvui
