// GetOpenFileNameA and GetSaveFileNameA: one dialog that walks through folders and checks the name.
// Paths are shown and answered as people of this system write them, with slashes.
#include <platform/common_dialogs/common_dialog.h>
#include <platform/common_dialogs/file_name.h>
#include <platform/shell/paths.h>
#include <platform/window/core.h>

#include <commdlg.h>

#include <algorithm>
#include <cstring>
#include <filesystem>

namespace kv {
namespace {

namespace fs = std::filesystem;

// Numbers of the controls, which templates of callers use as well.
constexpr int kNameEdit = 0x0480;
constexpr int kFileList = 0x0460;
constexpr int kFolderList = 0x0461;
constexpr int kTypeCombo = 0x0470;
constexpr int kFolderText = 0x0440;
constexpr int kReadOnlyBox = 0x0410;
constexpr char kStateProperty[] = "KvFileDialog";
constexpr int kWidth = 440;
constexpr int kHeight = 290;

enum class Purpose { kOpen, kSave };

struct FileState {
    OPENFILENAMEA* request = nullptr;
    CommonRequest common;
    Purpose purpose = Purpose::kOpen;
    std::string folder;
    std::string name;  // at the start
    std::vector<FileFilter> filters;
    std::vector<std::string> typed;  // patterns that were typed in place of a name
    bool bufferTooSmall = false;
};

struct Place {
    const char* className;
    const char* text;
    DWORD style;
    int id;
    RECT rect;
};

constexpr DWORD kList = LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_BORDER | WS_VSCROLL | WS_TABSTOP;
constexpr Place kPlaces[] = {
    {"Static", "File &name:", 0, -1, {10, 8, 200, 22}},
    {"Edit", "", ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP, kNameEdit, {10, 24, 346, 44}},
    {"Static", "&Files:", 0, -1, {10, 52, 170, 66}},
    {"ListBox", "", kList, kFileList, {10, 68, 174, 220}},
    {"Static", "F&olders:", 0, -1, {182, 52, 240, 66}},
    {"Static", "", SS_NOPREFIX | SS_LEFTNOWORDWRAP, kFolderText, {242, 52, 346, 66}},
    {"ListBox", "", kList, kFolderList, {182, 68, 346, 220}},
    {"Static", "Files of &type:", 0, -1, {10, 228, 90, 242}},
    {"ComboBox", "", CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP, kTypeCombo, {94, 226, 346, 346}},
    {"Button", "&Read only", BS_AUTOCHECKBOX | WS_TABSTOP, kReadOnlyBox, {10, 254, 170, 270}},
    {"Button", "OK", BS_DEFPUSHBUTTON | WS_TABSTOP, IDOK, {356, 24, 430, 47}},
    {"Button", "Cancel", WS_TABSTOP, IDCANCEL, {356, 53, 430, 76}},
    {"Button", "&Help", WS_TABSTOP, kHelpButton, {356, 82, 430, 105}},
};

FileState* StateOfDialog(HWND dialog) {
    return static_cast<FileState*>(GetPropA(dialog, kStateProperty));
}

bool Has(const FileState& state, DWORD flag) {
    return (state.request->Flags & flag) != 0;
}

const char* TitleOf(const FileState& state) {
    if (state.request->lpstrTitle) return state.request->lpstrTitle;
    return state.purpose == Purpose::kSave ? "Save As" : "Open";
}

std::string TextOf(HWND dialog, int id) {
    const HWND control = GetDlgItem(dialog, id);
    std::string text(static_cast<size_t>(std::max(GetWindowTextLengthA(control), 0)) + 1, '\0');
    const int length = GetWindowTextA(control, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<size_t>(std::max(length, 0)));
    return text;
}

std::string EntryOf(HWND dialog, int id) {
    const HWND list = GetDlgItem(dialog, id);
    const LRESULT index = SendMessageA(list, LB_GETCURSEL, 0, 0);
    const LRESULT length = SendMessageA(list, LB_GETTEXTLEN, static_cast<WPARAM>(index), 0);
    if (index < 0 || length < 0) return {};
    std::string text(static_cast<size_t>(length) + 1, '\0');
    SendMessageA(list, LB_GETTEXT, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<size_t>(length));
    return text;
}

std::vector<std::string> PatternsNow(HWND dialog, const FileState& state) {
    if (!state.typed.empty()) return state.typed;
    const LRESULT chosen = SendDlgItemMessageA(dialog, kTypeCombo, CB_GETCURSEL, 0, 0);
    const auto index = static_cast<size_t>(std::max<LRESULT>(chosen, 0));
    return index < state.filters.size() ? state.filters[index].patterns
                                        : std::vector<std::string>();
}

void FillList(HWND dialog, int id, const std::vector<std::string>& names) {
    const HWND list = GetDlgItem(dialog, id);
    if (!list) return;
    SendMessageA(list, WM_SETREDRAW, FALSE, 0);
    SendMessageA(list, LB_RESETCONTENT, 0, 0);
    for (const std::string& name : names) {
        SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    }
    SendMessageA(list, WM_SETREDRAW, TRUE, 0);
}

void ShowFolder(HWND dialog) {
    FileState* state = StateOfDialog(dialog);
    FolderContent content = ReadFolder(state->folder);
    const std::vector<std::string> patterns = PatternsNow(dialog, *state);
    std::erase_if(content.files,
                  [&](const std::string& name) { return !MatchesAny(name, patterns); });
    if (state->folder != "/") content.folders.insert(content.folders.begin(), "..");
    const std::string folder = state->folder;
    FillList(dialog, kFileList, content.files);
    FillList(dialog, kFolderList, content.folders);
    if (GetDlgItem(dialog, kFolderText)) SetDlgItemTextA(dialog, kFolderText, folder.c_str());
}

void AddControls(HWND dialog, const FileState& state) {
    SizeAndCentre(dialog, kWidth, kHeight);
    for (const Place& place : kPlaces) {
        if (place.id == kHelpButton && !Has(state, OFN_SHOWHELP)) continue;
        if (place.id == kReadOnlyBox && Has(state, OFN_HIDEREADONLY)) continue;
        AddControl(dialog, place.className, place.text, place.style, place.id, place.rect);
    }
}

void OnInit(HWND dialog, FileState& state) {
    SetPropA(dialog, kStateProperty, &state);
    if (!state.common.HasTemplate()) AddControls(dialog, state);
    SetWindowTextA(dialog, TitleOf(state));
    for (const FileFilter& filter : state.filters) {
        SendDlgItemMessageA(dialog, kTypeCombo, CB_ADDSTRING, 0,
                            reinterpret_cast<LPARAM>(filter.text.c_str()));
    }
    const size_t index = std::max<DWORD>(state.request->nFilterIndex, 1) - 1;
    SendDlgItemMessageA(dialog, kTypeCombo, CB_SETCURSEL, std::min(index, state.filters.size()), 0);
    CheckDlgButton(dialog, kReadOnlyBox, Has(state, OFN_READONLY) ? BST_CHECKED : BST_UNCHECKED);
    SetDlgItemTextA(dialog, kNameEdit, state.name.c_str());
    ShowFolder(dialog);
}

bool Refuse(HWND dialog, const std::string& text) {
    char title[128] = "";
    GetWindowTextA(dialog, title, sizeof title);
    MessageBoxA(dialog, text.c_str(), title, MB_OK | MB_ICONEXCLAMATION);
    return false;
}

bool Agrees(HWND dialog, const std::string& text) {
    char title[128] = "";
    GetWindowTextA(dialog, title, sizeof title);
    return MessageBoxA(dialog, text.c_str(), title, MB_YESNO | MB_ICONEXCLAMATION) == IDYES;
}

// The checks that the flags ask for, each with what a person is told.
bool IsAcceptable(HWND dialog, const FileState& state, const std::string& path) {
    if (Has(state, OFN_NOVALIDATE)) return true;
    std::error_code unknown;
    const bool exists = fs::exists(path, unknown);
    const bool mustExist = Has(state, OFN_FILEMUSTEXIST) && state.purpose == Purpose::kOpen;
    const bool pathMust = mustExist || Has(state, OFN_PATHMUSTEXIST);
    if (pathMust && !fs::is_directory(FolderOf(path), unknown)) {
        return Refuse(dialog, path + "\nThere is no such folder.");
    }
    if (mustExist && !exists) return Refuse(dialog, path + "\nThere is no such file.");
    if (state.purpose == Purpose::kOpen && !exists && Has(state, OFN_CREATEPROMPT)) {
        return Agrees(dialog, path + "\nThis file does not exist. Create it?");
    }
    if (state.purpose == Purpose::kSave && exists && Has(state, OFN_OVERWRITEPROMPT)) {
        return Agrees(dialog, path + "\nThis file exists already. Replace it?");
    }
    return true;
}

void CopyText(const std::string& text, LPSTR buffer, DWORD size) {
    if (!buffer || size == 0) return;
    const size_t length = std::min<size_t>(text.size(), size - 1);
    std::memcpy(buffer, text.data(), length);
    buffer[length] = '\0';
}

// Fills the caller's record; too small a buffer gets the size that it would need.
bool Answer(HWND dialog, FileState& state, const std::string& path) {
    OPENFILENAMEA& request = *state.request;
    if (!request.lpstrFile || path.size() + 1 > request.nMaxFile) {
        const auto needed = static_cast<WORD>(std::min<size_t>(path.size() + 1, 0xFFFF));
        if (request.lpstrFile && request.nMaxFile >= sizeof needed) {
            std::memcpy(request.lpstrFile, &needed, sizeof needed);
        }
        state.bufferTooSmall = true;
        return false;
    }
    std::memcpy(request.lpstrFile, path.c_str(), path.size() + 1);
    request.nFileOffset = static_cast<WORD>(OffsetOfName(path));
    request.nFileExtension = static_cast<WORD>(OffsetOfExtension(path));
    CopyText(path.substr(OffsetOfName(path)), request.lpstrFileTitle, request.nMaxFileTitle);
    const LRESULT type = SendDlgItemMessageA(dialog, kTypeCombo, CB_GETCURSEL, 0, 0);
    if (type >= 0 && GetDlgItem(dialog, kTypeCombo)) {
        request.nFilterIndex = static_cast<DWORD>(type) + 1;
    }
    request.Flags &= ~(OFN_READONLY | OFN_EXTENSIONDIFFERENT);
    if (IsDlgButtonChecked(dialog, kReadOnlyBox) == BST_CHECKED) request.Flags |= OFN_READONLY;
    const size_t extension = OffsetOfExtension(path);
    if (request.lpstrDefExt && extension != 0 &&
        !EqualsIgnoringCase(path.substr(extension), request.lpstrDefExt)) {
        request.Flags |= OFN_EXTENSIONDIFFERENT;
    }
    return true;
}

void GoTo(HWND dialog, FileState& state, const std::string& folder) {
    std::error_code error;
    const fs::path whole = fs::weakly_canonical(folder, error);
    state.folder = error ? folder : whole.string();
    SetDlgItemTextA(dialog, kNameEdit, "");
    ShowFolder(dialog);
}

// The path of a typed name, with the default extension where it has none.
std::string PathOf(const FileState& state, const std::string& typed) {
    std::string path =
        typed[0] == '/' ? typed : (state.folder == "/" ? "" : state.folder) + "/" + typed;
    const char* extension = state.request->lpstrDefExt;
    std::error_code unknown;
    if (extension && *extension && OffsetOfExtension(path) == 0 && !fs::exists(path, unknown)) {
        path += std::string(".") + extension;
    }
    return path;
}

void OnOk(HWND dialog, FileState& state) {
    const std::string typed = NativePath(TextOf(dialog, kNameEdit).c_str());
    if (typed.empty()) return;
    if (typed.find_first_of("*?") != std::string::npos) {
        state.typed = SplitPatterns(typed);
        return ShowFolder(dialog);
    }
    const std::string path = PathOf(state, typed);
    std::error_code unknown;
    if (fs::is_directory(path, unknown)) return GoTo(dialog, state, path);
    if (!IsAcceptable(dialog, state, path) || !IsWindow(dialog)) return;
    const OPENFILENAMEA before = *state.request;
    const bool answered = Answer(dialog, state, path);
    const UINT okMessage = RegisterWindowMessageA(FILEOKSTRINGA);
    if (answered && AskHook(state.common, dialog, okMessage, 0, state.common.record) != 0) {
        state.request->Flags = before.Flags;
        return;
    }
    EndDialog(dialog, answered ? TRUE : FALSE);
}

void OnCommand(HWND dialog, FileState& state, int id, unsigned code) {
    switch (id) {
        case IDOK:
            return OnOk(dialog, state);
        case IDCANCEL:
            EndDialog(dialog, FALSE);
            return;
        case kFileList:
            if (code == LBN_SELCHANGE) {
                SetDlgItemTextA(dialog, kNameEdit, EntryOf(dialog, kFileList).c_str());
            }
            if (code == LBN_DBLCLK) OnOk(dialog, state);
            return;
        case kFolderList: {
            const std::string entry = EntryOf(dialog, kFolderList);
            if (code == LBN_DBLCLK && !entry.empty())
                GoTo(dialog, state, state.folder + "/" + entry);
            return;
        }
        case kTypeCombo:
            if (code != CBN_SELCHANGE) return;
            state.typed.clear();
            return ShowFolder(dialog);
        case kHelpButton:
            return TellHelp(state.request->hwndOwner, dialog, state.common.record);
        default:
            return;
    }
}

INT_PTR FileProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        auto& fresh = *reinterpret_cast<FileState*>(lParam);
        OnInit(dialog, fresh);
        return !fresh.common.HasHook() || AskHook(fresh.common, dialog, message, wParam, 0) != 0;
    }
    FileState* state = StateOfDialog(dialog);
    if (!state) return FALSE;
    const INT_PTR answer = AskHook(state->common, dialog, message, wParam, lParam);
    if (answer != 0) return answer;
    if (message != WM_COMMAND || !StateOfDialog(dialog)) return FALSE;
    OnCommand(dialog, *state, LOWORD(wParam), HIWORD(wParam));
    return TRUE;
}

