// Draws the module's pictures at build time: kvdraw FOLDER writes one icon or bitmap file per row
// of the picture tables, and pictures.rc, which names them for the resource compiler. With a second
// argument it also writes one PNG of all of them, to look at.
#include <cairo.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "picture_files.h"
#include "pictures.h"
#include "render.h"

namespace draw {
namespace {

constexpr int kIconSizes[] = {32, 64};

std::vector<IconPicture> AllIcons() {
    std::vector<IconPicture> icons;
    for (const auto& table : {PageIcons(), FinishingIcons(), OtherIcons()}) {
        icons.insert(icons.end(), table.begin(), table.end());
    }
    return icons;
}

std::vector<BitmapPicture> AllBitmaps() {
    std::vector<BitmapPicture> bitmaps = ViewPages();
    for (const auto& table : {DialogBitmaps(), ViewTiles(), ViewBorders(), SamplePictures(),
                              FigureLayers(), WholePrinters()}) {
        bitmaps.insert(bitmaps.end(), table.begin(), table.end());
    }
    return bitmaps;
}

// Writes picture files into a folder and their lines into the script that names them.
class Writer {
 public:
    Writer(const std::string& folder, std::FILE* script) : folder_(folder), script_(script) {}
    void Icon(const IconPicture& icon) {
        std::vector<cairo_surface_t*> images;
        for (const int size : kIconSizes) images.push_back(RenderIcon(icon, size));
        ok_ = WriteIcon(PathOf("icon", icon.id, "ico"), images) && ok_;
        for (cairo_surface_t* image : images) cairo_surface_destroy(image);
        std::fprintf(script_, "%d ICON \"icon_%d.ico\"\n", icon.id, icon.id);
    }
    void Bitmap(int id, cairo_surface_t* image) {
        ok_ = WriteBitmap(PathOf("bitmap", id, "bmp"), image) && ok_;
        cairo_surface_destroy(image);
        std::fprintf(script_, "%d BITMAP \"bitmap_%d.bmp\"\n", id, id);
    }
    bool ok() const { return ok_; }

 private:
    std::string PathOf(const char* kind, int id, const char* extension) const {
        char name[32];
        std::snprintf(name, sizeof name, "/%s_%d.%s", kind, id, extension);
        return folder_ + name;
    }

    std::string folder_;
    std::FILE* script_;
    bool ok_ = true;
};

bool WriteAll(const std::string& folder) {
    std::FILE* script = std::fopen((folder + "/pictures.rc").c_str(), "w");
    if (!script) return false;
    Writer writer(folder, script);
    for (const IconPicture& icon : AllIcons()) writer.Icon(icon);
    for (const BitmapPicture& bitmap : AllBitmaps()) {
        writer.Bitmap(bitmap.id, RenderBitmap(bitmap));
    }
    for (const auto& table : {ViewSheets(), ViewMarks()}) {
        for (const MaskedPicture& masked : table) {
            const MaskedSurfaces surfaces = RenderMasked(masked);
            writer.Bitmap(masked.id, surfaces.picture);
            writer.Bitmap(masked.id + 1, surfaces.mask);
        }
    }
    for (const StatePicture& state : StateIcons()) {
        const MaskedSurfaces surfaces = RenderState(state);
        writer.Bitmap(state.picture.id, surfaces.picture);
        if (state.maskId != 0) {
            writer.Bitmap(state.maskId, surfaces.mask);
        } else {
            cairo_surface_destroy(surfaces.mask);
        }
    }
    return std::fclose(script) == 0 && writer.ok();
}

// Bitmaps in rows, as many as fit side by side.
void WriteContactRows(cairo_t* to, int width, int top) {
    std::vector<cairo_surface_t*> images;
    for (const BitmapPicture& bitmap : AllBitmaps()) images.push_back(RenderBitmap(bitmap));
    for (const auto& table : {ViewSheets(), ViewMarks()}) {
        for (const MaskedPicture& masked : table) {
            const MaskedSurfaces surfaces = RenderMasked(masked);
            images.push_back(surfaces.picture);
            images.push_back(surfaces.mask);
        }
    }
    constexpr int kGap = 6;
    int x = kGap;
    int y = top + kGap;
    int tallest = 0;
    for (cairo_surface_t* image : images) {
        if (x + cairo_image_surface_get_width(image) > width) {
            x = kGap;
            y += tallest + kGap;
            tallest = 0;
        }
        cairo_set_source_surface(to, image, x, y);
        cairo_paint(to);
        x += cairo_image_surface_get_width(image) + kGap;
        tallest = std::max(tallest, cairo_image_surface_get_height(image));
        cairo_surface_destroy(image);
    }
}

// Every icon at both sizes on a light and a dark ground, the bitmaps below.
bool WriteContactSheet(const char* path) {
    constexpr int kColumns = 9;
    constexpr int kPitch = 108;
    constexpr int kRow = 72;
    constexpr int kBitmapRows = 1100;
    const std::vector<IconPicture> icons = AllIcons();
    const int rows = (static_cast<int>(icons.size()) + kColumns - 1) / kColumns;
    const int half = rows * kRow;
    cairo_surface_t* sheet = NewSurface(kColumns * kPitch, 2 * half + kBitmapRows);
    cairo_t* to = cairo_create(sheet);
    for (int ground = 0; ground < 2; ++ground) {
        const double level = ground == 0 ? 0.94 : 0.16;
        cairo_set_source_rgb(to, level, level, level);
        cairo_rectangle(to, 0, ground * half, kColumns * kPitch, half + kBitmapRows);
        cairo_fill(to);
        for (std::size_t i = 0; i < icons.size(); ++i) {
            int x = static_cast<int>(i) % kColumns * kPitch + 4;
            const int y = ground * half + static_cast<int>(i) / kColumns * kRow + 4;
            for (const int size : kIconSizes) {
                cairo_surface_t* image = RenderIcon(icons[i], size);
                cairo_set_source_surface(to, image, x, y);
                cairo_paint(to);
                cairo_surface_destroy(image);
                x += size + 4;
            }
        }
    }
    WriteContactRows(to, kColumns * kPitch, 2 * half);
    cairo_destroy(to);
    const bool written = cairo_surface_write_to_png(sheet, path) == CAIRO_STATUS_SUCCESS;
    cairo_surface_destroy(sheet);
    return written;
}

}  // namespace
}  // namespace draw

int main(int argc, char** argv) {
    if (argc < 2 || argc > 3) {
        std::fprintf(stderr, "usage: kvdraw FOLDER [CONTACT-SHEET.png]\n");
        return 2;
    }
    if (!draw::WriteAll(argv[1])) {
        std::fprintf(stderr, "kvdraw: cannot write the pictures to %s\n", argv[1]);
        return 1;
    }
    if (argc == 3 && !draw::WriteContactSheet(argv[2])) {
        std::fprintf(stderr, "kvdraw: cannot write %s\n", argv[2]);
        return 1;
    }
    return 0;
}
