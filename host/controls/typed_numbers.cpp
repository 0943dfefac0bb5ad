// See typed_numbers.h.
#include <host/controls/typed_numbers.h>

#include <charconv>

namespace kvhost {

std::optional<long> NumberOf(const std::string& text) {
    const bool hex = text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
    const char* first = text.data() + (hex ? 2 : (!text.empty() && text[0] == '+' ? 1 : 0));
    const char* last = text.data() + text.size();
    long long value = 0;
    const auto result = std::from_chars(first, last, value, hex ? 16 : 10);
    if (result.ec != std::errc() || result.ptr != last || first == last) return std::nullopt;
    if (value < -0x80000000LL || value > 0xFFFFFFFFLL) return std::nullopt;
    return static_cast<long>(value);
}

std::optional<double> DecimalOf(const std::string& text) {
    double value = 0;
    const char* last = text.data() + text.size();
    const auto result = std::from_chars(text.data(), last, value, std::chars_format::fixed);
    const bool plain = text.find_first_not_of("-.0123456789") == std::string::npos;
    if (!plain || result.ec != std::errc() || result.ptr != last) return std::nullopt;
    return value;
}

size_t DecimalsOf(const std::string& number) {
    const size_t point = number.find('.');
    return point == std::string::npos ? 0 : number.size() - point - 1;
}

}  // namespace kvhost
