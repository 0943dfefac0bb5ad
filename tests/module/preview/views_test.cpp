// The colour sample's adjustments, the window hook of the views, and a panel that cannot be made.
#include <cstdio>
#include <gtest/gtest.h>
#include <platform/display/headless.h>
#include <platform/window/input.h>
#include <platform/window/paint.h>

#include "preview/colour_sample.h"
#include "preview/shared_view.h"
#include "tests/module/preview/painted_sheet.h"
#include "tests/support/controls.h"

namespace kvui {
namespace {

TEST(ColourSample, EachAdjustmentDoesWhatItIsCalled) {
    const DWORD dark = 0x404040, red = 0xC04040;
    const struct { ImageAdjustment adjustment; DWORD from, to; } rows[] = {
        {{0, 0, 0, 0, false},     red,      red},
        {{0, 0, -50, 0, false},   red,      0x666666},
        {{0, 0, 0, 0, true},      red,      0x666666},
        {{0, 0, 50, 0, true},     red,      0x666666},
        {{0, 0, 50, 0, false},    red,      0xFF1A1A},
        {{-50, 0, 0, 0, false},   dark,     0x606060},
        {{50, 0, 0, 0, false},    dark,     0x000000},
        {{0, 50, 0, 0, false},    dark,     0xA0A0A0},
        {{0, -50, 0, 0, false},   dark,     0x000000},
        {{0, 25, 0, 0, false},    0xFFFFFF, 0xFFFFFF},
        {{9999, 0, 0, 0, false},  dark,     0x000000},
        {{0, -9999, 0, 0, false}, 0xFFFFFF, 0x9F9F9F},
        {{0, 0, 0, 100, false},   red,      red},  // nothing to sharpen in an even area
    };
    for (const auto& row : rows) {
        std::vector<DWORD> pixels(25, row.from);
        AdjustImage(row.adjustment, pixels.data(), 5, 5);
        for (const DWORD pixel : pixels) ASSERT_EQ(pixel, row.to) << &row - rows;
    }
}

TEST(ColourSample, SharpnessDeepensEdgesAndSparesTheRest) {
    std::vector<DWORD> pixels(12);
    for (int i = 0; i < 12; ++i) pixels[i] = i % 6 < 3 ? 0x606060 : 0xA0A0A0;
    AdjustImage({0, 0, 0, 50, false}, pixels.data(), 6, 2);
    for (const int row : {0, 6}) {
        EXPECT_EQ(pixels[row], 0x606060u);
        EXPECT_EQ(pixels[row + 5], 0xA0A0A0u);
        EXPECT_LT(pixels[row + 2], 0x606060u);
        EXPECT_GT(pixels[row + 3], 0xA0A0A0u);
    }
}

TEST(ColourSample, TheViewShowsEverySliderAndTheSampleMode) {
    PaintedSheet sheet;
    sheet.shared.preview.sampleMode = kSampleColour;
    const auto with = [&](const char* field, DWORD value) {
        const DWORD before = sheet.Get(field);
        sheet.Set(field, value);
        const Pixels pixels = sheet.Paint(PaintColourSample);
        sheet.Set(field, before);
        return pixels;
    };
    sheet.Set("UnsharpMask", 0);
    const Pixels plain = sheet.Paint(PaintColourSample);
    for (const char* field : {"Contrast", "Lightness", "Saturation", "UnsharpMask"}) {
        EXPECT_FALSE(with(field, 30) == plain) << field;
        EXPECT_FALSE(with(field, 30) == with(field, 50)) << field;
    }
    sheet.shared.preview.sampleMode = kSampleMonochrome;
    const Pixels grey = sheet.Paint(PaintColourSample);
    for (int y = 20; y < 170; ++y) {
        const DWORD pixel = grey.At(80, y);
        ASSERT_EQ(pixel, (pixel & 0xFF) * 0x010101) << y;
    }
}

bool destroyed;

LRESULT CALLBACK InnerProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY) {
        destroyed = true;
        EXPECT_EQ(GetWindowLongPtrA(window, GWLP_WNDPROC), reinterpret_cast<LONG_PTR>(InnerProc));
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

void PaintBlue(SheetContext&, HDC dc, SIZE size) {
    const HBRUSH brush = CreateSolidBrush(RGB(0, 0, 255));
    const RECT all{0, 0, size.cx, size.cy};
    FillRect(dc, &all, brush);
    DeleteObject(brush);
}
void PaintNothing(SheetContext&, HDC, SIZE) {}
void SayBlue(SheetContext&, char* text, std::size_t size) {
    std::snprintf(text, size, "Blue");
}
void SayNothing(SheetContext&, char*, std::size_t) {}

TEST(ViewHook, PaintsTheLastPainterAndGivesTheProcedureBack) {
    ScratchSheet sheet;
    const HWND frame = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 8, 6, nullptr, nullptr,
                                       nullptr, nullptr);
    SetWindowLongPtrA(frame, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(InnerProc));
    HookView(frame, sheet.context, {PaintNothing, SayNothing});
    HookView(frame, sheet.context, {PaintBlue, SayBlue});
    char words[4] = "";
    EXPECT_EQ(GetWindowTextLengthA(frame), 4);
    EXPECT_EQ(GetWindowTextA(frame, words, sizeof words), 3);
    EXPECT_STREQ(words, "Blu");
    const kvtest::Canvas canvas(8, 6);
    EXPECT_EQ(kv::PaintWindow(frame, canvas.dc), kv::Painting::kSelf);
    for (const POINT edge : {POINT{1, 5}, {7, 1}}) {
        EXPECT_EQ(GetPixel(canvas.dc, edge.x, edge.y), GetSysColor(COLOR_3DDKSHADOW)) << edge.x;
    }
    for (const POINT inside : {POINT{2, 2}, {7, 5}}) {
        EXPECT_EQ(canvas.Read().At(inside.x, inside.y), 0x0000FFu) << inside.x;
    }
    // An empty view is painted as nothing, and is no error.
    SetWindowPos(frame, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(kv::PaintWindow(frame, canvas.dc), kv::Painting::kSelf);
    destroyed = false;
    DestroyWindow(frame);
    EXPECT_TRUE(destroyed);
}

TEST(SharedView, APanelThatCannotBeMadeIsReportedOnce) {
    ScratchSheet sheet;
    sheet.context.page = kvtest::Make("STATIC");
    sheet.context.resources = GetModuleHandleA("libkvplatform.so");
    std::string box;
    kv::Headless().PushAnswer([&](HWND dialog) {
        box = kvtest::Text(dialog) + ": " + kvtest::Text(dialog, 0xFFFF);
        kv::input::Click(GetDlgItem(dialog, IDOK));
    });
    CreateSharedView(sheet.context);
    EXPECT_EQ(box, "CreateDialog Result: CommonViewDialog Failed");
    EXPECT_EQ(sheet.shared.preview.panel, nullptr);
    // Everything else goes on without a panel.
    ShowViewKind(sheet.context, kViewQuality);
    AttachSharedView(sheet.context);
    UpdateSharedView(sheet.context);
    SetSampleMode(sheet.context, kSampleMonochrome);
    DestroySharedView(sheet.shared);
    DestroyWindow(sheet.context.page);
}

}  // namespace
}  // namespace kvui
