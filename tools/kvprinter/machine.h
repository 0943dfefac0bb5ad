// The printer that is played: what it is, what it has, and what it answers to each PJL command.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace kvprinter {

struct Machine {
    std::string model = "Varnell Tessora 7720MF";
    std::set<std::string> installed;  // of OptionNames()
    unsigned code = 10001;
    std::string display = "READY";
    bool online = true;
};

// The options as INFO CONFIG calls them, in the order in which it lists them.
const std::vector<std::string>& OptionNames();

// `command` is a line without its end, "@PJL INFO CONFIG" for one, in any case. Empty when the
// command has no answer. An answer ends with a form feed.
std::string AnswerTo(const Machine& machine, std::string_view command);

}  // namespace kvprinter
