// What the dialogs of lists that users make have in common for the command line: entries that are
// found by name, and fields that are typed into. Used by the drivers of papers, watermarks and
// overlays.
#pragma once

#include <host/controls/control_driver.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace kvhost {

// What an answer to the module's questions is to be.
struct ListAnswers {
    bool overwrite = false;        // an entry of the same name
    std::optional<bool> isCommon;  // for all users, or for the caller only
};

constexpr char kCommonTakesAdministrator[] = "--common: only an administrator adds for everybody";
constexpr char kCommonIsFull[] = ": stored as your own, the list for everybody is full";

// "entry" is how people call it. The name as it stands, else in any case, else "#ID".
SetOutcome FindEntry(const std::vector<ChoiceText>& entries, const std::string& entry,
                     const std::string& name, int& row);

// Types a text that the field must take whole; `what` names it in errors.
SetOutcome TypeField(HWND dialog, int id, const std::string& what, const std::string& text);
// The same for the name of a file, which stays as its bytes are.
SetOutcome TypePath(HWND dialog, int id, const std::string& what, const std::string& path);
// Moves the focus on, so that the dialog reads what was typed.
void LeaveFields(HWND dialog);
std::string ModuleText(Session& session, UINT id);

// While it lives, questions about a name that is there already are answered by the policy, and
// those about common entries; others in the driver's usual way.
class ListReplies {
 public:
    ListReplies(Session& session, ControlDriver& driver, const ListAnswers& answers);
    ~ListReplies() { driver_.ReplyBy(nullptr); }
    ListReplies(const ListReplies&) = delete;
    ListReplies& operator=(const ListReplies&) = delete;

    // Whether the entry could have become one for everybody.
    bool WasAskedAboutCommon() const { return asked_; }

 private:
    ControlDriver& driver_;
    bool asked_ = false;
};

// While it lives, whatever is chosen in a page's list is put back at its end, if it is still there:
// who works at the entries chooses none for the next job.
class KeptChoice {
 public:
    KeptChoice(ControlDriver& driver, unsigned listId);
    ~KeptChoice();
    KeptChoice(const KeptChoice&) = delete;
    KeptChoice& operator=(const KeptChoice&) = delete;

 private:
    ControlDriver& driver_;
    const Control& list_;
    DWORD chosen_ = 0;
};

// Presses a button of a page that works at a user's own entries. Who may not administer the printer
// is not shown these buttons; their dialogs know what such a user may do all the same.
bool PressOwnersButton(ControlDriver& driver, unsigned button);
// Works in the dialog that such a button opens.
SetOutcome InOwnersDialog(ControlDriver& driver, unsigned button, const std::string& subject,
                          const ControlDriver::DialogWork& work);

// A page's list, and what people call an entry of it.
struct EntryList {
    unsigned listId;
    const char* what;
};
// Chooses an entry for as long as it is acted on, where that may be done.
SetOutcome AtEntry(ControlDriver& driver, const EntryList& entries, const std::string& name,
                   const std::function<SetOutcome()>& mayAct,
                   const std::function<SetOutcome()>& act);
// Presses a Delete button and confirms it.
SetOutcome PressDelete(ControlDriver& driver, unsigned button);

}  // namespace kvhost
