// Output Details ("_DLGTAB01"): staple, punch and fold. The Basic page opens it.

#include "binding/control_fill.h"
#include "dialog/dialog_definition.h"
#include "exports.h"
#include "resources/picture_ids.h"
#include "resources/resource.h"
#include "rules/conflicts.h"
#include "ui/steps.h"

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
void ShowPunch(Run& run) {
    const PrivateDevmode& settings = *run.context.privateSettings;
    DWORD icon = IDI_PUNCH_OFF;
    for (const PunchIcon& row : kPunchIcons) {
        if (row.edge != settings.mdmHolePunch) continue;
        icon = settings.mdmHolePunchNumber == 3   ? row.threeHoles
               : settings.mdmHolePunchNumber == 4 ? row.fourHoles
                                                  : row.twoHoles;
    }
    ShowPicture(run.context, GetDlgItem(run.window, IDC_PIC_PUNCH), icon);
}

// Stored before conflicts are asked, so that the picture shows the choice meanwhile. False when the
// dispatcher is to read the list.
bool StorePunch(Run& run) {
    if (run.code != CBN_SELENDOK || (run.id != IDC_COMBO_PUNCH && run.id != IDC_COMBO_PUNCH_NUM)) {
        return false;
    }
    const ControlItem* item = ItemById(run.id);
    const HWND combo = GetDlgItem(run.window, static_cast<int>(run.id));
    const LRESULT index = SendMessageA(combo, CB_GETCURSEL, 0, 0);
    if (item == nullptr || index < 0) return false;
    const auto value =
        static_cast<DWORD>(SendMessageA(combo, CB_GETITEMDATA, static_cast<WPARAM>(index), 0));
    DWORD oldWord = 0;
    if (!WriteItemValue(run.context.settings, *item, value, &oldWord)) return false;
    ShowPunch(run);
    // The dispatcher finds the value stored and would not ask.
    if (ResolveConflicts(run.context, run.id, run.window) != 1) {
        RestoreItemField(run.context.settings, *item, oldWord);
    }
    return true;
}

void StorePunchOrDispatch(Run& run) {
    if (!StorePunch(run)) Dispatch(run);
}

constexpr DialogDefinition kOutputDetails = {
    .templateName = "_DLGTAB01",
    .dialogName = "DLGTAB01",
    .helpTopic = 1105,
    .ok = {IDOK, 1},
    .cancel = {IDCANCEL, 1, Restore},
    .open = InOrder<kOpenDialog, Refresh>,
    .command = InOrder<StorePunchOrDispatch, kFollowDialog>,
    .refresh = InOrder<RefreshControls, ShowPunch>,
};

}  // namespace
}  // namespace kvui

INT_PTR CALLBACK DDMTAB01(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    return kvui::RunDialog(kvui::kOutputDetails, dialog, message, wParam, lParam);
}
