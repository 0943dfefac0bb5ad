// Sets controls of a headless sheet the way a person would, and answers the dialogs that come up by
// policy.
#pragma once

#include <host/controls/conflict_answers.h>
#include <host/index/control_index.h>
#include <host/controls/session.h>

#include <string>
#include <vector>

namespace kvhost {

struct SetOutcome {
    ExitStatus status = kDone;
    std::string error;               // why it was refused
    std::vector<std::string> notes;  // clamped values, conflicts met and how they ended
    std::string expected;            // what would do, when the value is what is wrong
};

struct ChoiceText {
    DWORD value;
    std::string text;
};

class ControlDriver {
   public:
    ControlDriver(Session& session, ConflictPolicy policy);
    ~ControlDriver();

    // Sets one control; `value` is an entry's caption, its name or a number.
    SetOutcome Set(const Control& control, const std::string& value);
    // Applies what was set. Questions and refusals that come up meanwhile are in the outcome.
    SetOutcome Accept();

    // The control's window; its page is created when necessary. Null when no page has it.
    HWND WindowOf(const Control& control);
    // What a control offers and shows now.
    static std::vector<ChoiceText> ChoicesOf(const Control& control, HWND window);
    // The entries of a combo box or list box.
    static std::vector<ChoiceText> EntriesOf(HWND window);
    static std::string ShownText(const Control& control, HWND window);
    std::vector<std::string>& notes() { return notes_; }
    // Why the page did not take the last choice: a refused conflict, or a message that came up.
    std::string WhyRefused() const;

 private:
    void AnswerDialog(HWND dialog);
    SetOutcome SetOnPage(const Control& control, const std::string& value, HWND window);
    SetOutcome PressButton(const Control& control, HWND window);
    // Whether the page took the entry that was chosen for a value.
    bool IsTaken(const Control& control, HWND combo, int index, const ChoiceText& wanted,
                 const std::string& value);
    SetOutcome SetInSubDialog(const Control& control, const std::string& value);

    Session& session_;
    ConflictAnswers conflicts_;
    std::vector<std::string> notes_;
    std::string lastMessage_;  // of the message boxes that came up
    unsigned dialogsOpened_ = 0;
    // While a sub-dialog is being driven: what to set in it.
    const Control* pending_ = nullptr;
    std::string pendingValue_;
    SetOutcome pendingOutcome_;
};

// Text of a window, any length.
std::string WindowText(HWND window);

}  // namespace kvhost
