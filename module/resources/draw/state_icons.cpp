// Icons of the strip below the preview: overlay, watermark, colour; all states of one have the same
// outline, so that one mask serves them.
#include "../picture_ids.h"
#include "pen.h"
#include "pictures.h"

namespace draw {
namespace {

constexpr int kWidth = 39;
constexpr int kHeight = 34;
constexpr Box kSheet = {9, 3, 21, 28};
constexpr Color kDarkInk = {0.33, 0.37, 0.43};
constexpr Color kGreyInk = {0.75, 0.78, 0.82};

enum InkState { kNone, kInColour, kInBlack, kBehindInColour, kBehindInBlack };

Color InkOf(int state) {
    return state == kInColour || state == kBehindInColour ? kAccent : kDarkInk;
}

void Outline(cairo_t* to) {
    SetColor(to, kOutline);
    cairo_set_line_width(to, 1.5);
    cairo_rectangle(to, kSheet.x, kSheet.y, kSheet.width, kSheet.height);
    cairo_stroke(to);
}

void Paper(cairo_t* to) {
    SetColor(to, kPaper);
    cairo_rectangle(to, kSheet.x, kSheet.y, kSheet.width, kSheet.height);
    cairo_fill(to);
}

// A form: a head and two boxes of its own ink.
void DrawOverlay(cairo_t* to, const Box&, int state) {
    Paper(to);
    Print(to, {12, 13, 15, 15}, 4);
    if (state != kNone) {
        SetColor(to, InkOf(state));
        cairo_rectangle(to, 11, 5, 17, 5);
        cairo_fill(to);
        cairo_set_line_width(to, 1.5);
        cairo_rectangle(to, 11.75, 12.75, 15.5, 16);
        cairo_stroke(to);
    }
    Outline(to);
}

void Diagonal(cairo_t* to, int state) {
    const Color ink = InkOf(state);
    cairo_save(to);
    cairo_rectangle(to, kSheet.x, kSheet.y, kSheet.width, kSheet.height);
    cairo_clip(to);
    SetColor(to, ink, state >= kBehindInColour ? 0.45 : 1);
    cairo_set_line_width(to, 5);
    cairo_move_to(to, 8, 29);
    cairo_line_to(to, 31, 6);
    cairo_stroke(to);
    cairo_restore(to);
}

void DrawWatermark(cairo_t* to, const Box&, int state) {
    Paper(to);
    if (state >= kBehindInColour) Diagonal(to, state);
    Print(to, {12, 8, 15, 20}, 5);
    if (state == kInColour || state == kInBlack) Diagonal(to, state);
    Outline(to);
}

// Three inks that meet, or three greys.
void DrawColour(cairo_t* to, const Box&, int isBlack) {
    constexpr Color kInks[2][3] = {
        {{0.10, 0.62, 0.85}, {0.87, 0.22, 0.52}, {0.98, 0.80, 0.18}},
        {kDarkInk, {0.54, 0.58, 0.63}, kGreyInk},
    };
    constexpr Point kCenters[3] = {{14, 20.5}, {25, 20.5}, {19.5, 11.5}};
    for (int i = 0; i < 3; ++i) {
        Disc(to, kCenters[i].x, kCenters[i].y, 9, kOutline);
        Disc(to, kCenters[i].x, kCenters[i].y, 7.7, kInks[isBlack][i]);
    }
}

#define STATE(id, draw, value) \
    { id, kWidth, kHeight, draw, value }
constexpr StatePicture kStates[] = {
    {STATE(IDB_STATE_OVERLAY_NONE, DrawOverlay, kNone), IDB_STATE_OVERLAY_MASK},
    {STATE(IDB_STATE_OVERLAY_COLOUR, DrawOverlay, kInColour), 0},
    {STATE(IDB_STATE_OVERLAY_BLACK, DrawOverlay, kInBlack), 0},
    {STATE(IDB_STATE_WATERMARK_NONE, DrawWatermark, kNone), IDB_STATE_WATERMARK_MASK},
    {STATE(IDB_STATE_WATERMARK_FIRST + 0, DrawWatermark, kInColour), 0},
    {STATE(IDB_STATE_WATERMARK_FIRST + 1, DrawWatermark, kInBlack), 0},
    {STATE(IDB_STATE_WATERMARK_FIRST + 2, DrawWatermark, kBehindInColour), 0},
    {STATE(IDB_STATE_WATERMARK_FIRST + 3, DrawWatermark, kBehindInBlack), 0},
    {STATE(IDB_STATE_COLOUR, DrawColour, 0), IDB_STATE_COLOUR_MASK},
    {STATE(IDB_STATE_MONOCHROME, DrawColour, 1), 0},
};

}  // namespace

std::span<const StatePicture> StateIcons() {
    return kStates;
}

}  // namespace draw
