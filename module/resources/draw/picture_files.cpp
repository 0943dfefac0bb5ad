// Icon and bitmap files. Both hold device-independent bitmaps, whose rows go from the bottom up and
// are padded to four bytes; an icon's bitmap has twice the height because a mask follows the
// colours.
#include "picture_files.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>

namespace draw {
namespace {

constexpr std::uint32_t kColorBits = 0xFFFFFF;
constexpr std::uint32_t kInfoHeader = 40;
constexpr std::uint32_t kFileHeader = 14;
constexpr std::uint32_t kIconHeader = 6;
constexpr std::uint32_t kIconEntry = 16;

class Bytes {
 public:
    void Word(unsigned value) {
        data.push_back(static_cast<unsigned char>(value));
        data.push_back(static_cast<unsigned char>(value >> 8));
    }
    void Dword(std::uint32_t value) {
        Word(value & 0xFFFF);
        Word(value >> 16);
    }
    void PadTo4(std::size_t rowStart) {
        while ((data.size() - rowStart) % 4 != 0) data.push_back(0);
    }
    bool WriteTo(const std::string& path) const {
        std::FILE* file = std::fopen(path.c_str(), "wb");
        if (!file) return false;
        const bool written = std::fwrite(data.data(), 1, data.size(), file) == data.size();
        return std::fclose(file) == 0 && written;
    }
    std::vector<unsigned char> data;
};

std::uint32_t PixelAt(cairo_surface_t* image, int x, int y) {
    const unsigned char* row =
        cairo_image_surface_get_data(image) + y * cairo_image_surface_get_stride(image);
    return reinterpret_cast<const std::uint32_t*>(row)[x];
}

// Icons hold colours that are not multiplied by their coverage.
std::uint32_t Straight(std::uint32_t pixel) {
    const std::uint32_t alpha = pixel >> 24;
    if (alpha == 0) return 0;
    std::uint32_t result = alpha << 24;
    for (int shift = 0; shift < 24; shift += 8) {
        const std::uint32_t channel = (pixel >> shift) & 0xFF;
        result |= ((channel * 255 + alpha / 2) / alpha) << shift;
    }
    return result;
}

void InfoHeader(Bytes& bytes, int width, int height, int bits, std::size_t colors = 0) {
    bytes.Dword(kInfoHeader);
    bytes.Dword(static_cast<std::uint32_t>(width));
    bytes.Dword(static_cast<std::uint32_t>(height));
    bytes.Word(1);
    bytes.Word(static_cast<unsigned>(bits));
    for (int i = 0; i < 4; ++i) bytes.Dword(0);
    bytes.Dword(static_cast<std::uint32_t>(colors));
    bytes.Dword(0);
}

// The image's colours in ascending order; none when they are more than a palette holds.
std::vector<std::uint32_t> PaletteOf(cairo_surface_t* image) {
    constexpr std::size_t kMost = 256;
    std::vector<std::uint32_t> palette;
    for (int y = 0; y < cairo_image_surface_get_height(image); ++y) {
        for (int x = 0; x < cairo_image_surface_get_width(image); ++x) {
            const std::uint32_t color = PixelAt(image, x, y) & kColorBits;
            const auto at = std::lower_bound(palette.begin(), palette.end(), color);
            if (at != palette.end() && *at == color) continue;
            if (palette.size() == kMost) return {};
            palette.insert(at, color);
        }
    }
    return palette;
}

Bytes IconImage(cairo_surface_t* image) {
    const int size = cairo_image_surface_get_width(image);
    Bytes bytes;
    InfoHeader(bytes, size, size * 2, 32);
    for (int y = size - 1; y >= 0; --y) {
        for (int x = 0; x < size; ++x) bytes.Dword(Straight(PixelAt(image, x, y)));
    }
    for (int y = size - 1; y >= 0; --y) {
        const std::size_t rowStart = bytes.data.size();
        unsigned char packed = 0;
        for (int x = 0; x < size; ++x) {
            const bool clear = PixelAt(image, x, y) >> 24 < 0x80;
            packed = static_cast<unsigned char>(packed << 1 | (clear ? 1 : 0));
            if (x % 8 == 7) bytes.data.push_back(packed);
        }
        bytes.PadTo4(rowStart);
    }
    return bytes;
}

}  // namespace

bool WriteIcon(const std::string& path, const std::vector<cairo_surface_t*>& images) {
    Bytes file;
    file.Word(0);
    file.Word(1);
    file.Word(static_cast<unsigned>(images.size()));
    std::vector<Bytes> bodies;
    std::uint32_t offset = kIconHeader + kIconEntry * static_cast<std::uint32_t>(images.size());
    for (cairo_surface_t* image : images) {
        bodies.push_back(IconImage(image));
        const int size = cairo_image_surface_get_width(image);
        file.data.push_back(static_cast<unsigned char>(size));
        file.data.push_back(static_cast<unsigned char>(size));
        file.Word(0);
        file.Word(1);
        file.Word(32);
        file.Dword(static_cast<std::uint32_t>(bodies.back().data.size()));
        file.Dword(offset);
        offset += static_cast<std::uint32_t>(bodies.back().data.size());
    }
    for (const Bytes& body : bodies) {
        file.data.insert(file.data.end(), body.data.begin(), body.data.end());
    }
    return file.WriteTo(path);
}

bool WriteBitmap(const std::string& path, cairo_surface_t* image) {
    const int width = cairo_image_surface_get_width(image);
    const int height = cairo_image_surface_get_height(image);
    const std::vector<std::uint32_t> palette = PaletteOf(image);
    Bytes body;
    InfoHeader(body, width, height, palette.empty() ? 24 : 8, palette.size());
    for (const std::uint32_t color : palette) body.Dword(color);
    for (int y = height - 1; y >= 0; --y) {
        const std::size_t rowStart = body.data.size();
        for (int x = 0; x < width; ++x) {
            const std::uint32_t color = PixelAt(image, x, y) & kColorBits;
            if (palette.empty()) {
                for (int shift = 0; shift < 24; shift += 8) {
                    body.data.push_back(static_cast<unsigned char>(color >> shift));
                }
            } else {
                const auto at = std::lower_bound(palette.begin(), palette.end(), color);
                body.data.push_back(static_cast<unsigned char>(at - palette.begin()));
            }
        }
        body.PadTo4(rowStart);
    }
    const std::uint32_t bitsOffset =
        kFileHeader + kInfoHeader + 4 * static_cast<std::uint32_t>(palette.size());
    Bytes file;
    file.data = {'B', 'M'};
    file.Dword(kFileHeader + static_cast<std::uint32_t>(body.data.size()));
    file.Dword(0);
    file.Dword(bitsOffset);
    file.data.insert(file.data.end(), body.data.begin(), body.data.end());
    return file.WriteTo(path);
}

}  // namespace draw