// The folder to begin in: that of the given name, else the initial one, else the current one.
void ReadStart(FileState& state) {
    const OPENFILENAMEA& request = *state.request;
    const std::string given = NativePath(request.lpstrFile);
    std::error_code error;
    state.folder = fs::current_path(error).string();
    if (error) state.folder = "/";
    const std::string initial = NativePath(request.lpstrInitialDir);
    if (!initial.empty() && fs::is_directory(initial, error)) state.folder = initial;
    if (given.empty()) return;
    state.name = given.substr(OffsetOfName(given));
    const std::string folder = FolderOf(given);
    if (OffsetOfName(given) != 0 && fs::is_directory(folder, error)) state.folder = folder;
    const fs::path whole = fs::weakly_canonical(state.folder, error);
    if (!error) state.folder = whole.string();
}

BOOL Run(OPENFILENAMEA* request, Purpose purpose) {
    if (!request || request->lStructSize != sizeof *request) {
        SetCommonDialogError(request ? CDERR_STRUCTSIZE : CDERR_INITIALIZATION);
        return FALSE;
    }
    FileState state;
    state.request = request;
    state.purpose = purpose;
    state.common = {request->Flags,          OFN_ENABLEHOOK,
                    OFN_ENABLETEMPLATE,      OFN_ENABLETEMPLATEHANDLE,
                    request->lpfnHook,       request->hInstance,
                    request->lpTemplateName, reinterpret_cast<LPARAM>(request)};
    state.filters = ReadFilters(request->lpstrFilter);
    ReadStart(state);
    const auto ended = RunCommonDialog(state.common, request->hwndOwner, FileProcedure,
                                       reinterpret_cast<LPARAM>(&state));
    if (state.bufferTooSmall) SetCommonDialogError(FNERR_BUFFERTOOSMALL);
    return ended && *ended == TRUE;
}

}  // namespace
}  // namespace kv

BOOL WINAPI GetOpenFileNameA(OPENFILENAMEA* request) {
    return kv::Run(request, kv::Purpose::kOpen);
}

BOOL WINAPI GetSaveFileNameA(OPENFILENAMEA* request) {
    return kv::Run(request, kv::Purpose::kSave);
}
