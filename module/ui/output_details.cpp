// Output Details ("_DLGTAB01"): staple, punch and fold. The Basic page opens it.

#include "binding/control_fill.h"
#include "exports.h"
#include "resources/picture_ids.h"
#include "resources/resource.h"
#include "rules/conflicts.h"
#include "ui/sub_dialog_skeleton.h"

namespace kvui {
namespace {

struct PunchIcon {
    DWORD edge;      // mdmHolePunch
    DWORD twoHoles;  // or any other number
    DWORD threeHoles;
    DWORD fourHoles;
};
constexpr PunchIcon kPunchIcons[] = {
    {2, IDI_PUNCH_SHORT_2, IDI_PUNCH_SHORT_3, IDI_PUNCH_SHORT_4},
    {3, IDI_PUNCH_LONG_2, IDI_PUNCH_LONG_3, IDI_PUNCH_LONG_4},
    {4, IDI_PUNCH_RIGHT_2, IDI_PUNCH_RIGHT_3, IDI_PUNCH_RIGHT_4},
};

// The edge and the number of holes are two settings but one picture.
void ShowPunch(SheetContext& context, HWND dialog) {
    const PrivateDevmode& settings = *context.privateSettings;
    DWORD icon = IDI_PUNCH_OFF;
    for (const PunchIcon& row : kPunchIcons) {
        if (row.edge != settings.mdmHolePunch) continue;
        icon = settings.mdmHolePunchNumber == 3   ? row.threeHoles
               : settings.mdmHolePunchNumber == 4 ? row.fourHoles
                                                  : row.twoHoles;
    }
    ShowPicture(context, GetDlgItem(dialog, IDC_PIC_PUNCH), icon);
}

// Stored before the dispatch, so that the picture shows the choice while its conflicts are asked.
bool OnCommand(SheetContext& context, HWND dialog, DWORD id, WORD code) {
    if (code != CBN_SELENDOK || (id != IDC_COMBO_PUNCH && id != IDC_COMBO_PUNCH_NUM)) return false;
    const ControlItem* item = ItemById(id);
    const HWND combo = GetDlgItem(dialog, static_cast<int>(id));
    const LRESULT index = SendMessageA(combo, CB_GETCURSEL, 0, 0);
    if (item == nullptr || index < 0) return false;
    const auto value =
        static_cast<DWORD>(SendMessageA(combo, CB_GETITEMDATA, static_cast<WPARAM>(index), 0));
    DWORD oldWord = 0;
    if (!WriteItemValue(context.settings, *item, value, &oldWord)) return false;
    ShowPunch(context, dialog);
    // The dispatcher finds the value stored and would not ask.
    if (ResolveConflicts(context, id, dialog) != 1) {
        RestoreItemField(context.settings, *item, oldWord);
    }
    return true;
}

constexpr SubDialogTraits kOutputDetails = {
    .templateName = "_DLGTAB01",
    .dialogName = "DLGTAB01",
    .helpTopic = 1105,
    .onCommand = OnCommand,
    .afterRefresh = ShowPunch,
};

}  // namespace
}  // namespace kvui

INT_PTR CALLBACK DDMTAB01(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunSubDialog(kvui::kOutputDetails, dialog, message, wParam, lParam);
}
