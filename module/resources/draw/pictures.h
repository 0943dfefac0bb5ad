// The tables of what is drawn. main.cpp walks them; each topic's file holds its own table.
#pragma once

#include <cairo.h>

#include <span>

namespace draw {

// Draws into 32 x 32 units; `value` tells the pictures of one function apart.
struct IconPicture {
    int id;
    void (*draw)(cairo_t* to, int value);
    int value;
};

// Draws into width x height units, one per pixel, on white.
struct BitmapPicture {
    int id;
    int width;
    int height;
    void (*draw)(cairo_t* to, int value);
    int value;
};

std::span<const IconPicture> PageIcons();       // orientation, collation, pages per sheet, order
std::span<const IconPicture> FinishingIcons();  // duplex, staple, punch, fold
std::span<const IconPicture> OtherIcons();      // resolution, notices
std::span<const BitmapPicture> Bitmaps();

// A 2 x 2 sheet with the arrow of one of the four page orders (0 to 3).
void DrawOrder(cairo_t* to, int order);

}  // namespace draw
