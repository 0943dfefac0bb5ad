// Opening and closing a drawing target, clipped fills, brush rows.
#include <platform/gdi/canvas.h>
#include <platform/gdi/raster.h>

#include <algorithm>

namespace kv {
namespace {

struct WideRect {
    std::int64_t left, top, right, bottom;
};

WideRect Meet(const WideRect& a, const WideRect& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

// Coverage and colour mixes must not leave grey pixels on a monochrome surface.
void ForceBlackAndWhite(const Bitmap& bitmap, const RECT& rect) {
    for (int y = rect.top; y < rect.bottom; ++y) {
        std::uint32_t* row = bitmap.view.Row(y);
        for (int x = rect.left; x < rect.right; ++x) {
            const std::uint32_t p = row[x];
            const unsigned luminance =
                ((p >> 16 & 0xFF) * 77 + (p >> 8 & 0xFF) * 151 + (p & 0xFF) * 28) >> 8;
            row[x] = luminance >= 0x80 ? kWhitePixel : 0;
        }
    }
}

}  // namespace

RECT SurfaceClip(const Dc& dc, POINT* origin) {
    return SurfaceClip(dc, ObjectOf<Bitmap>(dc.state.bitmap), origin);
}

RECT SurfaceClip(const Dc& dc, const Bitmap* bitmap, POINT* origin) {
    POINT start{};
    WideRect all{0, 0, 0, 0};
    if (bitmap != nullptr) all = {0, 0, bitmap->view.width, bitmap->view.height};
    if (dc.area) {
        start = {dc.area->left, dc.area->top};
        all = Meet(all, {dc.area->left, dc.area->top, dc.area->right, dc.area->bottom});
    }
    if (dc.state.clip) {
        const RECT& clip = *dc.state.clip;
        all = Meet(all, {std::int64_t{clip.left} + start.x, std::int64_t{clip.top} + start.y,
                         std::int64_t{clip.right} + start.x, std::int64_t{clip.bottom} + start.y});
    }
    if (origin != nullptr) *origin = start;
    if (all.right <= all.left || all.bottom <= all.top) return {};
    return {static_cast<LONG>(all.left), static_cast<LONG>(all.top), static_cast<LONG>(all.right),
            static_cast<LONG>(all.bottom)};
}

Canvas::Canvas(HDC handle) {
    Dc* dc = ObjectOf<Dc>(handle);
    if (dc == nullptr) return;
    bitmap_ = ObjectOf<Bitmap>(dc->state.bitmap);
    if (bitmap_ == nullptr) return;
    if (!OwnPixels(*bitmap_)) return;
    LoadSection(*bitmap_);
    clip_ = SurfaceClip(*dc, bitmap_, &origin_);
    dc_ = dc;
}

Canvas::~Canvas() {
    if (dc_ == nullptr || IsEmpty()) return;
    if (bitmap_->monochrome) ForceBlackAndWhite(*bitmap_, clip_);
    StoreSection(*bitmap_, clip_);
}

std::int64_t Canvas::X(int x) const {
    return std::clamp(std::int64_t{x} + origin_.x, -kFar, kFar);
}

std::int64_t Canvas::Y(int y) const {
    return std::clamp(std::int64_t{y} + origin_.y, -kFar, kFar);
}

bool Canvas::Narrow(std::int64_t left, std::int64_t top, std::int64_t right, std::int64_t bottom) {
    const WideRect rect =
        Meet({clip_.left, clip_.top, clip_.right, clip_.bottom}, {left, top, right, bottom});
    if (rect.right <= rect.left || rect.bottom <= rect.top) {
        clip_ = {};
        return false;
    }
    clip_ = {static_cast<LONG>(rect.left), static_cast<LONG>(rect.top),
             static_cast<LONG>(rect.right), static_cast<LONG>(rect.bottom)};
    return true;
}

void Canvas::FillSpan(std::int64_t y, std::int64_t left, std::int64_t right,
                      std::uint32_t pixel) const {
    if (y < clip_.top || y >= clip_.bottom) return;
    left = std::max<std::int64_t>(left, clip_.left);
    right = std::min<std::int64_t>(right, clip_.right);
    if (left < right) std::fill_n(Row(static_cast<int>(y)) + left, right - left, pixel);
}

void Canvas::FillRect(std::int64_t left, std::int64_t top, std::int64_t right, std::int64_t bottom,
                      std::uint32_t pixel) const {
    top = std::max<std::int64_t>(top, clip_.top);
    bottom = std::min<std::int64_t>(bottom, clip_.bottom);
    left = std::max<std::int64_t>(left, clip_.left);
    right = std::min<std::int64_t>(right, clip_.right);
    if (top >= bottom || left >= right) return;
    // Copying a row is faster than filling it.
    std::uint32_t* first = Row(static_cast<int>(top)) + left;
    std::fill_n(first, right - left, pixel);
    for (std::int64_t y = top + 1; y < bottom; ++y) {
        std::copy_n(first, right - left, Row(static_cast<int>(y)) + left);
    }
}

BrushRows::BrushRows(const Canvas& canvas, const Brush& brush)
    : origin_(canvas.origin()), solid_(PixelOf(brush.color)) {
    if (brush.style != Brush::Style::kPattern) return;
    pattern_ = brush.pattern.get();
    if (pattern_->monochrome && !canvas.bitmap().monochrome) {
        black_ = PixelOf(canvas.dc().state.textColor);
        white_ = PixelOf(canvas.dc().state.backColor);
    }
}

namespace {

// Where a coordinate lies within the tile of that size that it meets.
int Modulo(std::int64_t value, int size) {
    if (value >= 0 && value < size) return static_cast<int>(value);
    const std::int64_t rest = value % size;
    return static_cast<int>(rest < 0 ? rest + size : rest);
}

}  // namespace

std::optional<std::ptrdiff_t> BrushRows::StrideOver(const RECT& area) const {
    if (pattern_ == nullptr) return 0;
    const SurfaceView& tile = pattern_->view;
    const int x = Modulo(std::int64_t{area.left} - origin_.x, tile.width);
    const int y = Modulo(std::int64_t{area.top} - origin_.y, tile.height);
    if (Recolors() || area.right - area.left > tile.width - x ||
        area.bottom - area.top > tile.height - y) {
        return std::nullopt;
    }
    return tile.stride;
}

const std::uint32_t* BrushRows::Row(int x, int y, int count) {
    const auto scratch = [=] {
        return ScratchRow(ScratchUse::kBrush, static_cast<std::size_t>(count));
    };
    if (pattern_ == nullptr) {
        std::uint32_t* row = scratch();
        if (filled_ < count) std::fill_n(row, count, solid_);
        filled_ = std::max(filled_, count);
        return row;
    }
    const SurfaceView& tile = pattern_->view;
    const std::uint32_t* from = tile.Row(Modulo(std::int64_t{y} - origin_.y, tile.height));
    int column = Modulo(std::int64_t{x} - origin_.x, tile.width);
    if (!Recolors() && column + count <= tile.width) return from + column;
    std::uint32_t* row = scratch();
    for (int done = 0; done < count; column = 0) {
        const int run = std::min(count - done, tile.width - column);
        std::copy_n(from + column, run, row + done);
        done += run;
    }
    if (Recolors()) RecolorRow(row, row, black_, white_, count);
    return row;
}

std::uint32_t* ScratchRow(ScratchUse use, std::size_t count) {
    static std::array<std::vector<std::uint32_t>, static_cast<std::size_t>(ScratchUse::kCount)>
        rows;
    std::vector<std::uint32_t>& row = rows[static_cast<std::size_t>(use)];
    if (row.size() < count) row.resize(count);
    return row.data();
}

}  // namespace kv
