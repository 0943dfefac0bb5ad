// See set_outcome.h.
#include <host/controls/host_text.h>
#include <host/controls/set_outcome.h>
#include <windows.h>

namespace kvhost {

std::string Quoted(const std::string& text) {
    return "\"" + OnOneLine(text) + "\"";
}

SetOutcome Refuse(ExitStatus status, const std::string& error, const std::string& expected) {
    return {status, expected.empty() ? error : error + "; expected " + expected, {}, expected};
}

SetOutcome Unreachable(const Control& control, HWND window) {
    const char* state = IsWindowVisible(window) ? " is disabled now" : " is not shown";
    return Refuse(kRefused, control.name + std::string(state));
}

SetOutcome StoredAs(const Control& control, const std::string& value, const std::string& stored,
                    const std::string& why) {
    return {kDone, {}, {control.name + ("=" + value) + ": stored as " + stored + ", " + why}, {}};
}

}  // namespace kvhost
