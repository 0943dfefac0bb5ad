// Builds help file paths from the framework's value names and opens them in the help viewer.
#include "dialog/help.h"

#include <htmlhelp.h>
#include <kvcore.h>

#include <cstdio>
#include <cstring>

#include "settings/item_catalogue.h"
#include "sheet/fixed_text.h"

namespace kvui {
namespace {

constexpr int kHelpNameSize = 261;

// The help file that the printer value formed from the framework's value name holds, with the
// folder of the driver's files before it; false when the printer names none.
bool HelpFilePath(const SheetContext& context, const char* valueFormat,
                  char (&path)[kHelpNameSize]) {
    char valueName[64] = "";
    if (QDMLoadString(static_cast<HMODULE>(context.hostA), kFrameworkStringHelpFileValue, valueName,
                      sizeof valueName) == 0) {
        return false;
    }
    char name[96];
    std::snprintf(name, sizeof name, valueFormat, valueName);
    char file[kHelpNameSize] = "";
    if (QDMGetPrinterKeyValue(context.printer, kPrinterValueSection, name, kPrinterValuePath, file,
                              sizeof file) == 0 ||
        file[0] == '\0') {
        return false;
    }
    char folder[kHelpNameSize];
    CopyText(folder, context.printer->driverPath);
    char* end = std::strrchr(folder, '\\');
    if (end == nullptr) end = std::strrchr(folder, '/');
    if (end != nullptr) end[1] = '\0';
    return std::snprintf(path, sizeof path, "%s%s", folder, file) < kHelpNameSize;
}

}  // namespace

void ShowHelp(Run& run) {
    char file[kHelpNameSize];
    if (!HelpFilePath(run.context, "%s", file)) return;
    char target[kHelpNameSize + 32];
    std::snprintf(target, sizeof target, "%s::/html/%d.htm", file, run.helpTopic);
    HtmlHelpA(run.window, target, HH_DISPLAY_TOPIC, 0);
}

void ShowControlHelp(Run& run) {
    const auto* info = reinterpret_cast<const HELPINFO*>(run.lParam);
    if (info == nullptr || info->iContextType != HELPINFO_WINDOW) return;
    if (HelpIdFor(static_cast<DWORD>(info->iCtrlId)) == 0) return;
    char file[kHelpNameSize];
    if (HelpFilePath(run.context, "%sPopup", file)) {
        HtmlHelpA(run.window, file, HH_DISPLAY_TOPIC, 0);
    }
}

}  // namespace kvui
