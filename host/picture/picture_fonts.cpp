// Finding the font configuration of pictures among the program's data.
#include <host/host_paths.h>
#include <host/picture/picture_fonts.h>
#include <unistd.h>
#include <windows.h>

#include <cstdlib>

namespace kvhost {
namespace {

bool HasFonts() {
    LOGFONTA any{};
    const HDC dc = CreateCompatibleDC(nullptr);
    bool found = false;
    EnumFontFamiliesExA(
        dc, &any,
        [](const LOGFONTA*, const TEXTMETRICA*, DWORD, LPARAM param) {
            *reinterpret_cast<bool*>(param) = true;
            return 0;
        },
        reinterpret_cast<LPARAM>(&found), 0);
    DeleteDC(dc);
    return found;
}

}  // namespace

bool UsePictureFonts(std::string& error) {
    const char* named = std::getenv("FONTCONFIG_FILE");
    if (named == nullptr || named[0] == '\0') {
        const std::string file = DataPath("fonts.conf");
        if (access(file.c_str(), R_OK) == 0) setenv("FONTCONFIG_FILE", file.c_str(), 1);
    }
    if (HasFonts()) return true;
    error = "no fonts to draw texts with; install the Liberation fonts (fonts-liberation) or set "
            "FONTCONFIG_FILE";
    return false;
}

}  // namespace kvhost
