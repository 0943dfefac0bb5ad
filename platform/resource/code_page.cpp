// The Western code page, seen from Unicode.
#include <platform/resource/code_page.h>

#include <algorithm>
#include <iterator>

namespace kv {
namespace {

// Unicode of the characters 0x80 to 0x9F; the others equal their Unicode.
constexpr WORD kUpperControls[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

}  // namespace

char CodePageCharacter(WORD unit) {
    if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) return static_cast<char>(unit);
    const auto found = std::find(std::begin(kUpperControls), std::end(kUpperControls), unit);
    if (found == std::end(kUpperControls)) return '?';
    return static_cast<char>(0x80 + (found - std::begin(kUpperControls)));
}

}  // namespace kv
