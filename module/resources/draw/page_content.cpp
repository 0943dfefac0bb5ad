// Page content in three sizes: a full page, a page of 2 to 6, and the tiny ones of 9 and 16. All
// edges lie on whole pixels, so that lines of one pixel stay sharp.
#include "page_content.h"

#include <algorithm>
#include <cmath>

namespace draw {
namespace {

constexpr Color kHeadline = {0.10, 0.27, 0.52};
constexpr Color kSubtitle = {0.90, 0.45, 0.13};
constexpr Color kText = {0.56, 0.60, 0.65};
constexpr Color kAxis = {0.42, 0.47, 0.53};
constexpr Color kSeries[] = {
    {0.16, 0.47, 0.80}, {0.95, 0.61, 0.17}, {0.24, 0.65, 0.42}, {0.82, 0.29, 0.29}};
constexpr double kPi = 3.14159265358979;

void Fill(cairo_t* to, const Box& box, const Color& color) {
    cairo_rectangle(to, box.x, box.y, box.width, box.height);
    SetColor(to, color);
    cairo_fill(to);
}

// Lines of text from the box's upper edge down; paragraphs end with a short line.
void Text(cairo_t* to, const Box& box, double pitch) {
    constexpr int kParagraph = 4;
    int line = 0;
    for (double y = box.y; y + 1 <= box.bottom(); y += pitch, ++line) {
        const bool last = line % kParagraph == kParagraph - 1 || y + pitch + 1 > box.bottom();
        const double share = last ? 0.62 : 1 - 0.08 * (line * 5 % 3) / 2;
        Fill(to, {box.x, y, std::round(box.width * share), 1}, kText);
    }
}

void BarChart(cairo_t* to, const Box& box) {
    constexpr double kHeights[] = {0.45, 0.72, 0.58, 0.95};
    const int bars = box.width >= 14 ? 4 : 3;
    const double pitch = std::floor(box.width / bars);
    const double width = std::max(1.0, pitch - (pitch >= 4 ? 2 : 1));
    for (int i = 0; i < bars; ++i) {
        const double height = std::round((box.height - 1) * kHeights[i + 4 - bars]);
        Fill(to, {box.x + 1 + i * pitch, box.bottom() - 1 - height, width, height}, kSeries[i]);
    }
    Fill(to, {box.x, box.bottom() - 1, bars * pitch + 1, 1}, kAxis);
}

void PieChart(cairo_t* to, const Box& box) {
    constexpr double kShares[] = {0.42, 0.27, 0.19, 0.12};
    const double radius = std::fmin(box.width, box.height) / 2;
    const Point middle = {box.x + box.width / 2, box.y + box.height / 2};
    double angle = -kPi / 2;
    for (int i = 0; i < 4; ++i) {
        const double next = angle + 2 * kPi * kShares[i];
        cairo_move_to(to, middle.x, middle.y);
        cairo_arc(to, middle.x, middle.y, radius, angle, next);
        cairo_close_path(to);
        SetColor(to, kSeries[i]);
        cairo_fill(to);
        angle = next;
    }
}

void Illustration(cairo_t* to, const Box& box, int number) {
    constexpr void (*kKinds[])(cairo_t*, const Box&) = {DrawPhoto, BarChart, PieChart};
    kKinds[number % 3](to, box);
}

// The headline's height including the space below it.
double Headline(cairo_t* to, const Box& page, bool subtitle) {
    const double height = page.width >= 60 ? 4 : page.width >= 24 ? 2 : 1;
    Fill(to, {page.x, page.y, std::round(page.width * 0.66), height}, kHeadline);
    if (!subtitle) return height + (height > 1 ? 2 : 1);
    Fill(to, {page.x, page.y + height + 2, std::round(page.width * 0.38), 1}, kSubtitle);
    return height + 6;
}

// A whole page: photograph beside text, text, a chart beside text.
void FullPage(cairo_t* to, const Box& body, Orientation orientation) {
    constexpr double kPitch = 3;
    constexpr double kGutter = 4;
    const double half = std::floor((body.width - kGutter) / 2);
    const double right = body.right() - half;
    if (orientation == Orientation::kLandscape) {
        const double photo = std::round(body.height * 0.58);
        DrawPhoto(to, {body.x, body.y, half, photo});
        Text(to, {body.x, body.y + photo + 3, half, body.height - photo - 3}, kPitch);
        const double chart = std::round(body.height * 0.42);
        Text(to, {right, body.y, half, body.height - chart - 3}, kPitch);
        BarChart(to, {right, body.bottom() - chart, half, chart});
        return;
    }
    const double block = std::round(body.height * 0.34);
    DrawPhoto(to, {body.x, body.y, half, block});
    Text(to, {right, body.y, half, block}, kPitch);
    const double chartTop = body.bottom() - block;
    Text(to, {body.x, body.y + block + 3, body.width, chartTop - body.y - block - 5}, kPitch);
    Text(to, {body.x, chartTop, half, block}, kPitch);
    BarChart(to, {right, chartTop, half, block});
}

// An illustration beside text in a landscape page, above it in a portrait one. What is too small
// for both holds text.
void SmallPage(cairo_t* to, const Box& body, Orientation orientation, int number) {
    constexpr double kLeastPicture = 5;
    const double pitch = body.height >= 12 ? 3 : 2;
    if (orientation == Orientation::kLandscape) {
        const double width = std::floor(body.width * 0.46);
        if (body.height < kLeastPicture) return Text(to, body, pitch);
        Illustration(to, {body.x, body.y, width, body.height}, number);
        Text(to, {body.x + width + 2, body.y, body.width - width - 2, body.height}, pitch);
        return;
    }
    const double height = std::floor(body.height * 0.55);
    if (height < kLeastPicture) return Text(to, body, pitch);
    Illustration(to, {body.x, body.y, body.width, height}, number);
    Text(to, {body.x, body.y + height + 2, body.width, body.height - height - 2}, pitch);
}

}  // namespace

void DrawPageContent(cairo_t* to, const Box& page, Orientation orientation, int number,
                     double foot) {
    const bool full = page.width >= 60 && page.height >= 60;
    const double head = Headline(to, page, page.width >= 40);
    const Box body = {page.x, page.y + head, page.width, page.height - head - foot};
    if (full) {
        FullPage(to, body, orientation);
    } else {
        SmallPage(to, body, orientation, number);
    }
}

// Sky, sun, a range of hills and a meadow.
void DrawPhoto(cairo_t* to, const Box& box) {
    cairo_save(to);
    cairo_rectangle(to, box.x, box.y, box.width, box.height);
    cairo_clip(to);
    cairo_translate(to, box.x, box.y);
    cairo_scale(to, box.width, box.height);
    cairo_pattern_t* sky = cairo_pattern_create_linear(0, 0, 0, 0.7);
    cairo_pattern_add_color_stop_rgb(sky, 0, 0.27, 0.56, 0.86);
    cairo_pattern_add_color_stop_rgb(sky, 1, 0.80, 0.91, 0.98);
    cairo_set_source(to, sky);
    cairo_paint(to);
    cairo_pattern_destroy(sky);
    cairo_save(to);
    cairo_translate(to, 0.74, 0.27);
    cairo_scale(to, box.height / box.width, 1);
    Disc(to, 0, 0, 0.14, {1.0, 0.83, 0.30});
    cairo_restore(to);
    cairo_move_to(to, 0, 0.72);
    cairo_line_to(to, 0.30, 0.34);
    cairo_line_to(to, 0.52, 0.62);
    cairo_line_to(to, 0.68, 0.46);
    cairo_line_to(to, 1, 0.74);
    cairo_line_to(to, 1, 1);
    cairo_line_to(to, 0, 1);
    cairo_close_path(to);
    SetColor(to, {0.36, 0.48, 0.62});
    cairo_fill(to);
    cairo_move_to(to, 0, 0.74);
    cairo_curve_to(to, 0.35, 0.58, 0.6, 0.86, 1, 0.66);
    cairo_line_to(to, 1, 1);
    cairo_line_to(to, 0, 1);
    cairo_close_path(to);
    SetColor(to, {0.33, 0.62, 0.28});
    cairo_fill(to);
    cairo_restore(to);
}

}  // namespace draw
