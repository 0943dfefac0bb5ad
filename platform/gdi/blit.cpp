// BitBlt and PatBlt: clipping against both surfaces, order of rows for overlapping areas,
// conversion between monochrome and colour surfaces.
#include <platform/gdi/blit.h>
#include <platform/gdi/canvas.h>
#include <platform/gdi/raster.h>

#include <algorithm>

namespace kv {

void RecolorRow(std::uint32_t* target, const std::uint32_t* source, std::uint32_t black,
                std::uint32_t white, int count) {
    for (int i = 0; i < count; ++i) {
        const std::uint32_t isWhite = 0u - ((source[i] & kColorBits) != 0 ? 1u : 0u);
        target[i] = (white & isWhite) | (black & ~isWhite);
    }
}

namespace {

// Colour to monochrome: the source DC's background colour becomes white, all else black.
void MatchRow(std::uint32_t* target, const std::uint32_t* source, std::uint32_t background,
              int count) {
    for (int i = 0; i < count; ++i) {
        target[i] = (source[i] & kColorBits) == background ? kWhitePixel : 0;
    }
}

// Negative extents reach to the left of (above) the given point.
void MakePositive(std::int64_t& start, std::int64_t& size) {
    if (size >= 0) return;
    start += size;
    size = -size;
}

}  // namespace

BlitSource::BlitSource(HDC handle, const Canvas& canvas) {
    const Dc* dc = ObjectOf<Dc>(handle);
    if (dc == nullptr) return;
    Bitmap* bitmap = ObjectOf<Bitmap>(dc->state.bitmap);
    if (bitmap == nullptr) return;
    if (bitmap != &canvas.bitmap()) LoadSection(*bitmap);
    view = bitmap->view;
    bounds = {0, 0, view.width, view.height};
    if (dc->area) {
        origin = {dc->area->left, dc->area->top};
        bounds = {std::max<LONG>(0, dc->area->left), std::max<LONG>(0, dc->area->top),
                  std::min<LONG>(view.width, dc->area->right),
                  std::min<LONG>(view.height, dc->area->bottom)};
    }
    sameSurface = bitmap == &canvas.bitmap();
    if (bitmap->monochrome && !canvas.bitmap().monochrome) {
        black_ = PixelOf(canvas.dc().state.textColor);
        white_ = PixelOf(canvas.dc().state.backColor);
        if (black_ != 0 || white_ != kWhitePixel) conversion_ = Conversion::kRecolor;
    } else if (!bitmap->monochrome && canvas.bitmap().monochrome) {
        white_ = PixelOf(dc->state.backColor);
        conversion_ = Conversion::kMatch;
    }
}

void BlitSource::Convert(std::uint32_t* target, const std::uint32_t* from, int count) const {
    switch (conversion_) {
        case Conversion::kRecolor:
            RecolorRow(target, from, black_, white_, count);
            break;
        case Conversion::kMatch:
            MatchRow(target, from, white_, count);
            break;
        case Conversion::kNone:
            std::copy_n(from, count, target);
            break;
    }
}

namespace {

// Whole surfaces of one width lie in memory like a single long row.
void JoinRows(PixelRows& rows) {
    const auto stride = static_cast<std::ptrdiff_t>(rows.count);
    if (rows.targetStride != stride || (rows.source != nullptr && rows.sourceStride != stride) ||
        (rows.pattern != nullptr && rows.patternStride != stride)) {
        return;
    }
    rows.count *= static_cast<std::size_t>(rows.height);
    rows.height = 1;
}

// One blit after clipping; the source lies at a fixed distance.
void CombineArea(const Canvas& canvas, const BlitSource* source, int sourceDx, int sourceDy,
                 RopCode code, BrushRows* brush) {
    const RECT& area = canvas.clip();
    const SurfaceView& surface = canvas.bitmap().view;
    const int count = area.right - area.left, height = area.bottom - area.top;
    const auto sourceRow = [&](int y) {
        return source->view.Row(y + sourceDy) + area.left + sourceDx;
    };
    PixelRows rows{surface.Row(area.top) + area.left, nullptr, nullptr,
                   static_cast<std::size_t>(count)};
    const bool directSource =
        source == nullptr || !(source->NeedsConversion() || source->sameSurface);
    const auto brushStride =
        brush != nullptr ? brush->StrideOver(area) : std::optional<std::ptrdiff_t>(0);
    if (directSource && brushStride) {
        rows.height = height;
        rows.targetStride = surface.stride;
        if (source != nullptr) {
            rows.source = sourceRow(area.top);
            rows.sourceStride = source->view.stride;
        }
        if (brush != nullptr) rows.pattern = brush->Row(area.left, area.top, count);
        rows.patternStride = *brushStride;
        JoinRows(rows);
        CombineRows(code, rows);
        return;
    }
    // Within one surface a row must be read before it is overwritten.
    const bool upwards = source != nullptr && source->sameSurface && sourceDy < 0;
    const bool buffered = !directSource && (source->NeedsConversion() || sourceDy == 0);
    for (int i = 0; i < height; ++i) {
        const int y = upwards ? area.bottom - 1 - i : area.top + i;
        rows.target = surface.Row(y) + area.left;
        if (source != nullptr) rows.source = sourceRow(y);
        if (buffered) {
            std::uint32_t* copy = ScratchRow(ScratchUse::kConvert, rows.count);
            source->Convert(copy, rows.source, count);
            rows.source = copy;
        }
        if (brush != nullptr) rows.pattern = brush->Row(area.left, y, count);
        CombineRows(code, rows);
    }
}

}  // namespace

const Brush* BrushFor(const Canvas& canvas, RopCode code, bool& unusable) {
    unusable = false;
    if (!UsesPattern(code)) return nullptr;
    const Brush* brush = ObjectOf<Brush>(canvas.dc().state.brush);
    unusable = brush == nullptr || brush->style == Brush::Style::kNull;
    return brush;
}

bool FillArea(Canvas& canvas, std::int64_t x, std::int64_t y, std::int64_t width,
              std::int64_t height, RopCode code, const Brush* brush) {
    MakePositive(x, width);
    MakePositive(y, height);
    if (!canvas.Narrow(x, y, x + width, y + height)) return true;
    if (brush == nullptr) {
        CombineArea(canvas, nullptr, 0, 0, code, nullptr);
    } else {
        BrushRows rows(canvas, *brush);
        if (code == CodeOf(PATCOPY) && rows.isSolid()) {
            canvas.FillRect(x, y, x + width, y + height, rows.pixel());
        } else {
            CombineArea(canvas, nullptr, 0, 0, code, &rows);
        }
    }
    return true;
}

}  // namespace kv

