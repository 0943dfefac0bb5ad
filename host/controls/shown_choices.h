// What controls offer and show, and which of their choices a text means.
#pragma once

#include <host/index/control_index.h>
#include <windows.h>

#include <string>
#include <vector>

namespace kvhost {

struct ChoiceText {
    DWORD value;
    std::string text;
};

// Text of a window, any length; this and the others in UTF-8.
std::string WindowText(HWND window);
// The entries of a combo box or list box.
std::vector<ChoiceText> EntriesOf(HWND window);
// What a control offers and shows now.
std::vector<ChoiceText> ChoicesOf(const Control& control, HWND window);
std::string ShownText(const Control& control, HWND window);

// Index of the offered choice that a value names; captions first, then names, then numbers.
int FindChoice(const Control& control, const std::vector<ChoiceText>& offered,
               const std::string& value);
// "A5" names "A5 (148 x 210 mm)".
bool CaptionMatches(const std::string& caption, const std::string& wanted);
// "1 \"Portrait\", 2 \"Landscape\"".
std::string OfferText(const std::vector<ChoiceText>& offered);

}  // namespace kvhost
