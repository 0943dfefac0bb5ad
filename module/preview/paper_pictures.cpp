// The tables of the Paper View's pictures.
#include "preview/paper_pictures.h"

#include "resources/picture_ids.h"

namespace kvui {
namespace {

constexpr Shape P = Shape::kPortrait;
constexpr Shape L = Shape::kLandscape;
constexpr LayoutKind kWide = LayoutKind::kWide;
constexpr LayoutKind kNarrow = LayoutKind::kNarrow;

// mdmNup, layout, pages (portrait, landscape document), grids (the same), columns and rows of a
// portrait document; a landscape document has them exchanged.
constexpr LayoutRow kLayouts[] = {
    {0,  kWide,   {13810, 13807}, {13604, 13603}, {1, 1}},
    {2,  kNarrow, {13813, 13816}, {13605, 13606}, {2, 1}},
    {4,  kWide,   {13822, 13819}, {13608, 13607}, {2, 2}},
    {6,  kNarrow, {13825, 13828}, {13609, 13610}, {3, 2}},
    {9,  kWide,   {13834, 13831}, {13612, 13611}, {3, 3}},
    {16, kWide,   {13804, 13801}, {13602, 13601}, {4, 4}},
    {20, kWide,   {13810, 13807}, {0,     0},     {1, 1}},
};

// Booklet, binding, shape, picture and mask, shift right and down, margin.
constexpr SheetRow kSheets[] = {
    {false, 0,                   L, {13845, 13846}, 4,  -23, 0,  0},
    {false, 0,                   P, {13847, 13848}, 4,  -23, 0,  0},
    {true,  kDuplexBookletLeft,  P, {13839, 13840}, 6,  -12, 8,  22},
    {true,  kDuplexBookletRight, P, {13841, 13842}, 2,  -12, 8,  22},
    {true,  kDuplexBookletLeft,  L, {13843, 13844}, -7, -21, 22, 8},
    {true,  kDuplexBookletRight, L, {13837, 13838}, 15, -25, 22, 8},
};

// Document, layout, mdmDuplexMode, bar, bar down, arrow.
constexpr BindingRow kBindings[] = {
    {L, kWide,   kDuplexLongEdge,  13501, 1, {13705, 13706}},
    {L, kWide,   kDuplexShortEdge, 13516, 0, {13709, 13710}},
    {L, kNarrow, kDuplexLongEdge,  13506, 0, {13713, 13714}},
    {L, kNarrow, kDuplexShortEdge, 13511, 1, {13717, 13718}},
    {P, kWide,   kDuplexLongEdge,  13506, 0, {13717, 13718}},
    {P, kWide,   kDuplexShortEdge, 13511, 1, {13713, 13714}},
    {P, kNarrow, kDuplexLongEdge,  13501, 1, {13705, 13706}},
    {P, kNarrow, kDuplexShortEdge, 13516, 0, {13709, 13710}},
};

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
    const bool booklet = duplexMode >= kDuplexBookletLeft;
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
    return {static_cast<WORD>(id), static_cast<WORD>(id + 1)};
}

const BindingRow* BindingOf(DWORD duplexMode, LayoutKind kind, Shape document) {
    for (const BindingRow& row : kBindings) {
        if (row.duplexMode == duplexMode && row.kind == kind && row.document == document) {
            return &row;
        }
    }
    return nullptr;
}

WORD FramePicture(Shape page) { return page == Shape::kLandscape ? 13603 : 13604; }

WORD OverlayPicture(Shape page) { return page == Shape::kLandscape ? 13451 : 13452; }

// The pictures of 1 to 16 follow each other in pairs; those that never stand in a corner are missing.
PictureId NumberPicture(int number) {
    const WORD picture = static_cast<WORD>(13401 + 2 * (number - 1));
    return {picture, static_cast<WORD>(picture + 1)};
}

}  // namespace kvui
