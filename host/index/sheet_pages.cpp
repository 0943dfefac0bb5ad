// Names of the sheet's pages.
#include <host/index/sheet_pages.h>

#include <strings.h>

namespace kvhost {
namespace {

bool SameName(std::string_view left, std::string_view right) {
    return left.size() == right.size() && strncasecmp(left.data(), right.data(), left.size()) == 0;
}

}  // namespace

int PageIndexOfDialog(std::string_view dialogName) {
    for (int i = 0; i < std::ssize(kPages); ++i) {
        if (dialogName == kPages[i].dialogName) return i;
    }
    return -1;
}

int PageIndexOfName(std::string_view name) {
    for (int i = 0; i < std::ssize(kPages); ++i) {
        for (const char* known : {kPages[i].fullName, kPages[i].name, kPages[i].templateName}) {
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
    for (const Page& page : kPages) names.push_back(page.name);
    return names;
}

}  // namespace kvhost
