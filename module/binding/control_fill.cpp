// Control filling and the refresh walk. A control is told only what really differs, so that nothing
// flickers and an unchanged list is not built again.
#include "binding/control_fill.h"

#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "binding/edit_binding.h"
#include "binding/list_builders.h"
#include "rules/gray_out.h"
#include "rules/rules_file.h"
#include "sheet/printer_values.h"
#include "sheet/rules_path.h"

namespace kvui {
namespace {

constexpr size_t kCaptionSize = 128;
// Owner-drawn entries have pictures of pages, which need this height.
constexpr int kPictureEntryHeight = 32;
constexpr WPARAM kClosedField = static_cast<WPARAM>(-1);  // of CB_SETITEMHEIGHT

HWND ChildOf(HWND dialog, DWORD id) {
    return id != 0 ? GetDlgItem(dialog, static_cast<int>(id)) : nullptr;
}

void SetCaption(SheetContext& context, HWND window, DWORD captionId) {
    char caption[kCaptionSize] = "";
    if (window == nullptr || captionId == 0 ||
        LoadStringA(context.strings, captionId, caption, sizeof caption) == 0) {
        return;
    }
    char current[kCaptionSize] = "";
    GetWindowTextA(window, current, sizeof current);
    if (std::strcmp(current, caption) != 0) SetWindowTextA(window, caption);
}

// The messages of a box with entries; combo and list boxes differ only in the numbers.
struct BoxMessages {
    UINT reset, add, count, text, textLength, data, setData, select, selected;
};
constexpr BoxMessages kComboMessages = {CB_RESETCONTENT, CB_ADDSTRING,   CB_GETCOUNT,
                                        CB_GETLBTEXT,    CB_GETLBTEXTLEN, CB_GETITEMDATA,
                                        CB_SETITEMDATA,  CB_SETCURSEL,   CB_GETCURSEL};
constexpr BoxMessages kListMessages = {LB_RESETCONTENT, LB_ADDSTRING,  LB_GETCOUNT,
                                       LB_GETTEXT,      LB_GETTEXTLEN, LB_GETITEMDATA,
                                       LB_SETITEMDATA,  LB_SETCURSEL,  LB_GETCURSEL};

bool IsListBox(HWND window) {
    char name[32] = "";
    GetClassNameA(window, name, sizeof name);
    return lstrcmpiA(name, "LISTBOX") == 0;
}

bool BoxHolds(HWND box, const BoxMessages& messages, const std::vector<ListEntry>& entries) {
    if (SendMessageA(box, messages.count, 0, 0) != static_cast<LRESULT>(entries.size())) {
        return false;
    }
    std::vector<char> text;
    for (size_t i = 0; i < entries.size(); ++i) {
        if (static_cast<DWORD>(SendMessageA(box, messages.data, i, 0)) != entries[i].value) {
            return false;
        }
        const LRESULT length = SendMessageA(box, messages.textLength, i, 0);
        if (length != static_cast<LRESULT>(entries[i].text.size())) return false;
        text.resize(length + 1);
        SendMessageA(box, messages.text, i, reinterpret_cast<LPARAM>(text.data()));
        if (entries[i].text.compare(text.data()) != 0) return false;
    }
    return true;
}

void PutEntries(HWND box, const BoxMessages& messages, const std::vector<ListEntry>& entries) {
    if (BoxHolds(box, messages, entries)) return;
    SendMessageA(box, WM_SETREDRAW, FALSE, 0);
    SendMessageA(box, messages.reset, 0, 0);
    for (const ListEntry& entry : entries) {
        const LRESULT index =
            SendMessageA(box, messages.add, 0, reinterpret_cast<LPARAM>(entry.text.c_str()));
        if (index >= 0) {
            SendMessageA(box, messages.setData, index, static_cast<LPARAM>(entry.value));
        }
    }
    SendMessageA(box, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(box, nullptr, TRUE);
}

std::vector<ListEntry> EntriesOf(SheetContext& context, const ControlItem& item) {
    std::vector<ListEntry> entries;
    char caption[kCaptionSize];
    for (const SelectItem& entry : SelectEntries(item)) {
        if (LoadStringA(context.strings, entry.stringId, caption, sizeof caption) != 0 &&
            IsShownByOptions(context, entry.name) == 1) {
            entries.push_back({caption, entry.value});
        }
    }
    for (const CodeRecord& record : CodeRecords(item.listName)) {
        if (IsShownByOptions(context, record.thirdText) == 1) {
            entries.push_back({record.name, static_cast<DWORD>(record.code)});
        }
    }
    AddRunTimeEntries(context, item.runTimeList, entries);
    return entries;
}

int IndexOfValue(const std::vector<ListEntry>& entries, DWORD value) {
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const ListEntry& entry) { return entry.value == value; });
    return found != entries.end() ? static_cast<int>(found - entries.begin()) : -1;
}

bool OffersPapers(const ControlItem& item) {
    return item.runTimeList == RunTimeList::kPapers ||
           item.runTimeList == RunTimeList::kOutputPapers;
}

// Selects the stored value; a value that is no longer offered falls back and is written.
DWORD SelectStoredValue(SheetContext& context, HWND box, const BoxMessages& messages,
                        const ControlItem& item, const std::vector<ListEntry>& entries) {
    DWORD value = ItemValue(context, item);
    int index = IndexOfValue(entries, value);
    if (index < 0 && !entries.empty()) {
        index = 0;
        if (OffersPapers(item)) {
            index = std::max(0, IndexOfValue(entries, static_cast<DWORD>(RegionalDefaultPaper(
                                                          context.printer))));
        }
        value = entries[index].value;
        WriteItemValue(context.settings, item, value, nullptr);
    }
    if (SendMessageA(box, messages.selected, 0, 0) != index) {
        SendMessageA(box, messages.select, static_cast<WPARAM>(index), 0);
    }
    return value;
}

void FillText(SheetContext& context, HWND dialog, const ControlItem& item) {
    const HWND window = ChildOf(dialog, item.controlId);
    SetCaption(context, window, item.captionId);
    EnableWindow(window, TRUE);
}

void FillCombo(SheetContext& context, HWND dialog, const ControlItem& item) {
    const HWND combo = ChildOf(dialog, item.controlId);
    const std::vector<ListEntry> entries = EntriesOf(context, item);
    if ((GetWindowLongPtrA(combo, GWL_STYLE) & CBS_OWNERDRAWFIXED) != 0 &&
        SendMessageA(combo, CB_GETITEMHEIGHT, 0, 0) != kPictureEntryHeight) {
        SendMessageA(combo, CB_SETITEMHEIGHT, 0, kPictureEntryHeight);
        SendMessageA(combo, CB_SETITEMHEIGHT, kClosedField, kPictureEntryHeight);
    }
    PutEntries(combo, kComboMessages, entries);
    const DWORD value = SelectStoredValue(context, combo, kComboMessages, item, entries);
    ShowItemPicture(context, dialog, item, value);
    const BOOL enable = IsShownByOptions(context, item.optionKey) == 1;
    EnableWindow(combo, enable);
    EnableWindow(ChildOf(dialog, item.pictureId), enable);
}

void FillList(SheetContext& context, HWND dialog, const ControlItem& item) {
    const HWND box = ChildOf(dialog, item.controlId);
    const BoxMessages& messages = IsListBox(box) ? kListMessages : kComboMessages;
    const std::vector<ListEntry> entries = EntriesOf(context, item);
    PutEntries(box, messages, entries);
    if (!IsSetOfEntries(item)) SelectStoredValue(context, box, messages, item, entries);
    EnableWindow(box, IsShownByOptions(context, item.optionKey) == 1);
}

void FillRadio(SheetContext& context, HWND dialog, const ControlItem& item) {
    const HWND group = ChildOf(dialog, item.controlId);
    SetCaption(context, group, item.captionId);
    const BOOL enable = IsShownByOptions(context, item.optionKey) == 1;
    EnableWindow(group, enable);
    EnableWindow(ChildOf(dialog, item.pictureId), enable);
    const DWORD value = ItemValue(context, item);
    DWORD checked = 0;
    for (const RadioItem& button : RadioButtons(item)) {
        const HWND window = ChildOf(dialog, button.buttonId);
        SetCaption(context, window, button.captionId);
        EnableWindow(window, TRUE);
        if (button.value == value) checked = button.buttonId;
    }
    for (const RadioItem& button : RadioButtons(item)) {
        CheckDlgButton(dialog, static_cast<int>(button.buttonId),
                       button.buttonId == checked ? BST_CHECKED : BST_UNCHECKED);
    }
    ShowItemPicture(context, dialog, item, value);
}

void FillCheck(SheetContext& context, HWND dialog, const ControlItem& item) {
    const HWND box = ChildOf(dialog, item.controlId);
    SetCaption(context, box, item.captionId);
    if (item.check == nullptr || !item.check->alwaysEnabled) {
        EnableWindow(box, IsShownByOptions(context, item.optionKey) == 1);
    }
    if (item.check == nullptr) return;
    const CheckItem& check = *item.check;
    const DWORD value = ItemValue(context, item);
    const bool checked = check.testMode == kCheckEquals ? value == check.checkedValue
                                                        : (value & check.checkedValue) != 0;
    ShowItemPicture(context, dialog, item, value);
    CheckDlgButton(dialog, static_cast<int>(item.controlId), checked ? BST_CHECKED : BST_UNCHECKED);
    if (const HWND shown = ChildOf(dialog, check.shownWhileChecked)) {
        ShowWindow(shown, checked ? SW_SHOW : SW_HIDE);
    }
    if (const HWND shown = ChildOf(dialog, check.shownWhileCleared)) {
        ShowWindow(shown, checked ? SW_HIDE : SW_SHOW);
    }
}

void FillButton(SheetContext& context, HWND dialog, const ControlItem& item) {
    const HWND button = ChildOf(dialog, item.controlId);
    SetCaption(context, button, item.captionId);
    if (IsShownByOptions(context, item.optionKey) == 0) EnableWindow(button, FALSE);
}

void FillSlider(SheetContext& context, HWND dialog, const ControlItem& item) {
    const HWND bar = ChildOf(dialog, item.controlId);
    if (item.slider == nullptr) return;
    const SliderItem& slider = *item.slider;
    const LONG minimum = static_cast<LONG>(slider.minimum);
    const LONG maximum = static_cast<LONG>(slider.maximum);
    SendMessageA(bar, TBM_SETRANGE, TRUE, MAKELONG(slider.minimum, slider.maximum));
    SendMessageA(bar, TBM_SETTICFREQ, slider.tickFrequency, 0);
    SendMessageA(bar, TBM_SETPAGESIZE, 0, static_cast<LPARAM>(slider.pageSize));
    char text[16];
    std::snprintf(text, sizeof text, "%ld", static_cast<long>(minimum));
    SetDlgItemTextA(dialog, static_cast<int>(slider.minimumTextId), text);
    std::snprintf(text, sizeof text, "%ld", static_cast<long>(maximum));
    SetDlgItemTextA(dialog, static_cast<int>(slider.maximumTextId), text);
    const BOOL enable = IsShownByOptions(context, item.optionKey) == 1;
    EnableWindow(bar, enable);
    const HWND edit = ChildOf(dialog, slider.valueEditId);
    EnableWindow(edit, enable);
    LONG position = static_cast<LONG>(ItemValue(context, item));
    if (const LONG stored = slider.storedMinimum; stored != 0) {
        const LONG steps = std::clamp(position, stored, -stored) - stored;
        position = (maximum - minimum) * steps / (-2 * stored) + minimum;
    }
    if (SendMessageA(bar, TBM_GETPOS, 0, 0) != position) {
        SendMessageA(bar, TBM_SETPOS, TRUE, position);
    }
    if (edit == nullptr) return;
    char current[16] = "";
    GetWindowTextA(edit, current, sizeof current);
    std::snprintf(text, sizeof text, "%ld", static_cast<long>(position));
    if (std::strcmp(current, text) != 0) SetWindowTextA(edit, text);
}

struct Filler {
    ItemType type;
    void (*fill)(SheetContext&, HWND, const ControlItem&);
};
// In the order in which a page's items are initialised.
constexpr Filler kFillers[] = {
    {kItemText, FillText},     {kItemCombo, FillCombo}, {kItemList, FillList},
    {kItemMaskList, FillList}, {kItemRadio, FillRadio}, {kItemCheck, FillCheck},
    {kItemEdit, FillEdit},     {kItemButton, FillButton}, {kItemSlider, FillSlider},
};

}  // namespace

