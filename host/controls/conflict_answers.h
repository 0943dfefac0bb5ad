// Answers the module's questions by policy, about conflicts and about options that the printer does
// not report any more: tells what is asked, asks on the terminal when that is wanted, and remembers
// why a change was refused. Used by ControlDriver.
#pragma once

#include <windows.h>

#include <string>
#include <utility>
#include <vector>

namespace kvhost {

enum class ConflictPolicy { kAsk, kResolve, kCancel };

enum class ConflictRefusal {
    kNone,
    kCancelled,
    kUnresolvable,
    kNoTerminal,   // it was to be asked, but nobody can answer
    kNoAnswer,     // the input ended
    kOptionsKept,  // the printer reports fewer
    kOptionsUndecided,
};

class ConflictAnswers {
   public:
      // `removal`: the module's question about options that the printer does not report.
      ConflictAnswers(ConflictPolicy policy, std::string removal)
          : policy_(policy), removal_(std::move(removal)) {}

      // False when the dialog is none of these questions; it is then left alone.
      bool Answer(HWND dialog, std::vector<std::string>& notes);

      // The first refusal since the last Reset.
      ConflictRefusal refusal() const { return refusal_; }
      void Reset() { refusal_ = ConflictRefusal::kNone; }

   private:
    ConflictRefusal Decide(const std::string& question, bool resolvable) const;

    bool AnswerConflict(HWND dialog, std::vector<std::string>& notes);
    bool AnswerRemoval(HWND dialog, std::vector<std::string>& notes);

    ConflictPolicy policy_;
    std::string removal_;
    ConflictRefusal refusal_ = ConflictRefusal::kNone;
};

// What to say about a change that was refused; empty for kNone.
const char* RefusalText(ConflictRefusal refusal);

}  // namespace kvhost
