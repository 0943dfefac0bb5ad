// See printer_figure.h.
#include "preview/printer_figure.h"

#include <initializer_list>

#include "preview/figure_plan.h"
#include "preview/gdi_scope.h"
#include "resources/picture_ids.h"
#include "resources/resource.h"

namespace kvui {
namespace {

constexpr char kOwnModule[] = "KVUIMOD";

constexpr DWORD kWhite = 0x00FFFFFF;
constexpr DWORD kColourBits = 0x00FFFFFF;

// A picture of the sheet's resource module, else of this one.
class Picture {
 public:
    Picture(const SheetContext& context, WORD id, HDC like) : source_(like) {
        for (const HMODULE module : {context.resources, GetModuleHandleA(kOwnModule)}) {
            bitmap_ = LoadBitmapA(module, MAKEINTRESOURCEA(id));
            if (bitmap_ != nullptr) break;
        }
        BITMAP description{};
        if (bitmap_ == nullptr || GetObjectA(bitmap_, sizeof description, &description) == 0)
            return;
        size_ = {description.bmWidth, description.bmHeight};
        before_ = SelectObject(source_.get(), bitmap_);
    }
    ~Picture() {
        if (before_ != nullptr) SelectObject(source_.get(), before_);
        if (bitmap_ != nullptr) DeleteObject(bitmap_);
    }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    explicit operator bool() const { return before_ != nullptr; }
    SIZE size() const { return size_; }
    HDC dc() const { return source_.get(); }
    void Draw(HDC dc, const RECT& box, DWORD operation) const {
        StretchBlt(dc, box.left, box.top, box.right - box.left, box.bottom - box.top, source_.get(),
                   0, 0, size_.cx, size_.cy, operation);
    }

 private:
    MemoryDc source_;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ before_ = nullptr;
    SIZE size_{};
};

// A copy of a picture in which black stands for white; one serves all layers of a size.
class CutOut {
 public:
    explicit CutOut(HDC like) : like_(like), source_(like) {}
    ~CutOut() { Release(); }
    CutOut(const CutOut&) = delete;
    CutOut& operator=(const CutOut&) = delete;

    // False when the picture has no white, or there is no memory for the copy.
    bool Take(const Picture& picture) {
        if (!HasRoomFor(picture.size())) return false;
        BitBlt(source_.get(), 0, 0, size_.cx, size_.cy, picture.dc(), 0, 0, SRCCOPY);
        GdiFlush();
        DWORD* const pixels = pixels_;
        const LONG count = size_.cx * size_.cy;
        DWORD whites = 0;
        for (LONG i = 0; i < count; ++i) {
            const DWORD white = DWORD{0} - ((pixels[i] & kColourBits) == kWhite);
            whites |= white;
            pixels[i] &= ~white;
        }
        return whites != 0;
    }
    void Draw(HDC dc, const RECT& box, DWORD operation) const {
        StretchBlt(dc, box.left, box.top, box.right - box.left, box.bottom - box.top, source_.get(),
                   0, 0, size_.cx, size_.cy, operation);
    }

 private:
    bool HasRoomFor(SIZE size) {
        if (section_ != nullptr && size.cx == size_.cx && size.cy == size_.cy) return true;
        Release();
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = size.cx;
        info.bmiHeader.biHeight = -size.cy;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        LPVOID bits = nullptr;
        section_ = CreateDIBSection(like_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        if (section_ == nullptr) return false;
        pixels_ = static_cast<DWORD*>(bits);
        size_ = size;
        before_ = SelectObject(source_.get(), section_);
        return true;
    }
    void Release() {
        if (before_ != nullptr) SelectObject(source_.get(), before_);
        if (section_ != nullptr) DeleteObject(section_);
        before_ = nullptr;
        section_ = nullptr;
    }

    HDC like_;
    MemoryDc source_;
    HBITMAP section_ = nullptr;
    HGDIOBJ before_ = nullptr;
    DWORD* pixels_ = nullptr;
    SIZE size_{};
};

void FillWithWindow(HDC dc, SIZE size) {
    const RECT all = {0, 0, size.cx, size.cy};
    FillRect(dc, &all, GetSysColorBrush(COLOR_WINDOW));
}

// As large as the area allows with the picture's own proportions, in its middle.
RECT FittedInto(SIZE area, SIZE picture) {
    LONG width = area.cx, height = area.cy;
    if (picture.cy * area.cx > area.cy * picture.cx) {
        width = area.cy * picture.cx / picture.cy;
    } else {
        height = area.cx * picture.cy / picture.cx;
    }
    const LONG x = (area.cx - width) / 2, y = (area.cy - height) / 2;
    return {x, y, x + width, y + height};
}

enum class Fit { kStretched, kOwnSize };

void DrawFigurePicture(const SheetContext& context, HDC dc, SIZE area, WORD id, DWORD operation,
                       Fit fit) {
    const Picture picture(context, id, dc);
    if (!picture) return;
    RECT box = FittedInto(area, picture.size());
    if (fit == Fit::kOwnSize) {
        const LONG x = (area.cx - picture.size().cx) / 2, y = (area.cy - picture.size().cy) / 2;
        box = {x, y, x + picture.size().cx, y + picture.size().cy};
    }
    picture.Draw(dc, box, operation);
}

void DrawWholePrinter(const SheetContext& context, HDC dc, SIZE size) {
    const WORD first = WholePrinterPicture(context.privateSettings->mdmInstalledOptions);
    DrawFigurePicture(context, dc, size, first, SRCCOPY, Fit::kStretched);
    DrawFigurePicture(context, dc, size, static_cast<WORD>(first + 1), SRCPAINT, Fit::kStretched);
}

// White lets through what lies below: where the picture is white the destination comes out of the
// four operations as it was, elsewhere as the picture.
void DrawKeyed(const Picture& picture, CutOut& cutOut, HDC dc, SIZE area, Fit fit) {
    const SIZE size = fit == Fit::kStretched ? area : picture.size();
    const RECT box = {0, 0, size.cx, size.cy};
    picture.Draw(dc, box, MERGEPAINT);
    if (cutOut.Take(picture)) cutOut.Draw(dc, box, NOTSRCERASE);
    PatBlt(dc, 0, 0, size.cx, size.cy, DSTINVERT);
    picture.Draw(dc, box, SRCAND);
}

void DrawLayers(const SheetContext& context, HDC dc, SIZE size) {
    const Fit fit = context.shared->life.initialised ? Fit::kStretched : Fit::kOwnSize;
    const FigureLayers layers =
        FigureLayersOf(*context.settings, *context.privateSettings, IDC_PIC_MAIN_VIEW);
    CutOut cutOut(dc);
    for (int i = 0; i < layers.count; ++i) {
        const Picture picture(context, layers.layer[i].picture, dc);
        if (picture) DrawKeyed(picture, cutOut, dc, size, fit);
    }
}

}  // namespace

void PaintPrinterFigure(SheetContext& context, HDC dc, SIZE size) {
    FillWithWindow(dc, size);
    if (context.shared == nullptr) {
        DrawFigurePicture(context, dc, size, IDB_NO_PRINTER, SRCCOPY, Fit::kOwnSize);
    } else if (context.privateSettings->printerModelCode == kWholeFigureModel) {
        DrawWholePrinter(context, dc, size);
    } else {
        DrawLayers(context, dc, size);
    }
}

}  // namespace kvui
