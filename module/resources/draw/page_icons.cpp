// Icons of orientation, collation, sorting, pages per sheet and page order.
#include <initializer_list>

#include "../picture_ids.h"
#include "pen.h"
#include "pictures.h"

namespace draw {
namespace {

enum Stacking { kByPage, kBySet };

void DrawPortrait(cairo_t* to, int) {
    const Box page = {6.5, 2.5, 19, 26};
    Sheet(to, page);
    Print(to, {10, 11, 12, 13}, 5);
}

void DrawLandscape(cairo_t* to, int) {
    const Box page = {2.5, 6.5, 26, 19};
    Sheet(to, page);
    Print(to, {6, 14, 19, 8}, 4);
}

constexpr double kPileWidth = 11;
constexpr double kPileHeight = 14;
constexpr double kPileShift = 7;

void Numbered(cairo_t* to, double x, double y, int number) {
    Sheet(to, {x, y, kPileWidth, kPileHeight}, Corner::kSquare);
    Number(to, number, x + kPileWidth / 2, y + kPileShift / 2 + 0.2, 4.2, kAccent);
}

// Two piles of two sheets: the same page twice, or a complete set each.
void DrawCollate(cairo_t* to, int stacking) {
    for (int pile = 0; pile < 2; ++pile) {
        const double x = pile == 0 ? 1.5 : 17.5;
        const int below = stacking == kBySet ? 2 : pile + 1;
        const int above = stacking == kBySet ? 1 : pile + 1;
        Numbered(to, x + 3, 5.5, below);
        Numbered(to, x, 5.5 + kPileShift, above);
    }
}

// Piles laid straight, or each set shifted sideways.
void DrawSort(cairo_t* to, int shifted) {
    for (int set = 0; set < 3; ++set) {
        const double x = shifted && set == 1 ? 9.5 : 4.5;
        const double y = 20.5 - 8 * set;
        for (int sheet = 1; sheet >= 0; --sheet) {
            Sheet(to, {x, y + sheet * 3.0, 18, 3}, Corner::kSquare);
        }
        Line(to, x + 2.5, y + 1.5, x + 8, y + 1.5, 1.2, kAccent);
    }
}

struct Grid {
    Box sheet;
    int columns;
    int rows;
};

Grid GridOf(int pages) {
    constexpr Box kPortrait = {6.5, 2.5, 19, 26};
    constexpr Box kLandscape = {2.5, 6.5, 26, 19};
    switch (pages) {
        case 2:
            return {kLandscape, 2, 1};
        case 6:
            return {kLandscape, 3, 2};
        case 4:
            return {kPortrait, 2, 2};
        case 9:
            return {kPortrait, 3, 3};
        default:
            return {kPortrait, 4, 4};
    }
}

Box CellOf(const Grid& grid, int column, int row) {
    constexpr double kGap = 1.2;
    const Box area = grid.sheet.Inset(2.2);
    const double width = (area.width - kGap * (grid.columns - 1)) / grid.columns;
    const double height = (area.height - kGap * (grid.rows - 1)) / grid.rows;
    return {area.x + column * (width + kGap), area.y + row * (height + kGap), width, height};
}

void DrawCells(cairo_t* to, const Grid& grid) {
    Sheet(to, grid.sheet, Corner::kSquare);
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            Cell(to, CellOf(grid, column, row));
        }
    }
}

void DrawNup(cairo_t* to, int pages) {
    const Grid grid = GridOf(pages);
    DrawCells(to, grid);
    if (pages > 6) return;
    int number = 1;
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            const Box cell = CellOf(grid, column, row);
            Number(to, number++, cell.x + cell.width / 2, cell.y + cell.height / 2,
                   pages == 6 ? 4 : 6, kAccent);
        }
    }
}

// An open booklet: two leaves that meet at the fold.
void DrawBooklet(cairo_t* to, int) {
    for (const double side : {-1.0, 1.0}) {
        const double outer = 16 + side * 13.5;
        cairo_move_to(to, 16, 8);
        cairo_curve_to(to, 16 + side * 4, 4.5, 16 + side * 9, 4.5, outer, 6);
        cairo_line_to(to, outer, 24.5);
        cairo_curve_to(to, 16 + side * 9, 23, 16 + side * 4, 23, 16, 26.5);
        cairo_close_path(to);
        SetColor(to, side < 0 ? kPaper : kPaperShade);
        cairo_fill_preserve(to);
        SetColor(to, kOutline);
        cairo_set_line_width(to, 1);
        cairo_stroke(to);
        Number(to, side < 0 ? 2 : 3, 16 + side * 7, 15, 7, kAccent);
    }
}

