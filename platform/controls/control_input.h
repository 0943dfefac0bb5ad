// Private messages by which the input layer asks a control to carry out one whole user action. The
// control does what the same action of a hand would do: it changes its state and sends its
// notifications in the platform's order. The focus has been moved to the control before. Each
// answers nonzero when the action was carried out, zero when it is not possible (no such entry,
// read-only).
#pragma once

#include <windows.h>

namespace kv {

// Picks an entry of a combo box or list box. wParam: index, lParam: kv::input::Modifier flags.
constexpr UINT KVM_CHOOSE = 0x8000;
// Replaces the text of an edit (or a combo box's edit field). lParam: const UserText*.
constexpr UINT KVM_USERTEXT = 0x8001;
// Opens (wParam nonzero) or closes the list of a combo box.
constexpr UINT KVM_DROPDOWN = 0x8002;
// Drags a track bar's thumb. wParam: number of intermediate positions, lParam: the position (LONG).
constexpr UINT KVM_DRAGTO = 0x8003;
// Turns an up-down control. lParam: notches (LONG), positive is up.
constexpr UINT KVM_STEP = 0x8004;
// Brings a page of a property sheet to the front. wParam: index of the page.
constexpr UINT KVM_SELECTPAGE = 0x8005;
// Drags a track bar's thumb without letting go. lParam: the position (LONG).
constexpr UINT KVM_TRACKTO = 0x8006;

// States that displays read and for which the platform has no message of its own.
// A list box's tab stops in dialog units. wParam: capacity, lParam: int*; answers their number.
constexpr UINT KVM_GETTABSTOPS = 0x8010;
// A track bar's tick frequency.
constexpr UINT KVM_GETTICKFREQ = 0x8011;

// The text after a user's edit and where the selection stands then. Valid during the message only.
struct UserText {
    const char* text = "";
    int selectionStart = 0;
    int selectionEnd = 0;
};

}  // namespace kv
