// The graphics objects behind the handles: bitmaps, brushes, pens, fonts, regions, icons and device
// contexts. Plain records; the calls that make and use them are in the .cpp files of this folder.
#pragma once

#include <platform/gdi/handles.h>
#include <platform/gdi/surface.h>

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kv {

class RealizedFont;

// Pixel value of a colour and back.
constexpr std::uint32_t PixelOf(COLORREF color) {
    return ((color & 0xFF) << 16) | (color & 0xFF00) | ((color >> 16) & 0xFF);
}
constexpr COLORREF ColorOf(std::uint32_t pixel) {
    return PixelOf(pixel);
}
constexpr std::uint32_t kWhitePixel = 0x00FFFFFF;
constexpr std::uint32_t kColorBits = 0x00FFFFFF;

// Larger bitmaps than this in either direction are refused.
constexpr int kMaxSide = 32767;

// Pixels; several bitmaps may have the same ones until one of them is drawn on (OwnPixels).
using PixelMemory = std::shared_ptr<std::uint32_t[]>;
// What new pixels hold; callers that write every pixel need not have them cleared.
enum class NewPixels { kBlack, kAnything };
PixelMemory AllocatePixels(int width, int height, NewPixels content = NewPixels::kBlack);

// The caller's bits of a section that is not 32 bits deep: the surface is brought up to date from
// them before each use and written back after each drawing.
struct SectionBits {
    std::vector<BYTE> bits;
    int bitsPerPixel = 0;
    int rowBytes = 0;
    bool topDown = false;
    std::array<std::uint32_t, 256> palette{};
};

struct Bitmap : GdiObject {
    static constexpr ObjectKind kKind = ObjectKind::kBitmap;
    Bitmap() : GdiObject(kKind) {}

    SurfaceView view;
    PixelMemory memory;
    bool monochrome = false;  // pixels are black or white and take the colours of the DC drawn to
    bool isSection = false;
    std::unique_ptr<SectionBits> section;
};

struct Brush : GdiObject {
    static constexpr ObjectKind kKind = ObjectKind::kBrush;
    Brush() : GdiObject(kKind) {}

    enum class Style { kSolid, kNull, kPattern };
    Style style = Style::kSolid;
    COLORREF color = 0;
    std::unique_ptr<Bitmap> pattern;
};

struct Pen : GdiObject {
    static constexpr ObjectKind kKind = ObjectKind::kPen;
    Pen() : GdiObject(kKind) {}

    bool null = false;
    int width = 1;
    COLORREF color = 0;
};

struct Font : GdiObject {
    static constexpr ObjectKind kKind = ObjectKind::kFont;
    Font() : GdiObject(kKind) {}

    LOGFONTA description{};
    std::shared_ptr<RealizedFont> realized;  // on first use
};

struct Region : GdiObject {
    static constexpr ObjectKind kKind = ObjectKind::kRegion;
    Region() : GdiObject(kKind) {}

    RECT rect{};
};

struct Icon : GdiObject {
    static constexpr ObjectKind kKind = ObjectKind::kIcon;
    Icon() : GdiObject(kKind) {}

    SurfaceView view;
    PixelMemory memory;
    // The resource that it was loaded from: a name, or "#" and a number. Empty for made icons.
    HINSTANCE module{};
    std::string resource;
};

struct DcState {
    HBITMAP bitmap{};
    HBRUSH brush{};
    HPEN pen{};
    HFONT font{};
    std::optional<RECT> clip;  // relative to the DC's origin
    COLORREF textColor = RGB(0, 0, 0);
    COLORREF backColor = RGB(255, 255, 255);
    int backMode = OPAQUE;
    UINT textAlign = TA_LEFT;
    int stretchMode = BLACKONWHITE;
    POINT position{};
};

struct Dc : GdiObject {
    static constexpr ObjectKind kKind = ObjectKind::kDc;
    Dc() : GdiObject(kKind) {}

    DcState state;
    std::vector<DcState> saved;
    bool isScreen = false;     // for measuring: nobody draws on the screen itself
    std::optional<RECT> area;  // part of the surface that the DC stands for
};

// A fresh bitmap, or null with ERROR_INVALID_PARAMETER or ERROR_NOT_ENOUGH_MEMORY.
std::unique_ptr<Bitmap> MakeBitmap(int width, int height, NewPixels content = NewPixels::kBlack);
// Another bitmap with the same content, which costs no copy of the pixels.
std::unique_ptr<Bitmap> ShareBitmap(Bitmap& bitmap);
// Must come before every change of a bitmap's pixels: a bitmap that shares them gets its own. False
// with ERROR_NOT_ENOUGH_MEMORY.
bool OwnPixels(Bitmap& bitmap);
// Brings a section's surface up to date from its bits, and its bits from the surface.
void LoadSection(Bitmap& bitmap);
void StoreSection(Bitmap& bitmap, const RECT& rect);

}  // namespace kv
