// The ground of the preview and the sheets of paper that lie on it: single sheets and booklets.
#include "../picture_ids.h"
#include "pen.h"
#include "pictures.h"

namespace draw {
namespace {

constexpr double kViewHeight = 194;
// Labels are white, so that the whole ground is dark enough for them.
constexpr Color kTileTop = {0.165, 0.235, 0.325};
constexpr Color kTileBottom = {0.345, 0.440, 0.550};

constexpr Color kEdge = {0.72, 0.77, 0.82};
constexpr Color kLeafShade = {0.86, 0.89, 0.92};

// Every sheet leaves this much at its right and below for the shadow.
constexpr int kShadow = 4;

Color Mix(const Color& a, const Color& b, double share) {
    return {a.red + (b.red - a.red) * share, a.green + (b.green - a.green) * share,
            a.blue + (b.blue - a.blue) * share};
}

void DrawTile(cairo_t* to, const Box& area, int) {
    for (int y = 0; y < area.height; ++y) {
        cairo_rectangle(to, 0, y, area.width, 1);
        SetColor(to, TileColor(y));
        cairo_fill(to);
    }
}

// A leaf of paper: its corners, the edge that binds first, then the free one.
struct Leaf {
    Point corners[4];
};

void LeafPath(cairo_t* to, const Leaf& leaf) {
    cairo_new_path(to);
    for (const Point& corner : leaf.corners) cairo_line_to(to, corner.x, corner.y);
    cairo_close_path(to);
}

// Rounded strokes of falling width add up to a shadow that fades out within kShadow pixels.
void DropShadow(cairo_t* to, const Leaf& leaf) {
    constexpr int kSteps = 6;
    cairo_set_line_join(to, CAIRO_LINE_JOIN_ROUND);
    cairo_save(to);
    cairo_translate(to, 1, 1.2);
    for (int step = 0; step < kSteps; ++step) {
        LeafPath(to, leaf);
        cairo_set_source_rgba(to, 0.03, 0.06, 0.10, 0.075);
        cairo_set_line_width(to, 2 * 2.8 * step / (kSteps - 1));
        cairo_stroke_preserve(to);
        cairo_fill(to);
    }
    cairo_restore(to);
}

void DrawLeaf(cairo_t* to, const Leaf& leaf, const Color& face) {
    LeafPath(to, leaf);
    SetColor(to, face);
    cairo_fill(to);
    cairo_save(to);
    LeafPath(to, leaf);
    cairo_clip_preserve(to);
    SetColor(to, kEdge);
    cairo_set_line_width(to, 2);  // the outer half is clipped away
    cairo_stroke(to);
    cairo_restore(to);
}

// The corners of a box, from the binding edge to the free one.
Leaf LeafOf(const Box& box, Edge hinge) {
    const Point topLeft = {box.x, box.y};
    const Point topRight = {box.right(), box.y};
    const Point bottomLeft = {box.x, box.bottom()};
    const Point bottomRight = {box.right(), box.bottom()};
    switch (hinge) {
        case Edge::kLeft:
            return {{topLeft, bottomLeft, bottomRight, topRight}};
        case Edge::kRight:
            return {{topRight, bottomRight, bottomLeft, topLeft}};
        case Edge::kTop:
            return {{topRight, topLeft, bottomLeft, bottomRight}};
        default:
            return {{bottomRight, bottomLeft, topLeft, topRight}};
    }
}

void DrawSheet(cairo_t* to, const Box& area, int) {
    const Leaf leaf = LeafOf({0, 0, area.width - kShadow, area.height - kShadow}, Edge::kLeft);
    DropShadow(to, leaf);
    DrawLeaf(to, leaf, kPaper);
}

// A poster's page is spread over as many sheets each way: the lines along which they meet.
void DrawPosterSheet(cairo_t* to, const Box& area, int sheets) {
    DrawSheet(to, area, 0);
    const double width = area.width - kShadow, height = area.height - kShadow;
    const double dashes[] = {4, 2};
    cairo_set_dash(to, dashes, 2, 0);
    cairo_set_line_width(to, 1);
    SetColor(to, kAccent);
    for (int i = 1; i < sheets; ++i) {
        // Through the middles of pixels, so that the lines are sharp.
        const double x = int(width * i / sheets) + 0.5, y = int(height * i / sheets) + 0.5;
        cairo_move_to(to, x, 1);
        cairo_line_to(to, x, height - 1);
        cairo_move_to(to, 1, y);
        cairo_line_to(to, width - 1, y);
    }
    cairo_stroke(to);
    cairo_set_dash(to, nullptr, 0, 0);
}

// A booklet lies slightly open: behind its front page, which stands still so that the printed page
// fits, the leaves fan out around the fold. Where the front page is, the edge that is folded, and
// how far the last leaf's free edge moves.
struct Booklet {
    Box front;
    Edge fold;
    Point drift;
};

// A landscape document's booklet is a portrait one turned by a quarter: its left binding becomes
// the upper edge, its right binding the lower one.
enum BookletKind { kPortraitLeft, kPortraitRight, kLandscapeLeft, kLandscapeRight };
constexpr Booklet kBooklets[] = {
    {{0, 3, 89, 117}, Edge::kLeft, {3, 14}},
    {{2, 3, 89, 117}, Edge::kRight, {-2, 14}},
    {{14, 1, 117, 89}, Edge::kTop, {-14, 2}},
    {{3, 3, 117, 89}, Edge::kBottom, {14, -3}},
};

// The fold of the front page: a coloured spine, and the paper bending away towards it.
void DrawFold(cairo_t* to, const Booklet& booklet) {
    constexpr double kSpine = 4;
    constexpr double kBend = 11;
    const Leaf leaf = LeafOf(booklet.front, booklet.fold);
    const Point from = leaf.corners[0];
    const bool upright = booklet.fold == Edge::kLeft || booklet.fold == Edge::kRight;
    const double side = booklet.fold == Edge::kLeft || booklet.fold == Edge::kTop ? 1 : -1;
    const auto strip = [&](double start, double end) {
        if (upright) {
            cairo_rectangle(to, from.x + side * start, booklet.front.y, side * (end - start),
                            booklet.front.height);
        } else {
            cairo_rectangle(to, booklet.front.x, from.y + side * start, booklet.front.width,
                            side * (end - start));
        }
    };
    cairo_pattern_t* bend =
        cairo_pattern_create_linear(from.x, from.y, from.x + (upright ? side * kBend : 0),
                                    from.y + (upright ? 0 : side * kBend));
    cairo_pattern_add_color_stop_rgba(bend, 0, 0.20, 0.27, 0.35, 0.55);
    cairo_pattern_add_color_stop_rgba(bend, 0.45, 0.20, 0.27, 0.35, 0.28);
    cairo_pattern_add_color_stop_rgba(bend, 1, 0.20, 0.27, 0.35, 0);
    strip(0, kBend);
    cairo_set_source(to, bend);
    cairo_fill(to);
    cairo_pattern_destroy(bend);
    strip(0, kSpine);
    SetColor(to, kAccent);
    cairo_fill(to);
    strip(0, 1);
    cairo_set_source_rgba(to, 1, 1, 1, 0.35);
    cairo_fill(to);
}

void DrawBooklet(cairo_t* to, const Box&, int kind) {
    constexpr int kLeaves = 3;
    const Booklet& booklet = kBooklets[kind];
    for (int i = kLeaves; i >= 0; --i) {
        Leaf leaf = LeafOf(booklet.front, booklet.fold);
        for (Point* corner : {&leaf.corners[2], &leaf.corners[3]}) {
            corner->x += booklet.drift.x * i / kLeaves;
            corner->y += booklet.drift.y * i / kLeaves;
        }
        if (i == kLeaves) DropShadow(to, leaf);
        if (i == 0) DropShadow(to, leaf);
        DrawLeaf(to, leaf, i == 0 ? kPaper : Mix(kPaper, kLeafShade, double(i) / kLeaves));
    }
    DrawFold(to, booklet);
}

constexpr BitmapPicture kTiles[] = {
    {IDB_VIEW_TILE, 160, 194, DrawTile, 0},
};

// The last column is where the picture's upper edge lies in the view.
constexpr MaskedPicture kSheets[] = {
    {IDB_SHEET_LANDSCAPE, 121, 93, DrawSheet, 0, 66},
    {IDB_SHEET_PORTRAIT, 93, 121, DrawSheet, 0, 52},
    {IDB_POSTER_SHEETS + 0, 121, 93, DrawPosterSheet, 2, 66},
    {IDB_POSTER_SHEETS + 2, 93, 121, DrawPosterSheet, 2, 52},
    {IDB_POSTER_SHEETS + 4, 121, 93, DrawPosterSheet, 3, 66},
    {IDB_POSTER_SHEETS + 6, 93, 121, DrawPosterSheet, 3, 52},
    {IDB_POSTER_SHEETS + 8, 121, 93, DrawPosterSheet, 4, 66},
    {IDB_POSTER_SHEETS + 10, 93, 121, DrawPosterSheet, 4, 52},
    {IDB_POSTER_SHEETS + 12, 121, 93, DrawPosterSheet, 5, 66},
    {IDB_POSTER_SHEETS + 14, 93, 121, DrawPosterSheet, 5, 52},
    {IDB_BOOKLET_PORTRAIT_LEFT, 96, 138, DrawBooklet, kPortraitLeft, 49},
    {IDB_BOOKLET_PORTRAIT_RIGHT, 96, 138, DrawBooklet, kPortraitRight, 49},
    {IDB_BOOKLET_LANDSCAPE_LEFT, 138, 96, DrawBooklet, kLandscapeLeft, 65},
    {IDB_BOOKLET_LANDSCAPE_RIGHT, 138, 96, DrawBooklet, kLandscapeRight, 63},
};

}  // namespace

Color TileColor(double y) {
    return Mix(kTileTop, kTileBottom, y / (kViewHeight - 1));
}

std::span<const BitmapPicture> ViewTiles() {
    return kTiles;
}

std::span<const MaskedPicture> ViewSheets() {
    return kSheets;
}

}  // namespace draw
