// Sizes of custom papers in both units side by side: conversions, and the limits of the rules file.
// No lists here.
#pragma once

#include <windows.h>

namespace kvui {

// Whole inches in the high word, sixteenths in the low one.
constexpr DWORD PackInches(DWORD whole, DWORD sixteenths) {
    return whole << 16 | sixteenths;
}
constexpr LONG WholeInches(DWORD packed) {
    return static_cast<LONG>(packed >> 16);
}
constexpr LONG Sixteenths(DWORD packed) {
    return static_cast<LONG>(packed & 0xFFFF);
}

DWORD InchesOfMillimetres(LONG millimetres);
// Tenths of a millimetre; carries half a millimetre, so that a tenth of it is rounded.
LONG TenthsOfInches(DWORD packed);

// Of a width or a height.
struct PaperLimit {
    LONG mostMillimetres, leastMillimetres;
    DWORD mostInches, leastInches;  // packed
    LONG Clamp(LONG millimetres) const;
    DWORD ClampInches(DWORD packed) const;
};

struct PaperLimits {
    PaperLimit width, height;
};
PaperLimits LoadPaperLimits();

// Both sizes of one dimension of a paper.
struct PaperLength {
    LONG tenths;
    DWORD inches;
};
// A length that was given in one unit, within the limits; the other unit's follows.
PaperLength LengthFromMillimetres(LONG millimetres, const PaperLimit& limit);
PaperLength LengthFromInches(DWORD packed, const PaperLimit& limit);

// Of a new paper, as the rules file has it.
struct NewPaperSize {
    PaperLength width, height;
};
NewPaperSize LoadNewPaperSize(bool inMillimetres);

}  // namespace kvui
