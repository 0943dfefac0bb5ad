// Bitmaps of dialogs: the pictures of the page orders.
#include "../picture_ids.h"
#include "pen.h"
#include "pictures.h"

namespace draw {
namespace {

// Laid over the dialog with AND, so its ground is white.
void DrawOrderPicture(cairo_t* to, const Box&, int order) {
    DrawOrder(to, order);
}

constexpr BitmapPicture kBitmaps[] = {
    {IDB_STYLE_ACROSS_LEFT, 32, 32, DrawOrderPicture, 0},
    {IDB_STYLE_ACROSS_RIGHT, 32, 32, DrawOrderPicture, 1},
    {IDB_STYLE_DOWN_LEFT, 32, 32, DrawOrderPicture, 2},
    {IDB_STYLE_DOWN_RIGHT, 32, 32, DrawOrderPicture, 3},
};

}  // namespace

std::span<const BitmapPicture> DialogBitmaps() {
    return kBitmaps;
}

}  // namespace draw
