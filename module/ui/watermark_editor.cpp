// The watermark editor ("_LBPQUARNWATERCOLOR"): a name, a text and how it looks, with a preview
// that follows every change. The Watermark page opens it by Add and by Edit.
#include "ui/watermark_editor.h"

#include <commctrl.h>
#include <commdlg.h>

#include <algorithm>
#include <cstdlib>
#include <string>

#include "dialog/dialog_definition.h"
#include "dialog/texts.h"
#include "lists/watermark_list.h"
#include "lists/watermark_records.h"
#include "settings/dialog_procedures.h"
#include "sheet/administrator.h"
#include "sheet/fixed_text.h"
#include "sheet/message_box.h"
#include "ui/watermark_fields.h"

namespace kvui {
namespace {

constexpr INT_PTR kDone = 1, kCancelled = 2;
constexpr int kMostNameCharacters = sizeof WatermarkRecord::name - 1;
constexpr DWORD kNoRecord = ~DWORD{0};  // no watermark has this id

using namespace watermark;

// --- Name and text ---

std::string WithoutLeadingBlanks(std::string text, size_t most) {
    text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
    return text.substr(0, most);
}

void TakeText(Run& run) {
    if (run.id != IDC_EDIT_WM_TEXT || run.code != EN_CHANGE) return;
    CopyText(Record(run).text, TextOf(run, IDC_EDIT_WM_TEXT).c_str());
    Redraw(run);
}

void SelectAll(Run& run, int id) {
    SendDlgItemMessageA(run.window, id, EM_SETSEL, 0, -1);
}

void PutDefaultBack(Run& run, int id) {
    const WatermarkRecord fresh = MakeDefaultWatermark(run.context, EditOf(run).number);
    if (id == IDC_EDIT_WM_NAME) {
        ShowText(run, id, BoundedText(fresh.name));
    } else {
        SetDlgItemTextA(run.window, id, BoundedText(fresh.text).c_str());
    }
    SelectAll(run, id);
    MessageBeep(MB_OK);
}

bool IsBlank(const Run& run, int id) {
    return TextOf(run, id).find_first_not_of(' ') == std::string::npos;
}

void LeaveTexts(Run& run) {
    if (run.code != EN_KILLFOCUS) return;
    for (const int id : {IDC_EDIT_WM_NAME, IDC_EDIT_WM_TEXT}) {
        if (static_cast<int>(run.id) == id && IsBlank(run, id)) PutDefaultBack(run, id);
    }
}

// --- Numbers ---

// What is typed into a number, and what is kept of it.
struct Typed {
    std::string kept;
    LONG value;
    bool isBent;  // something was taken out
};

enum class Strange { kDropped, kEndsNumber };

// A sign counts in front of the first digit only.
Typed ReadNumber(const Run& run, int id, Strange strange) {
    const std::string text = TextOf(run, id);
    Typed typed{};
    for (const char c : text) {
        const bool digit = c >= '0' && c <= '9';
        if (digit || (c == '-' && typed.kept.empty())) {
            typed.kept += c;
            continue;
        }
        MessageBeep(MB_OK);
        if (strange == Strange::kEndsNumber) break;
    }
    typed.isBent = typed.kept != text;
    typed.value = static_cast<LONG>(std::strtol(typed.kept.c_str(), nullptr, 10));
    return typed;
}

void ShowTyped(Run& run, int id, const std::string& text) {
    ShowText(run, id, text);
    SendDlgItemMessageA(run.window, id, EM_SETSEL, text.size(), static_cast<LPARAM>(text.size()));
}

// Values between the limits are taken as they are typed; others are brought there once the field is
// left, because a number begins with its first digit.
void TakeSize(Run& run) {
    if (run.id != IDC_EDIT_WM_SIZE || (run.code != EN_CHANGE && run.code != EN_KILLFOCUS)) return;
    const LONG typed = static_cast<LONG>(
        std::clamp<long>(std::strtol(TextOf(run, IDC_EDIT_WM_SIZE).c_str(), nullptr, 10),
                         kLeastWatermarkSize, kMostWatermarkSize));
    Record(run).size = static_cast<DWORD>(typed);
    if (run.code == EN_KILLFOCUS) ShowNumber(run, IDC_EDIT_WM_SIZE, typed);
    Redraw(run);
}

void TakeAngle(Run& run) {
    if (run.id != IDC_EDIT_WM_ANGLE || (run.code != EN_CHANGE && run.code != EN_KILLFOCUS)) return;
    const Typed typed = ReadNumber(run, IDC_EDIT_WM_ANGLE, Strange::kDropped);
    LONG& angle = Record(run).angle;
    angle = std::clamp(typed.value, -kMostWatermarkAngle, kMostWatermarkAngle);
    if (run.code == EN_KILLFOCUS) ShowNumber(run, IDC_EDIT_WM_ANGLE, angle);
    if (run.code == EN_CHANGE && typed.isBent) {
        ShowTyped(run, IDC_EDIT_WM_ANGLE, std::to_string(angle));
    }
    Redraw(run);
}

void TakePercent(Run& run) {
    if (run.code != EN_CHANGE && run.code != EN_KILLFOCUS) return;
    for (const PositionRow& row : kPositions) {
        if (static_cast<int>(run.id) != row.edit) continue;
        const Typed typed = ReadNumber(run, row.edit, Strange::kEndsNumber);
        const LONG percent = std::clamp(typed.value, -kMostPercent, kMostPercent);
        if (percent != typed.value || run.code == EN_KILLFOCUS) {
            ShowTyped(run, row.edit, std::to_string(percent));
        } else if (typed.isBent) {
            ShowTyped(run, row.edit, typed.kept);
        }
        Record(run).*row.offset = AxisOf(run, row).OffsetOfPercent(percent);
        ShowSlider(run, row);
        Redraw(run);
    }
}

void TakeSlider(Run& run) {
    for (const PositionRow& row : kPositions) {
        if (static_cast<int>(run.id) != row.slider) continue;
        const LRESULT place = SendDlgItemMessageA(run.window, row.slider, TBM_GETPOS, 0, 0);
        const LONG percent = row.slope * static_cast<LONG>(place) + row.start;
        Record(run).*row.offset = AxisOf(run, row).OffsetOfSlider(percent);
        ShowNumber(run, row.edit, percent);
        Redraw(run);
    }
}

void Center(Run& run) {
    if (run.id != IDC_BTN_WM_CENTER || run.code != BN_CLICKED) return;
    for (const PositionRow& row : kPositions) {
        Record(run).*row.offset = 0;
        ShowNumber(run, row.edit, 0);
        ShowSlider(run, row);
    }
    Redraw(run);
}

// --- Typeface, style, colour ---

int ChosenRow(const Run& run, int id) {
    return static_cast<int>(SendDlgItemMessageA(run.window, id, CB_GETCURSEL, 0, 0));
}

void TakeTypeface(Run& run) {
    if (run.id != IDC_COMBO_WM_FACE || run.code != CBN_SELCHANGE) return;
    char name[LF_FACESIZE] = "";
    const int row = ChosenRow(run, IDC_COMBO_WM_FACE);
    if (row < 0 || SendDlgItemMessageA(run.window, IDC_COMBO_WM_FACE, CB_GETLBTEXTLEN, row, 0) >=
                       LF_FACESIZE) {
        return;
    }
    SendDlgItemMessageA(run.window, IDC_COMBO_WM_FACE, CB_GETLBTEXT, row,
                        reinterpret_cast<LPARAM>(name));
    CopyText(Record(run).typeface, name);
    Redraw(run);
}

void TakeStyle(Run& run) {
    if (run.id != IDC_COMBO_WM_STYLE || run.code != CBN_SELCHANGE) return;
    const int style = std::max(ChosenRow(run, IDC_COMBO_WM_STYLE), 0);
    Record(run).bold = static_cast<BYTE>(style & 1);
    Record(run).italic = static_cast<BYTE>(style >> 1 & 1);
    Redraw(run);
}

// What people made themselves in the colour dialog is kept as long as the module is.
bool PickColour(Run& run, COLORREF& colour) {
    static COLORREF custom[16] = {
        RGB(255, 0, 0),     RGB(255, 255, 255), RGB(255, 255, 255), RGB(255, 255, 255),
        RGB(255, 255, 255), RGB(255, 255, 255), RGB(255, 255, 255), RGB(255, 255, 255),
        RGB(255, 255, 255), RGB(255, 255, 255), RGB(255, 255, 255), RGB(255, 255, 255),
        RGB(255, 255, 255), RGB(255, 255, 255), RGB(255, 255, 255), RGB(255, 255, 255)};
    CHOOSECOLORA request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = run.window;
    request.rgbResult = RGB(255, 0, 0);
    request.lpCustColors = custom;
    request.Flags = CC_RGBINIT | CC_FULLOPEN;
    if (!ChooseColorA(&request)) return false;
    colour = request.rgbResult;
    return true;
}

void TakeColour(Run& run) {
    if (run.id != IDC_COMBO_WM_COLOR || run.code != CBN_SELCHANGE) return;
    WatermarkEdit& edit = EditOf(run);
    const int row = ChosenRow(run, IDC_COMBO_WM_COLOR);
    if (row < 0) return;
    if (row == kOtherColour && !PickColour(run, edit.otherColour)) {
        SendDlgItemMessageA(run.window, IDC_COMBO_WM_COLOR, CB_SETCURSEL,
                            static_cast<WPARAM>(edit.colourRow), 0);
        return;
    }
    edit.colourRow = row;
    const COLORREF colour = row == kOtherColour ? edit.otherColour : kColours[row].colour;
    edit.record.red = GetRValue(colour);
    edit.record.green = GetGValue(colour);
    edit.record.blue = GetBValue(colour);
    Redraw(run);
}

// --- OK ---

WatermarkRecord Finished(Run& run) {
    WatermarkRecord record = Record(run);
    const WatermarkRecord typed = record;
    std::fill(std::begin(record.name), std::end(record.name), '\0');
    std::fill(std::begin(record.text), std::end(record.text), '\0');
    std::fill(std::begin(record.typeface), std::end(record.typeface), '\0');
    CopyText(record.name,
             WithoutLeadingBlanks(TextOf(run, IDC_EDIT_WM_NAME), kMostNameCharacters).c_str());
    CopyText(record.text,
             WithoutLeadingBlanks(TextOf(run, IDC_EDIT_WM_TEXT), kMostTextCharacters).c_str());
    CopyText(record.typeface, BoundedText(typed.typeface).c_str());
    record.size = std::clamp<DWORD>(record.size, kLeastWatermarkSize, kMostWatermarkSize);
    record.bold = record.bold != 0 ? 1 : 0;
    record.italic = record.italic != 0 ? 1 : 0;
    record.positionMode = 0;
    for (const PositionRow& row : kPositions) {
        const WatermarkAxis axis = AxisOf(run, row);
        const LONG percent = ReadNumber(run, row.edit, Strange::kEndsNumber).value;
        if (axis.scale != 0) record.*row.offset = axis.OffsetOfPercent(percent);
    }
    return record;
}

int Say(Run& run, UINT textId, UINT style) {
    return ShowMessageString(run.window, run.context.strings, textId, IDS_WARNING, style);
}

void GoBackToName(Run& run) {
    SetFocus(ControlOf(run, IDC_EDIT_WM_NAME));
    SelectAll(run, IDC_EDIT_WM_NAME);
}

// What the list refuses, such as to change an entry of the printer's or, by an ordinary user, one
// of everybody's.
bool OrSayNotStored(Run& run, bool stored) {
    if (!stored) Say(run, IDS_LIST_NOT_STORED, MB_OK | MB_ICONEXCLAMATION);
    return stored;
}

// The other watermark keeps its id. Entry 0 stands for no watermark and keeps its name for itself.
bool Overwrite(Run& run, WatermarkRecord record, const WatermarkRecord& other) {
    HINSTANCE strings = run.context.strings;
    const std::string name = BoundedText(record.name);
    bool agreed = false;
    if (other.id == 0) {
        ShowMessageNaming(run.window, strings, IDS_NAME_NOT_VALID, IDS_WARNING, name.c_str(),
                          MB_OK | MB_ICONEXCLAMATION);
    } else {
        MessageBeep(MB_OK);
        agreed = ShowMessageNaming(run.window, strings, IDS_NAME_REGISTERED, IDS_WARNING,
                                   name.c_str(), MB_OKCANCEL | MB_ICONEXCLAMATION) == IDOK;
    }
    if (!agreed) {
        GoBackToName(run);
        return false;
    }
    record.id = other.id;
    if (!OrSayNotStored(run, UpdateWatermark(run.context, record))) return false;
    if (EditOf(run).isNew) run.context.privateSettings->mdmWatermark = other.id;
    return true;
}

bool AddNew(Run& run, WatermarkRecord record) {
    SheetContext& context = run.context;
    const ListRoom room = RoomForWatermarks(context);
    const bool shared = IsDlgButtonChecked(run.window, IDC_RADIO_WM_SHARED) == BST_CHECKED;
    const bool common =
        room.everybodyAddsCommon || (IsAdministrator() && shared && room.ForCommon());
    if (common ? !room.ForCommon() : !room.ForOwn()) {
        Say(run, IDS_WATERMARK_LIST_FULL, MB_OK | MB_ICONEXCLAMATION);
        return false;
    }
    if (!OrSayNotStored(run, AddWatermark(context, record, common))) return false;
    context.privateSettings->mdmWatermark = record.id;
    return true;
}

bool Change(Run& run, const WatermarkRecord& record) {
    WatermarkRecord other{};
    const bool isNew = EditOf(run).isNew;
    if (FindWatermarkNamed(run.context, BoundedText(record.name), isNew ? kNoRecord : record.id,
                           other)) {
        return Overwrite(run, record, other);
    }
    if (isNew) return AddNew(run, record);
    const bool shared = IsDlgButtonChecked(run.window, IDC_RADIO_WM_SHARED) == BST_CHECKED;
    return OrSayNotStored(run, UpdateWatermarkIn(run.context, record, shared));
}

bool Accept(Run& run) {
    for (const int id : {IDC_EDIT_WM_NAME, IDC_EDIT_WM_TEXT}) {
        if (!IsBlank(run, id)) continue;
        PutDefaultBack(run, id);
        SetFocus(ControlOf(run, id));
        return false;
    }
    SheetContext& context = run.context;
    const DWORD before = context.privateSettings->mdmWatermark;
    const bool done = Change(run, Finished(run));
    if (!CommitWatermarks(context)) {
        context.privateSettings->mdmWatermark = before;
        return OrSayNotStored(run, false);
    }
    CopyChosenWatermark(context);
    return done;
}

void AcceptOnOk(Run& run) {
    if (run.id == IDOK && Accept(run)) EndDialog(run.window, kDone);
}

// What the editor shows by itself is no input.
void StopOwnChanges(Run& run) {
    if (EditOf(run).isShowing) run.over = true;
}

constexpr DialogDefinition kWatermarkEditor = {
    .templateName = "_LBPQUARNWATERCOLOR",
    .helpTopic = 5117,
    .ok = {0, kDone},  // may keep the dialog open
    .cancel = {IDCANCEL, kCancelled},
    .open = InOrder<watermark::MakeRecord, SetCaptions, watermark::ShowWatermark>,
    .command = InOrder<StopOwnChanges, TakeText, LeaveTexts, TakeSize, TakeAngle, TakePercent,
                       Center, TakeTypeface, TakeStyle, TakeColour, AcceptOnOk>,
    .scroll = TakeSlider,
};

}  // namespace

void BeginWatermarkEdit(Run& run) {
    const bool adds = run.id == IDC_BTN_WATERMARK_ADD;
    if ((!adds && run.id != IDC_BTN_WATERMARK_EDIT) || run.code != BN_CLICKED) return;
    WatermarkEdit*& edit = run.context.shared->lists.watermarkEdit;
    if (edit == nullptr) edit = new WatermarkEdit{};
    const HWND list = ControlOf(run, IDC_LIST_WATERMARK);
    const LRESULT count = SendMessageA(list, LB_GETCOUNT, 0, 0);
    std::vector<std::string> names;
    for (LRESULT row = 0; row < count; ++row) {
        char name[64] = "";
        if (SendMessageA(list, LB_GETTEXTLEN, static_cast<WPARAM>(row), 0) <
            static_cast<LRESULT>(sizeof name)) {
            SendMessageA(list, LB_GETTEXT, static_cast<WPARAM>(row),
                         reinterpret_cast<LPARAM>(name));
        }
        names.emplace_back(name);
    }
    *edit = {};
    edit->isNew = adds;
    edit->number = DefaultWatermarkNumber(run.context, names);
}

void EndWatermarkEdit(Run& run) {
    delete run.context.shared->lists.watermarkEdit;
    run.context.shared->lists.watermarkEdit = nullptr;
}

INT_PTR CALLBACK EditWatermarkDlgProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return RunDialog(kWatermarkEditor, dialog, message, wParam, lParam);
}

}  // namespace kvui
