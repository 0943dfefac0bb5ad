// Names of the sheet's pages.
#include <host/index/sheet_pages.h>

#include <strings.h>

namespace kvhost {
namespace {

struct PageRow {
    const char* dialogName;
    const char* templateName;
    const char* caption;
    const char* shortName;
};
// In the order of the sheet's pages: dialog name, template, caption, a shorter name.
// clang-format off
constexpr PageRow kPages[kSheetPages] = {
    {"DLGTAB0",       "TAB0R",      "Basic",                  "Basic"},
    {"DLGTAB1",       "TAB1R",      "Layout",                 "Layout"},
    {"DLGTABOVER",    "TABOVERLAY", "Overlay",                "Overlay"},
    {"DLGTABWM",      "TABWM",      "Watermark",              "Watermark"},
    {"DLGTAB2",       "TAB2R",      "Quality",                "Quality"},
    {"DLGTAB3",       "TAB3",       "Device Options Setting", "Device"},
    {"DLGTABVERSION", "TABVERSION", "Troubleshooting",        "Troubleshooting"},
    {"DLGTAB4",       "TAB4",       "Job Management",         "Job"},
};
// clang-format on

bool SameName(std::string_view left, std::string_view right) {
    return left.size() == right.size() && strncasecmp(left.data(), right.data(), left.size()) == 0;
}

}  // namespace

int PageIndexOfDialog(std::string_view dialogName) {
    for (int i = 0; i < kSheetPages; ++i) {
        if (dialogName == kPages[i].dialogName) return i;
    }
    return -1;
}

int PageIndexOfName(std::string_view name) {
    for (int i = 0; i < kSheetPages; ++i) {
        for (const char* known : {kPages[i].caption, kPages[i].shortName, kPages[i].templateName}) {
            if (SameName(name, known)) return i;
        }
    }
    return PageIndexOfDialog(name);
}

const char* PageTemplate(int index) {
    return kPages[index].templateName;
}

const char* PageDialog(int index) {
    return kPages[index].dialogName;
}

std::vector<std::string> PageNames() {
    std::vector<std::string> names;
    for (const PageRow& page : kPages) names.push_back(page.shortName);
    return names;
}

}  // namespace kvhost
