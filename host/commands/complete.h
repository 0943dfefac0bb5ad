// kvprefs complete: what shells ask while a command line is typed. Not in the help: nobody types it.
#pragma once

#include <host/controls/session.h>

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace kvhost {

// Prints what the last of the words that follow "kvprefs" may become, one candidate a line,
// "WORD<TAB>DESCRIPTION"; the shell keeps those that fit what was typed. A line "<TAB>files" or
// "<TAB>folders" asks for paths instead. Changes nothing and never complains.
ExitStatus RunComplete(const CLI::App& app, const std::vector<std::string>& words);

}  // namespace kvhost
