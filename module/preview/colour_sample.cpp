// Image adjustments on the sample photograph.
#include "preview/colour_sample.h"

#include <algorithm>
#include <vector>

#include "preview/gdi_scope.h"
#include "preview/shared_view.h"
#include "preview/view_hook.h"
#include "resources/picture_ids.h"

namespace kvui {
namespace {

constexpr int kShadow = 3;  // of the print on the ground

// Fixed point: 256 is one.
constexpr int kOne = 256;

int Clamped(int value) { return std::clamp(value, 0, 255); }
int Channel(DWORD pixel, int shift) { return static_cast<int>(pixel >> shift & 0xFF); }

int GreyOf(DWORD pixel) {
    // Weights of red, green and blue in the brightness that is seen; their sum is 256.
    return (77 * Channel(pixel, 16) + 150 * Channel(pixel, 8) + 29 * Channel(pixel, 0)) / kOne;
}

// Contrast turns around middle grey, brightness moves all; both are the same for every channel, so
// a table serves.
struct ToneCurve {
    BYTE levels[256];
    ToneCurve(int contrast, int lightness) {
        // Half the contrast at -50, double at +50.
        const int slope = contrast < 0 ? kOne + contrast * kOne / 100 : kOne + contrast * kOne / 50;
        for (int i = 0; i < 256; ++i) {
            levels[i] = static_cast<BYTE>(
                Clamped(128 + (i - 128) * slope / kOne + lightness * 96 / 50));
        }
    }
};

void AdjustTones(const ImageAdjustment& adjustment, DWORD* pixels, int count) {
    const int contrast = std::clamp<LONG>(adjustment.contrast, -50, 50);
    const int lightness = std::clamp<LONG>(adjustment.lightness, -50, 50);
    const int saturation =
        adjustment.monochrome ? 0 : kOne + std::clamp<LONG>(adjustment.saturation, -50, 50) * kOne / 50;
    const ToneCurve curve(contrast, lightness);
    for (int i = 0; i < count; ++i) {
        const int grey = GreyOf(pixels[i]);
        DWORD result = 0;
        for (int shift = 0; shift < 24; shift += 8) {
            const int coloured = grey + (Channel(pixels[i], shift) - grey) * saturation / kOne;
            result |= static_cast<DWORD>(curve.levels[Clamped(coloured)]) << shift;
        }
        pixels[i] = result;
    }
}

// Adds what distinguishes a pixel from the mean of its neighbourhood.
void Sharpen(int sharpness, DWORD* pixels, int width, int height) {
    constexpr int kFullStrength = 2 * kOne;
    const int strength = std::clamp(sharpness, 0, 100) * kFullStrength / 100;
    if (strength == 0 || width <= 0 || height <= 0) return;
    const std::vector<DWORD> before(pixels, pixels + static_cast<size_t>(width) * height);
    const auto at = [&](int x, int y) {
        return before[static_cast<size_t>(std::clamp(y, 0, height - 1)) * width +
                      std::clamp(x, 0, width - 1)];
    };
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            DWORD result = 0;
            for (int shift = 0; shift < 24; shift += 8) {
                int sum = 0;
                for (int dy = -1; dy <= 1; ++dy) {
                    for (int dx = -1; dx <= 1; ++dx) sum += Channel(at(x + dx, y + dy), shift);
                }
                const int own = Channel(at(x, y), shift);
                const int sharp = own + (own * 9 - sum) * strength / (9 * kOne);
                result |= static_cast<DWORD>(Clamped(sharp)) << shift;
            }
            pixels[static_cast<size_t>(y) * width + x] = result;
        }
    }
}

// The photograph as pixels from the top down.
class Photograph {
   public:
    Photograph(HINSTANCE module, HDC like) {
        const OwnedObject<HBITMAP> picture(LoadBitmapA(module, MAKEINTRESOURCEA(IDB_SAMPLE_COLOR)));
        BITMAP description{};
        if (!picture || GetObjectA(picture.get(), sizeof description, &description) == 0) return;
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = description.bmWidth;
        info.bmiHeader.biHeight = -description.bmHeight;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        LPVOID bits = nullptr;
        section_ = CreateDIBSection(like, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        if (section_ == nullptr) return;
        pixels_ = static_cast<DWORD*>(bits);
        size_ = {description.bmWidth, description.bmHeight};
        const MemoryDc source(like), target(like);
        const Selection sourceBitmap(source.get(), picture.get());
        const Selection targetBitmap(target.get(), section_);
        BitBlt(target.get(), 0, 0, size_.cx, size_.cy, source.get(), 0, 0, SRCCOPY);
        GdiFlush();
    }
    ~Photograph() {
        if (section_ != nullptr) DeleteObject(section_);
    }
    Photograph(const Photograph&) = delete;
    Photograph& operator=(const Photograph&) = delete;

    explicit operator bool() const { return section_ != nullptr; }
    HBITMAP bitmap() const { return section_; }
    DWORD* pixels() const { return pixels_; }
    SIZE size() const { return size_; }

   private:
    HBITMAP section_ = nullptr;
    DWORD* pixels_ = nullptr;
    SIZE size_{};
};

void FillBox(HDC dc, const RECT& box, COLORREF colour) {
    const OwnedObject<HBRUSH> brush(CreateSolidBrush(colour));
    if (brush) FillRect(dc, &box, brush.get());
}

}  // namespace

void AdjustImage(const ImageAdjustment& adjustment, DWORD* pixels, int width, int height) {
    AdjustTones(adjustment, pixels, width * height);
    Sharpen(adjustment.sharpness, pixels, width, height);
}

void PaintColourSample(SheetContext& context, HDC dc, SIZE size) {
    constexpr COLORREF kShadowColour = RGB(30, 42, 58);
    PaintGround(context, dc, size);
    const Photograph photograph(context.resources, dc);
    if (!photograph) return;
    const PrivateDevmode& settings = *context.privateSettings;
    const SIZE picture = photograph.size();
    AdjustImage({settings.Contrast, settings.Lightness, settings.Saturation, settings.UnsharpMask,
                 context.shared->preview.sampleMode == kSampleMonochrome},
                photograph.pixels(), picture.cx, picture.cy);
    const int x = (size.cx - picture.cx) / 2;
    const int y = (size.cy - picture.cy) / 2;
    FillBox(dc, {x + kShadow, y + kShadow, x + picture.cx + kShadow, y + picture.cy + kShadow},
            kShadowColour);
    const MemoryDc source(dc);
    const Selection selection(source.get(), photograph.bitmap());
    BitBlt(dc, x, y, picture.cx, picture.cy, source.get(), 0, 0, SRCCOPY);
}

}  // namespace kvui
