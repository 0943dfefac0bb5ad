// User input. The Qt display, the command line and the tests act through these calls; there is no
// other way for a user's action to enter. Each call does what the hand or key press does: it moves
// the focus, sends the messages in the platform's order and runs what they post. A call answers
// false, and does nothing, when a person could not do it: the window is gone, hidden, disabled, or
// a modal dialog stands before it.
#pragma once

#include <windows.h>

#include <string_view>

namespace kv::input {

enum Modifier : unsigned { kNoModifier = 0, kShift = 1, kControl = 2, kAlt = 4 };

bool CanReach(HWND window);

// Mouse.
bool Click(HWND window, unsigned modifiers = kNoModifier);
bool ClickAt(HWND window, POINT clientPoint, unsigned modifiers = kNoModifier);
bool DoubleClick(HWND window, unsigned modifiers = kNoModifier);
// The second click of a double click at a place, after an ordinary first one.
bool SecondClickAt(HWND window, POINT clientPoint, unsigned modifiers = kNoModifier);
bool RightClick(HWND window, unsigned modifiers = kNoModifier);
bool RightClickAt(HWND window, POINT clientPoint, unsigned modifiers = kNoModifier);
bool MoveTo(HWND window, POINT clientPoint);
// Moves the focus the way a click into the window does, without any other effect.
bool Focus(HWND window);

// Keyboard: to the window that has the focus, through the dialog manager (Tab, arrows, Enter,
// Escape, mnemonics with kAlt, F1 as WM_HELP).
bool Key(int virtualKey, unsigned modifiers = kNoModifier);
bool Type(std::string_view text);

// Composite actions on one control; native widgets report these as a whole.
// Replaces an edit's text as one user action (paste, input method, native editor).
bool SetEditText(HWND edit, std::string_view text, int selectionStart, int selectionEnd);
// Picks the entry of a combo box or list box by index (modifiers matter in multi-select lists).
bool Choose(HWND comboOrList, int index, unsigned modifiers = kNoModifier);
bool DropDown(HWND combo, bool open);
// Drags a track bar's thumb to a position through `steps` intermediate positions and lets go.
bool DragTo(HWND trackBar, int position, int steps = 1);
// Drags it to a position and still holds it there; DragTo lets go.
bool TrackTo(HWND trackBar, int position);
// One notch of an up-down control; positive turns it up.
bool Step(HWND upDown, int notches);
// The close box of a dialog or sheet.
bool Close(HWND topLevel);
// Brings a page of a property sheet to the front by its tab.
bool SelectPage(HWND sheet, int index);

// Is told of each action before and after its effects. Actions nest: those in a modal dialog lie
// within the one that opened it. The mouse passing over a window is no action.
class Watcher {
 public:
    virtual ~Watcher() = default;
    virtual void Begun(HWND window) = 0;
    virtual void Ended() = 0;
};
// Null ends it. A watcher is set and taken back while no action is under way.
void Watch(Watcher* watcher);

// The state of the modifier keys during the call under way (GetKeyState reads it).
unsigned CurrentModifiers();

}  // namespace kv::input
