// See manners.h.
#include "tools/kvprinter/manners.h"

#include <charconv>

namespace kvprinter {

const std::string kFilling = "MEMORY=268435456\r\n";

namespace {

struct MannerRow {
    const char* name;
    std::optional<std::size_t> Manners::*member;
    std::size_t usual;  // when no number is given
    bool takesNumber;
    const char* help;
};
// clang-format off
// name, member, number when none is given, whether one may be, what it does
constexpr MannerRow kManners[] = {
    {"split",        &Manners::split,      1,        true,  "sends N bytes at a time (1)"},
    {"slow",         &Manners::slow,       100,      true,  "waits N milliseconds before each packet (100)"},
    {"silent",       &Manners::silent,     0,        false, "reads, and never answers"},
    {"close",        &Manners::close,      0,        true,  "ends the connection behind N bytes of the answer (0: at once)"},
    {"endless",      &Manners::endless,    0,        false, "sends no form feed, but goes on for ever"},
    {"no-form-feed", &Manners::noFormFeed, 0,        false, "leaves out the form feed"},
    {"binary",       &Manners::binary,     256,      true,  "answers N bytes of all values (256)"},
    {"padded",       &Manners::padded,     10 << 20, true,  "sends N bytes more before the form feed (10 MB)"},
    {"twice",        &Manners::twice,      0,        false, "sends a second answer with every option behind the first"},
};
// clang-format on

std::string Repeated(const std::string& text, std::size_t length) {
    std::string whole;
    whole.reserve(length + text.size());
    while (whole.size() < length) whole += text;
    whole.resize(length);
    return whole;
}

std::string AllValues(std::size_t length) {
    std::string bytes;
    for (std::size_t i = 0; i < length; ++i) bytes += static_cast<char>(i);
    return bytes;
}

}  // namespace

bool ReadManner(const std::string& text, Manners& manners, std::string& error) {
    const std::size_t equals = text.find('=');
    for (const MannerRow& row : kManners) {
        if (text.substr(0, equals) != row.name) continue;
        std::size_t number = row.usual;
        if (equals != std::string::npos) {
            const char* const begin = text.c_str() + equals + 1;
            const char* const end = text.c_str() + text.size();
            const auto [stop, code] = std::from_chars(begin, end, number);
            if (!row.takesNumber || code != std::errc() || stop != end) {
                error = text + ": expected " + row.name + (row.takesNumber ? "=NUMBER" : "");
                return false;
            }
            // A packet of nothing would never end.
            if (row.member == &Manners::split && number == 0) number = 1;
        }
        manners.*row.member = number;
        return true;
    }
    error = text + ": expected one of";
    for (const MannerRow& row : kManners) error += std::string(" ") + row.name;
    return false;
}

std::string DescribeManners() {
    std::string text;
    for (const MannerRow& row : kManners) {
        std::string name = std::string("  ") + row.name + (row.takesNumber ? "[=N]" : "");
        name.resize(18, ' ');
        text += name + row.help + "\n";
    }
    return text;
}

std::string Bend(const Manners& manners, const Machine& machine, const std::string& command,
                 std::string answer) {
    if (manners.binary) return AllValues(*manners.binary);
    if (answer.empty()) return answer;
    if (manners.padded) answer.insert(answer.size() - 1, Repeated(kFilling, *manners.padded));
    if (manners.twice) {
        Machine full = machine;
        full.installed = {OptionNames().begin(), OptionNames().end()};
        answer += AnswerTo(full, command);
    }
    if (manners.noFormFeed || manners.endless) std::erase(answer, '\f');
    return answer;
}

}  // namespace kvprinter
