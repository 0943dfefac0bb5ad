// Command router: a table from control ids to actions, and the few actions that are more than a
// dispatch.
#include <windows.h>

#include <prsht.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>

#include "binding/control_fill.h"
#include "binding/notification.h"
#include "lists/watermark_angle.h"
#include "lists/watermark_list.h"
#include "resources/resource.h"
#include "rules/gray_out.h"
#include "settings/booklet.h"
#include "settings/defaults.h"
#include "settings/reactor.h"
#include "sheet/snapshot.h"

namespace kvui {
namespace {

struct Command {
    SheetContext& context;
    HWND page;
    DWORD id;
    WORD code;
};
using Action = bool (*)(const Command&);

bool Dispatch(const Command& command) {
    return DispatchNotification(command.context, command.page, command.id, command.code);
}

HWND Control(const Command& command, DWORD id) {
    return GetDlgItem(command.page, static_cast<int>(id));
}

bool DispatchOnly(const Command& command) {
    return Dispatch(command);
}

bool ResetRecord(const Command& command) {
    ApplyRecordDefaults(command.context.settings, command.context.printer);
    return true;
}

bool ChangedOnly(const Command&) {
    return true;
}

// Cancelling the dialog that the box opens unticks the box and undoes what ticking it forced.
bool FirstPageSource(const Command& command) {
    constexpr INT_PTR kCancelled = 0;
    SheetContext& context = command.context;
    PrivateDevmode& settings = *context.privateSettings;
    if (settings.mdmFirstPageMedia == 0) settings.mdmFirstPageMedia = settings.MediaType;
    BYTE before[kRecordSize];
    std::memcpy(before, context.settings, sizeof before);
    const bool changed = Dispatch(command);
    const ControlItem* item = ItemById(command.id);
    if (command.code != BN_CLICKED || settings.mdmFirstPage != 1 || item == nullptr ||
        item->button == nullptr) {
        return changed;
    }
    const INT_PTR result =
        DialogBoxParamA(context.resources, item->button->templateName, command.page,
                        item->button->procedure, reinterpret_cast<LPARAM>(&context));
    if (result != kCancelled) return changed;
    std::memcpy(context.settings, before, sizeof before);
    TakeSnapshot(context);  // the dialog has taken one of its own there
    FillControl(context, command.page, *item);
    return false;
}

bool DuplexOrBooklet(const Command& command) {
    if (IsBooklet(*command.context.privateSettings) &&
        SendMessageA(Control(command, command.id), CB_GETCURSEL, 0, 0) == 0) {
        return false;
    }
    return DispatchOnly(command);
}

bool DispatchAndTurnWatermark(const Command& command) {
    const bool changed = Dispatch(command);
    UpdateChosenWatermark(command.context);
    return changed;
}

bool PaperBox(const Command& command) {
    const bool changed = Dispatch(command);
    if (command.code == CBN_SELCHANGE) UpdateChosenWatermark(command.context);
    return changed;
}

bool AllPaperSizes(const Command& command) {
    const bool changed = Dispatch(command);
    for (const DWORD id : {IDC_COMBO_PAPER_SIZE, IDC_COMBO_OUT_PAPER}) {
        if (const ControlItem* item = ItemById(id)) {
            FillControl(command.context, command.page, *item);
        }
    }
    return changed;
}

bool TypedNumberDiffers(const Command& command) {
    char text[32] = "";
    GetWindowTextA(Control(command, command.id), text, sizeof text);
    return static_cast<DWORD>(std::atol(text)) != command.context.privateSettings->mdmScaleSize;
}

bool TrackedEdit(const Command& command) {
    DWORD& flags = command.context.flags;
    if (command.code == EN_SETFOCUS) {
        flags |= kSheetTyping;
        return false;
    }
    if (!(flags & kSheetTyping)) return false;
    if (command.code == EN_UPDATE) {
        const bool changed = Dispatch(command);
        SendMessageA(GetParent(command.page), PSM_CHANGED, reinterpret_cast<WPARAM>(command.page),
                     0);
        return changed;
    }
    if (command.code == EN_KILLFOCUS) {
        flags &= ~kSheetTyping;
        return Dispatch(command);
    }
    return false;
}

// Not read when it is left with the number that is stored.
bool ScalingEdit(const Command& command) {
    if (command.code != EN_KILLFOCUS || TypedNumberDiffers(command)) return TrackedEdit(command);
    command.context.flags &= ~kSheetTyping;
    return false;
}

bool ColourMode(const Command& command) {
    const bool changed = Dispatch(command);
    DWORD& other = command.context.privateSettings->mdmOtherSettings;
    other = command.id == IDC_RADIO_COLOR ? other | kOtherColor : other & ~kOtherColor;
    return changed;
}

bool ColourMatching(const Command& command) {
    const bool changed = Dispatch(command);
    DeriveColorMatching(*command.context.privateSettings);
    return changed;
}

bool NotAChange(const Command&) {
    return false;
}

bool DispatchWithoutChange(const Command& command) {
    Dispatch(command);
    return false;
}

bool OptionList(const Command& command) {
    if (command.code == LBN_SELCHANGE) {
        const bool installable = command.id == IDC_LIST_INSTALLABLE;
        EnableWindow(Control(command, IDC_BTN_ADD), installable);
        EnableWindow(Control(command, IDC_BTN_REMOVE), !installable);
    }
    return false;
}

// Ticking the box goes to its number.
template <DWORD editId>
bool JobCheck(const Command& command) {
    const bool changed = Dispatch(command);
    if (IsDlgButtonChecked(command.page, static_cast<int>(command.id)) != BST_CHECKED) {
        return changed;
    }
    const ControlItem* edit = ItemById(editId);
    // The edit was grayed while the box was off, and a grayed window takes no focus.
    FillControl(command.context, command.page, *edit);
    ApplyGrayOutIndex(command.context, command.page, *edit);
    SetFocus(Control(command, editId));
    return changed;
}

bool JobEdit(const Command& command) {
    if (command.code != EN_UPDATE && command.code != EN_KILLFOCUS) return false;
    return DispatchOnly(command);
}

bool WatermarkChoice(const Command& command) {
    if (command.code != LBN_SELCHANGE) return false;
    const HWND list = Control(command, command.id);
    char name[32] = "";
    GetClassNameA(list, name, sizeof name);
    const bool isList = lstrcmpiA(name, "LISTBOX") == 0;
    const LRESULT index = SendMessageA(list, isList ? LB_GETCURSEL : CB_GETCURSEL, 0, 0);
    if (index < 0) return false;
    command.context.privateSettings->mdmWatermark =
        static_cast<DWORD>(SendMessageA(list, isList ? LB_GETITEMDATA : CB_GETITEMDATA, index, 0));
    UpdateChosenWatermark(command.context);
    // Without a watermark too: nothing of the last one may be left for the rendering side.
    CopyChosenWatermark(command.context);
    return true;
}

// One control, or all ids from the first to the last.
struct Route {
    DWORD first;
    DWORD last;
    Action action;
    constexpr Route(DWORD id, Action taken) : Route(id, id, taken) {}
    constexpr Route(DWORD from, DWORD to, Action taken) : first(from), last(to), action(taken) {}
};

// id or ids, action; the ids ascend
constexpr Route kRoutes[] = {
    {IDC_DEFAULTS, ResetRecord},
    {IDC_COMBO_PAPER_SOURCE, DispatchOnly},
    {IDC_COMBO_MEDIA_TYPE, DispatchOnly},
    {IDC_CHK_FIRST_PAGE_SOURCE, FirstPageSource},
    {IDC_BTN_FIRST_PAGE, IDC_COMBO_FIRST_PAGE_SOURCE, DispatchOnly},
    {IDC_COMBO_FIRST_PAGE_MEDIA, DispatchOnly},
    {IDC_COMBO_OUTPUT_SETTING, DispatchOnly},
    {IDC_LIST_OUTPUT_SETTING, DispatchOnly},
    {IDC_OUTPUT_SETTING_OTHER, DispatchOnly},
    {IDC_BTN_OUTPUT_SETTING, DispatchOnly},
    {IDC_COMBO_POSTER, DispatchOnly},
    {IDC_COMBO_NUP, DispatchOnly},
    {IDC_COMBO_ORDER, IDC_COMBO_ORDER_ACROSS, DispatchOnly},
    {IDC_BTN_NUP_DETAILS, DispatchOnly},
    {IDC_COMBO_DUPLEX, DuplexOrBooklet},
    {IDC_CHK_GUIDE_PAPER, DispatchOnly},
    {IDC_RADIO_SCALING_AUTO, IDC_RADIO_SCALING_MANUAL, DispatchAndTurnWatermark},
    {IDC_CHK_OVERLAY_FIRST_PAGE, IDC_COMBO_OVERLAY_PAGES, DispatchOnly},
    {IDC_LIST_OVERLAY, IDC_BTN_OVERLAY_ADD, DispatchOnly},
    {IDC_BTN_OVERLAY_DELETE, ChangedOnly},
    {IDC_CHK_IMAGE_SHIFT, DispatchOnly},
    {IDC_EDIT_OFFSET_X, TrackedEdit},
    {IDC_EDIT_OFFSET_Y, TrackedEdit},
    {IDC_BTN_IMAGE_SHIFT, DispatchOnly},
    {IDC_COMBO_PAPER_SIZE, PaperBox},
    {IDC_BTN_CUSTOM_PAPER, DispatchOnly},
    {IDC_CHK_OUT_PAPER, DispatchAndTurnWatermark},
    {IDC_COMBO_OUT_PAPER, PaperBox},
    {IDC_CHK_FIT_TO_PAPER, DispatchAndTurnWatermark},
    {IDC_EDIT_SCALING, ScalingEdit},
    {IDC_EDIT_COPIES, TrackedEdit},
    {IDC_COMBO_SORTING, DispatchOnly},
    {IDC_RADIO_PORTRAIT, IDC_RADIO_LANDSCAPE, DispatchAndTurnWatermark},
    {IDC_CHK_PROOF_PRINT, IDC_CHK_TRANSMIT_ONCE, DispatchOnly},
    {IDC_CHK_ALL_PAPER_SIZE, AllPaperSizes},
    {IDC_CHK_ROTATE, DispatchAndTurnWatermark},
    {IDC_CHK_COLLATE, DispatchOnly},
    {IDC_COMBO_RESOLUTION, DispatchOnly},
    {IDC_RADIO_GRAYSCALE, IDC_RADIO_COLOR, ColourMode},
    {IDC_RADIO_MATCHING_OFF, IDC_RADIO_MATCHING_ON, ColourMatching},
    {IDC_COMBO_COMPRESS_METHOD, DispatchOnly},
    {IDC_SLD_SATURATION, NotAChange},
    {IDC_SLD_SHARPNESS, NotAChange},
    {IDC_CHK_GLOSSY_TEXT, IDC_CHK_GLOSSY_PHOTO, DispatchOnly},
    {IDC_CHK_LINE_ART, DispatchOnly},
    {IDC_COMBO_MATCH_PHOTO, IDC_COMBO_MATCH_TEXT, DispatchOnly},
    {IDC_LIST_INSTALLABLE, OptionList},
    {IDC_BTN_ADD, IDC_BTN_REMOVE, NotAChange},
    {IDC_LIST_INSTALLED, OptionList},
    {IDC_BTN_MAILBOX, DispatchOnly},
    {IDC_EDIT_USER_NAME, TrackedEdit},
    {IDC_BTN_ABOUT, DispatchWithoutChange},
    {IDC_CHK_AUTO_CONFIG, DispatchOnly},
    {IDC_COMBO_INSTALLED_STATE, IDC_LIST_OPTIONS, NotAChange},
    {IDC_CHK_ACCESS_CODE, JobCheck<IDC_EDIT_ACCESS_NUMBER>},
    {IDC_EDIT_ACCESS_NUMBER, JobEdit},
    {IDC_CHK_LOCK_JOB, JobCheck<IDC_EDIT_PASSWORD>},
    {IDC_EDIT_PASSWORD, JobEdit},
    {IDC_CHK_DISTRIBUTION, IDC_CHK_DISTRIBUTION_FIRST, DispatchOnly},
    {IDC_COMBO_DENSITY, DispatchOnly},
    {IDC_EDIT_DISTRIBUTION_START, JobEdit},
    {IDC_LIST_WATERMARK, WatermarkChoice},
    {IDC_CHK_WATERMARK_FIRST_PAGE, IDC_BTN_WATERMARK_ADD, DispatchOnly},
    {IDC_BTN_WATERMARK_DELETE, ChangedOnly},
    {IDC_CHK_WATERMARK_REPEAT, DispatchOnly},
};
static_assert(std::is_sorted(std::begin(kRoutes), std::end(kRoutes),
                             [](const Route& left, const Route& right) {
                                 return left.last < right.first;
                             }));

}  // namespace

bool RouteCommand(SheetContext& context, HWND page, DWORD id, WORD code) {
    const auto* route = std::upper_bound(
        std::begin(kRoutes), std::end(kRoutes), id,
        [](DWORD wanted, const Route& candidate) { return wanted < candidate.first; });
    if (route == std::begin(kRoutes)) return false;
    --route;
    if (id > route->last) return false;
    return route->action({context, page, id, code});
}

}  // namespace kvui
