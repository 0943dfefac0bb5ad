// How the printed page is divided among the document's pages, and which number stands in which
// corner. Used by the plan of the Paper View.
#pragma once

#include <windows.h>

namespace kvui {

struct PageGrid {
    int columns;
    int rows;
};

// Bits of mdmNupStyle that order the pages.
constexpr DWORD kOrderFromRight = 0x1;
constexpr DWORD kOrderDownward = 0x2;

// The number (from 1) of the page in a column and a row, both from 0 at the upper left.
int PageNumberAt(PageGrid grid, DWORD order, int column, int row);

// The cell of a page box. Cells share their edges, so that together they cover the box exactly.
RECT CellOf(PageGrid grid, const RECT& pageBox, int column, int row);

}  // namespace kvui
