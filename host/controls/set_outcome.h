// What became of setting one control.
#pragma once

#include <host/controls/session.h>
#include <host/index/control_index.h>

#include <string>
#include <vector>

namespace kvhost {

struct SetOutcome {
    ExitStatus status = kDone;
    std::string error;               // why it was refused
    std::vector<std::string> notes;  // clamped values, conflicts met and how they ended
    std::string expected;            // what would do, when the value is what is wrong
};

SetOutcome Refuse(ExitStatus status, const std::string& error, const std::string& expected = {});
// The control cannot be worked as it stands.
SetOutcome Unreachable(const Control& control, HWND window);
// Done, but with another value than the wanted one.
SetOutcome StoredAs(const Control& control, const std::string& value, const std::string& stored,
                    const std::string& why);

std::string Quoted(const std::string& text);

}  // namespace kvhost
