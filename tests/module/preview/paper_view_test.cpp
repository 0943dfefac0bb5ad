// The painted Paper View: watermarks and labels on it, reference pictures, and settings that no page
// would ever store.
#include "preview/paper_view.h"

#include <gtest/gtest.h>
#include <test_paths.h>
#include <png.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <random>

#include "preview/paper_labels.h"
#include "preview/watermark_text.h"
#include "tests/module/preview/painted_sheet.h"

namespace kvui {
namespace {

TEST(PaperLabels, DimensionsAreCutOffTheName) {
    const struct { const char* paper; const char* name; const char* dimensions; } rows[] = {
        {"A4 (210 x 297 mm)",             "A4 ",            "210 x 297 mm"},
        {"Letter (8 1/2 x 11 inch)",      "Letter ",        "8 1/2 x 11 inch"},
        {"Card (blue) (9 x 5 cm)",        "Card (blue) ",   "9 x 5 cm"},
        {"Card (9 x 5 cm) (blue)",        "Card (9 x 5 cm) (blue)", ""},
        {"Plain",                         "Plain",          ""},
        {"Open (12",                      "Open ",          "12"},
        {"(7)",                           "",               "7"},
        {"End (",                         "End (",          ""},
        {"",                              "",               ""},
        {"\xC4 (\xB2)",                   "\xC4 (\xB2)",    ""},
    };
    for (const auto& row : rows) {
        const PaperLabel label = SplitPaperName(row.paper);
        EXPECT_STREQ(label.name, row.name) << row.paper;
        EXPECT_STREQ(label.dimensions, row.dimensions) << row.paper;
    }
}

// The middle of the turned text is the centre, moved by the offsets.
TEST(WatermarkText, StandsAroundTheCentreMovedByItsOffsets) {
    const struct { LONG angle, x, y; int height, scale; POINT at; } rows[] = {
        {0,   0,   0,   20, 10, {100, 90}},
        {90,  0,   0,   20, 10, {91, 100}},   // the sine falls short of 1 by a hair
        {180, 0,   0,   20, 10, {100, 109}},
        {0,   72,  72,  20, 10, {110, 80}},
        {0,   -36, -36, 20, 10, {95, 95}},
        {-90, 0,   0,   20, 10, {109, 100}},
    };
    for (const auto& row : rows) {
        WatermarkRecord record{};
        record.angle = row.angle;
        record.offsetX = row.x;
        record.offsetY = row.y;
        const POINT at = WatermarkOrigin({100, 100}, row.height, record, row.scale);
        EXPECT_EQ(at.x, row.at.x) << row.angle << " " << row.x;
        EXPECT_EQ(at.y, row.at.y) << row.angle << " " << row.y;
    }
}

TEST(WatermarkText, FontFollowsTheScaleAndIsNeverTooSmallToSee) {
    const struct { DWORD size; LONG angle; int scale; LONG height, escapement; BYTE bold, italic; }
    rows[] = {
        {72, 45, 10, 10, 450, 0, 0}, {72, -30, 2, 3, -300, 1, 0}, {200, 0, 8, 22, 0, 0, 1},
        {0xFFFFFFFF, 0x7FFFFFFF, 8, 22, 1270, 1, 1}, {0, 0, 0, 3, 0, 0, 0},
    };
    for (const auto& row : rows) {
        WatermarkRecord record{};
        record.size = row.size;
        record.angle = row.angle;
        record.bold = row.bold;
        record.italic = row.italic;
        const LOGFONTA font = WatermarkFont(nullptr, record, row.scale);
        EXPECT_EQ(font.lfHeight, row.height) << row.size;
        EXPECT_EQ(font.lfEscapement, row.escapement) << row.angle;
        EXPECT_EQ(font.lfWeight, row.bold ? 700 : 400);
        EXPECT_EQ(font.lfItalic, row.italic);
    }
}

class PaperView : public testing::Test {
   protected:
    PaperView() {
        context().settings->dmPaperSize = 1;  // Letter, on which a watermark can be read
        context().settings->dmColor = 2;
        Settings().mdmDuplexMode = 1;
    }
    SheetContext& context() { return sheet.context; }
    PrivateDevmode& Settings() { return *sheet.context.privateSettings; }
    Pixels Paint() { return sheet.Paint(PaintPaperView); }

