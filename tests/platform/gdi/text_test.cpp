// Text: extents, alignment, rotation, DrawText layout, font matching and enumeration.
#include <tests/platform/gdi/drawing.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <map>
#include <numbers>
#include <string>

namespace kv::test {
namespace {

class Text : public ::testing::Test {
 protected:
    Text() : drawing(200, 200) {
        drawing.Fill(RGB(255, 255, 255));
        description.lfHeight = -16;
        std::strcpy(description.lfFaceName, "MS Sans Serif");
        SetBkMode(drawing.dc, TRANSPARENT);
        UseFont();
    }
    ~Text() override {
        SelectObject(drawing.dc, GetStockObject(SYSTEM_FONT));
        DeleteObject(font);
    }
    void UseFont() {
        const HFONT made = CreateFontIndirectA(&description);
        SelectObject(drawing.dc, made);
        EXPECT_TRUE(font == nullptr || DeleteObject(font));
        font = made;
    }
    SIZE Extent(const std::string& text) {
        SIZE size{};
        EXPECT_TRUE(
            GetTextExtentPoint32A(drawing.dc, text.c_str(), static_cast<int>(text.size()), &size));
        return size;
    }
    TEXTMETRICA Metrics() {
        TEXTMETRICA metrics{};
        EXPECT_TRUE(GetTextMetricsA(drawing.dc, &metrics));
        return metrics;
    }
    // Draws on fresh white and answers the box of ink.
    RECT Draw(int x, int y, const std::string& text, UINT align) {
        drawing.Fill(RGB(255, 255, 255));
        SetTextAlign(drawing.dc, align);
        EXPECT_TRUE(TextOutA(drawing.dc, x, y, text.c_str(), static_cast<int>(text.size())));
        return drawing.Ink(0xFFFFFF);
    }
    RECT DrawIn(RECT rect, const char* text, UINT format) {
        drawing.Fill(RGB(255, 255, 255));
        EXPECT_NE(DrawTextA(drawing.dc, text, -1, &rect, format), 0);
        return drawing.Ink(0xFFFFFF);
    }

