// The one helper that copies text into fixed-size arrays: it truncates and always terminates.
#pragma once

#include <cstddef>

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

}  // namespace kvui
