// Text in fixed-size arrays: copied in, it is truncated and always terminated; read out, it ends at
// the array's end at the latest.
#pragma once

#include <cstddef>
#include <cstring>
#include <string>

namespace kvui {

inline void CopyText(char* target, std::size_t size, const char* source) {
    if (size == 0) return;
    std::size_t i = 0;
    for (; i + 1 < size && source[i] != '\0'; ++i) target[i] = source[i];
    target[i] = '\0';
}

template <std::size_t N>
void CopyText(char (&target)[N], const char* source) {
    CopyText(target, N, source);
}

template <std::size_t N>
std::string BoundedText(const char (&text)[N]) {
    return std::string(text, strnlen(text, N));
}

}  // namespace kvui
