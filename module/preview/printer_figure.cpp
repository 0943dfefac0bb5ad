// See printer_figure.h.
#include "preview/printer_figure.h"

#include <cstdint>
#include <cstring>
#include <vector>

#include "preview/figure_plan.h"
#include "preview/gdi_scope.h"
#include "resources/picture_ids.h"
#include "resources/resource.h"

namespace kvui {
namespace {

constexpr char kOwnModule[] = "KVUIMOD";

constexpr DWORD kWhite = 0x00FFFFFF;
constexpr DWORD kMostColours = 256;

// A picture's resource: of the sheet's resource module, else of this one.
const BITMAPINFO* FindPicture(const SheetContext& context, WORD id) {
    for (const HMODULE module : {context.resources, GetModuleHandleA(kOwnModule)}) {
        const HRSRC found = FindResourceA(module, MAKEINTRESOURCEA(id), RT_BITMAP);
        if (found == nullptr) continue;
        return static_cast<const BITMAPINFO*>(LockResource(LoadResource(module, found)));
    }
    return nullptr;
}

DWORD ColoursOf(const BITMAPINFOHEADER& header) {
    if (header.biBitCount != 8) return 0;
    return header.biClrUsed != 0 ? header.biClrUsed : kMostColours;
}

DWORD ColourAt(const BITMAPINFO& info, DWORD index) {
    DWORD colour = 0;
    std::memcpy(&colour, &info.bmiColors[index], sizeof colour);
    return colour & kWhite;
}

bool HasWhite(const BITMAPINFO& info) {
    for (DWORD i = 0; i < ColoursOf(info.bmiHeader); ++i) {
        if (ColourAt(info, i) == kWhite) return true;
    }
    return false;
}

// A picture with its own colours or, as a cut-out, with black in place of white.
class Picture {
 public:
    enum class White { kKept, kBlack };

    Picture(const BITMAPINFO& info, HDC like, White white) : source_(like) {
        const DWORD colours = ColoursOf(info.bmiHeader);
        std::vector<std::uint64_t> copy((sizeof info.bmiHeader + kMostColours * sizeof(DWORD)) /
                                        sizeof(std::uint64_t));
        auto& header = *reinterpret_cast<BITMAPINFO*>(copy.data());
        std::memcpy(&header, &info, sizeof info.bmiHeader + colours * sizeof(DWORD));
        for (DWORD i = 0; white == White::kBlack && i < colours; ++i) {
            if (ColourAt(info, i) == kWhite) header.bmiColors[i] = {};
        }
        LPVOID bits = nullptr;
        bitmap_ = CreateDIBSection(like, &header, DIB_RGB_COLORS, &bits, nullptr, 0);
        if (bitmap_ == nullptr || !source_) return;
        size_ = {info.bmiHeader.biWidth, info.bmiHeader.biHeight};
        const DWORD rowBytes = (size_.cx * info.bmiHeader.biBitCount + 31) / 32 * 4;
        std::memcpy(
            bits,
            reinterpret_cast<const BYTE*>(&info) + info.bmiHeader.biSize + colours * sizeof(DWORD),
            static_cast<size_t>(rowBytes) * size_.cy);
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
    const BITMAPINFO* info = FindPicture(context, id);
    if (info == nullptr) return;
    const Picture picture(*info, dc, Picture::White::kKept);
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
void DrawKeyed(const BITMAPINFO& info, HDC dc, SIZE area, Fit fit) {
    const Picture picture(info, dc, Picture::White::kKept);
    if (!picture) return;
    const SIZE size = fit == Fit::kStretched ? area : picture.size();
    const RECT box = {0, 0, size.cx, size.cy};
    picture.Draw(dc, box, MERGEPAINT);
    if (HasWhite(info)) Picture(info, dc, Picture::White::kBlack).Draw(dc, box, NOTSRCERASE);
    PatBlt(dc, 0, 0, size.cx, size.cy, DSTINVERT);
    picture.Draw(dc, box, SRCAND);
}

void DrawLayers(const SheetContext& context, HDC dc, SIZE size) {
    const Fit fit = context.shared->life.initialised ? Fit::kStretched : Fit::kOwnSize;
    const FigureLayers layers =
        FigureLayersOf(*context.settings, *context.privateSettings, IDC_PIC_MAIN_VIEW);
    for (int i = 0; i < layers.count; ++i) {
        const BITMAPINFO* info = FindPicture(context, layers.layer[i].picture);
        if (info != nullptr) DrawKeyed(*info, dc, size, fit);
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