    // Adds a watermark to the list and chooses it.
    void ChooseWatermark(const char* text, LONG angle, BYTE red, BYTE green, BYTE blue,
                         DWORD size = 200) {
        WatermarkRecord record{};
        record.id = QDMMLTGetWatermarkID(sheet.shared.lists.handles[kListWatermark], 128, 0x7FFFFFFF);
        std::snprintf(record.name, sizeof record.name, "Test %u", static_cast<unsigned>(record.id));
        std::snprintf(record.text, sizeof record.text, "%s", text);
        std::snprintf(record.typeface, sizeof record.typeface, "Arial");
        record.size = size;
        record.bold = 1;
        record.angleMode = 4;
        record.angle = angle;
        record.red = red;
        record.green = green;
        record.blue = blue;
        ASSERT_NE(QDMMLTAddWatermark(sheet.shared.lists.handles[kListWatermark], &sheet.printer, &record,
                                     kScopeCommon), 0);
        Settings().mdmWatermark = record.id;
    }
    // Where two pictures differ.
    static std::vector<POINT> Differences(const Pixels& a, const Pixels& b) {
        std::vector<POINT> points;
        for (int y = 0; y < a.height; ++y) {
            for (int x = 0; x < a.width; ++x) {
                if (a.At(x, y) != b.At(x, y)) points.push_back({x, y});
            }
        }
        return points;
    }

