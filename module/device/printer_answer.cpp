// See printer_answer.h.
#include "device/printer_answer.h"

namespace kvui {
namespace {

constexpr std::string_view kReplyHeader = "@PJL INFO CONFIG";

constexpr DWORD kBaseMachine = 0x1;
struct ReportedOption {
    DWORD bit;
    std::string_view text;
};
// option, how a reply says that it is there; others are never reported
constexpr ReportedOption kReported[] = {
    {0x4, "TRAY2=INSTALLED"},
    {0x8, "TRAY3=INSTALLED"},
    {0x80, "DUPLEX=INSTALLED"},
};

}  // namespace

bool ReadInstalledOptions(std::string_view reply, DWORD& options) {
    const size_t header = reply.find(kReplyHeader);
    const size_t end = header == reply.npos ? reply.npos : reply.find('\f', header);
    if (end == reply.npos) return false;
    const std::string_view answer = reply.substr(header, end - header);
    options = kBaseMachine;
    for (const ReportedOption& option : kReported) {
        if (answer.find(option.text) != answer.npos) options |= option.bit;
    }
    return true;
}

}  // namespace kvui
