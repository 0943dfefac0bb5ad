// The Watermark View: the paper, the text on it once and repeated, its colour, and the overlay's
// marks.
#include "preview/watermark_view.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/module/preview/painted_sheet.h"

namespace kvui {
namespace {

constexpr DWORD kWhite = 0xFFFFFF;

class WatermarkViewTest : public testing::Test {
 protected:
    WatermarkViewTest() {
        WatermarkRecord record{};
        const ListHandle list = sheet.shared.lists.handles[kListWatermark];
        EXPECT_TRUE(QDMMLTGetWatermarkWithID(list, &sheet.printer, &record, 1));
        record.size = 60;
        record.red = record.green = 250;
        record.blue = 10;
        record.id = 200;
        EXPECT_TRUE(QDMMLTAddWatermark(list, &sheet.printer, &record, kScopeCommon));
        sheet.Set("mdmWatermark", 200);
        sheet.Set("mdmOtherSettings", kOtherColor | kOtherAllPaperSize);
    }
    // The paper's frame: the box of all that is drawn without a watermark.
    RECT Paper() {
        const DWORD chosen = sheet.Get("mdmWatermark");
        sheet.Set("mdmWatermark", 0);
        const Pixels pixels = sheet.Paint(PaintWatermarkView);
        sheet.Set("mdmWatermark", chosen);
        RECT box{pixels.width, pixels.height, 0, 0};
        for (int y = 0; y < pixels.height; ++y) {
            for (int x = 0; x < pixels.width; ++x) {
                if (pixels.At(x, y) == kWhite) continue;
                box = {std::min<LONG>(box.left, x), std::min<LONG>(box.top, y),
                       std::max<LONG>(box.right, x + 1), std::max<LONG>(box.bottom, y + 1)};
            }
        }
        return box;
    }
    // Pixels inside the frame that are not white, and the colours that are fully there.
    int Inked(std::set<DWORD>* colours = nullptr) {
        const RECT paper = Paper();
        const Pixels pixels = sheet.Paint(PaintWatermarkView);
        int inked = 0;
        for (int y = paper.top + 1; y < paper.bottom - 1; ++y) {
            for (int x = paper.left + 1; x < paper.right - 1; ++x) {
                if (pixels.At(x, y) == kWhite) continue;
                ++inked;
                if (colours != nullptr) colours->insert(pixels.At(x, y));
            }
        }
        return inked;
    }

    PaintedSheet sheet;
};

TEST_F(WatermarkViewTest, ThePaperFitsItsMarginAndTurns) {
    sheet.Set("dmPaperSize", 9);
    RECT paper = Paper();
    EXPECT_EQ(paper.bottom - paper.top, kGroundHeight - 20);
    EXPECT_NEAR((paper.bottom - paper.top) * 210.0 / 297, paper.right - paper.left, 1.0);
    sheet.Set("dmOrientation", 2);
    paper = Paper();
    EXPECT_EQ(paper.right - paper.left, kGroundWidth - 20);
    EXPECT_NEAR((paper.right - paper.left) * 210.0 / 297, paper.bottom - paper.top, 1.0);
    sheet.Set("dmPaperSize", 0x4000);
    EXPECT_LT(Paper().right, Paper().left) << "an unknown paper is not drawn";
}

TEST_F(WatermarkViewTest, TheTextIsDrawnOnceOrRepeatedInItsColourOrInGrey) {
    std::set<DWORD> colours;
    const int once = Inked(&colours);
    EXPECT_GT(once, 100);
    const auto isGrey = [](DWORD colour) {
        return (colour >> 16) == (colour & 0xFF) && (colour >> 8 & 0xFF) == (colour & 0xFF);
    };
    EXPECT_TRUE(std::none_of(colours.begin(), colours.end(), isGrey)) << "its own colour";
    sheet.Set("mdmWatermarkMode", 0x10);
    EXPECT_GT(Inked(), once + once / 2);
    sheet.Set("mdmWatermarkMode", 0);
    sheet.Set("mdmOtherSettings", kOtherAllPaperSize);
    colours.clear();
    Inked(&colours);
    EXPECT_TRUE(std::all_of(colours.begin(), colours.end(), isGrey));
    EXPECT_GE(*colours.begin(), 0xDFDFDFu);
    EXPECT_LT(*colours.begin(), 0xF0F0F0u) << "250 would be too light to see";
    sheet.Set("mdmWatermark", 0);
    EXPECT_EQ(Inked(), 0);
}

TEST_F(WatermarkViewTest, AChosenOverlayMarksTheFourCorners) {
    sheet.Set("mdmWatermark", 0);
    const RECT paper = Paper();
    const Pixels before = sheet.Paint(PaintWatermarkView);
    sheet.Set("mdmOverlay", 1);
    const Pixels marked = sheet.Paint(PaintWatermarkView);
    for (const LONG x : {paper.left + 4, paper.right - 5}) {
        for (const LONG y : {paper.top, paper.bottom - 1}) {
            EXPECT_NE(marked.At(x, y), before.At(x, y));
            EXPECT_EQ(marked.At((paper.left + paper.right) / 2, y),
                      before.At((paper.left + paper.right) / 2, y));
        }
    }
}

}  // namespace
}  // namespace kvui