DWORD ItemValue(const SheetContext& context, const ControlItem& item) {
    DWORD value = 0;
    return ReadItemValue(context.settings, item, &value) ? value : 0;
}

void ShowPicture(SheetContext& context, HWND picture, DWORD icon) {
    // The icon's id stays with the control, so that it is loaded only when it changes.
    constexpr char kShownIcon[] = "KVShownIcon";
    const HANDLE shown = reinterpret_cast<HANDLE>(static_cast<ULONG_PTR>(icon));
    if (picture == nullptr || icon == 0 || GetPropA(picture, kShownIcon) == shown) return;
    const HICON handle = LoadIconA(context.resources, MAKEINTRESOURCEA(icon));
    if (handle == nullptr) return;
    SendMessageA(picture, STM_SETICON, reinterpret_cast<WPARAM>(handle), 0);
    SetPropA(picture, kShownIcon, shown);
}

void ShowItemPicture(SheetContext& context, HWND dialog, const ControlItem& item, DWORD value) {
    if (const HWND picture = ChildOf(dialog, item.pictureId)) {
        ShowPicture(context, picture, IconForValue(item, value));
    }
}

void FillControl(SheetContext& context, HWND dialog, const ControlItem& item) {
    if (GetDlgItem(dialog, static_cast<int>(item.controlId)) == nullptr) return;
    for (const Filler& filler : kFillers) {
        if (filler.type == item.type) filler.fill(context, dialog, item);
    }
}

void InitialiseControls(SheetContext& context, HWND dialog, const char* dialogName) {
    for (const Filler& filler : kFillers) {
        size_t next = 0;
        while (const ControlItem* item =
                   NextItemOfDialog(next, dialogName, filler.type, &next)) {
            FillControl(context, dialog, *item);
        }
    }
}

void InitialiseInTableOrder(SheetContext& context, HWND dialog, const char* dialogName) {
    size_t next = 0;
    while (const ControlItem* item = NextItemOfDialog(next, dialogName, kItemAnyType, &next)) {
        FillControl(context, dialog, *item);
    }
}

void RefreshDialog(SheetContext& context, HWND dialog, const char* dialogName) {
    constexpr int kMaxPasses = 2;
    bool again = true;
    for (int pass = 0; pass < kMaxPasses && again; ++pass) {
        again = false;
        size_t next = 0;
        while (const ControlItem* item = NextItemOfDialog(next, dialogName, kItemAnyType, &next)) {
            if (HideControlByRule(context, dialog, *item) == 1) {
                again = false;
                continue;
            }
            FillControl(context, dialog, *item);
            if (ApplyGrayOutIndex(context, dialog, *item) == 1) again = true;
        }
    }
}

}  // namespace kvui
