// Icons of two-sided printing, stapling, punching and folding.
#include "../picture_ids.h"
#include "pen.h"
#include "pictures.h"

namespace draw {
namespace {

constexpr Box kPage = {6.5, 2.5, 19, 26};

enum Binding { kUnbound, kShortEdge, kLongEdge, kBookletLeft, kBookletRight };

void Spine(cairo_t* to, const Box& box) {
    cairo_rectangle(to, box.x, box.y, box.width, box.height);
    SetColor(to, kAccent);
    cairo_fill(to);
}

void DrawDuplex(cairo_t* to, int binding) {
    constexpr double kTurnUp[] = {18.5, 25, 18.5, 8.5};
    constexpr double kTurnOver[] = {24.5, 21, 12, 21};
    if (binding == kUnbound) {
        Sheet(to, kPage);
        Print(to, {10, 11, 12, 13}, 5);
        return;
    }
    const double offset = binding == kShortEdge ? 0 : 2;
    Sheet(to, {7.5 + offset, 4.5, 19, 24}, Corner::kSquare);
    Sheet(to, {4.5 + offset, 2.5, 19, 24}, Corner::kSquare);
    if (binding == kShortEdge) {
        Spine(to, {4.5, 2.5, 19, 3});
        Print(to, {7.5, 10, 7, 12}, 5);
        Arrow(to, kTurnUp, 2, 2.2, kAccent);
    } else {
        Spine(to, {6.5, 2.5, 3, 24});
        Print(to, {12.5, 7, 9, 8}, 4);
        Arrow(to, kTurnOver, 2, 2.2, kAccent);
    }
}

// A closed booklet, bound at its left or right.
void DrawBinding(cairo_t* to, int binding) {
    const bool left = binding == kBookletLeft;
    for (int leaf = 2; leaf >= 0; --leaf) {
        Sheet(to, {(left ? 6.5 + 2 * leaf : 8.5 - 2 * leaf), 3.5 + leaf, 17, 24}, Corner::kSquare);
    }
    const double x = left ? 6.5 : 8.5;
    Spine(to, {left ? x : x + 14, 3.5, 3, 24});
    Print(to, {left ? x + 6 : x + 3, 9, 8, 6}, 3);
}

void Staple(cairo_t* to, double x1, double y1, double x2, double y2) {
    Line(to, x1, y1, x2, y2, 2.4, kAccent);
}

void DrawStaple(cairo_t* to, int) {
    Sheet(to, kPage);
    Print(to, {11, 12, 11, 12}, 5);
}

void DrawStapleCorner(cairo_t* to, int) {
    DrawStaple(to, 0);
    Staple(to, 8.5, 8.5, 12.5, 4.5);
}

void DrawStapleLongEdge(cairo_t* to, int) {
    DrawStaple(to, 0);
    Staple(to, 8.8, 7, 8.8, 11);
    Staple(to, 8.8, 20.5, 8.8, 24.5);
}

void DrawStapleShortEdge(cairo_t* to, int) {
    DrawStaple(to, 0);
    Staple(to, 8.8, 5, 12.3, 5);
    Staple(to, 16, 5, 19.3, 5);
}

// Tens tell the edge, ones the number of holes.
constexpr int Punched(Edge edge, int holes) {
    return static_cast<int>(edge) * 10 + holes;
}

void DrawPunch(cairo_t* to, int value) {
    const int holes = value % 10;
    const Edge edge = static_cast<Edge>(value / 10);
    const bool top = edge == Edge::kTop;
    Sheet(to, kPage, edge == Edge::kLeft ? Corner::kFolded : Corner::kSquare);
    Print(to, {edge == Edge::kLeft ? 13 : 9.5, top ? 13.0 : 11, top ? 12.0 : 9, 12}, 5);
    const double length = top ? kPage.width : kPage.height;
    for (int i = 0; i < holes; ++i) {
        const double along = length * (2 * i + 1) / (2.0 * holes);
        const double x = top ? kPage.x + along : edge == Edge::kLeft ? 9.5 : 22.5;
        const double y = top ? 6 : kPage.y + along;
        Disc(to, x, y, 1.7, kAccent);
        Disc(to, x, y, 0.7, kPaper);
    }
}

enum Fold { kFlat, kZ, kZA4, kZB5, kHalf, kCrease };

// A panel of a folded sheet seen from the front; its edges lean by `lean`.
void Panel(cairo_t* to, double x, double width, double lean, const Color& color) {
    cairo_move_to(to, x, 7 + (lean > 0 ? 0 : -lean));
    cairo_line_to(to, x + width, 7 + (lean > 0 ? lean : 0));
    cairo_line_to(to, x + width, 23 + (lean > 0 ? lean : 0));
    cairo_line_to(to, x, 23 + (lean > 0 ? 0 : -lean));
    cairo_close_path(to);
    SetColor(to, color);
    cairo_fill_preserve(to);
    SetColor(to, kOutline);
    cairo_set_line_join(to, CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_width(to, 1);
    cairo_stroke(to);
}

void DrawFold(cairo_t* to, int fold) {
    if (fold == kFlat) {
        Sheet(to, {2.5, 6.5, 26, 19});
        Print(to, {6, 14, 19, 8}, 4);
    } else if (fold == kHalf) {
        Panel(to, 3, 13, 4, kPaperShade);
        Panel(to, 16, 13, -4, kPaper);
        Line(to, 16, 11, 16, 27, 1.8, kAccent);
    } else if (fold == kCrease) {
        Sheet(to, {2.5, 6.5, 26, 19}, Corner::kSquare);
        Print(to, {5, 12, 8, 9}, 4);
        Print(to, {18, 12, 8, 9}, 4);
        for (int dash = 0; dash < 4; ++dash) {
            Line(to, 15.5, 8.5 + dash * 4.6, 15.5, 10.5 + dash * 4.6, 1.8, kAccent);
        }
    } else {
        Panel(to, 2.5, 13, 3, kPaper);
        Panel(to, 15.5, 6.5, -3, kPaperShade);
        Panel(to, 22, 7, 3, kPaper);
        Line(to, 15.5, 10, 15.5, 26, 1.8, kAccent);
        Line(to, 22, 7, 22, 23, 1.8, kAccent);
        if (fold != kZ) Number(to, fold == kZA4 ? 4 : 5, 9, 16.5, 8, kAccent);
    }
}

constexpr IconPicture kIcons[] = {
    {IDI_DUPLEX_OFF, DrawDuplex, kUnbound},
    {IDI_DUPLEX_SHORT_EDGE, DrawDuplex, kShortEdge},
    {IDI_DUPLEX_LONG_EDGE, DrawDuplex, kLongEdge},
    {IDI_BOOKLET_LEFT, DrawBinding, kBookletLeft},
    {IDI_BOOKLET_RIGHT, DrawBinding, kBookletRight},
    {IDI_STAPLE_OFF, DrawStaple, 0},
    {IDI_STAPLE_CORNER, DrawStapleCorner, 0},
    {IDI_STAPLE_LONG_EDGE, DrawStapleLongEdge, 0},
    {IDI_STAPLE_SHORT_EDGE, DrawStapleShortEdge, 0},
    {IDI_PUNCH_OFF, DrawPunch, Punched(Edge::kLeft, 0)},
    {IDI_PUNCH_LONG_2, DrawPunch, Punched(Edge::kLeft, 2)},
    {IDI_PUNCH_LONG_3, DrawPunch, Punched(Edge::kLeft, 3)},
    {IDI_PUNCH_LONG_4, DrawPunch, Punched(Edge::kLeft, 4)},
    {IDI_PUNCH_SHORT_2, DrawPunch, Punched(Edge::kTop, 2)},
    {IDI_PUNCH_SHORT_3, DrawPunch, Punched(Edge::kTop, 3)},
    {IDI_PUNCH_SHORT_4, DrawPunch, Punched(Edge::kTop, 4)},
    {IDI_PUNCH_RIGHT_2, DrawPunch, Punched(Edge::kRight, 2)},
    {IDI_PUNCH_RIGHT_3, DrawPunch, Punched(Edge::kRight, 3)},
    {IDI_PUNCH_RIGHT_4, DrawPunch, Punched(Edge::kRight, 4)},
    {IDI_FOLD_OFF, DrawFold, kFlat},
    {IDI_FOLD_Z, DrawFold, kZ},
    {IDI_FOLD_Z_A4, DrawFold, kZA4},
    {IDI_FOLD_Z_B5, DrawFold, kZB5},
    {IDI_FOLD_HALF, DrawFold, kHalf},
    {IDI_FOLD_CREASE, DrawFold, kCrease},
};

}  // namespace

std::span<const IconPicture> FinishingIcons() {
    return kIcons;
}

}  // namespace draw
