// The editor of one custom paper ("_LBPEDITPAPER"): a name and a size, in millimetres or in inches
// and sixteenths. The record keeps both units; the one that is shown is the one that is typed in.
#include "ui/paper_editor.h"

#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

#include "dialog/dialog_definition.h"
#include "dialog/texts.h"
#include "lists/custom_papers.h"
#include "lists/paper_units.h"
#include "resources/resource.h"
#include "resources/string_ids.h"
#include "rules/gray_out.h"
#include "sheet/administrator.h"
#include "sheet/fixed_text.h"
#include "sheet/message_box.h"
#include "sheet/rules_path.h"

namespace kvui {
namespace {

constexpr INT_PTR kCancelled = 2;
constexpr int kTypedNameCharacters = 20;
constexpr size_t kMostNameCharacters = 64;
constexpr int kDigits = 3, kSixteenthDigits = 2, kMostSixteenths = 15;
// The record's unit while the editor is open.
enum EditedUnit : DWORD { kEditMillimetres = 2, kEditInches = 4 };

// The controls of a width or a height.
struct LengthControls {
    int edit, spin, edit16, spin16, label16, rangeMillimetres, rangeInches;
    DWORD CustomPaperRecord::*tenths;
    DWORD CustomPaperRecord::*inches;
    PaperLimit PaperLimits::*limit;
};
constexpr LengthControls kLengths[] = {
    {IDC_EDIT_PAPER_WIDTH, IDC_SPIN_PAPER_WIDTH, IDC_EDIT_PAPER_WIDTH_16, IDC_SPIN_PAPER_WIDTH_16,
     IDC_ST_PAPER_WIDTH_16, IDC_ST_PAPER_WIDTH_MM_RANGE, IDC_ST_PAPER_WIDTH_INCH_RANGE,
     &CustomPaperRecord::widthTenths, &CustomPaperRecord::widthInches, &PaperLimits::width},
    {IDC_EDIT_PAPER_HEIGHT, IDC_SPIN_PAPER_HEIGHT, IDC_EDIT_PAPER_HEIGHT_16,
     IDC_SPIN_PAPER_HEIGHT_16, IDC_ST_PAPER_HEIGHT_16, IDC_ST_PAPER_HEIGHT_MM_RANGE,
     IDC_ST_PAPER_HEIGHT_INCH_RANGE, &CustomPaperRecord::heightTenths,
     &CustomPaperRecord::heightInches, &PaperLimits::height},
};

PaperEdit& EditOf(Run& run) {
    return *run.context.shared->lists.paperEdit;
}
CustomPaperRecord& Record(Run& run) {
    return EditOf(run).record;
}
bool InMillimetres(Run& run) {
    return Record(run).unit == kEditMillimetres;
}

HWND ControlOf(const Run& run, int id) {
    return GetDlgItem(run.window, id);
}

// --- Showing ---

void ShowLength(Run& run, const LengthControls& row) {
    const bool metric = InMillimetres(run);
    const DWORD inches = Record(run).*row.inches;
    SetDlgItemInt(run.window, row.edit,
                  metric ? Record(run).*row.tenths / 10 : static_cast<UINT>(WholeInches(inches)),
                  FALSE);
    SetDlgItemInt(run.window, row.edit16, metric ? 0 : static_cast<UINT>(Sixteenths(inches)),
                  FALSE);
}

void ShowRange(Run& run, const LengthControls& row) {
    const PaperLimits limits = LoadPaperLimits();
    const PaperLimit& limit = limits.*row.limit;
    const bool metric = InMillimetres(run);
    char text[64];
    std::snprintf(text, sizeof text, "[%d - %d]", static_cast<int>(limit.leastMillimetres),
                  static_cast<int>(limit.mostMillimetres));
    SetDlgItemTextA(run.window, row.rangeMillimetres, text);
    std::snprintf(text, sizeof text, "[%d %d/16 - %d %d/16]",
                  static_cast<int>(WholeInches(limit.leastInches)),
                  static_cast<int>(Sixteenths(limit.leastInches)),
                  static_cast<int>(WholeInches(limit.mostInches)),
                  static_cast<int>(Sixteenths(limit.mostInches)));
    SetDlgItemTextA(run.window, row.rangeInches, text);
    SendMessageA(
        ControlOf(run, row.spin), UDM_SETRANGE32,
        static_cast<WPARAM>(metric ? limit.leastMillimetres : WholeInches(limit.leastInches)),
        metric ? limit.mostMillimetres : WholeInches(limit.mostInches));
    SendMessageA(ControlOf(run, row.spin16), UDM_SETRANGE32, 0, kMostSixteenths);
    for (const int id : {row.edit16, row.spin16, row.label16, row.rangeInches}) {
        ShowWindow(ControlOf(run, id), metric ? SW_HIDE : SW_SHOW);
    }
    ShowWindow(ControlOf(run, row.rangeMillimetres), metric ? SW_SHOW : SW_HIDE);
}

void ShowSizes(Run& run) {
    for (const LengthControls& row : kLengths) {
        ShowRange(run, row);
        ShowLength(run, row);
    }
}

void MakeRecord(Run& run) {
    PaperEdit& edit = EditOf(run);
    if (!edit.isNew) {
        const DWORD id = edit.record.id;
        QDMMLTGetPaperWithID(run.context.shared->lists.handles[kListPaper], run.context.printer,
                             &edit.record, id);
        edit.record.unit = edit.record.unit == 0 ? kEditMillimetres : kEditInches;
        return;
    }
    const bool metric = UsesMillimetres(run.context.printer);
    const NewPaperSize size = LoadNewPaperSize(metric);
    edit.record = {};
    edit.record.unit = metric ? kEditMillimetres : kEditInches;
    edit.record.widthTenths = static_cast<DWORD>(size.width.tenths);
    edit.record.heightTenths = static_cast<DWORD>(size.height.tenths);
    edit.record.widthInches = size.width.inches;
    edit.record.heightInches = size.height.inches;
    CopyText(edit.record.displayName, edit.defaultName.c_str());
}

void ShowPaper(Run& run) {
    SendDlgItemMessageA(run.window, IDC_EDIT_PAPER_NAME, EM_LIMITTEXT, kTypedNameCharacters, 0);
    for (const LengthControls& row : kLengths) {
        SendDlgItemMessageA(run.window, row.edit, EM_LIMITTEXT, kDigits, 0);
        SendDlgItemMessageA(run.window, row.edit16, EM_LIMITTEXT, kSixteenthDigits, 0);
    }
    char name[sizeof CustomPaperRecord::displayName + 1] = "";
    std::memcpy(name, Record(run).displayName, sizeof Record(run).displayName);
    SetDlgItemTextA(run.window, IDC_EDIT_PAPER_NAME, name);
    const int own = InMillimetres(run) ? IDC_RADIO_PAPER_MM : IDC_RADIO_PAPER_INCH;
    const int other = InMillimetres(run) ? IDC_RADIO_PAPER_INCH : IDC_RADIO_PAPER_MM;
    CheckRadioButton(run.window, IDC_RADIO_PAPER_INCH, IDC_RADIO_PAPER_MM, own);
    if (IsShownByOptions(run.context, "CustomPaperUnit") == 0) {
        ShowWindow(ControlOf(run, other), SW_HIDE);
    }
    ShowSizes(run);
}

// --- Taking what was typed ---

void TakeLength(Run& run, const LengthControls& row) {
    const PaperLimits limits = LoadPaperLimits();
    const UINT typed = GetDlgItemInt(run.window, row.edit, nullptr, FALSE);
    const UINT typed16 =
        std::min<UINT>(GetDlgItemInt(run.window, row.edit16, nullptr, FALSE), kMostSixteenths);
    const PaperLength length =
        InMillimetres(run) ? LengthFromMillimetres(static_cast<LONG>(typed), limits.*row.limit)
                           : LengthFromInches(PackInches(typed, typed16), limits.*row.limit);
    Record(run).*row.tenths = static_cast<DWORD>(length.tenths);
    Record(run).*row.inches = length.inches;
    ShowLength(run, row);
}

void LeaveLengths(Run& run) {
    if (run.code != EN_KILLFOCUS) return;
    for (const LengthControls& row : kLengths) {
        if (static_cast<int>(run.id) == row.edit || static_cast<int>(run.id) == row.edit16) {
            TakeLength(run, row);
        }
    }
}

std::string TypedName(const Run& run) {
    char text[256] = "";
    GetDlgItemTextA(run.window, IDC_EDIT_PAPER_NAME, text, sizeof text);
    std::string name = text;
    name.erase(0, std::min(name.find_first_not_of(' '), name.size()));
    return name.substr(0, kMostNameCharacters);
}

void SelectName(Run& run) {
    SetFocus(ControlOf(run, IDC_EDIT_PAPER_NAME));
    SendDlgItemMessageA(run.window, IDC_EDIT_PAPER_NAME, EM_SETSEL, 0, -1);
}

void PutDefaultName(Run& run) {
    SetDlgItemTextA(run.window, IDC_EDIT_PAPER_NAME, EditOf(run).defaultName.c_str());
    SendDlgItemMessageA(run.window, IDC_EDIT_PAPER_NAME, EM_SETSEL, 0, -1);
    MessageBeep(MB_OK);
}

void LeaveName(Run& run) {
    if (run.id == IDC_EDIT_PAPER_NAME && run.code == EN_KILLFOCUS && TypedName(run).empty()) {
        PutDefaultName(run);
    }
}

void ChooseUnit(Run& run) {
    if (run.code != BN_CLICKED) return;
    if (run.id != IDC_RADIO_PAPER_INCH && run.id != IDC_RADIO_PAPER_MM) return;
    Record(run).unit = run.id == IDC_RADIO_PAPER_MM ? kEditMillimetres : kEditInches;
    ShowSizes(run);
}

// --- OK ---

// As the list keeps it.
CustomPaperRecord Finished(Run& run, const std::string& name) {
    CustomPaperRecord record = Record(run);
    record.unit = IsDlgButtonChecked(run.window, IDC_RADIO_PAPER_MM) ? 0 : 1;
    std::memset(record.displayName, 0, sizeof record.displayName);
    CopyText(record.displayName, name.c_str());
    return record;
}

bool Say(Run& run, UINT textId, UINT style, int wanted) {
    return ShowMessageString(run.window, run.context.strings, textId, IDS_WARNING, style) == wanted;
}

// What the list refuses, such as to change an entry of the printer's or, by an ordinary user, one
// of everybody's.
bool OrSayNotStored(Run& run, bool stored) {
    if (!stored) Say(run, IDS_LIST_NOT_STORED, MB_OK | MB_ICONEXCLAMATION, IDOK);
    return stored;
}

// The other paper keeps what it is known by and takes the rest over.
bool Overwrite(Run& run, const CustomPaperRecord& record, const CustomPaperRecord& other) {
    MessageBeep(MB_OK);
    if (ShowMessageNaming(run.window, run.context.strings, IDS_NAME_REGISTERED, IDS_WARNING,
                          record.displayName, MB_OKCANCEL | MB_ICONEXCLAMATION) != IDOK) {
        SelectName(run);
        return false;
    }
    CustomPaperRecord replaced = record;
    replaced.id = other.id;
    replaced.serviceNumber = other.serviceNumber;
    std::memcpy(replaced.internalName, other.internalName, sizeof replaced.internalName);
    std::memcpy(replaced.kept, other.kept, sizeof replaced.kept);
    if (!OrSayNotStored(run, UpdatePaper(run.context, replaced))) return false;
    if (EditOf(run).isNew) Record(run).id = other.id;
    return true;
}

bool AddNew(Run& run, CustomPaperRecord record) {
    SheetContext& context = run.context;
    const ListRoom room = RoomForPapers(context);
    bool isCommon = room.everybodyAddsCommon;
    if (!isCommon && IsAdministrator() && room.ForCommon()) {
        isCommon = Say(run, IDS_PAPER_SAVE_COMMON, MB_YESNO | MB_ICONEXCLAMATION, IDYES);
    }
    if (isCommon ? !room.ForCommon() : !room.ForOwn()) {
        Say(run, IDS_PAPER_LIST_FULL, MB_OK | MB_ICONEXCLAMATION, IDOK);
        return false;
    }
    if (!OrSayNotStored(run, AddPaper(context, record, isCommon))) return false;
    Record(run).id = record.id;
    return true;
}

bool Accept(Run& run) {
    for (const LengthControls& row : kLengths) TakeLength(run, row);
    const std::string name = TypedName(run);
    if (name.empty()) {
        PutDefaultName(run);
        SelectName(run);
        return false;
    }
    const CustomPaperRecord record = Finished(run, name);
    CustomPaperRecord other{};
    const DWORD own = EditOf(run).isNew ? 0 : record.id;
    if (FindPaperNamed(run.context, name, own, other)) return Overwrite(run, record, other);
    return EditOf(run).isNew ? AddNew(run, record)
                             : OrSayNotStored(run, UpdatePaper(run.context, record));
}

void AcceptOnOk(Run& run) {
    if (run.id == IDOK && Accept(run)) EndDialog(run.window, kPaperStored);
}

constexpr DialogDefinition kPaperEditor = {
    .templateName = "_LBPEDITPAPER",
    .helpTopic = 1202,
    .ok = {0, kPaperStored},  // may keep the dialog open
    .cancel = {IDCANCEL, kCancelled},
    .open = InOrder<MakeRecord, SetCaptions, ShowPaper>,
    .command = InOrder<LeaveLengths, LeaveName, ChooseUnit, AcceptOnOk>,
};

}  // namespace

INT_PTR CALLBACK EditPaperDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return RunDialog(kPaperEditor, dialog, message, wParam, lParam);
}

}  // namespace kvui
