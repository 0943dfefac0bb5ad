// See list_entries.h.
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

SetOutcome TypeField(HWND dialog, int id, const std::string& what, const std::string& text) {
    const HWND edit = GetDlgItem(dialog, id);
    const LRESULT limit = SendMessageA(edit, EM_GETLIMITTEXT, 0, 0);
    const std::string expected =
        "1 to " + std::to_string(limit) + " characters, not only blanks, none that control";
    if (!kv::input::Focus(edit)) return Refuse(kRefused, what + " is disabled now");
    const int end = static_cast<int>(text.size());
    kv::input::SetEditText(edit, text, end, end);
    const bool isBlank = text.find_first_not_of(' ') == std::string::npos;
    // No key types them, and lists would not show them.
    const bool controls =
        std::any_of(text.begin(), text.end(), [](unsigned char c) { return c < ' ' || c == 0x7F; });
    if (isBlank || controls || WindowText(edit) != text) {
        return Refuse(kBadInput, what + ": " + Quoted(text) + " cannot be typed there", expected);
    }
    return {};
}

void LeaveFields(HWND dialog) {
    kv::input::Focus(GetDlgItem(dialog, IDCANCEL));
}

std::string ModuleText(Session& session, UINT id) {
    char text[512] = "";
    LoadStringA(session.module().handle(), id, text, sizeof text);
    return text;
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

SetOutcome ChooseEntry(ControlDriver& driver, unsigned listId, const std::string& entry,
                       const std::string& name) {
    const Control& control = *FindControl(listId);
    const HWND list = driver.WindowOf(control);
    int row = -1;
    const SetOutcome found = FindEntry(EntriesOf(list), entry, name, row);
    if (found.status != kDone) return found;
    return kv::input::Choose(list, row) ? SetOutcome() : Unreachable(control, list);
}

}  // namespace kvhost
