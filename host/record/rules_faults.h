// What is wrong inside a rules file, for the person who wrote it. The pages read such a file
// without a word and leave out what they cannot understand.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvhost {

// "file:line: expected ...", in the order of the lines. Nothing for a file that cannot be read.
std::vector<std::string> FaultsOfRules(const std::string& path);
// The same of a text; `path` only names it.
std::vector<std::string> FaultsInRules(std::string_view text, const std::string& path);

}  // namespace kvhost
