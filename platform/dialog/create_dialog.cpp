// Creation of dialogs from templates, and modal dialogs.
#include <platform/dialog/create_dialog.h>
#include <platform/dialog/dialog.h>
#include <platform/dialog/dialog_template.h>
#include <platform/window/core.h>

#include <algorithm>
#include <cstdio>

namespace kv {
namespace {

enum class Modality { kModeless, kModal };

// Dialogs share their fonts: a sheet has many pages in one face and size.
HFONT FontFor(const DialogHeader& header) {
    struct Entry {
        DialogHeader key;
        HFONT font;
    };
    static std::vector<Entry>* cache = new std::vector<Entry>;
    if (!header.hasFont) return static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    for (const Entry& entry : *cache) {
        const DialogHeader& key = entry.key;
        if (key.faceName == header.faceName && key.pointSize == header.pointSize &&
            key.weight == header.weight && key.italic == header.italic &&
            key.charset == header.charset) {
            return entry.font;
        }
    }
    LOGFONTA font{};
    font.lfHeight = -MulDiv(header.pointSize, 96, 72);
    font.lfWeight = header.weight;
    font.lfItalic = header.italic ? 1 : 0;
    font.lfCharSet = header.charset;
    std::snprintf(font.lfFaceName, sizeof font.lfFaceName, "%s", header.faceName.c_str());
    const HFONT made = CreateFontIndirectA(&font);
    cache->push_back({header, made});
    return made;
}

RECT PixelsOf(const RECT& units) {
    const int left = MulDiv(units.left, 6, 4);
    const int top = MulDiv(units.top, 13, 8);
    return {left, top, left + MulDiv(units.right - units.left, 6, 4),
            top + MulDiv(units.bottom - units.top, 13, 8)};
}

// Top-level dialogs stand relative to their owner and stay on the screen.
RECT ScreenPlace(const DialogHeader& header, HWND owner) {
    RECT rect = PixelsOf(header.units);
    const LONG width = rect.right - rect.left;
    const LONG height = rect.bottom - rect.top;
    RECT around{0, 0, GetSystemMetrics(0), GetSystemMetrics(1)};
    const RECT screen = around;
    if (owner) GetWindowRect(owner, &around);
    LONG x = around.left + rect.left;
    LONG y = around.top + rect.top;
    if ((header.style & DS_CENTER) != 0) {
        x = (around.left + around.right - width) / 2;
        y = (around.top + around.bottom - height) / 2;
    }
    x = std::max(std::min(x, screen.right - width), LONG{0});
    y = std::max(std::min(y, screen.bottom - height), LONG{0});
    return {x, y, x + width, y + height};
}

struct Adjusted {
    DWORD style;
    DWORD exStyle;
};

Adjusted AdjustStyles(const DialogHeader& header, Modality modality) {
    Adjusted adjusted{header.style & ~DWORD{WS_VISIBLE}, header.exStyle};
    if (modality == Modality::kModal) {
        adjusted.style = (adjusted.style & ~DWORD{WS_CHILD}) | WS_POPUP;
    }
    if ((adjusted.style & DS_CONTROL) != 0) adjusted.exStyle |= WS_EX_CONTROLPARENT;
    if ((adjusted.style & DS_MODALFRAME) != 0) adjusted.exStyle |= WS_EX_DLGMODALFRAME;
    if ((adjusted.style & DS_CONTEXTHELP) != 0) adjusted.exStyle |= WS_EX_CONTEXTHELP;
    return adjusted;
}

HWND CreateFrame(const DialogCreation& creation, const DialogHeader& header, Modality modality) {
    const auto [style, exStyle] = AdjustStyles(header, modality);
    const RECT rect = (style & WS_CHILD) != 0 ? PixelsOf(header.units)
                                              : ScreenPlace(header, OwnerRootOf(creation.owner));
    WindowCreation window;
    window.font = FontFor(header);
    window.dialog = std::make_unique<DialogState>();
    window.dialog->procedure = creation.procedure;
    window.dialog->font = window.font;
    window.dialog->modal = modality == Modality::kModal;
    window.dialog->templateName = creation.templateName;
    window.parameters = {nullptr,
                         creation.instance,
                         nullptr,
                         creation.owner,
                         rect.bottom - rect.top,
                         rect.right - rect.left,
                         rect.top,
                         rect.left,
                         static_cast<LONG>(style),
                         header.title.c_str(),
                         header.className.c_str(),
                         exStyle};
    return CreateWindowFrom(window);
}

bool CreateItem(HWND dialog, const DialogItem& item, HFONT font, HINSTANCE instance) {
    const RECT rect = PixelsOf(item.units);
    WindowCreation window;
    window.font = font;
    const void* data = item.creationData.empty() ? nullptr : item.creationData.data();
    window.parameters = {const_cast<void*>(data),
                         instance,
                         reinterpret_cast<HMENU>(static_cast<std::uintptr_t>(item.id)),
                         dialog,
                         rect.bottom - rect.top,
                         rect.right - rect.left,
                         rect.top,
                         rect.left,
                         static_cast<LONG>((item.style & ~DWORD{WS_POPUP}) | WS_CHILD),
                         item.title.c_str(),
                         item.className.c_str(),
                         item.exStyle | WS_EX_NOPARENTNOTIFY};
    const HWND control = CreateWindowFrom(window);
    if (!control) return false;
    SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    return true;
}

bool CreateItems(HWND dialog, DialogTemplateReader& reader, int count, HINSTANCE instance) {
    Window* window = FindWindowRecord(dialog);
    window->children.reserve(static_cast<size_t>(count));
    window->childIds.reserve(static_cast<size_t>(count));
    const HFONT font = window->dialog->font;
    DialogItem item;
    for (int i = 0; i < count; ++i) {
        if (!reader.ReadItem(item) || !CreateItem(dialog, item, font, instance)) return false;
        window = FindWindowRecord(dialog);
        if (!window) return false;
        const bool isDefault =
            item.className == "BUTTON" && (item.style & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
        if (isDefault && window->dialog->defaultId == 0) {
            window->dialog->defaultId = static_cast<int>(item.id);
        }
    }
    return true;
}

// WM_INITDIALOG, and the first focus unless the procedure set one itself. A page of a sheet gets
// the focus from the sheet when it comes to the front.
void Initialise(HWND dialog, LPARAM initParam) {
    const HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE);
    const LRESULT wantsFocus =
        SendMessageA(dialog, WM_INITDIALOG, reinterpret_cast<WPARAM>(first), initParam);
    const Window* window = FindWindowRecord(dialog);
    if (!window || !wantsFocus || window->dialog->ended || (window->style & DS_CONTROL) != 0)
        return;
    const HWND focus = GetNextDlgTabItem(dialog, nullptr, FALSE);
    if (focus) {
        MoveDialogFocus(dialog, focus);
    } else {
        SetFocus(dialog);
    }
}

HWND Create(const DialogCreation& creation, Modality modality) {
    DialogTemplateReader reader(creation.bytes);
    DialogHeader header;
    if (!IsWholeTemplate(creation.bytes) || !reader.ReadHeader(header)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    const CallScope scope;
    const HWND dialog = CreateFrame(creation, header, modality);
    if (!dialog) return nullptr;
    if (!FindWindowRecord(dialog)->dialog) return nullptr;
    SendMessageA(dialog, WM_SETFONT,
                 reinterpret_cast<WPARAM>(FindWindowRecord(dialog)->dialog->font), FALSE);
    if (!FindWindowRecord(dialog)) return nullptr;
    if (!CreateItems(dialog, reader, header.itemCount, creation.instance)) {
        const DWORD error = GetLastError();
        if (FindWindowRecord(dialog)) DestroyWindow(dialog);
        SetLastError(error);
        return nullptr;
    }
    Initialise(dialog, creation.initParam);
    const Window* window = FindWindowRecord(dialog);
    if (!window) return nullptr;
    const bool visible = modality == Modality::kModal || (header.style & WS_VISIBLE) != 0;
    if (visible && !window->dialog->ended) ShowWindow(dialog, SW_SHOW);
    return FindWindowRecord(dialog) ? dialog : nullptr;
}

// Gives the owner back also when the dialog goes away in an unusual manner.
void ReleaseOwner(HWND owner) {
    if (owner && FindWindowRecord(owner)) EnableWindow(owner, TRUE);
}

}  // namespace

HWND CreateDialogFrom(const DialogCreation& creation) {
    return Create(creation, Modality::kModeless);
}

INT_PTR RunDialog(const DialogCreation& creation) {
    const HWND owner = OwnerRootOf(creation.owner);
    // The owner is disabled before the dialog exists, so that WM_INITDIALOG finds it so.
    const bool disabled = owner && !EnableWindow(owner, FALSE);
    const HWND dialog = Create(creation, Modality::kModal);
    Window* window = FindWindowRecord(dialog);
    if (!window) {
        if (disabled) ReleaseOwner(owner);
        return -1;
    }
    if (window->dialog->ended) {
        if (disabled) ReleaseOwner(owner);
    } else if (disabled) {
        window->dialog->disabledOwner = owner;
    }
    INT_PTR result = -1;
    const auto done = [dialog, &result] {
        const Window* record = FindWindowRecord(dialog);
        if (!record) return true;
        if (record->dialog->ended) result = record->dialog->endResult;
        return record->dialog->ended;
    };
    RunModalLoop(dialog, done);
    if (FindWindowRecord(dialog)) {
        // Hides it and brings the owner back if the loop was given up.
        if (!FindWindowRecord(dialog)->dialog->ended) EndDialog(dialog, -1);
        DestroyWindow(dialog);
    }
    return result;
}

}  // namespace kv

using namespace kv;

namespace {

// "#123" for a number, so that messages name the template as the resource script does.
std::string NameOfTemplate(LPCSTR name) {
    if (!IS_INTRESOURCE(name)) return name;
    std::string number("#");
    number += std::to_string(static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(name)));
    return number;
}

bool FindTemplate(HINSTANCE instance, LPCSTR name, DialogCreation& creation) {
    const HRSRC resource = FindResourceA(instance, name, RT_DIALOG);
    if (!resource) return false;
    const void* bytes = LockResource(LoadResource(instance, resource));
    if (!bytes) return false;
    creation.bytes = {static_cast<const BYTE*>(bytes), SizeofResource(instance, resource)};
    creation.templateName = NameOfTemplate(name);
    return true;
}

DialogCreation Describe(HINSTANCE instance, HWND owner, DLGPROC procedure, LPARAM initParam) {
    DialogCreation creation;
    creation.instance = instance;
    creation.owner = owner;
    creation.procedure = procedure;
    creation.initParam = initParam;
    return creation;
}

}  // namespace

