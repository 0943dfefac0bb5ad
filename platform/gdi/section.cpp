// DIB sections: bitmaps whose bits the caller reads and writes in their own depth.
#include <platform/gdi/dib.h>

#include <algorithm>

namespace kv {
namespace {

BYTE NearestIndex(const std::array<std::uint32_t, 256>& palette, unsigned size,
                  std::uint32_t pixel) {
    unsigned best = 0, bestDistance = ~0u;
    for (unsigned i = 0; i < size; ++i) {
        unsigned distance = 0;
        for (int shift = 0; shift < 24; shift += 8) {
            const int difference = static_cast<int>(palette[i] >> shift & 0xFF) -
                                   static_cast<int>(pixel >> shift & 0xFF);
            distance += static_cast<unsigned>(difference * difference);
        }
        if (distance >= bestDistance) continue;
        best = i;
        bestDistance = distance;
        if (distance == 0) break;
    }
    return static_cast<BYTE>(best);
}

BYTE* SectionRow(SectionBits& section, int height, int y) {
    const int index = section.topDown ? y : height - 1 - y;
    return section.bits.data() + static_cast<std::ptrdiff_t>(index) * section.rowBytes;
}

void StoreRow(const SectionBits& section, BYTE* row, const std::uint32_t* pixels, int from,
              int to) {
    const int depth = section.bitsPerPixel;
    for (int x = from; x < to; ++x) {
        const std::uint32_t pixel = pixels[x] & kColorBits;
        if (depth == 24) {
            for (int c = 0; c < 3; ++c) row[x * 3 + c] = static_cast<BYTE>(pixel >> (8 * c));
            continue;
        }
        const BYTE index = NearestIndex(section.palette, 1u << depth, pixel);
        const int perByte = 8 / depth;
        const int shift = 8 - depth * (x % perByte + 1);
        const unsigned keep = ~(((1u << depth) - 1) << shift);
        row[x / perByte] =
            static_cast<BYTE>((row[x / perByte] & keep) | static_cast<unsigned>(index) << shift);
    }
}

}  // namespace

void LoadSection(Bitmap& bitmap) {
    if (!bitmap.section) return;
    SectionBits& section = *bitmap.section;
    for (int y = 0; y < bitmap.view.height; ++y) {
        ExpandDibRow(bitmap.view.Row(y), SectionRow(section, bitmap.view.height, y),
                     bitmap.view.width, section.bitsPerPixel, section.palette.data());
    }
}

void StoreSection(Bitmap& bitmap, const RECT& rect) {
    if (!bitmap.section) return;
    for (int y = rect.top; y < rect.bottom; ++y) {
        StoreRow(*bitmap.section, SectionRow(*bitmap.section, bitmap.view.height, y),
                 bitmap.view.Row(y), rect.left, rect.right);
    }
}

}  // namespace kv

using namespace kv;

extern "C" // Drawing is never put off here, so a section's bits are always up to date.
BOOL WINAPI GdiFlush() { return TRUE; }

HBITMAP WINAPI CreateDIBSection(HDC, const BITMAPINFO* info, UINT usage, LPVOID* bits,
                                           HANDLE section, DWORD) {
    if (bits != nullptr) *bits = nullptr;
    DibLayout layout;
    if (info == nullptr || usage != DIB_RGB_COLORS || section != nullptr ||
        info->bmiHeader.biSize != sizeof(BITMAPINFOHEADER)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    // The caller vouches for a colour table of the size its header states.
    const BITMAPINFOHEADER& header = info->bmiHeader;
    const std::size_t most = header.biBitCount <= 8 ? std::size_t{1} << header.biBitCount : 0;
    const std::size_t colors =
        header.biClrUsed != 0 && header.biClrUsed <= most ? header.biClrUsed : most;
    const std::span<const BYTE> bytes(reinterpret_cast<const BYTE*>(info),
                                      sizeof header + colors * sizeof(RGBQUAD));
    BITMAPINFOHEADER plain = header;
    plain.biClrUsed = static_cast<DWORD>(colors);
    std::vector<BYTE> copy(bytes.begin(), bytes.end());
    std::copy_n(reinterpret_cast<const BYTE*>(&plain), sizeof plain, copy.begin());
    if (!ReadDibLayout(copy, layout)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto bitmap = MakeBitmap(layout.width, layout.height);
    if (!bitmap) return nullptr;
    bitmap->isSection = true;
    LPVOID memory = bitmap->memory.get();
    if (layout.bitsPerPixel == 32) {
        // The surface is the section; bottom-up rows are walked backwards.
        if (!layout.topDown) {
            bitmap->view.pixels += static_cast<std::ptrdiff_t>(layout.height - 1) * layout.width;
            bitmap->view.stride = -layout.width;
        }
    } else {
        auto own = std::make_unique<SectionBits>();
        own->bitsPerPixel = layout.bitsPerPixel;
        own->rowBytes = static_cast<int>(DibRowBytes(layout.width, layout.bitsPerPixel));
        own->topDown = layout.topDown;
        own->palette = layout.palette;
        own->bits.resize(static_cast<std::size_t>(own->rowBytes) *
                         static_cast<std::size_t>(layout.height));
        memory = own->bits.data();
        bitmap->section = std::move(own);
    }
    if (bits != nullptr) *bits = memory;
    return NewHandle<HBITMAP>(std::move(bitmap));
}
