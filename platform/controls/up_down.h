// The keyboard half of an up-down control: its buddy edit asks here when an arrow key is pressed.
#pragma once

#include <windows.h>

namespace kv {

// Turns the up-down control that has this edit as its buddy (and UDS_ARROWKEYS) by one notch.
// False when there is none, so that the key keeps its usual meaning.
bool StepBuddy(HWND edit, int notches);

}  // namespace kv