HWND WINAPI CreateDialogParamA(HINSTANCE instance, LPCSTR templateName, HWND parent,
                               DLGPROC procedure, LPARAM initParam) {
    return Guarded(HWND{}, [&]() -> HWND {
        DialogCreation creation = Describe(instance, parent, procedure, initParam);
        if (!FindTemplate(instance, templateName, creation)) return nullptr;
        return CreateDialogFrom(creation);
    });
}

HWND WINAPI CreateDialogIndirectParamA(HINSTANCE instance, LPCDLGTEMPLATEA dialogTemplate,
                                       HWND parent, DLGPROC procedure, LPARAM initParam) {
    if (!dialogTemplate) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return Guarded(HWND{}, [&] {
        DialogCreation creation = Describe(instance, parent, procedure, initParam);
        // The call does not say how long the template is; its own counts end the reading.
        constexpr size_t kLongest = size_t{1} << 20;
        creation.bytes = {reinterpret_cast<const BYTE*>(dialogTemplate), kLongest};
        return CreateDialogFrom(creation);
    });
}

INT_PTR WINAPI DialogBoxParamA(HINSTANCE instance, LPCSTR templateName, HWND owner,
                               DLGPROC procedure, LPARAM initParam) {
    if (owner && !WindowFromHandle(owner)) return 0;
    return Guarded(INT_PTR{-1}, [&]() -> INT_PTR {
        DialogCreation creation = Describe(instance, owner, procedure, initParam);
        if (!FindTemplate(instance, templateName, creation)) return -1;
        return RunDialog(creation);
    });
}

BOOL WINAPI EndDialog(HWND handle, INT_PTR result) {
    Window* window = WindowFromHandle(handle);
    if (!window) return FALSE;
    if (!window->dialog) {
        SetLastError(kErrorDialogParameter);
        return FALSE;
    }
    const CallScope scope;
    window->dialog->endResult = result;
    window->dialog->ended = true;
    // The owner first: it could not be activated in the dialog's place while disabled.
    ReleaseOwner(std::exchange(window->dialog->disabledOwner, nullptr));
    if (FindWindowRecord(handle)) ShowWindow(handle, SW_HIDE);
    return TRUE;
}
