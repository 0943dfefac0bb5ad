// The loading of a sheet computes the rules file's path once; everybody passes it to the profile
// functions.
#include "sheet/rules_path.h"

#include <kvcore.h>
#include <winspool.h>

#include <string>

#include "sheet/fixed_text.h"
#include "sheet/printer_values.h"

namespace kvui {
namespace {

constexpr char kRulesFileName[] = "KVUIMOD.ini";
constexpr int kRulesFilePathSize = 260;
constexpr LONG kPaperLetter = 1;
constexpr LONG kPaperA4 = 9;
constexpr UINT kLetterCountry = 2;  // an "iCountry" whose paper is Letter whatever it measures in

// One path for the whole process: the profile functions are given it by every reader and writer.
char rulesFilePath[kRulesFilePathSize];

// The driver directory that belongs to the running system; empty when there is none.
std::string DriverDirectory() {
    char directory[kRulesFilePathSize] = "";
    DWORD needed = 0;
    if (!GetPrinterDriverDirectoryA(nullptr, nullptr, 1, reinterpret_cast<LPBYTE>(directory),
                                    sizeof directory, &needed)) {
        directory[0] = '\0';
    }
    OSVERSIONINFOA version = {};
    version.dwOSVersionInfoSize = sizeof version;
    if (!GetVersionExA(&version) || version.dwPlatformId != VER_PLATFORM_WIN32_NT) return directory;
    const int number =
        version.dwMajorVersion >= 6 ? 3 : static_cast<int>(version.dwMajorVersion) - 2;
    return std::string(directory) + '\\' + std::to_string(number);
}

// Copies the driver's file into the Windows directory unless one is there; true when it was copied.
bool CopyToWindowsDirectory(const char* driverFile) {
    if (GetFileAttributesA(driverFile) == INVALID_FILE_ATTRIBUTES) return false;
    char directory[261] = "";
    if (GetWindowsDirectoryA(directory, sizeof directory) == 0) return false;
    const std::string copy = std::string(directory) + '\\' + kRulesFileName;
    return CopyFileA(driverFile, copy.c_str(), TRUE) != FALSE;
}

}  // namespace

void ComputeRulesFilePath(SheetContext& context) {
    // A path that does not fit names no file, and without a file all defaults apply.
    const std::string driverFile = DriverDirectory() + '\\' + kRulesFileName;
    // The bare name makes the profile functions use the Windows directory; only the sheet that made
    // the copy reads it there.
    const bool copied = PrinterNumber(context.printer, "CopySUINI") != 0 &&
                        CopyToWindowsDirectory(driverFile.c_str());
    CopyText(rulesFilePath, copied ? kRulesFileName : driverFile.c_str());
}

const char* RulesFilePath() {
    return rulesFilePath;
}

void UseRulesFile(const char* path) {
    CopyText(rulesFilePath, path);
}

bool UsesMillimetres(PrinterBlock* printer) {
    const DWORD unit = PrinterNumber(printer, "CustomPaperUnit");
    if (unit != 0) return unit == kPaperUnitMillimetre;
    return GetProfileIntA("intl", "iCountry", 0) != kLetterCountry &&
           GetProfileIntA("intl", "iMeasure", 1) == 0;
}

LONG RegionalDefaultPaper(PrinterBlock* printer) {
    return UsesMillimetres(printer) ? kPaperA4 : kPaperLetter;
}

}  // namespace kvui
