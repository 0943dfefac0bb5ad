// Driving controls through the input layer.
#include <host/controls/control_driver.h>
#include <host/controls/control_hands.h>
#include <host/controls/host_text.h>
#include <host/controls/shown_choices.h>
#include <host/controls/typed_numbers.h>
#include <host/index/sheet_pages.h>
#include <module/resources/string_ids.h>
#include <platform/display/headless.h>
#include <platform/window/input.h>
#include <prsht.h>

#include <algorithm>
#include <cstring>
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

std::string RemovalQuestion(Session& session) {
    char text[512] = "";
    LoadStringA(session.module().handle(), IDS_AUTOCONFIGURE_REMOVED, text, sizeof text);
    return ToUtf8(text);
}

std::string WhyNoPageOffers(const Control& control) {
    std::string why = std::string(control.name) + ": this printer's pages do not offer it";
    for (const ElsewhereRow& row : kElsewhere) {
        if (std::strcmp(row.control, control.name) == 0) why += std::string("; ") + row.where;
    }
    return why;
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

}  // namespace

ControlDriver::ControlDriver(Session& session, ConflictPolicy policy)
    : session_(session), conflicts_(policy, RemovalQuestion(session)) {
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

SetOutcome ControlDriver::InDialog(const Control& opener, const std::string& subject,
                                   const DialogWork& work) {
    const HWND window = WindowOf(opener);
    if (window == nullptr) return Refuse(kRefused, subject + ": its dialog did not open");
    if (!kv::input::CanReach(window)) {
        return Refuse(kRefused,
                      subject + ": its dialog does not open, " + opener.name +
                          (IsWindowVisible(window) ? " is disabled now" : " is not shown"));
    }
    // A check box opens its dialog when it is turned on.
    const bool isCheck = std::string_view(opener.kind) == "check";
    if (isCheck && SendMessageA(window, BM_GETCHECK, 0, 0) == BST_CHECKED) kv::input::Click(window);
    return InDialog([window] { kv::input::Click(window); }, subject, work);
}

SetOutcome ControlDriver::InDialog(const Opener& open, const std::string& subject,
                                   const DialogWork& work) {
    workOutcome_ = Refuse(kRefused, subject + ": its dialog did not open");
    work_ = work;
    open();
    work_ = nullptr;
    return workOutcome_;
}

SetOutcome ControlDriver::SetInSubDialog(const Control& control, const std::string& value) {
    const Control* opener = OpenerOf(control.dialog);
    if (opener == nullptr) {
        return Refuse(kRefused, std::string(control.name) + ": no page opens its dialog");
    }
    SetOutcome outcome = InDialog(*opener, control.name, [&](HWND dialog) {
        const Control& shown = ShownAlternative(control, dialog);
        const HWND window = GetDlgItem(dialog, static_cast<int>(shown.id));
        return window != nullptr
                   ? SetOnPage(shown, value, window)
                   : Refuse(kRefused, std::string(control.name) + ": its dialog does not offer it");
    });
    const auto held = HeldShiftOf(session_.record().data(), control);
    if (!held || outcome.status != kDone) return outcome;
    outcome.notes.clear();
    if (DecimalOf(held->number) == DecimalOf(value)) return outcome;
    return StoredAs(control, value, held->number, std::string("the limit in whole ") + held->steps);
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
    constexpr int kMessageText = 0xFFFF;
    const HWND message = GetDlgItem(dialog, kMessageText);
    if (message != nullptr) return AnswerMessage(dialog, message);
    if (work_) return WorkIn(dialog);
    for (const int id : {IDOK, IDYES, IDCLOSE, IDCANCEL}) {
        if (kv::input::Click(GetDlgItem(dialog, id))) return;
    }
    kv::input::Close(dialog);
}

// A dialog that stays after its OK has said why, or beeped. Its owner is disabled as long as it is
// there.
void ControlDriver::WorkIn(HWND dialog) {
    workOutcome_ = std::exchange(work_, nullptr)(dialog);
    const HWND owner = GetParent(dialog);
    if (workOutcome_.status == kDone) {
        kv::input::Click(GetDlgItem(dialog, IDOK));
        if (IsWindowEnabled(owner)) return;
        workOutcome_ =
            Refuse(kRefused, lastMessage_.empty() ? "its dialog does not take it" : lastMessage_);
    }
    kv::input::Click(GetDlgItem(dialog, IDCANCEL));
}

void ControlDriver::AnswerMessage(HWND dialog, HWND message) {
    std::string text = WindowText(message);
    const int wanted = reply_ ? reply_(text) : 0;
    if (wanted != 0 && kv::input::Click(GetDlgItem(dialog, wanted))) {
        if (wanted == IDCANCEL || wanted == IDNO) lastMessage_ = text;
        return;
    }
    lastMessage_ = WindowText(dialog) + ": " + text;
    notes_.push_back(lastMessage_);
    if (lastMessage_.back() == '.') lastMessage_.pop_back();  // the sentence goes on
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
