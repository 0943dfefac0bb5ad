// StretchBlt: the visible part of the target is scaled row by row and combined like any other
// source.
#include <platform/gdi/blit.h>
#include <platform/gdi/canvas.h>
#include <platform/gdi/raster.h>

#include <algorithm>
#include <cstdlib>

namespace kv {
namespace {

// One direction of a stretch: `size` pixels from `start` on either side.
struct Axis {
    std::int64_t targetStart, targetSize, sourceStart, sourceSize;
    bool mirror;
};

Axis MakeAxis(std::int64_t targetStart, std::int64_t targetSize, std::int64_t sourceStart,
              std::int64_t sourceSize) {
    Axis axis{targetStart, std::abs(targetSize), sourceStart, std::abs(sourceSize),
              (targetSize < 0) != (sourceSize < 0)};
    if (targetSize < 0) axis.targetStart += targetSize;
    if (sourceSize < 0) axis.sourceStart += sourceSize;
    return axis;
}

// The part of [from, to) whose source pixels all lie within [low, high), as target positions. The
// mapping is monotonic, so what lies outside is at the ends.
void TrimToSource(const Axis& axis, LONG low, LONG high, LONG& from, LONG& to) {
    const auto inside = [&](LONG position) {
        const std::int64_t i = position - axis.targetStart;
        const std::int64_t k = axis.mirror ? axis.targetSize - 1 - i : i;
        const std::int64_t first = axis.sourceStart + k * axis.sourceSize / axis.targetSize;
        const std::int64_t last =
            axis.sourceStart + std::max(((k + 1) * axis.sourceSize - 1) / axis.targetSize,
                                        k * axis.sourceSize / axis.targetSize);
        return first >= low && last < high;
    };
    while (from < to && !inside(from)) ++from;
    while (from < to && !inside(to - 1)) --to;
}

std::vector<ScaleSpan> SpansOf(const Axis& axis, LONG from, LONG to) {
    return MakeScaleSpans(axis.sourceStart, axis.sourceSize, axis.targetSize,
                          from - axis.targetStart, to - axis.targetStart, axis.mirror);
}

// A private copy of the source, for one that is being drawn on or has other colours here.
PixelMemory CopySource(BlitSource& source) {
    const int width = source.view.width;
    const int height = source.view.height;
    PixelMemory copy = AllocatePixels(width, height);
    if (!copy) return copy;
    for (int y = 0; y < height; ++y) {
        source.Convert(copy.get() + static_cast<std::ptrdiff_t>(y) * width, source.view.Row(y),
                       width);
    }
    source.view = {copy.get(), width, height, width};
    return copy;
}

using ScaleRow = void (*)(std::uint32_t*, const SurfaceView&, const std::vector<ScaleSpan>&,
                          const ScaleSpan&);

ScaleRow ScalerFor(int mode) {
    switch (mode) {
        case HALFTONE:
            return ScaleRowAverage;
        case COLORONCOLOR:
            return ScaleRowNearest;
        default:
            return ScaleRowAnd;  // keeps black where rows or columns are dropped
    }
}

void StretchRows(const Canvas& canvas, const SurfaceView& source, const Axis& horizontal,
                 const Axis& vertical, RopCode code, const Brush* brush) {
    const RECT& area = canvas.clip();
    const std::size_t count = static_cast<std::size_t>(area.right - area.left);
    const std::vector<ScaleSpan> columns = SpansOf(horizontal, area.left, area.right);
    const std::vector<ScaleSpan> rows = SpansOf(vertical, area.top, area.bottom);
    const ScaleRow scale = ScalerFor(canvas.dc().state.stretchMode);
    std::optional<BrushRows> brushRows;
    if (brush != nullptr) brushRows.emplace(canvas, *brush);
    const ScaleSpan* previous = nullptr;
    std::uint32_t* scaled = ScratchRow(ScratchUse::kStretch, count);
    for (int y = area.top; y < area.bottom; ++y) {
        const ScaleSpan& span = rows[static_cast<std::size_t>(y - area.top)];
        // Enlarged pictures repeat their rows.
        if (previous == nullptr || !(*previous == span)) scale(scaled, source, columns, span);
        previous = &span;
        const std::uint32_t* pattern =
            brushRows ? brushRows->Row(area.left, y, static_cast<int>(count)) : nullptr;
        CombineRows(code, {canvas.Row(y) + area.left, scaled, pattern, count});
    }
}

}  // namespace
}  // namespace kv

using namespace kv;

extern "C" {

BOOL WINAPI StretchBlt(HDC target, int x, int y, int width, int height, HDC sourceHandle,
                       int sourceX, int sourceY, int sourceWidth, int sourceHeight, DWORD rop) {
    const RopCode code = CodeOf(rop);
    if (!UsesSource(code)) return PatBlt(target, x, y, width, height, rop);
    if (width == sourceWidth && height == sourceHeight) {
        return BitBlt(target, x, y, width, height, sourceHandle, sourceX, sourceY, rop);
    }
    Canvas canvas(target);
    if (!canvas) return FALSE;
    BlitSource source(sourceHandle, canvas);
    if (!source) return FALSE;
    bool unusable = false;
    const Brush* brush = BrushFor(canvas, code, unusable);
    if (unusable || width == 0 || height == 0 || sourceWidth == 0 || sourceHeight == 0) return TRUE;

    const Axis horizontal = MakeAxis(std::int64_t{x} + canvas.origin().x, width,
                                     std::int64_t{sourceX} + source.origin.x, sourceWidth);
    const Axis vertical = MakeAxis(std::int64_t{y} + canvas.origin().y, height,
                                   std::int64_t{sourceY} + source.origin.y, sourceHeight);
    if (!canvas.Narrow(horizontal.targetStart, vertical.targetStart,
                       horizontal.targetStart + horizontal.targetSize,
                       vertical.targetStart + vertical.targetSize)) {
        return TRUE;
    }
    RECT area = canvas.clip();
    TrimToSource(horizontal, source.bounds.left, source.bounds.right, area.left, area.right);
    TrimToSource(vertical, source.bounds.top, source.bounds.bottom, area.top, area.bottom);
    if (!canvas.Narrow(area.left, area.top, area.right, area.bottom)) return TRUE;
    PixelMemory copy;
    if (source.sameSurface || source.NeedsConversion()) {
        copy = CopySource(source);
        if (!copy) {
            SetLastError(ERROR_NOT_ENOUGH_MEMORY);
            return FALSE;
        }
    }
    StretchRows(canvas, source.view, horizontal, vertical, code, brush);
    return TRUE;
}
}
