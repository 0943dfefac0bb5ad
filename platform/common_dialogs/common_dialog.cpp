// Templates, hooks and errors of the common dialogs; see common_dialog.h.
#include <platform/common_dialogs/common_dialog.h>
#include <platform/dialog/create_dialog.h>
#include <platform/dialog/dialog_template.h>
#include <platform/window/core.h>

#include <commdlg.h>

#include <array>
#include <cstring>

namespace kv {
namespace {

DWORD lastError = 0;

std::optional<INT_PTR> Fail(DWORD error) {
    lastError = error;
    return std::nullopt;
}

// An empty classic template: style and extended style, everything else zero.
std::array<BYTE, 24> EmptyTemplate() {
    std::array<BYTE, 24> bytes{};
    const DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
    const DWORD exStyle = WS_EX_CONTEXTHELP;
    std::memcpy(bytes.data(), &style, sizeof style);
    std::memcpy(bytes.data() + sizeof style, &exStyle, sizeof exStyle);
    return bytes;
}

// Errors of a request that no dialog can be made of; 0 for none.
DWORD CheckRequest(const CommonRequest& request) {
    if (request.HasHook() && !request.hook) return CDERR_NOHOOK;
    if (!request.HasTemplate()) return 0;
    if (!request.instance) return CDERR_NOHINSTANCE;
    const bool named = (request.flags & request.templateFlag) != 0;
    return named && !request.templateName ? CDERR_NOTEMPLATE : 0;
}

std::span<const BYTE> CallersTemplate(const CommonRequest& request) {
    if ((request.flags & request.handleFlag) != 0) {
        const void* bytes = GlobalLock(request.instance);
        if (!bytes) return {};
        return {static_cast<const BYTE*>(bytes), GlobalSize(request.instance)};
    }
    const auto module = static_cast<HMODULE>(request.instance);
    const HRSRC found = FindResourceA(module, request.templateName, RT_DIALOG);
    if (!found) return {};
    const void* bytes = LockResource(LoadResource(module, found));
    return {static_cast<const BYTE*>(bytes), SizeofResource(module, found)};
}

std::string NameOf(const CommonRequest& request) {
    if ((request.flags & request.templateFlag) == 0) return {};
    if (!IS_INTRESOURCE(request.templateName)) return request.templateName;
    return "#" + std::to_string(reinterpret_cast<std::uintptr_t>(request.templateName));
}

}  // namespace

void SetCommonDialogError(DWORD error) {
    lastError = error;
}

std::optional<INT_PTR> RunCommonDialog(const CommonRequest& request, HWND owner, DLGPROC procedure,
                                       LPARAM parameter) {
    lastError = 0;
    if (const DWORD error = CheckRequest(request)) return Fail(error);
    if (owner && !WindowFromHandle(owner)) return Fail(CDERR_DIALOGFAILURE);
    const std::array<BYTE, 24> empty = EmptyTemplate();
    DialogCreation creation;
    creation.bytes = request.HasTemplate() ? CallersTemplate(request) : std::span(empty);
    if (creation.bytes.empty() || !IsWholeTemplate(creation.bytes)) {
        return Fail(CDERR_FINDRESFAILURE);
    }
    creation.templateName = NameOf(request);
    creation.owner = owner;
    creation.procedure = procedure;
    creation.initParam = parameter;
    const INT_PTR result = RunDialog(creation);
    if ((request.flags & request.handleFlag) != 0) GlobalUnlock(request.instance);
    return result < 0 ? Fail(CDERR_DIALOGFAILURE) : std::optional(result);
}

INT_PTR AskHook(const CommonRequest& request, HWND dialog, UINT message, WPARAM wParam,
                LPARAM lParam) {
    if (!request.HasHook()) return 0;
    if (message == WM_INITDIALOG) lParam = request.record;
    return static_cast<INT_PTR>(request.hook(dialog, message, wParam, lParam));
}

HWND AddControl(HWND dialog, const char* className, const char* text, DWORD style, int id,
                RECT rect) {
    const Window* box = FindWindowRecord(dialog);
    if (!box) return nullptr;
    const HFONT font = box->font;
    const HWND control = CreateWindowExA(
        box->exStyle & WS_EX_RTLREADING, className, text, WS_CHILD | WS_VISIBLE | style, rect.left,
        rect.top, rect.right - rect.left, rect.bottom - rect.top, dialog,
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    return control;
}

void SizeAndCentre(HWND dialog, int width, int height) {
    SetWindowPos(dialog, nullptr, (GetSystemMetrics(0) - width) / 2,
                 (GetSystemMetrics(1) - height) / 2, width, height, SWP_NOZORDER);
}

void TellHelp(HWND owner, HWND dialog, LPARAM record) {
    if (!owner) return;
    SendMessageA(owner, RegisterWindowMessageA(HELPMSGSTRINGA), reinterpret_cast<WPARAM>(dialog),
                 record);
}

}  // namespace kv

DWORD WINAPI CommDlgExtendedError() {
    return kv::lastError;
}
