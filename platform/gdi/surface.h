// Pixels behind graphics handles, for displays, the picture writer and tests, and the few things
// the window core needs beyond the platform's own calls.
#pragma once

#include <windows.h>

namespace kv {

// Pixels are 0x00RRGGBB in native byte order. The top byte of a bitmap's pixel means nothing; that
// of an icon's pixel is its alpha (colours are not premultiplied). `pixels` is the top left pixel
// and `stride` counts pixels; it is negative for bottom-up sections made by CreateDIBSection.
struct SurfaceView {
    std::uint32_t* pixels = nullptr;
    int width = 0;
    int height = 0;
    int stride = 0;

    std::uint32_t* Row(int y) const { return pixels + static_cast<std::ptrdiff_t>(y) * stride; }
    explicit operator bool() const { return pixels != nullptr; }
};

// Valid until the object is deleted; empty, with ERROR_INVALID_HANDLE, for anything else.
SurfaceView ViewOf(HBITMAP bitmap);
SurfaceView ViewOf(HICON icon);

// The same icon in another size: modules carry their icons in several. The caller destroys it; null
// for an icon that was not loaded from a resource.
HICON IconInSize(HICON icon, int width, int height);

// Sets the top byte of every pixel, for consumers that take it for alpha.
void MakeOpaque(const SurfaceView& view);

// Lets a DC draw only into a rectangle of its surface, whose top left corner becomes the DC's
// origin: how a window paints itself into a part of a larger picture. Null: the whole surface.
bool SetDcArea(HDC dc, const RECT* area);

// A DC that stands for the screen: callers measure with it and make bitmaps of its depth.
HDC ScreenDc();

// Makes an object behave like a stock object: DeleteObject succeeds and does nothing.
void MakePermanent(HGDIOBJ object);

}  // namespace kv
