// Reading, asking and pressing: the two questions are told apart by their Resolve buttons.
#include <host/controls/conflict_answers.h>
#include <host/controls/control_driver.h>
#include <module/resources/resource.h>
#include <platform/window/input.h>
#include <unistd.h>

#include <cctype>
#include <cstdio>

namespace kvhost {
namespace {

std::string TextOf(HWND dialog, int id) {
    return WindowText(GetDlgItem(dialog, id));
}

// Some names end with a colon of their own; selections may carry the mark of an access key.
std::string Named(const std::string& name, std::string selection) {
    const size_t mark = selection.find('&');
    if (mark != std::string::npos) selection.erase(mark, 1);
    const bool colon = !name.empty() && name.back() == ':';
    return name + (colon ? " " : ": ") + selection;
}

std::string SettingsConflict(HWND dialog) {
    return Named(TextOf(dialog, IDC_ST_TRIGGER_NAME), TextOf(dialog, IDC_ST_TRIGGER_SELECTION)) +
           " | conflicts with | " +
           Named(TextOf(dialog, IDC_ST_TARGET_NAME), TextOf(dialog, IDC_ST_TARGET_SELECTION)) +
           " | new selection | " +
           Named(TextOf(dialog, IDC_ST_NEW_NAME), TextOf(dialog, IDC_ST_NEW_SELECTION));
}

std::string Entries(HWND list) {
    std::string text;
    for (const ChoiceText& entry : EntriesOf(list)) {
        text += (text.empty() ? "" : ", ") + entry.text;
    }
    return text.empty() ? "nothing" : text;
}

std::string OptionsConflict(HWND dialog) {
    return "current configuration: " + Entries(GetDlgItem(dialog, IDC_LIST_OPTION_CURRENT)) +
           " | new configuration: " + Entries(GetDlgItem(dialog, IDC_LIST_OPTION_NEW));
}

struct Question {
    int resolveButton;
    std::string (*describe)(HWND dialog);
};
constexpr Question kQuestions[] = {{IDC_BTN_CONFLICT_RESOLVE, SettingsConflict},
                                   {IDC_BTN_OPTION_RESOLVE, OptionsConflict}};

// The first character of the terminal's next line, EOF at the end of the input.
int ReadAnswer() {
    const int first = std::getchar();
    for (int c = first; c != '\n' && c != EOF;) c = std::getchar();
    return first;
}

// Until one of two letters is typed, the second of which an empty line stands for.
ConflictRefusal AskOnTerminal(const std::string& question, const char* prompt, char yes, char no) {
    if (isatty(STDIN_FILENO) == 0) return ConflictRefusal::kNoTerminal;
    std::fprintf(stderr, "%s\n", question.c_str());
    for (;;) {
        std::fputs(prompt, stderr);
        const int answer = ReadAnswer();
        if (answer == EOF) {
            std::fputc('\n', stderr);
            return ConflictRefusal::kNoAnswer;
        }
        if (std::tolower(answer) == yes) return ConflictRefusal::kNone;
        if (std::tolower(answer) == no || answer == '\n') return ConflictRefusal::kCancelled;
    }
}

// A message box of several lines as one.
std::string OneLine(std::string text) {
    for (char& c : text) {
        if (c == '\n') c = ' ';
    }
    return text;
}

}  // namespace

ConflictRefusal ConflictAnswers::Decide(const std::string& question, bool resolvable) const {
    if (!resolvable) return ConflictRefusal::kUnresolvable;
    switch (policy_) {
        case ConflictPolicy::kResolve:
            return ConflictRefusal::kNone;
        case ConflictPolicy::kCancel:
            return ConflictRefusal::kCancelled;
        case ConflictPolicy::kAsk:
            break;
    }
    return AskOnTerminal("conflict: " + question, "Resolve or Cancel? [r/C] ", 'r', 'c');
}

bool ConflictAnswers::Answer(HWND dialog, std::vector<std::string>& notes) {
    return AnswerConflict(dialog, notes) || AnswerRemoval(dialog, notes);
}

// Resolving takes the options away, cancelling keeps them.
bool ConflictAnswers::AnswerRemoval(HWND dialog, std::vector<std::string>& notes) {
    constexpr int kMessageText = 0xFFFF;
    if (removal_.empty() || TextOf(dialog, kMessageText) != removal_) return false;
    const std::string question = OneLine(removal_);
    ConflictRefusal decision = ConflictRefusal::kNone;
    if (policy_ == ConflictPolicy::kCancel) decision = ConflictRefusal::kCancelled;
    if (policy_ == ConflictPolicy::kAsk) {
        decision = AskOnTerminal(question, "Accept or Refuse? [a/R] ", 'a', 'r');
    }
    const bool accepted = decision == ConflictRefusal::kNone;
    notes.push_back((accepted ? "accepted: " : "refused: ") + question);
    if (!accepted) {
        refusal_ = decision == ConflictRefusal::kCancelled ? ConflictRefusal::kOptionsKept
                                                           : ConflictRefusal::kOptionsUndecided;
    }
    return kv::input::Click(GetDlgItem(dialog, accepted ? IDOK : IDCANCEL));
}

bool ConflictAnswers::AnswerConflict(HWND dialog, std::vector<std::string>& notes) {
    for (const Question& row : kQuestions) {
        const HWND resolve = GetDlgItem(dialog, row.resolveButton);
        if (resolve == nullptr) continue;
        const std::string text = row.describe(dialog);
        const ConflictRefusal decision = Decide(text, IsWindowEnabled(resolve) != FALSE);
        const bool accepted = decision == ConflictRefusal::kNone && kv::input::Click(resolve);
        notes.push_back((accepted ? "conflict resolved: " : "conflict: ") + text);
        if (accepted) return true;
        if (refusal_ == ConflictRefusal::kNone) {
            refusal_ = decision == ConflictRefusal::kNone ? ConflictRefusal::kCancelled : decision;
        }
        if (!kv::input::Click(GetDlgItem(dialog, IDCANCEL))) kv::input::Close(dialog);
        return true;
    }
    return false;
}

const char* RefusalText(ConflictRefusal refusal) {
    switch (refusal) {
        case ConflictRefusal::kNone:
            return "";
        case ConflictRefusal::kCancelled:
            return "it conflicts with another setting";
        case ConflictRefusal::kUnresolvable:
            return "it conflicts with another setting: Unresolvable situation!";
        case ConflictRefusal::kNoTerminal:
            return "it conflicts with another setting and there is no terminal to ask on; "
                   "use --on-conflict=resolve or --on-conflict=cancel";
        case ConflictRefusal::kNoAnswer:
            return "it conflicts with another setting and the input ended without an answer";
        case ConflictRefusal::kOptionsKept:
            return "the printer reports fewer options than are installed, and they were to be kept";
        case ConflictRefusal::kOptionsUndecided:
            return "the printer reports fewer options than are installed and nobody could be "
                   "asked; "
                   "`kvprefs device query --on-removal=accept` takes the others away";
    }
    return "";
}

}  // namespace kvhost
