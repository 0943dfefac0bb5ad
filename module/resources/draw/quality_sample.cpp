// The test picture of the quality view: a landscape, fruit, skin tones, patches of the inks and
// their mixes, and a grey ramp. One picture in colour, one in grey.
#include <initializer_list>

#include "../picture_ids.h"
#include "pen.h"
#include "pictures.h"

namespace draw {
namespace {

constexpr Color kFrame = {0.45, 0.50, 0.56};

void Patch(cairo_t* to, const Box& box, const Color& color) {
    cairo_rectangle(to, box.x, box.y, box.width, box.height);
    SetColor(to, color);
    cairo_fill(to);
}

// Fills the current path from top to bottom.
void FillDown(cairo_t* to, double top, double bottom, const Color& from, const Color& until) {
    cairo_pattern_t* pattern = cairo_pattern_create_linear(0, top, 0, bottom);
    cairo_pattern_add_color_stop_rgb(pattern, 0, from.red, from.green, from.blue);
    cairo_pattern_add_color_stop_rgb(pattern, 1, until.red, until.green, until.blue);
    cairo_set_source(to, pattern);
    cairo_fill(to);
    cairo_pattern_destroy(pattern);
}

void Glow(cairo_t* to, const Point& middle, double radius, const Color& color, double alpha) {
    cairo_pattern_t* glow =
        cairo_pattern_create_radial(middle.x, middle.y, 0, middle.x, middle.y, radius);
    cairo_pattern_add_color_stop_rgba(glow, 0, color.red, color.green, color.blue, alpha);
    cairo_pattern_add_color_stop_rgba(glow, 1, color.red, color.green, color.blue, 0);
    cairo_rectangle(to, middle.x - radius, middle.y - radius, 2 * radius, 2 * radius);
    cairo_set_source(to, glow);
    cairo_fill(to);
    cairo_pattern_destroy(glow);
}

// A range of peaks (x, y pairs) down to a foot line.
void Range(cairo_t* to, std::initializer_list<Point> peaks, double foot, const Color& from,
           const Color& until) {
    double top = foot;
    cairo_move_to(to, peaks.begin()->x, foot);
    for (const Point& peak : peaks) {
        cairo_line_to(to, peak.x, peak.y);
        top = peak.y < top ? peak.y : top;
    }
    cairo_line_to(to, (peaks.end() - 1)->x, foot);
    cairo_close_path(to);
    FillDown(to, top, foot, from, until);
}

void Fir(cairo_t* to, double x, double foot, double height) {
    for (int tier = 0; tier < 3; ++tier) {
        const double top = foot - height * (1 - 0.24 * tier);
        const double half = height * (0.16 + 0.07 * tier);
        cairo_move_to(to, x, top);
        cairo_line_to(to, x + half, top + 0.48 * height);
        cairo_line_to(to, x - half, top + 0.48 * height);
        cairo_close_path(to);
        FillDown(to, top, top + 0.5 * height, {0.16, 0.40, 0.24}, {0.06, 0.20, 0.13});
    }
}

// Sky with clouds, mountains in haze, a lake and a meadow with firs; 126 x 66.
void Scene(cairo_t* to, const Box& box) {
    constexpr double kShore = 44;
    cairo_save(to);
    cairo_rectangle(to, box.x, box.y, box.width, box.height);
    cairo_clip(to);
    cairo_translate(to, box.x, box.y);
    cairo_rectangle(to, 0, 0, box.width, kShore);
    FillDown(to, 0, kShore, {0.18, 0.45, 0.78}, {0.93, 0.89, 0.80});
    Glow(to, {96, 30}, 34, {1.0, 0.86, 0.55}, 0.9);
    cairo_save(to);
    cairo_scale(to, 1, 0.4);
    for (const Point& puff : {Point{10, 20}, Point{19, 15}, Point{27, 20}, Point{60, 14},
                              Point{68, 10}, Point{77, 15}, Point{112, 22}}) {
        Glow(to, puff, 11, kPaper, 0.7);
    }
    cairo_restore(to);
    Range(to,
          {{-4, 36},
           {14, 22},
           {24, 29},
           {40, 14},
           {52, 26},
           {60, 22},
           {84, 38},
           {104, 27},
           {130, 38}},
          kShore, {0.45, 0.55, 0.72}, {0.72, 0.76, 0.82});
    Range(to, {{35.5, 18.5}, {40, 14}, {44.5, 18.5}, {42, 18}, {40, 20.5}, {38, 18}}, 18.5,
          {0.99, 0.99, 1.0}, {0.90, 0.93, 0.98});
    Range(to, {{-4, 41}, {10, 35}, {30, 40}, {48, 36}, {70, 42}, {96, 37}, {130, 42}}, kShore,
          {0.24, 0.41, 0.40}, {0.34, 0.50, 0.42});
    cairo_rectangle(to, 0, kShore, box.width, 14);
    FillDown(to, kShore, kShore + 14, {0.62, 0.74, 0.82}, {0.13, 0.36, 0.58});
    for (int i = 0; i < 5; ++i) {
        cairo_rectangle(to, 88 - 2 * i, kShore + 1 + 2.2 * i, 14 + 4 * i, 0.9);
        cairo_set_source_rgba(to, 1, 0.90, 0.66, 0.75 - 0.12 * i);
        cairo_fill(to);
    }
    cairo_move_to(to, 0, 50);
    cairo_curve_to(to, 38, 48, 62, 62, box.width, 55);
    cairo_line_to(to, box.width, box.height);
    cairo_line_to(to, 0, box.height);
    cairo_close_path(to);
    FillDown(to, 49, box.height, {0.55, 0.71, 0.29}, {0.20, 0.42, 0.15});
    Fir(to, 9, 57, 24);
    Fir(to, 20, 59, 17);
    Fir(to, 117, 61, 21);
    constexpr Color kFlowers[] = {{0.93, 0.25, 0.27}, {0.99, 0.84, 0.26}, {0.97, 0.97, 0.99}};
    for (int i = 0; i < 30; ++i) {
        Disc(to, 4 + i * 37 % 120, 60 + i * 11 % 6, 0.7, kFlowers[i % 3]);
    }
    cairo_restore(to);
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
    cairo_rectangle(to, box.x, box.y, box.width, box.height);
    FillDown(to, box.y, box.bottom(), {0.96, 0.91, 0.82}, {0.80, 0.66, 0.48});
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
    Scene(to, {inner.x, inner.y, inner.width, 66});
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
};

}  // namespace

std::span<const BitmapPicture> SamplePictures() {
    return kSamples;
}

}  // namespace draw
