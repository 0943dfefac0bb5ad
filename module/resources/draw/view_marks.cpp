// Small pictures with a mask: page numbers, the arrows that turn the page, the arrow beside the
// output size, and the marker beside the paper size on the Basic page.
#include "../picture_ids.h"
#include "pen.h"
#include "pictures.h"

namespace draw {
namespace {

constexpr Color kInk = {0.09, 0.14, 0.21};

// Dark digits with a white rim, so that they stay legible on any print.
void DrawNumber(cairo_t* to, const Box& area, int number) {
    constexpr double kDigitHeight = 8.4;
    const double x = area.width / 2;
    const double y = area.height / 2;
    Number(to, number, x, y, kDigitHeight, kPaper, Weight::kRim);
    Number(to, number, x, y, kDigitHeight, kInk, Weight::kBold);
}

enum Turn { kTurnUp, kTurnLeft };

// Bends around the sheet's lower right corner inside its margins and points to the binding edge.
// The corner is one pixel beyond the picture, the margins are 12 wide.
void DrawTurn(cairo_t* to, const Box& area, int turn) {
    constexpr double kMiddle = 5.5;
    constexpr double kTail = 31;
    constexpr double kWidth = 2.4;
    const double x = area.width - kMiddle;
    const double y = area.height - kMiddle;
    const bool up = turn == kTurnUp;
    const Point tail = up ? Point{x - kTail, y} : Point{x, y - kTail};
    const Point tip = up ? Point{x, 1.5} : Point{1.5, y};
    CornerArrow(to, tail, {x, y}, tip, kWidth, 1.2, kPaper);
    CornerArrow(to, tail, {x, y}, tip, kWidth, 0, kAccent);
}

// From the paper size to the output size: down and to the right.
void DrawOutputArrow(cairo_t* to, const Box&, int) {
    CornerArrow(to, {2, 0.5}, {2, 5.5}, {10, 5.5}, 1.6, 0, kPaper);
}

// A sheet with its two dimensions marked beside it. It is added to a ground that the mask has
// cleared and that may be of any colour, so that nothing is smoothed.
void DrawMarker(cairo_t* to, const Box&, int) {
    const auto rectangle = [to](double x, double y, double width, double height,
                                const Color& color) {
        cairo_rectangle(to, x, y, width, height);
        SetColor(to, color);
        cairo_fill(to);
    };
    rectangle(5, 0, 11, 11, kOutline);
    rectangle(6, 1, 9, 9, kPaper);
    rectangle(1, 0, 3, 1, kAccent);
    rectangle(2, 0, 1, 11, kAccent);
    rectangle(1, 10, 3, 1, kAccent);
    rectangle(5, 13, 11, 1, kAccent);
    rectangle(5, 12, 1, 3, kAccent);
    rectangle(15, 12, 1, 3, kAccent);
}

constexpr int kLabelRow = 22;

constexpr MaskedPicture kMarks[] = {
    {IDB_NUMBER_1, 8, 13, DrawNumber, 1, kOnPaper},
    {IDB_NUMBER_2, 9, 13, DrawNumber, 2, kOnPaper},
    {IDB_NUMBER_3, 9, 13, DrawNumber, 3, kOnPaper},
    {IDB_NUMBER_4, 9, 13, DrawNumber, 4, kOnPaper},
    {IDB_NUMBER_5, 9, 13, DrawNumber, 5, kOnPaper},
    {IDB_NUMBER_6, 9, 13, DrawNumber, 6, kOnPaper},
    {IDB_NUMBER_7, 9, 13, DrawNumber, 7, kOnPaper},
    {IDB_NUMBER_9, 9, 13, DrawNumber, 9, kOnPaper},
    {IDB_NUMBER_13, 15, 13, DrawNumber, 13, kOnPaper},
    {IDB_NUMBER_16, 15, 13, DrawNumber, 16, kOnPaper},
    {IDB_TURN_LANDSCAPE_TOP, 115, 24, DrawTurn, kTurnUp, kOnPaper},
    {IDB_TURN_LANDSCAPE_LEFT, 23, 87, DrawTurn, kTurnLeft, kOnPaper},
    {IDB_TURN_PORTRAIT_TOP, 87, 23, DrawTurn, kTurnUp, kOnPaper},
    {IDB_TURN_PORTRAIT_LEFT, 24, 115, DrawTurn, kTurnLeft, kOnPaper},
    {IDB_OUTPUT_SIZE_ARROW, 11, 10, DrawOutputArrow, 0, kLabelRow},
    {IDB_PAPER_MARKER, 16, 16, DrawMarker, 0, kOnPaper},
};

}  // namespace

std::span<const MaskedPicture> ViewMarks() {
    return kMarks;
}

}  // namespace draw
