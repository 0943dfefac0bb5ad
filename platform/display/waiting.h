// Calls that wait for something outside the program: they tell the display what for and how long
// already, so that the window stays alive meanwhile. Used by the platform's sockets, pauses and
// locks, and by the language monitor.
#pragma once

#include <chrono>
#include <functional>
#include <string>

namespace kv {

using Milliseconds = std::chrono::milliseconds;

// How often the display is told.
constexpr Milliseconds kWaitStep{50};

// While it lives, waits of this thread are for `what`, a few words for people. The newest one
// counts.
class WaitSubject {
 public:
    explicit WaitSubject(std::string what);
    ~WaitSubject();
    WaitSubject(const WaitSubject&) = delete;
    WaitSubject& operator=(const WaitSubject&) = delete;
    // It is for something else by now; the time goes on.
    void Rename(std::string what);

    struct Inside;

 private:
    Inside* inside_;
};

// One step of a wait is over: tells the display, when it is known what the wait is for.
void TellWaiting();
// Lets time pass, and tells the display of every step.
void PassTime(Milliseconds time);
// A clock that only goes forward, and with PassTime.
Milliseconds Now();
// Until a file of the host system can be read or written; false when the time is over first.
enum class Ready { kToRead, kToWrite };
bool WaitUntil(Ready ready, int file, Milliseconds limit);

// Instead of the time that passes: for tests, which cannot wait for it. Called with each pause,
// which then takes no time; an empty function brings real time back.
void ReplaceTime(std::function<void(Milliseconds)> pass);

}  // namespace kv
