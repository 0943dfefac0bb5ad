// See watermark_fields.h.
#include "ui/watermark_fields.h"

#include <commctrl.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "lists/watermark_angle.h"
#include "lists/watermark_list.h"
#include "lists/watermark_records.h"
#include "sheet/administrator.h"
#include "sheet/fixed_text.h"
#include "ui/watermark_typefaces.h"

namespace kvui::watermark {
namespace {

constexpr int kTypedNameCharacters = 20;
constexpr int kNumberCharacters = 4, kSizeCharacters = 3;
constexpr int kMostSlider = 100;

constexpr UINT kStyles[] = {IDS_STYLE_REGULAR, IDS_STYLE_BOLD, IDS_STYLE_ITALIC,
                            IDS_STYLE_BOLD_ITALIC};  // by bold + 2 * italic

void FillMenu(Run& run, int id, UINT stringId) {
    char caption[64] = "";
    LoadStringA(run.context.strings, stringId, caption, sizeof caption);
    SendDlgItemMessageA(run.window, id, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(caption));
}

// A typeface that is not installed is offered to keep; another one is drawn in its place.
void ShowTypefaces(Run& run) {
    const HWND combo = ControlOf(run, IDC_COMBO_WM_FACE);
    const auto add = [&](const std::string& name) {
        SendMessageA(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    };
    for (const std::string& name : WatermarkTypefaces(run.context, run.window)) add(name);
    const std::string chosen = BoundedText(Record(run).typeface);
    const auto find = [&] {
        return SendMessageA(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                            reinterpret_cast<LPARAM>(chosen.c_str()));
    };
    if (!chosen.empty() && find() < 0) add(chosen);
    if (!chosen.empty()) SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(find()), 0);
}

void ShowLook(Run& run) {
    const WatermarkRecord& record = Record(run);
    for (const UINT style : kStyles) FillMenu(run, IDC_COMBO_WM_STYLE, style);
    const int style = (record.bold ? 1 : 0) + (record.italic ? 2 : 0);
    SendDlgItemMessageA(run.window, IDC_COMBO_WM_STYLE, CB_SETCURSEL, static_cast<WPARAM>(style),
                        0);
    const COLORREF colour = RGB(record.red, record.green, record.blue);
    WatermarkEdit& edit = EditOf(run);
    edit.otherColour = colour;
    edit.colourRow = kOtherColour;
    for (int row = 0; row <= kOtherColour; ++row) {
        FillMenu(run, IDC_COMBO_WM_COLOR, kColours[row].captionId);
        if (edit.colourRow == kOtherColour && kColours[row].colour == colour) edit.colourRow = row;
    }
    SendDlgItemMessageA(run.window, IDC_COMBO_WM_COLOR, CB_SETCURSEL,
                        static_cast<WPARAM>(edit.colourRow), 0);
}

void LimitNumber(Run& run, int edit, int characters, int spin, LONG least, LONG most) {
    SendDlgItemMessageA(run.window, edit, EM_LIMITTEXT, static_cast<WPARAM>(characters), 0);
    SendDlgItemMessageA(run.window, spin, UDM_SETRANGE32, static_cast<WPARAM>(least), most);
}

void ShowSizeAndAngle(Run& run) {
    LimitNumber(run, IDC_EDIT_WM_SIZE, kSizeCharacters, IDC_SPIN_WM_SIZE, kLeastWatermarkSize,
                kMostWatermarkSize);
    const DWORD size = std::min<DWORD>(Record(run).size, kMostWatermarkSize);
    ShowNumber(run, IDC_EDIT_WM_SIZE, std::max(static_cast<LONG>(size), kLeastWatermarkSize));
    LimitNumber(run, IDC_EDIT_WM_ANGLE, kNumberCharacters, IDC_SPIN_WM_ANGLE, -kMostWatermarkAngle,
                kMostWatermarkAngle);
    ShowNumber(run, IDC_EDIT_WM_ANGLE, Record(run).angle);
    char range[32];
    std::snprintf(range, sizeof range, "[%ld - %ld]", static_cast<long>(-kMostWatermarkAngle),
                  static_cast<long>(kMostWatermarkAngle));
    SetDlgItemTextA(run.window, IDC_ST_WM_ANGLE_RANGE, range);
}

void ShowPosition(Run& run) {
    for (const PositionRow& row : kPositions) {
        LimitNumber(run, row.edit, kNumberCharacters, row.spin, -kMostPercent, kMostPercent);
        SendDlgItemMessageA(run.window, row.slider, TBM_SETRANGE, FALSE, MAKELONG(0, kMostSlider));
        for (const int id : {row.slider, row.edit, row.spin})
            EnableWindow(ControlOf(run, id), TRUE);
        ShowNumber(run, row.edit, AxisOf(run, row).PercentOf(Record(run).*row.offset));
        ShowSlider(run, row);
    }
}

// Users who are no administrators have their own watermarks only.
void ShowSharing(Run& run) {
    SheetContext& context = run.context;
    const WatermarkEdit& edit = EditOf(run);
    const bool described = !edit.isNew && edit.record.id < kFirstUserWatermark;
    const bool nt = context.platformId == VER_PLATFORM_WIN32_NT;
    const bool user = nt && !IsAdministrator();
    const bool common =
        described || (edit.isNew ? !user : IsCommonWatermark(context, edit.record.id));
    CheckRadioButton(run.window, IDC_RADIO_WM_SHARED, IDC_RADIO_WM_OWN,
                     common ? IDC_RADIO_WM_SHARED : IDC_RADIO_WM_OWN);
    for (const int id : {IDC_GRP_WM_SHARING, IDC_RADIO_WM_SHARED, IDC_RADIO_WM_OWN}) {
        EnableWindow(ControlOf(run, id), nt && !user && !described);
    }
}

}  // namespace

void ShowSlider(Run& run, const PositionRow& row) {
    const double percent = AxisOf(run, row).ExactPercentOf(Record(run).*row.offset);
    const LONG place = static_cast<LONG>(std::lround((percent - row.start) / row.slope));
    SendDlgItemMessageA(run.window, row.slider, TBM_SETPOS, TRUE, place);
}

void MakeRecord(Run& run) {
    SheetContext& context = run.context;
    WatermarkEdit& edit = EditOf(run);
    edit.record = MakeDefaultWatermark(context, edit.number);
    if (!edit.isNew) FetchWatermark(context, context.privateSettings->mdmWatermark, edit.record);
    edit.paper = WatermarkPaperOf(context);
    WatermarkRecord& record = edit.record;
    if (record.angleMode == kAngleHorizontal) record.angle = 0;
    if (record.angleMode == kAngleVertical) record.angle = 90;
    if (record.angleMode == kAngleDiagonal)
        record.angle = static_cast<LONG>(DiagonalAngle(context));
    record.angle = std::clamp<LONG>(record.angle, -kMostWatermarkAngle, kMostWatermarkAngle);
    record.angleMode = kAngleByUser;
    context.privateSettings->mdmOtherSettings &= ~kOtherDiagonalKnown;
}

void ShowWatermark(Run& run) {
    SendDlgItemMessageA(run.window, IDC_EDIT_WM_NAME, EM_LIMITTEXT, kTypedNameCharacters, 0);
    SendDlgItemMessageA(run.window, IDC_EDIT_WM_TEXT, EM_LIMITTEXT, kMostTextCharacters, 0);
    ShowText(run, IDC_EDIT_WM_NAME, BoundedText(Record(run).name));
    ShowText(run, IDC_EDIT_WM_TEXT, BoundedText(Record(run).text));
    ShowTypefaces(run);
    ShowLook(run);
    ShowSizeAndAngle(run);
    PlaceWatermarkPreview(run.context, run.window, IDC_PIC_WM_FRAME, IDC_PIC_WM_PAPER);
    ShowPosition(run);
    ShowSharing(run);
}

}  // namespace kvui::watermark
