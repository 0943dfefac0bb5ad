// The user's locale from the environment (LC_ALL, LC_MESSAGES, LC_MEASUREMENT, LANG), read anew at
// each question. Used by GetLocaleInfoA and by the profile folder for WIN.INI's [intl] values.
#pragma once

#include <optional>

namespace kv {

// Telephone code of the user's country as the platform numbers countries (1 United States, 2
// Canada); nothing when the locale names no known country.
std::optional<int> LocaleCountryCode();
// 1 where inches are used, else 0.
int LocaleMeasure();

}  // namespace kv
