// The message queue, timers and quitting.
#include <tests/platform/support/recorder.h>

#include <thread>

namespace kv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class MessageQueue : public RecorderTest {
 protected:
    MessageQueue() { TakeLog(); }
    HWND top = TopLevel("top");
    HWND child = Child(top, "child");
};

TEST_F(MessageQueue, PostedMessagesComeInOrderWithWhatTheyPost) {
    hook = [&](HWND window, UINT message) {
        if (window == child && message == WM_USER && log.size() < 2) {
            PostMessageA(top, WM_USER, 3, 0);
        }
    };
    PostMessageA(child, WM_USER, 1, 0);
    PostMessageA(top, WM_USER, 2, 0);
    EXPECT_THAT(TakeLog(), IsEmpty()) << "nothing is delivered at once";
    EXPECT_EQ(PumpPendingMessages(), 3);
    EXPECT_THAT(TakeLog(), ElementsAre("child user 1", "top user 2", "top user 3"));
}

TEST_F(MessageQueue, PeekingFiltersByWindowAndNumber) {
    PostMessageA(top, WM_USER, 1, 0);
    PostMessageA(child, WM_USER, 2, 0);
    PostMessageA(child, WM_USER + 1, 3, 0);
    MSG message{};
    EXPECT_TRUE(PeekMessageA(&message, child, WM_USER + 1, WM_USER + 1, PM_NOREMOVE));
    EXPECT_EQ(message.wParam, 3u);
    EXPECT_TRUE(PeekMessageA(&message, child, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.wParam, 2u);
    EXPECT_TRUE(PeekMessageA(&message, top, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.wParam, 1u);
    EXPECT_TRUE(PeekMessageA(&message, top, 0, 0, PM_REMOVE)) << "children belong to the window";
    EXPECT_EQ(message.wParam, 3u);
    EXPECT_FALSE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
}

TEST_F(MessageQueue, MessagesAndTimersOfADestroyedWindowAreDropped) {
    PostMessageA(child, WM_USER, 1, 0);
    PostMessageA(top, WM_USER, 2, 0);
    SetTimer(child, 1, 10, nullptr);
    DestroyWindow(child);
    TakeLog();
    EXPECT_EQ(MillisecondsToNextTimer(), -1);
    EXPECT_EQ(PumpPendingMessages(), 1);
    EXPECT_THAT(TakeLog(), ElementsAre("top user 2"));
}

TEST_F(MessageQueue, HandlerThatKeepsPostingToItselfDoesNotHangThePump) {
    hook = [&](HWND window, UINT message) {
        if (message == WM_USER) PostMessageA(window, WM_USER, 0, 0);
    };
    PostMessageA(top, WM_USER, 0, 0);
    EXPECT_GT(PumpPendingMessages(), 1000);
}

TEST_F(MessageQueue, TimersRepeatUntilTheyAreKilled) {
    static int called;
    called = 0;
    EXPECT_EQ(SetTimer(top, 7, 1000, nullptr), 7u);
    EXPECT_EQ(SetTimer(top, 7, 0, nullptr), 7u) << "the same number replaces the timer";
    const UINT_PTR own = SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR, DWORD) { ++called; });
    EXPECT_NE(own, 0u);
    EXPECT_LE(MillisecondsToNextTimer(), 10);
    for (int round = 1; round <= 2; ++round) {
        std::this_thread::sleep_for(std::chrono::milliseconds(15));
        PumpPendingMessages();
        EXPECT_EQ(called, round);
    }
    EXPECT_THAT(TakeLog(), ElementsAre("top timer 7", "top timer 7"));
    EXPECT_TRUE(KillTimer(top, 7));
    EXPECT_FALSE(KillTimer(top, 7));
    EXPECT_TRUE(KillTimer(nullptr, own));
    EXPECT_EQ(MillisecondsToNextTimer(), -1);
}

TEST_F(MessageQueue, QuitEndsTheLoopAfterThePostedMessages) {
    PostMessageA(top, WM_USER, 1, 0);
    PostQuitMessage(5);
    MSG message{};
    EXPECT_TRUE(GetMessageA(&message, nullptr, 0, 0));
    EXPECT_EQ(message.message, WM_USER);
    EXPECT_FALSE(GetMessageA(&message, nullptr, 0, 0));
    EXPECT_EQ(message.message, WM_QUIT);
    EXPECT_EQ(message.wParam, 5u);
    EXPECT_FALSE(GetMessageA(&message, nullptr, 0, 0)) << "a display without input ends it, too";
}

}  // namespace
}  // namespace kv
