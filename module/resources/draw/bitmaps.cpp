// Bitmaps: the pictures of the page orders, the marker beside the paper size, the preview's ground.
#include "../picture_ids.h"
#include "pen.h"
#include "pictures.h"

namespace draw {
namespace {

// Laid over the dialog with AND, so its ground is white.
void DrawOrderPicture(cairo_t* to, int order) {
    DrawOrder(to, order);
}

enum MarkerPart { kMarkerImage, kMarkerMask };

// The mask clears the marker's place (black) and keeps the rest (white); the image, black around
// the marker, is then added. No smoothing, because the edge pixels must belong to one side.
void DrawMarker(cairo_t* to, int part) {
    const bool mask = part == kMarkerMask;
    cairo_set_antialias(to, CAIRO_ANTIALIAS_NONE);
    SetColor(to, mask ? Color{1, 1, 1} : Color{0, 0, 0});
    cairo_paint(to);
    const Color ground = mask ? Color{0, 0, 0} : kOutline;
    const Color face = mask ? Color{0, 0, 0} : kAccent;
    const auto rectangle = [to](double x, double y, double width, double height,
                                const Color& color) {
        cairo_rectangle(to, x, y, width, height);
        SetColor(to, color);
        cairo_fill(to);
    };
    // A sheet with its two dimensions marked beside it.
    rectangle(5, 0, 11, 11, ground);
    rectangle(6, 1, 9, 9, mask ? ground : kPaper);
    rectangle(1, 0, 3, 1, face);
    rectangle(2, 0, 1, 11, face);
    rectangle(1, 10, 3, 1, face);
    rectangle(5, 13, 11, 1, face);
    rectangle(5, 12, 1, 3, face);
    rectangle(15, 12, 1, 3, face);
}

// A dark band for the labels at the top, then a ground that lets white sheets stand out.
void DrawTile(cairo_t* to, int) {
    constexpr double kBand = 27;
    constexpr double kWidth = 160;
    constexpr double kHeight = 194;
    cairo_pattern_t* ground = cairo_pattern_create_linear(0, 0, 0, kHeight);
    cairo_pattern_add_color_stop_rgb(ground, 0, 0.34, 0.44, 0.55);
    cairo_pattern_add_color_stop_rgb(ground, 1, 0.58, 0.67, 0.76);
    cairo_rectangle(to, 0, 0, kWidth, kHeight);
    cairo_set_source(to, ground);
    cairo_fill(to);
    cairo_pattern_destroy(ground);
    cairo_rectangle(to, 0, 0, kWidth, kBand);
    cairo_set_source_rgb(to, 0.22, 0.31, 0.42);
    cairo_fill(to);
}

constexpr BitmapPicture kBitmaps[] = {
    {IDB_STYLE_ACROSS_LEFT, 32, 32, DrawOrderPicture, 0},
    {IDB_STYLE_ACROSS_RIGHT, 32, 32, DrawOrderPicture, 1},
    {IDB_STYLE_DOWN_LEFT, 32, 32, DrawOrderPicture, 2},
    {IDB_STYLE_DOWN_RIGHT, 32, 32, DrawOrderPicture, 3},
    {IDB_VIEW_TILE, 160, 194, DrawTile, 0},
    {IDB_PAPER_MARKER, 16, 16, DrawMarker, kMarkerImage},
    {IDB_PAPER_MARKER_MASK, 16, 16, DrawMarker, kMarkerMask},
};

}  // namespace

std::span<const BitmapPicture> Bitmaps() {
    return kBitmaps;
}

}  // namespace draw
