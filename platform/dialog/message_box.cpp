// Message boxes: dialogs like all others, built from a template made on the spot, so that scripts,
// tests and displays read and answer them through their controls.
#include <platform/dialog/create_dialog.h>
#include <platform/dialog/message_box.h>
#include <platform/window/core.h>

#include <algorithm>
#include <cstring>

namespace kv {
namespace {

constexpr UINT kTextId = 0xFFFF;
constexpr UINT kIconId = 20;
constexpr char kTypeProperty[] = "KvMessageBoxType";

// All in pixels.
constexpr int kMargin = 12;
constexpr int kIconSize = 32;
constexpr int kButtonWidth = 80;
constexpr int kButtonHeight = 24;
constexpr int kButtonGap = 8;
constexpr int kWidestText = 480;

struct BoxButtons {
    UINT type;
    int count;
    int ids[3];
    int escape;  // what Escape and the close box answer; 0: nothing
};
constexpr BoxButtons kButtons[] = {
    {MB_OK, 1, {IDOK}, IDOK},
    {MB_OKCANCEL, 2, {IDOK, IDCANCEL}, IDCANCEL},
    {2, 3, {IDABORT, IDRETRY, IDIGNORE}, 0},
    {MB_YESNOCANCEL, 3, {IDYES, IDNO, IDCANCEL}, IDCANCEL},
    {MB_YESNO, 2, {IDYES, IDNO}, 0},
    {5, 2, {IDRETRY, IDCANCEL}, IDCANCEL},
};

struct ButtonCaption {
    int id;
    const char* caption;
};
constexpr ButtonCaption kCaptions[] = {
    {IDOK, "OK"},          {IDCANCEL, "Cancel"}, {IDABORT, "&Abort"}, {IDRETRY, "&Retry"},
    {IDIGNORE, "&Ignore"}, {IDYES, "&Yes"},      {IDNO, "&No"},
};

struct IconNumber {
    UINT type;
    unsigned resource;
};
constexpr IconNumber kIcons[] = {
    {MB_ICONHAND, 32513},
    {MB_ICONQUESTION, 32514},
    {MB_ICONEXCLAMATION, 32515},
    {MB_ICONASTERISK, 32516},
};

const BoxButtons& ButtonsFor(UINT type) {
    for (const BoxButtons& buttons : kButtons) {
        if (buttons.type == (type & MB_TYPEMASK)) return buttons;
    }
    return kButtons[0];
}

const char* CaptionOf(int id) {
    for (const ButtonCaption& entry : kCaptions) {
        if (entry.id == id) return entry.caption;
    }
    return "";
}

unsigned IconFor(UINT type) {
    for (const IconNumber& icon : kIcons) {
        if (icon.type == (type & MB_ICONMASK)) return icon.resource;
    }
    return 0;
}

struct BoxRequest {
    const char* text;
    const char* caption;
    UINT type;
    std::initializer_list<ButtonText> buttons;
};

const char* CaptionOf(const BoxRequest& request, int id) {
    for (const ButtonText& button : request.buttons) {
        if (button.id == id) return button.text;
    }
    return CaptionOf(id);
}

SIZE MeasureText(const char* text) {
    RECT area{0, 0, kWidestText, 0};
    const HDC dc = GetDC(nullptr);
    SelectObject(dc, GetStockObject(DEFAULT_GUI_FONT));
    DrawTextA(dc, text, -1, &area, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    ReleaseDC(nullptr, dc);
    return {area.right - area.left, std::max(area.bottom - area.top, LONG{13})};
}

void Child(HWND dialog, const char* className, const char* text, DWORD style, UINT id, RECT rect) {
    const Window* box = FindWindowRecord(dialog);
    const HWND control = CreateWindowExA(
        box->exStyle & WS_EX_RTLREADING, className, text, WS_CHILD | WS_VISIBLE | style, rect.left,
        rect.top, rect.right - rect.left, rect.bottom - rect.top, dialog,
        reinterpret_cast<HMENU>(static_cast<std::uintptr_t>(id)), nullptr, nullptr);
    SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(box->font), FALSE);
}

// MB_DEFBUTTON1 to 3; a number beyond the last button means the first.
int DefaultButton(UINT type) {
    const int index = static_cast<int>((type & MB_DEFMASK) >> 8);
    return index < ButtonsFor(type).count ? index : 0;
}

void AddButtons(HWND dialog, const BoxRequest& request, int width, int top) {
    const BoxButtons& buttons = ButtonsFor(request.type);
    const int all = buttons.count * (kButtonWidth + kButtonGap) - kButtonGap;
    int x = (width - all) / 2;
    const int first = DefaultButton(request.type);
    for (int i = 0; i < buttons.count; ++i) {
        const DWORD type = i == first ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON;
        Child(dialog, "BUTTON", CaptionOf(request, buttons.ids[i]),
              WS_TABSTOP | type | (i == 0 ? WS_GROUP : 0), static_cast<UINT>(buttons.ids[i]),
              {x, top, x + kButtonWidth, top + kButtonHeight});
        x += kButtonWidth + kButtonGap;
    }
    SendMessageA(dialog, DM_SETDEFID, static_cast<WPARAM>(buttons.ids[first]), 0);
}

void LayOut(HWND dialog, const BoxRequest& request) {
    const BoxButtons& buttons = ButtonsFor(request.type);
    const unsigned icon = IconFor(request.type);
    const SIZE text = MeasureText(request.text);
    const int left = kMargin + (icon ? kIconSize + kMargin : 0);
    const int buttonRow = buttons.count * (kButtonWidth + kButtonGap) - kButtonGap;
    const int width = std::max(left + static_cast<int>(text.cx), kMargin + buttonRow) + kMargin;
    const int body = std::max(static_cast<int>(text.cy), icon ? kIconSize : 0);
    const int height = kMargin + body + kMargin + kButtonHeight + kMargin;
    SetWindowPos(dialog, nullptr, (GetSystemMetrics(0) - width) / 2,
                 (GetSystemMetrics(1) - height) / 2, width, height, SWP_NOZORDER);
    if (icon) {
        Child(dialog, "STATIC", "", SS_ICON, kIconId,
              {kMargin, kMargin, kMargin + kIconSize, kMargin + kIconSize});
        if (const HICON handle = LoadIconA(nullptr, MAKEINTRESOURCEA(icon))) {
            SendDlgItemMessageA(dialog, kIconId, STM_SETICON, reinterpret_cast<WPARAM>(handle), 0);
        }
    }
    const int top = kMargin + (body - static_cast<int>(text.cy)) / 2;
    Child(dialog, "STATIC", request.text, SS_LEFT | SS_NOPREFIX, kTextId,
          {left, top, left + static_cast<int>(text.cx), top + static_cast<int>(text.cy)});
    AddButtons(dialog, request, width, kMargin + body + kMargin);
}

void OnCommand(HWND dialog, int id) {
    UINT type = 0;
    GetMessageBoxType(dialog, &type);
    const BoxButtons& buttons = ButtonsFor(type);
    const bool offered = std::count(buttons.ids, buttons.ids + buttons.count, id) > 0;
    if (!offered) id = id == IDCANCEL ? buttons.escape : 0;
    if (id) EndDialog(dialog, id);
}

INT_PTR BoxProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG: {
            const auto* request = reinterpret_cast<const BoxRequest*>(lParam);
            SetWindowTextA(dialog, request->caption);
            SetPropA(
                dialog, kTypeProperty,
                reinterpret_cast<HANDLE>(static_cast<std::uintptr_t>(request->type) | 1u << 31));
            LayOut(dialog, *request);
            SetFocus(GetDlgItem(dialog, ButtonsFor(request->type).ids[DefaultButton(request->type)]));
            return FALSE;
        }
        case WM_COMMAND:
            return OnCommand(dialog, LOWORD(wParam)), TRUE;
        default:
            return FALSE;
    }
}

