// What the users' lists and the printer's data say of papers, watermarks and overlays.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <string_view>

#include "lists/overlay_store.h"
#include "lists/paper_size.h"
#include "lists/watermark_angle.h"
#include "tests/module/preview/painted_sheet.h"
#include "tests/support/printer_data.h"

namespace kvui {
namespace {

class Lists : public testing::Test {
 protected:
    void AddPaper(DWORD id, DWORD unit, DWORD width, DWORD height) {
        CustomPaperRecord paper{};
        paper.id = id;
        paper.unit = unit;
        (unit == 0 ? paper.widthTenths : paper.widthInches) = width;
        (unit == 0 ? paper.heightTenths : paper.heightInches) = height;
        ASSERT_NE(
            QDMMLTAddPaper(sheet.shared.lists.handles[kListPaper], &sheet.printer, &paper, kScopeCommon),
            0);
    }
    PaintedSheet sheet;
};

TEST_F(Lists, PapersHaveTheSizeOfTheirUnit) {
    AddPaper(600, 0, 1000, 2000);
    AddPaper(601, 1, 8 << 16 | 8, 11 << 16 | 15);
    const struct { LONG code; bool known; LONG width, length, unit; } rows[] = {
        {9, true, 2100, 2970, kPaperUnitMillimetre},
        {1, true, 850, 1100, kPaperUnitInch},
        {600, true, 1000, 2000, kPaperUnitMillimetre},
        {601, true, 850, 1193, kPaperUnitInch},
        {300, false, 0, 0, 0},
        {699, false, 0, 0, 0},
    };
    for (const auto& row : rows) {
        PaperSizeInfo size{};
        EXPECT_EQ(PaperSizeOfCode(sheet.context, row.code, size), row.known) << row.code;
        if (!row.known) continue;
        EXPECT_EQ(size.width, row.width) << row.code;
        EXPECT_EQ(size.length, row.length) << row.code;
        EXPECT_EQ(size.unit, row.unit) << row.code;
    }
    sheet.context.shared = nullptr;
    PaperSizeInfo size{};
    EXPECT_FALSE(PaperSizeOfCode(sheet.context, 600, size)) << "no sheet, no list";
}

TEST_F(Lists, AChosenDiagonalWatermarkTurnsWithThePaper) {
    AddPaper(600, 0, 3000, 1000);
    WatermarkRecord fixed{};
    fixed.id = 200;
    fixed.angleMode = 4;
    fixed.angle = 10;
    const ListHandle list = sheet.shared.lists.handles[kListWatermark];
    ASSERT_NE(QDMMLTAddWatermark(list, &sheet.printer, &fixed, kScopeCommon), 0);
    const struct { SHORT paper, orientation; DWORD watermark; LONG angle; DWORD flags; } rows[] = {
        {9, 1, 1, 54, 0x200},   {9, 2, 1, 35, 0x300},   {600, 1, 1, 71, 0x200},
        {600, 2, 1, 18, 0x300}, {300, 1, 1, 45, 0x200}, {9, 2, 200, 10, 0x300},
    };
    PrivateDevmode& settings = *sheet.context.privateSettings;
    for (const auto& row : rows) {
        sheet.context.settings->dmPaperSize = row.paper;
        sheet.context.settings->dmOrientation = row.orientation;
        settings.mdmWatermark = row.watermark;
        UpdateChosenWatermark(sheet.context);
        WatermarkRecord listed{}, copied{};
        ASSERT_NE(QDMMLTGetWatermarkWithID(list, &sheet.printer, &listed, row.watermark), 0);
        std::memcpy(&copied, settings.watermarkRecord, sizeof copied);
        EXPECT_EQ(copied.id, row.watermark);
        EXPECT_EQ(copied.angle, row.angle) << row.paper << " " << row.orientation;
        EXPECT_EQ(listed.angle, row.angle) << "the list holds it too";
        EXPECT_EQ(settings.mdmOtherSettings & 0x300, row.flags) << row.paper;
    }
    WatermarkRecord record{};
    EXPECT_FALSE(FetchWatermark(sheet.context, 999, record));
}

TEST_F(Lists, OverlaysAreFoundByTheirNumberInThePrintersData) {
    using namespace std::string_literals;
    const std::string data = "12=Twelve\0" "1=First;rest\0" "2=\0" "3=C:\\Forms\\Three.frm;\0"s;
    const char name[] = "[FormOverlayPath]";
    kvtest::PutPrinterData(sheet.printer.printerName, name, REG_MULTI_SZ, data);
    const struct { DWORD id; bool found; const char* text; } rows[] = {
        {1, true, "First"}, {12, true, "Twelve"}, {2, true, ""}, {3, true, "C:\\Forms\\Three.frm"},
        {4, false, ""},     {0, false, ""},
    };
    for (const auto& row : rows) {
        char text[261] = "before", cut[4] = "xyz";
        EXPECT_EQ(ReadOverlayEntry(sheet.context, name, row.id, text, sizeof text), row.found)
            << row.id;
        EXPECT_STREQ(text, row.text);
        ReadOverlayEntry(sheet.context, name, row.id, cut, sizeof cut);
        EXPECT_EQ(cut, std::string(row.text).substr(0, 3));
        sheet.context.privateSettings->mdmOverlay = row.id;
        ReadChosenOverlayPath(sheet.context);
        EXPECT_STREQ(sheet.context.overlayPath, row.text);
    }
}

}  // namespace
}  // namespace kvui
