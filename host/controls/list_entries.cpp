// See list_entries.h.
#include <host/controls/control_hands.h>
#include <host/controls/host_text.h>
#include <host/controls/list_entries.h>

#include <module/resources/resource.h>
#include <module/resources/string_ids.h>
#include <platform/window/input.h>
#include <strings.h>

#include <algorithm>

namespace kvhost {

SetOutcome FindEntry(const std::vector<ChoiceText>& entries, const std::string& entry,
                     const std::string& name, int& row) {
    std::string same, offers;
    int alike = 0;
    row = -1;
    for (size_t i = 0; i < entries.size(); ++i) {
        const ChoiceText& candidate = entries[i];
        if (candidate.text == name || name == "#" + std::to_string(candidate.value)) {
            row = static_cast<int>(i);
            return {};
        }
        offers += (offers.empty() ? "" : ", ") + Quoted(candidate.text);
        if (strcasecmp(candidate.text.c_str(), name.c_str()) != 0) continue;
        row = static_cast<int>(i);
        same += (alike++ == 0 ? "#" : ", #") + std::to_string(candidate.value);
    }
    if (alike == 1) return {};
    row = -1;
    if (alike > 1) return Refuse(kBadInput, Quoted(name) + " names several", "one of " + same);
    return Refuse(kBadInput, Quoted(name) + " is no " + entry,
                  offers.empty() ? "one that was added before" : "one of " + offers);
}

namespace {

// No key types them, and lists would not show them.
bool HasControls(const std::string& text) {
    return std::any_of(text.begin(), text.end(),
                       [](unsigned char c) { return c < ' ' || c == 0x7F; });
}

SetOutcome Type(HWND dialog, int id, const std::string& what, const std::string& text,
                bool (*type)(HWND edit, const std::string& text)) {
    const HWND edit = GetDlgItem(dialog, id);
    if (!kv::input::Focus(edit)) return Refuse(kRefused, what + " is disabled now");
    const bool isBlank = text.find_first_not_of(' ') == std::string::npos;
    if (!isBlank && !HasControls(text) && type(edit, text)) return {};
    return Refuse(
        kBadInput, what + ": " + Quoted(text) + " cannot be typed there",
        "1 to " + std::to_string(SendMessageA(edit, EM_GETLIMITTEXT, 0, 0)) +
            " characters, not only blanks, none that control or that the printer's letters lack");
}

}  // namespace

SetOutcome TypeField(HWND dialog, int id, const std::string& what, const std::string& text) {
    return Type(dialog, id, what, text, TypeWhole);
}

SetOutcome TypePath(HWND dialog, int id, const std::string& what, const std::string& path) {
    return Type(dialog, id, what, path, [](HWND edit, const std::string& bytes) {
        const int end = static_cast<int>(bytes.size());
        kv::input::SetEditText(edit, bytes, end, end);
        return WindowText(edit) == ToUtf8(bytes);
    });
}

void LeaveFields(HWND dialog) {
    kv::input::Focus(GetDlgItem(dialog, IDCANCEL));
}

std::string ModuleText(Session& session, UINT id) {
    char text[512] = "";
    LoadStringA(session.module().handle(), id, text, sizeof text);
    return ToUtf8(text);
}

ListReplies::ListReplies(Session& session, ControlDriver& driver, const ListAnswers& answers)
    : driver_(driver) {
    // What stands behind the name in the question.
    const std::string registered = ModuleText(session, IDS_NAME_REGISTERED);
    const size_t name = registered.find("%s");
    const std::string tail = name != std::string::npos ? registered.substr(name + 2) : registered;
    const std::string common = ModuleText(session, IDS_PAPER_SAVE_COMMON);
    driver_.ReplyBy([=, this](std::string& text) -> int {
        if (text == common) {
            asked_ = true;
            return answers.isCommon.value_or(false) ? IDYES : IDNO;
        }
        const bool isName = text.size() > tail.size() &&
                            text.compare(text.size() - tail.size(), tail.size(), tail) == 0;
        if (!isName) return 0;
        if (answers.overwrite) return IDOK;
        text += " Only with --overwrite";
        return IDCANCEL;
    });
}

namespace {

int RowOf(HWND list, DWORD value) {
    const std::vector<ChoiceText> entries = EntriesOf(list);
    for (size_t i = 0; i < entries.size(); ++i) {
        if (entries[i].value == value) return static_cast<int>(i);
    }
    return -1;
}

}  // namespace

KeptChoice::KeptChoice(ControlDriver& driver, unsigned listId)
    : driver_(driver), list_(*FindControl(listId)) {
    const HWND list = driver_.WindowOf(list_);
    const LRESULT row = SendMessageA(list, LB_GETCURSEL, 0, 0);
    if (row < 0) return;
    chosen_ = static_cast<DWORD>(SendMessageA(list, LB_GETITEMDATA, static_cast<WPARAM>(row), 0));
}

KeptChoice::~KeptChoice() {
    const HWND list = driver_.WindowOf(list_);
    const int row = RowOf(list, chosen_);
    if (row >= 0 && SendMessageA(list, LB_GETCURSEL, 0, 0) != row) kv::input::Choose(list, row);
}

bool PressOwnersButton(ControlDriver& driver, unsigned button) {
    const HWND window = driver.WindowOf(*FindControl(button));
    if (IsWindowVisible(window)) return kv::input::Click(window);
    if (!IsWindowEnabled(window)) return false;
    SendMessageA(GetParent(window), WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(window));
    return true;
}

SetOutcome InOwnersDialog(ControlDriver& driver, unsigned button, const std::string& subject,
                          const ControlDriver::DialogWork& work) {
    return driver.InDialog([&] { PressOwnersButton(driver, button); }, subject, work);
}

namespace {

SetOutcome ChooseEntry(ControlDriver& driver, const EntryList& entries, const std::string& name) {
    const Control& control = *FindControl(entries.listId);
    const HWND list = driver.WindowOf(control);
    int row = -1;
    const SetOutcome found = FindEntry(EntriesOf(list), entries.what, name, row);
    if (found.status != kDone) return found;
    return kv::input::Choose(list, row) ? SetOutcome() : Unreachable(control, list);
}

}  // namespace

SetOutcome AtEntry(ControlDriver& driver, const EntryList& entries, const std::string& name,
                   const std::function<SetOutcome()>& mayAct,
                   const std::function<SetOutcome()>& act) {
    const KeptChoice kept(driver, entries.listId);
    SetOutcome outcome = ChooseEntry(driver, entries, name);
    if (outcome.status == kDone) outcome = mayAct();
    return outcome.status == kDone ? act() : outcome;
}

SetOutcome PressDelete(ControlDriver& driver, unsigned button) {
    driver.ReplyBy([](std::string&) -> int { return IDOK; });
    const bool pressed = PressOwnersButton(driver, button);
    driver.ReplyBy(nullptr);
    return pressed ? SetOutcome() : Refuse(kRefused, "it cannot be deleted now");
}

}  // namespace kvhost
