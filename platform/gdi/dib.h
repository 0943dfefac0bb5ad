// Reading packed device-independent bitmaps (header, colour table, bits), as resources and sections
// hold them. Every access is checked against the size given.
#pragma once

#include <platform/gdi/objects.h>

#include <span>

namespace kv {

struct DibLayout {
    int width = 0;
    int height = 0;  // of the whole picture; an icon's counts both of its halves
    int bitsPerPixel = 0;
    bool topDown = false;
    std::array<std::uint32_t, 256> palette{};
    unsigned paletteSize = 0;
    std::size_t bitsOffset = 0;  // from the start of the header
};

// Bytes of one row, padded to 32 bits.
constexpr std::size_t DibRowBytes(int width, int bitsPerPixel) {
    return (static_cast<std::size_t>(width) * static_cast<std::size_t>(bitsPerPixel) + 31) / 32 * 4;
}

// Checks header and colour table; false for anything truncated, compressed or absurd.
bool ReadDibLayout(std::span<const BYTE> bytes, DibLayout& layout);

// Expands one row of pixels; the source row has DibRowBytes(width, bitsPerPixel) bytes. 32-bit
// pixels keep their top byte.
void ExpandDibRow(std::uint32_t* target, const BYTE* row, int width, int bitsPerPixel,
                  const std::uint32_t* palette);

// The bytes of a resource; empty with a last error when there is none.
std::span<const BYTE> ResourceBytes(HINSTANCE module, LPCSTR name, LPCSTR type);

// A bitmap object from a packed DIB; monochrome when it has one bit per pixel, black and white.
// Null with a last error when the bytes are not a picture.
std::unique_ptr<Bitmap> DecodeDib(std::span<const BYTE> bytes);

// An icon's picture (colour bits over a mask of half the given height).
std::unique_ptr<Icon> DecodeIconDib(std::span<const BYTE> bytes);

// The resource id of the picture of an icon group that serves `wanted` pixels best, 0 when there is
// none.
unsigned ChooseIcon(std::span<const BYTE> group, int wanted);

// Averages a picture into one of another size.
void ScalePicture(const SurfaceView& source, const SurfaceView& target);
std::unique_ptr<Icon> ScaleIcon(const SurfaceView& source, int width, int height);

}  // namespace kv
