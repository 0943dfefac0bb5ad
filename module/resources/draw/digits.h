// Digits as strokes of our own, so that pictures do not depend on the fonts of the machine that
// builds them. Read by Number in pen.cpp.
#pragma once

#include <span>

namespace draw {

// One step of a digit's stroke on a grid of 5 x 8: a new start, a line, or a curve with its two
// handles first.
struct Step {
    char kind;  // 'M', 'L', 'C'
    double points[6];
};

std::span<const Step> DigitSteps(int digit);

// How wide the digit is; 1 is narrower than the others.
double DigitWidth(int digit);

}  // namespace draw
