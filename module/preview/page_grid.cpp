// Division of the printed page.
#include "preview/page_grid.h"

namespace kvui {

int PageNumberAt(PageGrid grid, DWORD order, int column, int row) {
    const bool fromRight = (order & kOrderFromRight) != 0;
    const int across = fromRight ? grid.columns - 1 - column : column;
    const bool downward = (order & kOrderDownward) != 0;
    return (downward ? across * grid.rows + row : row * grid.columns + across) + 1;
}

RECT CellOf(PageGrid grid, const RECT& pageBox, int column, int row) {
    const int width = pageBox.right - pageBox.left;
    const int height = pageBox.bottom - pageBox.top;
    return {pageBox.left + width * column / grid.columns,
            pageBox.top + height * row / grid.rows,
            pageBox.left + width * (column + 1) / grid.columns,
            pageBox.top + height * (row + 1) / grid.rows};
}

}  // namespace kvui
