// Numbers as people type them on a command line, whatever the locale.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace kvhost {

// Whole, decimal or after "0x", with or without a sign; none when it is anything else or has no
// room in 32 bits.
std::optional<long> NumberOf(const std::string& text);
// With a decimal point; none when it is anything else.
std::optional<double> DecimalOf(const std::string& text);
// How many digits stand behind the point.
size_t DecimalsOf(const std::string& number);

}  // namespace kvhost
