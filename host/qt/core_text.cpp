// Texts between the driver's code page and Unicode, see core_text.h.
#include <host/qt/core_text.h>
#include <platform/gdi/font.h>
#include <platform/window/window.h>

#include <algorithm>
#include <array>
#include <unordered_map>

namespace kvqt {
namespace {

constexpr int kCharacters = 256;

const std::array<QChar, kCharacters>& UnicodeTable() {
    static const std::array<QChar, kCharacters> table = [] {
        std::array<QChar, kCharacters> made;
        for (int i = 0; i < kCharacters; ++i) {
            made[static_cast<size_t>(i)] =
                QChar(static_cast<char16_t>(kv::UnicodeOf(static_cast<unsigned char>(i))));
        }
        return made;
    }();
    return table;
}

const std::unordered_map<char16_t, char>& AnsiTable() {
    static const std::unordered_map<char16_t, char> table = [] {
        std::unordered_map<char16_t, char> made;
        for (int i = kCharacters - 1; i > 0; --i) {
            made[UnicodeTable()[static_cast<size_t>(i)].unicode()] = static_cast<char>(i);
        }
        return made;
    }();
    return table;
}

}  // namespace

QString FromAnsi(std::string_view text) {
    QString result;
    result.reserve(static_cast<qsizetype>(text.size()));
    for (char character : text) {
        result += UnicodeTable()[static_cast<unsigned char>(character)];
    }
    return result;
}

std::string ToAnsi(const QString& text) {
    std::string result;
    result.reserve(static_cast<size_t>(text.size()));
    for (QChar character : text.normalized(QString::NormalizationForm_C)) {
        const auto found = AnsiTable().find(character.unicode());
        if (found != AnsiTable().end()) result += found->second;
    }
    return result;
}

QString Directed(const QString& text, Qt::LayoutDirection direction) {
    constexpr QChar kLeftToRightMark(0x200E);
    if (direction != Qt::RightToLeft || text.isEmpty() || text.isRightToLeft()) return text;
    return kLeftToRightMark + text + kLeftToRightMark;
}

QString WindowTextOf(HWND window) {
    const int length = GetWindowTextLengthA(window);
    if (length <= 0) return {};
    std::string text(static_cast<size_t>(length) + 1, '\0');
    text.resize(static_cast<size_t>(GetWindowTextA(window, text.data(), length + 1)));
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    return FromAnsi(text);
}

DWORD StyleOf(HWND window) {
    return static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE));
}

}  // namespace kvqt
