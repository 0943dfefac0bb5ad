// What the Paper View consists of, for every combination of the settings that it reads. The expected
// places are those of a view of 160 x 194 pixels, worked out by hand from the sizes that the pictures
// must have.
#include "preview/paper_plan.h"

#include <gtest/gtest.h>

#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace kvui {

bool operator==(const Layer& a, const Layer& b) {
    return a.kind == b.kind && a.id.picture == b.id.picture && a.id.mask == b.id.mask &&
           a.box.left == b.box.left && a.box.top == b.box.top && a.box.right == b.box.right &&
           a.box.bottom == b.box.bottom;
}

void PrintTo(const Layer& layer, std::ostream* out) {
    *out << (layer.kind == LayerKind::kPicture     ? "picture "
             : layer.kind == LayerKind::kWatermark ? "watermark "
                                                   : "labels ")
         << layer.id.picture << "/" << layer.id.mask << " at " << layer.box.left << ","
         << layer.box.top << "-" << layer.box.right << "," << layer.box.bottom;
}

namespace {

constexpr SIZE kView{160, 194};

// The module's pictures by their sizes; some may be missing.
class Pictures : public PictureSizes {
   public:
    bool SizeOf(PictureId id, SIZE& size) override {
        if (id.mask != 0 && Load(id.mask).cx == 0) return false;
        size = Load(id.picture);
        return size.cx != 0;
    }
    WORD missing = 0;

