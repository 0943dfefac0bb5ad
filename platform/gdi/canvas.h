// Where a drawing call draws: the surface selected into a DC, the DC's origin on it and the
// rectangle that may be touched. Every drawing call of this folder opens one; nothing else writes
// pixels.
#pragma once

#include <platform/gdi/objects.h>

namespace kv {

// The rectangle of the surface that drawing on the DC may touch (empty: all zero), and the DC's
// origin on the surface.
RECT SurfaceClip(const Dc& dc, POINT* origin);
// The same for callers that have found the DC's bitmap already.
RECT SurfaceClip(const Dc& dc, const Bitmap* bitmap, POINT* origin);

// Coordinates of shapes are kept within this distance of the origin, so that products of two
// differences fit 64 bits.
constexpr std::int64_t kFar = std::int64_t{1} << 30;

class Canvas {
 public:
    explicit Canvas(HDC handle);
    // Brings monochrome pixels back to black and white and a section's bits up to date.
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    explicit operator bool() const { return dc_ != nullptr; }
    const Dc& dc() const { return *dc_; }
    Dc& dc() { return *dc_; }
    const Bitmap& bitmap() const { return *bitmap_; }
    const RECT& clip() const { return clip_; }
    POINT origin() const { return origin_; }
    std::uint32_t* Row(int y) const { return bitmap_->view.Row(y); }

    // From the DC's coordinates to the surface's; far coordinates come nearer, in the same
    // direction.
    std::int64_t X(int x) const;
    std::int64_t Y(int y) const;

    // Narrows what may be touched to a rectangle of the surface; false when nothing is left.
    bool Narrow(std::int64_t left, std::int64_t top, std::int64_t right, std::int64_t bottom);
    bool IsEmpty() const { return clip_.right <= clip_.left; }

    // Fills surface pixels [left, right) of row y, as far as they may be touched.
    void FillSpan(std::int64_t y, std::int64_t left, std::int64_t right, std::uint32_t pixel) const;
    void FillRect(std::int64_t left, std::int64_t top, std::int64_t right, std::int64_t bottom,
                  std::uint32_t pixel) const;

 private:
    Dc* dc_ = nullptr;
    Bitmap* bitmap_ = nullptr;
    RECT clip_{};
    POINT origin_{};
};

// Rows of a brush as it shows on a canvas: solid colour, or the pattern laid out from the origin.
class BrushRows {
 public:
    BrushRows(const Canvas& canvas, const Brush& brush);
    // `count` pixels from (x, y) of the surface; valid until the next call.
    const std::uint32_t* Row(int x, int y, int count);
    // Pixels from each row of an area to the next, where Row answers them all at once.
    std::optional<std::ptrdiff_t> StrideOver(const RECT& area) const;
    bool isSolid() const { return pattern_ == nullptr; }
    std::uint32_t pixel() const { return solid_; }

 private:
    bool Recolors() const { return black_ != 0 || white_ != kWhitePixel; }

    const Bitmap* pattern_ = nullptr;
    POINT origin_{};
    std::uint32_t solid_ = 0;
    std::uint32_t black_ = 0;
    std::uint32_t white_ = kWhitePixel;
    int filled_ = 0;
};

// Row buffers that live for the whole run, so that drawing allocates nothing in its steady state.
enum class ScratchUse { kBrush, kSource, kConvert, kStretch, kCount };
std::uint32_t* ScratchRow(ScratchUse use, std::size_t count);

// Replaces black and white by two other pixels.
void RecolorRow(std::uint32_t* target, const std::uint32_t* source, std::uint32_t black,
                std::uint32_t white, int count);

}  // namespace kv
