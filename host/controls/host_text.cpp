// See host_text.h.
#include <host/controls/host_text.h>

#include <platform/gdi/font.h>

#include <algorithm>
#include <map>

namespace kvhost {
namespace {

void AppendUtf8(std::string& text, char32_t code) {
    const auto add = [&](char32_t byte) { text += static_cast<char>(byte); };
    if (code < 0x80) {
        add(code);
    } else if (code < 0x800) {
        add(0xC0 | code >> 6);
        add(0x80 | (code & 0x3F));
    } else {
        add(0xE0 | code >> 12);
        add(0x80 | (code >> 6 & 0x3F));
        add(0x80 | (code & 0x3F));
    }
}

// The characters of the code page as UTF-8 has them.
const std::map<std::string, char, std::less<>>& CodePage() {
    static const auto* const table = [] {
        auto* made = new std::map<std::string, char, std::less<>>;
        for (int i = 0; i < 256; ++i) {
            std::string character;
            AppendUtf8(character, kv::UnicodeOf(static_cast<unsigned char>(i)));
            made->try_emplace(character, static_cast<char>(i));
        }
        return made;
    }();
    return *table;
}

std::size_t LengthOf(unsigned char lead) {
    if (lead < 0x80) return 1;
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

}  // namespace

std::string ToUtf8(std::string_view coreText) {
    std::string text;
    for (const char c : coreText) AppendUtf8(text, kv::UnicodeOf(static_cast<unsigned char>(c)));
    return text;
}

std::optional<std::string> FromUtf8(std::string_view text) {
    std::string core;
    while (!text.empty()) {
        const std::string_view character =
            text.substr(0, LengthOf(static_cast<unsigned char>(text[0])));
        const auto found = CodePage().find(character);
        if (found == CodePage().end()) return {};
        core += found->second;
        text.remove_prefix(character.size());
    }
    return core;
}

std::string OnOneLine(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return (c >= 0 && c < ' ') || c == 0x7F; }, '?');
    return text;
}

}  // namespace kvhost
