// The fields of the watermark editor: what they are, and what they show when it opens. Used by the
// editor, which takes what is typed and chosen there.
#pragma once

#include <windows.h>

#include <iterator>
#include <string>

#include "dialog/run.h"
#include "preview/watermark_preview.h"
#include "resources/resource.h"
#include "resources/string_ids.h"

namespace kvui::watermark {

constexpr int kMostTextCharacters = sizeof WatermarkRecord::text - 1;

struct ColourRow {
    UINT captionId;
    COLORREF colour;
};
// caption, colour; that of the last one is picked
constexpr ColourRow kColours[] = {
    {IDS_COLOR_BLACK, RGB(0, 0, 0)},      {IDS_COLOR_RED, RGB(255, 0, 0)},
    {IDS_COLOR_GREEN, RGB(0, 255, 0)},    {IDS_COLOR_BLUE, RGB(0, 0, 255)},
    {IDS_COLOR_YELLOW, RGB(255, 255, 0)}, {IDS_COLOR_MAGENTA, RGB(255, 0, 255)},
    {IDS_COLOR_CYAN, RGB(0, 255, 255)},   {IDS_COLOR_OTHERS, 0},
};
constexpr int kOtherColour = std::size(kColours) - 1;

// One direction of the position: its slider goes from left to right or from the bottom up.
struct PositionRow {
    int slider, edit, spin;
    LONG WatermarkRecord::*offset;
    LONG SIZE::*side;
    int slope, start;  // per cent = slope * slider + start
};
constexpr PositionRow kPositions[] = {
    {IDC_SLD_WM_POSITION_X, IDC_EDIT_WM_POSITION_X, IDC_SPIN_WM_POSITION_X,
     &WatermarkRecord::offsetX, &SIZE::cx, 2, -100},
    {IDC_SLD_WM_POSITION_Y, IDC_EDIT_WM_POSITION_Y, IDC_SPIN_WM_POSITION_Y,
     &WatermarkRecord::offsetY, &SIZE::cy, -2, 100},
};

inline WatermarkEdit& EditOf(Run& run) {
    return *run.context.shared->lists.watermarkEdit;
}
inline WatermarkRecord& Record(Run& run) {
    return EditOf(run).record;
}
inline HWND ControlOf(const Run& run, int id) {
    return GetDlgItem(run.window, id);
}
inline WatermarkAxis AxisOf(Run& run, const PositionRow& row) {
    const WatermarkPaper& paper = EditOf(run).paper;
    return {paper.scale, paper.size.*row.side};
}

inline void Redraw(Run& run) {
    InvalidateRect(ControlOf(run, IDC_PIC_WM_PAPER), nullptr, FALSE);
}

inline std::string TextOf(const Run& run, int id) {
    char text[kMostTextCharacters + 1] = "";
    GetDlgItemTextA(run.window, id, text, sizeof text);
    return text;
}

// Fields that the editor fills itself are not read back.
inline void ShowText(Run& run, int id, const std::string& text) {
    EditOf(run).isShowing = true;
    SetDlgItemTextA(run.window, id, text.c_str());
    EditOf(run).isShowing = false;
}
inline void ShowNumber(Run& run, int id, LONG number) {
    ShowText(run, id, std::to_string(number));
}

// At the record's offset.
void ShowSlider(Run& run, const PositionRow& row);

// Steps of the dialog's opening.
void MakeRecord(Run& run);
void ShowWatermark(Run& run);

}  // namespace kvui::watermark
