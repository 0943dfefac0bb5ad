// Driving controls through the input layer.
#include <host/controls/control_driver.h>
#include <host/index/sheet_pages.h>

#include <commctrl.h>
#include <platform/display/headless.h>
#include <platform/window/input.h>
#include <platform/window/window.h>
#include <prsht.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <optional>
#include <utility>

namespace kvhost {
namespace {

// The control of a page that opens the dialog with these items; null when none does.
const Control* OpenerOf(const char* dialogName) {
    for (const Dialog& dialog : kDialogs) {
        if (dialog.opening == Opening::kChoose || dialog.control == 0) continue;
        if (std::strcmp(dialog.dialogName, dialogName) == 0) {
            return FindControl(dialog.control);
        }
    }
    return nullptr;
}

// Controls that no page has room for, and what decides in their place.
struct ElsewhereRow {
    const char* control;
    const char* where;
};
constexpr char kDestination[] =
    "where paper is delivered follows from what is installed (`kvprefs device`), or comes with a "
    "whole record (`kvprefs record import`)";
constexpr ElsewhereRow kElsewhere[] = {
    {"ComboOutputSetting", kDestination},
    {"ListOutputSetting", kDestination},
};

std::string WhyNoPageOffers(const Control& control) {
    std::string why = std::string(control.name) + ": this printer's pages do not offer it";
    for (const ElsewhereRow& row : kElsewhere) {
        if (std::strcmp(row.control, control.name) == 0) why += std::string("; ") + row.where;
    }
    return why;
}

std::optional<long> NumberOf(const std::string& text) {
    const bool hex = text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
    const char* first = text.data() + (hex ? 2 : (!text.empty() && text[0] == '+' ? 1 : 0));
    const char* last = text.data() + text.size();
    long long value = 0;
    const auto result = std::from_chars(first, last, value, hex ? 16 : 10);
    if (result.ec != std::errc() || result.ptr != last || first == last) return std::nullopt;
    if (value < -0x80000000LL || value > 0xFFFFFFFFLL) return std::nullopt;
    return static_cast<long>(value);
}

std::string Lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::string WithoutMnemonic(std::string text) {
    const size_t at = text.find('&');
    if (at != std::string::npos) text.erase(at, 1);
    return text;
}

// "A5" names "A5 (148 x 210 mm)".
bool CaptionMatches(const std::string& caption, const std::string& wanted) {
    const std::string plain = Lower(WithoutMnemonic(caption));
    const std::string text = Lower(wanted);
    return plain == text || plain.substr(0, plain.find(" (")) == text;
}

std::string Quoted(const std::string& text) {
    return "\"" + text + "\"";
}

SetOutcome Refuse(ExitStatus status, const std::string& error, const std::string& expected = {}) {
    return {status, expected.empty() ? error : error + "; expected " + expected, {}, expected};
}

// Index of the offered choice that a value names; captions first, then names, then numbers.
int FindChoice(const Control& control, const std::vector<ChoiceText>& offered,
               const std::string& value) {
    for (size_t i = 0; i < offered.size(); ++i) {
        if (CaptionMatches(offered[i].text, value)) return static_cast<int>(i);
    }
    std::optional<DWORD> number;
    for (unsigned i = 0; i < control.choiceCount; ++i) {
        if (control.choices[i].name[0] != '\0' && value == control.choices[i].name) {
            number = control.choices[i].value;
        }
    }
    if (!number) {
        if (const auto typed = NumberOf(value)) number = static_cast<DWORD>(*typed);
    }
    for (size_t i = 0; number && i < offered.size(); ++i) {
        if (offered[i].value == *number) return static_cast<int>(i);
    }
    return -1;
}

std::string OfferText(const std::vector<ChoiceText>& offered) {
    std::string text;
    for (const ChoiceText& choice : offered) {
        text += (text.empty() ? "" : ", ") + std::to_string(static_cast<LONG>(choice.value)) + " " +
                Quoted(WithoutMnemonic(choice.text));
    }
    return text.empty() ? "nothing" : text;
}

std::string ListText(HWND window, UINT lengthMessage, UINT textMessage, int index) {
    const LRESULT length = SendMessageA(window, lengthMessage, index, 0);
    if (length < 0) return {};
    std::string text(static_cast<size_t>(length) + 1, '\0');
    SendMessageA(window, textMessage, index, reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<size_t>(length));
    return text;
}

bool IsListBox(HWND window) {
    return kv::KindOf(window) == "list";
}

// Several controls of a dialog may share a name when only one of them is shown at a time.
const Control& ShownAlternative(const Control& control, HWND dialog) {
    for (unsigned i = 0; i < kControlCount; ++i) {
        const Control& other = kControls[i];
        if (std::strcmp(other.name, control.name) != 0 ||
            std::strcmp(other.dialog, control.dialog) != 0) {
            continue;
        }
        if (IsWindowVisible(GetDlgItem(dialog, static_cast<int>(other.id)))) return other;
    }
    return control;
}

// Leaves an edit, so that it is read back.
void LeaveEdit(HWND window) {
    const HWND root = kv::RootOf(window);
    for (const int id : {IDOK, IDCANCEL}) {
        const HWND button = GetDlgItem(root, id);
        if (button != nullptr && kv::input::Focus(button)) return;
    }
    kv::input::Key(VK_TAB);
}

SetOutcome Unreachable(const Control& control, HWND window) {
    const char* state = IsWindowVisible(window) ? " is disabled now" : " is not shown";
    return Refuse(kRefused, control.name + std::string(state));
}

SetOutcome StoredAs(const Control& control, const std::string& value, const std::string& stored,
                    const std::string& why) {
    return {kDone, {}, {control.name + ("=" + value) + ": stored as " + stored + ", " + why}, {}};
}

// A decimal number as a person types it, whatever the locale.
std::optional<double> DecimalOf(const std::string& text) {
    double value = 0;
    const char* last = text.data() + text.size();
    const auto result = std::from_chars(text.data(), last, value, std::chars_format::fixed);
    const bool plain = text.find_first_not_of("-.0123456789") == std::string::npos;
    if (!plain || result.ec != std::errc() || result.ptr != last) return std::nullopt;
    return value;
}

size_t DecimalsOf(const std::string& number) {
    const size_t point = number.find('.');
    return point == std::string::npos ? 0 : number.size() - point - 1;
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
    const int end = static_cast<int>(value.size());
    kv::input::SetEditText(window, value, end, end);
    // An edit leaves out characters that it does not know, and what is beyond its limit.
    const std::string taken = WindowText(window);
    if (taken != value) {
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

// `window` is any button of the group.
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

}  // namespace

std::string WindowText(HWND window) {
    std::string text(static_cast<size_t>(std::max(GetWindowTextLengthA(window), 0)) + 1, '\0');
    const int length = GetWindowTextA(window, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<size_t>(std::max(length, 0)));
    return text;
}

ControlDriver::ControlDriver(Session& session, ConflictPolicy policy)
    : session_(session), conflicts_(policy) {
    kv::Headless().SetPolicy([this](HWND dialog) { AnswerDialog(dialog); });
}

ControlDriver::~ControlDriver() {
    kv::Headless().SetPolicy(nullptr);
}

std::string ControlDriver::WhyRefused() const {
    if (conflicts_.refusal() != ConflictRefusal::kNone) return RefusalText(conflicts_.refusal());
    return lastMessage_.empty() ? "the page does not take it" : lastMessage_;
}

HWND ControlDriver::WindowOf(const Control& control) {
    const int index = PageIndexOfDialog(control.dialog);
    if (index < 0) return nullptr;
    kv::input::SelectPage(session_.sheet(), index);
    const HWND page =
        reinterpret_cast<HWND>(SendMessageA(session_.sheet(), PSM_INDEXTOHWND, index, 0));
    return page != nullptr ? GetDlgItem(page, static_cast<int>(control.id)) : nullptr;
}

std::vector<ChoiceText> ControlDriver::EntriesOf(HWND window) {
    std::vector<ChoiceText> entries;
    const bool list = IsListBox(window);
    const LRESULT count = SendMessageA(window, list ? LB_GETCOUNT : CB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        const int index = static_cast<int>(i);
        entries.push_back({static_cast<DWORD>(SendMessageA(
                               window, list ? LB_GETITEMDATA : CB_GETITEMDATA, index, 0)),
                           list ? ListText(window, LB_GETTEXTLEN, LB_GETTEXT, index)
                                : ListText(window, CB_GETLBTEXTLEN, CB_GETLBTEXT, index)});
    }
    return entries;
}

std::vector<ChoiceText> ControlDriver::ChoicesOf(const Control& control, HWND window) {
    const std::string_view kind = control.kind;
    if (kind == "combo" || kind == "list") return EntriesOf(window);
    std::vector<ChoiceText> choices;
    for (unsigned i = 0; i < control.choiceCount; ++i) {
        const Choice& choice = control.choices[i];
        const HWND button = choice.buttonId != 0
                                ? GetDlgItem(GetParent(window), static_cast<int>(choice.buttonId))
                                : nullptr;
        if (choice.buttonId != 0 && button == nullptr) continue;
        choices.push_back(
            {choice.value, button != nullptr ? WithoutMnemonic(WindowText(button)) : choice.name});
    }
    return choices;
}

std::string ControlDriver::ShownText(const Control& control, HWND window) {
    const std::string_view kind = control.kind;
    if (kind == "combo" || kind == "list") {
        const bool list = IsListBox(window);
        const LRESULT index = SendMessageA(window, list ? LB_GETCURSEL : CB_GETCURSEL, 0, 0);
        if (index < 0) return {};
        return list ? ListText(window, LB_GETTEXTLEN, LB_GETTEXT, static_cast<int>(index))
                    : ListText(window, CB_GETLBTEXTLEN, CB_GETLBTEXT, static_cast<int>(index));
    }
    if (kind == "radio") {
        for (unsigned i = 0; i < control.choiceCount; ++i) {
            const HWND button =
                GetDlgItem(GetParent(window), static_cast<int>(control.choices[i].buttonId));
            if (SendMessageA(button, BM_GETCHECK, 0, 0) == BST_CHECKED) {
                return WithoutMnemonic(WindowText(button));
            }
        }
        return {};
    }
    if (kind == "check") {
        return SendMessageA(window, BM_GETCHECK, 0, 0) == BST_CHECKED ? "on" : "off";
    }
    if (kind == "slider") return std::to_string(SendMessageA(window, TBM_GETPOS, 0, 0));
    return WithoutMnemonic(WindowText(window));
}

SetOutcome ControlDriver::Set(const Control& control, const std::string& value) {
    notes_.clear();
    lastMessage_.clear();
    conflicts_.Reset();
    SetOutcome outcome;
    if (PageIndexOfDialog(control.dialog) >= 0) {
        const HWND window = WindowOf(control);
        outcome = window != nullptr ? SetOnPage(control, value, window)
                                    : Refuse(kRefused, WhyNoPageOffers(control));
    } else {
        outcome = SetInSubDialog(control, value);
    }
    if (outcome.status == kDone && conflicts_.refusal() != ConflictRefusal::kNone) {
        outcome.status = kRefused;
        outcome.error = std::string(control.name) + "=" + value + ": refused, " +
                        RefusalText(conflicts_.refusal());
    }
    outcome.notes.insert(outcome.notes.begin(), notes_.begin(), notes_.end());
    return outcome;
}

// A page may ignore a choice that others forbid, without asking.
bool ControlDriver::IsTaken(const Control& control, HWND combo, int index, const ChoiceText& wanted,
                            const std::string& value) {
    if (control.setting[0] == '\0' || conflicts_.refusal() != ConflictRefusal::kNone) return true;
    if (SendMessageA(combo, CB_GETCURSEL, 0, 0) != index) return false;
    return CaptionMatches(wanted.text, value) ||
           HoldsValue(session_.record().data(), control, wanted.value);
}

SetOutcome ControlDriver::SetOnPage(const Control& control, const std::string& value, HWND window) {
    const std::string name = control.name;
    const std::string_view kind = control.kind;
    if (kind == "text") return Refuse(kBadInput, name + " is a caption, it has no value");
    if (kind == "button") return PressButton(control, window);
    if (kind == "edit") return TypeEdit(control, value, window, session_.record().data());
    if (kind == "slider") return DragSlider(control, value, window);
    const std::vector<ChoiceText> offered = ChoicesOf(control, window);
    const int index = FindChoice(control, offered, value);
    if (index < 0) {
        return Refuse(kBadInput, name + ": " + Quoted(value) + " is not offered",
                      "one of " + OfferText(offered));
    }
    const ChoiceText& wanted = offered[static_cast<size_t>(index)];
    if (kind == "radio") return PressRadio(control, wanted.value, window);
    if (kind == "check") {
        const SetOutcome switched = SwitchCheck(control, index == 1, window);
        const bool on = SendMessageA(window, BM_GETCHECK, 0, 0) == BST_CHECKED;
        if (switched.status != kDone || on == (index == 1) ||
            conflicts_.refusal() != ConflictRefusal::kNone) {
            return switched;
        }
        return Refuse(kRefused, name + "=" + value + ": refused, " +
                                    (lastMessage_.empty()
                                         ? "the page keeps " + Quoted(ShownText(control, window))
                                         : lastMessage_));
    }
    if (!kv::input::Choose(window, index)) return Unreachable(control, window);
    if (kind == "combo" && !IsTaken(control, window, index, wanted, value)) {
        return Refuse(kRefused, name + "=" + value + ": refused, the page keeps " +
                                    Quoted(ShownText(control, window)));
    }
    return {};
}

// A sub-dialog is opened by pressing its opener on the page; AnswerDialog then finds the pending
// control in it and presses OK, or Cancel when it was refused.
SetOutcome ControlDriver::SetInSubDialog(const Control& control, const std::string& value) {
    const Control* button = OpenerOf(control.dialog);
    if (button == nullptr) {
        return Refuse(kRefused, std::string(control.name) + ": no page opens its dialog");
    }
    const HWND window = WindowOf(*button);
    pending_ = &control;
    pendingValue_ = value;
    pendingOutcome_ = Refuse(kRefused, std::string(control.name) + ": its dialog did not open");
    if (window != nullptr && !kv::input::CanReach(window)) {
        pendingOutcome_.error = std::string(control.name) + ": its dialog does not open, " +
                                button->name +
                                (IsWindowVisible(window) ? " is disabled now" : " is not shown");
    } else if (window != nullptr) {
        // A check box opens its dialog when it is turned on.
        const bool isCheck = std::string_view(button->kind) == "check";
        if (isCheck && SendMessageA(window, BM_GETCHECK, 0, 0) == BST_CHECKED) {
            kv::input::Click(window);
        }
        kv::input::Click(window);
    }
    pending_ = nullptr;
    const auto held = HeldShiftOf(session_.record().data(), control);
    if (held && pendingOutcome_.status == kDone) {
        pendingOutcome_.notes.clear();
        if (DecimalOf(held->number) == DecimalOf(value)) return pendingOutcome_;
        return StoredAs(control, value, held->number,
                        std::string("the limit in whole ") + held->steps);
    }
    return pendingOutcome_;
}

// A button whose dialog stays away and that changes nothing did not do what was asked for.
SetOutcome ControlDriver::PressButton(const Control& control, HWND window) {
    const Record before = session_.record();
    const unsigned opened = dialogsOpened_;
    if (!kv::input::Click(window)) return Unreachable(control, window);
    if (dialogsOpened_ != opened || session_.record() != before) return {};
    return Refuse(kRefused, std::string(control.name) +
                                " opens nothing: there is nothing that it could act on now");
}

void ControlDriver::AnswerDialog(HWND dialog) {
    ++dialogsOpened_;
    if (conflicts_.Answer(dialog, notes_)) return;
    const std::string caption = WindowText(dialog);
    constexpr int kMessageText = 0xFFFF;
    const HWND message = GetDlgItem(dialog, kMessageText);
    if (pending_ != nullptr && message == nullptr) {
        const Control& control = ShownAlternative(*std::exchange(pending_, nullptr), dialog);
        if (const HWND window = GetDlgItem(dialog, static_cast<int>(control.id))) {
            pendingOutcome_ = SetOnPage(control, pendingValue_, window);
        }
        kv::input::Click(GetDlgItem(dialog, pendingOutcome_.status == kDone ? IDOK : IDCANCEL));
        return;
    }
    if (message != nullptr) {
        lastMessage_ = caption + ": " + WindowText(message);
        notes_.push_back(lastMessage_);
        if (lastMessage_.back() == '.') lastMessage_.pop_back();  // the sentence goes on
    }
    for (const int id : {IDOK, IDYES, IDCLOSE, IDCANCEL}) {
        if (kv::input::Click(GetDlgItem(dialog, id))) return;
    }
    kv::input::Close(dialog);
}

SetOutcome ControlDriver::Accept() {
    notes_.clear();
    lastMessage_.clear();
    conflicts_.Reset();
    const bool accepted = SendMessageA(session_.sheet(), PSM_APPLY, 0, 0) != FALSE;
    SetOutcome outcome;
    if (!accepted) {
        outcome = Refuse(kRefused, "the pages did not accept the settings" +
                                       (lastMessage_.empty() ? "" : ": " + lastMessage_));
    } else if (conflicts_.refusal() != ConflictRefusal::kNone) {
        outcome = Refuse(
            kRefused, std::string("refused while applying, ") + RefusalText(conflicts_.refusal()));
    }
    outcome.notes = notes_;
    return outcome;
}

}  // namespace kvhost
