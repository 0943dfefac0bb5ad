// Texts and style words as they are read from the core. Used by every mirror.
#pragma once

#include <windows.h>

#include <QString>

#include <string>
#include <string_view>

namespace kvqt {

// The core's texts are in the driver's code page. What it does not have is left out of ToAnsi.
QString FromAnsi(std::string_view text);
std::string ToAnsi(const QString& text);

// The text as it is to be shown in a window of a direction: texts of languages from left to right,
// and numbers, keep their order in windows from right to left.
QString Directed(const QString& text, Qt::LayoutDirection direction);

// The text of a window, asked for by message so that subclasses have their say. Line ends are '\n'.
QString WindowTextOf(HWND window);
DWORD StyleOf(HWND window);
inline DWORD TypeOf(HWND window, DWORD mask) {
    return StyleOf(window) & mask;
}

}  // namespace kvqt
