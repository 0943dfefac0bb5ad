// The overlay editor ("_LBPEDITOVERLAY"): the name of one overlay and its file. The Overlay page
// opens it by Add and by Edit.
#include <windows.h>

#include <commdlg.h>

#include <cstdio>
#include <cstring>
#include <string>

#include "dialog/dialog_definition.h"
#include "dialog/texts.h"
#include "lists/overlay_store.h"
#include "resources/resource.h"
#include "resources/string_ids.h"
#include "settings/dialog_procedures.h"
#include "sheet/fixed_text.h"
#include "sheet/message_box.h"
#include "sheet/printer_data_change.h"

namespace kvui {
namespace {

constexpr int kMostNameCharacters = sizeof OverlayEntry::name - 1;
constexpr int kMostPathCharacters = 260;
constexpr INT_PTR kDone = 1, kCancelled = 2;

std::string TextOf(const Run& run, int id) {
    char text[kMostPathCharacters + 1] = "";
    GetDlgItemTextA(run.window, id, text, sizeof text);
    return text;
}

DWORD& Chosen(Run& run) {
    return run.context.privateSettings->mdmOverlay;
}

void PutChoiceBack(Run& run) {
    Chosen(run) = run.context.shared->lists.overlayBefore;
}

void ShowOverlay(Run& run) {
    SendDlgItemMessageA(run.window, IDC_EDIT_OVERLAY_NAME, EM_LIMITTEXT, kMostNameCharacters, 0);
    SendDlgItemMessageA(run.window, IDC_EDIT_OVERLAY_FILE, EM_LIMITTEXT, kMostPathCharacters, 0);
    OverlayBlock block;
    LoadOverlays(run.context, block);
    if (!run.context.shared->lists.editsOverlay) {
        Chosen(run) = NextOverlayId(block);
        return;
    }
    const int index = IndexOfOverlay(block, Chosen(run));
    if (index < 0) return;
    SetDlgItemTextA(run.window, IDC_EDIT_OVERLAY_NAME, block.entries[index].name);
    SetDlgItemTextA(run.window, IDC_EDIT_OVERLAY_FILE, block.entries[index].path);
}

void Browse(Run& run) {
    if (run.id != IDC_BTN_OVERLAY_BROWSE || run.code != BN_CLICKED) return;
    char description[64] = "", title[64] = "";
    LoadStringA(run.context.strings, IDS_OVERLAY_FILE_FILTER, description, sizeof description);
    LoadStringA(run.context.strings, IDS_OVERLAY_BROWSE_TITLE, title, sizeof title);
    const std::string filter = std::string(description) + '\0' + "*.prn" + '\0';
    char file[kMostPathCharacters] = "", fileTitle[256] = "";
    OPENFILENAMEA request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = run.window;
    request.lpstrFilter = filter.c_str();
    request.lpstrFile = file;
    request.nMaxFile = sizeof file;
    request.lpstrFileTitle = fileTitle;
    request.nMaxFileTitle = sizeof fileTitle;
    request.lpstrTitle = title;
    request.Flags = OFN_HIDEREADONLY | OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST;
    if (!GetOpenFileNameA(&request)) return;
    SetDlgItemTextA(run.window, IDC_EDIT_OVERLAY_FILE, file);
    if (!TextOf(run, IDC_EDIT_OVERLAY_NAME).empty()) return;
    fileTitle[kMostNameCharacters] = '\0';
    SetDlgItemTextA(run.window, IDC_EDIT_OVERLAY_NAME, fileTitle);
}

// --- OK ---

void SelectName(Run& run) {
    const HWND edit = GetDlgItem(run.window, IDC_EDIT_OVERLAY_NAME);
    SetFocus(edit);
    SendMessageA(edit, EM_SETSEL, 0, -1);
}

// What is stored is read back up to a ";".
std::string Trimmed(std::string name) {
    name.erase(0, std::min(name.find_first_not_of(' '), name.size()));
    name = name.substr(0, name.find(';'));
    return name.substr(0, kMostNameCharacters);
}

void OfferDefaultName(Run& run) {
    char base[32] = "", name[64] = "";
    LoadStringA(run.context.strings, IDS_OVERLAY_BASE_NAME, base, sizeof base);
    std::snprintf(name, sizeof name, "%s -%u-", base,
                  static_cast<unsigned>(Chosen(run) - kFirstUserOverlay + 1));
    SetDlgItemTextA(run.window, IDC_EDIT_OVERLAY_NAME, name);
    SelectName(run);
    MessageBeep(MB_OK);
}

bool CanRead(const std::string& path) {
    if (path.size() >= sizeof OverlayEntry::path || path.find(';') != path.npos) return false;
    const HANDLE file = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    CloseHandle(file);
    return true;
}

// What was typed may be the file, or the folder of one that is called like the overlay.
bool FindFile(std::string& path, const std::string& name) {
    for (const std::string& candidate : {path, path + name, path + "\\" + name}) {
        if (path.empty() || !CanRead(candidate)) continue;
        path = candidate;
        return true;
    }
    return false;
}

int Say(Run& run, UINT textId, const std::string& name, UINT style) {
    return ShowMessageNaming(run.window, run.context.strings, textId, IDS_WARNING, name.c_str(),
                             style);
}

// The entry that gets the name and the path; -1 when there is no room. An entry of the same name
// takes a new overlay over, and gives way to an edited one.
int PlaceFor(Run& run, OverlayBlock& block, int same) {
    if (same > 0 && !run.context.shared->lists.editsOverlay) {
        Chosen(run) = block.ids[same];
        return same;
    }
    if (same > 0) RemoveOverlay(block, same);
    const int own = IndexOfOverlay(block, Chosen(run));
    if (own >= 0) return own;
    if (block.count == kMostOverlays) return -1;
    block.ids[block.count] = Chosen(run);
    return static_cast<int>(block.count++);
}

// Whether another overlay's entry may be taken; the first entry stands for none and keeps its name.
bool MayOverwrite(Run& run, int same, const std::string& name) {
    if (same == 0) {
        Say(run, IDS_NAME_NOT_VALID, name, MB_OK);
        return false;
    }
    return Say(run, IDS_NAME_REGISTERED, name, MB_OKCANCEL) == IDOK;
}

bool SayNotStored(Run& run) {
    ShowMessageString(run.window, run.context.strings, IDS_LIST_NOT_STORED, IDS_WARNING,
                      MB_ICONEXCLAMATION);
    return false;
}

enum class Stored { kYes, kNo, kNameIsTaken };

// What is stored now is changed, as one: somebody else may have stored overlays since the dialog
// opened. `same` is then the entry of the name that was not agreed to be overwritten.
Stored Store(Run& run, const std::string& name, const std::string& path, DWORD agreed, int& same,
             DWORD& sameId) {
    PrinterDataChange change(run.context);
    OverlayBlock block;
    if (!change || !LoadOverlays(run.context, block)) return Stored::kNo;
    if (!run.context.shared->lists.editsOverlay) Chosen(run) = NextOverlayId(block);
    same = IndexOfOverlayNamed(block, name.c_str(), Chosen(run));
    sameId = same >= 0 ? block.ids[same] : 0;
    if (same == 0 || (same > 0 && sameId != agreed)) return Stored::kNameIsTaken;
    const int index = PlaceFor(run, block, same);
    if (index < 0) return Stored::kNo;
    CopyText(block.entries[index].name, name.c_str());
    CopyText(block.entries[index].path, path.c_str());
    return SaveOverlays(run.context, block) && change.Commit() ? Stored::kYes : Stored::kNo;
}

// Nothing is held up while a question waits for its answer; what was agreed to must still be so
// afterwards.
bool Accept(Run& run) {
    const std::string name = Trimmed(TextOf(run, IDC_EDIT_OVERLAY_NAME));
    std::string path = TextOf(run, IDC_EDIT_OVERLAY_FILE);
    if (name.empty()) {
        OfferDefaultName(run);
        return false;
    }
    if (!FindFile(path, name)) {
        ShowMessageString(run.window, run.context.strings, IDS_OVERLAY_NO_FILE, IDS_OVERLAY_WARNING,
                          MB_OK);
        return false;
    }
    int same = -1;
    DWORD agreed = 0, sameId = 0;
    Stored stored;
    while ((stored = Store(run, name, path, agreed, same, sameId)) == Stored::kNameIsTaken) {
        if (!MayOverwrite(run, same, name)) {
            SelectName(run);
            return false;
        }
        agreed = sameId;
    }
    if (stored == Stored::kNo) return SayNotStored(run);
    ReadChosenOverlayPath(run.context);
    return true;
}

void AcceptOnOk(Run& run) {
    if (run.id == IDOK && Accept(run)) EndDialog(run.window, kDone);
}

constexpr DialogDefinition kOverlayEditor = {
    .templateName = "_LBPEDITOVERLAY",
    .helpTopic = 5115,
    .ok = {0, kDone},  // may keep the dialog open
    .cancel = {IDCANCEL, kCancelled, PutChoiceBack},
    .open = InOrder<SetCaptions, ShowOverlay>,
    .command = InOrder<Browse, AcceptOnOk>,
};

}  // namespace

INT_PTR CALLBACK EditOverlayDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return RunDialog(kOverlayEditor, dialog, message, wParam, lParam);
}

}  // namespace kvui
