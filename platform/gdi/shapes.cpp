// Lines, rectangles, polygons and ellipses drawn with the DC's pen and brush.
#include <platform/gdi/shapes.h>

#include <algorithm>
#include <cmath>

namespace kv {
namespace {

// Pens wider than this are drawn as a polygon with two round ends instead of a row of dots.
constexpr int kWidestNib = 16;

// A round dot of the pen's width.
class Nib {
 public:
    explicit Nib(int width) : width_(width), before_(width / 2) {}
    int width() const { return width_; }

    void Stamp(const Canvas& canvas, std::int64_t x, std::int64_t y, std::uint32_t pixel) const {
        if (width_ == 1) {
            canvas.FillSpan(y, x, x + 1, pixel);
            return;
        }
        const RECT& clip = canvas.clip();
        const std::int64_t top = y - before_;
        for (std::int64_t row = std::max<std::int64_t>(top, clip.top);
             row < std::min<std::int64_t>(top + width_, clip.bottom); ++row) {
            const int inset = Inset(static_cast<int>(row - top));
            canvas.FillSpan(row, x - before_ + inset, x - before_ + width_ - inset, pixel);
        }
    }

 private:
    int Inset(int row) const {
        // Small dots are squares; that is what a two pixel line looks like everywhere.
        if (width_ <= 2) return 0;
        const double radius = width_ / 2.0;
        const double dy = row + 0.5 - radius;
        return static_cast<int>(radius - std::sqrt(std::max(0.0, radius * radius - dy * dy)) + 0.5);
    }

    int width_;
    int before_;
};

enum class LastPoint { kDrawn, kLeftOut };

std::int64_t RoundedQuotient(std::int64_t value, std::int64_t divisor) {
    const std::int64_t half = divisor / 2;
    return value >= 0 ? (value + half) / divisor : -((-value + half) / divisor);
}

// Steps along the longer direction, over the visible part only: a far end costs nothing.
void StampLine(const Canvas& canvas, WidePoint from, WidePoint to, const Nib& nib,
               std::uint32_t pixel, LastPoint lastPoint) {
    const std::int64_t dx = to.x - from.x, dy = to.y - from.y;
    const bool flat = std::abs(dx) >= std::abs(dy);
    const std::int64_t length = flat ? std::abs(dx) : std::abs(dy);
    const std::int64_t step = (flat ? dx : dy) < 0 ? -1 : 1;
    const std::int64_t start = flat ? from.x : from.y;
    const RECT& clip = canvas.clip();
    const std::int64_t low = (flat ? clip.left : clip.top) - nib.width();
    const std::int64_t high = (flat ? clip.right : clip.bottom) + nib.width();
    std::int64_t first = 0;
    std::int64_t end = length + (lastPoint == LastPoint::kDrawn ? 1 : 0);
    if (step > 0) {
        first = std::max(first, low - start);
        end = std::min(end, high - start);
    } else {
        first = std::max(first, start - high + 1);
        end = std::min(end, start - low + 1);
    }
    const std::int64_t minor = flat ? dy : dx;
    for (std::int64_t i = first; i < end; ++i) {
        const std::int64_t side = length == 0 ? 0 : RoundedQuotient(minor * i, length);
        const std::int64_t x = flat ? from.x + step * i : from.x + side;
        const std::int64_t y = flat ? from.y + side : from.y + step * i;
        nib.Stamp(canvas, x, y, pixel);
    }
}

void WideLine(const Canvas& canvas, WidePoint from, WidePoint to, const Nib& nib,
              std::uint32_t pixel) {
    nib.Stamp(canvas, from.x, from.y, pixel);
    nib.Stamp(canvas, to.x, to.y, pixel);
    const double dx = static_cast<double>(to.x - from.x), dy = static_cast<double>(to.y - from.y);
    const double length = std::hypot(dx, dy);
    if (length == 0) return;
    const std::int64_t sideX = std::llround(-dy / length * nib.width() / 2);
    const std::int64_t sideY = std::llround(dx / length * nib.width() / 2);
    FillPolygon(canvas,
                {{from.x + sideX, from.y + sideY},
                 {to.x + sideX, to.y + sideY},
                 {to.x - sideX, to.y - sideY},
                 {from.x - sideX, from.y - sideY}},
                [&](std::int64_t y, std::int64_t left, std::int64_t right) {
                    canvas.FillSpan(y, left, right, pixel);
                });
}

// Thin lines leave out their last point if told to; wide ones have round ends.
void DrawLine(const Canvas& canvas, WidePoint from, WidePoint to, const Pen& pen,
              LastPoint lastPoint) {
    const Nib nib(pen.width);
    if (pen.width > kWidestNib) {
        WideLine(canvas, from, to, nib, PixelOf(pen.color));
    } else {
        StampLine(canvas, from, to, nib, PixelOf(pen.color),
                  pen.width == 1 ? lastPoint : LastPoint::kDrawn);
    }
}

// Fills rows of brush between positions; keeps the brush's row buffer between calls.
class BrushFiller {
 public:
    BrushFiller(const Canvas& canvas, const Brush* brush) : canvas_(canvas) {
        if (brush != nullptr && brush->style != Brush::Style::kNull) rows_.emplace(canvas, *brush);
    }
    explicit operator bool() const { return rows_.has_value(); }
    void Span(std::int64_t y, std::int64_t left, std::int64_t right) {
        const RECT& clip = canvas_.clip();
        left = std::max<std::int64_t>(left, clip.left);
        right = std::min<std::int64_t>(right, clip.right);
        if (!rows_ || y < clip.top || y >= clip.bottom || left >= right) return;
        const int x = static_cast<int>(left);
        const int row = static_cast<int>(y);
        const int count = static_cast<int>(right - left);
        std::copy_n(rows_->Row(x, row, count), count, canvas_.Row(row) + x);
    }

