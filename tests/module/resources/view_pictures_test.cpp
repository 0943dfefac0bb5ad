// The bitmaps that the preview composes: their sizes, that masks and pictures fit each other, and
// that what they stand for can be told from them.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <utility>
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

struct Case {
    int id;
    int width;
    int height;
};

// Numbers and sizes stand here once more on purpose: the renderer places pictures by both.
constexpr Case kPages[] = {
    {13807, 93, 65}, {13816, 65, 93}, {13819, 93, 65}, {13828, 65, 93},
    {13831, 93, 65}, {13801, 93, 65}, {13810, 65, 93}, {13813, 93, 65},
    {13822, 65, 93}, {13825, 93, 65}, {13834, 65, 93}, {13804, 65, 93},
};

constexpr Case kNumbers[] = {
    {13401, 8, 13}, {13403, 9, 13}, {13405, 9, 13}, {13407, 9, 13},  {13409, 9, 13},
    {13411, 9, 13}, {13413, 9, 13}, {13417, 9, 13}, {13425, 15, 13}, {13431, 15, 13},
};

constexpr Case kOtherMasked[] = {
    {13845, 121, 93}, {13847, 93, 121}, {13839, 96, 138}, {13841, 96, 138},
    {13843, 138, 96}, {13837, 138, 96}, {13705, 115, 24}, {13709, 23, 87},
    {13713, 87, 23},  {13717, 24, 115}, {13849, 11, 10},  {13853, 16, 16},
    {14101, 121, 93}, {14103, 93, 121}, {14105, 121, 93}, {14107, 93, 121},
    {14109, 121, 93}, {14111, 93, 121}, {14113, 121, 93}, {14115, 93, 121},
};

constexpr Case kBorders[] = {
    {13603, 95, 67}, {13604, 67, 95}, {13605, 95, 67}, {13606, 67, 95}, {13607, 95, 67},
    {13608, 67, 95}, {13609, 95, 67}, {13610, 67, 95}, {13611, 95, 67}, {13612, 67, 95},
    {13601, 95, 67}, {13602, 67, 95}, {13501, 114, 7}, {13506, 7, 114}, {13511, 86, 7},
    {13516, 7, 86},  {13451, 99, 71}, {13452, 71, 99},
};

void ExpectSize(const Case& test, int idStep = 0) {
    const Pixels pixels = Load(test.id + idStep);
    EXPECT_EQ(pixels.width, test.width) << test.id + idStep;
    EXPECT_EQ(pixels.height, test.height) << test.id + idStep;
}

TEST(ViewPictures, HaveTheSizesThatTheRendererCountsOn) {
    ExpectSize({IDB_VIEW_TILE, 160, 194});
    for (const Case& test : kPages) {
        ExpectSize(test);
        ExpectSize(test, IDB_PAGE_COLOR_STEP);
    }
    for (const Case& test : kBorders) ExpectSize(test);
    for (const Case& test : kNumbers) ExpectSize(test);
    for (const Case& test : kOtherMasked) ExpectSize(test);
}

// Drawn with AND and XOR, a picture that is not black outside its mask would change the ground.
void ExpectMaskFits(const Case& test) {
    const Pixels picture = Load(test.id);
    const Pixels mask = Load(test.id + 1);
    ASSERT_EQ(mask.width, test.width) << test.id;
    ASSERT_EQ(mask.height, test.height) << test.id;
    std::size_t kept = 0;
    for (std::size_t i = 0; i < mask.colors.size(); ++i) {
        ASSERT_TRUE(mask.colors[i] == kWhite || mask.colors[i] == kBlack) << test.id;
        if (mask.colors[i] != kWhite) continue;
        ++kept;
        ASSERT_EQ(picture.colors[i], kBlack) << test.id << " at " << i;
    }
    EXPECT_GT(kept, 0u) << test.id;
    EXPECT_LT(kept, mask.colors.size()) << test.id;
}

TEST(ViewPictures, AreBlackWhereTheirMaskKeepsTheGround) {
    for (const Case& test : kNumbers) ExpectMaskFits(test);
    for (const Case& test : kOtherMasked) ExpectMaskFits(test);
}

bool IsGrey(COLORREF color) {
    return GetRValue(color) == GetGValue(color) && GetGValue(color) == GetBValue(color);
}

TEST(ViewPictures, OnlyTheColourPagesHaveColour) {
    std::vector<std::pair<int, int>> pairs;
    for (const Case& page : kPages) pairs.push_back({page.id, page.id + IDB_PAGE_COLOR_STEP});
    for (const auto& [grey, color] : pairs) {
        const Pixels greyPixels = Load(grey);
        const Pixels colorPixels = Load(color);
        EXPECT_TRUE(std::all_of(greyPixels.colors.begin(), greyPixels.colors.end(), IsGrey))
            << grey;
        const auto colored = std::count_if(colorPixels.colors.begin(), colorPixels.colors.end(),
                                           [](COLORREF value) { return !IsGrey(value); });
        EXPECT_GT(colored, 200) << color;
    }
}

// Each of these is the only sign of its setting, so that no two may look alike.
TEST(ViewPictures, TellTheirSettingsApart) {
    std::set<std::vector<COLORREF>> seen;
    const auto expectNew = [&seen](int id) {
        EXPECT_TRUE(seen.insert(Load(id).colors).second) << id;
    };
    for (const Case& test : kNumbers) expectNew(test.id);
    for (const Case& test : kPages) expectNew(test.id);
    for (const int id : {13837, 13839, 13841, 13843, 13845, 13847}) expectNew(id);
    for (int id = 14101; id <= 14115; id += 2) expectNew(id);
    for (const int id : {1469, 1470, 1471, 1472}) expectNew(id);
    for (int id = 13601; id <= 13612; ++id) expectNew(id);
}

double Luminance(COLORREF color) {
    const auto linear = [](int value) {
        const double share = value / 255.0;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(GetRValue(color)) + 0.7152 * linear(GetGValue(color)) +
           0.0722 * linear(GetBValue(color));
}

TEST(ViewPictures, WhiteLabelsAreReadableOnTheTile) {
    for (const COLORREF color : Load(IDB_VIEW_TILE).colors) {
        ASSERT_GE(1.05 / (Luminance(color) + 0.05), 4.5);
    }
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
