// The message queue and timers. There is one queue; everything runs on one thread.
#include <platform/window/core.h>

#include <algorithm>
#include <chrono>

namespace kv {
namespace {

constexpr UINT kShortestTimer = 10;
// A handler that keeps posting to itself must not hang whoever pumps.
constexpr int kMostPerPump = 10000;

using Clock = std::chrono::steady_clock;

struct Timer {
    HWND window{};
    UINT_PTR id = 0;
    std::chrono::milliseconds interval{};
    Clock::time_point due;
    TIMERPROC callback{};
};

struct Queue {
    std::vector<MSG> posted;  // from `head` on; the space before is reused when all are taken
    size_t head = 0;
    bool quit = false;
    int exitCode = 0;
    std::vector<Timer> timers;
    UINT_PTR nextTimerId = 1;
};

Queue& TheQueue() {
    static Queue* queue = new Queue;
    return *queue;
}

DWORD Now() {
    return static_cast<DWORD>(
        std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now().time_since_epoch())
            .count());
}

struct Filter {
    HWND window{};
    UINT first = 0;
    UINT last = 0;

    bool Takes(HWND target, UINT message) const {
        if (window && !Contains(window, target)) return false;
        return (first == 0 && last == 0) || (message >= first && message <= last);
    }
};

bool TakePosted(MSG& message, const Filter& filter, UINT remove) {
    Queue& queue = TheQueue();
    for (size_t i = queue.head; i < queue.posted.size(); ++i) {
        if (!filter.Takes(queue.posted[i].hwnd, queue.posted[i].message)) continue;
        message = queue.posted[i];
        if ((remove & PM_REMOVE) == 0) return true;
        if (i == queue.head) {
            ++queue.head;
        } else {
            queue.posted.erase(queue.posted.begin() + static_cast<std::ptrdiff_t>(i));
        }
        if (queue.head == queue.posted.size()) {
            queue.posted.clear();
            queue.head = 0;
        }
        return true;
    }
    return false;
}

bool TakeQuit(MSG& message, UINT remove) {
    Queue& queue = TheQueue();
    if (!queue.quit) return false;
    if ((remove & PM_REMOVE) != 0) queue.quit = false;
    message = {};
    message.message = WM_QUIT;
    message.wParam = static_cast<WPARAM>(queue.exitCode);
    return true;
}

bool TakeTimer(MSG& message, const Filter& filter, UINT remove) {
    const Clock::time_point now = Clock::now();
    for (Timer& timer : TheQueue().timers) {
        if (timer.due > now || !filter.Takes(timer.window, WM_TIMER)) continue;
        if ((remove & PM_REMOVE) != 0) timer.due = now + timer.interval;
        message = {timer.window, WM_TIMER, timer.id, reinterpret_cast<LPARAM>(timer.callback),
                   Now(),        {}};
        return true;
    }
    return false;
}

Timer* FindTimer(HWND window, UINT_PTR id) {
    for (Timer& timer : TheQueue().timers) {
        if (timer.window == window && timer.id == id) return &timer;
    }
    return nullptr;
}

bool IsKeyboard(UINT message) {
    return message >= WM_KEYDOWN && message <= WM_SYSCHAR;
}

void Handle(MSG& message) {
    if (IsKeyboard(message.message) && IsDialogMessageA(RootOf(message.hwnd), &message)) return;
    TranslateMessage(&message);
    DispatchMessageA(&message);
}

int HandlePosted() {
    int count = 0;
    MSG message{};
    while (count < kMostPerPump && TakePosted(message, Filter{}, PM_REMOVE)) {
        Handle(message);
        ++count;
    }
    return count;
}

struct CharacterOfKey {
    int key;
    char character;
};
// Keys beside letters and digits that type something.
constexpr CharacterOfKey kCharacters[] = {
    {VK_SPACE, ' '}, {VK_BACK, '\b'}, {VK_TAB, '\t'}, {VK_RETURN, '\r'}, {VK_ESCAPE, '\x1B'},
};

int CharacterFor(WPARAM key) {
    const bool shift = GetKeyState(VK_SHIFT) < 0;
    const bool control = GetKeyState(VK_CONTROL) < 0;
    if (key >= 'A' && key <= 'Z') {
        const int letter = static_cast<int>(key);
        return control ? letter - 'A' + 1 : shift ? letter : letter + ('a' - 'A');
    }
    if (key >= '0' && key <= '9' && !control && !shift) return static_cast<int>(key);
    for (const CharacterOfKey& entry : kCharacters) {
        if (static_cast<WPARAM>(entry.key) == key) return entry.character;
    }
    return 0;
}

}  // namespace