// A picture spread over sheets: the gaps between the sheets cut it.
void DrawPoster(cairo_t* to, int tiles) {
    constexpr Box kWhole = {3.5, 3.5, 25, 25};
    Sheet(to, kWhole, Corner::kSquare);
    Disc(to, 16, 16, 10, kAccent);
    const double side = kWhole.width / tiles;
    for (int cut = 1; cut < tiles; ++cut) {
        const double at = kWhole.x + cut * side;
        for (const double width : {1.9, 0.7}) {
            const Color& color = width > 1 ? kPaper : kOutline;
            Line(to, at, kWhole.y + 0.5, at, kWhole.bottom() - 0.5, width, color);
            Line(to, kWhole.x + 0.5, at, kWhole.right() - 0.5, at, width, color);
        }
    }
}

// Two cells, side by side or one above the other, and the way from the first to the second.
enum PairOrder { kLeftToRight, kRightToLeft, kTopToBottom };

void DrawPair(cairo_t* to, int order) {
    constexpr double kWays[3][4] = {
        {8, 16, 25, 16},
        {24, 16, 7, 16},
        {16, 7, 16, 25},
    };
    const Grid grid = order == kTopToBottom ? Grid{{6.5, 2.5, 19, 26}, 1, 2} : GridOf(2);
    DrawCells(to, grid);
    Arrow(to, kWays[order], 2, 2, kOutline);
}

constexpr IconPicture kIcons[] = {
    {IDI_LANDSCAPE, DrawLandscape, 0},
    {IDI_PORTRAIT, DrawPortrait, 0},
    {IDI_COLLATE_OFF, DrawCollate, kByPage},
    {IDI_COLLATE_ON, DrawCollate, kBySet},
    {IDI_SORT_OFF, DrawSort, 0},
    {IDI_SORT_ON, DrawSort, 1},
    {IDI_NUP_1, DrawPortrait, 0},
    {IDI_NUP_2, DrawNup, 2},
    {IDI_NUP_4, DrawNup, 4},
    {IDI_NUP_6, DrawNup, 6},
    {IDI_NUP_9, DrawNup, 9},
    {IDI_NUP_16, DrawNup, 16},
    {IDI_NUP_BOOKLET, DrawBooklet, 0},
    {IDI_POSTER_2X2, DrawPoster, 2},
    {IDI_POSTER_3X3, DrawPoster, 3},
    {IDI_POSTER_4X4, DrawPoster, 4},
    {IDI_POSTER_5X5, DrawPoster, 5},
    {IDI_ORDER_ACROSS_LEFT, DrawOrder, 0},
    {IDI_ORDER_ACROSS_RIGHT, DrawOrder, 1},
    {IDI_ORDER_DOWN_LEFT, DrawOrder, 2},
    {IDI_ORDER_DOWN_RIGHT, DrawOrder, 3},
    {IDI_ORDER_LEFT_TO_RIGHT, DrawPair, kLeftToRight},
    {IDI_ORDER_RIGHT_TO_LEFT, DrawPair, kRightToLeft},
    {IDI_ORDER_TOP_TO_BOTTOM, DrawPair, kTopToBottom},
};

}  // namespace

// The order's number is that of the setting: bit 0 starts at the right, bit 1 runs downward.
void DrawOrder(cairo_t* to, int order) {
    constexpr double kWays[4][8] = {
        {10.5, 9, 21, 9, 10.5, 22, 22.5, 22},
        {21.5, 9, 11, 9, 21.5, 22, 9.5, 22},
        {10.5, 9, 10.5, 22, 21.5, 9, 21.5, 23.5},
        {21.5, 9, 21.5, 22, 10.5, 9, 10.5, 23.5},
    };
    DrawCells(to, GridOf(4));
    Arrow(to, kWays[order], 4, 2, kOutline);
}

std::span<const IconPicture> PageIcons() {
    return kIcons;
}

}  // namespace draw
