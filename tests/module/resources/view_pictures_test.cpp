// The bitmaps that the preview composes: that masks and pictures fit each other, and that what they
// stand for can be told from them.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <set>
#include <vector>

#include "resources/picture_ids.h"

namespace {

struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<COLORREF> colors;
    COLORREF At(int x, int y) const { return colors[static_cast<std::size_t>(y * width + x)]; }
};

Pixels Load(int id) {
    Pixels pixels;
    const HBITMAP bitmap = LoadBitmapA(nullptr, MAKEINTRESOURCEA(static_cast<unsigned>(id)));
    BITMAP info{};
    if (GetObjectA(bitmap, sizeof info, &info) == 0) return pixels;
    pixels.width = info.bmWidth;
    pixels.height = info.bmHeight;
    const HDC dc = CreateCompatibleDC(nullptr);
    const HGDIOBJ before = SelectObject(dc, bitmap);
    for (int y = 0; y < pixels.height; ++y) {
        for (int x = 0; x < pixels.width; ++x) pixels.colors.push_back(GetPixel(dc, x, y));
    }
    SelectObject(dc, before);
    DeleteDC(dc);
    DeleteObject(bitmap);
    return pixels;
}

constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kWhite = RGB(255, 255, 255);

// Grey; those in colour follow at a distance.
constexpr int kPages[] = {13807, 13816, 13819, 13828, 13831, 13801,
                          13810, 13813, 13822, 13825, 13834, 13804};
constexpr int kNumbers[] = {13401, 13403, 13405, 13407, 13409,
                            13411, 13413, 13417, 13425, 13431};
constexpr int kOtherMasked[] = {13845, 13847, 13839, 13841, 13843, 13837, 13705,
                                13709, 13713, 13717, 13849, 13853, 14101, 14103,
                                14105, 14107, 14109, 14111, 14113, 14115};

// The plan of the paper view holds the sizes of all others.
TEST(ViewPictures, TheTileAndTheMarksOfTheLabelsHaveTheirSizes) {
    const struct { int id, width, height; } rows[] = {
        {IDB_VIEW_TILE, 160, 194}, {13849, 11, 10}, {13853, 16, 16}};
    for (const auto& row : rows) {
        EXPECT_EQ(Load(row.id).width, row.width) << row.id;
        EXPECT_EQ(Load(row.id).height, row.height) << row.id;
    }
}

// Drawn with AND and XOR, a picture that is not black outside its mask would change the ground.
void ExpectMaskFits(int id) {
    const Pixels picture = Load(id), mask = Load(id + 1);
    ASSERT_EQ(mask.width, picture.width) << id;
    ASSERT_EQ(mask.height, picture.height) << id;
    std::size_t kept = 0;
    for (std::size_t i = 0; i < mask.colors.size(); ++i) {
        ASSERT_TRUE(mask.colors[i] == kWhite || mask.colors[i] == kBlack) << id;
        if (mask.colors[i] != kWhite) continue;
        ++kept;
        ASSERT_EQ(picture.colors[i], kBlack) << id << " at " << i;
    }
    EXPECT_GT(kept, 0u) << id;
    EXPECT_LT(kept, mask.colors.size()) << id;
}

TEST(ViewPictures, AreBlackWhereTheirMaskKeepsTheGround) {
    for (const int id : kNumbers) ExpectMaskFits(id);
    for (const int id : kOtherMasked) ExpectMaskFits(id);
}

bool IsGrey(COLORREF color) {
    return GetRValue(color) == GetGValue(color) && GetGValue(color) == GetBValue(color);
}

TEST(ViewPictures, OnlyTheColourPagesHaveColour) {
    for (const int id : kPages) {
        const auto grey = Load(id).colors, color = Load(id + IDB_PAGE_COLOR_STEP).colors;
        EXPECT_TRUE(std::all_of(grey.begin(), grey.end(), IsGrey)) << id;
        EXPECT_LT(std::count_if(color.begin(), color.end(), IsGrey) + 200,
                  static_cast<long>(color.size()))
            << id;
    }
}

// Each of these is the only sign of its setting, so that no two may look alike.
TEST(ViewPictures, TellTheirSettingsApart) {
    std::set<std::vector<COLORREF>> seen;
    const auto expectNew = [&seen](int id) {
        EXPECT_TRUE(seen.insert(Load(id).colors).second) << id;
    };
    for (const int id : kNumbers) expectNew(id);
    for (const int id : kPages) expectNew(id);
    for (const int id : {13837, 13839, 13841, 13843, 13845, 13847}) expectNew(id);
    for (int id = 14101; id <= 14115; id += 2) expectNew(id);
    for (const int id : {1469, 1470, 1471, 1472}) expectNew(id);
    for (int id = 13601; id <= 13612; ++id) expectNew(id);
}

// The page is laid over the sheet with AND: the sheet must be white below all of it, 12 pixels from
// its upper left corner.
TEST(ViewPictures, SheetsAreWhiteBelowThePage) {
    const struct {
        int id;
        int left, top, width, height;
    } cases[] = {
        {IDB_SHEET_LANDSCAPE, 12, 12, 93, 65},        {IDB_SHEET_PORTRAIT, 12, 12, 65, 93},
        {IDB_BOOKLET_PORTRAIT_LEFT, 12, 15, 65, 93},  {IDB_BOOKLET_PORTRAIT_RIGHT, 14, 15, 65, 93},
        {IDB_BOOKLET_LANDSCAPE_LEFT, 26, 13, 93, 65}, {IDB_BOOKLET_LANDSCAPE_RIGHT, 15, 15, 93, 65},
    };
    for (const auto& test : cases) {
        const Pixels sheet = Load(test.id);
        for (int y = test.top; y < test.top + test.height; ++y) {
            for (int x = test.left; x < test.left + test.width; ++x) {
                ASSERT_EQ(sheet.At(x, y), kWhite) << test.id << " at " << x << ", " << y;
            }
        }
    }
}

}  // namespace
