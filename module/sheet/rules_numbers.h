// Rows of numbers in the rules file: "key=1,2,3".
#pragma once

#include <windows.h>

#include <cstddef>
#include <vector>

namespace kvui {

// `count` numbers; those that are missing, or are none, count as 0. Empty when the key is absent or
// empty.
std::vector<LONG> RulesNumbers(const char* section, const char* key, std::size_t count);
// As many as there are.
std::vector<LONG> RulesNumbers(const char* section, const char* key);

}  // namespace kvui
