// The printer's figure and the strip: which pictures, how they are laid over each other, and the
// same in words.
#include <windows.h>

#include <commctrl.h>

#include "preview/figure_plan.h"
#include "preview/printer_figure.h"
#include "preview/state_strip.h"
#include "preview/view_words.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "tests/module/preview/painted_sheet.h"

namespace kvui {
namespace {

using testing::ElementsAreArray;

TEST(FigurePlan, LaysOptionsInTheirOrderThenSourceThenOutput) {
    // options, source, output, mailboxes, pictures
    const struct {
        DWORD installed;
        SHORT source;
        DWORD output, bins;
        std::vector<int> pictures;
    } rows[] = {
        {0x1, 1, 65, 0, {500, 551, 965}},
        {0x9, 7, 65, 0, {500, 503, 557, 965}},
        {0x8D, 4, 65, 0, {500, 502, 503, 507, 554, 965}},
        {0x401D, 11, 65, 0, {500, 502, 503, 504, 542, 850, 965}},
        {0x4001, 11, 65, 0, {500, 543, 851, 965}},
        {0x480001, 1, 76, 0, {500, 519, 540, 551, 1002}},
        {0x500001, 1, 76, 0, {500, 520, 541, 551, 1005}},
        {0x400001, 1, 76, 0, {500, 551, 976}},
        {0x401, 1, 69, 0x700, {500, 510, 551, 908}},
        {0x401, 1, 69, 0x400, {500, 510, 551, 910}},
        {0x401, 1, 69, 0x801, {500, 510, 551, 911}},
        {0x401, 1, 75, 0, {500, 510, 551, 1009}},
        {0x1001, 1, 76, 0, {500, 512, 551, 1008}},
        {0x1001, 1, 77, 0, {500, 512, 551, 977}},
        {0x10401, 1, 77, 0, {500, 510, 516, 551, 1003}},
        {0x20001, 1, 75, 0, {500, 517, 551, 1004}},
        {0xFE000000, 1, 1, 0, {551, 901}},
        {0x1, -51, 0x7FFFFFFF, 0, {500}},
        {0x1, 32767, 0xFFFFFC7C, 0, {500}},
    };
    for (const auto& row : rows) {
        DEVMODEA settings{};
        PrivateDevmode own{};
        settings.dmDefaultSource = row.source;
        own.mdmInstalledOptions = row.installed;
        own.mdmOutBin = row.output;
        own.mdmMailBins = row.bins;
        const FigureLayers layers = FigureLayersOf(settings, own, 14002);
        std::vector<int> pictures;
        for (int i = 0; i < layers.count; ++i) {
            EXPECT_EQ(layers.layer[i].controlId, 14002u);
            pictures.push_back(layers.layer[i].picture);
        }
        EXPECT_THAT(pictures, ElementsAreArray(row.pictures)) << std::hex << row.installed;
    }
    // Every bit at once is as many as there are.
    PrivateDevmode all{};
    all.mdmInstalledOptions = 0xFFFFFFFF;
    EXPECT_EQ(FigureLayersOf({}, all, 0).count, kMostFigureLayers);
}

TEST(FigurePlan, WholePrintersAndStatesHaveTheirPictures) {
    const std::pair<DWORD, WORD> wholes[] = {{0x1, 1120},  {0x81, 1122}, {0x5, 1124},
                                             {0x85, 1126}, {0xD, 1128},  {0x8D, 1130},
                                             {0x9, 1120},  {0x0, 1120},  {0x80411D, 1128}};
    for (const auto& [installed, picture] : wholes) {
        EXPECT_EQ(WholePrinterPicture(installed), picture) << std::hex << installed;
    }
    // overlay, watermark, its mode, colour, the three pictures
    const struct {
        DWORD overlay, watermark, mode;
        SHORT colour;
        WORD pictures[3];
    } rows[] = {
        {0, 0, 0, 2, {13026, 13029, 13035}}, {0, 0, 2, 1, {13026, 13029, 13036}},
        {1, 1, 0, 2, {13025, 13030, 13035}}, {1, 1, 0x11, 1, {13037, 13031, 13036}},
        {2, 5, 2, 2, {13025, 13032, 13035}}, {2, 5, 3, 1, {13037, 13033, 13036}},
    };
    for (const auto& row : rows) {
        DEVMODEA settings{};
        PrivateDevmode own{};
        settings.dmColor = row.colour;
        own.mdmOverlay = row.overlay;
        own.mdmWatermark = row.watermark;
        own.mdmWatermarkMode = row.mode;
        for (int icon = 0; icon < kStateIconCount; ++icon) {
            EXPECT_EQ(StatePictureOf(static_cast<StateIcon>(icon), settings, own).picture,
                      row.pictures[icon]);
        }
    }
}

using Values = std::vector<DWORD>;

Values PictureOf(const SheetContext& context, WORD id) {
    const HBITMAP bitmap = LoadBitmapA(context.resources, MAKEINTRESOURCEA(id));
    BITMAP description{};
    if (bitmap == nullptr || !GetObjectA(bitmap, sizeof description, &description)) return {};
    const kvtest::Canvas canvas(description.bmWidth, description.bmHeight);
    const HDC source = CreateCompatibleDC(canvas.dc);
    const HGDIOBJ before = SelectObject(source, bitmap);
    BitBlt(canvas.dc, 0, 0, description.bmWidth, description.bmHeight, source, 0, 0, SRCCOPY);
    SelectObject(source, before);
    DeleteDC(source);
    DeleteObject(bitmap);
    return canvas.Read().values;
}

// Each pixel is that of the topmost layer that is not white there, else the window's background.
TEST(PrinterFigure, LetsEachLayerCoverWhatLiesBelow) {
    PaintedSheet sheet;
    sheet.shared.life.initialised = TRUE;
    sheet.Set("mdmInstalledOptions", 0x8409D);
    sheet.Set("dmDefaultSource", 3);
    sheet.Set("mdmOutBin", 76);
    const Values painted = sheet.Paint(PaintPrinterFigure).values;
    const COLORREF ground = GetSysColor(COLOR_WINDOW);
    const DWORD window = GetRValue(ground) << 16 | GetGValue(ground) << 8 | GetBValue(ground);
    Values expected(painted.size(), window);
    int layers = 0;
    for (const WORD id : {500, 502, 503, 504, 507, 519, 542, 553, 1002}) {
        const Values layer = PictureOf(sheet.context, id);
        if (layer.empty()) continue;
        ++layers;
        ASSERT_EQ(layer.size(), expected.size()) << id;
        for (size_t i = 0; i < layer.size(); ++i) {
            if (layer[i] != 0xFFFFFF) expected[i] = layer[i];
        }
    }
    EXPECT_EQ(layers, 9);
    EXPECT_TRUE(painted == expected);
    // The other model code: one picture and its lights, fitted into the view.
    const size_t modelCode = offsetof(PrivateDevmode, printerModelCode);
    reinterpret_cast<BYTE*>(sheet.context.privateSettings)[modelCode] = kWholeFigureModel;
    const Values whole = sheet.Paint(PaintPrinterFigure, {137, 161}).values;
    const Values first = PictureOf(sheet.context, 1130), lights = PictureOf(sheet.context, 1131);
    ASSERT_EQ(whole.size(), first.size());
    for (size_t i = 0; i < whole.size(); ++i) {
        ASSERT_EQ(whole[i], first[i] | lights[i]) << i;
    }
}

TEST(PrinterFigure, IsToldInWordsAndTheStripInTips) {
    PaintedSheet sheet;
    sheet.shared.lists.handles[kListBin0] = QDMMLTReadBin(&sheet.printer, 0);
    sheet.Set("mdmInstalledOptions", 0x85);
    sheet.Set("dmDefaultSource", 2);
    sheet.Set("mdmOutBin", 65);
    char text[512] = "";
    DescribePrinter(sheet.context, text, sizeof text);
    EXPECT_STREQ(
        text,
        "The printer, with Tray 2, Duplex Option, paper from Tray 2, output to Top Output Bin");
    const HWND strip = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 160, 108, nullptr, nullptr,
                                       nullptr, nullptr);
    const auto tip = [&](UINT_PTR icon) {
        char buffer[256] = "";
        TOOLINFOA tool{};
        tool.cbSize = sizeof tool;
        tool.hwnd = strip;
        tool.uId = icon;
        tool.lpszText = buffer;
        SendMessageA(sheet.shared.preview.stateTips, TTM_GETTEXTA, sizeof buffer,
                     reinterpret_cast<LPARAM>(&tool));
        return std::string(buffer);
    };
    UpdateStateTips(sheet.context, strip);
    EXPECT_EQ(tip(kStateColour), "Color: Color");
    sheet.Set("dmColor", 1);
    sheet.Set("mdmWatermark", 1);
    UpdateStateTips(sheet.context, strip);
    EXPECT_EQ(tip(kStateColour), "Color: Grayscale");
    WatermarkRecord record{};
    ASSERT_TRUE(QDMMLTGetWatermarkWithID(sheet.shared.lists.handles[kListWatermark], &sheet.printer,
                                         &record, 1));
    EXPECT_EQ(tip(kStateWatermark), std::string("Watermark: ") + record.name);
    EXPECT_EQ(tip(kStateOverlay), "Overlay: none");
    EXPECT_EQ(SendMessageA(sheet.shared.preview.stateTips, TTM_GETTOOLCOUNT, 0, 0), 3);
    DestroyStateTips(sheet.shared);
    DestroyWindow(strip);
    QDMMLTCancelBin(sheet.shared.lists.handles[kListBin0], &sheet.printer);
}

}  // namespace
}  // namespace kvui
