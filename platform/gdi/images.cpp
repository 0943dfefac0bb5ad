// Bitmaps and icons from resources: LoadBitmapA, LoadIconA, LoadImageA.
#include <platform/gdi/decoded_pictures.h>
#include <platform/gdi/dib.h>
#include <platform/gdi/raster.h>
#include <platform/resource/registry_of_files.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <tuple>
#include <utility>

namespace kv {
namespace {

// Group of icons: three words (reserved, type, count), then entries of 14 bytes.
constexpr std::size_t kGroupHeader = 6;
constexpr std::size_t kGroupEntry = 14;

constexpr int kSystemIconSize = 32;

struct IconChoice {
    int width = 0;
    int bits = 0;
    unsigned id = 0;
};

unsigned WordAt(std::span<const BYTE> bytes, std::size_t offset) {
    return bytes[offset] | static_cast<unsigned>(bytes[offset + 1]) << 8;
}

// Lower is better: first the size (at least the wanted one, as small as possible; else the
// largest), then the depth (as deep as possible).
std::tuple<bool, int, int> Rank(const IconChoice& choice, int wanted) {
    const bool tooSmall = choice.width < wanted;
    return {tooSmall, std::abs(choice.width - wanted), -choice.bits};
}

void Premultiply(std::uint32_t& pixel) {
    const std::uint32_t alpha = pixel >> 24;
    std::uint32_t result = alpha << 24;
    for (int shift = 0; shift < 24; shift += 8) {
        result |= ((pixel >> shift & 0xFF) * alpha + 127) / 255 << shift;
    }
    pixel = result;
}

void Unpremultiply(std::uint32_t& pixel) {
    const std::uint32_t alpha = pixel >> 24;
    if (alpha == 0 || alpha == 255) return;
    std::uint32_t result = alpha << 24;
    for (int shift = 0; shift < 24; shift += 8) {
        const std::uint32_t value = ((pixel >> shift & 0xFF) * 255 + alpha / 2) / alpha;
        result |= std::min<std::uint32_t>(value, 255) << shift;
    }
    pixel = result;
}

bool IsSaneSize(int width, int height) {
    return width > 0 && height > 0 && width <= kMaxSide && height <= kMaxSide;
}

HBITMAP LoadPicture(HINSTANCE module, LPCSTR name, int width, int height) {
    const auto id = static_cast<WORD>(reinterpret_cast<ULONG_PTR>(name));
    auto bitmap = IS_INTRESOURCE(name) ? DecodedPicture(module, id) : DecodePicture(module, name);
    if (!bitmap) return nullptr;
    if (width <= 0) width = bitmap->view.width;
    if (height <= 0) height = bitmap->view.height;
    if (width != bitmap->view.width || height != bitmap->view.height) {
        auto scaled = MakeBitmap(width, height);
        if (!scaled) return nullptr;
        ScalePicture(bitmap->view, scaled->view);
        bitmap = std::move(scaled);
    }
    return NewHandle<HBITMAP>(std::move(bitmap));
}

// "#" and a number, or the name.
std::string ResourceText(LPCSTR name) {
    if (!IS_INTRESOURCE(name)) return name;
    return '#' + std::to_string(reinterpret_cast<ULONG_PTR>(name));
}

HICON LoadIconOfSize(HINSTANCE module, LPCSTR name, int width, int height) {
    const std::span<const BYTE> group = ResourceBytes(module, name, RT_GROUP_ICON);
    if (group.empty()) return nullptr;
    const unsigned id = ChooseIcon(group, std::max(width, height));
    if (id == 0) {
        SetLastError(ERROR_RESOURCE_DATA_NOT_FOUND);
        return nullptr;
    }
    const std::span<const BYTE> bytes = ResourceBytes(module, MAKEINTRESOURCEA(id), RT_ICON);
    if (bytes.empty()) return nullptr;
    auto icon = DecodeIconDib(bytes);
    if (!icon) return nullptr;
    if (icon->view.width != width || icon->view.height != height) {
        icon = ScaleIcon(icon->view, width, height);
        if (!icon) return nullptr;
    }
    icon->module = module;
    icon->resource = ResourceText(name);
    return NewHandle<HICON>(std::move(icon));
}

// LoadIconA answers with one icon per resource, however often it is asked, and nobody destroys it.
HICON SharedIcon(HINSTANCE module, LPCSTR name) {
    static std::map<std::pair<HINSTANCE, std::string>, HICON> shared;
    static unsigned generation = 0;
    // Another module may stand where an unloaded one stood; handles that are in use stay valid.
    const unsigned now = RegistryGeneration();
    if (std::exchange(generation, now) != now) shared.clear();
    HICON& icon = shared[{module, ResourceText(name)}];
    if (icon != nullptr) return icon;
    icon = LoadIconOfSize(module, name, kSystemIconSize, kSystemIconSize);
    if (icon != nullptr) ObjectOf<Icon>(icon)->permanent = true;
    return icon;
}

}  // namespace

unsigned ChooseIcon(std::span<const BYTE> group, int wanted) {
    if (group.size() < kGroupHeader || WordAt(group, 2) != 1) return 0;
    const std::size_t count =
        std::min<std::size_t>(WordAt(group, 4), (group.size() - kGroupHeader) / kGroupEntry);
    IconChoice best;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t at = kGroupHeader + i * kGroupEntry;
        IconChoice choice;
        choice.width = group[at] != 0 ? group[at] : 256;
        choice.bits = static_cast<int>(WordAt(group, at + 6));
        choice.id = WordAt(group, at + 12);
        if (best.id == 0 || Rank(choice, wanted) < Rank(best, wanted)) best = choice;
    }
    return best.id;
}

