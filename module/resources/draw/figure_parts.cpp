// See figure_parts.h.
#include "figure_parts.h"

#include <initializer_list>

namespace draw {
namespace {

void Face(cairo_t* to, std::initializer_list<Point> corners, const Color& color) {
    for (const Point& corner : corners) cairo_line_to(to, corner.x, corner.y);
    cairo_close_path(to);
    SetColor(to, color);
    cairo_fill_preserve(to);
    SetColor(to, kOutline);
    cairo_set_line_width(to, 1);
    cairo_set_line_join(to, CAIRO_LINE_JOIN_ROUND);
    cairo_stroke(to);
}

// Lines of one pixel lie between whole coordinates.
Box OnPixels(const Box& box) {
    return {box.x + 0.5, box.y + 0.5, box.width - 1, box.height - 1};
}

}  // namespace

void Block(cairo_t* to, const Box& front, const Shades& shades, unsigned faces, double depth) {
    const Box box = OnPixels(front);
    const double dx = kDepthX * depth, dy = kDepthY * depth;
    if (faces & kTop) {
        Face(to,
             {{box.x, box.y},
              {box.right(), box.y},
              {box.right() + dx, box.y + dy},
              {box.x + dx, box.y + dy}},
             shades.top);
    }
    if (faces & kLeft) {
        Face(to,
             {{box.x, box.y},
              {box.x, box.bottom()},
              {box.x + dx, box.bottom() + dy},
              {box.x + dx, box.y + dy}},
             shades.left);
    }
    if (faces & kFront) {
        Face(to,
             {{box.x, box.y},
              {box.right(), box.y},
              {box.right(), box.bottom()},
              {box.x, box.bottom()}},
             shades.front);
    }
}

void Panel(cairo_t* to, const Box& box, const Color& color) {
    const Box inner = OnPixels(box);
    RoundedBox(to, inner, 1.5);
    SetColor(to, color);
    cairo_fill_preserve(to);
    SetColor(to, kPrint);
    cairo_set_line_width(to, 1);
    cairo_stroke(to);
}

void Drawer(cairo_t* to, const Box& front, int number) {
    const Box box = front.Inset(2);
    Panel(to, box, kCasing.front);
    const double middle = front.x + front.width / 2;
    RoundedBox(to, {middle - 12, front.y + front.height / 2 - 2.5, 24, 5}, 2);
    SetColor(to, kDarkCasing.front);
    cairo_fill(to);
    if (number != 0) {
        Number(to, number, front.right() - 9, front.y + front.height / 2, 7, kOutline);
    }
}

void Shelf(cairo_t* to, double right, double y, double length, const Color& color) {
    const double left = right - length;
    Face(to,
         {{right, y + 0.5},
          {left, y - 4.5},
          {left + kDepthX * 0.6, y - 4.5 + kDepthY * 0.6},
          {right + kDepthX * 0.6, y + 0.5 + kDepthY * 0.6}},
         color);
}

void Mark(cairo_t* to, const Box& front) {
    const Box box = front.Inset(1.5);
    RoundedBox(to, box, 2);
    SetColor(to, kAccentTint);
    cairo_fill_preserve(to);
    SetColor(to, kAccent);
    cairo_set_line_width(to, 2);
    cairo_stroke(to);
}

}  // namespace draw
