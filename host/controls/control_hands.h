// Working one control of a page or dialog through the input layer, kind by kind. Used by
// ControlDriver.
#pragma once

#include <host/controls/set_outcome.h>
#include <windows.h>

#include <string>

namespace kvhost {

// Types a text of UTF-8 in place of what the edit has. False when it was not taken as it is: an
// edit leaves out characters that it does not know, and what is beyond its limit.
bool TypeWhole(HWND edit, const std::string& text);
// Types the text and leaves the edit. `record`: where what holds the edit's value stands.
SetOutcome TypeEdit(const Control& control, const std::string& value, HWND window,
                    const BYTE* record);
SetOutcome DragSlider(const Control& control, const std::string& value, HWND window);
// `window` is any button of the group.
SetOutcome PressRadio(const Control& control, DWORD value, HWND window);
SetOutcome SwitchCheck(const Control& control, bool wanted, HWND window);

}  // namespace kvhost
