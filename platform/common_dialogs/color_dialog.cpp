// ChooseColorA: basic and custom colours, a field of hues, edits of the components. A caller's
// template may leave out any control; what is there works by its number in colordlg.h.
#include <platform/common_dialogs/color_math.h>
#include <platform/common_dialogs/common_dialog.h>
#include <platform/window/core.h>

#include <colordlg.h>
#include <commdlg.h>

#include <algorithm>
#include <string>

namespace kv {
namespace {

constexpr char kStateProperty[] = "KvColorDialog";
constexpr char kProcedureProperty[] = "KvColorProcedure";
constexpr int kColumns = 8;

struct ColorState {
    CHOOSECOLORA* request = nullptr;
    CommonRequest common;
    COLORREF color = 0;
    Hsl hsl;
    int cell[2] = {0, 0};  // where the keys are, in the basic and in the custom colours
    bool filling = false;  // EN_CHANGE of the dialog's own writing is no wish of the user
};

// The colours of the standard palette, a row of the grid in a line.
constexpr COLORREF kBasicColors[NUM_BASIC_COLORS] = {
    0x8080FF, 0x80FFFF, 0x80FF80, 0x80FF00, 0xFFFF80, 0xFF8000, 0xC080FF, 0xFF80FF,
    0x0000FF, 0x00FFFF, 0x00FF80, 0x40FF00, 0xFFFF00, 0xC08000, 0xC08080, 0xFF00FF,
    0x404080, 0x4080FF, 0x00FF00, 0x808000, 0x804000, 0xFF8080, 0x400080, 0x8000FF,
    0x000080, 0x0080FF, 0x008000, 0x408000, 0xFF0000, 0xA00000, 0x800080, 0xFF0080,
    0x000040, 0x004080, 0x004000, 0x404000, 0x800000, 0x400000, 0x400040, 0x800040,
    0x000000, 0x008080, 0x408080, 0x808080, 0x808040, 0xC0C0C0, 0x400040, 0xFFFFFF,
};

struct Place {
    const char* className;
    const char* text;
    DWORD style;
    int id;
    RECT rect;
};

// The dialog without a caller's template: class, text, style, number, place in pixels. What begins
// right of kNarrow belongs to the part that "Define Custom Colors" opens.
constexpr int kNarrow = 232;
constexpr int kWide = 480;
constexpr int kHeight = 300;
constexpr DWORD kPicture = SS_NOTIFY | WS_TABSTOP;
constexpr DWORD kNumber = ES_NUMBER | WS_BORDER | WS_TABSTOP;
constexpr Place kPlaces[] = {
    {"Static", "&Basic colors:", 0, -1, {10, 8, 220, 22}},
    {"Static", "", kPicture, COLOR_BOX1, {10, 24, 218, 144}},
    {"Static", "&Custom colors:", 0, -1, {10, 152, 220, 166}},
    {"Static", "", kPicture, COLOR_CUSTOM1, {10, 168, 218, 208}},
    {"Button", "&Define Custom Colors >>", WS_TABSTOP, COLOR_MIX, {10, 218, 218, 241}},
    {"Button", "OK", BS_DEFPUSHBUTTON | WS_TABSTOP, IDOK, {10, 256, 75, 279}},
    {"Button", "Cancel", WS_TABSTOP, IDCANCEL, {81, 256, 146, 279}},
    {"Button", "&Help", WS_TABSTOP, kHelpButton, {152, 256, 218, 279}},
    {"Static", "", SS_NOTIFY, COLOR_RAINBOW, {240, 8, 426, 160}},
    {"Static", "", SS_NOTIFY, COLOR_LUMSCROLL, {436, 8, 454, 160}},
    {"Static", "", 0, COLOR_CURRENT, {240, 170, 288, 220}},
    {"Static", "Hu&e:", 0, -1, {296, 170, 340, 184}},
    {"Edit", "", kNumber, COLOR_HUE, {342, 168, 376, 186}},
    {"Static", "&Sat:", 0, -1, {296, 192, 340, 206}},
    {"Edit", "", kNumber, COLOR_SAT, {342, 190, 376, 208}},
    {"Static", "&Lum:", 0, -1, {296, 214, 340, 228}},
    {"Edit", "", kNumber, COLOR_LUM, {342, 212, 376, 230}},
    {"Static", "&Red:", 0, -1, {384, 170, 428, 184}},
    {"Edit", "", kNumber, COLOR_RED, {430, 168, 464, 186}},
    {"Static", "&Green:", 0, -1, {384, 192, 428, 206}},
    {"Edit", "", kNumber, COLOR_GREEN, {430, 190, 464, 208}},
    {"Static", "Bl&ue:", 0, -1, {384, 214, 428, 228}},
    {"Edit", "", kNumber, COLOR_BLUE, {430, 212, 464, 230}},
    {"Button", "&Add to Custom Colors", WS_TABSTOP, COLOR_ADD, {240, 256, 464, 279}},
};

ColorState* StateOfDialog(HWND dialog) {
    return static_cast<ColorState*>(GetPropA(dialog, kStateProperty));
}

bool Has(const ColorState& state, DWORD flag) {
    return (state.request->Flags & flag) != 0;
}

void SetNumber(HWND dialog, int id, int value) {
    if (GetDlgItem(dialog, id)) SetDlgItemInt(dialog, id, static_cast<UINT>(value), FALSE);
}

void Redraw(HWND dialog) {
    for (const int id :
         {COLOR_BOX1, COLOR_CUSTOM1, COLOR_RAINBOW, COLOR_LUMSCROLL, COLOR_CURRENT}) {
        if (HWND control = GetDlgItem(dialog, id)) InvalidateRect(control, nullptr, TRUE);
    }
}

enum class Fill { kRgb, kHsl, kBoth };

// Shows the colour, save in the edits that the user types into.
void ShowColor(HWND dialog, Fill fill) {
    ColorState* state = StateOfDialog(dialog);
    if (!state) return;
    state->filling = true;
    const COLORREF color = state->color;
    const Hsl hsl = state->hsl;
    if (fill != Fill::kHsl) {
        SetNumber(dialog, COLOR_RED, GetRValue(color));
        SetNumber(dialog, COLOR_GREEN, GetGValue(color));
        SetNumber(dialog, COLOR_BLUE, GetBValue(color));
    }
    if (fill != Fill::kRgb) {
        SetNumber(dialog, COLOR_HUE, hsl.hue);
        SetNumber(dialog, COLOR_SAT, hsl.saturation);
        SetNumber(dialog, COLOR_LUM, hsl.luminance);
    }
    state = StateOfDialog(dialog);
    if (!state) return;
    state->filling = false;
    Redraw(dialog);
}

void Choose(HWND dialog, COLORREF color) {
    ColorState* state = StateOfDialog(dialog);
    if (!state) return;
    state->color = color & 0xFFFFFF;
    state->hsl = HslOf(state->color);
    ShowColor(dialog, Fill::kBoth);
}

void ChooseHsl(HWND dialog, const Hsl& hsl, Fill fill) {
    ColorState* state = StateOfDialog(dialog);
    state->hsl = hsl;
    state->color = ColorFrom(hsl);
    ShowColor(dialog, fill);
}

int NumberIn(HWND dialog, int id, int most, int otherwise) {
    if (!GetDlgItem(dialog, id)) return otherwise;
    const UINT value = GetDlgItemInt(dialog, id, nullptr, FALSE);
    return static_cast<int>(std::min(value, static_cast<UINT>(most)));
}

// What was typed stays as it is; a component beyond its end counts as the end.
void OnTyped(HWND dialog, int id) {
    ColorState* state = StateOfDialog(dialog);
    if (!state || state->filling) return;
    if (id >= COLOR_RED) {
        const COLORREF was = state->color;
        state->color =
            RGB(static_cast<unsigned>(NumberIn(dialog, COLOR_RED, 255, GetRValue(was))),
                static_cast<unsigned>(NumberIn(dialog, COLOR_GREEN, 255, GetGValue(was))),
                static_cast<unsigned>(NumberIn(dialog, COLOR_BLUE, 255, GetBValue(was))));
        state->hsl = HslOf(state->color);
        ShowColor(dialog, Fill::kHsl);
        return;
    }
    const Hsl was = state->hsl;
    ChooseHsl(dialog,
              {NumberIn(dialog, COLOR_HUE, kMostHue, was.hue),
               NumberIn(dialog, COLOR_SAT, kMostShade, was.saturation),
               NumberIn(dialog, COLOR_LUM, kMostShade, was.luminance)},
              Fill::kRgb);
}

// One grid of colours, or null for another control.
struct Grid {
    int index;  // of ColorState::cell
    int count;
    const COLORREF* colors;
};

bool GridOf(const ColorState& state, int id, Grid& grid) {
    if (id == COLOR_BOX1) return grid = {0, NUM_BASIC_COLORS, kBasicColors}, true;
    if (id != COLOR_CUSTOM1 || !state.request->lpCustColors) return false;
    return grid = {1, NUM_CUSTOM_COLORS, state.request->lpCustColors}, true;
}

RECT CellRect(const Grid& grid, int cell, const RECT& client) {
    const int rows = grid.count / kColumns;
    const LONG x = cell % kColumns;
    const LONG y = cell / kColumns;
    return {client.right * x / kColumns, client.bottom * y / rows,
            client.right * (x + 1) / kColumns, client.bottom * (y + 1) / rows};
}

void FillWith(HDC dc, RECT rect, COLORREF color) {
    const HBRUSH brush = CreateSolidBrush(color);
    FillRect(dc, &rect, brush);
    DeleteObject(brush);
}

void PaintGrid(HWND control, HDC dc, const Grid& grid, const ColorState& state, RECT client) {
    FillRect(dc, &client, GetSysColorBrush(COLOR_BTNFACE));
    for (int i = 0; i < grid.count; ++i) {
        RECT cell = CellRect(grid, i, client);
        InflateRect(&cell, -1, -1);
        if (i == state.cell[grid.index]) {
            FrameRect(dc, &cell, GetSysColorBrush(COLOR_BTNTEXT));
            if (GetFocus() == control) DrawFocusRect(dc, &cell);
        }
        InflateRect(&cell, -2, -2);
        FillWith(dc, cell, grid.colors[i]);
    }
}

// From the strongest or brightest shade at the top to none; steps are enough for the eye.
constexpr LONG kStep = 4;

int ShadeAt(LONG y, LONG height) {
    return static_cast<int>(kMostShade - y * kMostShade / height);
}

void PaintRainbow(HDC dc, RECT client) {
    for (LONG y = 0; y < client.bottom; y += kStep) {
        for (LONG x = 0; x < client.right; x += kStep) {
            const int hue = static_cast<int>(x * kMostHue / client.right);
            FillWith(dc, {x, y, x + kStep, y + kStep},
                     ColorFrom({hue, ShadeAt(y, client.bottom), kMostShade / 2}));
        }
    }
}

void PaintLuminance(HDC dc, const ColorState& state, RECT client) {
    for (LONG y = 0; y < client.bottom; y += kStep) {
        FillWith(dc, {0, y, client.right, y + kStep},
                 ColorFrom({state.hsl.hue, state.hsl.saturation, ShadeAt(y, client.bottom)}));
    }
}

void PaintPicture(HWND control, const ColorState& state) {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(control, &paint);
    if (!dc) return;
    RECT client{};
    GetClientRect(control, &client);
    const int id = GetDlgCtrlID(control);
    Grid grid{};
    if (id == COLOR_CURRENT) {
        FillWith(dc, client, state.color);
    } else if (GridOf(state, id, grid)) {
        PaintGrid(control, dc, grid, state, client);
    } else if (id == COLOR_RAINBOW) {
        PaintRainbow(dc, client);
    } else {
        PaintLuminance(dc, state, client);
    }
    EndPaint(control, &paint);
}

void TakeCell(HWND dialog, ColorState& state, const Grid& grid, int cell) {
    state.cell[grid.index] = cell;
    Choose(dialog, grid.colors[cell]);
}

void OnPress(HWND control, ColorState& state, LPARAM lParam) {
    const HWND dialog = GetParent(control);
    const int id = GetDlgCtrlID(control);
    RECT client{};
    GetClientRect(control, &client);
    if (client.right <= 0 || client.bottom <= 0) return;
    const auto at = static_cast<std::uintptr_t>(lParam);
    const LONG x = std::clamp<LONG>(static_cast<SHORT>(LOWORD(at)), 0, client.right - 1);
    const LONG y = std::clamp<LONG>(static_cast<SHORT>(HIWORD(at)), 0, client.bottom - 1);
    Grid grid{};
    if (GridOf(state, id, grid)) {
        SetFocus(control);
        const LONG row = y * (grid.count / kColumns) / client.bottom;
        TakeCell(dialog, state, grid,
                 static_cast<int>(row * kColumns + x * kColumns / client.right));
        return;
    }
    Hsl hsl = state.hsl;
    const int up = ShadeAt(y, client.bottom);
    if (id == COLOR_LUMSCROLL) hsl.luminance = up;
    if (id == COLOR_RAINBOW) {
        hsl.hue = static_cast<int>(x * kMostHue / client.right);
        hsl.saturation = up;
        if (hsl.luminance == 0 || hsl.luminance == kMostShade) hsl.luminance = kMostShade / 2;
    }
    if (id != COLOR_CURRENT) ChooseHsl(dialog, hsl, Fill::kBoth);
}

// Arrows walk through the cells, the space bar takes one.
bool OnGridKey(HWND control, ColorState& state, WPARAM key) {
    Grid grid{};
    if (!GridOf(state, GetDlgCtrlID(control), grid)) return false;
    int& cell = state.cell[grid.index];
    const int step = key == VK_LEFT    ? -1
                     : key == VK_RIGHT ? 1
                     : key == VK_UP    ? -kColumns
                     : key == VK_DOWN  ? kColumns
                                       : 0;
    if (key == VK_SPACE) return TakeCell(GetParent(control), state, grid, cell), true;
    if (step == 0) return false;
    if (cell + step >= 0 && cell + step < grid.count) cell += step;
    InvalidateRect(control, nullptr, TRUE);
    return true;
}

// The procedure of the controls that show colours, around the one that they had.
LRESULT PictureProcedure(HWND control, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto previous = reinterpret_cast<WNDPROC>(GetPropA(control, kProcedureProperty));
    ColorState* state = StateOfDialog(GetParent(control));
    Grid grid{};
    if (state) {
        switch (message) {
            case WM_PAINT:
                return PaintPicture(control, *state), 0;
            case WM_LBUTTONDOWN:
            case WM_LBUTTONDBLCLK:
                return OnPress(control, *state, lParam), 0;
            case WM_KEYDOWN:
                if (OnGridKey(control, *state, wParam)) return 0;
                break;
            case WM_GETDLGCODE:
                if (GridOf(*state, GetDlgCtrlID(control), grid)) return DLGC_WANTARROWS;
                break;
            case WM_SETFOCUS:
            case WM_KILLFOCUS:
                InvalidateRect(control, nullptr, TRUE);
                break;
            default:
                break;
        }
    }
    return CallWindowProcA(previous, control, message, wParam, lParam);
}

void TakeOverPictures(HWND dialog) {
    for (const int id :
         {COLOR_BOX1, COLOR_CUSTOM1, COLOR_RAINBOW, COLOR_LUMSCROLL, COLOR_CURRENT}) {
        const HWND control = GetDlgItem(dialog, id);
        if (!control) continue;
        // Without this style a press would go to the dialog.
        SetWindowLongPtrA(control, GWL_STYLE, GetWindowLongPtrA(control, GWL_STYLE) | SS_NOTIFY);
        SetPropA(control, kProcedureProperty,
                 reinterpret_cast<HANDLE>(GetWindowLongPtrA(control, GWLP_WNDPROC)));
        SetWindowLongPtrA(control, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(PictureProcedure));
    }
}

void ShowWhole(HWND dialog, bool whole) {
    for (const Place& place : kPlaces) {
        if (place.rect.left < kNarrow || place.id < 0) continue;
        ShowWindow(GetDlgItem(dialog, place.id), whole ? SW_SHOW : SW_HIDE);
    }
    SizeAndCentre(dialog, whole ? kWide : kNarrow, kHeight);
    if (whole) EnableWindow(GetDlgItem(dialog, COLOR_MIX), FALSE);
}

void AddControls(HWND dialog, const ColorState& state) {
    SetWindowTextA(dialog, "Color");
    for (const Place& place : kPlaces) {
        if (place.id == kHelpButton && !Has(state, CC_SHOWHELP)) continue;
        AddControl(dialog, place.className, place.text, place.style, place.id, place.rect);
    }
    ShowWhole(dialog, Has(state, CC_FULLOPEN) && !Has(state, CC_PREVENTFULLOPEN));
    if (Has(state, CC_PREVENTFULLOPEN)) EnableWindow(GetDlgItem(dialog, COLOR_MIX), FALSE);
}

void OnInit(HWND dialog, ColorState& state) {
    SetPropA(dialog, kStateProperty, &state);
    if (!state.common.HasTemplate()) AddControls(dialog, state);
    for (int id = COLOR_HUE; id <= COLOR_BLUE; ++id) {
        if (HWND edit = GetDlgItem(dialog, id)) SendMessageA(edit, EM_SETLIMITTEXT, 3, 0);
    }
    TakeOverPictures(dialog);
    Choose(dialog, state.color);
}

void AddCustom(HWND dialog, ColorState& state) {
    if (!state.request->lpCustColors) return;
    int& cell = state.cell[1];
    state.request->lpCustColors[cell] = state.color;
    cell = (cell + 1) % NUM_CUSTOM_COLORS;
    Redraw(dialog);
}

// The hook may keep the dialog open.
void OnOk(HWND dialog, ColorState& state) {
    CHOOSECOLORA& request = *state.request;
    const COLORREF before = std::exchange(request.rgbResult, state.color);
    const UINT okMessage = RegisterWindowMessageA(COLOROKSTRINGA);
    if (AskHook(state.common, dialog, okMessage, 0, state.common.record) != 0) {
        request.rgbResult = before;
        return;
    }
    EndDialog(dialog, TRUE);
}

void OnCommand(HWND dialog, ColorState& state, int id, unsigned code) {
    switch (id) {
        case IDOK:
            return OnOk(dialog, state);
        case IDCANCEL:
            EndDialog(dialog, FALSE);
            return;
        case COLOR_MIX:
            if (!state.common.HasTemplate()) ShowWhole(dialog, true);
            return;
        case COLOR_ADD:
            return AddCustom(dialog, state);
        case kHelpButton:
            return TellHelp(state.request->hwndOwner, dialog, state.common.record);
        default:
            if (id >= COLOR_HUE && id <= COLOR_BLUE && code == EN_CHANGE) OnTyped(dialog, id);
    }
}

INT_PTR ColorProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        auto& fresh = *reinterpret_cast<ColorState*>(lParam);
        OnInit(dialog, fresh);
        return !fresh.common.HasHook() || AskHook(fresh.common, dialog, message, wParam, 0) != 0;
    }
    ColorState* state = StateOfDialog(dialog);
    if (!state) return FALSE;
    const INT_PTR answer = AskHook(state->common, dialog, message, wParam, lParam);
    if (answer != 0) return answer;
    if (message == RegisterWindowMessageA(SETRGBSTRINGA)) {
        return Choose(dialog, static_cast<COLORREF>(lParam)), TRUE;
    }
    if (message != WM_COMMAND || !StateOfDialog(dialog)) return FALSE;
    OnCommand(dialog, *state, LOWORD(wParam), HIWORD(wParam));
    return TRUE;
}

}  // namespace
}  // namespace kv

using namespace kv;

BOOL WINAPI ChooseColorA(CHOOSECOLORA* request) {
    if (!request || request->lStructSize != sizeof *request) {
        SetCommonDialogError(request ? CDERR_STRUCTSIZE : CDERR_INITIALIZATION);
        return FALSE;
    }
    ColorState state;
    state.request = request;
    state.common = {request->Flags,          CC_ENABLEHOOK,
                    CC_ENABLETEMPLATE,       CC_ENABLETEMPLATEHANDLE,
                    request->lpfnHook,       request->hInstance,
                    request->lpTemplateName, reinterpret_cast<LPARAM>(request)};
    if (Has(state, CC_RGBINIT)) state.color = request->rgbResult & 0xFFFFFF;
    const auto ended = RunCommonDialog(state.common, request->hwndOwner, ColorProcedure,
                                       reinterpret_cast<LPARAM>(&state));
    return ended && *ended == TRUE;
}
