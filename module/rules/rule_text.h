// Small text and number helpers of the rules engine: bounded copies and the numbers of rule values.
// Used inside module/rules only.
#pragma once

#include <windows.h>

#include <cstddef>

namespace kvui {

// Decimal number at the start of the text: blanks, sign, digits up to the first other character; 0
// when there are none. Larger numbers wrap to 32 bits, so that 2147483648 is bit 31.
LONG NumberOf(const char* text);

// Copies with truncation; the target is always terminated.
void CopyText(char* target, std::size_t targetSize, const char* source);

template <std::size_t Size>
void CopyText(char (&target)[Size], const char* source) {
    CopyText(target, Size, source);
}

}  // namespace kvui
