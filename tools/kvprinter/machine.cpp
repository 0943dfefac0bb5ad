// See machine.h.
#include "tools/kvprinter/machine.h"

#include <cctype>
#include <sstream>

namespace kvprinter {
namespace {

constexpr char kFormFeed = '\f';
constexpr const char* kLineEnd = "\r\n";

std::vector<std::string> UpperWords(std::string_view text) {
    std::string upper;
    for (const char c : text) {
        // "DEVICE=ON" and "DEVICE = ON" are the same.
        if (c == '=') upper += ' ';
        upper += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        if (c == '=') upper += ' ';
    }
    std::istringstream words(upper);
    std::vector<std::string> found;
    for (std::string word; words >> word;) found.push_back(word);
    return found;
}

std::string Config(const Machine& machine) {
    std::string text;
    for (const std::string& option : OptionNames()) {
        const bool installed = machine.installed.count(option) != 0;
        text += option + (installed ? "=INSTALLED" : "=NOTINSTALLED") + kLineEnd;
    }
    return text;
}

std::string Status(const Machine& machine) {
    return "CODE=" + std::to_string(machine.code) + kLineEnd + "DISPLAY=\"" + machine.display +
           "\"" + kLineEnd + "ONLINE=" + (machine.online ? "TRUE" : "FALSE") + kLineEnd;
}

std::string Identity(const Machine& machine) {
    return "\"" + machine.model + "\"" + kLineEnd;
}

struct InfoRow {
    const char* category;
    std::string (*body)(const Machine&);
};
// what INFO may be followed by, what is answered
constexpr InfoRow kInfos[] = {
    {"CONFIG", Config},
    {"DSTATUS", Status},
    {"STATUS", Status},
    {"ID", Identity},
};

std::string Info(const Machine& machine, const std::string& category) {
    for (const InfoRow& row : kInfos) {
        if (category == row.category) return row.body(machine);
    }
    return std::string("\"?\"") + kLineEnd;
}

std::string Framed(std::string_view firstLine, const std::string& body) {
    return std::string(firstLine) + kLineEnd + body + kFormFeed;
}

}  // namespace

const std::vector<std::string>& OptionNames() {
    static const std::vector<std::string> names = {"TRAY2",      "TRAY3",      "TRAY4",
                                                   "LCC",        "CABINET",    "DUPLEX",
                                                   "MSFINISHER", "SSFINISHER", "MAILBIN"};
    return names;
}

std::string AnswerTo(const Machine& machine, std::string_view command) {
    const std::vector<std::string> words = UpperWords(command);
    if (words.size() < 3 || words[0] != "@PJL") return "";
    if (words[1] == "ECHO") return Framed(command, "");
    if (words[1] == "INFO") return Framed("@PJL INFO " + words[2], Info(machine, words[2]));
    // Switched on, a printer tells its state at once and again when it changes; this one's never
    // does.
    if (words[1] == "USTATUS" && words.back() == "ON") {
        return Framed("@PJL USTATUS " + words[2], Status(machine));
    }
    return "";
}

}  // namespace kvprinter
