// What controls are called by people who do not see them: names from labels and frames, what stands
// behind a field, what a picture illustrates. Used by every mirror.
#pragma once

#include <windows.h>

#include <QString>

namespace kvqt {

// "&Apply..." as a screen reader says it.
QString WithoutMnemonic(const QString& text);

// The static text that names a control without a caption of its own: the one before it in the
// dialog's order. Null when there is none.
HWND LabelOf(HWND control);
// A control's caption; else its label, the frame around it, its tool tip. A picture is called after
// its text, or else after what it illustrates.
QString NameOf(HWND window);
// Unit and range behind a field, the frame around a radio button, the value that a picture
// illustrates, the tool tip of a named control.
QString DescriptionOf(HWND window);
// What a picture shows, in words; empty for anything else.
QString TipOfPicture(HWND window);

}  // namespace kvqt
