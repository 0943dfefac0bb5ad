// See language_monitor.h.
#include "language_monitor.h"

#include <platform/shell/paths.h>
#include <winbase.h>

#include <mutex>
#include <string_view>

#include "printer_link.h"

namespace kvmonitor {
namespace {

constexpr std::string_view kGet = "#GET#";
constexpr std::string_view kSet = "#SET#";

struct Route {
    std::mutex lock;
    Transport transport;
};
Route& TheRoute() {
    static auto* route = new Route;
    return *route;
}

Transport CurrentTransport() {
    std::lock_guard guard(TheRoute().lock);
    return TheRoute().transport;
}

bool BeginsWith(std::string_view name, std::string_view verb) {
    if (name.size() <= verb.size()) return false;
    const char next = name[verb.size()];
    return kv::EqualsIgnoringCase(name.substr(0, verb.size()), verb) &&
           (next == ' ' || next == '\n');
}

std::string CommandOf(const std::string& valueName) {
    return valueName.substr(kGet.size() + 1);  // both verbs have the same length
}

}  // namespace

void SetMonitorTransport(Transport transport) {
    std::lock_guard guard(TheRoute().lock);
    TheRoute().transport = std::move(transport);
}

bool IsRequest(const std::string& valueName) {
    return BeginsWith(valueName, kGet) || BeginsWith(valueName, kSet);
}

DWORD Ask(const std::string& port, const std::string& valueName, std::string& reply) {
    reply.clear();
    if (!BeginsWith(valueName, kGet)) return ERROR_INVALID_PARAMETER;
    const Transport transport = CurrentTransport();
    return transport ? transport(port, CommandOf(valueName), reply)
                     : AskPrinter(port, CommandOf(valueName), reply);
}

DWORD Tell(const std::string& port, const std::string& valueName) {
    if (BeginsWith(valueName, kGet)) return ERROR_SUCCESS;
    std::string ignored;
    const Transport transport = CurrentTransport();
    return transport ? transport(port, CommandOf(valueName), ignored)
                     : TellPrinter(port, CommandOf(valueName));
}

}  // namespace kvmonitor
