// Making, describing and deleting graphics objects, and the stock objects.
#include <platform/gdi/objects.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace kv {

PixelMemory AllocatePixels(int width, int height, NewPixels content) {
    const std::size_t count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    void* memory = content == NewPixels::kBlack ? std::calloc(count, sizeof(std::uint32_t))
                                                : std::malloc(count * sizeof(std::uint32_t));
    return PixelMemory(static_cast<std::uint32_t*>(memory), std::free);
}

std::unique_ptr<Bitmap> MakeBitmap(int width, int height, NewPixels content) {
    if (width <= 0 || height <= 0 || width > kMaxSide || height > kMaxSide) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto bitmap = std::make_unique<Bitmap>();
    bitmap->memory = AllocatePixels(width, height, content);
    if (!bitmap->memory) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    bitmap->view = {bitmap->memory.get(), width, height, width};
    return bitmap;
}

std::unique_ptr<Bitmap> ShareBitmap(Bitmap& bitmap) {
    auto other = std::make_unique<Bitmap>();
    other->view = bitmap.view;
    other->monochrome = bitmap.monochrome;
    other->memory = bitmap.memory;
    // The owner of a section may change its bits at any time, unseen.
    if (bitmap.isSection) {
        LoadSection(bitmap);
        if (!OwnPixels(*other)) return nullptr;
    }
    return other;
}

bool OwnPixels(Bitmap& bitmap) {
    if (bitmap.isSection || bitmap.memory.use_count() == 1) return true;
    const SurfaceView from = bitmap.view;
    PixelMemory own = AllocatePixels(from.width, from.height, NewPixels::kAnything);
    if (!own) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return false;
    }
    bitmap.view = {own.get(), from.width, from.height, from.width};
    for (int y = 0; y < from.height; ++y) std::copy_n(from.Row(y), from.width, bitmap.view.Row(y));
    bitmap.memory = std::move(own);
    return true;
}

SurfaceView ViewOf(HBITMAP handle) {
    Bitmap* bitmap = ObjectOf<Bitmap>(handle);
    if (bitmap == nullptr || !OwnPixels(*bitmap)) return {};
    LoadSection(*bitmap);
    return bitmap->view;
}

SurfaceView ViewOf(HICON handle) {
    const Icon* icon = ObjectOf<Icon>(handle);
    return icon != nullptr ? icon->view : SurfaceView{};
}

void MakeOpaque(const SurfaceView& view) {
    for (int y = 0; y < view.height; ++y) {
        std::uint32_t* row = view.Row(y);
        for (int x = 0; x < view.width; ++x) row[x] |= 0xFF000000u;
    }
}

void MakePermanent(HGDIOBJ handle) {
    if (GdiObject* object = FindInTable(reinterpret_cast<std::uintptr_t>(handle))) {
        object->permanent = true;
    }
}

namespace {

HGDIOBJ Keep(HGDIOBJ object) {
    MakePermanent(object);
    return object;
}

HBRUSH StockBrush(Brush::Style style, COLORREF color) {
    auto brush = std::make_unique<Brush>();
    brush->style = style;
    brush->color = color;
    return NewHandle<HBRUSH>(std::move(brush));
}

HGDIOBJ StockFont(LONG height, LONG weight, const char* face) {
    LOGFONTA description{};
    description.lfHeight = height;
    description.lfWeight = weight;
    std::strncpy(description.lfFaceName, face, LF_FACESIZE - 1);
    return CreateFontIndirectA(&description);
}

HGDIOBJ MakeStockObject(int index) {
    switch (index) {
        case WHITE_BRUSH:
            return StockBrush(Brush::Style::kSolid, RGB(255, 255, 255));
        case BLACK_BRUSH:
            return StockBrush(Brush::Style::kSolid, RGB(0, 0, 0));
        case NULL_BRUSH:
            return StockBrush(Brush::Style::kNull, 0);
        case BLACK_PEN:
            return CreatePen(PS_SOLID, 1, RGB(0, 0, 0));
        case NULL_PEN:
            return CreatePen(PS_NULL, 1, 0);
        case SYSTEM_FONT:
            return StockFont(-13, FW_BOLD, "System");
        case DEFAULT_GUI_FONT:
            return StockFont(-11, FW_NORMAL, "MS Shell Dlg");
        default:
            return nullptr;
    }
}

template <typename Record>
int CopyRecord(const Record& record, int size, LPVOID buffer) {
    constexpr int kSize = static_cast<int>(sizeof(Record));
    if (buffer == nullptr) return kSize;
    if (size < kSize) return 0;
    std::memcpy(buffer, &record, sizeof(Record));
    return kSize;
}

BITMAP Describe(const Bitmap& bitmap) {
    BITMAP record{};
    record.bmWidth = bitmap.view.width;
    record.bmHeight = bitmap.view.height;
    record.bmPlanes = 1;
    if (bitmap.section) {
        record.bmBitsPixel = static_cast<WORD>(bitmap.section->bitsPerPixel);
        record.bmWidthBytes = bitmap.section->rowBytes;
        record.bmBits = bitmap.section->bits.data();
        return record;
    }
    record.bmBitsPixel = bitmap.monochrome ? 1 : 32;
    record.bmWidthBytes = bitmap.monochrome ? (bitmap.view.width + 15) / 16 * 2  // word aligned
                                            : bitmap.view.width * 4;
    if (bitmap.isSection) record.bmBits = bitmap.memory.get();
    return record;
}

}  // namespace
}  // namespace kv

