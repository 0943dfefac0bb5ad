// The direct road to the printer: one connection to its raw port, one command in the printer's job
// language, one reply. Called by the printer query.
#pragma once

#include "device/port_address.h"

namespace kvui {

// The command is "READ", or "#SET#" or "#GET#", a blank or line end, and the text for the printer.
// FALSE when there is no connection or no answer. TRUE with length 0 when the printer is silent but
// still there. The reply is no text with an end: it has `length` bytes.
BOOL PjlSocketExchange(PrinterPortAddress& address, const char* command, char* reply,
                       DWORD capacity, DWORD* length);

}  // namespace kvui
