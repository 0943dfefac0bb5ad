// The visual language of all pictures: sheets of paper with a folded corner and a soft shadow, dark
// outlines that show on light and dark grounds, and one accent colour. Units are those of a 32 x 32
// icon; the caller scales.
#pragma once

#include <cairo.h>

namespace draw {

struct Color {
    double red;
    double green;
    double blue;
};

constexpr Color kPaper = {1.0, 1.0, 1.0};
constexpr Color kPaperShade = {0.89, 0.92, 0.95};
constexpr Color kOutline = {0.22, 0.27, 0.33};
constexpr Color kPrint = {0.60, 0.65, 0.71};
constexpr Color kAccent = {0.11, 0.45, 0.83};
constexpr Color kAccentTint = {0.78, 0.88, 0.98};

struct Point {
    double x;
    double y;
};

struct Box {
    double x;
    double y;
    double width;
    double height;

    constexpr double right() const { return x + width; }
    constexpr double bottom() const { return y + height; }
    constexpr Box Inset(double by) const {
        return {x + by, y + by, width - 2 * by, height - 2 * by};
    }
};

enum class Corner { kFolded, kSquare };
enum class Edge { kLeft, kTop, kRight, kBottom };

void SetColor(cairo_t* to, const Color& color, double alpha = 1.0);
void Sheet(cairo_t* to, const Box& box, Corner corner = Corner::kFolded);
// Lines of print on a sheet, the last one shorter.
void Print(cairo_t* to, const Box& box, int lines);
// A small page of a sheet that carries several.
void Cell(cairo_t* to, const Box& box);
void Line(cairo_t* to, double x1, double y1, double x2, double y2, double width,
          const Color& color);
// A line through `count` points (x, y pairs) with an arrow head at its end.
void Arrow(cairo_t* to, const double* points, int count, double width, const Color& color);
void Disc(cairo_t* to, double x, double y, double radius, const Color& color);
// An arrow that bends around a corner, widened by `rim` on every side.
void CornerArrow(cairo_t* to, const Point& tail, const Point& corner, const Point& tip,
                 double width, double rim, const Color& color);
// Adds the box to the path.
void RoundedBox(cairo_t* to, const Box& box, double radius);
// A number in strokes, centred on the point; a rim is what a bold number stands on.
enum class Weight { kRegular, kBold, kRim };
void Number(cairo_t* to, int number, double x, double y, double height, const Color& color,
            Weight weight = Weight::kRegular);

}  // namespace draw
