// The page and the place at which a printer's window was closed.
#include "printer_fixture.h"

#include <commctrl.h>
#include <host/commands/commands.h>
#include <host/window/window_place.h>

#include <optional>

namespace kvhost {
namespace {

// A display without a screen that knows where its windows are.
class Desk : public kv::HeadlessDisplay {
   public:
    bool CornerOf(HWND, POINT* corner) override { return *corner = at, true; }
    void OpenNextSheetAt(POINT corner) override { asked = corner; }

    POINT at{};
    std::optional<POINT> asked;
};

class WindowPlaceTest : public PrinterTest {
   protected:
    void SetUp() override {
        PrinterTest::SetUp();
        kv::UseDisplay(&desk_);
    }
    void TearDown() override {
        kv::UseDisplay(nullptr);
        PrinterTest::TearDown();
    }
    // Opens the window, turns to a page and closes it there; answers the page it opened with.
    LRESULT OpenAndLeave(int page) {
        LRESULT first = -1;
        desk_.PushAnswer([&](HWND sheet) {
            const auto tabs = reinterpret_cast<HWND>(SendMessageA(sheet, PSM_GETTABCONTROL, 0, 0));
            first = SendMessageA(tabs, TCM_GETCURSEL, 0, 0);
            kv::input::SelectPage(sheet, page);
            kv::input::Close(sheet);
        });
        desk_.asked.reset();
        EXPECT_EQ(Open(), kDone);
        return first;
    }
    std::string File() const { return state_ + "/records/Hall.window"; }

    Desk desk_;
};

TEST_F(WindowPlaceTest, TheNextWindowOpensWhereTheLastOneWasClosed) {
    desk_.at = {30, -40};
    EXPECT_EQ(OpenAndLeave(4), 0);
    EXPECT_FALSE(desk_.asked) << "the first window stands where the desktop wants";
    EXPECT_EQ(OpenAndLeave(1), 4);
    ASSERT_TRUE(desk_.asked);
    EXPECT_EQ(desk_.asked->x, 30);
    EXPECT_EQ(desk_.asked->y, -40);
    EXPECT_EQ(OpenAndLeave(1), 1);
}

TEST_F(WindowPlaceTest, ADamagedFileIsIgnoredAndCommandsLeaveNone) {
    EXPECT_EQ(RunGet({}, {"dmCopies"}), kDone);
    EXPECT_FALSE(std::filesystem::exists(File()));
    std::filesystem::create_directory(state_ + "/records");
    const std::string damaged[] = {
        "", "{", "[1]", "{\"page\": 3, \"x\": \"a\", \"y\": 2}",
        "{\"page\": \"DLGTAB9\", \"x\": 99999999999, \"y\": 2}", std::string(5000, 'x'),
        "{\"page\": \"DLGTAB4\", \"y\": 2}",  // a page that this window does not have
    };
    for (const std::string& text : damaged) {
        std::ofstream(File(), std::ios::trunc) << text;
        EXPECT_EQ(OpenAndLeave(0), 0) << text;
        EXPECT_FALSE(desk_.asked) << text;
    }
}

}  // namespace
}  // namespace kvhost
