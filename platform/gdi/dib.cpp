// Decoding of device-independent bitmaps and icon pictures.
#include <platform/gdi/dib.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>

namespace kv {
namespace {

template <typename Value>
Value ReadAt(std::span<const BYTE> bytes, std::size_t offset) {
    Value value;
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
}

bool Refuse() {
    SetLastError(ERROR_RESOURCE_DATA_NOT_FOUND);
    return false;
}

bool IsKnownDepth(int bits) {
    return bits == 1 || bits == 4 || bits == 8 || bits == 24 || bits == 32;
}

template <int Bits>
void ExpandIndexed(std::uint32_t* target, const BYTE* row, int width,
                   const std::uint32_t* palette) {
    constexpr int kPerByte = 8 / Bits;
    constexpr unsigned kIndexMask = (1u << Bits) - 1;
    int x = 0;
    for (; x + kPerByte <= width; x += kPerByte) {
        const unsigned packed = *row++;
        for (int i = 0; i < kPerByte; ++i) {
            target[x + i] = palette[packed >> (8 - Bits * (i + 1)) & kIndexMask];
        }
    }
    for (int i = 0; x < width; ++x, ++i) {
        target[x] = palette[*row >> (8 - Bits * (i + 1)) & kIndexMask];
    }
}

// Pictures have long runs of one colour, which need no look at the palette for every pixel.
void ExpandBytes(std::uint32_t* __restrict target, const BYTE* __restrict row, int width,
                 const std::uint32_t* __restrict palette) {
    constexpr int kBlock = sizeof(std::uint64_t);
    int x = 0;
    for (; x + kBlock <= width; x += kBlock) {
        std::uint64_t block;
        std::memcpy(&block, row + x, sizeof block);
        const bool oneColour = block == std::rotl(block, 8);
        if (oneColour) {
            std::fill_n(target + x, kBlock, palette[row[x]]);
        } else {
            for (int i = 0; i < kBlock; ++i) target[x + i] = palette[row[x + i]];
        }
    }
    for (; x < width; ++x) target[x] = palette[row[x]];
}

bool IsBlackAndWhite(const DibLayout& layout) {
    if (layout.bitsPerPixel != 1) return false;
    const std::uint32_t a = layout.palette[0], b = layout.palette[1];
    return (a == 0 && b == kWhitePixel) || (a == kWhitePixel && b == 0);
}

// The row of the bits that holds picture row y of `height` rows.
const BYTE* DibRow(std::span<const BYTE> bits, const DibLayout& layout, int height, int y) {
    const int index = layout.topDown ? y : height - 1 - y;
    return bits.data() +
           static_cast<std::size_t>(index) * DibRowBytes(layout.width, layout.bitsPerPixel);
}

}  // namespace

bool ReadDibLayout(std::span<const BYTE> bytes, DibLayout& layout) {
    if (bytes.size() < sizeof(BITMAPINFOHEADER)) return Refuse();
    const auto header = ReadAt<BITMAPINFOHEADER>(bytes, 0);
    if (header.biSize < sizeof header || header.biSize > bytes.size()) return Refuse();
    const std::int64_t height = std::abs(std::int64_t{header.biHeight});
    if (header.biWidth <= 0 || header.biWidth > kMaxSide || height == 0 || height > 2 * kMaxSide ||
        !IsKnownDepth(header.biBitCount) || header.biCompression != BI_RGB) {
        return Refuse();
    }
    layout.width = header.biWidth;
    layout.height = static_cast<int>(height);
    layout.bitsPerPixel = header.biBitCount;
    layout.topDown = header.biHeight < 0;

    const std::size_t most = header.biBitCount <= 8 ? std::size_t{1} << header.biBitCount : 0;
    std::size_t colors = header.biClrUsed != 0 ? header.biClrUsed : most;
    // Deep pictures may carry a table of suggestions, which only has to be skipped.
    if (most != 0 && colors > most) return Refuse();
    if (colors > (bytes.size() - header.biSize) / sizeof(RGBQUAD)) return Refuse();
    layout.paletteSize = static_cast<unsigned>(std::min(colors, most));
    for (std::size_t i = 0; i < layout.paletteSize; ++i) {
        layout.palette[i] =
            ReadAt<std::uint32_t>(bytes, header.biSize + i * sizeof(RGBQUAD)) & kColorBits;
    }
    layout.bitsOffset = header.biSize + colors * sizeof(RGBQUAD);
    return true;
}

void ExpandDibRow(std::uint32_t* target, const BYTE* row, int width, int bitsPerPixel,
                  const std::uint32_t* palette) {
    switch (bitsPerPixel) {
        case 1:
            ExpandIndexed<1>(target, row, width, palette);
            break;
        case 4:
            ExpandIndexed<4>(target, row, width, palette);
            break;
        case 8:
            ExpandBytes(target, row, width, palette);
            break;
        case 24:
            for (int x = 0; x < width; ++x, row += 3) {
                target[x] = row[0] | std::uint32_t{row[1]} << 8 | std::uint32_t{row[2]} << 16;
            }
            break;
        default:
            std::memcpy(target, row, static_cast<std::size_t>(width) * 4);
            break;
    }
}

std::span<const BYTE> ResourceBytes(HINSTANCE module, LPCSTR name, LPCSTR type) {
    const HRSRC resource = FindResourceA(module, name, type);
    if (resource == nullptr) return {};
    const LPVOID data = LockResource(LoadResource(module, resource));
    if (data == nullptr) return {};
    return {static_cast<const BYTE*>(data), SizeofResource(module, resource)};
}

std::unique_ptr<Bitmap> DecodeDib(std::span<const BYTE> bytes) {
    DibLayout layout;
    if (!ReadDibLayout(bytes, layout)) return nullptr;
    const std::span<const BYTE> bits = bytes.subspan(layout.bitsOffset);
    const std::size_t rowBytes = DibRowBytes(layout.width, layout.bitsPerPixel);
    if (bits.size() / rowBytes < static_cast<std::size_t>(layout.height)) {
        Refuse();
        return nullptr;
    }
    auto bitmap = MakeBitmap(layout.width, layout.height, NewPixels::kAnything);
    if (!bitmap) return nullptr;
    bitmap->monochrome = IsBlackAndWhite(layout);
    for (int y = 0; y < layout.height; ++y) {
        ExpandDibRow(bitmap->view.Row(y), DibRow(bits, layout, layout.height, y), layout.width,
                     layout.bitsPerPixel, layout.palette.data());
    }
    return bitmap;
}

std::unique_ptr<Icon> DecodeIconDib(std::span<const BYTE> bytes) {
    DibLayout layout;
    if (!ReadDibLayout(bytes, layout)) return nullptr;
    const int height = layout.height / 2;
    const std::span<const BYTE> bits = bytes.subspan(layout.bitsOffset);
    const std::size_t maskRowBytes = DibRowBytes(layout.width, 1);
    const std::size_t colorBytes =
        DibRowBytes(layout.width, layout.bitsPerPixel) * static_cast<std::size_t>(height);
    if (height == 0 || height > kMaxSide ||
        bits.size() < colorBytes + maskRowBytes * static_cast<std::size_t>(height)) {
        Refuse();
        return nullptr;
    }
    auto icon = std::make_unique<Icon>();
    icon->memory = AllocatePixels(layout.width, height);
    if (!icon->memory) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    icon->view = {icon->memory.get(), layout.width, height, layout.width};
    std::uint32_t anyAlpha = 0;
    for (int y = 0; y < height; ++y) {
        std::uint32_t* row = icon->view.Row(y);
        ExpandDibRow(row, DibRow(bits, layout, height, y), layout.width, layout.bitsPerPixel,
                     layout.palette.data());
        for (int x = 0; x < layout.width; ++x) anyAlpha |= row[x] >> 24;
    }
    // Alpha counts only at 32 bits, and only if there is any; otherwise the mask decides.
    if (anyAlpha != 0) return icon;
    const std::span<const BYTE> mask = bits.subspan(colorBytes);
    for (int y = 0; y < height; ++y) {
        const int maskRow = layout.topDown ? y : height - 1 - y;
        const BYTE* row = mask.data() + maskRowBytes * static_cast<std::size_t>(maskRow);
        for (int x = 0; x < layout.width; ++x) {
            const bool transparent = (row[x / 8] >> (7 - x % 8) & 1) != 0;
            icon->view.Row(y)[x] |= transparent ? 0 : 0xFF000000u;
        }
    }
    return icon;
}

}  // namespace kv
