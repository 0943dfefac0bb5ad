// Sets controls of a headless sheet the way a person would, and answers the dialogs that come up by
// policy.
#pragma once

#include <host/controls/conflict_answers.h>
#include <host/controls/shown_choices.h>
#include <host/controls/set_outcome.h>

#include <functional>
#include <string>
#include <vector>

namespace kvhost {

class ControlDriver {
   public:
    ControlDriver(Session& session, ConflictPolicy policy);
    ~ControlDriver();

    // Sets one control; `value` is an entry's caption, its name or a number.
    SetOutcome Set(const Control& control, const std::string& value);
    using DialogWork = std::function<SetOutcome(HWND dialog)>;
    using Opener = std::function<void()>;
    // Presses a control of a page, works in the dialog that opens and presses its OK, or Cancel
    // when the work was refused. `subject` names in errors what was wanted.
    SetOutcome InDialog(const Control& opener, const std::string& subject, const DialogWork& work);
    // The same for a dialog that something else opens.
    SetOutcome InDialog(const Opener& open, const std::string& subject, const DialogWork& work);
    // Answers message boxes: the id of the button, or 0 for the first of OK, Yes, Close and Cancel;
    // what is told of a refusal may be added to the text. Until the next call; null returns to
    // that.
    using Reply = std::function<int(std::string& text)>;
    void ReplyBy(Reply reply) { reply_ = std::move(reply); }
    // Applies what was set. Questions and refusals that come up meanwhile are in the outcome.
    SetOutcome Accept();

    // The control's window; its page is created when necessary. Null when no page has it.
    HWND WindowOf(const Control& control);
    std::vector<std::string>& notes() { return notes_; }
    // Why the page did not take the last choice: a refused conflict, or a message that came up.
    std::string WhyRefused() const;

 private:
    void AnswerDialog(HWND dialog);
    void WorkIn(HWND dialog);
    void AnswerMessage(HWND dialog, HWND message);
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
    // What is to be done in the next dialog that opens, and what became of it.
    DialogWork work_;
    SetOutcome workOutcome_;
    Reply reply_;
};

}  // namespace kvhost
