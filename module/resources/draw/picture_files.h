// Writes the picture files that the resource script names. The drawing program's main calls these.
#pragma once

#include <cairo.h>

#include <string>
#include <vector>

namespace draw {

// An icon file of 32-bit images, one per surface (ARGB, square). False when it cannot be written.
bool WriteIcon(const std::string& path, const std::vector<cairo_surface_t*>& images);

// A bitmap file with a palette where the colours fit one, of 24 bits otherwise; transparency is
// ignored. A mask gets a palette too: one bit per pixel would take the colours of the place that it
// is drawn to.
bool WriteBitmap(const std::string& path, cairo_surface_t* image);

}  // namespace draw