int Run(HWND owner, const BoxRequest& request) {
    if (owner && !WindowFromHandle(owner)) return 0;
    return Guarded(0, [&] {
        // An empty classic template; the controls come with the measured text.
        const DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
        const DWORD exStyle = (request.type & MB_RTLREADING) != 0 ? WS_EX_RTLREADING : 0;
        BYTE bytes[24] = {};
        std::memcpy(bytes, &style, sizeof style);
        std::memcpy(bytes + 4, &exStyle, sizeof exStyle);
        DialogCreation creation;
        creation.bytes = bytes;
        creation.owner = owner;
        creation.procedure = BoxProcedure;
        creation.initParam = reinterpret_cast<LPARAM>(&request);
        const INT_PTR result = RunDialog(creation);
        return result > 0 ? static_cast<int>(result) : 0;
    });
}

}  // namespace

int AskWithButtons(HWND owner, const char* text, const char* caption, UINT type,
                   std::initializer_list<ButtonText> buttons) {
    return Run(owner, {text, caption, type, buttons});
}

bool GetMessageBoxType(HWND dialog, UINT* type) {
    const auto value = reinterpret_cast<std::uintptr_t>(GetPropA(dialog, kTypeProperty));
    if (type) *type = static_cast<UINT>(value & 0x7FFFFFFF);
    return value != 0;
}

}  // namespace kv

int WINAPI MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT type) {
    return kv::Run(owner, {text ? text : "", caption ? caption : "Error", type, {}});
}
