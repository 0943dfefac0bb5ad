// The bitmaps that the preview composes: that masks and pictures fit each other, and that what they
// stand for can be told from them.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <set>
#include <vector>

#include "resources/picture_ids.h"
#include "tests/support/canvas.h"

namespace {

// What the picture has painted over white; empty without one.
kvtest::Pixels Load(int id) {
    const HBITMAP bitmap = LoadBitmapA(nullptr, MAKEINTRESOURCEA(static_cast<unsigned>(id)));
    BITMAP info{};
    if (GetObjectA(bitmap, sizeof info, &info) == 0) return {};
    const kvtest::Canvas canvas(info.bmWidth, info.bmHeight);
    const HDC from = CreateCompatibleDC(nullptr);
    const HGDIOBJ before = SelectObject(from, bitmap);
    BitBlt(canvas.dc, 0, 0, info.bmWidth, info.bmHeight, from, 0, 0, SRCCOPY);
    SelectObject(from, before);
    DeleteDC(from);
    DeleteObject(bitmap);
    return canvas.Read();
}

constexpr DWORD kBlack = 0, kWhite = 0xFFFFFF;

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
    const kvtest::Pixels picture = Load(id), mask = Load(id + 1);
    ASSERT_EQ(mask.width, picture.width) << id;
    ASSERT_EQ(mask.height, picture.height) << id;
    std::size_t kept = 0;
    for (std::size_t i = 0; i < mask.values.size(); ++i) {
        ASSERT_TRUE(mask.values[i] == kWhite || mask.values[i] == kBlack) << id;
        if (mask.values[i] != kWhite) continue;
        ++kept;
        ASSERT_EQ(picture.values[i], kBlack) << id << " at " << i;
    }
    EXPECT_GT(kept, 0u) << id;
    EXPECT_LT(kept, mask.values.size()) << id;
}

TEST(ViewPictures, AreBlackWhereTheirMaskKeepsTheGround) {
    for (const int id : kNumbers) ExpectMaskFits(id);
    for (const int id : kOtherMasked) ExpectMaskFits(id);
}

bool IsGrey(DWORD pixel) {
    return pixel == (pixel & 0xFF) * 0x010101;
}

TEST(ViewPictures, OnlyTheColourPagesHaveColour) {
    for (const int id : kPages) {
        const auto grey = Load(id).values, color = Load(id + IDB_PAGE_COLOR_STEP).values;
        EXPECT_TRUE(std::all_of(grey.begin(), grey.end(), IsGrey)) << id;
        EXPECT_LT(std::count_if(color.begin(), color.end(), IsGrey) + 200,
                  static_cast<long>(color.size()))
            << id;
    }
}

// Each of these is the only sign of its setting, so that no two may look alike.
TEST(ViewPictures, TellTheirSettingsApart) {
    std::set<std::vector<DWORD>> seen;
    const auto expectNew = [&seen](int id) {
        EXPECT_TRUE(seen.insert(Load(id).values).second) << id;
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
        const kvtest::Pixels sheet = Load(test.id);
        for (int y = test.top; y < test.top + test.height; ++y) {
            for (int x = test.left; x < test.left + test.width; ++x) {
                ASSERT_EQ(sheet.At(x, y), kWhite) << test.id << " at " << x << ", " << y;
            }
        }
    }
}

}  // namespace
