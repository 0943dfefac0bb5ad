// Scan conversion shared with text (rotated backgrounds and underlines).
#pragma once

#include <platform/gdi/canvas.h>

#include <functional>
#include <vector>

namespace kv {

// A point of the surface, within kFar of its origin.
struct WidePoint {
    std::int64_t x, y;
};

// Calls `span` with row, left and right (exclusive) for the inside of a polygon, even-odd rule, for
// the rows that may be touched.
void FillPolygon(const Canvas& canvas, const std::vector<WidePoint>& points,
                 const std::function<void(std::int64_t, std::int64_t, std::int64_t)>& span);

}  // namespace kv
