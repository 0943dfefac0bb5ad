// Hue correction: the platform's colour dialog with the module's own template, and a hook that
// turns it into an editor of six colours. "Screen" is the pure hue, "Printer" what is printed for
// it.
#include <windows.h>

#include <colordlg.h>
#include <commdlg.h>
#include <kvcore.h>
#include <prsht.h>

#include <algorithm>
#include <cstring>

#include "resources/resource.h"
#include "sheet/private_devmode.h"
#include "ui/service_dialogs.h"

namespace kvui {
namespace {

constexpr char kHuesProperty[] = "KVHues";

// The record has room for eight colours; the first two are not used.
constexpr int kSlots = 8, kFirstSlot = 2;

constexpr COLORREF kScreenColors[kSlots] = {
    0,
    0,
    RGB(255, 0, 0),
    RGB(255, 255, 0),
    RGB(0, 255, 0),
    RGB(0, 255, 255),
    RGB(0, 0, 255),
    RGB(255, 0, 255),
};

constexpr size_t kSlotsOffset = offsetof(PrivateDevmode, HueRed) - kFirstSlot * sizeof(COLORREF);
static_assert(offsetof(PrivateDevmode, HueYellow) == kSlotsOffset + 3 * sizeof(COLORREF));
static_assert(offsetof(PrivateDevmode, HueGreen) == kSlotsOffset + 4 * sizeof(COLORREF));
static_assert(offsetof(PrivateDevmode, HueCyan) == kSlotsOffset + 5 * sizeof(COLORREF));
static_assert(offsetof(PrivateDevmode, HueBlue) == kSlotsOffset + 6 * sizeof(COLORREF));
static_assert(offsetof(PrivateDevmode, HueMagenta) == kSlotsOffset + 7 * sizeof(COLORREF));

void* SlotsOf(PrivateDevmode& settings) {
    return reinterpret_cast<BYTE*>(&settings) + kSlotsOffset;
}

// One session of the dialog. The platform may write all its custom colours, so the slots lie in an
// array of that many meanwhile.
struct Hues {
    SheetContext& context;
    COLORREF slots[NUM_CUSTOM_COLORS] = {};
    int selected = kFirstSlot;
    HBRUSH brush = nullptr;  // of the sample that was asked for last
};

Hues* HuesOf(HWND dialog) {
    return static_cast<Hues*>(GetPropA(dialog, kHuesProperty));
}

BYTE NumberIn(HWND dialog, int id) {
    return static_cast<BYTE>(GetDlgItemInt(dialog, id, nullptr, FALSE));
}

void RepaintSample(HWND dialog, int slot) {
    InvalidateRect(GetDlgItem(dialog, IDC_HUE_PRINTER_RED + slot - kFirstSlot), nullptr, TRUE);
}

void StoreSelected(HWND dialog, Hues& hues) {
    hues.slots[hues.selected] =
        RGB(NumberIn(dialog, IDC_COLOR_RED), NumberIn(dialog, IDC_COLOR_GREEN),
            NumberIn(dialog, IDC_COLOR_BLUE));
    RepaintSample(dialog, hues.selected);
}

void ShowSelected(HWND dialog, const Hues& hues) {
    SendMessageA(dialog, RegisterWindowMessageA(SETRGBSTRINGA), 0,
                 static_cast<LPARAM>(hues.slots[hues.selected]));
}

void Open(HWND dialog, Hues& hues) {
    SetPropA(dialog, kHuesProperty, &hues);
    CheckRadioButton(dialog, IDC_RADIO_HUE_RED, IDC_RADIO_HUE_MAGENTA, IDC_RADIO_HUE_RED);
    for (const int id : {IDC_COLOR_BASIC, IDC_COLOR_CUSTOM}) {
        ShowWindow(GetDlgItem(dialog, id), SW_HIDE);
        EnableWindow(GetDlgItem(dialog, id), FALSE);
    }
}

void Select(HWND dialog, Hues& hues, int id) {
    StoreSelected(dialog, hues);
    hues.selected = id - IDC_RADIO_HUE_RED + kFirstSlot;
    CheckRadioButton(dialog, IDC_RADIO_HUE_RED, IDC_RADIO_HUE_MAGENTA, id);
    ShowSelected(dialog, hues);
}

void RestoreDefaults(HWND dialog, Hues& hues) {
    union {
        DEVMODEA record;
        BYTE bytes[kRecordSize];
    } defaults;
    std::memcpy(defaults.bytes, hues.context.settings, kRecordSize);
    if (QDMGetStdDefaults(hues.context.printer, &defaults.record, nullptr) == 0) return;
    std::memcpy(hues.slots, SlotsOf(*PrivatePart(&defaults.record)), kSlots * sizeof(COLORREF));
    for (int slot = kFirstSlot; slot < kSlots; ++slot) RepaintSample(dialog, slot);
    ShowSelected(dialog, hues);
}

// False when it is for the platform's dialog.
bool OnCommand(HWND dialog, Hues& hues, int id, int code) {
    if (id == IDOK) StoreSelected(dialog, hues);
    if (code != BN_CLICKED) return false;
    if (id >= IDC_RADIO_HUE_RED && id <= IDC_RADIO_HUE_MAGENTA) {
        Select(dialog, hues, id);
        return true;
    }
    if (id != IDC_BTN_HUE_DEFAULTS) return false;
    RestoreDefaults(dialog, hues);
    return true;
}

// The brush that fills a sample; null for other controls.
HBRUSH FillOf(Hues& hues, HDC dc, HWND control) {
    const int id = GetDlgCtrlID(control);
    COLORREF color = 0;
    if (id >= IDC_HUE_SCREEN_RED && id <= IDC_HUE_SCREEN_MAGENTA) {
        color = kScreenColors[id - IDC_HUE_SCREEN_RED + kFirstSlot];
    } else if (id >= IDC_HUE_PRINTER_RED && id <= IDC_HUE_PRINTER_MAGENTA) {
        color = hues.slots[id - IDC_HUE_PRINTER_RED + kFirstSlot] & 0xFFFFFF;
    } else {
        return nullptr;
    }
    if (hues.brush != nullptr) DeleteObject(hues.brush);
    SetBkColor(dc, color);
    return hues.brush = CreateSolidBrush(color);
}

UINT_PTR CALLBACK HueHook(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        const auto& request = *reinterpret_cast<const CHOOSECOLORA*>(lParam);
        Open(dialog, *reinterpret_cast<Hues*>(request.lCustData));
        return TRUE;
    }
    Hues* hues = HuesOf(dialog);
    if (hues == nullptr) return 0;
    switch (message) {
        case WM_COMMAND:
            return OnCommand(dialog, *hues, LOWORD(wParam), HIWORD(wParam)) ? 1 : 0;
        case WM_CTLCOLORSTATIC:
            return reinterpret_cast<UINT_PTR>(
                FillOf(*hues, reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam)));
        case WM_DESTROY:
            RemovePropA(dialog, kHuesProperty);
            return 0;
        default:
            return 0;
    }
}

}  // namespace

