// Options by name, and their rows on the page, see option_driver.h.
#include <host/controls/option_driver.h>

#include <host/index/sheet_pages.h>
#include <module/resources/resource.h>
#include <platform/display/disabled_reason.h>
#include <platform/window/input.h>
#include <strings.h>

#include <algorithm>
#include <bit>
#include <cstring>

namespace kvhost {
namespace {

constexpr char kInstalledPrefix[] = "Inst";
constexpr size_t kPrefixLength = sizeof kInstalledPrefix - 1;

bool Same(const std::string& left, const std::string& right) {
    return strcasecmp(left.c_str(), right.c_str()) == 0;
}

bool Has(const std::vector<ChoiceText>& entries, DWORD bit) {
    return std::any_of(entries.begin(), entries.end(),
                       [bit](const ChoiceText& entry) { return entry.value == bit; });
}

std::string LabelOf(Session& session, DWORD captionId) {
    char text[128] = "";
    LoadStringA(session.module().handle(), captionId, text, sizeof text);
    return text;
}

bool Means(const std::string& text, const DeviceOption& option) {
    return Same(text, option.name) || Same(text, option.name + kPrefixLength) ||
           Same(text, option.label) || text == std::to_string(std::countr_zero(option.bit));
}

SetOutcome Refused(const DeviceOption& option, bool installed, const std::string& why) {
    SetOutcome outcome;
    outcome.status = kRefused;
    outcome.error =
        option.label + (installed ? " cannot be installed: " : " cannot be removed: ") + why;
    return outcome;
}

}  // namespace

OptionDriver::OptionDriver(Session& session, ControlDriver& driver)
    : session_(session),
      driver_(driver),
      page_(GetParent(driver.WindowOf(*FindControl(IDC_LIST_INSTALLED)))) {}

std::vector<std::string> OptionDriver::Names() {
    const Control& list = *FindControl(IDC_LIST_INSTALLED);
    std::vector<std::string> names;
    for (unsigned i = 0; i < list.choiceCount; ++i) {
        names.emplace_back(list.choices[i].name + kPrefixLength);
    }
    return names;
}

std::vector<DeviceOption> OptionDriver::All() const {
    const auto missing = EntriesOf(OnPage(IDC_LIST_INSTALLABLE));
    const auto present = EntriesOf(OnPage(IDC_LIST_INSTALLED));
    const Control& list = *FindControl(IDC_LIST_INSTALLED);
    const DWORD installed = ReadControlValue(session_.record().data(), list);
    std::vector<DeviceOption> options;
    for (unsigned i = 0; i < list.choiceCount; ++i) {
        const Choice& choice = list.choices[i];
        options.push_back({choice.value, choice.name, LabelOf(session_, choice.captionId),
                           (installed & choice.value) != 0,
                           Has(missing, choice.value) || Has(present, choice.value)});
    }
    return options;
}

SetOutcome OptionDriver::Find(const std::string& text, DeviceOption& found) const {
    SetOutcome outcome;
    outcome.expected = "one of ";
    for (const DeviceOption& option : All()) {
        if (Means(text, option)) {
            found = option;
            return {};
        }
        if (option.offered) {
            outcome.expected +=
                (outcome.expected.size() > 7 ? ", " : "") + std::string("\"") + option.label + "\"";
        }
    }
    outcome.status = kBadInput;
    outcome.error = "unknown option \"" + text + "\"; expected " + outcome.expected;
    return outcome;
}

SetOutcome OptionDriver::Put(const DeviceOption& option, bool installed) {
    if (option.installed == installed) return {};
    if (!option.offered) return Refused(option, installed, "this model does not have it");
    const HWND list = OnPage(IDC_LIST_OPTIONS);
    if (!IsWindowEnabled(list)) {
        const std::string reason = WhyLocked();
        return Refused(option, installed,
                       !reason.empty() ? reason
                                       : "Auto Configure is on; `kvprefs set ChkAutoConfig=off` "
                                         "turns it off");
    }
    const auto rows = EntriesOf(list);
    const auto held = EntriesOf(OnPage(installed ? IDC_LIST_INSTALLABLE : IDC_LIST_INSTALLED));
    const auto place = std::find_if(held.begin(), held.end(), [&](const ChoiceText& entry) {
        return entry.value == option.bit;
    });
    // A row tells its place in the list that holds it, and in the high word its state.
    const LPARAM data = MAKELONG(place - held.begin(), installed ? 1 : 0);
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const ChoiceText& entry) {
        return entry.value == static_cast<DWORD>(data);
    });
    if (place == held.end() || row == rows.end()) {
        return Refused(option, installed, "the page does not show it");
    }
    kv::input::Choose(list, static_cast<int>(row - rows.begin()));
    kv::input::Choose(OnPage(IDC_COMBO_INSTALLED_STATE), installed ? 0 : 1);
    const Control& control = *FindControl(IDC_LIST_INSTALLED);
    const DWORD now = ReadControlValue(session_.record().data(), control);
    if (((now & option.bit) != 0) == installed) return {};
    return Refused(option, installed, driver_.WhyRefused());
}

std::string OptionDriver::WhyLocked() const {
    return kv::ReasonDisabled(OnPage(IDC_LIST_OPTIONS));
}

SetOutcome OptionDriver::AskPrinter() {
    const Control& automatic = *FindControl(IDC_CHK_AUTO_CONFIG);
    const bool isOn = ShownText(automatic, OnPage(IDC_CHK_AUTO_CONFIG)) == "on";
    // The page asks when the box becomes ticked.
    if (isOn) driver_.Set(automatic, "off");
    SetOutcome outcome = driver_.Set(automatic, "on");
    if (outcome.status != kDone) outcome.error = driver_.WhyRefused();
    if (!isOn && outcome.status == kDone) driver_.Set(automatic, "off");
    return outcome;
}

}  // namespace kvhost
