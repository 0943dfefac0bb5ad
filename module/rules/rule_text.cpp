// Numbers for the readers of the rules file.
#include "rules/rule_text.h"

#include <cstdlib>

namespace kvui {

LONG NumberOf(const char* text) {
    return static_cast<LONG>(std::strtoll(text, nullptr, 10));
}

}  // namespace kvui
