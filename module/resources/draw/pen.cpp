// Sheets, print, arrows and numbers.
#include "pen.h"

#include <cmath>
#include <cstdio>
#include <initializer_list>

#include "digits.h"

namespace draw {
namespace {

constexpr double kOutlineWidth = 1.0;
constexpr double kFold = 5.0;
constexpr double kPi = 3.14159265358979;

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

void RoundedBox(cairo_t* to, const Box& box, double radius) {
    cairo_new_sub_path(to);
    cairo_arc(to, box.right() - radius, box.y + radius, radius, -kPi / 2, 0);
    cairo_arc(to, box.right() - radius, box.bottom() - radius, radius, 0, kPi / 2);
    cairo_arc(to, box.x + radius, box.bottom() - radius, radius, kPi / 2, kPi);
    cairo_arc(to, box.x + radius, box.y + radius, radius, kPi, 1.5 * kPi);
    cairo_close_path(to);
}

namespace {

void DigitPath(cairo_t* to, int digit, double x, double y, double unit) {
    for (const Step& step : DigitSteps(digit)) {
        double at[6];
        for (int i = 0; i < 6; ++i) at[i] = (i % 2 == 0 ? x : y) + step.points[i] * unit;
        if (step.kind == 'M') cairo_move_to(to, at[0], at[1]);
        if (step.kind == 'L') cairo_line_to(to, at[0], at[1]);
        if (step.kind == 'C') cairo_curve_to(to, at[0], at[1], at[2], at[3], at[4], at[5]);
    }
}

// Stroke widths as shares of the digit's height.
double StrokeShare(Weight weight) {
    switch (weight) {
        case Weight::kBold:
            return 0.23;
        case Weight::kRim:
            return 0.43;
        default:
            return 0.18;
    }
}

}  // namespace

void Number(cairo_t* to, int number, double x, double y, double height, const Color& color,
            Weight weight) {
    constexpr double kDigitHeight = 8;
    constexpr double kGap = 2.6;
    char digits[12];
    const int count = std::snprintf(digits, sizeof digits, "%d", number);
    const double unit = height / kDigitHeight;
    double width = -kGap;
    for (int i = 0; i < count; ++i) width += DigitWidth(digits[i] - '0') + kGap;
    double left = x - width * unit / 2;
    for (int i = 0; i < count; ++i) {
        DigitPath(to, digits[i] - '0', left, y - height / 2, unit);
        left += (DigitWidth(digits[i] - '0') + kGap) * unit;
    }
    SetColor(to, color);
    cairo_set_line_width(to, height * StrokeShare(weight));
    cairo_set_line_join(to, CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_cap(to, CAIRO_LINE_CAP_ROUND);
    cairo_stroke(to);
}

void CornerArrow(cairo_t* to, const Point& tail, const Point& corner, const Point& tip,
                 double width, double rim, const Color& color) {
    constexpr double kHalfHead = 0.62;
    const double angle = std::atan2(tip.y - corner.y, tip.x - corner.x);
    const double head = 3.3 * width;
    const double neck = 0.8 * head;
    cairo_move_to(to, tail.x, tail.y);
    cairo_curve_to(to, corner.x, corner.y, corner.x, corner.y, tip.x - neck * std::cos(angle),
                   tip.y - neck * std::sin(angle));
    SetColor(to, color);
    cairo_set_line_join(to, CAIRO_LINE_JOIN_ROUND);
    cairo_set_line_cap(to, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_width(to, width + 2 * rim);
    cairo_stroke(to);
    cairo_move_to(to, tip.x, tip.y);
    for (const double side : {-kHalfHead, kHalfHead}) {
        cairo_line_to(to, tip.x - head * std::cos(angle + side),
                      tip.y - head * std::sin(angle + side));
    }
    cairo_close_path(to);
    cairo_set_line_width(to, 2 * rim + 0.4);
    cairo_fill_preserve(to);
    cairo_stroke(to);
}

}  // namespace draw
