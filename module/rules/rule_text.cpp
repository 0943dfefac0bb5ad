// Numbers and bounded copies for the readers of the rules file.
#include "rules/rule_text.h"

#include <cstdlib>
#include <cstring>

namespace kvui {

LONG NumberOf(const char* text) {
    return static_cast<LONG>(std::strtoll(text, nullptr, 10));
}

void CopyText(char* target, std::size_t targetSize, const char* source) {
    if (targetSize == 0) return;
    const std::size_t length = strnlen(source, targetSize - 1);
    std::memcpy(target, source, length);
    target[length] = '\0';
}

}  // namespace kvui
