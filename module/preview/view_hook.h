// The window hook of every view: it lets a static frame show a picture that a painter draws. Used by
// the preview panel for its two views and by dialogs that show one of them.
#pragma once

#include <cstddef>

#include "sheet/sheet_context.h"

namespace kvui {

// Draws the whole view on a white ground, with the dialog's font selected; `size` is never empty.
using ViewPainter = void (*)(SheetContext& context, HDC dc, SIZE size);

// Says what the view shows, for people who do not see it: the text of the frame's window.
using ViewWords = void (*)(SheetContext& context, char* text, std::size_t size);

enum class ViewEdge { kSunken, kNone };

struct View {
    ViewPainter painter;
    ViewWords words;  // null: the frame keeps its own text
    ViewEdge edge = ViewEdge::kSunken;
};

// Puts the view on the frame, in place of the one it had, until the frame is destroyed. The context
// must live as long.
void HookView(HWND frame, SheetContext& context, const View& view);

// The ground picture; dialog units cannot express its size.
constexpr int kGroundWidth = 160;
constexpr int kGroundHeight = 194;
void ResizeView(HWND frame, int width, int height);

// The ground picture, repeated over the view.
void PaintGround(SheetContext& context, HDC dc, SIZE size);
// The lower part of the ground picture, without the band for the labels.
void PaintLowerGround(SheetContext& context, HDC dc, SIZE size);

}  // namespace kvui