 private:
    const Canvas& canvas_;
    std::optional<BrushRows> rows_;
};

const Pen* VisiblePen(const Canvas& canvas) {
    const Pen* pen = ObjectOf<Pen>(canvas.dc().state.pen);
    return pen != nullptr && !pen->null ? pen : nullptr;
}

const Brush* BrushOf(const Canvas& canvas) {
    return ObjectOf<Brush>(canvas.dc().state.brush);
}

void Outline(const Canvas& canvas, const std::vector<WidePoint>& points, const Pen& pen) {
    for (std::size_t i = 0; i < points.size(); ++i) {
        DrawLine(canvas, points[i], points[(i + 1) % points.size()], pen, LastPoint::kDrawn);
    }
}

// Pixels of one row of an ellipse inscribed in a box: [left, right), empty outside.
struct Span {
    std::int64_t left, right;
};
struct EllipseShape {
    double centerX, centerY, radiusX, radiusY;

    Span Row(std::int64_t y) const {
        const double dy = radiusY > 0 ? (static_cast<double>(y) + 0.5 - centerY) / radiusY : 2;
        if (radiusX <= 0 || dy <= -1 || dy >= 1) return {0, 0};
        const double half = radiusX * std::sqrt(1 - dy * dy);
        return {static_cast<std::int64_t>(std::ceil(centerX - half - 0.5)),
                static_cast<std::int64_t>(std::floor(centerX + half - 0.5)) + 1};
    }
};

// What of an outer row belongs to the inside of an outline one pixel thick: pixels whose four
// neighbours are all in the shape.
Span InnerRow(const EllipseShape& shape, std::int64_t y) {
    const Span above = shape.Row(y - 1), row = shape.Row(y), below = shape.Row(y + 1);
    return {std::max({row.left + 1, above.left, below.left}),
            std::min({row.right - 1, above.right, below.right})};
}

}  // namespace

void FillPolygon(const Canvas& canvas, const std::vector<WidePoint>& points,
                 const std::function<void(std::int64_t, std::int64_t, std::int64_t)>& span) {
    std::int64_t top = kFar, bottom = -kFar;
    for (const WidePoint& point : points) {
        top = std::min(top, point.y);
        bottom = std::max(bottom, point.y);
    }
    top = std::max<std::int64_t>(top, canvas.clip().top);
    bottom = std::min<std::int64_t>(bottom, canvas.clip().bottom);
    std::vector<std::int64_t> crossings;
    for (std::int64_t y = top; y < bottom; ++y) {
        crossings.clear();
        for (std::size_t i = 0; i < points.size(); ++i) {
            WidePoint a = points[i], b = points[(i + 1) % points.size()];
            if (a.y > b.y) std::swap(a, b);
            if (y < a.y || y >= b.y) continue;
            crossings.push_back(a.x + RoundedQuotient((b.x - a.x) * (y - a.y), b.y - a.y));
        }
        std::sort(crossings.begin(), crossings.end());
        for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
            span(y, crossings[i], crossings[i + 1]);
        }
    }
}

}  // namespace kv

