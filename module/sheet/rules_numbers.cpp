// See rules_numbers.h.
#include "sheet/rules_numbers.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "sheet/rules_path.h"

namespace kvui {

std::vector<LONG> RulesNumbers(const char* section, const char* key) {
    char text[512] = "";
    GetPrivateProfileStringA(section, key, "", text, sizeof text, RulesFilePath());
    if (text[0] == '\0') return {};
    using Limits = std::numeric_limits<LONG>;
    std::vector<LONG> numbers;
    for (const char* at = text; at != nullptr; at = std::strchr(at, ',')) {
        if (*at == ',') ++at;
        numbers.push_back(static_cast<LONG>(
            std::clamp<long>(std::strtol(at, nullptr, 10), Limits::min(), Limits::max())));
    }
    return numbers;
}

std::vector<LONG> RulesNumbers(const char* section, const char* key, std::size_t count) {
    std::vector<LONG> numbers = RulesNumbers(section, key);
    if (!numbers.empty()) numbers.resize(count);
    return numbers;
}

}  // namespace kvui
