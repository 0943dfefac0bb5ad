// The system's colours and their brushes, see system_colors.h.
#include <platform/gdi/objects.h>
#include <platform/gdi/surface.h>
#include <platform/gdi/system_colors.h>

#include <array>

namespace kv {
namespace {

// By COLOR_* index, until somebody sets others.
constexpr COLORREF kColors[] = {
    RGB(200, 200, 200),  // scroll bar
    RGB(0, 0, 0),        // desktop
    RGB(153, 180, 209),  // active caption
    RGB(191, 205, 219),  // inactive caption
    RGB(240, 240, 240),  // menu
    RGB(255, 255, 255),  // window
    RGB(100, 100, 100),  // window frame
    RGB(0, 0, 0),        // menu text
    RGB(0, 0, 0),        // window text
    RGB(0, 0, 0),        // caption text
    RGB(180, 180, 180),  // active border
    RGB(244, 247, 252),  // inactive border
    RGB(171, 171, 171),  // application work space
    RGB(0, 120, 215),    // highlight
    RGB(255, 255, 255),  // highlight text
    RGB(240, 240, 240),  // button face
    RGB(160, 160, 160),  // button shadow
    RGB(109, 109, 109),  // gray text
    RGB(0, 0, 0),        // button text
    RGB(0, 0, 0),        // inactive caption text
    RGB(255, 255, 255),  // button highlight
    RGB(105, 105, 105),  // dark shadow
    RGB(227, 227, 227),  // light edge
    RGB(0, 0, 0),        // tooltip text
    RGB(255, 255, 225),  // tooltip background
};
constexpr int kColorCount = static_cast<int>(std::size(kColors));
static_assert(kColorCount > COLOR_3DDKSHADOW);

std::array<COLORREF, kColorCount> colors = std::to_array(kColors);
std::array<HBRUSH, kColorCount> brushes;

bool IsColorNumber(int index) {
    return index >= 0 && index < kColorCount;
}

}  // namespace

void SetSystemColor(int number, COLORREF color) {
    if (!IsColorNumber(number)) return;
    const auto index = static_cast<size_t>(number);
    colors[index] = color;
    if (auto* brush = ObjectOf<Brush>(brushes[index])) brush->color = color;
}

}  // namespace kv

using namespace kv;

DWORD WINAPI GetSysColor(int index) {
    return IsColorNumber(index) ? colors[static_cast<size_t>(index)] : 0;
}

HBRUSH WINAPI GetSysColorBrush(int index) {
    if (!IsColorNumber(index)) return nullptr;
    HBRUSH& brush = brushes[static_cast<size_t>(index)];
    if (!brush) {
        brush = CreateSolidBrush(GetSysColor(index));
        MakePermanent(brush);
    }
    return brush;
}
