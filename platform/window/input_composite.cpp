// Composite user actions: what a native widget reports as a whole is asked of the control as one
// private message, see control_input.h.
#include <platform/controls/control_input.h>
#include <platform/window/core.h>
#include <platform/window/input.h>
#include <platform/window/input_scope.h>

#include <initializer_list>
#include <string>

namespace kv::input {
namespace {

constexpr WPARAM kCloseCommand = 0xF060;  // SC_CLOSE of WM_SYSCOMMAND

enum class Takes { kFocus, kNoFocus };

// False when the control is of another kind, out of reach, or refuses.
bool Ask(HWND control, std::initializer_list<std::string_view> kinds, Takes takes, UINT message,
         WPARAM wParam, LPARAM lParam) {
    if (!CanReach(control)) return false;
    bool known = false;
    for (std::string_view kind : kinds) known = known || KindOf(control) == kind;
    if (!known) return false;
    // Handlers of the focus change may put the control out of reach.
    if (takes == Takes::kFocus && (!Focus(control) || !CanReach(control))) return false;
    const bool done = SendMessageA(control, message, wParam, lParam) != 0;
    PumpPendingMessages();
    return done;
}

}  // namespace

bool SetEditText(HWND edit, std::string_view text, int selectionStart, int selectionEnd) {
    const ActionScope scope(kNoModifier, edit);
    const std::string terminated(text);
    const UserText change{terminated.c_str(), selectionStart, selectionEnd};
    return Ask(edit, {"edit", "combo"}, Takes::kFocus, KVM_USERTEXT, 0,
               reinterpret_cast<LPARAM>(&change));
}

bool Choose(HWND comboOrList, int index, unsigned modifiers) {
    const ActionScope scope(modifiers, comboOrList);
    if (index < 0) return false;
    return Ask(comboOrList, {"combo", "list"}, Takes::kFocus, KVM_CHOOSE,
               static_cast<WPARAM>(index), static_cast<LPARAM>(modifiers));
}

bool DropDown(HWND combo, bool open) {
    const ActionScope scope(kNoModifier, combo);
    return Ask(combo, {"combo"}, Takes::kFocus, KVM_DROPDOWN, open ? TRUE : FALSE, 0);
}

bool DragTo(HWND trackBar, int position, int steps) {
    const ActionScope scope(kNoModifier, trackBar);
    if (steps < 0) return false;
    return Ask(trackBar, {"trackbar"}, Takes::kFocus, KVM_DRAGTO, static_cast<WPARAM>(steps),
               position);
}

bool TrackTo(HWND trackBar, int position) {
    const ActionScope scope(kNoModifier, trackBar);
    return Ask(trackBar, {"trackbar"}, Takes::kFocus, KVM_TRACKTO, 0, position);
}

bool Step(HWND upDown, int notches) {
    const ActionScope scope(kNoModifier, upDown);
    // The control itself gives the focus to its buddy.
    return Ask(upDown, {"updown"}, Takes::kNoFocus, KVM_STEP, 0, notches);
}

bool Close(HWND topLevel) {
    const HWND root = RootOf(topLevel);
    if (!CanReach(root)) return false;
    const ActionScope scope(kNoModifier, root);
    SendMessageA(root, WM_SYSCOMMAND, kCloseCommand, 0);
    PumpPendingMessages();
    return true;
}

bool SelectPage(HWND sheet, int index) {
    const ActionScope scope(kNoModifier, sheet);
    if (index < 0) return false;
    return Ask(sheet, {"sheet"}, Takes::kNoFocus, KVM_SELECTPAGE, static_cast<WPARAM>(index), 0);
}

}  // namespace kv::input