void ScalePicture(const SurfaceView& source, const SurfaceView& target) {
    const auto columns = MakeScaleSpans(0, source.width, target.width, 0, target.width, false);
    const auto rows = MakeScaleSpans(0, source.height, target.height, 0, target.height, false);
    for (int y = 0; y < target.height; ++y) {
        ScaleRowAverage(target.Row(y), source, columns, rows[static_cast<std::size_t>(y)]);
    }
}

std::unique_ptr<Icon> ScaleIcon(const SurfaceView& source, int width, int height) {
    auto icon = std::make_unique<Icon>();
    PixelMemory weighted = AllocatePixels(source.width, source.height);
    if (IsSaneSize(width, height)) icon->memory = AllocatePixels(width, height);
    if (!weighted || !icon->memory) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    icon->view = {icon->memory.get(), width, height, width};
    // Transparent pixels must not bleed their colour into their neighbours.
    const SurfaceView copy{weighted.get(), source.width, source.height, source.width};
    for (int y = 0; y < source.height; ++y) {
        std::copy_n(source.Row(y), source.width, copy.Row(y));
        for (int x = 0; x < source.width; ++x) Premultiply(copy.Row(y)[x]);
    }
    ScalePicture(copy, icon->view);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) Unpremultiply(icon->view.Row(y)[x]);
    }
    return icon;
}

}  // namespace kv

using namespace kv;

extern "C" {

HBITMAP WINAPI LoadBitmapA(HINSTANCE module, LPCSTR name) {
    return LoadPicture(module, name, 0, 0);
}

HICON WINAPI LoadIconA(HINSTANCE module, LPCSTR name) {
    return SharedIcon(module, name);
}

HANDLE WINAPI LoadImageA(HINSTANCE module, LPCSTR name, UINT type, int width, int height,
                         UINT flags) {
    if (flags != LR_DEFAULTCOLOR || width > kMaxSide || height > kMaxSide) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    if (type == IMAGE_BITMAP) return LoadPicture(module, name, width, height);
    if (type == IMAGE_ICON) {
        return LoadIconOfSize(module, name, width > 0 ? width : kSystemIconSize,
                              height > 0 ? height : kSystemIconSize);
    }
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
}
}
