// Amounts of the image shift: their stored words, what the dialog shows and accepts, and the units.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace kvui {

enum class ShiftUnit { kInch, kMillimetre };
enum class ShiftAxis { kHorizontal, kVertical };

// The unit that both stored words carry; none when they disagree. Two words of 0 carry none either.
std::optional<ShiftUnit> UnitOfShift(DWORD horizontal, DWORD vertical);
bool IsShiftEmpty(DWORD horizontal, DWORD vertical);

// The magnitude of a stored word, read in a unit; negative to the left and up.
double DecodeShift(DWORD word, ShiftUnit unit);
// The word of an amount; what is finer than the word's steps is cut off.
DWORD EncodeShift(double amount, ShiftUnit unit);

std::string ShiftText(double amount, ShiftUnit unit);
// How much of the text, from its start, can stand in the edit: sign, digits, one point and as many
// decimals as the unit has.
size_t AcceptedLength(const char* text, ShiftUnit unit);

double ClampShift(double amount, ShiftAxis axis, ShiftUnit unit);
double ConvertShift(double amount, ShiftUnit to);
// What one notch of the arrows adds.
double ShiftStep(ShiftUnit unit);

}  // namespace kvui
