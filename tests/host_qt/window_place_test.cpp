// A sheet opens where it is asked to, as far as it has room on a screen there.
#include "sheet_tour.h"

#include <platform/display/display.h>

#include <QScreen>

namespace journey {
namespace {

class WindowPlace : public SheetTour {};

TEST_F(WindowPlace, ASheetOpensAtItsPlaceAndWholeOnAScreen) {
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    for (const POINT wanted : {POINT{room.left() + 5, room.top() + 7}, POINT{-5000, 90000},
                               POINT{room.right(), room.bottom()}}) {
        kv::CurrentDisplay().OpenNextSheetAt(wanted);
        OpenSheet();
        const QDialog* sheet = SheetWidget();
        ASSERT_NE(sheet, nullptr);
        POINT corner{};
        EXPECT_TRUE(kv::CurrentDisplay().CornerOf(sheet_, &corner));
        const int right = std::max(room.left(), room.right() + 1 - sheet->width());
        const int bottom = std::max(room.top(), room.bottom() + 1 - sheet->height());
        EXPECT_EQ(corner.x, std::clamp<LONG>(wanted.x, room.left(), right));
        EXPECT_EQ(corner.y, std::clamp<LONG>(wanted.y, room.top(), bottom));
        CloseSheet();
    }
}

}  // namespace
}  // namespace journey
