// Shared by the calls that combine surfaces (blit.cpp, stretch.cpp) or fill with a brush
// (fills.cpp).
#pragma once

#include <platform/gdi/canvas.h>
#include <platform/gdi/raster.h>

namespace kv {

// The surface a blit reads, with the conversion its pixels need for the canvas.
class BlitSource {
 public:
    BlitSource(HDC handle, const Canvas& canvas);

    explicit operator bool() const { return static_cast<bool>(view); }
    bool NeedsConversion() const { return conversion_ != Conversion::kNone; }
    void Convert(std::uint32_t* target, const std::uint32_t* from, int count) const;

    SurfaceView view;
    RECT bounds{};   // what may be read
    POINT origin{};  // of the source DC on its surface
    bool sameSurface = false;

 private:
    enum class Conversion { kNone, kRecolor, kMatch };
    Conversion conversion_ = Conversion::kNone;
    std::uint32_t black_ = 0;
    std::uint32_t white_ = kWhitePixel;
};

// The DC's brush when the code reads one, else null. `unusable`: it reads one and there is none to
// paint with, so the call has nothing to do.
const Brush* BrushFor(const Canvas& canvas, RopCode code, bool& unusable);

// Combines a brush (null when the code needs none) with a rectangle of the surface.
bool FillArea(Canvas& canvas, std::int64_t x, std::int64_t y, std::int64_t width,
              std::int64_t height, RopCode code, const Brush* brush);

}  // namespace kv
