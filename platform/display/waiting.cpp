// See waiting.h.
#include <platform/display/display.h>
#include <platform/display/waiting.h>

#include <poll.h>

#include <algorithm>
#include <mutex>
#include <thread>
#include <vector>

namespace kv {

struct WaitSubject::Inside {
    std::string what;
    std::thread::id thread;
    Milliseconds since;
    Milliseconds lastTold = since;
    bool told = false;
};

namespace {

struct Subjects {
    std::mutex lock;
    std::vector<WaitSubject::Inside*> all;  // the newest is last
};
Subjects& TheSubjects() {
    static auto* subjects = new Subjects;
    return *subjects;
}

struct ReplacedTime {
    std::function<void(Milliseconds)> pass;
    Milliseconds now{0};
};
ReplacedTime& Replaced() {
    static auto* time = new ReplacedTime;
    return *time;
}

WaitSubject::Inside* NewestOfThisThread() {
    std::lock_guard guard(TheSubjects().lock);
    const auto& all = TheSubjects().all;
    const auto found =
        std::find_if(all.rbegin(), all.rend(), [](const WaitSubject::Inside* subject) {
            return subject->thread == std::this_thread::get_id();
        });
    return found == all.rend() ? nullptr : *found;
}

bool IsReady(Ready ready, int file, Milliseconds limit) {
    pollfd entry{file, static_cast<short>(ready == Ready::kToRead ? POLLIN : POLLOUT), 0};
    return poll(&entry, 1, static_cast<int>(limit.count())) > 0;
}

}  // namespace

WaitSubject::WaitSubject(std::string what)
    : inside_(new Inside{std::move(what), std::this_thread::get_id(), Now()}) {
    std::lock_guard guard(TheSubjects().lock);
    TheSubjects().all.push_back(inside_);
}

WaitSubject::~WaitSubject() {
    {
        std::lock_guard guard(TheSubjects().lock);
        std::erase(TheSubjects().all, inside_);
    }
    if (inside_->told) CurrentDisplay().WaitEnded();
    delete inside_;
}

void WaitSubject::Rename(std::string what) {
    inside_->what = std::move(what);
}

void TellWaiting() {
    WaitSubject::Inside* subject = NewestOfThisThread();
    const Milliseconds now = Now();
    // Steps may end a little early.
    if (subject == nullptr || now - subject->lastTold < kWaitStep - Milliseconds{1}) return;
    subject->told = true;
    subject->lastTold = now;
    CurrentDisplay().Waiting(subject->what.c_str(),
                             static_cast<unsigned>((now - subject->since).count()));
}

void PassTime(Milliseconds time) {
    if (Replaced().pass) {
        Replaced().now += time;
        Replaced().pass(time);
        return TellWaiting();
    }
    const Milliseconds end = Now() + time;
    for (Milliseconds left = time; left.count() > 0; left = end - Now()) {
        std::this_thread::sleep_for(std::min(left, kWaitStep));
        TellWaiting();
    }
}

Milliseconds Now() {
    if (Replaced().pass) return Replaced().now;
    return std::chrono::duration_cast<Milliseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
}

bool WaitUntil(Ready ready, int file, Milliseconds limit) {
    const bool replaced = static_cast<bool>(Replaced().pass);
    const Milliseconds end = Now() + limit;
    for (Milliseconds left = limit;; left = end - Now()) {
        const Milliseconds step = std::clamp(left, Milliseconds{0}, kWaitStep);
        if (IsReady(ready, file, replaced ? Milliseconds{0} : step)) return true;
        if (left.count() <= 0) return false;
        if (replaced) {
            PassTime(step);
        } else {
            TellWaiting();
        }
    }
}

void ReplaceTime(std::function<void(Milliseconds)> pass) {
    Replaced() = {std::move(pass)};
}

}  // namespace kv
