// Asking the platform for another size of an icon.
#include <host/picture/icon_sizes.h>
#include <platform/gdi/surface.h>

#include <cmath>

namespace kvhost {

SizedIcon::SizedIcon(HICON icon, double scale) : icon_(icon) {
    const kv::SurfaceView view = kv::ViewOf(icon);
    if (!view || scale == 1) return;
    sized_ = kv::IconInSize(icon, static_cast<int>(std::lround(view.width * scale)),
                            static_cast<int>(std::lround(view.height * scale)));
}

SizedIcon::~SizedIcon() {
    if (sized_ != nullptr) DestroyIcon(sized_);
}

}  // namespace kvhost
