// See watermark_typefaces.h.
#include "ui/watermark_typefaces.h"

#include <algorithm>

#include "lists/watermark_list.h"
#include "sheet/printer_values.h"
#include "sheet/rules_numbers.h"
#include "sheet/rules_path.h"

namespace kvui {
namespace {

struct Installed {
    DWORD kinds;  // bits of the font types that are admitted; 0: all
    std::vector<std::string> names;
};

int AddFamily(const LOGFONTA* font, const TEXTMETRICA* /*metrics*/, DWORD type, LPARAM param) {
    Installed& installed = *reinterpret_cast<Installed*>(param);
    if (installed.kinds == 0 || (installed.kinds & type) != 0) {
        installed.names.emplace_back(font->lfFaceName);
    }
    return 1;
}

// "SkipPlatform<n>": empty is every platform; its identifier; or that and two versions, the major
// one counting on NT systems and the minor one on others. Other rows skip nothing.
bool IsSkippedHere(LONG number) {
    const std::string key = "SkipPlatform" + std::to_string(number);
    const std::vector<LONG> row = RulesNumbers(kWatermarkSection, key.c_str());
    if (row.empty()) return true;
    OSVERSIONINFOA running{};
    running.dwOSVersionInfoSize = sizeof running;
    if (!GetVersionExA(&running) || static_cast<LONG>(running.dwPlatformId) != row[0]) return false;
    if (row.size() == 1) return true;
    if (row.size() != 3) return false;
    if (running.dwPlatformId == VER_PLATFORM_WIN32_NT) {
        return static_cast<LONG>(running.dwMajorVersion) == row[1];
    }
    return running.dwPlatformId == VER_PLATFORM_WIN32_WINDOWS &&
           static_cast<LONG>(running.dwMinorVersion) == row[2];
}

std::vector<std::string> SkippedTypefaces() {
    std::vector<std::string> skipped;
    for (const LONG number : RulesNumbers(kWatermarkSection, "SkipList")) {
        char name[LF_FACESIZE] = "";
        const std::string key = "SkipList" + std::to_string(number);
        GetPrivateProfileStringA(kWatermarkSection, key.c_str(), "", name, sizeof name,
                                 RulesFilePath());
        if (name[0] != '\0' && IsSkippedHere(number)) skipped.emplace_back(name);
    }
    return skipped;
}

}  // namespace

std::vector<std::string> WatermarkTypefaces(const SheetContext& context, HWND dialog) {
    Installed installed{PrinterNumber(context.printer, "WatermarkTypeFaceList"), {}};
    const HDC dc = GetDC(dialog);
    LOGFONTA everything{};
    everything.lfCharSet = DEFAULT_CHARSET;
    EnumFontFamiliesExA(dc, &everything, AddFamily, reinterpret_cast<LPARAM>(&installed), 0);
    ReleaseDC(dialog, dc);
    const std::vector<std::string> skipped = SkippedTypefaces();
    std::erase_if(installed.names, [&](const std::string& name) {
        return std::find(skipped.begin(), skipped.end(), name) != skipped.end();
    });
    return installed.names;
}

}  // namespace kvui
