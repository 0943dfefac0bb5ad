// From actions on windows to settings of the record.
#include <host/index/sheet_pages.h>
#include <host/window/status_line.h>

#include <platform/display/display.h>
#include <platform/window/window.h>

#include <commctrl.h>
#include <prsht.h>

#include <algorithm>
#include <utility>

namespace kvhost {
namespace {

// The sheet on a page of which the window is. What is done in a dialog is told when it has closed,
// and the sheet's own buttons choose nothing.
HWND SheetOfControl(HWND window) {
    const HWND root = kv::RootOf(window);
    const bool isOwn = window == root || GetParent(window) == root;
    return kv::KindOf(root) == "sheet" && !isOwn ? root : nullptr;
}

// The setting of a control, of the one that arrows belong to, or of the list around an edit.
const NamedSetting* SettingOf(const SettingNames& names, HWND window) {
    if (window == nullptr) return nullptr;
    if (kv::KindOf(window) == "updown") {
        const auto buddy = reinterpret_cast<HWND>(SendMessageA(window, UDM_GETBUDDY, 0, 0));
        if (buddy != nullptr) window = buddy;
    }
    return names.SettingOfControl(static_cast<DWORD>(GetDlgCtrlID(window)));
}

std::string ButtonCaption(HWND window) {
    const DWORD type = static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE)) & BS_TYPEMASK;
    if (kv::KindOf(window) != "button" || type > BS_DEFPUSHBUTTON) return {};
    char text[128] = "";
    GetWindowTextA(window, text, sizeof text);
    return PlainCaption(text);
}

// A control that a page of the sheet hides, and one whose page the sheet does not have, is not
// shown; what a page will show that was never opened is not known, nor what a dialog would.
bool IsShown(HWND sheet, const Control& control) {
    const int index = PageIndexOfDialog(control.dialog);
    if (index < 0) return true;
    const auto tabs = reinterpret_cast<HWND>(SendMessageA(sheet, PSM_GETTABCONTROL, 0, 0));
    if (index >= SendMessageA(tabs, TCM_GETITEMCOUNT, 0, 0)) return false;
    const auto page = reinterpret_cast<HWND>(SendMessageA(sheet, PSM_INDEXTOHWND, index, 0));
    if (page == nullptr) return true;
    const auto isVisible = [page](DWORD id) {
        const HWND window = GetDlgItem(page, static_cast<int>(id));
        return window != nullptr && (GetWindowLongA(window, GWL_STYLE) & WS_VISIBLE) != 0;
    };
    if (isVisible(control.id)) return true;
    return std::any_of(control.choices, control.choices + control.choiceCount,
                       [&](const Choice& choice) { return isVisible(choice.buttonId); });
}

void Add(std::vector<const NamedSetting*>& settings, const NamedSetting* setting) {
    if (setting != nullptr) settings.push_back(setting);
}

}  // namespace

StatusLine::StatusLine(const SettingNames& names, const Record& record)
    : names_(names), record_(record) {
    kv::input::Watch(this);
}

StatusLine::~StatusLine() {
    kv::input::Watch(nullptr);
}

void StatusLine::Begun(HWND window) {
    Action action{SheetOfControl(window), record_, {}};
    Add(action.acted.used, SettingOf(names_, window));
    // An edit is read when it is left: what it held is set by this action too.
    const HWND focus = GetFocus();
    if (focus != window) Add(action.acted.used, SettingOf(names_, focus));
    action.acted.button = ButtonCaption(window);
    action.acted.isShown = [sheet = action.sheet](const NamedSetting& setting) {
        return std::any_of(setting.controls.begin(), setting.controls.end(),
                           [sheet](const Control* control) { return IsShown(sheet, *control); });
    };
    actions_.push_back(std::move(action));
}

void StatusLine::Ended() {
    if (actions_.empty()) return;
    const Action action = std::move(actions_.back());
    actions_.pop_back();
    if (!actions_.empty()) {
        // What was set in a dialog is no effect of the button that opened it.
        auto& outer = actions_.back().acted.used;
        outer.insert(outer.end(), action.acted.used.begin(), action.acted.used.end());
    }
    if (record_ == action.before || !IsWindow(action.sheet)) return;
    const std::string text =
        SummaryOfChange(names_, action.before.data(), record_.data(), action.acted);
    kv::CurrentDisplay().ShowStatus(action.sheet, text.c_str());
}

}  // namespace kvhost
