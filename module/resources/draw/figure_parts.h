// Boxes of the printer's figure, all in one perspective and one light: seen from the front left and
// a little from above, lit from the upper left. Fronts are parallel to the picture, so that a part
// meets its neighbour on whole pixels; depth goes to the upper left.
#pragma once

#include <cairo.h>

#include "pen.h"

namespace draw {

constexpr double kDepthX = -18;
constexpr double kDepthY = -12;

// Where the machine's main parts stand, in pixels of the figure: trays below each other, each
// side's unit beside the body.
constexpr int kFigureWidth = 160;
constexpr int kFigureHeight = 194;
constexpr double kFloor = 188;
constexpr double kTrayHeight = 18;
constexpr Box kBody = {55, 66, 74, 68};  // the first tray included
constexpr Box kScanner = {55, 50, 74, 16};
constexpr Box kFeeder = {61, 40, 60, 10};
constexpr Box kOutputBay = {59, 70, 66, 14};  // between scanner and body
constexpr Box kFinisher = {25, 72, 30, 116};
constexpr Box kSmallFinisher = {29, 88, 26, 100};
constexpr Box kSorter = {27, 46, 28, 92};
constexpr Box kSideCassette = {129, 128, 24, 60};
constexpr Box kDuplexUnit = {129, 78, 9, 32};
constexpr Box kMultiPurpose = {129, 112, 18, 4};
constexpr int kSorterBins = 10;

// Tray 1 is the body's lowest part, the others follow below it.
constexpr Box TrayBox(int number) {
    return {kBody.x, kBody.bottom() + (number - 2) * kTrayHeight, kBody.width, kTrayHeight};
}
// Bin 1 is at the top.
constexpr Box SorterBinBox(int number) {
    return {kSorter.x - 8, kSorter.y + 4 + (number - 1) * 8.0, 12, 6};
}

struct Shades {
    Color front;
    Color top;
    Color left;
};
constexpr Shades kCasing = {{0.90, 0.91, 0.93}, {0.97, 0.97, 0.98}, {0.72, 0.75, 0.79}};
constexpr Shades kDarkCasing = {{0.44, 0.48, 0.54}, {0.54, 0.58, 0.63}, {0.32, 0.36, 0.41}};

enum Faces : unsigned { kFront = 1, kTop = 2, kLeft = 4, kAllFaces = 7 };

// `depth` is a part of the machine's depth.
void Block(cairo_t* to, const Box& front, const Shades& shades, unsigned faces = kAllFaces,
           double depth = 1);
// A frame inside a front, such as a door or a drawer.
void Panel(cairo_t* to, const Box& box, const Color& color);
// A drawer's front with its handle and, unless it is 0, its number.
void Drawer(cairo_t* to, const Box& front, int number);
// A shelf that sticks out to the left.
void Shelf(cairo_t* to, double right, double y, double length, const Color& color);
// The chosen source or output: framed and tinted.
void Mark(cairo_t* to, const Box& front);

}  // namespace draw
