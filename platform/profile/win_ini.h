// The [intl] values of WIN.INI that the user's locale supplies where the file has none.
#pragma once

#include <windef.h>

#include <optional>

namespace kv {

// The locale's value for a key of WIN.INI; nothing for all other keys.
std::optional<INT> LocaleProfileNumber(LPCSTR section, LPCSTR key);

}  // namespace kv
