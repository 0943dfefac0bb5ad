// One paint of the Paper View, beside pixman composing the same layers from pictures that it keeps
// decoded, and beside a plain copy of the bytes that the layers have.
#include <benchmark/benchmark.h>
#include <platform/window/paint.h>

#include <cstring>
#include <vector>

#include "preview/paper_view.h"
#include "preview/picture_set.h"
#include "preview/shared_view.h"
#include "bench/pixman_images.h"
#include "tests/module/preview/painted_sheet.h"

namespace {

using namespace kvui;
using namespace kvbench;

// Twelve layers: sheet, page, border, grid, four numbers, binding bar, overlay, arrow, labels.
struct Sheet : PaintedSheet {
    Sheet() {
        context.settings->dmColor = 2;
        PrivateDevmode& settings = *context.privateSettings;
        settings.mdmNup = 16;
        settings.mdmNupStyle = kNupBorder;
        settings.mdmDuplexMode = kDuplexLongEdge;
        settings.mdmOverlay = 1;
        frame = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, kView.cx, kView.cy, nullptr, nullptr,
                                nullptr, nullptr);
        HookPaperView(context, frame);
    }
    ~Sheet() { DestroyWindow(frame); }

    HWND frame{};
};

void PaperViewPaint(benchmark::State& state) {
    const Sheet sheet;
    const Screen screen;
    for (auto _ : state) kv::PaintWindow(sheet.frame, screen.dc);
}
BENCHMARK(PaperViewPaint)->Unit(benchmark::kMicrosecond);

struct PlacedImage {
    Image image;
    RECT box;
};

std::vector<PlacedImage> DecodedLayers(size_t* bytes) {
    const Sheet sheet;
    const SheetContext& context = sheet.context;
    const Screen screen;
    PictureSet pictures(context.resources, screen.dc);
    std::vector<PlacedImage> images;
    images.push_back({Decoded(context.resources, {13101, 0}), {0, 0, kView.cx, kView.cy}});
    for (const Layer& layer : PlanPaperView(PaperSettingsOf(context), kView, pictures)) {
        if (layer.kind != LayerKind::kPicture) continue;
        images.push_back({Decoded(context.resources, layer.id), layer.box});
    }
    *bytes = 0;
    for (const PlacedImage& placed : images) {
        *bytes += size_t{4} * (placed.box.right - placed.box.left) *
                  (placed.box.bottom - placed.box.top);
    }
    return images;
}

void PaperViewPixman(benchmark::State& state) {
    constexpr int kGlyphs = 36;  // of the four lines of the labels
    constexpr int kGlyphWidth = 6, kGlyphHeight = 9;
    size_t bytes = 0;
    const auto layers = DecodedLayers(&bytes);
    const Image view = NewImage(kView.cx, kView.cy), screen = NewImage(kView.cx, kView.cy);
    const pixman_color_t white{0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF};
    const Image ink(pixman_image_create_solid_fill(&white));
    const Image glyph(pixman_image_create_bits(PIXMAN_a8, kGlyphWidth, kGlyphHeight, nullptr, 0));
    std::memset(pixman_image_get_data(glyph.get()), 0x80, size_t{kGlyphHeight} * 8);
    const pixman_rectangle16_t whole{0, 0, kView.cx, kView.cy};
    for (auto _ : state) {
        pixman_image_fill_rectangles(PIXMAN_OP_SRC, view.get(), &white, 1, &whole);
        for (const PlacedImage& layer : layers) {
            pixman_image_composite32(&layer == layers.data() ? PIXMAN_OP_SRC : PIXMAN_OP_OVER,
                                     layer.image.get(), nullptr, view.get(), 0, 0, 0, 0,
                                     layer.box.left, layer.box.top,
                                     layer.box.right - layer.box.left,
                                     layer.box.bottom - layer.box.top);
        }
        for (int i = 0; i < kGlyphs; ++i) {
            pixman_image_composite32(PIXMAN_OP_OVER, ink.get(), glyph.get(), view.get(), 0, 0, 0, 0,
                                     5 + i % 9 * kGlyphWidth, 5 + i / 9 * 12, kGlyphWidth,
                                     kGlyphHeight);
        }
        pixman_image_composite32(PIXMAN_OP_SRC, view.get(), nullptr, screen.get(), 0, 0, 0, 0, 0, 0,
                                 kView.cx, kView.cy);
        benchmark::DoNotOptimize(pixman_image_get_data(screen.get()));
    }
}
BENCHMARK(PaperViewPixman)->Unit(benchmark::kMicrosecond);

void PaperViewCopy(benchmark::State& state) {
    size_t bytes = 0;
    DecodedLayers(&bytes);
    const std::vector<char> from(bytes, 1);
    std::vector<char> to(bytes);
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), bytes);
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
    state.counters["bytes"] = static_cast<double>(bytes);
}
BENCHMARK(PaperViewCopy)->Unit(benchmark::kMicrosecond);

}  // namespace
