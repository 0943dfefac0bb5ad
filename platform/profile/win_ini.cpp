// WIN.INI's measure and country of the user.
#include <platform/profile/win_ini.h>

#include <platform/profile/profile_document.h>
#include <platform/shell/locale.h>
#include <platform/shell/paths.h>

namespace kv {

std::optional<INT> LocaleProfileNumber(LPCSTR section, LPCSTR key) {
    if (!section || !key || !EqualsIgnoringCase(TrimBlanks(section), "intl")) return std::nullopt;
    const std::string_view name = TrimBlanks(key);
    if (EqualsIgnoringCase(name, "iMeasure")) return LocaleMeasure();
    if (EqualsIgnoringCase(name, "iCountry")) return LocaleCountryCode();
    return std::nullopt;
}

}  // namespace kv
