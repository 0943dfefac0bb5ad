// Image Shifting ("_LBPIMAGESHIFT"): how far the printed image moves, in inches or millimetres. The
// Layout page opens it. Its edits hold decimals in a unit of the user's choice, so the dialog reads
// and fills them itself.
#include <windows.h>

#include <commctrl.h>

#include <optional>
#include <string>

#include "binding/edit_binding.h"
#include "dialog/dialog_definition.h"
#include "resources/resource.h"
#include "resources/string_ids.h"
#include "settings/dialog_procedures.h"
#include "sheet/rules_path.h"
#include "sheet/snapshot.h"
#include "ui/shift_amount.h"
#include "ui/steps.h"

namespace kvui {
namespace {

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

void ShowShift(Run& run) {
    rememberedUnit = UnitAtOpening(run.context);
    ShowUnit(run.context, run.window);
    for (const AxisRow& row : kAxes) {
        SendDlgItemMessageA(run.window, row.edit, EM_LIMITTEXT, kMaxCharacters, 0);
        ShowAmount(run.window, row,
                   DecodeShift(run.context.privateSettings->*row.word, UnitInForce()));
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

void ShowNoShift(const SheetContext& context, HWND dialog) {
    rememberedUnit = DefaultUnit(context);
    ShowUnit(context, dialog);
    for (const AxisRow& row : kAxes) ShowAmount(dialog, row, 0);
}

void StoreShift(Run& run) {
    constexpr DWORD kUsedBits = 0xFFFF;
    PrivateDevmode& settings = *run.context.privateSettings;
    DWORD words[2];
    bool changed = false;
    for (int i = 0; i < 2; ++i) {
        const AxisRow& row = kAxes[i];
        const double typed = Typed(run.window, row);
        words[i] = EncodeShift(ClampShift(typed, row.axis, UnitInForce()), UnitInForce());
        changed = changed || words[i] != (settings.*row.word & kUsedBits);
    }
    if (!changed) return;
    settings.mdmOffsetX = words[0];
    settings.mdmOffsetY = words[1];
    TakeSnapshot(run.context);
}

void ForgetUnit(Run& /*run*/) {
    rememberedUnit.reset();
}

void OnEdit(HWND dialog, const AxisRow& row, WORD code) {
    if (code == EN_UPDATE) FilterTyped(GetDlgItem(dialog, row.edit));
    if (code == EN_KILLFOCUS) {
        ShowAmount(dialog, row, ClampShift(Typed(dialog, row), row.axis, UnitInForce()));
    }
}

void EditShift(Run& run) {
    for (const AxisRow& row : kAxes) {
        if (row.edit == static_cast<int>(run.id)) OnEdit(run.window, row, run.code);
    }
}

void ChooseUnitOrDefaults(Run& run) {
    if (run.code != BN_CLICKED) return;
    if (run.id == IDC_DEFAULTS) ShowNoShift(run.context, run.window);
    if (run.id == IDC_RADIO_SHIFT_INCH) ChangeUnit(run.context, run.window, ShiftUnit::kInch);
    if (run.id == IDC_RADIO_SHIFT_MM) ChangeUnit(run.context, run.window, ShiftUnit::kMillimetre);
}

// The arrows hold no number of their own: a step is turned into the edit's text and refused.
void StepShift(Run& run) {
    run.answer = FALSE;
    const auto& header = *reinterpret_cast<const NMHDR*>(run.lParam);
    if (header.code != static_cast<UINT>(UDN_DELTAPOS)) return;
    for (const AxisRow& row : kAxes) {
        if (header.idFrom != static_cast<UINT_PTR>(row.spin)) continue;
        const int delta = reinterpret_cast<const NMUPDOWN&>(header).iDelta;
        const double amount = Typed(run.window, row) - delta * ShiftStep(UnitInForce());
        ShowAmount(run.window, row, ClampShift(amount, row.axis, UnitInForce()));
        SetWindowLongPtrA(run.window, DWLP_MSGRESULT, TRUE);
        run.answer = TRUE;
    }
}

constexpr DialogDefinition kImageShift = {
    .templateName = "_LBPIMAGESHIFT",
    .dialogName = "_LBPIMAGESHIFT",
    .helpTopic = 5118,
    .ok = {IDOK, 1, StoreShift},
    .cancel = {IDCANCEL, 0, ForgetUnit},
    .open = InOrder<SetCaptions, Keep, ShowShift>,
    .command = InOrder<EditShift, ChooseUnitOrDefaults>,
    .notify = StepShift,
};

}  // namespace

INT_PTR CALLBACK ImageShiftDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return RunDialog(kImageShift, dialog, message, wParam, lParam);
}

}  // namespace kvui
