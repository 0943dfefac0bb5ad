// What a printer's answer to "@PJL INFO CONFIG" says is installed. Needs no sheet: the command line
// tells people what is wrong with an answer.
#pragma once

#include <windef.h>

#include <string_view>

namespace kvui {

// Those of mdmInstalledOptions that a printer reports when they are there.
constexpr DWORD kReportedOptions = 0x4 | 0x8 | 0x80;

// What is installed, as bits of mdmInstalledOptions. False when the reply is no whole answer to the
// question.
bool ReadInstalledOptions(std::string_view reply, DWORD& options);

}  // namespace kvui
