// Opening a document or web address with the user's desktop. Used by ShellExecuteA and HtmlHelpA.
#pragma once

#include <string>

namespace kv {

enum class OpenResult { kStarted, kNoProgram };

// Starts xdg-open, or the program that $KVPREFS_OPENER names, with the target as its one argument;
// no shell reads it. Returns once the program runs; nobody waits for its end.
OpenResult OpenOnDesktop(const std::string& target);

// True for "scheme:rest", where one letter is a drive and not a scheme.
bool IsWebAddress(const std::string& text);

}  // namespace kv
