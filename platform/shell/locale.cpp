// Locale queries: a table of languages and one of countries.
#include <platform/shell/locale.h>

#include <winbase.h>
#include <winnls.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include <platform/shell/errors.h>

namespace kv {

namespace {

struct Language {
    std::string_view code;
    const char* englishName;
    LANGID id;                 // primary language with its default sub-language
    std::string_view country;  // where it is assumed to be spoken when the locale does not say
};

// Columns: code, English name, language id, country. "iw" is the older code of Hebrew.
constexpr Language kLanguages[] = {
    {"en", "English", 0x0409, "US"},    {"ar", "Arabic", 0x0401, "SA"},
    {"he", "Hebrew", 0x040D, "IL"},     {"iw", "Hebrew", 0x040D, "IL"},
    {"bg", "Bulgarian", 0x0402, "BG"},  {"ca", "Catalan", 0x0403, "ES"},
    {"zh", "Chinese", 0x0804, "CN"},    {"cs", "Czech", 0x0405, "CZ"},
    {"da", "Danish", 0x0406, "DK"},     {"de", "German", 0x0407, "DE"},
    {"el", "Greek", 0x0408, "GR"},      {"es", "Spanish", 0x0C0A, "ES"},
    {"et", "Estonian", 0x0425, "EE"},   {"fa", "Persian", 0x0429, "IR"},
    {"fi", "Finnish", 0x040B, "FI"},    {"fr", "French", 0x040C, "FR"},
    {"hi", "Hindi", 0x0439, "IN"},      {"hr", "Croatian", 0x041A, "HR"},
    {"hu", "Hungarian", 0x040E, "HU"},  {"id", "Indonesian", 0x0421, "ID"},
    {"is", "Icelandic", 0x040F, "IS"},  {"it", "Italian", 0x0410, "IT"},
    {"ja", "Japanese", 0x0411, "JP"},   {"ko", "Korean", 0x0412, "KR"},
    {"lt", "Lithuanian", 0x0427, "LT"}, {"lv", "Latvian", 0x0426, "LV"},
    {"my", "Burmese", 0x0455, "MM"},    {"nb", "Norwegian", 0x0414, "NO"},
    {"nl", "Dutch", 0x0413, "NL"},      {"nn", "Norwegian", 0x0814, "NO"},
    {"no", "Norwegian", 0x0414, "NO"},  {"pl", "Polish", 0x0415, "PL"},
    {"pt", "Portuguese", 0x0816, "PT"}, {"ro", "Romanian", 0x0418, "RO"},
    {"ru", "Russian", 0x0419, "RU"},    {"sk", "Slovak", 0x041B, "SK"},
    {"sl", "Slovenian", 0x0424, "SI"},  {"sr", "Serbian", 0x0C1A, "RS"},
    {"sv", "Swedish", 0x041D, "SE"},    {"th", "Thai", 0x041E, "TH"},
    {"tr", "Turkish", 0x041F, "TR"},    {"uk", "Ukrainian", 0x0422, "UA"},
    {"ur", "Urdu", 0x0420, "PK"},       {"vi", "Vietnamese", 0x042A, "VN"},
};

struct RegionalId {
    std::string_view language;
    std::string_view country;
    LANGID id;
};

// Columns: language, country, language id where it differs from the language's own.
constexpr RegionalId kRegionalIds[] = {
    {"en", "GB", 0x0809}, {"en", "AU", 0x0C09}, {"en", "CA", 0x1009}, {"en", "NZ", 0x1409},
    {"en", "IE", 0x1809}, {"de", "CH", 0x0807}, {"de", "AT", 0x0C07}, {"fr", "BE", 0x080C},
    {"fr", "CA", 0x0C0C}, {"fr", "CH", 0x100C}, {"es", "MX", 0x080A}, {"pt", "BR", 0x0416},
    {"nl", "BE", 0x0813}, {"zh", "TW", 0x0404}, {"zh", "HK", 0x0C04}, {"ar", "EG", 0x0C01},
};

struct Country {
    std::string_view code;
    int number;
};

// Columns: country, its number: the telephone code, but Canada is told from the United States.
constexpr Country kCountries[] = {
    {"US", 1},   {"CA", 2},   {"RU", 7},   {"EG", 20},  {"ZA", 27},  {"GR", 30},  {"NL", 31},
    {"BE", 32},  {"FR", 33},  {"ES", 34},  {"HU", 36},  {"IT", 39},  {"RO", 40},  {"CH", 41},
    {"AT", 43},  {"GB", 44},  {"DK", 45},  {"SE", 46},  {"NO", 47},  {"PL", 48},  {"DE", 49},
    {"PE", 51},  {"MX", 52},  {"AR", 54},  {"BR", 55},  {"CL", 56},  {"CO", 57},  {"VE", 58},
    {"MY", 60},  {"AU", 61},  {"ID", 62},  {"PH", 63},  {"NZ", 64},  {"SG", 65},  {"TH", 66},
    {"JP", 81},  {"KR", 82},  {"VN", 84},  {"CN", 86},  {"TR", 90},  {"IN", 91},  {"PK", 92},
    {"MM", 95},  {"IR", 98},  {"MA", 212}, {"DZ", 213}, {"TN", 216}, {"LR", 231}, {"PT", 351},
    {"LU", 352}, {"IE", 353}, {"IS", 354}, {"FI", 358}, {"BG", 359}, {"LT", 370}, {"LV", 371},
    {"EE", 372}, {"UA", 380}, {"RS", 381}, {"HR", 385}, {"SI", 386}, {"CZ", 420}, {"SK", 421},
    {"HK", 852}, {"TW", 886}, {"LB", 961}, {"JO", 962}, {"KW", 965}, {"SA", 966}, {"AE", 971},
    {"IL", 972}, {"QA", 974},
};

constexpr std::string_view kInchCountries[] = {"US", "LR", "MM"};

// "ar_EG.UTF-8@euro" as its two parts; "C" and "POSIX" give none.
struct LocaleName {
    std::string language;
    std::string country;
};

LocaleName FromVariables(const char* category) {
    for (const char* name : {"LC_ALL", category, "LANG"}) {
        const char* value = std::getenv(name);
        if (!value || !*value) continue;
        std::string_view text(value);
        text = text.substr(0, text.find_first_of(".@"));
        if (text == "C" || text == "POSIX") return {};
        const std::size_t bar = text.find_first_of("_-");
        if (bar == std::string_view::npos) return {std::string(text), {}};
        return {std::string(text.substr(0, bar)), std::string(text.substr(bar + 1))};
    }
    return {};
}

const Language& LanguageOf(const LocaleName& name) {
    for (const Language& language : kLanguages) {
        if (language.code == name.language) return language;
    }
    return kLanguages[0];
}

std::string CountryOf(const LocaleName& name) {
    if (!name.country.empty() || name.language.empty()) return name.country;
    const Language& language = LanguageOf(name);
    return std::string(language.code == name.language ? language.country : std::string_view());
}

LANGID LanguageId() {
    const LocaleName name = FromVariables("LC_MESSAGES");
    for (const RegionalId& regional : kRegionalIds) {
        if (regional.language == name.language && regional.country == name.country) {
            return regional.id;
        }
    }
    return LanguageOf(name).id;
}

}  // namespace

std::optional<int> LocaleCountryCode() {
    const std::string code = CountryOf(FromVariables("LC_MEASUREMENT"));
    for (const Country& country : kCountries) {
        if (country.code == code) return country.number;
    }
    return std::nullopt;
}

int LocaleMeasure() {
    const std::string code = CountryOf(FromVariables("LC_MEASUREMENT"));
    for (const std::string_view inches : kInchCountries) {
        if (inches == code) return 1;
    }
    return 0;
}

}  // namespace kv

int GetLocaleInfoA(LCID, LCTYPE type, LPSTR buffer, int size) {
    const char* text = nullptr;
    switch (type) {
        case LOCALE_SENGLANGUAGE:
            text = kv::LanguageOf(kv::FromVariables("LC_MESSAGES")).englishName;
            break;
        case LOCALE_IMEASURE:
            text = kv::LocaleMeasure() ? "1" : "0";
            break;
        default:
            SetLastError(kv::kErrorInvalidFlags);
            return 0;
    }
    const int needed = static_cast<int>(std::strlen(text)) + 1;
    if (size == 0) return needed;
    if (size < needed || !buffer) {
        SetLastError(size < 0 || !buffer ? ERROR_INVALID_PARAMETER : ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    std::memcpy(buffer, text, static_cast<std::size_t>(needed));
    return needed;
}

LANGID GetSystemDefaultLangID() {
    return kv::LanguageId();
}

LANGID GetUserDefaultLangID() {
    return kv::LanguageId();
}
