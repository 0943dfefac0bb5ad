// The reading profile functions: values, numbers, lists of names and whole sections.
#include <winbase.h>

#include <algorithm>
#include <cstring>
#include <string>

#include <platform/profile/profile_cache.h>
#include <platform/profile/win_ini.h>
#include <platform/shell/errors.h>

namespace kv {

namespace {

// A text is cut to size - 1 characters.
DWORD CopyText(std::string_view text, LPSTR buffer, DWORD size) {
    if (!buffer || size == 0) return 0;
    const bool fits = text.size() < size;
    const std::size_t length = fits ? text.size() : size - 1;
    if (length > 0) std::memcpy(buffer, text.data(), length);
    buffer[length] = '\0';
    if (!fits) SetLastError(ERROR_MORE_DATA);
    return static_cast<DWORD>(length);
}

// A block of texts, each with its zero, ends with one more; a cut one has size - 2 characters and
// two zeros behind them.
DWORD CopyBlock(const std::string& block, LPSTR buffer, DWORD size) {
    if (!buffer || size == 0) return 0;
    const bool fits = block.size() < size;
    const std::size_t length = fits ? block.size() : size < 2 ? 0 : size - 2;
    if (length > 0) std::memcpy(buffer, block.data(), length);
    std::memset(buffer + length, 0, std::min<std::size_t>(2, size - length));
    if (!fits) SetLastError(ERROR_MORE_DATA);
    return static_cast<DWORD>(length);
}

// One pair of equal quotes around a value does not belong to it.
std::string_view StripQuotes(std::string_view value) {
    const bool quoted = value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
                        value.front() == value.back();
    return quoted ? value.substr(1, value.size() - 2) : value;
}

DWORD CopyDefault(LPCSTR defaultText, LPSTR buffer, DWORD size) {
    std::string_view text = defaultText ? defaultText : "";
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return CopyText(text, buffer, size);
}

std::string SectionNames(const ProfileDocument& document) {
    std::string block;
    for (const ProfileSection& section : document.Sections()) {
        block.append(section.name).append(1, '\0');
    }
    return block;
}

std::string KeyNames(const ProfileDocument& document, const ProfileSection& section) {
    std::string block;
    for (std::uint32_t i = section.firstLine; i < section.lastLine; ++i) {
        const std::string_view key = document.KeyOf(i);
        if (!key.empty()) block.append(key).append(1, '\0');
    }
    return block;
}

// Decimal with an optional sign, or 0x, 0o, 0b and digits of that base; reading stops at the first
// other character, and no digits are 0.
UINT NumberOf(std::string_view text) {
    std::size_t at = 0;
    bool negative = false;
    if (at < text.size() && (text[at] == '-' || text[at] == '+')) negative = text[at++] == '-';
    UINT base = 10;
    if (text.size() > at + 1 && text[at] == '0') {
        const char mark = text[at + 1];
        base = mark == 'x' ? 16 : mark == 'o' ? 8 : mark == 'b' ? 2 : 10;
        if (base != 10) at += 2;
    }
    UINT number = 0;
    for (; at < text.size(); ++at) {
        const char c = text[at];
        const int digit = c >= '0' && c <= '9'   ? c - '0'
                          : c >= 'a' && c <= 'f' ? c - 'a' + 10
                          : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                                 : 99;
        if (digit >= static_cast<int>(base)) break;
        number = number * base + static_cast<UINT>(digit);
    }
    return negative ? 0u - number : number;
}

}  // namespace

}  // namespace kv

DWORD GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR defaultText, LPSTR buffer,
                               DWORD size, LPCSTR fileName) {
    DWORD error = ERROR_SUCCESS;
    const auto document = kv::LoadProfile(fileName, error);
    SetLastError(error);
    if (!document) return kv::CopyDefault(defaultText, buffer, size);
    if (!section) return kv::CopyBlock(kv::SectionNames(*document), buffer, size);
    if (!key) {
        if (const kv::ProfileSection* found = document->FindSection(section)) {
            return kv::CopyBlock(kv::KeyNames(*document, *found), buffer, size);
        }
    } else if (const auto value = document->FindValue(section, key)) {
        return kv::CopyText(kv::StripQuotes(*value), buffer, size);
    }
    SetLastError(ERROR_FILE_NOT_FOUND);
    return kv::CopyDefault(defaultText, buffer, size);
}

UINT GetPrivateProfileIntA(LPCSTR section, LPCSTR key, INT defaultValue, LPCSTR fileName) {
    DWORD error = ERROR_SUCCESS;
    const auto document = kv::LoadProfile(fileName, error);
    if (document && section && key) {
        if (const auto value = document->FindValue(section, key)) {
            SetLastError(ERROR_SUCCESS);
            return kv::NumberOf(kv::TrimBlanks(kv::StripQuotes(*value)));
        }
    }
    SetLastError(error ? error : ERROR_FILE_NOT_FOUND);
    return static_cast<UINT>(defaultValue);
}

// Comments are left out; quotes stay.
DWORD GetPrivateProfileSectionA(LPCSTR section, LPSTR buffer, DWORD size, LPCSTR fileName) {
    DWORD error = ERROR_SUCCESS;
    const auto document = kv::LoadProfile(fileName, error);
    const kv::ProfileSection* found =
        document && section ? document->FindSection(section) : nullptr;
    if (!found) {
        SetLastError(!section ? ERROR_INVALID_PARAMETER : error ? error : ERROR_FILE_NOT_FOUND);
        return kv::CopyBlock({}, buffer, size);
    }
    std::string block;
    // What lies beyond the buffer need not be gathered: one more character shows that it is cut.
    for (std::uint32_t i = found->firstLine; i < found->lastLine && block.size() <= size; ++i) {
        document->AppendLine(i, block);
        block += '\0';
    }
    SetLastError(ERROR_SUCCESS);
    return kv::CopyBlock(block, buffer, size);
}

DWORD GetPrivateProfileSectionNamesA(LPSTR buffer, DWORD size, LPCSTR fileName) {
    DWORD error = ERROR_SUCCESS;
    const auto document = kv::LoadProfile(fileName, error);
    SetLastError(error);
    return kv::CopyBlock(document ? kv::SectionNames(*document) : std::string(), buffer, size);
}

UINT GetProfileIntA(LPCSTR section, LPCSTR key, INT defaultValue) {
    if (const auto number = kv::LocaleProfileNumber(section, key)) {
        return GetPrivateProfileIntA(section, key, *number, nullptr);
    }
    return GetPrivateProfileIntA(section, key, defaultValue, nullptr);
}

DWORD GetProfileStringA(LPCSTR section, LPCSTR key, LPCSTR defaultText, LPSTR buffer, DWORD size) {
    const auto number = kv::LocaleProfileNumber(section, key);
    const std::string fromLocale = number ? std::to_string(*number) : std::string();
    return GetPrivateProfileStringA(section, key, number ? fromLocale.c_str() : defaultText, buffer,
                                    size, nullptr);
}
