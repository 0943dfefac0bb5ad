// Which halftone a pattern means, and which threshold tables reach the registry for it.
#include "resources/resource.h"
#include "settings/halftone.h"

#include <gmock/gmock.h>
#include <platform/resource/register.h>

#include "settings/reactor.h"
#include "settings/threshold_tables.h"
#include "sheet/snapshot.h"
#include "tests/module/support/sheet_fixture.h"
#include "tests/platform/support/compiled_file.h"
#include "tests/support/registry.h"

namespace kvui {
namespace {

using testing::ElementsAre;

constexpr char kKey[] = "Software\\VARNELL\\KVRENDER\\ThresholdLUTs";

class Halftone : public testing::Test {
 protected:
    Halftone() {
        sheet.context.snapshot = &snapshot;
        settings.Dither = settings.nGrayBits = settings.CellSize = 9;
    }

    void Describe(const std::string& text) {
        const std::string path = sheet.scratch.Write("description.ini", text);
        snprintf(sheet.printer.descriptionPath, sizeof sheet.printer.descriptionPath, "%s",
                 path.c_str());
    }
    std::vector<DWORD> Choose(DWORD pattern) {
        settings.mdmDitherPattern = pattern;
        React(sheet.context, IDC_COMBO_HALFTONE, ReactScope::kOneControl);
        return {settings.Dither, settings.nGrayBits, settings.CellSize};
    }
    static std::string Bytes(const char* name) {
        return kvtest::RegistryValue(HKEY_LOCAL_MACHINE, kKey, name);
    }
    static std::vector<std::string> Published() {
        std::vector<std::string> names;
        HKEY key = nullptr;
        if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, kKey, 0, KEY_READ, &key) != 0) return names;
        char name[64];
        for (DWORD size = sizeof name;
             RegEnumValueA(key, names.size(), name, &size, nullptr, nullptr, nullptr, nullptr) == 0;
             size = sizeof name) {
            names.push_back(name);
        }
        RegCloseKey(key);
        return names;
    }
    static std::string Resource(const char* name) {
        const HRSRC found = FindResourceA(nullptr, name, "TRC");
        if (found == nullptr) return "no such table";
        return {static_cast<const char*>(LockResource(LoadResource(nullptr, found))),
                SizeofResource(nullptr, found)};
    }

    ScratchSheet sheet;
    PrivateDevmode& settings = *sheet.context.privateSettings;
    SettingsSnapshot snapshot{};
};

TEST_F(Halftone, APatternIsAnEntryOfTheModulesStrings) {
    EXPECT_THAT(Choose(1), ElementsAre(15u, 8u, 8u));
    EXPECT_THAT(Choose(3), ElementsAre(15u, 8u, 8u)) << "nobody offers it";
    EXPECT_THAT(Choose(0xFFFFFFFF), ElementsAre(15u, 8u, 8u));
    EXPECT_THAT(Choose(2), ElementsAre(12u, 8u, 8u)) << "stands for the first";
    settings.Dither = 1;
    EXPECT_THAT(Choose(0), ElementsAre(12u, 8u, 8u));
}

TEST_F(Halftone, ThePrintersOwnNumbersComeFirst) {
    Describe("[PrinterValues]\nDitherList1=3,4,5\nDitherList0=1,2\n");
    EXPECT_THAT(Choose(1), ElementsAre(3u, 4u, 5u));
    EXPECT_THAT(Choose(0), ElementsAre(12u, 8u, 8u)) << "two numbers are not three";
}

TEST_F(Halftone, EntriesComeFromTheModuleTheTableLibraryAndTheFrameworkInThisOrder) {
    const auto block = [](const std::vector<std::string>& texts) {
        std::vector<BYTE> bytes;
        for (const std::string& text : texts) {
            for (const char unit : std::string(1, static_cast<char>(text.size())) + text) {
                bytes.insert(bytes.end(), {static_cast<BYTE>(unit), 0});
            }
        }
        return bytes;
    };
    std::vector<std::string> texts(12);
    texts.push_back("Library=xxxx123.bmp");  // string 700 is number 12 of its block
    CompiledFile file;
    file.Add(CompiledFile::Id(6), CompiledFile::Id(700 / 16 + 1), block(texts));
    const HMODULE uiHost = GetModuleHandleA("KVUIHOST");
    const kv::ModuleResources resources(
        reinterpret_cast<const void*>(GetProcAddress(uiHost, "QDMDialogAlloc")), file.bytes.data(),
        file.bytes.size());
    sheet.scratch.Write("state/windows/QDM.INI",
                        "[Halftoning]\r\nSmooth=qdtaABC.bmp;fine;er\r\nBroken=short\r\n");

    for (const bool library : {false, true}) {
        if (library) sheet.scratch.Write("state/driver/KVTABRES.DLL", "");
        Describe(library ? "[PrinterValues]\nUseTableLibrary=0\n"
                         : "[PrinterValues]\nUseTableLibrary=1\n");
        EXPECT_STREQ(HalftoneList(sheet.context).Find(2)->name, "Smooth") << library;
    }
    Describe("[PrinterValues]\nUseTableLibrary=1\n; \n");
    const HalftoneList list(sheet.context);
    ASSERT_EQ(list.count(), 5u);
    EXPECT_STREQ(list.Find(1)->name, "Photocopy");
    EXPECT_STREQ(list.Find(1)->comment, " for FUM");
    EXPECT_STREQ(list.Find(2)->file, "xxxx123.bmp");
    EXPECT_STREQ(list.Find(2)->comment, "");
    EXPECT_STREQ(list.Find(3)->file, "qdtaABC.bmp");
    EXPECT_STREQ(list.Find(3)->comment, "fine;er");
    EXPECT_THAT(list.keyNames(), ElementsAre(testing::StrEq("Smooth"), testing::StrEq("Broken")));
    EXPECT_EQ(list.Find(5), nullptr);
    EXPECT_THAT(Choose(3), ElementsAre(10u, 11u, 12u));
    EXPECT_THAT(Choose(4), ElementsAre(10u, 11u, 12u)) << "a file without digits changes nothing";
}

