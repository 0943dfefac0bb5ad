// The printer's figure in layers of one size: the machine, each option, the chosen source and the
// chosen output, which the module lays over each other. And the six whole printers.
#include "../picture_ids.h"
#include "figure_parts.h"
#include "pictures.h"

namespace draw {
namespace {

// --- The machine ---

// What trays and cabinet stand in, open in front where they are missing. Its side is closed, so
// that no layer has to know what stands beside it.
void DrawStand(cairo_t* to) {
    constexpr double kLeg = 5;
    const double top = kBody.bottom();
    Block(to, {kBody.x, kFloor - 5, kBody.width, 5}, kDarkCasing);
    for (const double depth : {1.0, 0.0}) {
        const Box leg = {kBody.right() - kLeg + depth * kDepthX, top + depth * kDepthY, kLeg,
                         kFloor - 5 - top};
        Block(to, leg, kDarkCasing, kFront, 0);
    }
    Block(to, {kBody.x, top, kLeg, kFloor - top}, kDarkCasing, kFront);
    Block(to, {kBody.x, top, kBody.width, kFloor - top}, kCasing, kLeft);
}

void DrawControlPanel(cairo_t* to) {
    const Box panel = {kScanner.right() - 36, kScanner.y + 3, 34, 12};
    Block(to, panel, kDarkCasing, kFront);
    const Box screen = {panel.x + 3, panel.y + 3, 16, 6};
    RoundedBox(to, screen, 1);
    SetColor(to, kAccentTint);
    cairo_fill(to);
    for (int i = 0; i < 6; ++i) {
        Disc(to, panel.x + 23 + i % 3 * 3.5, panel.y + 4.5 + i / 3 * 3.5, 1.1, kCasing.front);
    }
    Disc(to, panel.right() - 2.5, panel.y + 9.5, 0.9, {0.25, 0.68, 0.37});
}

void DrawFeeder(cairo_t* to) {
    Block(to, kFeeder, kDarkCasing, kAllFaces, 0.8);
    // The originals lie on a slope above it.
    const double top = kFeeder.y, right = kFeeder.right() - 6;
    const Point slope[] = {{right, top - 1},
                           {right - 30, top - 8},
                           {right - 30 + kDepthX * 0.5, top - 8 + kDepthY * 0.5},
                           {right + kDepthX * 0.5, top - 1 + kDepthY * 0.5}};
    for (const Point& point : slope) cairo_line_to(to, point.x, point.y);
    cairo_close_path(to);
    SetColor(to, {0.95, 0.96, 0.97});
    cairo_fill_preserve(to);
    SetColor(to, kOutline);
    cairo_set_line_width(to, 1);
    cairo_stroke(to);
}

void DrawBody(cairo_t* to) {
    Block(to, kBody, kCasing);
    const Box bay = kOutputBay;
    Block(to, bay, {{0.20, 0.23, 0.28}, {}, {}}, kFront);
    Block(to, {bay.x + 1, bay.bottom() - 4, bay.width - 2, 4}, kDarkCasing, kFront);
    Panel(to, {kBody.x + 3, bay.bottom() + 2, kBody.width - 6, 28}, kCasing.front);
    Line(to, kBody.x + 12, bay.bottom() + 8.5, kBody.x + 30, bay.bottom() + 8.5, 1.5, kPrint);
    const Box first = TrayBox(1);
    Line(to, first.x, first.y + 0.5, first.right(), first.y + 0.5, 1, kOutline);
    Drawer(to, first, 1);
    Block(to, kMultiPurpose, kCasing, kTop | kFront, 0.4);
    // The scanner lies on the body, with the bay between them open to the left.
    Block(to, kScanner, kCasing);
    DrawControlPanel(to);
    DrawFeeder(to);
}

void DrawPrinter(cairo_t* to, const Box&, int) {
    DrawStand(to);
    DrawBody(to);
}

// --- Options ---

void DrawTray(cairo_t* to, const Box&, int number) {
    const Box front = TrayBox(number);
    Block(to, front, kCasing, kFront);
    Drawer(to, front, number);
}

void DrawCabinet(cairo_t* to, const Box&, int) {
    const Box front = {kBody.x, TrayBox(3).y, kBody.width, 2 * kTrayHeight};
    Block(to, front, kCasing, kFront);
    for (int step = 0; step < 2; ++step) {
        const Box door = {front.x + 2, front.y + 2 + step * (kTrayHeight - 1), front.width - 4,
                          kTrayHeight - 3};
        Panel(to, door, kCasing.front);
        Line(to, door.right() - 8, door.y + 4, door.right() - 8, door.bottom() - 4, 2,
             kDarkCasing.front);
    }
}

void DrawDuplexUnit(cairo_t* to, const Box&, int) {
    Block(to, kDuplexUnit, kCasing, kFront);
    Block(to, {kDuplexUnit.x + 2, kDuplexUnit.y + 5, 5, 22}, kDarkCasing, kFront);
}

// Its top is seen beside the body, which hides what lies behind it. Without the third tray the
// printer stands lower, and so does the cassette.
void DrawSideCassette(cairo_t* to, const Box&, int isLow) {
    Box front = kSideCassette;
    if (isLow) front = {front.x, front.y + kTrayHeight, front.width, front.height - kTrayHeight};
    cairo_save(to);
    cairo_rectangle(to, kBody.right(), 0, kFigureWidth, kFigureHeight);
    cairo_clip(to);
    Block(to, front, kCasing, kFront | kTop);
    cairo_restore(to);
    Panel(to, front.Inset(3), kCasing.front);
    RoundedBox(to, {front.x + 7, front.y + front.height / 2 - 2.5, front.width - 14, 5}, 2);
    SetColor(to, kDarkCasing.front);
    cairo_fill(to);
}

void DrawFinisher(cairo_t* to, const Box&, int) {
    const double elevator = kFinisher.y + 46;
    Shelf(to, kFinisher.x + 4, elevator, 17, kCasing.top);
    Block(to, kFinisher, kCasing);
    Shelf(to, kFinisher.x + 2, kFinisher.y + 14, 13, kCasing.top);
    Panel(to, {kFinisher.x + 3, kFinisher.y + 20, kFinisher.width - 6, 60}, kCasing.front);
    Block(to, {kFinisher.x + 8, kFinisher.bottom() - 24, kFinisher.width - 16, 5}, kDarkCasing,
          kFront);
}

void DrawSmallFinisher(cairo_t* to, const Box&, int) {
    Block(to, kSmallFinisher, kCasing);
    Shelf(to, kSmallFinisher.x + 2, kSmallFinisher.y + 16, 15, kCasing.top);
    Panel(to, {kSmallFinisher.x + 3, kSmallFinisher.y + 22, kSmallFinisher.width - 6, 40},
          kCasing.front);
    Block(to, {kSmallFinisher.x + 6, kSmallFinisher.bottom() - 22, kSmallFinisher.width - 12, 5},
          kDarkCasing, kFront);
}

void DrawBin(cairo_t* to, int number, const Color& color) {
    const Box bin = SorterBinBox(number);
    Shelf(to, bin.right(), bin.bottom(), bin.width, color);
}

void DrawSorter(cairo_t* to, const Box&, int) {
    Block(to, kSorter, kCasing);
    for (int number = kSorterBins; number >= 1; --number) DrawBin(to, number, kCasing.top);
    Panel(to, {kSorter.x + 10, kSorter.y + 4, kSorter.width - 13, kSorter.height - 10},
          kCasing.front);
}

// Between the body and the finisher.
void DrawPunch(cairo_t* to, const Box&, int isSmall) {
    const Box& beside = isSmall ? kSmallFinisher : kFinisher;
    Block(to, {beside.right() - 10, beside.y - 8, 10, 8}, kDarkCasing, kAllFaces, 0.5);
}

// --- What is chosen ---

void MarkTray(cairo_t* to, const Box&, int number) {
    Mark(to, TrayBox(number));
    RoundedBox(
        to, {kBody.x + kBody.width / 2 - 12, TrayBox(number).y + kTrayHeight / 2 - 2.5, 24, 5}, 2);
    SetColor(to, kAccent);
    cairo_fill(to);
    Number(to, number, kBody.right() - 9, TrayBox(number).y + kTrayHeight / 2, 7, kAccent,
           Weight::kBold);
}

void MarkMultiPurpose(cairo_t* to, const Box&, int) {
    Block(to, kMultiPurpose, {kAccent, kAccentTint, kAccent}, kTop | kFront, 0.4);
}

void MarkSideCassette(cairo_t* to, const Box&, int isLow) {
    Box front = kSideCassette;
    if (isLow) front = {front.x, front.y + kTrayHeight, front.width, front.height - kTrayHeight};
    Mark(to, front.Inset(2));
    RoundedBox(to, {front.x + 7, front.y + front.height / 2 - 2.5, front.width - 14, 5}, 2);
    SetColor(to, kAccent);
    cairo_fill(to);
}

// Paper that has been delivered in the bay below the scanner.
void MarkBay(cairo_t* to, const Box&, int) {
    const Box paper = {kOutputBay.x + 8, kOutputBay.bottom() - 6, kOutputBay.width - 16, 4};
    cairo_rectangle(to, paper.x, paper.y, paper.width, paper.height);
    SetColor(to, kAccentTint);
    cairo_fill_preserve(to);
    SetColor(to, kAccent);
    cairo_set_line_width(to, 1.5);
    cairo_stroke(to);
}

void MarkTopTray(cairo_t* to, const Box&, int) {
    Shelf(to, kOutputBay.x + 4, kOutputBay.bottom() - 2, 14, kAccent);
}

struct ShelfPlace {
    double right, y, length;
};
// By the picture's value: elevator and offset trays of both finishers.
constexpr ShelfPlace kShelves[] = {
    {kFinisher.x + 2, kFinisher.y + 14, 13},
    {kFinisher.x + 1, kFinisher.y + 46, 14},
    {kSmallFinisher.x + 2, kSmallFinisher.y + 16, 15},
};

void MarkShelf(cairo_t* to, const Box&, int index) {
    const ShelfPlace& shelf = kShelves[index];
    Shelf(to, shelf.right, shelf.y, shelf.length, kAccent);
}

void MarkBin(cairo_t* to, const Box&, int number) {
    DrawBin(to, number, kAccent);
}

#define LAYER(id, draw, value) \
    { id, kFigureWidth, kFigureHeight, draw, value, Finish::kKeyed }
// clang-format off
constexpr BitmapPicture kLayers[] = {
    LAYER(IDB_FIGURE_OPTION + 0,  DrawPrinter,       0),
    LAYER(IDB_FIGURE_OPTION + 2,  DrawTray,          2),
    LAYER(IDB_FIGURE_OPTION + 3,  DrawTray,          3),
    LAYER(IDB_FIGURE_OPTION + 4,  DrawTray,          4),
    LAYER(IDB_FIGURE_OPTION + 7,  DrawDuplexUnit,    0),
    LAYER(IDB_FIGURE_OPTION + 10, DrawSorter,        0),
    LAYER(IDB_FIGURE_OPTION + 19, DrawFinisher,      0),
    LAYER(IDB_FIGURE_OPTION + 20, DrawSmallFinisher, 0),
    LAYER(IDB_FIGURE_OPTION + 23, DrawCabinet,       0),
    LAYER(IDB_FIGURE_PUNCH,       DrawPunch,         0),
    LAYER(IDB_FIGURE_PUNCH_SMALL, DrawPunch,         1),
    LAYER(IDB_FIGURE_LCC,         DrawSideCassette,  0),
    LAYER(IDB_FIGURE_LCC_LOW,     DrawSideCassette,  1),
    LAYER(IDB_FIGURE_SOURCE + 1,  MarkTray,          1),
    LAYER(IDB_FIGURE_SOURCE + 2,  MarkTray,          2),
    LAYER(IDB_FIGURE_SOURCE + 3,  MarkTray,          3),
    LAYER(IDB_FIGURE_SOURCE + 4,  MarkMultiPurpose,  0),
    LAYER(IDB_FIGURE_SOURCE + 5,  MarkTray,          4),
    LAYER(IDB_FIGURE_FROM_LCC,     MarkSideCassette, 0),
    LAYER(IDB_FIGURE_FROM_LCC_LOW, MarkSideCassette, 1),
    LAYER(IDB_FIGURE_OUTPUT + 65, MarkBay,           0),
    LAYER(IDB_FIGURE_OUTPUT + 1,  MarkBin,           1),
    LAYER(IDB_FIGURE_OUTPUT + 2,  MarkBin,           2),
    LAYER(IDB_FIGURE_OUTPUT + 3,  MarkBin,           3),
    LAYER(IDB_FIGURE_OUTPUT + 4,  MarkBin,           4),
    LAYER(IDB_FIGURE_OUTPUT + 5,  MarkBin,           5),
    LAYER(IDB_FIGURE_OUTPUT + 6,  MarkBin,           6),
    LAYER(IDB_FIGURE_OUTPUT + 7,  MarkBin,           7),
    LAYER(IDB_FIGURE_OUTPUT + 8,  MarkBin,           8),
    LAYER(IDB_FIGURE_OUTPUT + 9,  MarkBin,           9),
    LAYER(IDB_FIGURE_OUTPUT + 10, MarkBin,           10),
    LAYER(IDB_FIGURE_OUTPUT + 75, MarkTopTray,       0),
    LAYER(IDB_FIGURE_OUTPUT + 76, MarkTopTray,       0),
    LAYER(IDB_FIGURE_OUTPUT + 77, MarkTopTray,       0),
    LAYER(IDB_FIGURE_TO_FINISHER + 0,       MarkShelf, 0),
    LAYER(IDB_FIGURE_TO_FINISHER + 1,       MarkShelf, 1),
    LAYER(IDB_FIGURE_TO_FINISHER + 2,       MarkShelf, 1),
    LAYER(IDB_FIGURE_TO_SMALL_FINISHER + 0, MarkShelf, 2),
    LAYER(IDB_FIGURE_TO_SMALL_FINISHER + 1, MarkShelf, 2),
    LAYER(IDB_FIGURE_TO_SMALL_FINISHER + 2, MarkShelf, 2),
    LAYER(IDB_FIGURE_TO_SORTER,             MarkTopTray, 0),
};
// clang-format on

// --- Whole printers ---

constexpr unsigned kWithDuplex = 1, kWithTray2 = 2, kWithTray3 = 4;
constexpr double kWholeWidth = 137, kWholeHeight = 161;
constexpr Box kScreenLight = {96, 56, 16, 6};

void ToWhole(cairo_t* to) {
    // Without room for what stands beside the machine.
    cairo_scale(to, kWholeHeight / kFigureHeight, kWholeHeight / kFigureHeight);
    cairo_translate(to, (kWholeWidth * kFigureHeight / kWholeHeight - kFigureWidth) / 2, 0);
}

void DrawWhole(cairo_t* to, const Box& area, int parts) {
    ToWhole(to);
    DrawPrinter(to, area, 0);
    if (parts & kWithTray2) DrawTray(to, area, 2);
    if (parts & kWithTray3) DrawTray(to, area, 3);
    if (parts & kWithDuplex) DrawDuplexUnit(to, area, 0);
    SetColor(to, {0, 0, 0});
    cairo_rectangle(to, kScreenLight.x, kScreenLight.y, kScreenLight.width, kScreenLight.height);
    cairo_fill(to);
}

// What shines, on black: it is added to the machine.
void DrawLights(cairo_t* to, const Box&, int) {
    SetColor(to, {0, 0, 0});
    cairo_paint(to);
    ToWhole(to);
    SetColor(to, kAccentTint);
    cairo_rectangle(to, kScreenLight.x, kScreenLight.y, kScreenLight.width, kScreenLight.height);
    cairo_fill(to);
}

void DrawNoPrinter(cairo_t* to, const Box&, int) {
    ToWhole(to);
    SetColor(to, kPrint);
    cairo_set_line_width(to, 1.5);
    const double dashes[] = {4, 3};
    cairo_set_dash(to, dashes, 2, 0);
    for (const Box& part : {kFeeder, kScanner, kBody}) {
        cairo_rectangle(to, part.x, part.y, part.width, part.height);
        cairo_stroke(to);
    }
}

#define WHOLE(id, draw, value) \
    { id, 137, 161, draw, static_cast<int>(value) }
constexpr BitmapPicture kWholes[] = {
    WHOLE(IDB_WHOLE_PRINTER + 0, DrawWhole, 0),
    WHOLE(IDB_WHOLE_PRINTER + 1, DrawLights, 0),
    WHOLE(IDB_WHOLE_PRINTER + 2, DrawWhole, kWithDuplex),
    WHOLE(IDB_WHOLE_PRINTER + 3, DrawLights, 0),
    WHOLE(IDB_WHOLE_PRINTER + 4, DrawWhole, kWithTray2),
    WHOLE(IDB_WHOLE_PRINTER + 5, DrawLights, 0),
    WHOLE(IDB_WHOLE_PRINTER + 6, DrawWhole, kWithTray2 | kWithDuplex),
    WHOLE(IDB_WHOLE_PRINTER + 7, DrawLights, 0),
    WHOLE(IDB_WHOLE_PRINTER + 8, DrawWhole, kWithTray2 | kWithTray3),
    WHOLE(IDB_WHOLE_PRINTER + 9, DrawLights, 0),
    WHOLE(IDB_WHOLE_PRINTER + 10, DrawWhole, kWithTray2 | kWithTray3 | kWithDuplex),
    WHOLE(IDB_WHOLE_PRINTER + 11, DrawLights, 0),
    WHOLE(IDB_NO_PRINTER, DrawNoPrinter, 0),
};

}  // namespace

std::span<const BitmapPicture> FigureLayers() {
    return kLayers;
}
std::span<const BitmapPicture> WholePrinters() {
    return kWholes;
}

}  // namespace draw