using namespace kv;

extern "C" {

BOOL WINAPI MoveToEx(HDC handle, int x, int y, POINT* previous) {
    Dc* dc = ObjectOf<Dc>(handle);
    if (dc == nullptr) return FALSE;
    if (previous != nullptr) *previous = dc->state.position;
    dc->state.position = {x, y};
    return TRUE;
}

BOOL WINAPI LineTo(HDC handle, int x, int y) {
    Canvas canvas(handle);
    if (!canvas) return FALSE;
    POINT& position = canvas.dc().state.position;
    if (const Pen* pen = VisiblePen(canvas); pen != nullptr && !canvas.IsEmpty()) {
        DrawLine(canvas, {canvas.X(position.x), canvas.Y(position.y)}, {canvas.X(x), canvas.Y(y)},
                 *pen, LastPoint::kLeftOut);  // the next line begins with it
    }
    position = {x, y};
    return TRUE;
}

BOOL WINAPI Rectangle(HDC handle, int left, int top, int right, int bottom) {
    Canvas canvas(handle);
    if (!canvas) return FALSE;
    const std::int64_t l = canvas.X(std::min(left, right)), t = canvas.Y(std::min(top, bottom)),
                       r = canvas.X(std::max(left, right)) - 1,
                       b = canvas.Y(std::max(top, bottom)) - 1;
    if (r < l || b < t || canvas.IsEmpty()) return TRUE;
    const Pen* pen = VisiblePen(canvas);
    BrushFiller filler(canvas, BrushOf(canvas));
    // The right and bottom pixels belong to the outline, drawn or not.
    for (std::int64_t y = std::max<std::int64_t>(t, canvas.clip().top);
         filler && y < std::min<std::int64_t>(b, canvas.clip().bottom); ++y) {
        filler.Span(y, l, r);
    }
    if (pen != nullptr) Outline(canvas, {{l, t}, {r, t}, {r, b}, {l, b}}, *pen);
    return TRUE;
}

BOOL WINAPI Polygon(HDC handle, const POINT* points, int count) {
    Canvas canvas(handle);
    if (!canvas) return FALSE;
    if (points == nullptr || count < 2) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    if (canvas.IsEmpty()) return TRUE;
    std::vector<WidePoint> corners;
    for (int i = 0; i < count; ++i) {
        corners.push_back({canvas.X(points[i].x), canvas.Y(points[i].y)});
    }
    BrushFiller filler(canvas, BrushOf(canvas));
    if (filler) {
        FillPolygon(canvas, corners, [&](std::int64_t y, std::int64_t from, std::int64_t to) {
            filler.Span(y, from, to);
        });
    }
    if (const Pen* pen = VisiblePen(canvas)) Outline(canvas, corners, *pen);
    return TRUE;
}

BOOL WINAPI Ellipse(HDC handle, int left, int top, int right, int bottom) {
    Canvas canvas(handle);
    if (!canvas) return FALSE;
    const std::int64_t l = canvas.X(std::min(left, right)), t = canvas.Y(std::min(top, bottom)),
                       r = canvas.X(std::max(left, right)), b = canvas.Y(std::max(top, bottom));
    if (!canvas.Narrow(canvas.clip().left, t, canvas.clip().right, b)) return TRUE;
    const EllipseShape outer{static_cast<double>(l + r) / 2, static_cast<double>(t + b) / 2,
                             static_cast<double>(r - l) / 2, static_cast<double>(b - t) / 2};
    const Pen* pen = VisiblePen(canvas);
    const int width = pen != nullptr ? pen->width : 0;
    const EllipseShape inset{outer.centerX, outer.centerY, outer.radiusX - width,
                             outer.radiusY - width};
    BrushFiller filler(canvas, BrushOf(canvas));
    for (std::int64_t y = canvas.clip().top; y < canvas.clip().bottom; ++y) {
        const Span row = outer.Row(y);
        Span inner = width == 0 ? row : width == 1 ? InnerRow(outer, y) : inset.Row(y);
        if (inner.right <= inner.left) inner = {row.right, row.right};
        filler.Span(y, inner.left, inner.right);
        if (pen == nullptr) continue;
        canvas.FillSpan(y, row.left, inner.left, PixelOf(pen->color));
        canvas.FillSpan(y, inner.right, row.right, PixelOf(pen->color));
    }
    return TRUE;
}
}