   private:
    SIZE Load(WORD id) {
        if (id == missing) return {};
        const auto [known, isNew] = sizes_.try_emplace(id);
        if (isNew) {
            const HBITMAP bitmap = LoadBitmapA(nullptr, MAKEINTRESOURCEA(id));
            BITMAP info{};
            GetObjectA(bitmap, sizeof info, &info);
            known->second = {info.bmWidth, info.bmHeight};
            DeleteObject(bitmap);
        }
        return known->second;
    }
    std::map<WORD, SIZE> sizes_;
};

struct Place {
    int id, mask, x, y, width, height;
};
Layer PictureAt(const Place& place) {
    return {LayerKind::kPicture,
            {static_cast<WORD>(place.id), static_cast<WORD>(place.mask)},
            {place.x, place.y, place.x + place.width, place.y + place.height}};
}

// Two-sided and single sheets by shape; booklets by document and binding (4 left, 5 right).
const Place kSingle[2] = {{13847, 13848, 35, 52, 93, 121}, {13845, 13846, 21, 66, 121, 93}};
const Place kBooklet[2][2] = {{{13839, 13840, 35, 49, 96, 138}, {13841, 13842, 33, 49, 96, 138}},
                              {{13843, 13844, 7, 65, 138, 96}, {13837, 13838, 18, 63, 138, 96}}};
const Place kFrame[2] = {{13604, 0, 46, 63, 67, 95}, {13603, 0, 32, 77, 95, 67}};
const Place kOverlayForm[2] = {{13452, 0, 44, 61, 71, 99}, {13451, 0, 30, 75, 99, 71}};
// Place of the page by shape.
const RECT kPage[2] = {{47, 64, 112, 157}, {33, 78, 126, 143}};

// mdmNup, document; shape of the sheet; page; grid; columns, rows; the numbers of the corners (upper
// left, upper right, lower left, lower right) for the four orders, 0 where there is no such cell.
struct Expected {
    DWORD nup;
    int document;
    int shape;
    int page;
    int grid;
    int columns, rows;
    int corners[4][4];
};
const Expected kExpected[] = {
    {0, 0, 0, 13810, 13604, 1, 1, {{1}, {1}, {1}, {1}}},
    {0, 1, 1, 13807, 13603, 1, 1, {{1}, {1}, {1}, {1}}},
    {2, 0, 1, 13813, 13605, 2, 1, {{1, 2}, {2, 1}, {1, 2}, {2, 1}}},
    {2, 1, 0, 13816, 13606, 1, 2, {{1, 0, 2}, {1, 0, 2}, {1, 0, 2}, {1, 0, 2}}},
    {4, 0, 0, 13822, 13608, 2, 2, {{1, 2, 3, 4}, {2, 1, 4, 3}, {1, 3, 2, 4}, {3, 1, 4, 2}}},
    {4, 1, 1, 13819, 13607, 2, 2, {{1, 2, 3, 4}, {2, 1, 4, 3}, {1, 3, 2, 4}, {3, 1, 4, 2}}},
    {6, 0, 1, 13825, 13609, 3, 2, {{1, 3, 4, 6}, {3, 1, 6, 4}, {1, 5, 2, 6}, {5, 1, 6, 2}}},
    {6, 1, 0, 13828, 13610, 2, 3, {{1, 2, 5, 6}, {2, 1, 6, 5}, {1, 4, 3, 6}, {4, 1, 6, 3}}},
    {9, 0, 0, 13834, 13612, 3, 3, {{1, 3, 7, 9}, {3, 1, 9, 7}, {1, 7, 3, 9}, {7, 1, 9, 3}}},
    {9, 1, 1, 13831, 13611, 3, 3, {{1, 3, 7, 9}, {3, 1, 9, 7}, {1, 7, 3, 9}, {7, 1, 9, 3}}},
    {16, 0, 0, 13804, 13602, 4, 4,
     {{1, 4, 13, 16}, {4, 1, 16, 13}, {1, 13, 4, 16}, {13, 1, 16, 4}}},
    {16, 1, 1, 13801, 13601, 4, 4,
     {{1, 4, 13, 16}, {4, 1, 16, 13}, {1, 13, 4, 16}, {13, 1, 16, 4}}},
    {20, 0, 0, 13810, 0, 1, 1, {{1}, {1}, {1}, {1}}},
    {20, 1, 1, 13807, 0, 1, 1, {{1}, {1}, {1}, {1}}},
};

// Bar and arrow by document, layout (0 wide, 1 narrow) and edge (0 long, 1 short), in their places.
struct Binding {
    Place bar, arrow;
};
const Binding kBinding[2][2][2] = {
    {{{{13506, 0, 35, 52, 7, 114}, {13717, 13718, 99, 53, 24, 115}},
      {{13511, 0, 35, 53, 86, 7}, {13713, 13714, 36, 145, 87, 23}}},
     {{{13501, 0, 21, 67, 114, 7}, {13705, 13706, 22, 130, 115, 24}},
      {{13516, 0, 21, 66, 7, 86}, {13709, 13710, 114, 67, 23, 87}}}},
    {{{{13501, 0, 21, 67, 114, 7}, {13705, 13706, 22, 130, 115, 24}},
      {{13516, 0, 21, 66, 7, 86}, {13709, 13710, 114, 67, 23, 87}}},
     {{{13506, 0, 35, 52, 7, 114}, {13713, 13714, 36, 145, 87, 23}},
      {{13511, 0, 35, 53, 86, 7}, {13717, 13718, 99, 53, 24, 115}}}},
};

void AddNumbers(const Expected& row, DWORD order, std::vector<Layer>& layers) {
    const RECT& page = kPage[row.shape];
    const int width = page.right - page.left, height = page.bottom - page.top;
    for (int corner = 0; corner < 4; ++corner) {
        const int number = row.corners[order][corner];
        if (number == 0) continue;
        const bool right = corner % 2 == 1, lower = corner / 2 == 1;
        const int wide = number == 1 ? 8 : number < 10 ? 9 : 15;
        // Edges of the corner's cell.
        const int from = right ? page.left + width * (row.columns - 1) / row.columns : page.left;
        const int to = right ? page.right : page.left + width / row.columns;
        int foot = lower ? page.bottom : page.top + height / row.rows;
        if (!lower && (row.nup == 9 || row.nup == 16)) foot -= 1;
        if (!lower && row.nup == 6 && row.document == 1) foot -= 2;
        const int id = 13400 + 2 * number - 1;
        layers.push_back(PictureAt({id, id + 1, from + (to - from - wide) / 2, foot - 13, wide, 13}));
    }
}

TEST(PaperPlan, DrawsTheSheetOfEveryCombinationOfSettings) {
    Pictures pictures;
    for (const Expected& row : kExpected) {
        const int narrow = row.nup == 2 || row.nup == 6 ? 1 : 0;
        const RECT& page = kPage[row.shape];
        for (unsigned choice = 0; choice < 8 * 5 * 2 * 2 * 3; ++choice) {
            const DWORD style = choice % 8, duplex = choice / 8 % 5 + 1;
            const bool colour = choice / 40 % 2 == 1;
            const DWORD overlay = choice / 80 % 2, mark = choice / 160;  // 2: first page only
            std::vector<Layer> expected;
            expected.push_back(PictureAt(duplex <= 3 ? kSingle[row.shape]
                                                     : kBooklet[row.document][duplex - 4]));
            expected.push_back(PictureAt({row.page + (colour ? 100 : 0), 0, page.left, page.top,
                                          page.right - page.left, page.bottom - page.top}));
            if (style & 4) {
                expected.push_back(PictureAt(kFrame[row.shape]));
                if (row.nup == 0) expected.push_back(PictureAt(kFrame[row.shape]));
                if (row.nup != 0 && row.nup != 20) {
                    expected.push_back(PictureAt({row.grid, 0, page.left - 1, page.top - 1,
                                                  page.right - page.left + 2,
                                                  page.bottom - page.top + 2}));
                }
            }
            AddNumbers(row, style % 4, expected);
            const bool bound = duplex == 2 || duplex == 3;
            const Binding& binding = kBinding[row.document][narrow][duplex == 3 ? 1 : 0];
            if (bound) expected.push_back(PictureAt(binding.bar));
            if (overlay) expected.push_back(PictureAt(kOverlayForm[row.shape]));
            const size_t beforeMarks = expected.size();
            const int marks = mark == 0 ? 0 : mark == 2 ? 1 : row.columns * row.rows;
            for (int i = 0; i < marks; ++i) expected.push_back({LayerKind::kWatermark, {}, {}});
            if (bound) expected.push_back(PictureAt(binding.arrow));
            expected.push_back({LayerKind::kLabels, {}, {}});

            const PaperSettings settings{row.document == 1 ? Shape::kLandscape : Shape::kPortrait,
                                         colour, row.nup, style, duplex, overlay, mark,
                                         mark == 2 ? 1u : 0u};
            const LayerList list = PlanPaperView(settings, kView, pictures);
            std::vector<Layer> drawn(list.begin(), list.end());
            ASSERT_EQ(drawn.size(), expected.size()) << row.nup << " " << row.document << " " << choice;
            // The cells cover the page without gaps, from its upper left corner.
            int area = 0;
            for (int i = 0; i < marks; ++i) {
                RECT& cell = drawn[beforeMarks + i].box;
                if (i == 0) {
                    EXPECT_EQ(cell.left, page.left);
                    EXPECT_EQ(cell.top, page.top);
                }
                area += (cell.right - cell.left) * (cell.bottom - cell.top);
                cell = {};
            }
            if (marks == row.columns * row.rows) { ASSERT_EQ(area, 93 * 65); }
            ASSERT_EQ(drawn, expected) << row.nup << " " << row.document << " " << choice;
        }
    }
}

TEST(PaperPlan, DrawsNothingForADuplexModeThatDoesNotExist) {
    Pictures pictures;
    for (const DWORD duplex : {0u, 6u, 0xFFFFFFFFu}) {
        EXPECT_EQ(PlanPaperView({Shape::kPortrait, true, 0, 0, duplex, 1, 1, 0}, kView, pictures).count,
                  0);
    }
}

TEST(PaperPlan, TakesUnknownNumbersOfPagesForOne) {
    Pictures pictures;
    for (const DWORD nup : {1u, 3u, 100u, 102u, 105u, 0x80000000u}) {
        const LayerList list =
            PlanPaperView({Shape::kPortrait, false, nup, 0xFFFFFFFF, 1, 0, 0, 0}, kView, pictures);
        ASSERT_EQ(list.count, 6) << nup;
        EXPECT_EQ(list.rows[1].id.picture, 13810) << nup;
        EXPECT_EQ(list.rows[4].id.picture, 13401) << nup;
    }
}

TEST(PaperPlan, ShowsTheSheetsOfAPosterOnASingleSheet) {
    Pictures pictures;
    const auto sheetOf = [&](Shape document, DWORD nup, DWORD duplex) {
        return PlanPaperView({document, true, nup, 0, duplex, 0, 0, 0}, kView, pictures).rows[0];
    };
    for (int i = 0; i < 4; ++i) {
        const DWORD nup = 102 + i;
        Place landscape = kSingle[1], portrait = kSingle[0];
        landscape.id = 14101 + 4 * i;
        portrait.id = landscape.id + 2;
        for (Place* place : {&landscape, &portrait}) place->mask = place->id + 1;
        for (const DWORD duplex : {1u, 3u}) {
            EXPECT_EQ(sheetOf(Shape::kLandscape, nup, duplex), PictureAt(landscape)) << nup;
            EXPECT_EQ(sheetOf(Shape::kPortrait, nup, duplex), PictureAt(portrait)) << nup;
        }
        EXPECT_EQ(sheetOf(Shape::kPortrait, nup, 4), PictureAt(kBooklet[0][0])) << nup;
    }
    EXPECT_EQ(sheetOf(Shape::kPortrait, 106, 1), PictureAt(kSingle[0]));
}

// Removing any picture keeps what stands before it and loses what would follow.
TEST(PaperPlan, EndsAtAPictureThatCannotBeLoaded) {
    const PaperSettings settings{Shape::kPortrait, true, 16, 7, 2, 1, 1, 0};
    Pictures all;
    const LayerList whole = PlanPaperView(settings, kView, all);
    ASSERT_EQ(whole.count, kMostLayers);
    for (int i = 0; i < whole.count; ++i) {
        for (const WORD missing : {whole.rows[i].id.picture, whole.rows[i].id.mask}) {
            if (missing == 0) continue;
            Pictures some;
            some.missing = missing;
            const LayerList list = PlanPaperView(settings, kView, some);
            EXPECT_EQ(list.count, i) << missing;
            EXPECT_TRUE(std::equal(list.begin(), list.end(), whole.begin())) << missing;
        }
    }
}

}  // namespace
}  // namespace kvui
