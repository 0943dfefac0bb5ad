// Icons of the resolutions and of notices.
#include "../picture_ids.h"
#include "pen.h"
#include "pictures.h"

namespace draw {
namespace {

// A disc made of squares: the finer they are, the rounder it looks.
void DrawResolution(cairo_t* to, int squaresAcross) {
    Sheet(to, {3.5, 3.5, 25, 25}, Corner::kFolded);
    constexpr double kRadius = 9;
    constexpr double kCenterX = 15.5;
    constexpr double kCenterY = 16.5;
    const double side = 2 * kRadius / squaresAcross;
    for (int row = 0; row < squaresAcross; ++row) {
        for (int column = 0; column < squaresAcross; ++column) {
            const double x = (column + 0.5) * side - kRadius;
            const double y = (row + 0.5) * side - kRadius;
            if (x * x + y * y > kRadius * kRadius) continue;
            cairo_rectangle(to, kCenterX + x - side / 2, kCenterY + y - side / 2, side, side);
        }
    }
    SetColor(to, kAccent);
    cairo_fill(to);
}

void Letter(cairo_t* to, double x, double y, double height) {
    Disc(to, x, y - height * 0.38, height * 0.14, kPaper);
    Line(to, x, y - height * 0.06, x, y + height * 0.42, height * 0.22, kPaper);
}

void DrawInformation(cairo_t* to, int) {
    Disc(to, 16.6, 17, 12.5, {0.75, 0.78, 0.82});
    Disc(to, 16, 16, 13, kOutline);
    Disc(to, 16, 16, 12, kAccent);
    Letter(to, 16, 16, 16);
}

// The notice refers to a text: a sheet with an information mark.
void DrawNotice(cairo_t* to, int) {
    Sheet(to, {4.5, 2.5, 19, 25});
    Print(to, {8, 10.5, 12, 10}, 4);
    Disc(to, 22.5, 22.5, 8.2, kPaper);
    Disc(to, 22.5, 22.5, 7.2, kAccent);
    Letter(to, 22.5, 22.5, 10);
}

constexpr IconPicture kIcons[] = {
    {IDI_RESOLUTION_600, DrawResolution, 6},    {IDI_RESOLUTION_1200, DrawResolution, 11},
    {IDI_RESOLUTION_2400, DrawResolution, 36},  {IDI_NOTICE, DrawNotice, 0},
    {IDI_INFORMATION_NOTE, DrawInformation, 0},
};

}  // namespace

std::span<const IconPicture> OtherIcons() {
    return kIcons;
}

}  // namespace draw
