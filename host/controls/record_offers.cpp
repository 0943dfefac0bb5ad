// Asking the pages for what they offer, and the catalogue for the controls of their dialogs.
#include <host/controls/control_driver.h>
#include <host/controls/record_offers.h>
#include <host/index/setting_names.h>
#include <host/index/sheet_pages.h>

#include <commctrl.h>

#include <algorithm>
#include <cstring>
#include <set>

namespace kvhost {
namespace {

// What the controls of one setting offer together.
struct Offers {
    std::vector<ChoiceText> choices;
    bool isSet = false;  // a value is any of the choices' bits
    bool hasRange = false;
    LONG low = 0;
    LONG high = 0;

    bool IsKnown() const { return hasRange || !choices.empty(); }
    bool Admit(DWORD value) const {
        const LONG number = static_cast<LONG>(value);
        if (hasRange && number >= low && number <= high) return true;
        DWORD bits = 0;
        for (const ChoiceText& choice : choices) {
            if (choice.value == value) return true;
            bits |= choice.value;
        }
        return isSet && (value & ~bits) == 0;
    }
    std::string Text() const;
};

std::string Offers::Text() const {
    std::string text;
    std::set<DWORD> told;
    for (const ChoiceText& choice : choices) {
        if (!told.insert(choice.value).second) continue;
        text += (text.empty() ? (isSet ? "bits of " : "one of ") : ", ") +
                std::to_string(static_cast<LONG>(choice.value));
        if (!choice.text.empty()) text += " \"" + PlainCaption(choice.text) + "\"";
    }
    if (!hasRange) return text;
    return "from " + std::to_string(low) + " to " + std::to_string(high) +
           (text.empty() ? "" : ", or " + text);
}

bool IsKind(const Control& control, const char* kind) {
    return std::strcmp(control.kind, kind) == 0;
}
bool IsOnPage(const Control& control) {
    return PageIndexOfDialog(control.dialog) >= 0;
}

// What the printer has is a fact: the query sets bits that no list names.
constexpr const char* kFacts = "mdmInstalledOptions";

// Edits whose stored number is no plain one: it carries its unit and its direction.
bool IsPacked(const Control& control) {
    return std::strcmp(control.dialog, "_LBPIMAGESHIFT") == 0 && IsKind(control, "edit");
}

void AddRange(const Control& control, HWND window, Offers& offers) {
    int low = control.lowest, high = control.highest;
    if (IsKind(control, "slider")) {
        if (window == nullptr) return;
        low = static_cast<int>(SendMessageA(window, TBM_GETRANGEMIN, 0, 0)) + control.sliderBase;
        high = static_cast<int>(SendMessageA(window, TBM_GETRANGEMAX, 0, 0)) + control.sliderBase;
    } else if (window != nullptr && control.parts[1] != 0) {
        const HWND arrows = GetDlgItem(GetParent(window), static_cast<int>(control.parts[1]));
        SendMessageA(arrows, UDM_GETRANGE32, reinterpret_cast<WPARAM>(&low),
                     reinterpret_cast<LPARAM>(&high));
    }
    offers.hasRange = true;
    offers.low = low;
    offers.high = high;
    if (control.empty) offers.choices.push_back({*control.empty, "empty"});
}

void AddOffers(const Control& control, HWND window, Offers& offers) {
    if (IsKind(control, "edit") || IsKind(control, "slider")) {
        if (!IsPacked(control)) AddRange(control, window, offers);
        return;
    }
    const bool isList = IsKind(control, "combo") || IsKind(control, "list");
    if (window != nullptr && isList) {
        for (const ChoiceText& choice : EntriesOf(window)) {
            offers.choices.push_back(choice);
        }
    } else {
        for (unsigned i = 0; i < control.choiceCount; ++i) {
            offers.choices.push_back({control.choices[i].value, control.choices[i].name});
        }
    }
    // A box shows every value but that of a checked one as not checked; defaults hold 0 there.
    if (IsKind(control, "check") && control.maskMode != 0) offers.choices.push_back({0, "off"});
    offers.isSet = offers.isSet || (IsKind(control, "list") && control.choiceCount != 0);
}

Offers OffersOf(const NamedSetting& setting, ControlDriver& driver) {
    Offers offers;
    for (const Control* control : setting.controls) {
        // A dialog's list of the same name as a page's offers what the page does.
        const auto isSame = [&](const Control* other) {
            return IsOnPage(*other) && std::strcmp(other->name, control->name) == 0;
        };
        if (!IsOnPage(*control) &&
            std::any_of(setting.controls.begin(), setting.controls.end(), isSame)) {
            continue;
        }
        AddOffers(*control, driver.WindowOf(*control), offers);
    }
    return offers;
}

}  // namespace

bool FindUnofferedValues(Session& session, const Record& record,
                         std::vector<UnofferedValue>& values) {
    if (session.OpenHeadlessSheetOn(record) == nullptr) return false;
    ControlDriver driver(session, ConflictPolicy::kCancel);
    const SettingNames names(session.module().handle(), session.printer());
    for (const NamedSetting& setting : names.all()) {
        if (std::strcmp(setting.field->name, kFacts) == 0) continue;
        const DWORD value = setting.ValueIn(record.data());
        const Offers offers = OffersOf(setting, driver);
        if (!offers.IsKnown() || offers.Admit(value)) continue;
        values.push_back(
            {setting.field->name, static_cast<LONG>(value), setting.caption, offers.Text()});
    }
    session.CloseHeadlessSheet();
    return true;
}

}  // namespace kvhost
