// A surface to draw controls on: positions are in the windows' own pixels, the surface is larger by
// the scale and may be mirrored for right-to-left languages. Edges are smooth and whole pixels stay
// whole at any scale.
#pragma once

#include <host/picture/theme.h>
#include <platform/gdi/surface.h>
#include <windows.h>

#include <initializer_list>
#include <map>
#include <string_view>

namespace kvhost {

struct Box {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

    double Width() const { return right - left; }
    double Height() const { return bottom - top; }
    Box Inset(double by) const { return {left + by, top + by, right - by, bottom - by}; }
};

// A point inside a glyph's frame, 0 to 1 each way.
struct GlyphPoint {
    double x;
    double y;
};

enum class Reading { kLeftToRight, kRightToLeft };

class Canvas {
   public:
    Canvas(int width, int height, double scale, Reading reading);
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    // False when there was no memory for the surface.
    explicit operator bool() const { return static_cast<bool>(view_); }
    const kv::SurfaceView& view() const { return view_; }
    double scale() const { return scale_; }
    bool isMirrored() const { return reading_ == Reading::kRightToLeft; }

    // Where a box lies on the surface, in whole surface pixels.
    RECT Place(const Box& box) const;
    // A length in surface pixels, at least one.
    int Thickness(double length) const;

    void Fill(const Box& box, Color color);
    void FillRound(const Box& box, double radius, Color color);
    void FrameRound(const Box& box, double radius, double width, Color color);
    // A line through points of a frame. Glyphs are not mirrored, only their place is.
    void Stroke(const Box& frame, std::initializer_list<GlyphPoint> points, double width,
                Color color);

    // Texts, in surface pixels; `font` is a window's font at scale 1.
    int TextWidth(HFONT font, std::string_view text);
    int LineHeight(HFONT font);
    void DrawRun(HFONT font, int x, int y, std::string_view text, Color color);
    void Underline(HFONT font, int left, int right, int y, Color color);

    // Pictures, never mirrored. A picture of a window itself is as large as its box at scale 1.
    void DrawIcon(const Box& box, HICON icon);
    void DrawBitmap(const Box& box, HBITMAP bitmap);
    void CopyUnder(const Box& box, const kv::SurfaceView& picture) const;
    void DrawPicture(const Box& box, const kv::SurfaceView& picture);

    // Nothing is drawn outside of the box (and of the clip before); answers the clip before.
    RECT Clip(const Box& box);
    void SetClip(const RECT& clip);

   private:
    struct DeviceFont {
        HFONT font{};
        TEXTMETRICA metrics{};
    };
    const DeviceFont& FontFor(HFONT font);
    void Blend(int x, int y, double coverage, Color color);

    int width_;
    double scale_;
    Reading reading_;
    HDC dc_{};
    HBITMAP bitmap_{};
    HGDIOBJ firstBitmap_{};
    HGDIOBJ firstFont_{};
    kv::SurfaceView view_;
    RECT clip_{};
    std::map<HFONT, DeviceFont> fonts_;
};

// Keeps drawing inside a box as long as it lives.
class ClipScope {
   public:
    ClipScope(Canvas& canvas, const Box& box) : canvas_(canvas), before_(canvas.Clip(box)) {}
    ~ClipScope() { canvas_.SetClip(before_); }
    ClipScope(const ClipScope&) = delete;
    ClipScope& operator=(const ClipScope&) = delete;

   private:
    Canvas& canvas_;
    RECT before_;
};

}  // namespace kvhost