using namespace kv;

extern "C" {

HGDIOBJ WINAPI GetStockObject(int index) {
    constexpr int kCount = DEFAULT_GUI_FONT + 1;
    static std::array<HGDIOBJ, kCount> made{};
    if (index < 0 || index >= kCount) return nullptr;
    HGDIOBJ& object = made[static_cast<std::size_t>(index)];
    if (object == nullptr) {
        object = MakeStockObject(index);
        if (object != nullptr) Keep(object);
    }
    return object;
}

BOOL WINAPI DeleteObject(HGDIOBJ handle) {
    GdiObject* object = FindInTable(reinterpret_cast<std::uintptr_t>(handle));
    if (object == nullptr) return FALSE;
    if (object->kind == ObjectKind::kDc || object->kind == ObjectKind::kIcon) {
        SetLastError(ERROR_INVALID_HANDLE);  // those have calls of their own
        return FALSE;
    }
    if (object->permanent) return TRUE;
    if (object->selections > 0) return FALSE;
    return RemoveFromTable(reinterpret_cast<std::uintptr_t>(handle));
}

int WINAPI GetObjectA(HGDIOBJ handle, int size, LPVOID buffer) {
    GdiObject* object = FindInTable(reinterpret_cast<std::uintptr_t>(handle));
    if (object == nullptr) return 0;
    switch (object->kind) {
        case ObjectKind::kBitmap:
            return CopyRecord(Describe(static_cast<Bitmap&>(*object)), size, buffer);
        case ObjectKind::kFont:
            return CopyRecord(static_cast<Font&>(*object).description, size, buffer);
        case ObjectKind::kBrush: {
            const Brush& brush = static_cast<Brush&>(*object);
            // Styles are numbered solid 0, hollow 1, pattern 3.
            const UINT style = brush.style == Brush::Style::kSolid  ? 0
                               : brush.style == Brush::Style::kNull ? 1
                                                                    : 3;
            return CopyRecord(LOGBRUSH{style, brush.color, 0}, size, buffer);
        }
        default:
            return 0;
    }
}

HBITMAP WINAPI CreateCompatibleBitmap(HDC dc, int width, int height) {
    const Dc* like = ObjectOf<Dc>(dc);
    if (like == nullptr) return nullptr;
    // A memory DC is compatible with what is selected into it, and a fresh one holds a single
    // monochrome pixel.
    const Bitmap* selected = ObjectOf<Bitmap>(like->state.bitmap);
    const bool monochrome = !like->isScreen && selected != nullptr && selected->monochrome;
    // The platform answers a one-pixel bitmap for an empty size.
    if (width == 0 || height == 0) width = height = 1;
    auto bitmap = MakeBitmap(width, height);
    if (!bitmap) return nullptr;
    bitmap->monochrome = monochrome;
    return NewHandle<HBITMAP>(std::move(bitmap));
}

HBITMAP WINAPI CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, LPCVOID bits) {
    if (planes != 1 || (bitsPerPixel != 1 && bitsPerPixel != 32)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto bitmap = MakeBitmap(width, height);
    if (!bitmap) return nullptr;
    bitmap->monochrome = bitsPerPixel == 1;
    if (bits != nullptr && bitmap->monochrome) {
        const int rowBytes = (width + 15) / 16 * 2;
        for (int y = 0; y < height; ++y) {
            const BYTE* from = static_cast<const BYTE*>(bits) + std::ptrdiff_t{y} * rowBytes;
            std::uint32_t* row = bitmap->view.Row(y);
            for (int x = 0; x < width; ++x) {
                row[x] = (from[x / 8] >> (7 - x % 8)) & 1 ? kWhitePixel : 0;
            }
        }
    } else if (bits != nullptr) {
        std::memcpy(bitmap->memory.get(), bits,
                    static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 4);
    }
    return NewHandle<HBITMAP>(std::move(bitmap));
}

HBRUSH WINAPI CreateSolidBrush(COLORREF color) {
    return StockBrush(Brush::Style::kSolid, color & kColorBits);
}

HBRUSH WINAPI CreatePatternBrush(HBITMAP handle) {
    Bitmap* bitmap = ObjectOf<Bitmap>(handle);
    if (bitmap == nullptr) return nullptr;
    auto brush = std::make_unique<Brush>();
    brush->style = Brush::Style::kPattern;
    // The bitmap may be changed or deleted while the brush lives.
    brush->pattern = ShareBitmap(*bitmap);
    return brush->pattern ? NewHandle<HBRUSH>(std::move(brush)) : nullptr;
}

HPEN WINAPI CreatePen(int style, int width, COLORREF color) {
    if (style != PS_SOLID && style != PS_NULL) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto pen = std::make_unique<Pen>();
    pen->null = style == PS_NULL;
    pen->width = std::clamp(width, 1, kMaxSide);
    pen->color = color & kColorBits;
    return NewHandle<HPEN>(std::move(pen));
}

HFONT WINAPI CreateFontIndirectA(const LOGFONTA* description) {
    if (description == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto font = std::make_unique<Font>();
    font->description = *description;
    font->description.lfFaceName[LF_FACESIZE - 1] = 0;
    return NewHandle<HFONT>(std::move(font));
}

HRGN WINAPI CreateRectRgn(int left, int top, int right, int bottom) {
    auto region = std::make_unique<Region>();
    region->rect = {std::min(left, right), std::min(top, bottom), std::max(left, right),
                    std::max(top, bottom)};
    return NewHandle<HRGN>(std::move(region));
}
}
