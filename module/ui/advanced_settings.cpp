// The service technician's settings ("_ADVANCEDSETTINGS"): framework fields of the record as they
// are, without rules. The Device Options page opens it. "Factory Default" covers the whole record.
#include <windows.h>

#include <commctrl.h>

#include <kvcore.h>

#include <cstddef>
#include <cstdio>
#include <cstring>

#include "dialog/dialog_definition.h"
#include "resources/resource.h"
#include "settings/threshold_tables.h"
#include "ui/service_dialogs.h"
#include "ui/steps.h"

namespace kvui {
namespace {

constexpr char kFieldsAtOpening[] = "KVFieldsAtOpening";
constexpr DWORD kDownIsLeft = 0x400;  // TBS_DOWNISLEFT
// Of the larger ranges these would be too fine to see or to feel.
constexpr LONG kPage = 10, kTicks = 20, kMostFineRange = 50 * kTicks;

struct SliderRow {
    DWORD id;
    size_t offset;
    LONG lowest, highest;
};
// clang-format off
constexpr SliderRow kSliders[] = {
    {IDC_SLD_BRIGHTNESS,      offsetof(PrivateDevmode, Lightness),          -50,  50},
    {IDC_SLD_CONTRAST,        offsetof(PrivateDevmode, Contrast),           -50,  50},
    {IDC_SLD_SATURATION,      offsetof(PrivateDevmode, Saturation),         -50,  50},
    {IDC_SLD_DOT_GAIN,        offsetof(PrivateDevmode, DotGainAdjust),      0,    kMostFineRange},
    {IDC_SLD_GCR,             offsetof(PrivateDevmode, GCR),                0,    100},
    {IDC_SLD_BG,              offsetof(PrivateDevmode, BlackGeneration),    0,    100},
    {IDC_SLD_DPL,             offsetof(PrivateDevmode, Depletion),          -100, 100},
    {IDC_SLD_DIFFUSION_NOISE, offsetof(PrivateDevmode, DiffusionNoise),     0,    32767},
    {IDC_SLD_GRAY_LIGHTNESS,  offsetof(PrivateDevmode, GrayLightness),      0,    32767},
    {IDC_SLD_HUE_LIGHTNESS,   offsetof(PrivateDevmode, HueLightness),       0,    32767},
    {IDC_SLD_HIGH_CUTOFF,     offsetof(PrivateDevmode, ContrastHighCutoff), 0,    32767},
    {IDC_SLD_LOW_CUTOFF,      offsetof(PrivateDevmode, ContrastLowCutoff),  0,    32767},
    {IDC_SLD_NUP,             offsetof(PrivateDevmode, nUp),                0,    16},
    {IDC_SLD_NUP_MODE,        offsetof(PrivateDevmode, nUpMode),            0,    255},
    {IDC_SLD_DRIVER_PAPER,    offsetof(PrivateDevmode, dmDriverPaper),      0,    767},
    {IDC_SLD_DEVICE_DATA_1,   offsetof(PrivateDevmode, DeviceData1),        0,    255},
    {IDC_SLD_DEVICE_DATA_2,   offsetof(PrivateDevmode, DeviceData2),        0,    255},
    {IDC_SLD_UNSHARP_MASK,    offsetof(PrivateDevmode, UnsharpMask),        0,    100},
};

struct CheckRow {
    DWORD id;
    size_t offset;
    bool onlyOne;  // shown checked when the value is 1, else for any value but 0
};
constexpr CheckRow kChecks[] = {
    {IDC_CHK_COMPRESSION,        offsetof(PrivateDevmode, Compression),      false},
    {IDC_CHK_ANTI_ALIASING,      offsetof(PrivateDevmode, AntiAliasing),     false},
    {IDC_CHK_COLOR_MATCHING,     offsetof(PrivateDevmode, ColorMatching),    true},
    {IDC_CHK_MIRROR,             offsetof(PrivateDevmode, Mirror),           false},
    {IDC_CHK_COLORS_TO_PATTERNS, offsetof(PrivateDevmode, ColorsToPatterns), false},
    {IDC_CHK_ENHANCE_CONTRAST,   offsetof(PrivateDevmode, EnhanceContrast),  false},
    {IDC_CHK_ENHANCE_LIGHTNESS,  offsetof(PrivateDevmode, EnhanceLightness), false},
};
// clang-format on

LONG& FieldAt(PrivateDevmode& settings, size_t offset) {
    return *reinterpret_cast<LONG*>(reinterpret_cast<BYTE*>(&settings) + offset);
}

HWND ControlOf(const Run& run, DWORD id) {
    return GetDlgItem(run.window, static_cast<int>(id));
}

void ShowValues(Run& run) {
    PrivateDevmode& settings = *run.context.privateSettings;
    for (const SliderRow& row : kSliders) {
        const LONG value = FieldAt(settings, row.offset);
        SendMessageA(ControlOf(run, row.id), TBM_SETPOS, TRUE, value);
        // The number stands in the control that follows the slider.
        char text[16];
        std::snprintf(text, sizeof text, "%d", static_cast<int>(value));
        SetDlgItemTextA(run.window, static_cast<int>(row.id) + 1, text);
    }
    for (const CheckRow& row : kChecks) {
        const LONG value = FieldAt(settings, row.offset);
        CheckDlgButton(run.window, static_cast<int>(row.id),
                       (row.onlyOne ? value == 1 : value != 0) ? BST_CHECKED : BST_UNCHECKED);
    }
    const int gain = static_cast<int>(DotGain(run.context));
    char text[48];
    std::snprintf(text, sizeof text, "DotGain=%d (0x%x)", gain, static_cast<unsigned>(gain));
    SetDlgItemTextA(run.window, IDC_ST_DOT_GAIN, text);
}

void KeepFields(Run& run) {
    auto* fields = new PrivateDevmode(*run.context.privateSettings);
    if (!SetPropA(run.window, kFieldsAtOpening, fields)) delete fields;
}

void ForgetFields(Run& run) {
    delete static_cast<PrivateDevmode*>(RemovePropA(run.window, kFieldsAtOpening));
}

// The hues are not this dialog's own.
void PutFieldsBack(Run& run) {
    auto* fields = static_cast<PrivateDevmode*>(GetPropA(run.window, kFieldsAtOpening));
    if (fields == nullptr) return;
    PrivateDevmode& settings = *run.context.privateSettings;
    for (const SliderRow& row : kSliders) {
        FieldAt(settings, row.offset) = FieldAt(*fields, row.offset);
    }
    for (const CheckRow& row : kChecks) {
        FieldAt(settings, row.offset) = FieldAt(*fields, row.offset);
    }
}

void PrepareSliders(Run& run) {
    for (const SliderRow& row : kSliders) {
        const HWND slider = ControlOf(run, row.id);
        SetWindowLongA(slider, GWL_STYLE, GetWindowLongA(slider, GWL_STYLE) | kDownIsLeft);
        SendMessageA(slider, TBM_SETRANGEMIN, FALSE, row.lowest);
        SendMessageA(slider, TBM_SETRANGEMAX, FALSE, row.highest);
        const LONG range = row.highest - row.lowest;
        const LONG coarse = range > kMostFineRange ? range / kTicks : 0;
        SendMessageA(slider, TBM_SETPAGESIZE, 0, coarse != 0 ? coarse : kPage);
        const LONG ticks = range < kTicks ? 1 : coarse != 0 ? coarse : kTicks;
        SendMessageA(slider, TBM_SETTICFREQ, static_cast<WPARAM>(ticks), 0);
    }
}

void StoreSlider(Run& run) {
    for (const SliderRow& row : kSliders) {
        if (row.id != run.id) continue;
        FieldAt(*run.context.privateSettings, row.offset) =
            static_cast<LONG>(SendMessageA(ControlOf(run, row.id), TBM_GETPOS, 0, 0));
    }
}

void StoreCheck(Run& run) {
    for (const CheckRow& row : kChecks) {
        if (row.id != run.id || run.code != BN_CLICKED) continue;
        FieldAt(*run.context.privateSettings, row.offset) =
            IsDlgButtonChecked(run.window, static_cast<int>(row.id)) == BST_CHECKED ? 1 : 0;
    }
}

void PressButtons(Run& run) {
    if (run.code != BN_CLICKED) return;
    if (run.id == IDC_BTN_HUES) CorrectHues(run.context, run.window);
    if (run.id != IDC_BTN_FACTORY_DEFAULT) return;
    QDMGetStdDefaults(run.context.printer, run.context.settings, nullptr);
    ShowValues(run);
}

constexpr DialogDefinition kAdvancedSettings = {
    .templateName = "_ADVANCEDSETTINGS",
    .ok = {IDOK, 1},
    .cancel = {IDCANCEL, 0, PutFieldsBack},
    .open = InOrder<KeepFields, PrepareSliders, ShowValues>,
    .command = InOrder<StoreCheck, PressButtons, IfDiffers<TellSheet>>,
    .scroll = InOrder<StoreSlider, ShowValues, IfDiffers<TellSheet>>,
    .popupHelp = nullptr,
    .close = ForgetFields,
};

}  // namespace

INT_PTR CALLBACK AdvancedSettingsDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return RunDialog(kAdvancedSettings, dialog, message, wParam, lParam);
}

}  // namespace kvui
