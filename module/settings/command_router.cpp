// Command router: a table from control ids to actions, and the few actions that are more than a
// dispatch.
#include <prsht.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>

#include "lists/watermark_angle.h"
#include "settings/control_fill.h"
#include "settings/control_ids.h"
#include "settings/defaults.h"
#include "settings/notification.h"

namespace kvui {
namespace {

struct Command {
    SheetContext& context;
    HWND page;
    DWORD id;
    WORD code;
};
using Action = RouteResult (*)(const Command&);

bool Dispatch(const Command& command) {
    return DispatchNotification(command.context, command.page, command.id, command.code);
}

HWND Control(const Command& command, DWORD id) {
    return GetDlgItem(command.page, static_cast<int>(id));
}

RouteResult DispatchOnly(const Command& command) { return {true, Dispatch(command)}; }

RouteResult ResetRecord(const Command& command) {
    ApplyRecordDefaults(command.context.settings, command.context.printer);
    return {true, true};
}

RouteResult ChangedOnly(const Command&) { return {true, true}; }

RouteResult FirstPageSource(const Command& command) {
    PrivateDevmode& settings = *command.context.privateSettings;
    if (settings.mdmFirstPageMedia == 0) settings.mdmFirstPageMedia = settings.MediaType;
    const bool changed = Dispatch(command);
    if (command.code == BN_CLICKED && settings.mdmFirstPage == 1) {
        const ControlItem* item = ItemById(command.id);
        if (item != nullptr && item->button != nullptr) {
            DialogBoxParamA(command.context.resources, item->button->templateName, command.page,
                            item->button->procedure, reinterpret_cast<LPARAM>(&command.context));
        }
    }
    return {true, changed};
}

// While a booklet is chosen, the first entry reads "On" and cannot be chosen.
RouteResult DuplexBooklet(const Command& command) {
    if (command.context.privateSettings->mdmNup == kNupBooklet &&
        SendMessageA(Control(command, command.id), CB_GETCURSEL, 0, 0) == 0) {
        return {true, false};
    }
    return DispatchOnly(command);
}

RouteResult DispatchAndTurnWatermark(const Command& command) {
    const bool changed = Dispatch(command);
    UpdateChosenWatermark(command.context);
    return {true, changed};
}

RouteResult PaperBox(const Command& command) {
    const bool changed = Dispatch(command);
    if (command.code == CBN_SELCHANGE) UpdateChosenWatermark(command.context);
    return {true, changed};
}

RouteResult AllPaperSizes(const Command& command) {
    const bool changed = Dispatch(command);
    for (const DWORD id : {kComboPaperSize, kComboOutPaper}) {
        if (const ControlItem* item = ItemById(id)) FillControl(command.context, command.page, *item);
    }
    return {true, changed};
}

bool TypedNumberDiffers(const Command& command) {
    char text[32] = "";
    GetWindowTextA(Control(command, command.id), text, sizeof text);
    return static_cast<DWORD>(std::atol(text)) != command.context.privateSettings->mdmScaleSize;
}

RouteResult TrackedEdit(const Command& command) {
    DWORD& flags = command.context.flags;
    if (command.code == EN_SETFOCUS) {
        flags |= kSheetTyping;
        return {true, false};
    }
    if (!(flags & kSheetTyping)) return {false, false};
    if (command.code == EN_UPDATE) {
        const bool changed = Dispatch(command);
        SendMessageA(GetParent(command.page), PSM_CHANGED, reinterpret_cast<WPARAM>(command.page), 0);
        return {true, changed};
    }
    if (command.code == EN_KILLFOCUS) {
        flags &= ~kSheetTyping;
        const bool read = command.id != kEditScaling || TypedNumberDiffers(command);
        return {true, read && Dispatch(command)};
    }
    return {false, false};
}

RouteResult ColourMode(const Command& command) {
    const bool changed = Dispatch(command);
    DWORD& other = command.context.privateSettings->mdmOtherSettings;
    other = command.id == kRadioColor ? other | kOtherColor : other & ~kOtherColor;
    return {true, changed};
}

RouteResult ColourMatching(const Command& command) {
    const bool changed = Dispatch(command);
    PrivateDevmode& settings = *command.context.privateSettings;
    settings.ColorMatching = settings.mdmColorMatching == 2 ? 1 : 0;
    return {true, changed};
}

RouteResult NotAChange(const Command&) { return {true, false}; }

RouteResult DispatchWithoutChange(const Command& command) {
    Dispatch(command);
    return {true, false};
}

RouteResult OptionList(const Command& command) {
    if (command.code == LBN_SELCHANGE) {
        const bool installable = command.id == kListInstallable;
        EnableWindow(Control(command, kBtnAdd), installable);
        EnableWindow(Control(command, kBtnRemove), !installable);
    }
    return {true, false};
}

RouteResult AutoConfigure(const Command& command) {
    const bool changed = Dispatch(command);
    const bool on = command.context.privateSettings->mdmOtherSettings & kOtherAutoConfig;
    const HWND state = Control(command, kComboInstalledState);
    const HWND options = Control(command, kListOptions);
    EnableWindow(state, !on);
    EnableWindow(options, !on);
    if (on) {
        SendMessageA(state, CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
        SendMessageA(options, LB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    } else if (changed) {
        SetFocus(options);
    }
    return {true, changed};
}

RouteResult JobCheck(const Command& command) {
    const bool changed = Dispatch(command);
    if (changed && IsDlgButtonChecked(command.page, static_cast<int>(command.id)) == BST_CHECKED) {
        SetFocus(Control(command,
                         command.id == kChkAccessCode ? kEditAccessNumber : kEditPassword));
    }
    return {true, changed};
}

RouteResult JobEdit(const Command& command) {
    if (command.code != EN_UPDATE && command.code != EN_KILLFOCUS) return {false, false};
    return DispatchOnly(command);
}

RouteResult WatermarkChoice(const Command& command) {
    if (command.code != LBN_SELCHANGE) return {true, false};
    const HWND list = Control(command, command.id);
    char name[32] = "";
    GetClassNameA(list, name, sizeof name);
    const bool isList = lstrcmpiA(name, "LISTBOX") == 0;
    const LRESULT index = SendMessageA(list, isList ? LB_GETCURSEL : CB_GETCURSEL, 0, 0);
    if (index < 0) return {true, false};
    command.context.privateSettings->mdmWatermark = static_cast<DWORD>(
        SendMessageA(list, isList ? LB_GETITEMDATA : CB_GETITEMDATA, index, 0));
    UpdateChosenWatermark(command.context);
    return {true, true};
}

struct Route {
    DWORD first;
    DWORD last;
    Action action;
};

// first id, last id, action; in ascending order
constexpr Route kRoutes[] = {
    {12, 12, ResetRecord},
    {1111, 1111, DispatchOnly},
    {1141, 1141, DispatchOnly},
    {1170, 1170, FirstPageSource},
    {1172, 1173, DispatchOnly},
    {1176, 1176, DispatchOnly},
    {1210, 1210, DispatchOnly},
    {1220, 1220, DispatchOnly},
    {1230, 1230, DispatchOnly},
    {1240, 1240, DispatchOnly},
    {1405, 1405, DispatchOnly},
    {1410, 1410, DispatchOnly},
    {1418, 1422, DispatchOnly},
    {1430, 1430, DispatchOnly},
    {1510, 1510, DuplexBooklet},
    {1521, 1521, DispatchOnly},
    {1787, 1788, DispatchAndTurnWatermark},
    {1880, 1881, DispatchOnly},
    {1891, 1893, DispatchOnly},
    {1894, 1894, ChangedOnly},
    {1901, 1901, DispatchOnly},
    {1902, 1902, TrackedEdit},
    {1907, 1907, TrackedEdit},
    {1912, 1912, DispatchOnly},
    {2002, 2002, PaperBox},
    {2003, 2003, DispatchOnly},
    {2005, 2005, DispatchAndTurnWatermark},
    {2006, 2006, PaperBox},
    {2007, 2007, DispatchAndTurnWatermark},
    {2009, 2009, TrackedEdit},
    {2014, 2014, TrackedEdit},
    {2023, 2023, DispatchOnly},
    {2026, 2027, DispatchAndTurnWatermark},
    {2029, 2030, DispatchOnly},
    {2031, 2031, AllPaperSizes},
    {2032, 2032, DispatchAndTurnWatermark},
    {2034, 2034, DispatchOnly},
    {3003, 3003, DispatchOnly},
    {3202, 3203, ColourMode},
    {3205, 3206, ColourMatching},
    {3208, 3208, DispatchOnly},
    {3210, 3210, NotAChange},
    {3215, 3215, NotAChange},
    {3227, 3229, DispatchOnly},
    {3235, 3235, DispatchOnly},
    {3246, 3248, DispatchOnly},
    {4003, 4003, OptionList},
    {4004, 4005, NotAChange},
    {4007, 4007, OptionList},
    {4008, 4008, DispatchOnly},
    {4010, 4010, TrackedEdit},
    {4011, 4011, DispatchWithoutChange},
    {4012, 4012, AutoConfigure},
    {4014, 4015, NotAChange},
    {5002, 5002, JobCheck},
    {5004, 5004, JobEdit},
    {5005, 5005, JobCheck},
    {5007, 5007, JobEdit},
    {5009, 5010, DispatchOnly},
    {5012, 5012, DispatchOnly},
    {5014, 5014, JobEdit},
    {8002, 8002, WatermarkChoice},
    {8003, 8006, DispatchOnly},
    {8007, 8007, ChangedOnly},
    {20062, 20062, DispatchOnly},
};

}  // namespace

RouteResult RouteCommand(SheetContext& context, HWND page, HWND /*control*/, WPARAM command) {
    const DWORD id = LOWORD(command);
    const auto* route = std::upper_bound(
        std::begin(kRoutes), std::end(kRoutes), id,
        [](DWORD wanted, const Route& candidate) { return wanted < candidate.first; });
    if (route == std::begin(kRoutes)) return {};
    --route;
    if (id > route->last) return {};
    return route->action({context, page, id, HIWORD(command)});
}

}  // namespace kvui
