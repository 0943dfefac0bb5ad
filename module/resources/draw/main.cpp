// Draws the module's pictures at build time: kvdraw FOLDER writes one icon or bitmap file per row
// of the picture tables, and pictures.rc, which names them for the resource compiler. With a second
// argument it also writes one PNG of all of them, to look at.
#include <cairo.h>

#include <cstdio>
#include <string>
#include <vector>

#include "picture_files.h"
#include "pictures.h"

namespace draw {
namespace {

constexpr int kIconUnits = 32;
constexpr int kIconSizes[] = {32, 64};

cairo_surface_t* NewSurface(int width, int height) {
    return cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
}

cairo_surface_t* DrawIcon(const IconPicture& icon, int size) {
    cairo_surface_t* surface = NewSurface(size, size);
    cairo_t* to = cairo_create(surface);
    cairo_scale(to, double(size) / kIconUnits, double(size) / kIconUnits);
    icon.draw(to, icon.value);
    cairo_destroy(to);
    cairo_surface_flush(surface);
    return surface;
}

cairo_surface_t* DrawBitmap(const BitmapPicture& bitmap) {
    cairo_surface_t* surface = NewSurface(bitmap.width, bitmap.height);
    cairo_t* to = cairo_create(surface);
    cairo_set_source_rgb(to, 1, 1, 1);
    cairo_paint(to);
    bitmap.draw(to, bitmap.value);
    cairo_destroy(to);
    cairo_surface_flush(surface);
    return surface;
}

std::vector<IconPicture> AllIcons() {
    std::vector<IconPicture> icons;
    for (const auto& table : {PageIcons(), FinishingIcons(), OtherIcons()}) {
        icons.insert(icons.end(), table.begin(), table.end());
    }
    return icons;
}

std::string FileName(const char* kind, int id) {
    char name[32];
    std::snprintf(name, sizeof name, "%s_%d.%s", kind, id, kind[0] == 'i' ? "ico" : "bmp");
    return name;
}

bool WriteAll(const std::string& folder) {
    std::FILE* script = std::fopen((folder + "/pictures.rc").c_str(), "w");
    if (!script) return false;
    bool done = true;
    for (const IconPicture& icon : AllIcons()) {
        std::vector<cairo_surface_t*> images;
        for (const int size : kIconSizes) images.push_back(DrawIcon(icon, size));
        const std::string name = FileName("icon", icon.id);
        done = WriteIcon(folder + "/" + name, images) && done;
        for (cairo_surface_t* image : images) cairo_surface_destroy(image);
        std::fprintf(script, "%d ICON \"%s\"\n", icon.id, name.c_str());
    }
    for (const BitmapPicture& bitmap : Bitmaps()) {
        cairo_surface_t* image = DrawBitmap(bitmap);
        const std::string name = FileName("bitmap", bitmap.id);
        done = WriteBitmap(folder + "/" + name, image) && done;
        cairo_surface_destroy(image);
        std::fprintf(script, "%d BITMAP \"%s\"\n", bitmap.id, name.c_str());
    }
    return std::fclose(script) == 0 && done;
}

// Every icon at both sizes on a light and a dark ground, the bitmaps below.
bool WriteContactSheet(const char* path) {
    constexpr int kColumns = 9;
    constexpr int kPitch = 108;
    constexpr int kRow = 72;
    const std::vector<IconPicture> icons = AllIcons();
    const int rows = (static_cast<int>(icons.size()) + kColumns - 1) / kColumns;
    const int half = rows * kRow;
    cairo_surface_t* sheet = NewSurface(kColumns * kPitch, 2 * half + 200);
    cairo_t* to = cairo_create(sheet);
    for (int ground = 0; ground < 2; ++ground) {
        const double level = ground == 0 ? 0.94 : 0.16;
        cairo_set_source_rgb(to, level, level, level);
        cairo_rectangle(to, 0, ground * half, kColumns * kPitch, half + 200);
        cairo_fill(to);
        for (std::size_t i = 0; i < icons.size(); ++i) {
            int x = static_cast<int>(i) % kColumns * kPitch + 4;
            const int y = ground * half + static_cast<int>(i) / kColumns * kRow + 4;
            for (const int size : kIconSizes) {
                cairo_surface_t* image = DrawIcon(icons[i], size);
                cairo_set_source_surface(to, image, x, y);
                cairo_paint(to);
                cairo_surface_destroy(image);
                x += size + 4;
            }
        }
    }
    int x = 4;
    for (const BitmapPicture& bitmap : Bitmaps()) {
        cairo_surface_t* image = DrawBitmap(bitmap);
        cairo_set_source_surface(to, image, x, 2 * half + 3);
        cairo_paint(to);
        cairo_surface_destroy(image);
        x += bitmap.width + 8;
    }
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
