// What stands on a page of the preview's document. view_pages.cpp draws the layouts with it.
#pragma once

#include "pen.h"

namespace draw {

enum class Orientation { kPortrait, kLandscape };

// A headline, text and an illustration; pages of different number differ in the illustration. The
// lowest `foot` pixels stay free for the page's number.
void DrawPageContent(cairo_t* to, const Box& page, Orientation orientation, int number,
                     double foot);

// A landscape as on a photograph.
void DrawPhoto(cairo_t* to, const Box& box);

}  // namespace draw
