// Answers the module's questions about conflicts by policy: tells what conflicts with what, asks on
// the terminal when that is wanted, and remembers why a change was refused. Used by ControlDriver.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace kvhost {

enum class ConflictPolicy { kAsk, kResolve, kCancel };

enum class ConflictRefusal {
    kNone,
    kCancelled,
    kUnresolvable,
    kNoTerminal,  // it was to be asked, but nobody can answer
    kNoAnswer,    // the input ended
};

class ConflictAnswers {
   public:
    explicit ConflictAnswers(ConflictPolicy policy) : policy_(policy) {}

    // False when the dialog is no question about conflicts; it is then left alone.
    bool Answer(HWND dialog, std::vector<std::string>& notes);

    // The first refusal since the last Reset.
    ConflictRefusal refusal() const { return refusal_; }
    void Reset() { refusal_ = ConflictRefusal::kNone; }

   private:
    ConflictRefusal Decide(const std::string& question, bool resolvable) const;

    ConflictPolicy policy_;
    ConflictRefusal refusal_ = ConflictRefusal::kNone;
};

// What to say about a change that was refused; empty for kNone.
const char* RefusalText(ConflictRefusal refusal);

}  // namespace kvhost
