// The window record and the window tree: what every control, the dialog manager, the input layer
// and the displays share. Handles are looked up in a checked table; a stale or foreign handle finds
// nothing and sets the platform's last error, it never reaches freed memory.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kv {

struct Window;

// What a control class keeps per window (entries, check state, range ...). Owned by the window.
class ControlState {
 public:
    virtual ~ControlState() = default;
    bool focused = false;  // its parent heard that it has the focus
};

// What the dialog manager keeps for a dialog window.
struct DialogState {
    DLGPROC procedure = nullptr;
    LONG_PTR messageResult = 0;  // DWLP_MSGRESULT
    LONG_PTR user = 0;           // DWLP_USER
    INT_PTR endResult = 0;
    bool ended = false;
    bool modal = false;
    int defaultId = 0;     // current default button (DM_SETDEFID)
    HWND disabledOwner{};  // the window that a modal dialog disabled and gives back
    HFONT font{};
    bool ownsFont = false;
    std::string
        templateName;  // "TAB0R", "#123" or empty: names the dialog in messages and pictures
    int unitsX = 6;    // dialog base units: width of an average character, height of the font
    int unitsY = 13;
};

struct WindowClass {
    std::string name;
    WNDPROC procedure = nullptr;
    HINSTANCE instance{};
    // What kind of control the class is, for displays and descriptions; empty for plain windows.
    std::string_view kind;
    HBRUSH background{};
    HCURSOR cursor{};
    int extraBytes = 0;  // cbWndExtra
};

// Where a window's own drawing goes between GetDC or BeginPaint and their counterparts; made on
// demand.
struct WindowSurface {
    HDC dc{};
    HBITMAP bitmap{};
    HGDIOBJ previous{};
    SIZE size{};

    WindowSurface() = default;
    WindowSurface(const WindowSurface&) = delete;
    WindowSurface& operator=(const WindowSurface&) = delete;
    ~WindowSurface();
};

// Names of properties compare without case.
struct PropertyOrder {
    bool operator()(const std::string& left, const std::string& right) const {
        return lstrcmpiA(left.c_str(), right.c_str()) < 0;
    }
};

struct Window {
    HWND handle{};
    const WindowClass* windowClass = nullptr;
    WNDPROC procedure = nullptr;  // current procedure (subclassing replaces it)
    DWORD style = 0;              // WS_VISIBLE and WS_DISABLED live here, as on the platform
    DWORD exStyle = 0;
    UINT id = 0;
    HINSTANCE instance{};
    HWND parent{};  // WS_CHILD windows
    HWND owner{};   // popups
    RECT rect{};    // children: relative to the parent's client area; popups: screen
    std::string text;
    HFONT font{};
    LONG_PTR userData = 0;
    bool redraw = true;  // WM_SETREDRAW
    bool destroying = false;
    bool invalid = true;
    std::vector<HWND> children;  // creation order = tab order = z-order (first on top)
    std::map<std::string, HANDLE, PropertyOrder> properties;
    std::unique_ptr<ControlState> state;
    std::unique_ptr<DialogState> dialog;
    std::vector<UINT> childIds;   // ids of `children`, side by side for a fast GetDlgItem
    std::vector<LONG_PTR> extra;  // the class's extra bytes
    std::unique_ptr<WindowSurface> surface;
    HDC paintTarget{};             // where the next BeginPaint draws instead of the surface
    bool painted = false;          // BeginPaint was called for the WM_PAINT under way
    bool announced = false;        // the display knows the window
    unsigned deferredChanges = 0;  // gathered while redrawing is off
    HWND savedFocus{};             // top-level windows: the focus to restore on activation
    bool knowsFocus = false;       // its last message on the focus was WM_SETFOCUS
    bool hearsGain = false;        // WM_SETFOCUS is under way,
    bool hearsLoss = false;        // and so is WM_KILLFOCUS

    bool IsVisibleStyle() const { return (style & WS_VISIBLE) != 0; }
    bool IsDisabledStyle() const { return (style & WS_DISABLED) != 0; }
};

// The record behind a handle, or null with ERROR_INVALID_WINDOW_HANDLE as last error.
Window* WindowFromHandle(HWND handle);

// The typed control state of a window, created on first use.
template <typename State>
State& StateOf(Window& window) {
    if (!window.state) window.state = std::make_unique<State>();
    return static_cast<State&>(*window.state);
}

// Registers one of the layer's own classes (controls, dialogs); called once per class at start.
void RegisterSystemClass(const char* name, std::string_view kind, WNDPROC procedure);

// Top-level windows in creation order.
std::vector<HWND> TopLevelWindows();
// Walks up to the window that has no parent.
HWND RootOf(HWND window);
// The control kind of a window ("button", "static", "edit", "combo", "list", "trackbar", "updown",
// "tooltip", "tab", "sheet", "dialog"), empty for other classes.
std::string_view KindOf(HWND window);
// A name for messages to people: template name or caption of a dialog, kind and id of a control.
std::string DescribeWindow(HWND window);

// Sends WM_COMMAND with a notification code from a control to its parent.
LRESULT NotifyParent(Window& control, WORD code);

// Runs posted messages and waits for input until `done` answers true or the display gives up.
// `root` is the window the loop works for (a modal dialog, a modal sheet). False when given up.
bool RunModalLoop(HWND root, const std::function<bool()>& done);
// Handles every message that is queued now; answers how many.
int PumpPendingMessages();
// Milliseconds until the next timer is due, -1 without timers: how long a display may wait.
int MillisecondsToNextTimer();
// The window for which the innermost modal loop runs, null outside of modal loops.
HWND CurrentModalWindow();
// The system cursor behind a handle: 32512 arrow, 32514 wait, 32649 hand; 0 for none.
unsigned SystemCursorId(HCURSOR cursor);

}  // namespace kv
