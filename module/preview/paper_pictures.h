// Which pictures make up the Paper View: tables from the settings to picture ids. Used by the plan of
// the Paper View only.
#pragma once

#include <windows.h>

#include "preview/page_grid.h"
#include "resources/picture_ids.h"
#include "sheet/private_devmode.h"

namespace kvui {

// Shape of a document, a sheet or a page.
enum class Shape { kPortrait, kLandscape };

// Layouts in which a portrait document is printed on a portrait-shaped sheet are wide; in narrow ones
// the sheet is turned.
enum class LayoutKind { kWide, kNarrow };

// A picture, and the mask that cuts it out of its surroundings (0: it is combined by AND).
struct PictureId {
    WORD picture;
    WORD mask;
};
constexpr PictureId Masked(WORD picture) {
    return {picture, static_cast<WORD>(picture + 1)};
}

// What depends on the number of pages per sheet, for portrait and landscape documents.
struct LayoutRow {
    DWORD nup;
    LayoutKind kind;
    WORD pages[2];  // printed page in black and white, by Shape of the document
    WORD grids[2];  // border grid, 0 for none
    PageGrid portraitGrid;
};
// The row of mdmNup; that of one page per sheet for any other value.
const LayoutRow& LayoutOf(DWORD nup);
PageGrid GridOf(const LayoutRow& layout, Shape document);
Shape SheetShape(LayoutKind kind, Shape document);

// Added to the id of a printed page for its colour picture.
constexpr WORD kColourPages = 100;

struct SheetRow {
    bool booklet;
    DWORD binding;  // mdmDuplexMode of a booklet
    Shape shape;    // of the sheet; of the document for a booklet
    PictureId id;
    // Shifts of the sheet from the middle of the view, as the placement formula has them.
    int shiftX;
    int shiftY;
    // What of the picture is not paper: the edge of the sheet that lies behind.
    int marginX;
    int marginY;
};
// Null for duplex modes that do not exist.
const SheetRow* SheetOf(DWORD duplexMode, LayoutKind kind, Shape document);

// How many sheets each way a page is spread over; 0 for all but the posters.
int PosterSheets(DWORD nup);
// The picture of the sheet: a single one shows how a poster is cut into sheets.
PictureId SheetPicture(const SheetRow& sheet, DWORD nup);

struct BindingRow {
    Shape document;
    LayoutKind kind;
    DWORD duplexMode;
    WORD bar;
    int barDown;  // how far the bar lies below the sheet's corner
    PictureId arrow;
};
// Null when the sheet is not bound.
const BindingRow* BindingOf(DWORD duplexMode, LayoutKind kind, Shape document);

WORD FramePicture(Shape page);
WORD OverlayPicture(Shape page);
PictureId NumberPicture(int number);

constexpr PictureId kOutputSizeArrow = Masked(IDB_OUTPUT_SIZE_ARROW);

}  // namespace kvui
