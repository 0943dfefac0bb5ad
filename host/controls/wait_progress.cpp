// See wait_progress.h.
#include <host/controls/wait_progress.h>

#include <platform/display/headless.h>
#include <unistd.h>

#include <cstdio>

namespace kvhost {
namespace {
constexpr unsigned kWorthTelling = 1000;  // milliseconds
constexpr char kClearLine[] = "\r\x1B[K";
}  // namespace

WaitProgress::WaitProgress() {
    if (isatty(STDERR_FILENO) == 0) return;
    kv::Headless().OnWaiting(
        [this](const char* what, unsigned milliseconds) { Told(what, milliseconds); });
}

WaitProgress::~WaitProgress() {
    kv::Headless().OnWaiting(nullptr);
    Clear();
}

void WaitProgress::Told(const char* what, unsigned milliseconds) {
    if (what == nullptr) return Clear();
    if (milliseconds < kWorthTelling) return;
    const std::string line =
        std::string("Waiting for ") + what + ", " + std::to_string(milliseconds / 1000) + " s";
    if (line == shown_) return;
    shown_ = line;
    std::fprintf(stderr, "%s%s", kClearLine, line.c_str());
}

void WaitProgress::Clear() {
    if (!shown_.empty()) std::fputs(kClearLine, stderr);
    shown_.clear();
}

}  // namespace kvhost
