// Watermarks: the editor's preview while a slider is dragged, and the Watermark View with a short
// text repeated over the page, each beside Cairo drawing the same texts.
#include <benchmark/benchmark.h>
#include <cairo.h>
#include <platform/window/paint.h>

#include <cmath>
#include <cstring>
#include <memory>

#include "bench/pixman_images.h"
#include "preview/view_hook.h"
#include "preview/watermark_preview.h"
#include "preview/watermark_view.h"
#include "tests/module/preview/painted_sheet.h"

namespace {

using namespace kvui;
using namespace kvbench;

constexpr SIZE kPage{115, 163};  // A4 in the editor
constexpr int kScale = 14;       // its pixels per inch
constexpr double kAngle = 54;
constexpr char kLongText[] = "Watermark String";
constexpr char kShortText[] = "X";

struct Frame {
    explicit Frame(SIZE size)
        : window(CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, size.cx, size.cy, nullptr,
                                 nullptr, nullptr, nullptr)) {}
    ~Frame() { DestroyWindow(window); }
    HWND window;
};

WatermarkRecord Watermark(const char* text, DWORD size) {
    WatermarkRecord record{};
    std::strcpy(record.text, text);
    std::strcpy(record.typeface, "Liberation Serif");
    record.size = size;
    record.red = record.green = record.blue = 204;
    record.angle = static_cast<LONG>(kAngle);
    record.angleMode = 4;
    return record;
}

void WatermarkDrag(benchmark::State& state) {
    PaintedSheet sheet;
    sheet.context.settings->dmPaperSize = 9;
    WatermarkEdit edit{};
    edit.record = Watermark(kLongText, 72);
    edit.paper = WatermarkPaperOf(sheet.context);
    sheet.shared.lists.watermarkEdit = &edit;
    const Frame frame(edit.paper.size);
    HookView(frame.window, sheet.context,
             {[](SheetContext& context, HDC dc, SIZE size) {
                  DrawWatermarkPreview(context, *context.shared->lists.watermarkEdit, dc, size);
              },
              nullptr, ViewEdge::kNone});
    const Screen screen;
    const WatermarkAxis axis{edit.paper.scale, edit.paper.size.cx};
    for (LONG percent = -50; auto _ : state) {
        edit.record.offsetX = axis.OffsetOfSlider(percent);
        percent = percent == 50 ? -50 : percent + 1;
        kv::PaintWindow(frame.window, screen.dc);
    }
    sheet.shared.lists.watermarkEdit = nullptr;
}
BENCHMARK(WatermarkDrag)->Unit(benchmark::kMicrosecond);

class CairoPage {
 public:
    CairoPage(SIZE size, double pixels)
        : surface_(cairo_image_surface_create(CAIRO_FORMAT_RGB24, size.cx, size.cy)),
          page_(cairo_create(surface_)) {
        cairo_select_font_face(page_, "Liberation Serif", CAIRO_FONT_SLANT_NORMAL,
                               CAIRO_FONT_WEIGHT_NORMAL);
        cairo_set_font_size(page_, pixels);
    }
    ~CairoPage() {
        cairo_destroy(page_);
        cairo_surface_destroy(surface_);
    }
    CairoPage(const CairoPage&) = delete;
    CairoPage& operator=(const CairoPage&) = delete;

    void Clear() {
        cairo_set_source_rgb(page_, 1, 1, 1);
        cairo_paint(page_);
        cairo_set_source_rgb(page_, 0.8, 0.8, 0.8);
    }
    void Draw(const char* text, double x, double y) {
        cairo_save(page_);
        cairo_translate(page_, x, y);
        cairo_rotate(page_, -kAngle * M_PI / 180);
        cairo_move_to(page_, 0, 0);
        cairo_show_text(page_, text);
        cairo_restore(page_);
    }
    cairo_text_extents_t Extents(const char* text) {
        cairo_text_extents_t extents;
        cairo_text_extents(page_, text, &extents);
        return extents;
    }

 private:
    cairo_surface_t* surface_;
    cairo_t* page_;
};

void WatermarkDragCairo(benchmark::State& state) {
    CairoPage page(kPage, kScale);
    for (int x = 0; auto _ : state) {
        page.Clear();
        page.Draw(kLongText, x, kPage.cy / 2);
        x = x == 100 ? 0 : x + 1;
    }
}
BENCHMARK(WatermarkDragCairo)->Unit(benchmark::kMicrosecond);

void WatermarkRepeat(benchmark::State& state) {
    PaintedSheet sheet;
    sheet.context.settings->dmPaperSize = 9;
    WatermarkRecord record = Watermark(kShortText, 8);
    record.id = 128;
    const ListHandle list = sheet.shared.lists.handles[kListWatermark];
    QDMMLTAddWatermark(list, &sheet.printer, &record, kScopeCommon);
    sheet.context.privateSettings->mdmWatermark = record.id;
    sheet.context.privateSettings->mdmWatermarkMode = kWatermarkRepeat;
    const Frame frame(kView);
    HookView(frame.window, sheet.context, {PaintWatermarkView, nullptr});
    const Screen screen;
    for (auto _ : state) kv::PaintWindow(frame.window, screen.dc);
}
BENCHMARK(WatermarkRepeat)->Unit(benchmark::kMicrosecond);

// The smallest font of the view, its steps by the same rule.
void WatermarkRepeatCairo(benchmark::State& state) {
    constexpr double kSmallest = 3, kSpread = 1.1;
    CairoPage page(kView, kSmallest);
    const cairo_text_extents_t extents = page.Extents(kShortText);
    const double step = std::max(1.0, std::floor((extents.x_advance + kSmallest) * kSpread));
    for (auto _ : state) {
        page.Clear();
        for (double x = 0; x < kView.cx; x += step) {
            for (double y = 0; y < kView.cy; y += step) page.Draw(kShortText, x, y);
        }
    }
}
BENCHMARK(WatermarkRepeatCairo)->Unit(benchmark::kMicrosecond);

}  // namespace
