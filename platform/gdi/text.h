// Drawing a run of text at a baseline, shared by TextOutA and DrawTextA.
#pragma once

#include <platform/gdi/canvas.h>
#include <platform/gdi/font.h>

#include <string_view>

namespace kv {

// Draws `text` with the left end of its baseline at surface position (x, y) in the DC's text
// colour, with the font's underline. No background.
void DrawRun(const Canvas& canvas, RealizedFont& font, double x, double y, std::string_view text);

// Fills a box given in the font's own directions, relative to the baseline start (x, y): from
// `left` to `right` along the baseline and from `top` to `bottom` below it.
void FillAlongBaseline(const Canvas& canvas, const RealizedFont& font, double x, double y, int left,
                       int top, int right, int bottom, COLORREF color);

// The text a caller names by pointer and length; a negative length is measured.
std::string_view TextOfCall(LPCSTR text, int length);

}  // namespace kv
