// Image Shifting ("_LBPIMAGESHIFT"): how far the printed image moves, in inches or millimetres. The
// Layout page opens it. Its edits hold decimals in a unit of the user's choice, so the dialog reads
// and fills them itself.
#include <windows.h>

#include <commctrl.h>

#include <optional>
#include <string>

#include "binding/edit_binding.h"
#include "dialog/help.h"
#include "resources/resource.h"
#include "resources/string_ids.h"
#include "settings/dialog_procedures.h"
#include "sheet/rules_path.h"
#include "sheet/snapshot.h"
#include "ui/dialog_messages.h"
#include "ui/page_skeleton.h"
#include "ui/page_table.h"
#include "ui/shift_amount.h"

namespace kvui {
namespace {

constexpr char kTemplate[] = "_LBPIMAGESHIFT";
constexpr int kHelpTopic = 5118;
constexpr int kMaxCharacters = 5;
constexpr size_t kTextSize = 32;

// The user's unit, remembered for all sheets until a Cancel forgets it; set while the dialog is
// open.
std::optional<ShiftUnit> rememberedUnit;

struct AxisRow {
    ShiftAxis axis;
    DWORD PrivateDevmode::*word;
    int edit;
    int spin;
    int range;
    UINT inchRange;
    UINT millimetreRange;
};
// axis, setting, edit, spin, range text, strings of the range in inches and millimetres
constexpr AxisRow kAxes[] = {
    {ShiftAxis::kHorizontal, &PrivateDevmode::mdmOffsetX, IDC_EDIT_OFFSET_X, IDC_SPIN_OFFSET_X,
     IDC_ST_OFFSET_X_RANGE, IDS_SHIFT_X_RANGE_INCH, IDS_SHIFT_X_RANGE_MM},
    {ShiftAxis::kVertical, &PrivateDevmode::mdmOffsetY, IDC_EDIT_OFFSET_Y, IDC_SPIN_OFFSET_Y,
     IDC_ST_OFFSET_Y_RANGE, IDS_SHIFT_Y_RANGE_INCH, IDS_SHIFT_Y_RANGE_MM},
};

ShiftUnit UnitInForce() {
    return rememberedUnit.value_or(ShiftUnit::kInch);
}

ShiftUnit DefaultUnit(const SheetContext& context) {
    return UsesMillimetres(context.printer) ? ShiftUnit::kMillimetre : ShiftUnit::kInch;
}

ShiftUnit UnitAtOpening(const SheetContext& context) {
    const DWORD x = context.privateSettings->mdmOffsetX;
    const DWORD y = context.privateSettings->mdmOffsetY;
    if (const auto stored = UnitOfShift(x, y)) return *stored;
    if (rememberedUnit && IsShiftEmpty(x, y)) return *rememberedUnit;
    return DefaultUnit(context);
}

double Typed(HWND dialog, const AxisRow& row) {
    char text[kTextSize] = "";
    GetDlgItemTextA(dialog, row.edit, text, sizeof text);
    return NumberOfText(text);
}

void ShowAmount(HWND dialog, const AxisRow& row, double amount) {
    char shown[kTextSize] = "";
    GetDlgItemTextA(dialog, row.edit, shown, sizeof shown);
    const std::string text = ShiftText(amount, UnitInForce());
    if (text != shown) SetDlgItemTextA(dialog, row.edit, text.c_str());
}

void ShowUnit(const SheetContext& context, HWND dialog) {
    const bool inches = UnitInForce() == ShiftUnit::kInch;
    CheckRadioButton(dialog, IDC_RADIO_SHIFT_INCH, IDC_RADIO_SHIFT_MM,
                     inches ? IDC_RADIO_SHIFT_INCH : IDC_RADIO_SHIFT_MM);
    for (const AxisRow& row : kAxes) {
        char range[kTextSize] = "";
        LoadStringA(context.strings, inches ? row.inchRange : row.millimetreRange, range,
                    sizeof range);
        SetDlgItemTextA(dialog, row.range, range);
    }
}

void OnInitDialog(SheetContext& context, HWND dialog) {
    SetSubDialogTitle(context, dialog, kTemplate);
    SetChildCaptions(context, dialog);
    TakeSnapshot(context);
    rememberedUnit = UnitAtOpening(context);
    ShowUnit(context, dialog);
    for (const AxisRow& row : kAxes) {
        SendDlgItemMessageA(dialog, row.edit, EM_LIMITTEXT, kMaxCharacters, 0);
        ShowAmount(dialog, row, DecodeShift(context.privateSettings->*row.word, UnitInForce()));
    }
}

// The first character that cannot stand there goes, with all that follows it.
void FilterTyped(HWND edit) {
    if (GetFocus() != edit) return;
    char text[kTextSize] = "";
    GetWindowTextA(edit, text, sizeof text);
    const size_t accepted = AcceptedLength(text, UnitInForce());
    if (text[accepted] == '\0') return;
    text[accepted] = '\0';
    MessageBeep(0xFFFFFFFFu);
    SetWindowTextA(edit, text);
    SendMessageA(edit, EM_SETSEL, accepted, static_cast<LPARAM>(accepted));
}

void ChangeUnit(const SheetContext& context, HWND dialog, ShiftUnit unit) {
    if (unit == UnitInForce()) return;
    rememberedUnit = unit;
    for (const AxisRow& row : kAxes) {
        ShowAmount(dialog, row, ConvertShift(Typed(dialog, row), unit));
    }
    ShowUnit(context, dialog);
}

void OnDefaults(const SheetContext& context, HWND dialog) {
    rememberedUnit = DefaultUnit(context);
    ShowUnit(context, dialog);
    for (const AxisRow& row : kAxes) ShowAmount(dialog, row, 0);
}

void OnOk(SheetContext& context, HWND dialog) {
    constexpr DWORD kUsedBits = 0xFFFF;
    PrivateDevmode& settings = *context.privateSettings;
    DWORD words[2];
    bool changed = false;
    for (int i = 0; i < 2; ++i) {
        const AxisRow& row = kAxes[i];
        words[i] =
            EncodeShift(ClampShift(Typed(dialog, row), row.axis, UnitInForce()), UnitInForce());
        changed = changed || words[i] != (settings.*row.word & kUsedBits);
    }
    if (changed) {
        settings.mdmOffsetX = words[0];
        settings.mdmOffsetY = words[1];
        TakeSnapshot(context);
    }
    EndDialog(dialog, 1);
}

void OnEdit(HWND dialog, const AxisRow& row, WORD code) {
    if (code == EN_UPDATE) FilterTyped(GetDlgItem(dialog, row.edit));
    if (code == EN_KILLFOCUS) {
        ShowAmount(dialog, row, ClampShift(Typed(dialog, row), row.axis, UnitInForce()));
    }
}

void OnCommand(SheetContext& context, HWND dialog, HWND /*control*/, WPARAM wParam) {
    const int id = LOWORD(wParam);
    const WORD code = HIWORD(wParam);
    for (const AxisRow& row : kAxes) {
        if (row.edit == id) return OnEdit(dialog, row, code);
    }
    if (code != BN_CLICKED) return;
    switch (id) {
        case IDOK:
            OnOk(context, dialog);
            return;
        case IDCANCEL:
            rememberedUnit.reset();
            EndDialog(dialog, 0);
            return;
        case IDHELP:
            ShowPageHelp(context, dialog, kHelpTopic);
            return;
        case IDC_DEFAULTS:
            OnDefaults(context, dialog);
            return;
        case IDC_RADIO_SHIFT_INCH:
            ChangeUnit(context, dialog, ShiftUnit::kInch);
            return;
        case IDC_RADIO_SHIFT_MM:
            ChangeUnit(context, dialog, ShiftUnit::kMillimetre);
            return;
        default:
            return;
    }
}

// The arrows hold no number of their own: a step is turned into the edit's text and refused.
bool OnSpin(HWND dialog, const NMHDR& header) {
    if (header.code != static_cast<UINT>(UDN_DELTAPOS)) return false;
    for (const AxisRow& row : kAxes) {
        if (header.idFrom != static_cast<UINT_PTR>(row.spin)) continue;
        const int delta = reinterpret_cast<const NMUPDOWN&>(header).iDelta;
        const double amount = Typed(dialog, row) - delta * ShiftStep(UnitInForce());
        ShowAmount(dialog, row, ClampShift(amount, row.axis, UnitInForce()));
        SetWindowLongPtrA(dialog, DWLP_MSGRESULT, TRUE);
        return true;
    }
    return false;
}

}  // namespace

INT_PTR CALLBACK ImageShiftDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    static constexpr DialogHandlers kImageShift = {
        .onInit = OnInitDialog,
        .onCommand = OnCommand,
        .onNotify = OnSpin,
    };
    return RunDialog(kImageShift, dialog, message, wParam, lParam);
}

}  // namespace kvui
