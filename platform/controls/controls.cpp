// The list of the control classes and the two functions of the common controls library. Called by
// the window core at its first use.
#include <platform/controls/classes.h>
#include <platform/controls/controls.h>
#include <platform/window/window.h>

#include <commctrl.h>
#include <windows.h>

namespace kv {
namespace {

struct ControlClass {
    const char* name;
    const char* kind;
    WNDPROC procedure;
};

constexpr ControlClass kClasses[] = {
    {"Button", "button", ButtonProcedure},
    {"Static", "static", StaticProcedure},
    {"Edit", "edit", EditProcedure},
    {"ComboBox", "combo", ComboBoxProcedure},
    {"ListBox", "list", ListBoxProcedure},
    {TRACKBAR_CLASSA, "trackbar", TrackBarProcedure},
    {UPDOWN_CLASSA, "updown", UpDownProcedure},
    {TOOLTIPS_CLASSA, "tooltip", ToolTipProcedure},
    {WC_TABCONTROLA, "tab", TabControlProcedure},
    {kSheetClass, "sheet", SheetProcedure},
};

}  // namespace

void RegisterControlClasses() {
    for (const ControlClass& entry : kClasses) {
        RegisterSystemClass(entry.name, entry.kind, entry.procedure);
    }
}

}  // namespace kv

// The classes are there from the start; programs call this because the genuine platform wants it.
void WINAPI InitCommonControls() {}

HWND WINAPI CreateUpDownControl(DWORD style, int x, int y, int width, int height, HWND parent,
                                int id, HINSTANCE instance, HWND buddy, int upper, int lower,
                                int position) {
    const auto menu = reinterpret_cast<HMENU>(static_cast<INT_PTR>(id));
    HWND upDown = CreateWindowExA(0, UPDOWN_CLASSA, "", style, x, y, width, height, parent, menu,
                                  instance, nullptr);
    if (!upDown) return nullptr;
    SendMessageA(upDown, UDM_SETBUDDY, reinterpret_cast<WPARAM>(buddy), 0);
    SendMessageA(upDown, UDM_SETRANGE32, static_cast<WPARAM>(lower), upper);
    SendMessageA(upDown, UDM_SETPOS32, 0, position);
    return upDown;
}
