// See service_driver.h.
#include <host/controls/service_driver.h>

#include <host/controls/control_hands.h>
#include <host/controls/typed_numbers.h>
#include <host/index/sheet_pages.h>
#include <module/resources/resource.h>
#include <platform/window/input.h>
#include <platform/window/window.h>
#include <strings.h>

#include <commctrl.h>

#include <cstring>
#include <optional>

namespace kvhost {
namespace {

constexpr char kHuePrefix[] = "Hue.";
constexpr size_t kHuePrefixLength = sizeof kHuePrefix - 1;

bool Same(const std::string& left, const std::string& right) {
    return strcasecmp(left.c_str(), right.c_str()) == 0;
}

// The sliders and check boxes of the dialog with their labels, which stand before sliders.
struct LabelledField {
    std::string label;
    HWND control;
    bool isSlider;
};

std::vector<LabelledField> FieldsOf(HWND dialog) {
    std::vector<LabelledField> fields;
    std::string before;
    for (HWND child : kv::WindowFromHandle(dialog)->children) {
        const bool isSlider = kv::KindOf(child) == "trackbar";
        const bool isBox = kv::KindOf(child) == "button" &&
                           (GetWindowLongA(child, GWL_STYLE) & BS_TYPEMASK) == BS_AUTOCHECKBOX;
        if (isSlider || isBox)
            fields.push_back({isSlider ? before : WindowText(child), child, isSlider});
        before = WindowText(child);
    }
    return fields;
}

SetOutcome PutSlider(const LabelledField& field, const std::string& value) {
    const LONG low = static_cast<LONG>(SendMessageA(field.control, TBM_GETRANGEMIN, 0, 0));
    const LONG high = static_cast<LONG>(SendMessageA(field.control, TBM_GETRANGEMAX, 0, 0));
    const auto number = NumberOf(value);
    if (!number || *number < low || *number > high) {
        return Refuse(kBadInput, field.label + ": " + Quoted(value) + " is not possible",
                      "a whole number from " + std::to_string(low) + " to " + std::to_string(high));
    }
    kv::input::DragTo(field.control, static_cast<int>(*number));
    return {};
}

SetOutcome PutBox(const LabelledField& field, const std::string& value) {
    const bool on = Same(value, "on") || value == "1";
    if (!on && !Same(value, "off") && value != "0") {
        return Refuse(kBadInput, field.label + ": " + Quoted(value) + " is not possible",
                      "on or off");
    }
    if ((SendMessageA(field.control, BM_GETCHECK, 0, 0) == BST_CHECKED) != on) {
        kv::input::Click(field.control);
    }
    return {};
}

SetOutcome PutField(HWND dialog, const std::string& name, const std::string& value) {
    std::string labels;
    for (const LabelledField& field : FieldsOf(dialog)) {
        if (Same(field.label, name)) {
            return field.isSlider ? PutSlider(field, value) : PutBox(field, value);
        }
        labels += field.label + ", ";
    }
    return Refuse(kBadInput, "the service dialog has no \"" + name + "\"",
                  "one of " + labels + "Hue.Red to Hue.Magenta");
}

// Three numbers of a byte each.
std::optional<std::vector<std::string>> ComponentsOf(const std::string& value) {
    std::vector<std::string> parts(1);
    for (const char c : value) {
        if (c == ',') {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    for (const std::string& part : parts) {
        const auto number = NumberOf(part);
        if (!number || *number < 0 || *number > 255) return std::nullopt;
    }
    return parts.size() == 3 ? std::optional(parts) : std::nullopt;
}

SetOutcome PutHue(HWND dialog, const std::string& hue, const std::vector<std::string>& components) {
    constexpr int kEdits[] = {IDC_COLOR_RED, IDC_COLOR_GREEN, IDC_COLOR_BLUE};
    std::string hues;
    for (int id = IDC_RADIO_HUE_RED; id <= IDC_RADIO_HUE_MAGENTA; ++id) {
        const HWND button = GetDlgItem(dialog, id);
        std::string caption = WindowText(button);
        if (const size_t mark = caption.find('&'); mark != caption.npos) caption.erase(mark, 1);
        hues += (hues.empty() ? "" : ", ") + (kHuePrefix + caption);
        if (!Same(caption, hue)) continue;
        kv::input::Click(button);
        for (size_t i = 0; i < components.size(); ++i) {
            const HWND edit = GetDlgItem(dialog, kEdits[i]);
            kv::input::Focus(edit);
            kv::input::SetEditText(edit, components[i], 0, 0);
        }
        return {};
    }
    return Refuse(kBadInput, "there is no hue \"" + hue + "\"", "one of " + hues);
}

}  // namespace

SetOutcome ServiceDriver::Set(const std::string& name, const std::string& value) {
    const HWND list = driver_.WindowOf(*FindControl(IDC_LIST_INSTALLED));
    const ControlDriver::Opener open = [page = GetParent(list)] {
        kv::input::RightClickAt(page, kBesideControls, kv::input::kShift);
    };
    if (strncasecmp(name.c_str(), kHuePrefix, kHuePrefixLength) != 0) {
        return driver_.InDialog(open, name,
                                [&](HWND dialog) { return PutField(dialog, name, value); });
    }
    const auto components = ComponentsOf(value);
    if (!components) {
        return Refuse(kBadInput, name + ": " + Quoted(value) + " is no colour",
                      "RED,GREEN,BLUE, each from 0 to 255");
    }
    return driver_.InDialog(open, name, [&](HWND advanced) {
        const ControlDriver::Opener hues = [advanced] {
            kv::input::Click(GetDlgItem(advanced, IDC_BTN_HUES));
        };
        return driver_.InDialog(hues, name, [&](HWND dialog) {
            return PutHue(dialog, name.substr(kHuePrefixLength), *components);
        });
    });
}

}  // namespace kvhost
