// The one source of reasons, see disabled_reason.h.
#include <platform/display/disabled_reason.h>

#include <utility>

namespace kv {
namespace {

std::function<std::string(HWND)>& Source() {
    static std::function<std::string(HWND)> source;
    return source;
}

}  // namespace

void ExplainDisabled(std::function<std::string(HWND)> source) {
    Source() = std::move(source);
}

std::string ReasonDisabled(HWND control) {
    if (!Source() || !IsWindow(control) || IsWindowEnabled(control)) return {};
    return Source()(control);
}

}  // namespace kv
