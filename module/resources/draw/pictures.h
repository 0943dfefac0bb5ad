// The tables of what is drawn. main.cpp walks them; each topic's file holds its own table.
#pragma once

#include <cairo.h>

#include <span>
#include <vector>

#include "pen.h"

namespace draw {

// Draws into 32 x 32 units; `value` tells the pictures of one function apart.
struct IconPicture {
    int id;
    void (*draw)(cairo_t* to, int value);
    int value;
};

// kKeyed: white is nothing, for layers; what is drawn is never quite white and has a palette.
enum class Finish { kAsDrawn, kGrey, kKeyed };

// Draws into width x height units, one per pixel, on white.
struct BitmapPicture {
    int id;
    int width;
    int height;
    void (*draw)(cairo_t* to, const Box& area, int value);
    int value;
    Finish finish = Finish::kAsDrawn;
};

// A picture on a transparent ground, whose mask has the next number. A mask knows no halves, so
// soft edges and shadows are mixed with what lies below when the picture is drawn: the preview's
// tile from row `ground` on, or paper.
struct MaskedPicture {
    int id;
    int width;
    int height;
    void (*draw)(cairo_t* to, const Box& area, int value);
    int value;
    int ground;
};
constexpr int kOnPaper = -1;

// A picture whose mask has a number of its own, or is that of another picture (0).
struct StatePicture {
    BitmapPicture picture;
    int maskId;
};

std::span<const IconPicture> PageIcons();       // orientation, collation, pages per sheet, order
std::span<const IconPicture> FinishingIcons();  // duplex, staple, punch, fold
std::span<const IconPicture> OtherIcons();      // resolution, notices

std::span<const BitmapPicture> DialogBitmaps();   // page orders
std::span<const BitmapPicture> ViewTiles();       // the preview's ground
std::span<const BitmapPicture> ViewBorders();     // frames, grids, binding bars, overlay forms
std::span<const BitmapPicture> SamplePictures();  // quality view
std::vector<BitmapPicture> ViewPages();           // printed pages, grey and in colour
std::span<const MaskedPicture> ViewSheets();      // single sheets and booklets
std::span<const MaskedPicture> ViewMarks();       // page numbers, arrows, the paper marker

std::span<const BitmapPicture> FigureLayers();  // the printer's figure
std::span<const BitmapPicture> WholePrinters();
std::span<const StatePicture> StateIcons();  // of the strip

// The tile's colour in a row of the view.
Color TileColor(double y);

// A 2 x 2 sheet with the arrow of one of the four page orders (0 to 3).
void DrawOrder(cairo_t* to, int order);

}  // namespace draw
