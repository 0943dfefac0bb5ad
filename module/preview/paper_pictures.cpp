// The tables of the Paper View's pictures.
#include "preview/paper_pictures.h"

#include "settings/booklet.h"

namespace kvui {
namespace {

constexpr Shape P = Shape::kPortrait;
constexpr Shape L = Shape::kLandscape;
constexpr LayoutKind kWide = LayoutKind::kWide;
constexpr LayoutKind kNarrow = LayoutKind::kNarrow;

// mdmNup, layout, pages (portrait, landscape document), grids (the same), columns and rows of a
// portrait document; a landscape document has them exchanged.
// clang-format off
constexpr LayoutRow kLayouts[] = {
    {0,  kWide,   {IDB_PAGE_PORTRAIT_1,  IDB_PAGE_LANDSCAPE_1},  {IDB_FRAME_PORTRAIT,   IDB_FRAME_LANDSCAPE},  {1, 1}},
    {2,  kNarrow, {IDB_PAGE_PORTRAIT_2,  IDB_PAGE_LANDSCAPE_2},  {IDB_GRID_PORTRAIT_2,  IDB_GRID_LANDSCAPE_2}, {2, 1}},
    {4,  kWide,   {IDB_PAGE_PORTRAIT_4,  IDB_PAGE_LANDSCAPE_4},  {IDB_GRID_PORTRAIT_4,  IDB_GRID_LANDSCAPE_4}, {2, 2}},
    {6,  kNarrow, {IDB_PAGE_PORTRAIT_6,  IDB_PAGE_LANDSCAPE_6},  {IDB_GRID_PORTRAIT_6,  IDB_GRID_LANDSCAPE_6}, {3, 2}},
    {9,  kWide,   {IDB_PAGE_PORTRAIT_9,  IDB_PAGE_LANDSCAPE_9},  {IDB_GRID_PORTRAIT_9,  IDB_GRID_LANDSCAPE_9}, {3, 3}},
    {16, kWide,   {IDB_PAGE_PORTRAIT_16, IDB_PAGE_LANDSCAPE_16}, {IDB_GRID_PORTRAIT_16, IDB_GRID_LANDSCAPE_16}, {4, 4}},
    {20, kWide,   {IDB_PAGE_PORTRAIT_1,  IDB_PAGE_LANDSCAPE_1},  {0,                    0},                    {1, 1}},
};

// Booklet, binding, shape, picture and mask, shift right and down, margin.
constexpr SheetRow kSheets[] = {
    {false, 0,                   L, Masked(IDB_SHEET_LANDSCAPE),         4,  -23, 0,  0},
    {false, 0,                   P, Masked(IDB_SHEET_PORTRAIT),          4,  -23, 0,  0},
    {true,  kDuplexBookletLeft,  P, Masked(IDB_BOOKLET_PORTRAIT_LEFT),   6,  -12, 8,  22},
    {true,  kDuplexBookletRight, P, Masked(IDB_BOOKLET_PORTRAIT_RIGHT),  2,  -12, 8,  22},
    {true,  kDuplexBookletLeft,  L, Masked(IDB_BOOKLET_LANDSCAPE_LEFT),  -7, -21, 22, 8},
    {true,  kDuplexBookletRight, L, Masked(IDB_BOOKLET_LANDSCAPE_RIGHT), 15, -25, 22, 8},
};

// Document, layout, mdmDuplexMode, bar, bar down, arrow.
constexpr BindingRow kBindings[] = {
    {L, kWide,   kDuplexLongEdge,  IDB_BAR_LANDSCAPE_TOP,  1, Masked(IDB_TURN_LANDSCAPE_TOP)},
    {L, kWide,   kDuplexShortEdge, IDB_BAR_LANDSCAPE_LEFT, 0, Masked(IDB_TURN_LANDSCAPE_LEFT)},
    {L, kNarrow, kDuplexLongEdge,  IDB_BAR_PORTRAIT_LEFT,  0, Masked(IDB_TURN_PORTRAIT_TOP)},
    {L, kNarrow, kDuplexShortEdge, IDB_BAR_PORTRAIT_TOP,   1, Masked(IDB_TURN_PORTRAIT_LEFT)},
    {P, kWide,   kDuplexLongEdge,  IDB_BAR_PORTRAIT_LEFT,  0, Masked(IDB_TURN_PORTRAIT_LEFT)},
    {P, kWide,   kDuplexShortEdge, IDB_BAR_PORTRAIT_TOP,   1, Masked(IDB_TURN_PORTRAIT_TOP)},
    {P, kNarrow, kDuplexLongEdge,  IDB_BAR_LANDSCAPE_TOP,  1, Masked(IDB_TURN_LANDSCAPE_TOP)},
    {P, kNarrow, kDuplexShortEdge, IDB_BAR_LANDSCAPE_LEFT, 0, Masked(IDB_TURN_LANDSCAPE_LEFT)},
};
// clang-format on

}  // namespace

const LayoutRow& LayoutOf(DWORD nup) {
    for (const LayoutRow& row : kLayouts) {
        if (row.nup == nup) return row;
    }
    return kLayouts[0];
}

PageGrid GridOf(const LayoutRow& layout, Shape document) {
    const PageGrid& grid = layout.portraitGrid;
    return document == Shape::kPortrait ? grid : PageGrid{grid.rows, grid.columns};
}

Shape SheetShape(LayoutKind kind, Shape document) {
    const bool turned = kind == LayoutKind::kNarrow;
    const bool landscape = document == Shape::kLandscape;
    return landscape != turned ? Shape::kLandscape : Shape::kPortrait;
}

const SheetRow* SheetOf(DWORD duplexMode, LayoutKind kind, Shape document) {
    if (duplexMode < kDuplexOff || duplexMode > kDuplexBookletRight) return nullptr;
    const bool booklet = IsBookletBinding(duplexMode);
    const Shape shape = booklet ? document : SheetShape(kind, document);
    for (const SheetRow& row : kSheets) {
        if (row.booklet == booklet && row.shape == shape &&
            (!booklet || row.binding == duplexMode)) {
            return &row;
        }
    }
    return nullptr;
}

int PosterSheets(DWORD nup) {
    constexpr DWORD kFirstPoster = 102, kLastPoster = 105;
    constexpr DWORD kPosters = 100;  // what the number of sheets is added to
    return nup >= kFirstPoster && nup <= kLastPoster ? static_cast<int>(nup - kPosters) : 0;
}

PictureId SheetPicture(const SheetRow& sheet, DWORD nup) {
    constexpr int kFewestSheets = 2;
    constexpr int kIdsPerPoster = 4;  // two shapes, each with its mask
    const int sheets = PosterSheets(nup);
    if (sheet.booklet || sheets == 0) return sheet.id;
    const int id = IDB_POSTER_SHEETS + kIdsPerPoster * (sheets - kFewestSheets) +
                   (sheet.shape == Shape::kPortrait ? 2 : 0);
    return Masked(static_cast<WORD>(id));
}

const BindingRow* BindingOf(DWORD duplexMode, LayoutKind kind, Shape document) {
    for (const BindingRow& row : kBindings) {
        if (row.duplexMode == duplexMode && row.kind == kind && row.document == document) {
            return &row;
        }
    }
    return nullptr;
}

WORD FramePicture(Shape page) {
    return page == Shape::kLandscape ? IDB_FRAME_LANDSCAPE : IDB_FRAME_PORTRAIT;
}

WORD OverlayPicture(Shape page) {
    return page == Shape::kLandscape ? IDB_OVERLAY_LANDSCAPE : IDB_OVERLAY_PORTRAIT;
}

// The pictures of 1 to 16 follow each other in pairs; those that never stand in a corner are missing.
PictureId NumberPicture(int number) {
    return Masked(static_cast<WORD>(IDB_NUMBER_1 + 2 * (number - 1)));
}

}  // namespace kvui