using namespace kv;

extern "C" {

BOOL WINAPI PatBlt(HDC handle, int x, int y, int width, int height, DWORD rop) {
    Canvas canvas(handle);
    if (!canvas) return FALSE;
    const RopCode code = CodeOf(rop);
    if (UsesSource(code)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    bool unusable = false;
    const Brush* brush = BrushFor(canvas, code, unusable);
    if (unusable) return TRUE;
    return FillArea(canvas, std::int64_t{x} + canvas.origin().x,
                    std::int64_t{y} + canvas.origin().y, width, height, code, brush);
}

BOOL WINAPI BitBlt(HDC target, int targetX, int targetY, int targetWidth, int targetHeight,
                   HDC sourceHandle, int sourceX, int sourceY, DWORD rop) {
    const RopCode code = CodeOf(rop);
    if (!UsesSource(code)) {
        return PatBlt(target, targetX, targetY, targetWidth, targetHeight, rop);
    }
    Canvas canvas(target);
    if (!canvas) return FALSE;
    const BlitSource source(sourceHandle, canvas);
    if (!source) return FALSE;
    bool unusable = false;
    const Brush* brush = BrushFor(canvas, code, unusable);
    if (unusable) return TRUE;

    std::int64_t x = std::int64_t{targetX} + canvas.origin().x;
    std::int64_t y = std::int64_t{targetY} + canvas.origin().y;
    const std::int64_t dx = std::int64_t{sourceX} + source.origin.x - x;
    const std::int64_t dy = std::int64_t{sourceY} + source.origin.y - y;
    std::int64_t width = targetWidth;
    std::int64_t height = targetHeight;
    MakePositive(x, width);
    MakePositive(y, height);
    // Only where there is a source pixel.
    if (!canvas.Narrow(x, y, x + width, y + height) ||
        !canvas.Narrow(source.bounds.left - dx, source.bounds.top - dy, source.bounds.right - dx,
                       source.bounds.bottom - dy)) {
        return TRUE;
    }
    // Something is left, so the distance between two pixels of real surfaces fits an int.
    if (brush != nullptr) {
        BrushRows rows(canvas, *brush);
        CombineArea(canvas, &source, static_cast<int>(dx), static_cast<int>(dy), code, &rows);
    } else {
        CombineArea(canvas, &source, static_cast<int>(dx), static_cast<int>(dy), code, nullptr);
    }
    return TRUE;
}
}
