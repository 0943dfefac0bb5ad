// Pictures of windows that paint themselves. Displays and the picture writer call these; plain
// controls are drawn by the display in its own style.
#pragma once

#include <windows.h>

#include <optional>

namespace kv {

// How a window's looks come about.
enum class Painting {
    kPlain,       // the display draws the control from its state
    kSelf,        // the window answers WM_PAINT itself (subclassed or custom class)
    kOwnerDrawn,  // the parent draws it through WM_DRAWITEM (buttons, statics)
    kByParent,    // a static whose parent paints it in WM_CTLCOLORSTATIC and answers the null brush
};

// Paints the window's client area into `dc` at the DC's origin, whatever its style: sends WM_PAINT,
// WM_DRAWITEM or WM_CTLCOLORSTATIC with that DC, and says how it was painted. kPlain: nothing was
// drawn.
Painting PaintWindow(HWND window, HDC dc);

// Draws one entry of an owner-drawn combo box or list box through WM_DRAWITEM; item -1 is a combo
// box's empty field. A DC whose text alignment holds TA_RTLREADING asks for an entry that is read
// from the right. False when the control is not owner-drawn.
bool PaintItem(HWND control, int item, HDC dc, const RECT& rect, UINT itemState);

// The colours that a control's parent wants for it, in WM_CTLCOLOREDIT and its kin; empty where it
// leaves the system's. Displays use them for what they draw themselves.
struct ControlColors {
    std::optional<COLORREF> text;
    std::optional<COLORREF> face;  // behind the text
};
ControlColors ColorsOf(HWND control);

}  // namespace kv
