// Notification dispatcher: finds the item, filters by notification, reads the control back into its
// setting and lets the rules have their say.
#include <windows.h>

#include <commctrl.h>

#include <cstring>

#include "binding/control_fill.h"
#include "binding/edit_binding.h"
#include "binding/notification.h"
#include "rules/conflicts.h"
#include "settings/defaults.h"
#include "sheet/message_box.h"

namespace kvui {
namespace {

// Names this place in the message for support; it stays the same when lines move.
constexpr int kLineOfReadControl = 1180;

struct Reading {
    bool valid;
    DWORD value;
};

Reading ReadBox(HWND box, UINT selectedMessage, UINT dataMessage) {
    const LRESULT index = SendMessageA(box, selectedMessage, 0, 0);
    if (index < 0) return {false, 0};
    return {true, static_cast<DWORD>(SendMessageA(box, dataMessage, index, 0))};
}

Reading ReadListItem(HWND box) {
    char name[32] = "";
    GetClassNameA(box, name, sizeof name);
    return lstrcmpiA(name, "LISTBOX") == 0 ? ReadBox(box, LB_GETCURSEL, LB_GETITEMDATA)
                                           : ReadBox(box, CB_GETCURSEL, CB_GETITEMDATA);
}

Reading ReadSlider(HWND bar, const ControlItem& item) {
    if (item.slider == nullptr) return {false, 0};
    const LONG minimum = static_cast<LONG>(item.slider->minimum);
    const LONG maximum = static_cast<LONG>(item.slider->maximum);
    LONG value = static_cast<LONG>(SendMessageA(bar, TBM_GETPOS, 0, 0));
    if (const LONG stored = item.slider->storedMinimum; stored != 0 && maximum > minimum) {
        value = (value - minimum) * (-2 * stored) / (maximum - minimum) + stored;
    }
    return {true, static_cast<DWORD>(value)};
}

Reading ReadRadio(const ControlItem& item, DWORD buttonId) {
    for (const RadioItem& button : RadioButtons(item)) {
        if (button.buttonId == buttonId) return {true, button.value};
    }
    return {false, 0};
}

Reading ReadControl(SheetContext& context, HWND page, const ControlItem& item, DWORD controlId) {
    const HWND window = GetDlgItem(page, static_cast<int>(controlId));
    switch (item.type) {
        case kItemCombo:
            return ReadBox(window, CB_GETCURSEL, CB_GETITEMDATA);
        case kItemList:
        case kItemMaskList:
            return ReadListItem(window);
        case kItemRadio:
            return ReadRadio(item, controlId);
        case kItemCheck:
            if (item.check == nullptr) return {false, 0};
            return {true, IsDlgButtonChecked(page, static_cast<int>(controlId)) == BST_CHECKED
                              ? item.check->checkedValue
                              : item.check->clearedValue};
        case kItemEdit: {
            const EditReading reading = ReadEdit(context, page, item);
            return {reading.valid, reading.value};
        }
        case kItemSlider:
            return ReadSlider(window, item);
        default:
            ShowDriverHalt(kLineOfReadControl);
            return {false, 0};
    }
}

// Writes the value, checks its conflicts and takes it back when the user refuses their resolution.
bool StoreValue(SheetContext& context, HWND page, const ControlItem& item, DWORD value) {
    DWORD oldWord = 0;
    if (!WriteItemValue(context.settings, item, value, &oldWord)) return false;
    if (ResolveConflicts(context, item.controlId, page) == 1) return true;
    RestoreItemField(context.settings, item, oldWord);
    // The control still shows what was refused.
    FillControl(context, page, item);
    return false;
}

bool OpenButtonDialog(SheetContext& context, HWND page, const ButtonItem& button) {
    BYTE before[kRecordSize];
    std::memcpy(before, context.settings, kRecordSize);
    const INT_PTR result = DialogBoxParamA(context.resources, button.templateName, page,
                                           button.procedure, reinterpret_cast<LPARAM>(&context));
    if (button.kind != kButtonOpenAndSelect) {
        return std::memcmp(before, context.settings, kRecordSize) != 0;
    }
    const HWND combo = GetDlgItem(page, static_cast<int>(button.controlToUpdate));
    const LRESULT count = SendMessageA(combo, CB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        if (SendMessageA(combo, CB_GETITEMDATA, i, 0) == result) {
            SendMessageA(combo, CB_SETCURSEL, i, 0);
        }
    }
    if (SendMessageA(combo, CB_GETCURSEL, 0, 0) < 0) SendMessageA(combo, CB_SETCURSEL, 0, 0);
    return true;
}

bool PressButton(SheetContext& context, HWND page, const ControlItem& item) {
    if (item.button == nullptr) return false;
    switch (item.button->kind) {
        case kButtonOpenDialog:
        case kButtonOpenAndSelect:
            return OpenButtonDialog(context, page, *item.button);
        case kButtonResetRecord:
            ApplyRecordDefaults(context.settings, context.printer);
            return true;
        case kButtonMoveEntries:
            break;  // the Device Options page moves entries itself
    }
    return false;
}

const ControlItem* ItemOfNotification(DWORD controlId) {
    for (const ControlItem& item : kCatalogue) {
        if (item.controlId == controlId || item.alternateIds[1] == controlId ||
            item.alternateIds[2] == controlId) {
            return &item;
        }
        for (const RadioItem& button : RadioButtons(item)) {
            if (button.buttonId == controlId) return &item;
        }
    }
    return nullptr;
}

bool PassesFilter(const ControlItem& item, WORD code) {
    switch (item.type) {
        case kItemCombo:
            return code == CBN_SELENDOK;
        case kItemList:
        case kItemMaskList:
            return code == LBN_SELCHANGE;
        case kItemEdit:
            return code == EN_KILLFOCUS || code == EN_UPDATE;
        case kItemCheck:
            return code == BN_CLICKED;
        default:
            return true;
    }
}

bool ReadBack(SheetContext& context, HWND page, const ControlItem& item, DWORD controlId) {
    switch (item.type) {
        case kItemText:
            return false;
        case kItemButton:
            return PressButton(context, page, item);
        case kItemCombo:
        case kItemList:
        case kItemMaskList:
        case kItemRadio:
        case kItemCheck:
        case kItemEdit:
        case kItemSlider:
            break;
        default:
            ShowUnknownType(page);
            return false;
    }
    const Reading reading = ReadControl(context, page, item, controlId);
    if (!reading.valid) return false;
    const bool changed = StoreValue(context, page, item, reading.value);
    // What was typed may have been brought into range without changing the setting.
    if (item.type == kItemEdit) FillControl(context, page, item);
    return changed;
}

}  // namespace

bool DispatchNotification(SheetContext& context, HWND page, DWORD controlId, WORD code) {
    const ControlItem* item = controlId != 0 ? ItemOfNotification(controlId) : nullptr;
    if (item == nullptr || !PassesFilter(*item, code)) return false;
    if (item->type == kItemEdit) {
        const HWND edit = GetDlgItem(page, static_cast<int>(controlId));
        if (code == EN_UPDATE) FilterTyping(edit, *item);
        // The user name is the record's only text.
        const bool isText = item->edit != nullptr && item->edit->kind == kEditText;
        if (isText) return ReadUserName(context, edit);
        if (code == EN_UPDATE) return false;
    }
    return ReadBack(context, page, *item, controlId);
}

const ControlItem* ItemOfSpin(DWORD spinId) {
    if (spinId == 0) return nullptr;
    for (const ControlItem& item : kCatalogue) {
        if (item.edit != nullptr && item.edit->spinId == spinId) return &item;
    }
    return nullptr;
}

}  // namespace kvui
