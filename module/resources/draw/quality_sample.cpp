// The test picture of the quality view: a landscape, fruit, skin tones, patches of the inks and
// their mixes, and a grey ramp. One picture in colour, one in grey.
#include <initializer_list>

#include "../picture_ids.h"
#include "page_content.h"
#include "pictures.h"

namespace draw {
namespace {

constexpr Color kFrame = {0.45, 0.50, 0.56};

void Patch(cairo_t* to, const Box& box, const Color& color) {
    cairo_rectangle(to, box.x, box.y, box.width, box.height);
    SetColor(to, color);
    cairo_fill(to);
}

// A ball lit from the upper left.
void Ball(cairo_t* to, const Point& middle, double radius, const Color& light, const Color& dark) {
    cairo_pattern_t* shade =
        cairo_pattern_create_radial(middle.x - 0.35 * radius, middle.y - 0.4 * radius, 0.1 * radius,
                                    middle.x, middle.y, 1.15 * radius);
    cairo_pattern_add_color_stop_rgb(shade, 0, light.red, light.green, light.blue);
    cairo_pattern_add_color_stop_rgb(shade, 1, dark.red, dark.green, dark.blue);
    cairo_arc(to, middle.x, middle.y, radius, 0, 6.2832);
    cairo_set_source(to, shade);
    cairo_fill(to);
    cairo_pattern_destroy(shade);
}

void Fruit(cairo_t* to, const Box& box) {
    cairo_pattern_t* table = cairo_pattern_create_linear(0, box.y, 0, box.bottom());
    cairo_pattern_add_color_stop_rgb(table, 0, 0.96, 0.91, 0.82);
    cairo_pattern_add_color_stop_rgb(table, 1, 0.80, 0.66, 0.48);
    cairo_rectangle(to, box.x, box.y, box.width, box.height);
    cairo_set_source(to, table);
    cairo_fill(to);
    cairo_pattern_destroy(table);
    const struct {
        Point middle;
        double radius;
        Color light;
        Color dark;
    } fruits[] = {
        {{0.26, 0.50}, 0.29, {1.00, 0.86, 0.46}, {0.93, 0.48, 0.05}},
        {{0.63, 0.44}, 0.29, {0.98, 0.58, 0.50}, {0.66, 0.06, 0.10}},
        {{0.45, 0.69}, 0.20, {0.83, 0.94, 0.53}, {0.32, 0.58, 0.12}},
        {{0.80, 0.72}, 0.17, {0.72, 0.62, 0.90}, {0.27, 0.13, 0.45}},
    };
    for (const auto& fruit : fruits) {
        const Point middle = {box.x + fruit.middle.x * box.width,
                              box.y + fruit.middle.y * box.height};
        const double radius = fruit.radius * box.height;
        cairo_save(to);
        cairo_translate(to, middle.x + 1, middle.y + 0.92 * radius);
        cairo_scale(to, 1, 0.22);
        Disc(to, 0, 0, 0.95 * radius, {0.52, 0.40, 0.28});
        cairo_restore(to);
        Ball(to, middle, radius, fruit.light, fruit.dark);
    }
}

void SkinTones(cairo_t* to, const Box& box) {
    constexpr Color kTones[][2] = {
        {{0.99, 0.90, 0.83}, {0.91, 0.73, 0.62}},
        {{0.93, 0.76, 0.62}, {0.77, 0.54, 0.39}},
        {{0.69, 0.47, 0.33}, {0.45, 0.27, 0.17}},
    };
    const double height = box.height / 3;
    for (int i = 0; i < 3; ++i) {
        cairo_pattern_t* tone = cairo_pattern_create_linear(box.x, 0, box.right(), 0);
        const Color& light = kTones[i][0];
        const Color& dark = kTones[i][1];
        cairo_pattern_add_color_stop_rgb(tone, 0, light.red, light.green, light.blue);
        cairo_pattern_add_color_stop_rgb(tone, 1, dark.red, dark.green, dark.blue);
        cairo_rectangle(to, box.x, box.y + i * height, box.width, height);
        cairo_set_source(to, tone);
        cairo_fill(to);
        cairo_pattern_destroy(tone);
    }
}

void DrawSample(cairo_t* to, const Box& area, int) {
    constexpr Color kInks[] = {
        {0.00, 0.62, 0.88}, {0.89, 0.06, 0.49}, {1.00, 0.90, 0.05}, {0.88, 0.13, 0.14},
        {0.05, 0.60, 0.28}, {0.18, 0.19, 0.57}, {0.10, 0.10, 0.11},
    };
    constexpr double kInkWidth = 18;
    constexpr double kInkPitch = 18;
    constexpr int kGreys = 11;
    Patch(to, area, kFrame);
    Patch(to, area.Inset(1), kPaper);
    const Box inner = area.Inset(7);  // 126 x 156
    DrawPhoto(to, {inner.x, inner.y, inner.width, 66});
    Fruit(to, {inner.x, inner.y + 70, 82, 46});
    SkinTones(to, {inner.x + 86, inner.y + 70, inner.width - 86, 46});
    double x = inner.x;
    for (const Color& ink : kInks) {
        Patch(to, {x, inner.y + 120, kInkWidth, 18}, ink);
        x += kInkPitch;
    }
    for (int i = 0; i < kGreys; ++i) {
        const double level = 1 - double(i) / (kGreys - 1);
        const double left = inner.x + inner.width * i / kGreys;
        Patch(to, {left, inner.y + 142, inner.width / kGreys, 14}, {level, level, level});
    }
    cairo_rectangle(to, inner.x + 0.5, inner.y + 142.5, inner.width - 1, 13);
    SetColor(to, kFrame);
    cairo_set_line_width(to, 1);
    cairo_stroke(to);
}

constexpr BitmapPicture kSamples[] = {
    {IDB_SAMPLE_COLOR, 140, 170, DrawSample, 0, Finish::kAsDrawn},
    {IDB_SAMPLE_GREY, 140, 170, DrawSample, 0, Finish::kGrey},
};

}  // namespace

std::span<const BitmapPicture> SamplePictures() {
    return kSamples;
}

}  // namespace draw
