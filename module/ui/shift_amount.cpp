// Two units that differ in steps, decimals and format; limits per axis are kept in inches.
#include "ui/shift_amount.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

namespace kvui {
namespace {

constexpr DWORD kMagnitude = 0x3FFF;
constexpr DWORD kNegative = 0x4000;
constexpr DWORD kMillimetres = 0x8000;
constexpr DWORD kUsedBits = 0xFFFF;
constexpr double kMillimetresPerInch = 25.4;

struct UnitRow {
    double stepsPerUnit;
    int decimals;
};
// inch, millimetre: steps in one unit, decimals
constexpr UnitRow kUnits[] = {
    {100, 2},
    {10, 1},
};
// horizontal, vertical, in inches
constexpr double kLimits[] = {0.625, 5.0 / 18};

const UnitRow& RowOf(ShiftUnit unit) {
    return kUnits[static_cast<int>(unit)];
}

}  // namespace

bool IsShiftEmpty(DWORD horizontal, DWORD vertical) {
    return ((horizontal | vertical) & kUsedBits) == 0;
}

std::optional<ShiftUnit> UnitOfShift(DWORD horizontal, DWORD vertical) {
    if (((horizontal ^ vertical) & kMillimetres) || IsShiftEmpty(horizontal, vertical)) {
        return std::nullopt;
    }
    return horizontal & kMillimetres ? ShiftUnit::kMillimetre : ShiftUnit::kInch;
}

double DecodeShift(DWORD word, ShiftUnit unit) {
    const double magnitude = (word & kMagnitude) / RowOf(unit).stepsPerUnit;
    return word & kNegative ? -magnitude : magnitude;
}

DWORD EncodeShift(double amount, ShiftUnit unit) {
    // A typed decimal such as 0.29 lies a hair below its step.
    constexpr double kHair = 1e-6;
    const double steps = std::fabs(amount) * RowOf(unit).stepsPerUnit + kHair;
    const DWORD word = std::min(static_cast<DWORD>(steps), kMagnitude);
    return word | (amount < 0 ? kNegative : 0) |
           (unit == ShiftUnit::kMillimetre ? kMillimetres : 0);
}

std::string ShiftText(double amount, ShiftUnit unit) {
    char text[32] = "";
    // The point is one in every locale.
    std::to_chars(text, text + sizeof text - 1, amount, std::chars_format::fixed,
                  RowOf(unit).decimals);
    // No sign before a zero.
    const bool zero = text[std::strspn(text, "-0.")] == '\0';
    return zero && text[0] == '-' ? text + 1 : text;
}

size_t AcceptedLength(const char* text, ShiftUnit unit) {
    bool point = false;
    int decimals = 0;
    size_t length = 0;
    for (; text[length] != '\0'; ++length) {
        const char c = text[length];
        if (c == '-' && length == 0) continue;
        if (c == '.' && !point) {
            point = true;
        } else if (c < '0' || c > '9' || (point && ++decimals > RowOf(unit).decimals)) {
            break;
        }
    }
    return length;
}

double ClampShift(double amount, ShiftAxis axis, ShiftUnit unit) {
    const double inches = kLimits[static_cast<int>(axis)];
    const double limit = unit == ShiftUnit::kInch ? inches : inches * kMillimetresPerInch;
    return std::clamp(amount, -limit, limit);
}

double ConvertShift(double amount, ShiftUnit to) {
    return to == ShiftUnit::kInch ? amount / kMillimetresPerInch : amount * kMillimetresPerInch;
}

double ShiftStep(ShiftUnit unit) {
    return 1 / RowOf(unit).stepsPerUnit;
}

}  // namespace kvui
