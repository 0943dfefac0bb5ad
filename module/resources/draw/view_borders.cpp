// What the preview lays over the printed page without a mask: borders, binding bars, overlay forms.
// All are drawn with AND, so their ground is white.
#include <cmath>

#include "../picture_ids.h"
#include "pen.h"
#include "pictures.h"

namespace draw {
namespace {

constexpr Color kBorder = {0.27, 0.33, 0.41};
constexpr Color kForm = {0.28, 0.36, 0.46};
constexpr Color kFormTint = {0.84, 0.88, 0.93};

void Fill(cairo_t* to, const Box& box, const Color& color) {
    cairo_rectangle(to, box.x, box.y, box.width, box.height);
    SetColor(to, color);
    cairo_fill(to);
}

void Outline(cairo_t* to, const Box& box, double width, const Color& color) {
    Fill(to, {box.x, box.y, box.width, width}, color);
    Fill(to, {box.x, box.bottom() - width, box.width, width}, color);
    Fill(to, {box.x, box.y, width, box.height}, color);
    Fill(to, {box.right() - width, box.y, width, box.height}, color);
}

// Tens tell the columns, ones the rows.
constexpr int Cells(int columns, int rows) {
    return columns * 10 + rows;
}

// The page box is one pixel inside the picture; its cells end where its size divided says.
void DrawBorder(cairo_t* to, const Box& area, int cells) {
    const Box page = area.Inset(1);
    const int columns = cells / 10;
    const int rows = cells % 10;
    Outline(to, area, 1, kBorder);
    for (int i = 1; i < columns; ++i) {
        Fill(to, {page.x + std::floor(page.width * i / columns), page.y, 1, page.height}, kBorder);
    }
    for (int i = 1; i < rows; ++i) {
        Fill(to, {page.x, page.y + std::floor(page.height * i / rows), page.width, 1}, kBorder);
    }
}

// The sheet is three pixels longer than its bar, which starts at the sheet's corner. An upper bar
// stands one pixel lower than its sheet.
void DrawBar(cairo_t* to, const Box& area, int) {
    constexpr double kEnd = 3;
    constexpr double kThickness = 4;
    const bool upright = area.height > area.width;
    const Box bar = upright ? Box{2, kEnd, kThickness, area.height - kEnd}
                            : Box{kEnd, 1, area.width - kEnd, kThickness};
    RoundedBox(to, bar, kThickness / 2);
    SetColor(to, kAccent);
    cairo_fill(to);
}

// A form's letterhead, ruled field and frame; what is printed shows between its lines.
void DrawOverlay(cairo_t* to, const Box& area, int) {
    constexpr double kLinePitch = 9;
    const Box field = area.Inset(3);
    for (double y = field.y + kLinePitch; y < field.bottom() - 4; y += kLinePitch) {
        Fill(to, {field.x, y, field.width, 1}, kFormTint);
    }
    Outline(to, area, 1, kForm);
    Fill(to, {area.x, area.y, area.width, 3}, kForm);
    Fill(to, {area.x, area.bottom() - 2, area.width, 2}, kForm);
}

constexpr BitmapPicture kBorders[] = {
    {IDB_FRAME_LANDSCAPE, 95, 67, DrawBorder, Cells(1, 1)},
    {IDB_FRAME_PORTRAIT, 67, 95, DrawBorder, Cells(1, 1)},
    {IDB_GRID_PORTRAIT_2, 95, 67, DrawBorder, Cells(2, 1)},
    {IDB_GRID_LANDSCAPE_2, 67, 95, DrawBorder, Cells(1, 2)},
    {IDB_GRID_PORTRAIT_4, 67, 95, DrawBorder, Cells(2, 2)},
    {IDB_GRID_LANDSCAPE_4, 95, 67, DrawBorder, Cells(2, 2)},
    {IDB_GRID_PORTRAIT_6, 95, 67, DrawBorder, Cells(3, 2)},
    {IDB_GRID_LANDSCAPE_6, 67, 95, DrawBorder, Cells(2, 3)},
    {IDB_GRID_PORTRAIT_9, 67, 95, DrawBorder, Cells(3, 3)},
    {IDB_GRID_LANDSCAPE_9, 95, 67, DrawBorder, Cells(3, 3)},
    {IDB_GRID_PORTRAIT_16, 67, 95, DrawBorder, Cells(4, 4)},
    {IDB_GRID_LANDSCAPE_16, 95, 67, DrawBorder, Cells(4, 4)},
    {IDB_BAR_LANDSCAPE_TOP, 114, 7, DrawBar, 0},
    {IDB_BAR_LANDSCAPE_LEFT, 7, 86, DrawBar, 0},
    {IDB_BAR_PORTRAIT_TOP, 86, 7, DrawBar, 0},
    {IDB_BAR_PORTRAIT_LEFT, 7, 114, DrawBar, 0},
    {IDB_OVERLAY_LANDSCAPE, 99, 71, DrawOverlay, 0},
    {IDB_OVERLAY_PORTRAIT, 71, 99, DrawOverlay, 0},
};

}  // namespace

std::span<const BitmapPicture> ViewBorders() {
    return kBorders;
}

}  // namespace draw
