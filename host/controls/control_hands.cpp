// See control_hands.h.
#include <host/controls/control_hands.h>
#include <host/controls/host_text.h>
#include <host/controls/shown_choices.h>
#include <host/controls/typed_numbers.h>
#include <commctrl.h>
#include <platform/window/input.h>
#include <platform/window/window.h>

#include <algorithm>
#include <cstring>
#include <optional>

namespace kvhost {
namespace {

// Leaves an edit, so that it is read back.
void LeaveEdit(HWND window) {
    const HWND root = kv::RootOf(window);
    for (const int id : {IDOK, IDCANCEL}) {
        const HWND button = GetDlgItem(root, id);
        if (button != nullptr && kv::input::Focus(button)) return;
    }
    kv::input::Key(VK_TAB);
}

// What an edit takes: its arrows and its limit tell, and its text how many decimals.
class EditScope {
 public:
    EditScope(const Control& control, HWND window)
        : decimals_(DecimalsOf(WindowText(window))),
          characters_(static_cast<unsigned>(SendMessageA(window, EM_GETLIMITTEXT, 0, 0))) {
        const HWND arrows = GetDlgItem(GetParent(window), static_cast<int>(control.parts[1]));
        if (control.parts[1] == 0 || arrows == nullptr || decimals_ != 0) return;
        SendMessageA(arrows, UDM_GETRANGE32, reinterpret_cast<WPARAM>(&low_),
                     reinterpret_cast<LPARAM>(&high_));
    }
    bool HasRange() const { return low_ < high_; }
    bool IsOutside(double value) const { return HasRange() && (value < low_ || value > high_); }
    size_t decimals() const { return decimals_; }
    std::string Range() const {
        return "from " + std::to_string(low_) + " to " + std::to_string(high_);
    }
    std::string Number() const {
        const std::string kind =
            decimals_ == 0 ? "a whole number"
                           : "a number of at most " + std::to_string(decimals_) + " decimals";
        return kind + (HasRange() ? " " + Range()
                                  : ", at most " + std::to_string(characters_) + " characters");
    }
    std::string Text() const {
        return "at most " + std::to_string(characters_) + " characters that its field takes";
    }

 private:
    size_t decimals_;
    unsigned characters_;
    int low_ = 0;
    int high_ = 0;
};

// Edits that the pages hold at a value of their own while another setting is not at 0.
struct HoldRow {
    const char* edit;
    const char* holder;
    const char* why;
};
constexpr HoldRow kHolds[] = {
    {"EditScaling", "ComboNup", "pages that share sheets are not zoomed: ComboNup is "},
};

std::string WhyHeld(const Control& control, const BYTE* record, const EditScope& scope,
                    double wanted, const std::string& shown) {
    for (const HoldRow& row : kHolds) {
        const Control* holder = FindControl(row.holder);
        const DWORD value = holder != nullptr ? ReadControlValue(record, *holder) : 0;
        if (std::strcmp(row.edit, control.name) == 0 && value != 0) {
            return row.why + std::to_string(value);
        }
    }
    if (scope.IsOutside(wanted)) return "it goes " + scope.Range();
    const bool more = wanted > DecimalOf(shown).value_or(0);
    return std::string("nothing ") + (more ? "greater" : "smaller") + " is possible now";
}

}  // namespace

bool TypeWhole(HWND edit, const std::string& text) {
    const std::optional<std::string> core = FromUtf8(text);
    if (!core) return false;
    const int end = static_cast<int>(core->size());
    kv::input::SetEditText(edit, *core, end, end);
    return WindowText(edit) == text;
}

SetOutcome TypeEdit(const Control& control, const std::string& value, HWND window,
                    const BYTE* record) {
    const EditScope scope(control, window);
    const bool isNumber = control.setting[0] != '\0';
    const std::string expected = isNumber ? scope.Number() : scope.Text();
    const std::optional<double> wanted = DecimalOf(value);
    if (!kv::input::Focus(window)) return Unreachable(control, window);
    if (isNumber && (!wanted || DecimalsOf(value) > scope.decimals())) {
        return Refuse(kBadInput,
                      control.name + (": " + Quoted(value)) +
                          (wanted ? " has too many decimals" : " is not a number"),
                      expected);
    }
    if (!TypeWhole(window, value)) {
        const std::string taken = WindowText(window);
        return Refuse(kBadInput,
                      control.name + (": " + Quoted(value)) + " cannot be typed there" +
                          (taken.empty() ? "" : ", only " + Quoted(taken)),
                      expected);
    }
    LeaveEdit(window);
    const std::string shown = WindowText(window);
    const bool same = isNumber ? DecimalOf(shown) == wanted : shown == value;
    if (same) return {};
    return StoredAs(control, value, shown,
                    WhyHeld(control, record, scope, wanted.value_or(0), shown));
}

SetOutcome DragSlider(const Control& control, const std::string& value, HWND window) {
    const auto number = NumberOf(value);
    if (!number) {
        return Refuse(kBadInput, control.name + (": " + Quoted(value)) + " is not a number",
                      "a whole number");
    }
    const LONG low = static_cast<LONG>(SendMessageA(window, TBM_GETRANGEMIN, 0, 0));
    const LONG high = static_cast<LONG>(SendMessageA(window, TBM_GETRANGEMAX, 0, 0));
    const long wanted = *number - control.sliderBase;
    const LONG position = static_cast<LONG>(std::clamp<long>(wanted, low, high));
    if (!kv::input::DragTo(window, position)) return Unreachable(control, window);
    if (position == wanted) return {};
    return StoredAs(control, value, std::to_string(position + control.sliderBase),
                    "it goes from " + std::to_string(low + control.sliderBase) + " to " +
                        std::to_string(high + control.sliderBase));
}

SetOutcome PressRadio(const Control& control, DWORD value, HWND window) {
    HWND button = nullptr;
    for (unsigned i = 0; i < control.choiceCount; ++i) {
        if (control.choices[i].value != value) continue;
        button = GetDlgItem(GetParent(window), static_cast<int>(control.choices[i].buttonId));
    }
    return kv::input::Click(button) ? SetOutcome() : Unreachable(control, button);
}

SetOutcome SwitchCheck(const Control& control, bool wanted, HWND window) {
    if (!kv::input::CanReach(window)) return Unreachable(control, window);
    const bool on = SendMessageA(window, BM_GETCHECK, 0, 0) == BST_CHECKED;
    if (on != wanted) kv::input::Click(window);
    return {};
}

}  // namespace kvhost