    PaintedSheet sheet;
};

TEST_F(PaperView, WatermarksStayInTheirCellsAndOnTheFirstPageIfAsked) {
    Settings().mdmNup = 4;
    const Pixels plain = Paint();
    ChooseWatermark("WWWW", 30, 255, 0, 0);
    // Cells of the page at 47,64: 32 and 33 pixels wide, 46 and 47 high.
    bool cells[4] = {};
    for (const POINT& point : Differences(Paint(), plain)) {
        ASSERT_TRUE(point.x >= 47 && point.x < 112 && point.y >= 64 && point.y < 157);
        cells[(point.y >= 110 ? 2 : 0) + (point.x >= 79 ? 1 : 0)] = true;
    }
    for (const bool drawn : cells) EXPECT_TRUE(drawn);

    Settings().mdmWatermarkMode = kWatermarkFirstPage;
    const auto first = Differences(Paint(), plain);
    EXPECT_FALSE(first.empty());
    for (const POINT& point : first) ASSERT_TRUE(point.x < 79 && point.y < 110);
}

// A cell of so many pixels stands for the printable height of the paper, or for the whole height of a
// user's own, in whichever unit these are measured.
TEST_F(PaperView, WatermarksAreScaledByTheHeightOfThePaper) {
    CustomPaperRecord own{};
    own.id = 512;
    own.widthTenths = 1000;
    own.heightTenths = 2000;
    ASSERT_NE(QDMMLTAddPaper(sheet.shared.lists.handles[kListPaper], &sheet.printer, &own, kScopeCommon), 0);
    ChooseWatermark("H", 0, 0, 0, 0);
    const PaperArea letter = *QDMGetPaperArea(&sheet.printer, 1), a4 = *QDMGetPaperArea(&sheet.printer, 9);
    const struct { SHORT paper, orientation; double tenths; } rows[] = {
        {9, 1, a4.bottom - a4.top + 0.0}, {9, 2, a4.right - a4.left + 0.0},
        {1, 1, letter.bottom - letter.top + 0.0}, {1, 2, letter.right - letter.left + 0.0},
        {512, 1, 2000}, {512, 2, 1000},
    };
    constexpr SIZE kCell{1000, 2000};
    double share = 0;  // of the text's height that an H takes
    for (const auto& row : rows) {
        context().settings->dmPaperSize = row.paper;
        context().settings->dmOrientation = row.orientation;
        const Pixels drawn = sheet.Paint(
            [](SheetContext& context, HDC dc, SIZE size) {
                WatermarkPen(context).Draw(dc, {0, 0, size.cx, size.cy});
            }, kCell);
        int ink = 0;
        for (int y = 0; y < kCell.cy; ++y) {
            const auto begin = drawn.values.begin() + y * kCell.cx;
            ink += std::any_of(begin, begin + kCell.cx, [](DWORD pixel) { return pixel < 0x808080; });
        }
        // Points of an inch for inch papers; else the text is as many tenths of a millimetre high.
        const double scale = kCell.cy * 100 / (row.paper == 1 ? row.tenths / 2.54 : row.tenths);
        const double height = 200 * scale / 72;
        if (share == 0) share = ink / height;
        EXPECT_NEAR(ink, share * height, 2) << row.paper << " " << row.orientation;
        EXPECT_NEAR(share, 0.6, 0.05);
    }
    context().settings->dmPaperSize = 300;
    EXPECT_EQ(Differences(Paint(), (Settings().mdmWatermark = 0, Paint())).size(), 0u)
        << "a paper without a size";
}

TEST_F(PaperView, ARepeatedWatermarkCoversThePageAtEveryAngle) {
    const Pixels plain = Paint();
    for (const LONG angle : {0, 30, 45, 90, 135, -60, 180}) {
        ChooseWatermark("AB", angle, 0, 0, 255, 72);
        Settings().mdmWatermarkMode = 0;
        const size_t once = Differences(Paint(), plain).size();
        Settings().mdmWatermarkMode = kWatermarkRepeat;
        const auto repeated = Differences(Paint(), plain);
        EXPECT_GT(once, 20u) << angle;
        EXPECT_GT(repeated.size(), 10 * once) << angle;
        // In every ninth of the page.
        std::array<int, 9> ninths{};
        for (const POINT& point : repeated) ++ninths[(point.y - 64) / 31 * 3 + (point.x - 47) / 22];
        for (const int count : ninths) EXPECT_GT(count, 20) << angle;
    }
}

TEST_F(PaperView, WatermarksAreGreyInBlackAndWhiteAndNeverTooLight) {
    const struct { BYTE red, green, blue; SHORT mode; DWORD expected; } rows[] = {
        {250, 10, 20, 2, 0xFA0A14}, {250, 10, 20, 1, 0xDFDFDF}, {224, 0, 0, 1, 0xDFDFDF},
        {223, 0, 0, 1, 0xDFDFDF},   {100, 0, 0, 1, 0x646464},   {0, 200, 200, 1, 0x000000},
    };
    for (const auto& row : rows) {
        context().settings->dmColor = row.mode;
        Settings().mdmWatermark = 0;
        const Pixels plain = Paint();
        ChooseWatermark("MMM", 0, row.red, row.green, row.blue);
        Settings().mdmWatermarkMode = kWatermarkRepeat;
        const Pixels marked = Paint();
        int found = 0;
        for (const POINT& point : Differences(marked, plain)) {
            found += marked.At(point.x, point.y) == row.expected ? 1 : 0;
        }
        EXPECT_GT(found, 5) << int{row.red} << " in mode " << row.mode;
    }
}

// On a narrowing view they come close to the left edge, then go.
TEST_F(PaperView, DimensionsThatBeginTooFarLeftAreNotShown) {
    int shown = 0, hidden = 0;
    for (LONG width = 60; width < 120; ++width) {
        const Pixels picture = sheet.Paint(PaintPaperView, {width, 194});
        int first = width;
        for (int y = 18; y < 26; ++y) {  // the second line
            for (int x = 0; x < first; ++x) {
                if ((picture.At(x, y) & 0xFF) > 0xC0) first = x;
            }
        }
        if (first == width) {
            EXPECT_EQ(shown, 0) << width;
            ++hidden;
            continue;
        }
        ASSERT_GT(first, 30) << width;
        if (++shown == 1) { EXPECT_LT(first, 34) << width; }
    }
    EXPECT_GT(shown, 0);
    EXPECT_GT(hidden, 0);
}

// One picture a file, drawn with the fonts of the tests. KVPREFS_WRITE_REFERENCES=1 writes them anew.
TEST_F(PaperView, LooksAsItsReferencePicturesDo) {
    const struct {
        const char* name;
        SHORT orientation, colour, paper;
        DWORD nup, style, duplex, overlay, watermark, mode, output;
    } rows[] = {
        {"one-page",         1, 2, 9, 0,  0, 1, 0, 2, 0x10, 0},
        {"two-landscape",    2, 2, 9, 2,  4, 3, 0, 1, 0x10, 0},
        {"six-long-edge",    1, 1, 9, 6,  5, 2, 0, 0, 0,    8},
        {"sixteen-down",     1, 2, 1, 16, 7, 1, 0, 0, 0,    0},
        {"booklet-right",    2, 2, 9, 20, 0, 5, 0, 0, 0,    0},
        {"booklet-left",     1, 1, 9, 20, 4, 4, 1, 0, 0,    0},
        {"marked-repeated",  1, 2, 1, 4,  0, 3, 1, 1, 0x10, 11},
    };
    for (const auto& row : rows) {
        context().settings->dmOrientation = row.orientation;
        context().settings->dmColor = row.colour;
        context().settings->dmPaperSize = row.paper;
        Settings().mdmNup = row.nup;
        Settings().mdmNupStyle = row.style;
        Settings().mdmDuplexMode = row.duplex;
        Settings().mdmOverlay = row.overlay;
        Settings().mdmWatermark = row.watermark;
        Settings().mdmWatermarkMode = row.mode;
        Settings().mdmOutputPaper = row.output;
        const Pixels drawn = Paint();
        std::vector<png_byte> bytes;
        for (const DWORD pixel : drawn.values) {
            for (const int shift : {16, 8, 0}) bytes.push_back(static_cast<png_byte>(pixel >> shift));
        }
        png_image image{};
        image.version = PNG_IMAGE_VERSION;
        image.width = drawn.width;
        image.height = drawn.height;
        image.format = PNG_FORMAT_RGB;
        const std::string path =
            std::string(KV_SOURCE_DIR "/tests/module/preview/reference/") + row.name + ".png";
        if (std::getenv("KVPREFS_WRITE_REFERENCES") != nullptr) {
            ASSERT_NE(png_image_write_to_file(&image, path.c_str(), 0, bytes.data(), 0, nullptr), 0);
        }
        png_image stored{};
        stored.version = PNG_IMAGE_VERSION;
        ASSERT_NE(png_image_begin_read_from_file(&stored, path.c_str()), 0) << path;
        stored.format = PNG_FORMAT_RGB;
        std::vector<png_byte> expected(PNG_IMAGE_SIZE(stored));
        ASSERT_NE(png_image_finish_read(&stored, nullptr, expected.data(), 0, nullptr), 0) << path;
        ASSERT_EQ(stored.width, image.width) << path;
        ASSERT_EQ(stored.height, image.height) << path;
        EXPECT_TRUE(bytes == expected) << "differs from " << path;
    }
}

// Any bits in the record: the painter neither fails nor draws outside its picture. The sanitized build
// sees what a picture cannot show.
TEST_F(PaperView, DrawsAnySettingsOnAViewOfAnySize) {
    const unsigned seed = 20240607;
    std::mt19937 random(seed);
    const DWORD odd[] = {0, 1, 2, 4, 5, 6, 9, 16, 20, 102, 105, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF};
    const auto any = [&] { return odd[random() % std::size(odd)]; };
    const SIZE sizes[] = {{160, 194}, {1, 1}, {3, 500}, {700, 2}, {40, 40}};
    for (int i = 0; i < 400; ++i) {
        ChooseWatermark(i % 3 == 0 ? "" : "Any (text", 0, 1, 2, 3);
        WatermarkRecord record{};
        QDMMLTGetWatermarkWithID(sheet.shared.lists.handles[kListWatermark], &sheet.printer, &record,
                                 Settings().mdmWatermark);
        record.size = any();
        record.angle = static_cast<LONG>(any());
        record.offsetX = static_cast<LONG>(any());
        record.offsetY = static_cast<LONG>(any());
        if (i % 5 == 0) std::memset(record.text, 'x', sizeof record.text);
        if (i % 7 == 0) std::memset(record.typeface, 'y', sizeof record.typeface);
        QDMMLTUpdateWatermark(sheet.shared.lists.handles[kListWatermark], &sheet.printer, &record);
        if (i % 4 == 0) Settings().mdmWatermark = any();
        context().settings->dmOrientation = static_cast<SHORT>(any());
        context().settings->dmPaperSize = static_cast<SHORT>(i % 2 == 0 ? 9 : any());
        Settings().mdmNup = any();
        Settings().mdmNupStyle = any();
        Settings().mdmDuplexMode = any() % 7;
        Settings().mdmOverlay = any();
        Settings().mdmWatermarkMode = any();
        Settings().mdmOutputPaper = any();
        sheet.Paint(PaintPaperView, sizes[i % std::size(sizes)]);
        QDMMLTDeleteWatermark(sheet.shared.lists.handles[kListWatermark], &sheet.printer, record.id);
    }
    SUCCEED() << "seed " << seed;
}

}  // namespace
}  // namespace kvui
