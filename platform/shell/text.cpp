// The lstr family and MulDiv.
#include <winbase.h>

#include <cstring>

#include <platform/shell/paths.h>

namespace {

int Sign(int value) {
    return value < 0 ? -1 : value > 0 ? 1 : 0;
}

int CompareFolded(LPCSTR left, LPCSTR right) {
    for (;; ++left, ++right) {
        const int difference = static_cast<unsigned char>(kv::FoldCase(*left)) -
                               static_cast<unsigned char>(kv::FoldCase(*right));
        if (difference != 0 || *left == '\0') return Sign(difference);
    }
}

// Null sorts before every text, two nulls are equal.
bool CompareNull(LPCSTR left, LPCSTR right, int& result) {
    if (left && right) return false;
    result = left ? 1 : right ? -1 : 0;
    return true;
}

}  // namespace

int lstrlenA(LPCSTR text) {
    return text ? static_cast<int>(std::strlen(text)) : 0;
}

// Dictionary order: case decides only between texts that are otherwise equal, lower case first.
int lstrcmpA(LPCSTR left, LPCSTR right) {
    int result = 0;
    if (CompareNull(left, right, result)) return result;
    result = CompareFolded(left, right);
    return result ? result : -Sign(std::strcmp(left, right));
}

int lstrcmpiA(LPCSTR left, LPCSTR right) {
    int result = 0;
    if (CompareNull(left, right, result)) return result;
    return CompareFolded(left, right);
}

// number * numerator / denominator rounded to the nearest, halves away from zero; -1 on overflow.
int MulDiv(int number, int numerator, int denominator) {
    if (denominator == 0) return -1;
    const LONGLONG product = LONGLONG{number} * numerator;
    const LONGLONG divisor = denominator;
    const LONGLONG half = (divisor < 0 ? -divisor : divisor) / 2;
    const LONGLONG result = (product < 0 ? product - half : product + half) / divisor;
    if (result > 0x7FFFFFFF || result < -LONGLONG{0x7FFFFFFF}) return -1;
    return static_cast<int>(result);
}
