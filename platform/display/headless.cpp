// The display without a screen, see headless.h.
#include <platform/display/headless.h>
#include <platform/window/core.h>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace kv {
namespace {

constexpr UINT kMessageText = 0xFFFF;  // the text of a message box

// A dialog's name with the texts it shows, so that a person can tell what was asked.
std::string DescribeModal(HWND dialog) {
    std::string description = DescribeWindow(dialog);
    const Window* window = FindWindowRecord(dialog);
    if (!window) return description;
    for (HWND child : window->children) {
        const Window* text = FindWindowRecord(child);
        if (text && text->id == kMessageText && !text->text.empty()) {
            description += ": " + text->text;
        }
    }
    return description;
}

void EndProcess(const std::string& description) {
    std::fprintf(stderr, "error: nobody answers %s\n", description.c_str());
    std::fflush(nullptr);
    // Not exit(): the dialog's callers are still on the stack and own what destructors would free.
    std::_Exit(1);
}

}  // namespace

HeadlessDisplay& Headless() {
    static HeadlessDisplay* display = new HeadlessDisplay;
    return *display;
}

void HeadlessDisplay::PushAnswer(Answer answer) {
    answers_.push_back(std::move(answer));
}

void HeadlessDisplay::SetPolicy(Answer policy) {
    policy_ = std::move(policy);
}

void HeadlessDisplay::OnUnanswered(std::function<void(const std::string&)> handler) {
    onUnanswered_ = std::move(handler);
}

void HeadlessDisplay::OnWaiting(std::function<void(const char*, unsigned)> handler) {
    onWaiting_ = std::move(handler);
}

void HeadlessDisplay::ModalBegun(HWND window) {
    modals_.push_back({window, false});
    shown.push_back(DescribeModal(window));
}

void HeadlessDisplay::ModalEnded(HWND /*window*/) {
    if (!modals_.empty()) modals_.pop_back();
}

bool HeadlessDisplay::WaitForInput(HWND modal) {
    if (modals_.empty() || modals_.back().window != modal) return false;
    // Being asked a second time means that the first answer left the dialog open.
    if (!std::exchange(modals_.back().answered, true)) {
        Answer answer;
        if (!answers_.empty()) {
            answer = std::move(answers_.front());
            answers_.pop_front();
        } else {
            answer = policy_;
        }
        if (answer) {
            answer(modal);
            return true;
        }
    }
    const std::string description = DescribeModal(modal);
    if (onUnanswered_) {
        onUnanswered_(description);
    } else {
        EndProcess(description);
    }
    return false;
}

}  // namespace kv
