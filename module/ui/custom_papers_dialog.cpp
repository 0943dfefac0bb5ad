// The list of custom papers ("_LBPCUSTOMPAPERS"), from the Basic page: what is added, changed and
// deleted there is stored by its OK, all at once, or dropped.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "dialog/dialog_definition.h"
#include "dialog/texts.h"
#include "exports.h"
#include "lists/custom_papers.h"
#include "lists/paper_units.h"
#include "resources/resource.h"
#include "resources/string_ids.h"
#include "rules/conflicts.h"
#include "rules/gray_out.h"
#include "settings/reactor.h"
#include "sheet/administrator.h"
#include "sheet/fixed_text.h"
#include "sheet/message_box.h"
#include "ui/paper_editor.h"
#include "ui/steps.h"

namespace kvui {
namespace {

constexpr INT_PTR kNothingChosen = -1;

HWND ListOf(const Run& run) {
    return GetDlgItem(run.window, IDC_LIST_PAPERS);
}

// 0 when none is selected.
DWORD SelectedPaper(const Run& run) {
    const LRESULT index = SendMessageA(ListOf(run), LB_GETCURSEL, 0, 0);
    if (index < 0) return 0;
    return static_cast<DWORD>(SendMessageA(ListOf(run), LB_GETITEMDATA, index, 0));
}

// The name, a tab and the size in the unit that its maker worked in.
std::string LineOf(const SheetContext& context, const CustomPaperRecord& paper) {
    const std::string name = BoundedText(paper.displayName);
    char unit[16] = "", size[96] = "";
    LoadStringA(context.strings, paper.unit == 0 ? IDS_MM : IDS_INCH, unit, sizeof unit);
    if (paper.unit == 0) {
        std::snprintf(size, sizeof size, "\t(%d.%d x %d.%d %s)",
                      static_cast<int>(paper.widthTenths / 10), 0,
                      static_cast<int>(paper.heightTenths / 10), 0, unit);
    } else {
        std::snprintf(size, sizeof size, "\t(%d %d/16 x %d %d/16 %s)",
                      static_cast<int>(WholeInches(paper.widthInches)),
                      static_cast<int>(Sixteenths(paper.widthInches)),
                      static_cast<int>(WholeInches(paper.heightInches)),
                      static_cast<int>(Sixteenths(paper.heightInches)), unit);
    }
    return name + size;
}

void FillPapers(Run& run, DWORD wanted) {
    const HWND list = ListOf(run);
    SendMessageA(list, WM_SETREDRAW, FALSE, 0);
    SendMessageA(list, LB_RESETCONTENT, 0, 0);
    LRESULT selected = 0;
    for (const CustomPaperRecord& paper : CustomPapers(run.context)) {
        const std::string line = LineOf(run.context, paper);
        const LRESULT index =
            SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
        SendMessageA(list, LB_SETITEMDATA, index, static_cast<LPARAM>(paper.id));
        if (paper.id == wanted) selected = index;
    }
    SendMessageA(list, LB_SETCURSEL, static_cast<WPARAM>(selected), 0);
    SendMessageA(list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list, nullptr, TRUE);
}

// The rules have their say first. A button that is disabled under the focus hands it on.
void AllowButtons(Run& run) {
    struct ButtonRow {
        DWORD id;
        const char* item;
        bool mayAct;
    };
    SheetContext& context = run.context;
    const DWORD selected = SelectedPaper(run);
    const bool changeable =
        selected != 0 && (IsAdministrator() || !IsCommonPaper(context, selected));
    const ButtonRow rows[] = {
        {IDC_BTN_PAPER_NEW, "CustomPaperNew", !RoomForPapers(context).IsFull()},
        {IDC_BTN_PAPER_EDIT, "CustomPaperEdit", changeable},
        {IDC_BTN_PAPER_DELETE, "CustomPaperDelete", changeable},
    };
    for (const ButtonRow& row : rows) {
        const HWND button = GetDlgItem(run.window, static_cast<int>(row.id));
        const bool grayed =
            GrayButtonsByList(context, run.window, row.item, static_cast<LONG>(selected), row.id,
                              "CustomPaperList") != 0;
        const bool enabled = row.mayAct && !grayed;
        if (!enabled && GetFocus() == button) SetFocus(ListOf(run));
        EnableWindow(button, enabled);
    }
}

// Line "New Paper -3-" with the first number that no line begins with.
std::string DefaultName(Run& run) {
    char base[32] = "";
    LoadStringA(run.context.strings, IDS_NEW_PAPER, base, sizeof base);
    const std::vector<CustomPaperRecord> papers = CustomPapers(run.context);
    for (long number = 1;; ++number) {
        const std::string name = std::string(base) + " -" + std::to_string(number) + "-";
        const bool taken =
            std::any_of(papers.begin(), papers.end(), [&](const CustomPaperRecord& paper) {
                return BoundedText(paper.displayName).rfind(name, 0) == 0;
            });
        if (!taken) return name;
    }
}

// True when a paper was added or changed; `edit.record` is that one.
bool RunEditor(Run& run, PaperEdit& edit) {
    run.context.shared->lists.paperEdit = &edit;
    const INT_PTR result =
        DialogBoxParamA(run.context.resources, "_LBPEDITPAPER", run.window, EditPaperDlgProc,
                        reinterpret_cast<LPARAM>(&run.context));
    run.context.shared->lists.paperEdit = nullptr;
    return result == kPaperStored;
}

bool Asks(Run& run, UINT textId) {
    return ShowMessageString(run.window, run.context.strings, textId, IDS_WARNING,
                             MB_OKCANCEL | MB_ICONEXCLAMATION) == IDOK;
}

void NewPaper(Run& run) {
    PaperEdit edit{true, {}, DefaultName(run)};
    if (RunEditor(run, edit)) FillPapers(run, edit.record.id);
}

void EditPaper(Run& run) {
    PaperEdit edit{false, {}, DefaultName(run)};
    edit.record.id = SelectedPaper(run);
    const LRESULT row = SendMessageA(ListOf(run), LB_GETCURSEL, 0, 0);
    if (edit.record.id == 0 || !RunEditor(run, edit)) return;
    FillPapers(run, edit.record.id);
    SendMessageA(ListOf(run), LB_SETCURSEL, static_cast<WPARAM>(row), 0);
}

void DeleteSelected(Run& run) {
    const DWORD selected = SelectedPaper(run);
    const LRESULT row = SendMessageA(ListOf(run), LB_GETCURSEL, 0, 0);
    if (selected == 0 || !Asks(run, IDS_PAPER_DELETE)) return;
    const LRESULT above = row > 0 ? SendMessageA(ListOf(run), LB_GETITEMDATA, row - 1, 0) : 0;
    DeletePaper(run.context, selected);
    FillPapers(run, static_cast<DWORD>(above));
}

// A double click asks nothing, but does not more than the button could.
void ActOnPapers(Run& run) {
    const bool pressed = run.code == BN_CLICKED;
    if (run.id == IDC_BTN_PAPER_NEW && pressed) NewPaper(run);
    if (run.id == IDC_BTN_PAPER_EDIT && pressed && Asks(run, IDS_PAPER_CHANGE)) EditPaper(run);
    if (run.id == IDC_BTN_PAPER_DELETE && pressed) DeleteSelected(run);
    if (run.id == IDC_LIST_PAPERS && run.code == LBN_DBLCLK &&
        IsWindowEnabled(GetDlgItem(run.window, IDC_BTN_PAPER_EDIT))) {
        EditPaper(run);
    }
}

void ShowPapers(Run& run) {
    int tab = 130;
    SendMessageA(ListOf(run), LB_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&tab));
    FillPapers(run, static_cast<DWORD>(run.context.settings->dmPaperSize));
}

// Nothing changes when the rules refuse the paper beside the other settings.
void UsePaper(SheetContext& context, DWORD paper) {
    const SHORT before = context.settings->dmPaperSize;
    context.settings->dmPaperSize = static_cast<SHORT>(paper);
    if (ResolveConflicts(context, IDC_COMBO_PAPER_SIZE, context.page) != 1) {
        context.settings->dmPaperSize = before;
        return;
    }
    React(context, IDC_COMBO_PAPER_SIZE, ReactScope::kOneControl);
}

// A paper that is not stored is not used either.
void EndByOk(Run& run) {
    if (run.id != IDOK) return;
    run.over = true;
    DWORD selected = SelectedPaper(run);
    const SHORT before = run.context.settings->dmPaperSize;
    if (selected != 0) UsePaper(run.context, selected);
    if (!CommitPapers(run.context)) {
        run.context.settings->dmPaperSize = before;
        selected = 0;
        ShowMessageString(run.window, run.context.strings, IDS_LIST_NOT_STORED, IDS_WARNING,
                          MB_ICONEXCLAMATION);
    }
    EndDialog(run.window, selected != 0 ? static_cast<INT_PTR>(selected) : kNothingChosen);
}

void Drop(Run& run) {
    DropPapers(run.context);
}

constexpr DialogDefinition kCustomPapers = {
    .templateName = "_LBPCUSTOMPAPERS",
    .helpTopic = 1202,
    .ok = {0, kNothingChosen},  // ends with the paper
    .cancel = {IDCANCEL, kNothingChosen, Drop},
    .open = InOrder<SetCaptions, ShowPapers, AllowButtons>,
    .command = InOrder<EndByOk, ActOnPapers, AllowButtons>,
};

}  // namespace
}  // namespace kvui

INT_PTR CALLBACK DDMCUSTOMPAPER(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunDialog(kvui::kCustomPapers, dialog, message, wParam, lParam);
}
