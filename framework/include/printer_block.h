// The framework's printer object. The host makes one per printer; the module receives a pointer to it
// and passes it to every KVCORE and KVLIST call.
#pragma once

#include <windef.h>

struct PrinterBlock {
    DWORD size;                 // sizeof(PrinterBlock)
    CHAR printerName[256];      // the name to open the printer by
    CHAR modelName[128];        // "Varnell Tessora 7720MF"
    CHAR driverPath[260];       // full path of the module; its folder holds the driver's files
    CHAR descriptionPath[260];  // printer description file (INI): papers, bins, resolutions, defaults
};
