// Texts of the driver are of its 8-bit code page; people write and read UTF-8 on a command line and
// in files. Names of files are bytes to both.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kvhost {

std::string ToUtf8(std::string_view coreText);
// Nothing for a text that is no UTF-8, or has characters that the code page lacks.
std::optional<std::string> FromUtf8(std::string_view text);
// For a line of a terminal, which acts on control characters: "?" in their place.
std::string OnOneLine(std::string text);

}  // namespace kvhost
