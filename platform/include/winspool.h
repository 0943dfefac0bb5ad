// Spooler functions under their standard names. Declared with the platform; the driver's spooler
// access layer (framework/spool) provides them.
#pragma once
#include <winbase.h>
#include <wingdi.h>

constexpr DWORD PRINTER_ACCESS_ADMINISTER = 0x00000004;
constexpr DWORD PRINTER_ACCESS_USE = 0x00000008;
constexpr DWORD PRINTER_ALL_ACCESS = 0x000F000C;
constexpr DWORD PRINTER_ATTRIBUTE_QUEUED = 0x00000001;
constexpr DWORD PRINTER_ATTRIBUTE_DIRECT = 0x00000002;
constexpr DWORD PRINTER_ATTRIBUTE_SHARED = 0x00000008;
constexpr DWORD PRINTER_ATTRIBUTE_NETWORK = 0x00000010;
constexpr DWORD PRINTER_ATTRIBUTE_LOCAL = 0x00000040;
constexpr DWORD PRINTER_ATTRIBUTE_ENABLE_BIDI = 0x00000800;
constexpr DWORD PRINTER_ENUM_LOCAL = 0x00000002;
constexpr DWORD PRINTER_ENUM_ICON8 = 0x00800000;

struct PRINTER_DEFAULTSA {
    LPSTR pDatatype;
    DEVMODEA* pDevMode;
    DWORD DesiredAccess;
};
struct PRINTER_INFO_1A {
    DWORD Flags;
    LPSTR pDescription;
    LPSTR pName;
    LPSTR pComment;
};
struct PRINTER_INFO_2A {
    LPSTR pServerName;
    LPSTR pPrinterName;
    LPSTR pShareName;
    LPSTR pPortName;
    LPSTR pDriverName;
    LPSTR pComment;
    LPSTR pLocation;
    DEVMODEA* pDevMode;
    LPSTR pSepFile;
    LPSTR pPrintProcessor;
    LPSTR pDatatype;
    LPSTR pParameters;
    LPVOID pSecurityDescriptor;
    DWORD Attributes;
    DWORD Priority;
    DWORD DefaultPriority;
    DWORD StartTime;
    DWORD UntilTime;
    DWORD Status;
    DWORD cJobs;
    DWORD AveragePPM;
};
struct DRIVER_INFO_2A {
    DWORD cVersion;
    LPSTR pName;
    LPSTR pEnvironment;
    LPSTR pDriverPath;
    LPSTR pDataFile;
    LPSTR pConfigFile;
};
struct PRINTPROCESSOR_INFO_1A {
    LPSTR pName;
};

extern "C" {
BOOL WINAPI OpenPrinterA(LPSTR printerName, HANDLE* printer, PRINTER_DEFAULTSA* defaults);
BOOL WINAPI ClosePrinter(HANDLE printer);
BOOL WINAPI GetPrinterA(HANDLE printer, DWORD level, LPBYTE buffer, DWORD size, LPDWORD needed);
BOOL WINAPI SetPrinterA(HANDLE printer, DWORD level, LPBYTE info, DWORD command);
DWORD WINAPI GetPrinterDataA(HANDLE printer, LPSTR valueName, LPDWORD type, LPBYTE data, DWORD size,
                             LPDWORD needed);
DWORD WINAPI SetPrinterDataA(HANDLE printer, LPSTR valueName, DWORD type, LPBYTE data, DWORD size);
DWORD WINAPI DeletePrinterDataA(HANDLE printer, LPSTR valueName);
BOOL WINAPI EnumPrintersA(DWORD flags, LPSTR name, DWORD level, LPBYTE buffer, DWORD size,
                          LPDWORD needed, LPDWORD returned);
BOOL WINAPI GetPrinterDriverA(HANDLE printer, LPSTR environment, DWORD level, LPBYTE buffer,
                              DWORD size, LPDWORD needed);
BOOL WINAPI GetPrinterDriverDirectoryA(LPSTR server, LPSTR environment, DWORD level,
                                       LPBYTE directory, DWORD size, LPDWORD needed);
BOOL WINAPI EnumPrintProcessorsA(LPSTR server, LPSTR environment, DWORD level, LPBYTE buffer,
                                 DWORD size, LPDWORD needed, LPDWORD returned);
BOOL WINAPI AddPrintProcessorA(LPSTR server, LPSTR environment, LPSTR path, LPSTR name);
}
