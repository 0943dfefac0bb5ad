// TextOutA, text extents and metrics.
#include <platform/gdi/raster.h>
#include <platform/gdi/shapes.h>
#include <platform/gdi/text.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace kv {
namespace {

void BlendGlyph(const Canvas& canvas, const Glyph& glyph, std::int64_t x, std::int64_t y,
                std::uint32_t pixel) {
    const RECT& clip = canvas.clip();
    const std::int64_t left = std::max<std::int64_t>(x + glyph.left, clip.left);
    const std::int64_t right = std::min<std::int64_t>(x + glyph.left + glyph.width, clip.right);
    const std::int64_t top = std::max<std::int64_t>(y + glyph.top, clip.top);
    const std::int64_t bottom = std::min<std::int64_t>(y + glyph.top + glyph.height, clip.bottom);
    if (left >= right || top >= bottom) return;
    BlendCoverage({canvas.Row(static_cast<int>(top)) + left,
                   glyph.coverage.data() + (top - y - glyph.top) * glyph.width +
                       (left - x - glyph.left),
                   static_cast<std::size_t>(right - left), static_cast<int>(bottom - top),
                   canvas.bitmap().view.stride, glyph.width},
                  pixel);
}

}  // namespace

void DrawRun(const Canvas& canvas, RealizedFont& font, double x, double y, std::string_view text) {
    if (canvas.IsEmpty()) return;
    const COLORREF color = canvas.dc().state.textColor;
    const RECT& clip = canvas.clip();
    // No ink is farther from its pen position than this.
    const double reach = 2.0 * (font.metrics().tmHeight + font.metrics().tmMaxCharWidth);
    int along = 0;
    for (const char c : text) {
        const auto character = static_cast<unsigned char>(c);
        const double penX = x + along * font.directionX();
        const double penY = y + along * font.directionY();
        along = std::min(along + font.Advance(character), 0x3FFFFFFF);
        if (penX < clip.left - reach || penX > clip.right + reach || penY < clip.top - reach ||
            penY > clip.bottom + reach) {
            continue;
        }
        // Turned text is placed to a quarter of a pixel, or its letters would dance.
        const auto quartersX = static_cast<std::int64_t>(std::floor(penX * 4 + 0.5));
        const auto quartersY = static_cast<std::int64_t>(std::floor(penY * 4 + 0.5));
        const Glyph& glyph = font.GlyphAt(character, quartersX & 3, quartersY & 3);
        BlendGlyph(canvas, glyph, quartersX >> 2, quartersY >> 2, PixelOf(color));
    }
    if (font.isUnderlined()) {
        FillAlongBaseline(canvas, font, x, y, 0, font.underlineTop(), along,
                          font.underlineTop() + font.underlineThickness(), color);
    }
    if (font.isStruckOut()) {
        const int middle = -font.metrics().tmAscent / 3;
        FillAlongBaseline(canvas, font, x, y, 0, middle, along, middle + font.underlineThickness(),
                          color);
    }
}

void FillAlongBaseline(const Canvas& canvas, const RealizedFont& font, double x, double y, int left,
                       int top, int right, int bottom, COLORREF color) {
    const double cx = font.directionX(), cy = font.directionY();
    const auto corner = [&](int along, int below) {
        const double px = x + along * cx - below * cy, py = y + along * cy + below * cx;
        const double far = static_cast<double>(kFar);
        return WidePoint{std::llround(std::clamp(px, -far, far)),
                         std::llround(std::clamp(py, -far, far))};
    };
    const std::vector<WidePoint> corners{corner(left, top), corner(right, top),
                                         corner(right, bottom), corner(left, bottom)};
    if (!font.isRotated()) {
        canvas.FillRect(corners[0].x, corners[0].y, corners[2].x, corners[2].y, PixelOf(color));
        return;
    }
    FillPolygon(canvas, corners, [&](std::int64_t row, std::int64_t from, std::int64_t to) {
        // A line thinner than a pixel must not fall between two of them.
        canvas.FillSpan(row, from, std::max(to, from + 1), PixelOf(color));
    });
}

std::string_view TextOfCall(LPCSTR text, int length) {
    if (text == nullptr) return {};
    return {text, length < 0 ? std::strlen(text) : static_cast<std::size_t>(length)};
}

}  // namespace kv

using namespace kv;

extern "C" {

BOOL WINAPI TextOutA(HDC handle, int x, int y, LPCSTR text, int length) {
    Canvas canvas(handle);
    if (!canvas) return FALSE;
    if (length < 0 || (text == nullptr && length > 0)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const std::string_view run = TextOfCall(text, length);
    if (run.empty() || canvas.IsEmpty()) return TRUE;
    RealizedFont* font = FontOf(canvas.dc());
    if (font == nullptr) return FALSE;
    const DcState& state = canvas.dc().state;
    const TEXTMETRICA& metrics = font->metrics();
    const int width = font->TextWidth(run);
    int along = 0;
    if ((state.textAlign & TA_CENTER) == TA_CENTER) {
        along = -width / 2;
    } else if ((state.textAlign & TA_RIGHT) != 0) {
        along = -width;
    }
    int below = metrics.tmAscent;  // from the reference point to the baseline
    if ((state.textAlign & TA_BASELINE) == TA_BASELINE) {
        below = 0;
    } else if ((state.textAlign & TA_BOTTOM) != 0) {
        below = -metrics.tmDescent;
    }
    const double startX =
        static_cast<double>(canvas.X(x)) + along * font->directionX() - below * font->directionY();
    const double startY =
        static_cast<double>(canvas.Y(y)) + along * font->directionY() + below * font->directionX();
    if (state.backMode == OPAQUE) {
        FillAlongBaseline(canvas, *font, startX, startY, 0, -metrics.tmAscent, width,
                          metrics.tmDescent, state.backColor);
    }
    DrawRun(canvas, *font, startX, startY, run);
    return TRUE;
}

BOOL WINAPI GetTextExtentPoint32A(HDC handle, LPCSTR text, int length, SIZE* size) {
    const Dc* dc = ObjectOf<Dc>(handle);
    if (dc == nullptr) return FALSE;
    if (size == nullptr || length < 0 || (text == nullptr && length > 0)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const RealizedFont* font = FontOf(*dc);
    if (font == nullptr) return FALSE;
    *size = {font->TextWidth(TextOfCall(text, length)), font->metrics().tmHeight};
    return TRUE;
}

BOOL WINAPI GetTextMetricsA(HDC handle, TEXTMETRICA* metrics) {
    const Dc* dc = ObjectOf<Dc>(handle);
    if (dc == nullptr || metrics == nullptr) return FALSE;
    const RealizedFont* font = FontOf(*dc);
    if (font == nullptr) return FALSE;
    *metrics = font->metrics();
    return TRUE;
}
}
