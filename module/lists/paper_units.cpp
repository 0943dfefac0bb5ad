// See paper_units.h.
#include "lists/paper_units.h"

#include <algorithm>
#include <vector>

#include "sheet/rules_numbers.h"

namespace kvui {
namespace {

constexpr char kSection[] = "CustomPaper";
constexpr LONG kMostNumber = 100 * 100 - 1;  // of a rules file; nothing overflows then

// Empty when the key is.
std::vector<LONG> NumbersOf(const char* key, size_t count) {
    std::vector<LONG> numbers = RulesNumbers(kSection, key, count);
    for (LONG& number : numbers) number = std::clamp<LONG>(number, 0, kMostNumber);
    return numbers;
}

LONG Hundredths(DWORD packed) {
    return WholeInches(packed) * 100 + Sixteenths(packed) * 100 / 16;
}

DWORD Packed(LONG whole, LONG sixteenths) {
    return PackInches(static_cast<DWORD>(whole), static_cast<DWORD>(sixteenths));
}

// As the row of the rules file has them, of a width or of a height.
PaperLimit LimitFrom(const LONG* row) {
    return {row[0], row[1], Packed(row[2], row[4]), Packed(row[3], row[5])};
}

}  // namespace

DWORD InchesOfMillimetres(LONG millimetres) {
    const LONG hundredths = static_cast<LONG>(static_cast<LONGLONG>(millimetres) * 10 * 100 / 254);
    const LONG whole = hundredths / 100;
    return Packed(whole, (hundredths - whole * 100) * 16 / 100);
}

LONG TenthsOfInches(DWORD packed) {
    const LONGLONG hundredths = Hundredths(packed);
    return static_cast<LONG>((hundredths * 254 * 100 + 500 * 100) / 1000 / 10);
}

LONG PaperLimit::Clamp(LONG millimetres) const {
    if (millimetres < leastMillimetres) return leastMillimetres;
    return std::min(millimetres, mostMillimetres);
}

DWORD PaperLimit::ClampInches(DWORD packed) const {
    if (Hundredths(packed) > Hundredths(mostInches)) return mostInches;
    return Hundredths(packed) < Hundredths(leastInches) ? leastInches : packed;
}

PaperLimits LoadPaperLimits() {
    constexpr size_t kHalf = 6;
    std::vector<LONG> numbers = NumbersOf("PaperLimit", 2 * kHalf);
    if (numbers.empty()) numbers = {216, 92, 8, 3, 8, 9, 356, 148, 14, 5, 0, 13};
    return {LimitFrom(numbers.data()), LimitFrom(numbers.data() + kHalf)};
}

PaperLength LengthFromMillimetres(LONG millimetres, const PaperLimit& limit) {
    const LONG clamped = limit.Clamp(millimetres);
    return {clamped * 10, limit.ClampInches(InchesOfMillimetres(clamped))};
}

PaperLength LengthFromInches(DWORD packed, const PaperLimit& limit) {
    const DWORD clamped = limit.ClampInches(packed);
    return {limit.Clamp(TenthsOfInches(clamped) / 10) * 10, clamped};
}

NewPaperSize LoadNewPaperSize(bool inMillimetres) {
    const std::vector<LONG> numbers = NumbersOf("PaperDefaults", 6);
    if (inMillimetres) {
        if (numbers.empty()) {
            return {{210 * 10, PackInches(8, 4)}, {297 * 10, InchesOfMillimetres(297)}};
        }
        return {{numbers[0] * 10, InchesOfMillimetres(numbers[0])},
                {numbers[1] * 10, InchesOfMillimetres(numbers[1])}};
    }
    const DWORD width = numbers.empty() ? PackInches(8, 8) : Packed(numbers[2], numbers[3]);
    const DWORD height = numbers.empty() ? PackInches(11, 0) : Packed(numbers[4], numbers[5]);
    return {{TenthsOfInches(width), width}, {TenthsOfInches(height), height}};
}

}  // namespace kvui
