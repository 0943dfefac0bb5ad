// Turns rows of the picture tables into pixels. The drawing program's main calls these.
#pragma once

#include <cairo.h>

#include "pictures.h"

namespace draw {

cairo_surface_t* NewSurface(int width, int height);
cairo_surface_t* RenderIcon(const IconPicture& icon, int size);
cairo_surface_t* RenderBitmap(const BitmapPicture& bitmap);

struct MaskedSurfaces {
    cairo_surface_t* picture;
    cairo_surface_t* mask;
};

// The mask is black where the picture covers and white elsewhere, where the picture is black.
MaskedSurfaces RenderMasked(const MaskedPicture& masked);
MaskedSurfaces RenderState(const StatePicture& state);

}  // namespace draw
