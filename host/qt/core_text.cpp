// Texts between the driver's code page and Unicode, and the names of controls; see core_text.h.
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

bool IsLabel(const kv::Window& window) {
    if (kv::KindOf(window.handle) != "static" || !window.IsVisibleStyle()) return false;
    const DWORD type = window.style & SS_TYPEMASK;
    return type == SS_LEFT || type == SS_CENTER || type == SS_RIGHT || type == SS_LEFTNOWORDWRAP;
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

QString WithoutMnemonic(const QString& text) {
    QString plain;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'&' && i + 1 < text.size()) ++i;
        plain += text[i];
    }
    return plain.trimmed();
}

QString NameFromLabel(HWND control) {
    const kv::Window* window = kv::WindowFromHandle(control);
    const kv::Window* parent = window ? kv::WindowFromHandle(window->parent) : nullptr;
    if (!parent) return {};
    const auto& siblings = parent->children;
    auto at = std::find(siblings.begin(), siblings.end(), control);
    while (at != siblings.begin()) {
        const kv::Window* before = kv::WindowFromHandle(*--at);
        if (!before || !before->IsVisibleStyle()) continue;
        if (IsLabel(*before)) {
            const QString name = WithoutMnemonic(WindowTextOf(*at));
            if (!name.isEmpty()) return name.endsWith(u':') ? name.chopped(1) : name;
            continue;
        }
        // An edit with its arrows, or a slider with its edit, share one label.
        const auto kind = kv::KindOf(*at);
        if (kind != "edit" && kind != "trackbar" && kind != "updown") break;
    }
    return {};
}

}  // namespace kvqt