TEST_F(Halftone, TheListEndsAtSixtyFourEntriesWhateverTheFileHolds) {
    std::string text = "[Halftoning]\n";
    for (int i = 0; i < 200; ++i)
        text += "Key" + std::to_string(i) + "=" + std::string(600, 'x') + "\n";
    sheet.scratch.Write("state/windows/QDM.INI", text);
    const HalftoneList list(sheet.context);
    EXPECT_EQ(list.count(), 64u);
    EXPECT_STREQ(list.Find(63)->name, "Key61");
}

TEST_F(Halftone, FilesWithoutThreeDigitsAreRefused) {
    HalftoneParameters parameters{1, 2, 3};
    for (const char* file : {"", "qdta", "qdta12", "qdta1g3.bmp", "qdta12 .bmp"}) {
        EXPECT_FALSE(ParseHalftoneFile(file, &parameters)) << file;
    }
    EXPECT_EQ(parameters.dither, 1u);
    EXPECT_TRUE(ParseHalftoneFile("qdtaFa0", &parameters));
    EXPECT_EQ(parameters.dither * 256 + parameters.grayBits * 16 + parameters.cellSize, 0xFA0u);
}

TEST_F(Halftone, TablesArePublishedUnderLongNamesWithAspectAndDotGain) {
    const struct {
        SHORT x;
        SHORT y;
        const char* name;
        const char* table;
    } rows[] = {{600, 600, "dQDTAC880_D18_A100", "dQDTAC880_D18_A100"},
                {1200, 600, "dQDTAC880_D18_A200", "dQDTAC880_D18_A200"},
                {1000, 600, "dQDTAC880_D18_A167", "dQDTAC880"},
                {1200, 0, "dQDTAC880_D18_A100", "dQDTAC880_D18_A100"}};
    Describe("[PrinterValues]\nDotGainKeyFields=Dither\n[DotGain]\n12=18\n");
    settings.GCR = settings.BlackGeneration = 7;
    for (const auto& row : rows) {
        sheet.context.settings->dmPrintQuality = row.x;
        sheet.context.settings->dmYResolution = row.y;
        Choose(0);
        EXPECT_EQ(Bytes(row.name), Resource(row.table)) << row.name;
        EXPECT_EQ(Bytes(row.name).substr(0, 4), "TRC1") << row.name;
    }
    EXPECT_EQ(settings.GCR, 50u);
    EXPECT_EQ(settings.BlackGeneration, 50u);
    EXPECT_EQ(Published().size(), 12u) << "four planes of three aspects";
}

TEST_F(Halftone, WhatIsMissingSkipsItsPart) {
    settings.GCR = 7;
    settings.Dither = 3;
    PublishThresholdTables(sheet.context);
    EXPECT_EQ(Bytes("dQDTA3990_D0_A100"), "") << "no such table";
    EXPECT_EQ(settings.GCR, 7u);
    EXPECT_EQ(DotGain(sheet.context), 0);
    Choose(1);
    EXPECT_THAT(Published(), ElementsAre("dQDTAF880_D0_A100", "dQDTAF881_D0_A100",
                                         "dQDTAF882_D0_A100", "dQDTAF883_D0_A100"));
    EXPECT_EQ(settings.GCR, 80u);
    sheet.context.resources = GetModuleHandleA("KVCORE");
    settings.GCR = 7;
    PublishThresholdTables(sheet.context);
    EXPECT_EQ(settings.GCR, 7u) << "a module without resources";
}

TEST_F(Halftone, AnOrdinaryUserSelectsButPublishesNothing) {
    for (const bool keyExists : {false, true}) {
        kv::SetActingAsAdministrator(true);
        if (keyExists) Choose(0);
        const auto before = Published();
        kv::SetActingAsAdministrator(false);
        settings.GCR = 7;
        EXPECT_THAT(Choose(1), ElementsAre(15u, 8u, 8u));
        EXPECT_EQ(Published(), before);
        EXPECT_EQ(settings.GCR, 7u);
    }
}

TEST_F(Halftone, AWholeReactionSelectsFirstAndPublishesForTheRecordItLeaves) {
    Describe("[Resolutions]\nR1=600,600\nR2=1200,600\nR3=2400,600\n");
    React(sheet.context, 0, ReactScope::kWholePage);
    EXPECT_EQ(settings.CellSize, 2u);
    EXPECT_EQ(Published().size(), 8u);
    EXPECT_EQ(Bytes("dQDTAC823_D0_A100"), Resource("dQDTAC823"));
}

}  // namespace
}  // namespace kvui