    Drawing drawing;
    LOGFONTA description{};
    HFONT font{};
};

TEST_F(Text, HasTheSameSizeOnEveryMachine) {
    // Face, height, expected width of the sample, expected cell height.
    struct Row {
        const char* face;
        LONG height;
        LONG width;
        LONG cell;
    };
    // Widths follow from the units of the font files: rounded per letter, then added.
    const Row kRows[] = {
        {"MS Sans Serif", -11, 66, 13},    {"MS Shell Dlg", -11, 66, 13}, {"Arial", 20, 107, 20},
        {"Times New Roman", -24, 124, 28}, {"Courier New", -10, 72, 13},
    };
    for (const Row& row : kRows) {
        description.lfHeight = row.height;
        std::strncpy(description.lfFaceName, row.face, LF_FACESIZE - 1);
        UseFont();
        const SIZE size = Extent("Paper source");
        EXPECT_EQ(size.cx, row.width) << row.face;
        EXPECT_EQ(size.cy, row.cell) << row.face;
        EXPECT_EQ(Metrics().tmHeight, row.cell) << row.face;
        EXPECT_EQ(Metrics().tmAscent + Metrics().tmDescent, row.cell) << row.face;
    }
}

TEST_F(Text, ExtentsAddUpAndCodePageLettersHaveWidth) {
    EXPECT_EQ(Extent("").cx, 0);
    EXPECT_EQ(Extent("AB").cx, Extent("A").cx + Extent("B").cx);
    EXPECT_EQ(Extent("\xC4").cx, Extent("A").cx);  // A with dots
    EXPECT_EQ(Extent("\x96").cx, Extent("n").cx);  // en dash: half an em, like n here
    EXPECT_EQ(Extent("\x80").cx, Extent("0").cx);  // the euro sign is as wide as a figure
    description.lfWeight = FW_BOLD;
    const LONG regular = Extent("Wide").cx;
    UseFont();
    EXPECT_GT(Extent("Wide").cx, regular);
    SIZE size{};
    EXPECT_FALSE(GetTextExtentPoint32A(drawing.dc, "x", -1, &size));
    EXPECT_FALSE(GetTextExtentPoint32A(drawing.dc, nullptr, 1, &size));
}

TEST_F(Text, AlignmentPlacesTheReferencePoint) {
    const LONG width = Extent("HHH").cx;
    const TEXTMETRICA metrics = Metrics();
    const RECT left = Draw(100, 100, "HHH", TA_LEFT | TA_TOP);
    EXPECT_GE(left.left, 100);
    EXPECT_LE(left.right, 100 + width);
    EXPECT_EQ(left.bottom, 100 + metrics.tmAscent);  // H stands on the baseline
    struct Row {
        UINT align;
        LONG dx, dy;
    };
    const Row kRows[] = {
        {TA_RIGHT | TA_TOP, -width, 0},
        {TA_CENTER | TA_TOP, -width / 2, 0},
        {TA_LEFT | TA_BASELINE, 0, -metrics.tmAscent},
        {TA_LEFT | TA_BOTTOM, 0, -metrics.tmHeight},
        {TA_CENTER | TA_BASELINE, -width / 2, -metrics.tmAscent},
    };
    for (const Row& row : kRows) {
        const RECT ink = Draw(100, 100, "HHH", row.align);
        EXPECT_EQ(ink.left - left.left, row.dx) << row.align;
        EXPECT_EQ(ink.top - left.top, row.dy) << row.align;
    }
}

TEST_F(Text, EscapementTurnsTheTextCounterClockwiseAboutItsReferencePoint) {
    const double length = Extent("HHHHHH").cx;
    const double ascent = Metrics().tmAscent;
    for (int degrees = -180; degrees <= 180; degrees += 15) {
        description.lfEscapement = degrees * 10;
        UseFont();
        EXPECT_EQ(Extent("HHHHHH").cx, static_cast<LONG>(length));  // measured along the baseline
        const double c = std::cos(degrees * std::numbers::pi / 180);
        const double s = std::sin(degrees * std::numbers::pi / 180);
        for (const UINT align :
             {TA_LEFT | TA_BASELINE, TA_CENTER | TA_BASELINE, TA_LEFT | TA_TOP}) {
            // Middle of the ink: half the length along, half a capital above the baseline.
            const double along = (align & TA_CENTER) == TA_CENTER ? 0 : length / 2;
            const double capital = 16 * 0.729 / 2;
            const double below = ((align & TA_BASELINE) == TA_BASELINE ? 0 : ascent) - capital;
            const RECT ink = Draw(100, 100, "HHHHHH", align);
            EXPECT_NEAR((ink.left + ink.right) / 2.0, 100 + along * c + below * s, 1.6) << degrees;
            EXPECT_NEAR((ink.top + ink.bottom) / 2.0, 100 - along * s + below * c, 1.6) << degrees;
        }
    }
}

TEST_F(Text, OpaqueBackgroundCoversTheCell) {
    SetBkMode(drawing.dc, OPAQUE);
    SetBkColor(drawing.dc, RGB(0, 0, 255));
    const RECT box = Draw(50, 60, "abc", TA_LEFT);
    EXPECT_EQ(box.left, 50);
    EXPECT_EQ(box.top, 60);
    EXPECT_EQ(box.right, 50 + Extent("abc").cx);
    EXPECT_EQ(box.bottom, 60 + Metrics().tmHeight);
    description.lfEscapement = 900;
    UseFont();
    const RECT turned = Draw(50, 160, "abc", TA_LEFT);
    EXPECT_EQ(turned.left, 50);
    EXPECT_EQ(turned.bottom, 160);
    EXPECT_EQ(turned.right, 50 + Metrics().tmHeight);
    EXPECT_EQ(turned.top, 160 - Extent("abc").cx);
}

TEST_F(Text, ClippedTextIsTheSameTextCutOff) {
    Draw(40, 40, "Watermark", TA_LEFT);
    const auto whole = drawing.Pixels();
    drawing.Fill(RGB(255, 255, 255));
    IntersectClipRect(drawing.dc, 47, 45, 71, 52);
    Draw(40, 40, "Watermark", TA_LEFT);
    for (int y = 0; y < 200; ++y) {
        for (int x = 0; x < 200; ++x) {
            const bool inside = x >= 47 && x < 71 && y >= 45 && y < 52;
            const std::uint32_t wanted = whole[static_cast<std::size_t>(y * 200 + x)] & 0xFFFFFF;
            ASSERT_EQ(drawing.At(x, y), inside ? wanted : 0xFFFFFFu) << x << "," << y;
        }
    }
}

TEST_F(Text, UnderlineRunsBelowTheBaselineOverTheWholeWidth) {
    description.lfUnderline = 1;
    UseFont();
    const RECT ink = Draw(20, 20, "    ", TA_LEFT);
    EXPECT_EQ(ink.left, 20);
    EXPECT_EQ(ink.right, 20 + Extent("    ").cx);
    EXPECT_GT(ink.top, 20 + Metrics().tmAscent - 1);
    EXPECT_LE(ink.bottom, 20 + Metrics().tmHeight);
}

TEST_F(Text, ExtremeArgumentsDrawNothingAndDoNotFail) {
    const std::string many(70000, 'W');
    for (const LONG height : {INT_MIN, -5000, 0, 1, 5000, INT_MAX}) {
        for (const LONG escapement : {0, 450, INT_MAX, INT_MIN}) {
            description.lfHeight = height;
            description.lfEscapement = escapement;
            description.lfWidth = height;
            description.lfWeight = height;
            std::memset(description.lfFaceName, 'x', LF_FACESIZE);  // no terminator
            UseFont();
            EXPECT_TRUE(TextOutA(drawing.dc, INT_MAX, INT_MIN, "abc", 3));
            EXPECT_TRUE(TextOutA(drawing.dc, INT_MIN, INT_MAX, many.c_str(), 70000));
            EXPECT_GT(Metrics().tmHeight, 0);
        }
    }
}

TEST_F(Text, DrawTextPlacesOneLineInItsRectangle) {
    const RECT box{20, 30, 180, 90};
    const TEXTMETRICA metrics = Metrics();
    const RECT topLeft = DrawIn(box, "HH", DT_SINGLELINE);
    EXPECT_EQ(topLeft.bottom, 30 + metrics.tmAscent);
    const LONG spareX = 160 - Extent("HH").cx, spareY = 60 - metrics.tmHeight;
    struct Row {
        UINT format;
        LONG dx, dy;
    };
    const Row kRows[] = {
        {DT_SINGLELINE | DT_RIGHT, spareX, 0},
        {DT_SINGLELINE | DT_CENTER | DT_VCENTER, spareX / 2, spareY / 2},
        {DT_SINGLELINE | DT_BOTTOM, 0, spareY},
        {DT_VCENTER, 0, 0},  // only single lines are placed vertically
    };
    for (const Row& row : kRows) {
        const RECT ink = DrawIn(box, "HH", row.format);
        EXPECT_EQ(ink.left - topLeft.left, row.dx) << row.format;
        EXPECT_EQ(ink.top - topLeft.top, row.dy) << row.format;
    }
}

TEST_F(Text, DrawTextClipsUnlessToldNotTo) {
    const RECT box{20, 20, 30, 26};
    const RECT clipped = DrawIn(box, "HHHHHH", DT_SINGLELINE);
    EXPECT_LE(clipped.right, 30);
    EXPECT_LE(clipped.bottom, 26);
    EXPECT_GT(DrawIn(box, "HHHHHH", DT_SINGLELINE | DT_NOCLIP).right, 30);
}

TEST_F(Text, DrawTextMeasuresLinesAndWraps) {
    const LONG line = Metrics().tmHeight;
    struct Row {
        const char* text;
        UINT format;
        LONG lines;
        std::string widest;
    };
    const LONG room = Extent("one two").cx;
    const Row kRows[] = {
        {"one two three", DT_SINGLELINE, 1, "one two three"},
        {"one\ntwo\r\nthree", DT_LEFT, 3, "three"},
        {"one\n\nthree\n", DT_LEFT, 3, "three"},
        {"one two three", DT_WORDBREAK, 2, "one two"},
        {"one two three four", DT_WORDBREAK, 3, "one two"},
        {"one two", DT_WORDBREAK, 1, "one two"},
        {"A&B && C", DT_SINGLELINE, 1, "AB & C"},
        {"A&B && C", DT_SINGLELINE | DT_NOPREFIX, 1, "A&B && C"},
        {"", DT_SINGLELINE, 1, ""},
    };
    for (const Row& row : kRows) {
        RECT rect{5, 7, 5 + room, 9};
        EXPECT_EQ(DrawTextA(drawing.dc, row.text, -1, &rect, row.format | DT_CALCRECT),
                  row.lines * line)
            << row.text;
        EXPECT_EQ(rect.bottom, 7 + row.lines * line) << row.text;
        EXPECT_EQ(rect.right, 5 + Extent(row.widest).cx) << row.text;
    }
    EXPECT_EQ(drawing.Ink(0xFFFFFF).right, 0);  // measuring draws nothing
    RECT rect{0, 0, 1, 1};
    EXPECT_EQ(DrawTextA(drawing.dc, nullptr, -1, &rect, 0), 0);
}

TEST_F(Text, MnemonicIsUnderlined) {
    const RECT box{20, 20, 180, 60};
    const RECT plain = DrawIn(box, "HHH", DT_SINGLELINE);
    const RECT marked = DrawIn(box, "H&HH", DT_SINGLELINE);
    EXPECT_EQ(marked.left, plain.left);
    EXPECT_EQ(marked.right, plain.right);
    EXPECT_GT(marked.bottom, plain.bottom);
    const LONG from = 20 + Extent("H").cx, to = 20 + Extent("HH").cx;
    for (int x = 20; x < 80; ++x) {
        EXPECT_EQ(drawing.At(x, marked.bottom - 1) == 0, x >= from && x < to) << x;
    }
}

std::map<std::string, int> familiesSeen;
int limit = 0;
int CountFamily(const LOGFONTA* font, const TEXTMETRICA*, DWORD type, LPARAM param) {
    EXPECT_EQ(type, static_cast<DWORD>(TRUETYPE_FONTTYPE));
    EXPECT_EQ(param, 77);
    ++familiesSeen[font->lfFaceName];
    return --limit;
}

TEST_F(Text, EnumerationNamesEachFamilyOnceAndStopsWhenTold) {
    const auto enumerate = [&](const char* face, int most) {
        familiesSeen.clear();
        limit = most;
        LOGFONTA wanted{};
        std::strcpy(wanted.lfFaceName, face);
        return EnumFontFamiliesExA(drawing.dc, &wanted, CountFamily, 77, 0);
    };
    enumerate("", 1000);
    EXPECT_EQ(familiesSeen["Liberation Sans"], 1);
    EXPECT_EQ(familiesSeen["Liberation Serif"], 1);
    for (const auto& [name, count] : familiesSeen) EXPECT_EQ(count, 1) << name;
    enumerate("liberation serif", 1000);
    ASSERT_EQ(familiesSeen.size(), 1u);
    EXPECT_EQ(familiesSeen["Liberation Serif"], 4);  // regular, bold, italic, bold italic
    EXPECT_EQ(enumerate("", 1), 0);
    EXPECT_EQ(familiesSeen.size(), 1u);
    enumerate("No such family", 1000);
    EXPECT_TRUE(familiesSeen.empty());
}

}  // namespace
}  // namespace kv::test