bool QuitWasPosted() {
    return TheQueue().quit;
}

void DropMessagesOf(HWND window) {
    Queue& queue = TheQueue();
    const auto begin = queue.posted.begin() + static_cast<std::ptrdiff_t>(queue.head);
    queue.posted.erase(std::remove_if(begin, queue.posted.end(),
                                      [&](const MSG& message) { return message.hwnd == window; }),
                       queue.posted.end());
    if (!queue.timers.empty()) {
        std::erase_if(queue.timers, [&](const Timer& timer) { return timer.window == window; });
    }
}

int PumpPendingMessages() {
    int count = HandlePosted();
    // Each timer fires once at most; what it posts is handled, too.
    const size_t timers = TheQueue().timers.size();
    MSG message{};
    for (size_t i = 0; i < timers && TakeTimer(message, Filter{}, PM_REMOVE); ++i) {
        DispatchMessageA(&message);
        count += 1 + HandlePosted();
    }
    return count;
}

int MillisecondsToNextTimer() {
    const std::vector<Timer>& timers = TheQueue().timers;
    if (timers.empty()) return -1;
    const auto next = std::min_element(
        timers.begin(), timers.end(), [](const Timer& a, const Timer& b) { return a.due < b.due; });
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(next->due - Clock::now());
    return static_cast<int>(std::max<std::int64_t>(left.count(), 0));
}

}  // namespace kv

using namespace kv;

BOOL WINAPI PostMessageA(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    if (handle && !WindowFromHandle(handle)) return FALSE;
    return Guarded(FALSE, [&]() -> BOOL {
        TheQueue().posted.push_back({handle, message, wParam, lParam, Now(), {}});
        return TRUE;
    });
}

BOOL WINAPI PeekMessageA(MSG* message, HWND handle, UINT first, UINT last, UINT remove) {
    if (!message || (handle && !WindowFromHandle(handle))) return FALSE;
    const Filter filter{handle, first, last};
    return TakePosted(*message, filter, remove) || TakeQuit(*message, remove) ||
           TakeTimer(*message, filter, remove);
}

BOOL WINAPI TranslateMessage(const MSG* message) {
    if (!message) return FALSE;
    const bool system = message->message == WM_SYSKEYDOWN;
    if (!system && message->message != WM_KEYDOWN) return FALSE;
    if (const int character = CharacterFor(message->wParam)) {
        PostMessageA(message->hwnd, system ? WM_SYSCHAR : WM_CHAR, static_cast<WPARAM>(character),
                     message->lParam);
    }
    return TRUE;
}

LRESULT WINAPI DispatchMessageA(const MSG* message) {
    if (!message) return 0;
    if (message->message == WM_TIMER && message->lParam) {
        const CallScope scope;
        const auto callback = reinterpret_cast<TIMERPROC>(message->lParam);
        callback(message->hwnd, WM_TIMER, message->wParam, message->time);
        return 0;
    }
    if (!message->hwnd) return 0;
    return SendMessageA(message->hwnd, message->message, message->wParam, message->lParam);
}

void WINAPI PostQuitMessage(int exitCode) {
    TheQueue().quit = true;
    TheQueue().exitCode = exitCode;
}

UINT_PTR WINAPI SetTimer(HWND handle, UINT_PTR id, UINT elapse, TIMERPROC callback) {
    if (handle && !WindowFromHandle(handle)) return 0;
    return Guarded(UINT_PTR{0}, [&]() -> UINT_PTR {
        Queue& queue = TheQueue();
        Timer* timer = FindTimer(handle, id);
        if (!timer) {
            // Without a window the platform hands out the number.
            if (!handle) id = queue.nextTimerId++;
            timer = &queue.timers.emplace_back();
        }
        const std::chrono::milliseconds interval(std::max(elapse, kShortestTimer));
        *timer = {handle, id, interval, Clock::now() + interval, callback};
        return handle && id == 0 ? 1 : id;
    });
}

BOOL WINAPI KillTimer(HWND handle, UINT_PTR id) {
    Timer* timer = FindTimer(handle, id);
    if (!timer) return FALSE;
    std::vector<Timer>& timers = TheQueue().timers;
    timers.erase(timers.begin() + (timer - timers.data()));
    return TRUE;
}
