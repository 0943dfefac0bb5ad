// KVSPOOL: what the spooler access layer offers beside the platform's own spooler functions, which
// it answers under their names (winspool.h). Implemented in framework/spool.
#pragma once

#include <winspool.h>

extern "C" {
// Several writes as one. Between Begin and End, what is read of printers is what is stored now,
// nobody else writes it meanwhile, and what this thread writes, through any handle, is stored
// together by an End that keeps it, or not at all. Closing the handle drops it. Answers a platform
// error code; ERROR_SUCCESS of End means that it is on the disk.
DWORD KVSPBeginPrinterChange(HANDLE printer);
DWORD KVSPEndPrinterChange(HANDLE printer, BOOL keep);
}
