// The printed page of the preview: the cells of each layout with the content of a small document
// page each. Drawn over the sheet with AND, so its ground is white.
#include <cmath>

#include "../picture_ids.h"
#include "page_content.h"
#include "pictures.h"

namespace draw {
namespace {

struct PrintedPage {
    int id;
    int width;
    int height;
    int columns;
    int rows;
    Orientation document;
};

// Layouts of 2 and 6 pages turn the sheet, so that its shape is not the document's.
constexpr Orientation kPortrait = Orientation::kPortrait;
constexpr Orientation kLandscape = Orientation::kLandscape;
constexpr PrintedPage kPages[] = {
    {IDB_PAGE_LANDSCAPE_1, 93, 65, 1, 1, kLandscape},
    {IDB_PAGE_LANDSCAPE_2, 65, 93, 1, 2, kLandscape},
    {IDB_PAGE_LANDSCAPE_4, 93, 65, 2, 2, kLandscape},
    {IDB_PAGE_LANDSCAPE_6, 65, 93, 2, 3, kLandscape},
    {IDB_PAGE_LANDSCAPE_9, 93, 65, 3, 3, kLandscape},
    {IDB_PAGE_LANDSCAPE_16, 93, 65, 4, 4, kLandscape},
    {IDB_PAGE_PORTRAIT_1, 65, 93, 1, 1, kPortrait},
    {IDB_PAGE_PORTRAIT_2, 93, 65, 2, 1, kPortrait},
    {IDB_PAGE_PORTRAIT_4, 65, 93, 2, 2, kPortrait},
    {IDB_PAGE_PORTRAIT_6, 93, 65, 3, 2, kPortrait},
    {IDB_PAGE_PORTRAIT_9, 65, 93, 3, 3, kPortrait},
    {IDB_PAGE_PORTRAIT_16, 65, 93, 4, 4, kPortrait},
};

// A cell's content: a page of the document's shape as large as fits, in the middle across. Where
// much of the cell's height is left over the page stands at the top, above its number.
Box PageIn(const Box& cell, Orientation document) {
    constexpr double kLongByShort = 1.414;
    constexpr double kMuch = 8;
    const double gap = cell.width < 24 || cell.height < 24 ? 1.5 : 2.5;
    const Box most = cell.Inset(gap);
    const double ratio = document == kPortrait ? 1 / kLongByShort : kLongByShort;
    const double width = std::round(std::fmin(most.width, most.height * ratio));
    const double height = std::round(std::fmin(most.height, most.width / ratio));
    const double spare = cell.height - height;
    const double top = spare > kMuch ? gap : spare / 2;
    return {std::round(cell.x + (cell.width - width) / 2), std::round(cell.y + top), width, height};
}

// Only corner cells get a number. Cells of few pages all look alike; with more, those without a
// number use all of their height.
double FootOf(const PrintedPage& page, int column, int row, const Box& cell, const Box& content) {
    constexpr double kNumberHeight = 14;  // an upper row's stand a little higher
    constexpr int kFewPages = 6;
    const bool corner =
        (column == 0 || column == page.columns - 1) && (row == 0 || row == page.rows - 1);
    if (!corner && page.columns * page.rows > kFewPages) return 0;
    return std::fmax(0, content.bottom() - (cell.bottom() - kNumberHeight));
}

void DrawPrintedPage(cairo_t* to, const Box& area, int index) {
    const PrintedPage& page = kPages[index];
    const bool whole = page.columns * page.rows == 1;
    // Cells differ by a pixel where the division leaves a rest; their contents must not.
    const double width = std::floor(area.width / page.columns);
    const double height = std::floor(area.height / page.rows);
    for (int row = 0; row < page.rows; ++row) {
        for (int column = 0; column < page.columns; ++column) {
            const Box cell = {std::floor(area.width * column / page.columns),
                              std::floor(area.height * row / page.rows), width, height};
            const Box content = whole ? cell : PageIn(cell, page.document);
            DrawPageContent(to, content, page.document, row * page.columns + column,
                            FootOf(page, column, row, cell, content));
        }
    }
}

}  // namespace

std::vector<BitmapPicture> ViewPages() {
    std::vector<BitmapPicture> pictures;
    int index = 0;
    for (const PrintedPage& page : kPages) {
        const BitmapPicture color = {page.id + IDB_PAGE_COLOR_STEP, page.width, page.height,
                                     DrawPrintedPage, index++};
        BitmapPicture grey = color;
        grey.id = page.id;
        grey.finish = Finish::kGrey;
        pictures.push_back(grey);
        pictures.push_back(color);
    }
    return pictures;
}

}  // namespace draw
