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

// An odd number of cells in a row or column turns the sheet of 2 and 6 pages.
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

// The largest page of the document's shape in the middle of a cell, on whole pixels.
Box PageIn(const Box& cell, Orientation document) {
    constexpr double kLongByShort = 1.414;
    const double gap = cell.width < 24 || cell.height < 24 ? 1.5 : 2.5;
    const Box most = cell.Inset(gap);
    const double ratio = document == kPortrait ? 1 / kLongByShort : kLongByShort;
    const double width = std::floor(std::fmin(most.width, most.height * ratio) + 0.5);
    const double height = std::floor(std::fmin(most.height, most.width / ratio) + 0.5);
    return {std::floor(cell.x + (cell.width - width) / 2 + 0.5),
            std::floor(cell.y + (cell.height - height) / 2 + 0.5), width, height};
}

void DrawPrintedPage(cairo_t* to, const Box& area, int index) {
    const PrintedPage& page = kPages[index];
    if (page.columns * page.rows == 1) {
        DrawPageContent(to, area, page.document, 0);
        return;
    }
    for (int row = 0; row < page.rows; ++row) {
        for (int column = 0; column < page.columns; ++column) {
            const double left = std::floor(area.width * column / page.columns);
            const double top = std::floor(area.height * row / page.rows);
            const Box cell = {left, top,
                              std::floor(area.width * (column + 1) / page.columns) - left,
                              std::floor(area.height * (row + 1) / page.rows) - top};
            DrawPageContent(to, PageIn(cell, page.document), page.document,
                            row * page.columns + column);
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