void CorrectHues(SheetContext& context, HWND owner) {
    void* const stored = SlotsOf(*context.privateSettings);
    Hues hues{context};
    std::memcpy(hues.slots, stored, kSlots * sizeof(COLORREF));
    CHOOSECOLORA request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = owner;
    request.hInstance = reinterpret_cast<decltype(request.hInstance)>(context.resources);
    request.rgbResult = hues.slots[kFirstSlot] & 0xFFFFFF;
    request.lpCustColors = hues.slots;
    request.Flags = CC_RGBINIT | CC_FULLOPEN | CC_ENABLEHOOK | CC_ENABLETEMPLATE;
    request.lCustData = reinterpret_cast<LPARAM>(&hues);
    request.lpfnHook = HueHook;
    request.lpTemplateName = "_HUECORRECTION";
    const bool agreed = ChooseColorA(&request) != FALSE;
    if (hues.brush != nullptr) DeleteObject(hues.brush);
    const bool changed = std::memcmp(stored, hues.slots, kSlots * sizeof(COLORREF)) != 0;
    std::memcpy(stored, hues.slots, kSlots * sizeof(COLORREF));
    if (agreed && changed) {
        SendMessageA(GetParent(owner), PSM_CHANGED, reinterpret_cast<WPARAM>(owner), 0);
    }
}

}  // namespace kvui
