// Writes the picture files that the resource script names. The drawing program's main calls these.
#pragma once

#include <cairo.h>

#include <string>
#include <vector>

namespace draw {

// An icon file of 32-bit images, one per surface (ARGB, square). False when it cannot be written.
bool WriteIcon(const std::string& path, const std::vector<cairo_surface_t*>& images);

// A 24-bit bitmap file; the surface's transparency is ignored.
bool WriteBitmap(const std::string& path, cairo_surface_t* image);

}  // namespace draw
