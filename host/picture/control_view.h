// What the drawing functions share: the control to draw, the canvas, and the note of texts that
// have too little room. controls.cpp holds the table that says which function draws what.
#pragma once

#include <host/picture/labels.h>
#include <host/picture/window_picture.h>
#include <platform/window/paint.h>

#include <string>
#include <string_view>
#include <vector>

namespace kvhost {

struct ControlView {
    HWND window{};
    UINT id = 0;
    DWORD style = 0;
    Box box;  // in the picture, at scale 1
    std::string text;
    HFONT font{};
    bool enabled = true;
    bool focused = false;
    kv::ControlColors colors;  // those that the parent wants

    Color TextColor() const {
        if (!enabled) return theme::kFaintText;
        return colors.text ? ColorFrom(*colors.text) : theme::kText;
    }
    static Color ColorFrom(COLORREF color) {
        return (Color{GetRValue(color)} << 16) | (Color{GetGValue(color)} << 8) | GetBValue(color);
    }
    LRESULT Ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageA(window, message, wParam, lParam);
    }
};

struct Painter {
    Canvas& canvas;
    std::vector<ClippedText>& clipped;

    // Draws a control's text and notes it when there is no room.
    void Text(const ControlView& control, const Box& box, const Label& label);
    // Notes a text that is not shown now but would have to fit.
    void Check(const ControlView& control, const Box& box, const Label& label);
    // A bordered box in the colours of an edit.
    void Field(const ControlView& control, Color face);
    // What lies behind a control without a frame, when its parent wants a colour there.
    void Ground(const ControlView& control);
    void FocusRing(const Box& box, double radius, Color color = theme::kAccent);

   private:
    void Note(const ControlView& control, const Label& label, const Fit& fit);
};

// A surface the size of a window at scale 1, for windows that paint themselves.
class WindowSurface {
   public:
    WindowSurface(int width, int height);
    ~WindowSurface();
    WindowSurface(const WindowSurface&) = delete;
    WindowSurface& operator=(const WindowSurface&) = delete;

    HDC dc() const { return dc_; }
    const kv::SurfaceView& view() const { return view_; }

   private:
    HDC dc_{};
    HBITMAP bitmap_{};
    HGDIOBJ first_{};
    kv::SurfaceView view_;
};

using DrawControl = void (*)(Painter& painter, const ControlView& control);

// What lies over what: later layers are drawn over earlier ones.
enum class Layer { kBackground, kControl, kAttachment };

// How a control is drawn; null for what is not seen (tooltips).
struct ControlKind {
    std::string_view kind;  // of kv::KindOf
    DWORD typeMask;         // style bits that tell kinds of the class apart
    DWORD type;
    Layer layer;
    DrawControl draw;
};
const ControlKind* KindOfControl(const ControlView& control);

void DrawPushButton(Painter& painter, const ControlView& control);
void DrawCheckBox(Painter& painter, const ControlView& control);
void DrawRadioButton(Painter& painter, const ControlView& control);
void DrawGroupBox(Painter& painter, const ControlView& control);
void DrawTextStatic(Painter& painter, const ControlView& control);
void DrawIconStatic(Painter& painter, const ControlView& control);
void DrawBitmapStatic(Painter& painter, const ControlView& control);
void DrawFrameStatic(Painter& painter, const ControlView& control);
void DrawRuleStatic(Painter& painter, const ControlView& control);
void DrawEdit(Painter& painter, const ControlView& control);
void DrawComboBox(Painter& painter, const ControlView& control);
void DrawListBox(Painter& painter, const ControlView& control);
void DrawTrackBar(Painter& painter, const ControlView& control);
void DrawUpDown(Painter& painter, const ControlView& control);
void DrawTabControl(Painter& painter, const ControlView& control);

}  // namespace kvhost
