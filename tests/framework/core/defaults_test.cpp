// Default records, printer values, paper data and strings of the served model.
#include <framework/core/description.h>

#include <cstring>
#include <vector>

#include "module/sheet/private_devmode.h"
#include "tests/support/printer_fixture.h"

namespace kvtest {
namespace {

class CoreServices : public PrinterTest {
 protected:
    const kvui::PrivateDevmode& Defaults() {
        std::memset(bytes, 0xEE, sizeof bytes);
        EXPECT_TRUE(QDMGetStdDefaults(&printer, bytes, nullptr));
        return *kvui::PrivatePart(&Record());
    }
    DEVMODEA& Record() { return *reinterpret_cast<DEVMODEA*>(bytes); }
    // The region of the user's profile: country 1 is abroad, 2 North America; measure 0 is metric.
    static void SetRegion(const char* country, const char* measure) {
        WritePrivateProfileStringA("intl", "iCountry", country, "WIN.INI");
        WritePrivateProfileStringA("intl", "iMeasure", measure, "WIN.INI");
    }

    alignas(DEVMODEA) BYTE bytes[kvui::kRecordSize];
};

TEST_F(CoreServices, DefaultsFillAWholeRecordThatIsConsistent) {
    SetRegion("1", "0");
    const kvui::PrivateDevmode& settings = Defaults();
    const DEVMODEA& record = Record();
    EXPECT_STREQ(reinterpret_cast<const char*>(record.dmDeviceName), kPrinter);
    EXPECT_EQ(record.dmSize, 156);
    EXPECT_EQ(record.dmSize + record.dmDriverExtra, 1296);
    EXPECT_EQ(record.dmPaperSize, 9);
    // Nobody keeps these true when the paper or the collation changes.
    EXPECT_EQ(record.dmFields, 0x7F03u);
    EXPECT_EQ(record.dmPaperWidth, 0);
    EXPECT_EQ(record.dmPaperLength, 0);
    EXPECT_EQ(record.dmCollate, 0);
    EXPECT_EQ(record.dmFormName[0], 0);
    EXPECT_EQ(record.dmColor, 2);
    EXPECT_EQ(settings.mdmOtherSettings & kvui::kOtherColor, kvui::kOtherColor);
    // What pages derive from each other must agree, or opening them would change the record.
    EXPECT_EQ(settings.Scale, settings.mdmScaleSize);
    EXPECT_EQ(settings.nUp, settings.mdmNup);
    EXPECT_EQ(record.dmDuplex, static_cast<SHORT>(settings.mdmDuplexMode));
    EXPECT_EQ(settings.mdmBackPageSource, settings.mdmFirstPageSource);
    EXPECT_EQ(settings.ColorMatching, settings.mdmColorMatching == 2 ? 1u : 0u);
    EXPECT_EQ(static_cast<LONG>(settings.mdmJobPassword), -1);
    EXPECT_EQ(settings.mdmDistribution & 0x9C000000u, 0x08000000u);
    ResolutionInfo resolutions[kMaxResolutions];
    EXPECT_EQ(settings.CellSize + 1,
              static_cast<DWORD>(QDMGetResolutionList(&printer, resolutions)));
    EXPECT_EQ(settings.reserved044[3], 0) << "no byte of the buffer survives";
    EXPECT_EQ(settings.mdmInstalledOptions, 0x85u);
}

TEST_F(CoreServices, ThePaperFollowsTheRegionUnlessThePrinterDecides) {
    struct {
        const char* country;
        const char* measure;
        DWORD customPaperUnit;
        SHORT paper;
    } const cases[] = {
        {"1", "0", 0, 9}, {"44", "1", 0, 1}, {"2", "0", 0, 1}, {"2", "1", 2, 9}, {"1", "0", 4, 1},
    };
    for (const auto& row : cases) {
        SetRegion(row.country, row.measure);
        PutNumber("CustomPaperUnit", row.customPaperUnit);
        Defaults();
        EXPECT_EQ(Record().dmPaperSize, row.paper) << row.country << "/" << row.measure;
    }
}

TEST_F(CoreServices, InstalledHardwareComesFromThePrinter) {
    PutNumber("InstalledOptions", 0x485);
    PutNumber("AutoConfigure", 1);
    EXPECT_EQ(Defaults().mdmInstalledOptions, 0x485u);
    EXPECT_TRUE(Defaults().mdmOtherSettings & kvui::kOtherAutoConfig);
    Put("InstalledOptions", REG_BINARY, "\x85");
    EXPECT_EQ(Defaults().mdmInstalledOptions, 0x85u) << "another size does not count";
}

TEST_F(CoreServices, DefaultsFailWithoutADescriptionAndLeaveTheBufferAlone) {
    Defaults();
    std::vector<BYTE> before(bytes, bytes + sizeof bytes);
    std::snprintf(printer.descriptionPath, sizeof printer.descriptionPath, "/nowhere/x.ini");
    EXPECT_FALSE(QDMGetStdDefaults(&printer, bytes, bytes));
    EXPECT_TRUE(std::equal(before.begin(), before.end(), bytes));
    EXPECT_FALSE(QDMGetStdDefaults(nullptr, bytes, nullptr));
}

TEST_F(CoreServices, PrinterValuesKeepTheirTypeAndRoom) {
    char text[261];
    DWORD number = 77;
    EXPECT_TRUE(QDMGetPrinterKeyValue(&printer, 2, "HelpFile", 2, text, sizeof text));
    EXPECT_STREQ(text, "tessora7720mf.chm");
    EXPECT_TRUE(QDMGetPrinterKeyValue(&printer, 2, "CopySUINI", 0, &number, 4));
    EXPECT_EQ(number, 0u);
    EXPECT_FALSE(QDMGetPrinterKeyValue(&printer, 2, "CustomPaperUnit", 0, &number, 4));
    EXPECT_FALSE(QDMGetPrinterKeyValue(&printer, 1, "CopySUINI", 0, &number, 4));
    EXPECT_FALSE(QDMGetPrinterKeyValue(&printer, 2, "HelpFile", 0, &number, 4)) << "no number";
    EXPECT_FALSE(QDMGetPrinterKeyValue(&printer, 2, "HelpFile", 3, text, 17)) << "half a name";
    EXPECT_STREQ(text, "");
    PutNumber("CopySUINI", 1);
    EXPECT_TRUE(QDMGetPrinterKeyValue(&printer, 2, "CopySUINI", 0, &number, 4));
    EXPECT_EQ(number, 1u) << "printer data override the description";
    Put("DitherList1", REG_SZ, std::string("13, 4,8\0", 8));
    DWORD numbers[3] = {};
    EXPECT_TRUE(QDMGetPrinterKeyValue(&printer, 2, "DitherList1", 0, numbers, sizeof numbers));
    EXPECT_THAT(numbers, testing::ElementsAre(13, 4, 8));
    EXPECT_FALSE(QDMGetPrinterKeyValue(&printer, 2, "DitherList1", 0, numbers, 8)) << "one is left";
}

TEST_F(CoreServices, PapersHaveTheirTrueSizeAndAPrintableArea) {
    struct {
        LONG code;
        LONG width;
        LONG length;
        DWORD unit;
        LONG right;  // of the printable area
        LONG bottom;
    } const cases[] = {
        {9, 2100, 2970, kPaperUnitMillimetre, 2058, 2928},
        {1, 850, 1100, kPaperUnitInch, 2117, 2752},
        {8, 2970, 4200, kPaperUnitMillimetre, 2928, 4158},
        {27, 1100, 2200, kPaperUnitMillimetre, 1050, 2150},
    };
    for (const auto& row : cases) {
        PaperSizeInfo size{};
        ASSERT_TRUE(GetPaperSize(&printer, row.code, &size)) << row.code;
        EXPECT_THAT((std::vector<LONG>{size.width, size.length, static_cast<LONG>(size.unit)}),
                    testing::ElementsAre(row.width, row.length, row.unit));
        const PaperArea* area = QDMGetPaperArea(&printer, row.code);
        ASSERT_TRUE(area);
        EXPECT_EQ(area->right, row.right) << row.code;
        EXPECT_EQ(area->bottom, row.bottom) << row.code;
    }
    PaperSizeInfo size{};
    for (LONG code : {0, -1, 2, 512}) {
        EXPECT_FALSE(GetPaperSize(&printer, code, &size)) << code;
        EXPECT_FALSE(QDMGetPaperArea(&printer, code)) << code;
    }
}

TEST_F(CoreServices, FrameworkStringsAreCutToTheBuffer) {
    char buffer[5];
    EXPECT_EQ(QDMLoadString(nullptr, kFrameworkStringHelpFileValue, buffer, sizeof buffer), 4);
    EXPECT_STREQ(buffer, "Help");
    EXPECT_EQ(QDMLoadString(nullptr, 9999, buffer, sizeof buffer), 0);
    EXPECT_STREQ(buffer, "");
}

}  // namespace
}  // namespace kvtest
