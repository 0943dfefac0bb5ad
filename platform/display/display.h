// The interface between the window core and whatever shows the windows. The core tells the display
// what changed, after the fact and only when something really changed; the display acts on the core
// through <platform/window/input.h>.
#pragma once

#include <windows.h>

namespace kv {

enum Change : unsigned {
    kChangedText = 0x0001,
    kChangedEnabled = 0x0002,
    kChangedVisible = 0x0004,
    kChangedGeometry = 0x0008,
    kChangedStyle = 0x0010,      // default button, read-only, password ...
    kChangedItems = 0x0020,      // entries of combo, list or tab controls, tooltips' tools
    kChangedSelection = 0x0040,  // selected entry, edit selection
    kChangedCheck = 0x0080,
    kChangedRange = 0x0100,     // range, ticks, page size, text limit
    kChangedPosition = 0x0200,  // track bar, up-down
    kChangedImage = 0x0400,     // static picture
    kChangedParent = 0x0800,
    kChangedFont = 0x1000,
    kChangedOrder = 0x2000,
    kChangedDropped = 0x4000,  // a combo box opened or closed its list
};

class Display {
 public:
    virtual ~Display() = default;

    virtual void Created(HWND /*window*/) {}
    virtual void Changed(HWND /*window*/, unsigned /*changes*/) {}
    // The picture of a window (custom-painted, owner-drawn) must be fetched anew.
    virtual void Invalidated(HWND /*window*/) {}
    virtual void FocusMoved(HWND /*focus*/) {}
    // Called while the handle is still valid.
    virtual void Destroyed(HWND /*window*/) {}
    virtual void Beeped() {}
    virtual void CursorChanged(HCURSOR /*cursor*/) {}
    // A modal loop begins or ends for this window.
    virtual void ModalBegun(HWND /*window*/) {}
    virtual void ModalEnded(HWND /*window*/) {}
    // A line about what just happened, shown in a sheet beside its buttons; empty for nothing.
    virtual void ShowStatus(HWND /*sheet*/, const char* /*text*/) {}
    // Where the frame of a top-level window stands on the desktop; false when nobody knows.
    virtual bool CornerOf(HWND /*window*/, POINT* /*corner*/) { return false; }
    // Where the next sheet is to open, as far as the desktop has room there.
    virtual void OpenNextSheetAt(POINT /*corner*/) {}
    // The program waits for something outside it, `what` in a few words, since so many
    // milliseconds: repaint, say so, and take no input. Called about every 50 ms while the wait
    // lasts.
    virtual void Waiting(const char* /*what*/, unsigned /*milliseconds*/) {}
    // What was waited for is over.
    virtual void WaitEnded() {}
    // Called by a modal loop that has nothing to do: handle at least one event, or wait for one.
    // False: nothing will ever come; the loop gives up.
    virtual bool WaitForInput(HWND modal) = 0;
};

// The display in use; a headless one from the start. Passing null brings the headless one back.
Display& CurrentDisplay();
void UseDisplay(Display* display);

}  // namespace kv
