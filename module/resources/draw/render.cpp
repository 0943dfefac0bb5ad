// Rendering of icons, bitmaps and masked pairs on 32-bit surfaces.
#include "render.h"

#include <cmath>
#include <cstdint>
#include <set>

namespace draw {
namespace {

constexpr int kIconUnits = 32;

std::uint32_t* RowOf(cairo_surface_t* surface, int y) {
    return reinterpret_cast<std::uint32_t*>(cairo_image_surface_get_data(surface) +
                                            y * cairo_image_surface_get_stride(surface));
}

void Draw(cairo_surface_t* surface, void (*draw)(cairo_t*, const Box&, int), int value) {
    cairo_t* to = cairo_create(surface);
    draw(to,
         {0, 0, static_cast<double>(cairo_image_surface_get_width(surface)),
          static_cast<double>(cairo_image_surface_get_height(surface))},
         value);
    cairo_destroy(to);
    cairo_surface_flush(surface);
}

void MakeGrey(cairo_surface_t* surface) {
    for (int y = 0; y < cairo_image_surface_get_height(surface); ++y) {
        std::uint32_t* row = RowOf(surface, y);
        for (int x = 0; x < cairo_image_surface_get_width(surface); ++x) {
            const std::uint32_t red = row[x] >> 16 & 0xFF;
            const std::uint32_t green = row[x] >> 8 & 0xFF;
            const std::uint32_t blue = row[x] & 0xFF;
            const std::uint32_t luma = (299 * red + 587 * green + 114 * blue + 500) / 1000;
            row[x] = 0xFF000000u | luma << 16 | luma << 8 | luma;
        }
    }
}

std::uint32_t Channel(double level) {
    return static_cast<std::uint32_t>(std::lround(level * 255));
}

// A pixel multiplied by its coverage over an opaque ground.
std::uint32_t Over(std::uint32_t pixel, const Color& ground) {
    const double rest = 1 - (pixel >> 24) / 255.0;
    const std::uint32_t below = Channel(ground.red * rest) << 16 |
                                Channel(ground.green * rest) << 8 | Channel(ground.blue * rest);
    std::uint32_t result = 0xFF000000u;
    for (int shift = 0; shift < 24; shift += 8) {
        const std::uint32_t sum = (pixel >> shift & 0xFF) + (below >> shift & 0xFF);
        result |= (sum > 255 ? 255 : sum) << shift;
    }
    return result;
}

// A pixel is there or not; what is there is not quite white.
std::uint32_t Keyed(std::uint32_t pixel, std::uint32_t step) {
    constexpr std::uint32_t kHighest = 252;
    const std::uint32_t coverage = pixel >> 24;
    if (coverage < 128) return 0xFFFFFFFFu;
    std::uint32_t result = 0xFF000000u;
    for (int shift = 0; shift < 24; shift += 8) {
        const std::uint32_t level = (pixel >> shift & 0xFF) * 255 / coverage;
        const std::uint32_t even = (level + step / 2) / step * step;
        result |= (even > kHighest ? kHighest : even) << shift;
    }
    return result;
}

// In the finest levels whose colours have room in a palette.
void KeyByWhite(cairo_surface_t* surface) {
    constexpr std::size_t kMostColours = 256;
    const int width = cairo_image_surface_get_width(surface);
    const int height = cairo_image_surface_get_height(surface);
    std::uint32_t step = 1;
    for (std::set<std::uint32_t> colours;; step *= 2, colours.clear()) {
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) colours.insert(Keyed(RowOf(surface, y)[x], step));
        }
        if (colours.size() <= kMostColours) break;
    }
    for (int y = 0; y < height; ++y) {
        std::uint32_t* row = RowOf(surface, y);
        for (int x = 0; x < width; ++x) row[x] = Keyed(row[x], step);
    }
}

}  // namespace

cairo_surface_t* NewSurface(int width, int height) {
    return cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
}

cairo_surface_t* RenderIcon(const IconPicture& icon, int size) {
    cairo_surface_t* surface = NewSurface(size, size);
    cairo_t* to = cairo_create(surface);
    cairo_scale(to, double(size) / kIconUnits, double(size) / kIconUnits);
    icon.draw(to, icon.value);
    cairo_destroy(to);
    cairo_surface_flush(surface);
    return surface;
}

cairo_surface_t* RenderBitmap(const BitmapPicture& bitmap) {
    cairo_surface_t* surface = NewSurface(bitmap.width, bitmap.height);
    if (bitmap.finish == Finish::kKeyed) {
        Draw(surface, bitmap.draw, bitmap.value);
        KeyByWhite(surface);
        cairo_surface_mark_dirty(surface);
        return surface;
    }
    cairo_t* to = cairo_create(surface);
    SetColor(to, {1, 1, 1});
    cairo_paint(to);
    cairo_destroy(to);
    Draw(surface, bitmap.draw, bitmap.value);
    if (bitmap.finish == Finish::kGrey) MakeGrey(surface);
    cairo_surface_mark_dirty(surface);
    return surface;
}

MaskedSurfaces RenderMasked(const MaskedPicture& masked) {
    // On paper what a mask covers has a white rim, whose halves need not be kept.
    const std::uint32_t leastCoverage = masked.ground == kOnPaper ? 128 : 6;
    constexpr std::uint32_t kBlack = 0xFF000000u;
    constexpr std::uint32_t kWhite = 0xFFFFFFFFu;
    const MaskedSurfaces result = {NewSurface(masked.width, masked.height),
                                   NewSurface(masked.width, masked.height)};
    Draw(result.picture, masked.draw, masked.value);
    for (int y = 0; y < masked.height; ++y) {
        const Color ground =
            masked.ground == kOnPaper ? Color{1, 1, 1} : TileColor(masked.ground + y);
        std::uint32_t* picture = RowOf(result.picture, y);
        std::uint32_t* mask = RowOf(result.mask, y);
        for (int x = 0; x < masked.width; ++x) {
            const bool covers = picture[x] >> 24 >= leastCoverage;
            mask[x] = covers ? kBlack : kWhite;
            picture[x] = covers ? Over(picture[x], ground) : kBlack;
        }
    }
    cairo_surface_mark_dirty(result.picture);
    cairo_surface_mark_dirty(result.mask);
    return result;
}

MaskedSurfaces RenderState(const StatePicture& state) {
    const BitmapPicture& picture = state.picture;
    return RenderMasked(
        {picture.id, picture.width, picture.height, picture.draw, picture.value, kOnPaper});
}

}  // namespace draw
