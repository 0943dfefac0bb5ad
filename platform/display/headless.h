// A display without a screen: modal dialogs are answered from a script. Used by the command line
// and by every test.
#pragma once

#include <platform/display/display.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace kv {

class HeadlessDisplay : public Display {
 public:
    // Acts on a modal dialog through the input layer; it must make the dialog end, or the dialog
    // counts as unanswered.
    using Answer = std::function<void(HWND dialog)>;

    // Answers the next modal dialog; answers are used in the order in which they were pushed.
    void PushAnswer(Answer answer);
    // Answers every dialog for which no pushed answer is left.
    void SetPolicy(Answer policy);
    // What happens to a dialog that nobody answers. The default prints an error naming the dialog
    // and ends the process with status 1. A handler of a test reports and returns; the dialog is
    // then ended with -1.
    void OnUnanswered(std::function<void(const std::string& description)> handler);
    // Hears what the program waits for, about every 50 ms, and nullptr when it is over.
    void OnWaiting(std::function<void(const char* what, unsigned milliseconds)> handler);
    size_t PendingAnswers() const { return answers_.size(); }

    int beeps = 0;
    // Descriptions of the modal dialogs shown, in order.
    std::vector<std::string> shown;

    std::string status;  // what a sheet's status line says

    void Beeped() override { ++beeps; }
    void ShowStatus(HWND /*sheet*/, const char* text) override { status = text; }
    void Waiting(const char* what, unsigned milliseconds) override {
        if (onWaiting_) onWaiting_(what, milliseconds);
    }
    void WaitEnded() override { Waiting(nullptr, 0); }
    void ModalBegun(HWND window) override;
    void ModalEnded(HWND window) override;
    bool WaitForInput(HWND modal) override;

 private:
    struct Modal {
        HWND window{};
        bool answered = false;
    };
    std::vector<Modal> modals_;  // the innermost is last
    std::deque<Answer> answers_;
    Answer policy_;
    std::function<void(const std::string&)> onUnanswered_;
    std::function<void(const char*, unsigned)> onWaiting_;
};

// The headless display that CurrentDisplay() answers when no other is in use.
HeadlessDisplay& Headless();

}  // namespace kv
