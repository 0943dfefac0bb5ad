// Another size of a loaded icon, for displays that draw at more than one pixel per pixel.
#include <platform/gdi/objects.h>

#include <cstdlib>

namespace kv {

HICON IconInSize(HICON handle, int width, int height) {
    const Icon* icon = ObjectOf<Icon>(handle);
    if (icon == nullptr || icon->resource.empty()) return nullptr;
    const std::string& name = icon->resource;
    const LPCSTR resource =
        name[0] == '#'
            ? MAKEINTRESOURCEA(static_cast<unsigned>(std::strtoul(name.c_str() + 1, nullptr, 10)))
            : name.c_str();
    return static_cast<HICON>(
        LoadImageA(icon->module, resource, IMAGE_ICON, width, height, LR_DEFAULTCOLOR));
}

}  // namespace kv
