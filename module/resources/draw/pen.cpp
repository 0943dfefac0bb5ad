// Sheets, print, arrows and digits. Digits are strokes of our own, so that pictures do not depend
// on the fonts of the machine that builds them.
#include "pen.h"

#include <cmath>
#include <initializer_list>

namespace draw {
namespace {

constexpr double kOutlineWidth = 1.0;
constexpr double kFold = 5.0;
constexpr double kPi = 3.14159265358979;

// Strokes of the digits 0 to 9 on a grid of 2 x 4: x, y pairs; a negative x lifts the pen.
constexpr int kMaxStroke = 22;
constexpr double kUp = -1;
constexpr double kDigits[10][kMaxStroke] = {
    {0, 0, 2, 0, 2, 4, 0, 4, 0, 0, kUp},
    {0.3, 0.8, 1.2, 0, 1.2, 4, kUp},
    {0, 0, 2, 0, 2, 2, 0, 2, 0, 4, 2, 4, kUp},
    {0, 0, 2, 0, 2, 2, 0.5, 2, 2, 2, 2, 4, 0, 4, kUp},
    {0, 0, 0, 2.4, 2, 2.4, 1.6, 2.4, 1.6, 1, 1.6, 4, kUp},
    {2, 0, 0, 0, 0, 2, 2, 2, 2, 4, 0, 4, kUp},
    {2, 0, 0, 0, 0, 4, 2, 4, 2, 2, 0, 2, kUp},
    {0, 0, 2, 0, 0.8, 4, kUp},
    {0, 2, 0, 0, 2, 0, 2, 2, 0, 2, 0, 4, 2, 4, 2, 2, kUp},
    {2, 2, 0, 2, 0, 0, 2, 0, 2, 4, 0, 4, kUp},
};

void SheetPath(cairo_t* to, const Box& box, double fold) {
    cairo_move_to(to, box.x, box.y);
    cairo_line_to(to, box.right() - fold, box.y);
    cairo_line_to(to, box.right(), box.y + fold);
    cairo_line_to(to, box.right(), box.bottom());
    cairo_line_to(to, box.x, box.bottom());
    cairo_close_path(to);
}

void Shadow(cairo_t* to, const Box& box, double fold) {
    for (int i = 1; i <= 3; ++i) {
        cairo_save(to);
        cairo_translate(to, 0.35 * i, 0.5 * i);
        SheetPath(to, box, fold);
        cairo_restore(to);
        cairo_set_source_rgba(to, 0, 0, 0, 0.09);
        cairo_fill(to);
    }
}

}  // namespace

void SetColor(cairo_t* to, const Color& color, double alpha) {
    cairo_set_source_rgba(to, color.red, color.green, color.blue, alpha);
}

void Sheet(cairo_t* to, const Box& box, Corner corner) {
    const double fold =
        corner == Corner::kFolded ? std::fmin(kFold, 0.35 * std::fmin(box.width, box.height)) : 0;
    Shadow(to, box, fold);
    SheetPath(to, box, fold);
    cairo_pattern_t* paper = cairo_pattern_create_linear(box.x, box.y, box.x, box.bottom());
    cairo_pattern_add_color_stop_rgb(paper, 0, kPaper.red, kPaper.green, kPaper.blue);
    cairo_pattern_add_color_stop_rgb(paper, 1, 0.96, 0.97, 0.985);
    cairo_set_source(to, paper);
    cairo_fill(to);
    cairo_pattern_destroy(paper);
    if (fold > 0) {
        cairo_move_to(to, box.right() - fold, box.y);
        cairo_line_to(to, box.right() - fold, box.y + fold);
        cairo_line_to(to, box.right(), box.y + fold);
        cairo_close_path(to);
        SetColor(to, kPaperShade);
        cairo_fill_preserve(to);
        SetColor(to, kOutline);
        cairo_set_line_width(to, kOutlineWidth * 0.8);
        cairo_stroke(to);
    }
    SheetPath(to, box, fold);
    cairo_set_line_join(to, CAIRO_LINE_JOIN_ROUND);
    SetColor(to, kOutline);
    cairo_set_line_width(to, kOutlineWidth);
    cairo_stroke(to);
}

void Print(cairo_t* to, const Box& box, int lines) {
    for (int i = 0; i < lines; ++i) {
        const double y = lines > 1 ? box.y + box.height * i / (lines - 1) : box.y;
        const double width = i == lines - 1 ? box.width * 0.6 : box.width;
        Line(to, box.x, y, box.x + width, y, 1.0, kPrint);
    }
}

void Cell(cairo_t* to, const Box& box) {
    cairo_rectangle(to, box.x, box.y, box.width, box.height);
    SetColor(to, kAccentTint);
    cairo_fill_preserve(to);
    SetColor(to, kAccent);
    cairo_set_line_width(to, 0.9);
    cairo_stroke(to);
}

void Line(cairo_t* to, double x1, double y1, double x2, double y2, double width,
          const Color& color) {
    cairo_move_to(to, x1, y1);
    cairo_line_to(to, x2, y2);
    cairo_set_line_cap(to, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_width(to, width);
    SetColor(to, color);
    cairo_stroke(to);
}

void Arrow(cairo_t* to, const double* points, int count, double width, const Color& color) {
    const double endX = points[2 * count - 2];
    const double endY = points[2 * count - 1];
    const double angle = std::atan2(endY - points[2 * count - 3], endX - points[2 * count - 4]);
    const double head = 2.6 * width;
    const double stop = 0.8 * head;
    cairo_move_to(to, points[0], points[1]);
    for (int i = 1; i < count - 1; ++i) cairo_line_to(to, points[2 * i], points[2 * i + 1]);
    cairo_line_to(to, endX - stop * std::cos(angle), endY - stop * std::sin(angle));
    cairo_set_line_join(to, CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_cap(to, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_width(to, width);
    SetColor(to, color);
    cairo_stroke(to);
    cairo_move_to(to, endX, endY);
    for (const double side : {-0.5, 0.5}) {
        cairo_line_to(to, endX - head * std::cos(angle + side),
                      endY - head * std::sin(angle + side));
    }
    cairo_close_path(to);
    cairo_fill(to);
}

void Disc(cairo_t* to, double x, double y, double radius, const Color& color) {
    cairo_new_sub_path(to);
    cairo_arc(to, x, y, radius, 0, 2 * kPi);
    SetColor(to, color);
    cairo_fill(to);
}

void Number(cairo_t* to, int number, double x, double y, double height, const Color& color) {
    int digits[4];
    int count = 0;
    for (int rest = number; count < 4 && (rest > 0 || count == 0); rest /= 10) {
        digits[count++] = rest % 10;
    }
    const double unit = height / 4;
    const double step = 3.2 * unit;
    double left = x - ((count - 1) * step + 2 * unit) / 2;
    SetColor(to, color);
    cairo_set_line_width(to, height / 4.6);
    cairo_set_line_join(to, CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_cap(to, CAIRO_LINE_CAP_ROUND);
    for (int i = count - 1; i >= 0; --i, left += step) {
        const double* stroke = kDigits[digits[i]];
        cairo_move_to(to, left + stroke[0] * unit, y - height / 2 + stroke[1] * unit);
        for (int at = 2; at + 1 < kMaxStroke && stroke[at] != kUp; at += 2) {
            cairo_line_to(to, left + stroke[at] * unit, y - height / 2 + stroke[at + 1] * unit);
        }
        cairo_stroke(to);
    }
}

}  // namespace draw
