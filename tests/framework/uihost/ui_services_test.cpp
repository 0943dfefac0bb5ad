// What pages get from the UI host, with page windows made directly over the host's page records.
#include <test_paths.h>
#include <framework/uihost/sheets.h>
#include <prsht.h>

#include <cstring>

#include "tests/support/printer_fixture.h"
#include "tests/platform/support/template_builder.h"

namespace kvtest {
namespace {

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | DS_SETFONT;

// What a page procedure learned at its start.
struct Learned {
    int cracked = -1;
    LPVOID hostA{};
    HINSTANCE resources{};
    LPVOID hostB{};
    DEVMODEA* publicSettings{};
    BYTE* privateSettings{};
    PrinterBlock* printer{};
    HostUiBlock* shared{};
    DWORD mode = 0;
    BYTE* state{};
};
Learned learned;

INT_PTR PageProcedure(HWND page, UINT message, WPARAM, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        learned = {};
        learned.cracked = QDMCrackInfo(page, message, lParam, &learned.hostA, &learned.resources,
                                       &learned.hostB, nullptr, &learned.publicSettings,
                                       &learned.privateSettings, nullptr, &learned.printer);
        learned.shared = GetQDMUIInfo(page, kUiInfoPage, lParam);
        QDMGetMode(page, message, lParam, &learned.mode);
        learned.state = static_cast<BYTE*>(QDMDialogAlloc(page, 512));
    }
    return FALSE;
}
INT_PTR QuietProcedure(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

LPVOID StateOf(HWND window) {
    LPVOID state = nullptr;
    const int cracked = QDMCrackInfo(window, WM_COMMAND, 0, nullptr, nullptr, nullptr, &state,
                                     nullptr, nullptr, nullptr, nullptr);
    return cracked ? state : nullptr;
}

class UiServices : public PrinterTest {
 protected:
    void SetUp() override {
        PrinterTest::SetUp();
        ASSERT_TRUE(QDMGetStdDefaults(&printer, record, nullptr));
        kvhost::SheetRequest request;
        request.printer = &printer;
        request.record = record;
        request.mode = kModeReadOnly;
        sheet = kvhost::AddSheet(request, GetModuleHandleA(nullptr));
        sheet->pages.push_back(std::make_unique<kvhost::Page>());
        sheet->pages[0]->sheet = sheet;
        sheet->pages[0]->procedure = PageProcedure;
        structure.dwSize = sizeof structure;
        structure.pfnDlgProc = PageProcedure;
        structure.lParam = reinterpret_cast<LPARAM>(sheet->pages[0].get());
        window = frame.Create(nullptr, QuietProcedure);
    }
    void TearDown() override {
        DestroyWindow(window);
        kvhost::RemoveSheet(sheet);
    }
    HWND MakePage(LPARAM parameter) { return page.Create(window, PageProcedure, parameter); }
    LPARAM Structure() { return reinterpret_cast<LPARAM>(&structure); }

    alignas(DEVMODEA) BYTE record[1296];
    kvhost::Sheet* sheet{};
    PROPSHEETPAGEA structure{};
    HWND window{};
    kv::TemplateBuilder frame{kStyle};
    kv::TemplateBuilder page{WS_CHILD | WS_VISIBLE | DS_CONTROL};
};

TEST_F(UiServices, APageLearnsItsSheetAtItsStart) {
    const HWND first = MakePage(Structure());
    EXPECT_EQ(learned.cracked, 1);
    EXPECT_TRUE(learned.hostA);
    EXPECT_TRUE(learned.hostB);
    EXPECT_EQ(learned.resources, GetModuleHandleA(nullptr));
    EXPECT_EQ(learned.publicSettings, reinterpret_cast<DEVMODEA*>(record));
    EXPECT_EQ(learned.privateSettings, record + 156);
    EXPECT_EQ(learned.printer, &printer);
    EXPECT_EQ(learned.mode, kModeReadOnly);
    ASSERT_TRUE(learned.shared);
    EXPECT_EQ(learned.shared->sheet, window);
    EXPECT_EQ(GetQDMUIInfo(first, kUiInfoAdvanced, 0), learned.shared);
    EXPECT_EQ(StateOf(first), learned.state);
}

TEST_F(UiServices, TheStateBlockIsZeroedAndEndsWithTheDialogOrItsWindow) {
    const HWND first = MakePage(Structure());
    ASSERT_TRUE(learned.state);
    EXPECT_EQ(std::count(learned.state, learned.state + 512, 0), 512);
    EXPECT_FALSE(QDMDialogAlloc(first, 16)) << "somebody uses the first one";
    QDMEndDialog(first, 0);
    EXPECT_FALSE(StateOf(first));
    EXPECT_TRUE(QDMDialogAlloc(first, 16));
    DestroyWindow(first);
    EXPECT_FALSE(StateOf(first));
    EXPECT_FALSE(QDMDialogAlloc(first, 16));
    QDMEndDialog(first, 0);
}

TEST_F(UiServices, OtherParametersAreRefusedWithoutBeingTrusted) {
    PROPSHEETPAGEA stranger = structure;
    stranger.lParam = reinterpret_cast<LPARAM>(&stranger);
    PROPSHEETPAGEA otherProcedure = structure;
    otherProcedure.pfnDlgProc = QuietProcedure;
    auto small = std::make_unique<BYTE[]>(4);
    const LPARAM bad[] = {0,
                          1,
                          -1,
                          0x7FFFFFFFF000,
                          reinterpret_cast<LPARAM>(&stranger),
                          reinterpret_cast<LPARAM>(&otherProcedure),
                          reinterpret_cast<LPARAM>(small.get())};
    for (const LPARAM parameter : bad) {
        MakePage(parameter);
        EXPECT_EQ(learned.cracked, 0) << parameter;
        EXPECT_FALSE(learned.publicSettings);
    }
    EXPECT_EQ(QDMCrackInfo(nullptr, WM_INITDIALOG, Structure(), nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr, nullptr, nullptr),
              0);
}

TEST_F(UiServices, SubDialogsHaveNoStateButShareTheSheet) {
    MakePage(Structure());
    HostUiBlock* const shared = learned.shared;
    const HWND inside = frame.Create(window, PageProcedure, Structure());
    EXPECT_EQ(learned.cracked, 0) << "the page's record serves the page's window only";
    QDMEndDialog(inside, 0);
    EXPECT_FALSE(StateOf(inside));
    EXPECT_EQ(GetQDMUIInfo(inside, kUiInfoAdvanced, 0), shared);
    DestroyWindow(inside);
}

TEST_F(UiServices, AFinishedSheetIsForgotten) {
    MakePage(Structure());
    sheet->inCreation = false;
    DestroyWindow(window);
    kvhost::SweepClosedSheets();
    EXPECT_FALSE(kvhost::PageOfParameter(Structure()));
    DWORD mode = 0;
    EXPECT_FALSE(QDMGetMode(window, WM_INITDIALOG, Structure(), &mode));
    sheet = kvhost::AddSheet({}, nullptr);  // for TearDown
}

TEST(DriverModules, LoadingSaysWhatIsWrong) {
    std::string error;
    EXPECT_FALSE(kvhost::DriverModule::Load("/nowhere/libkvuimod.so", error));
    EXPECT_THAT(error, testing::HasSubstr("/nowhere/libkvuimod.so: No such file"));
    EXPECT_FALSE(kvhost::DriverModule::Load("/etc/hostname", error));
    EXPECT_THAT(error, testing::HasSubstr("cannot be loaded"));
    EXPECT_FALSE(kvhost::DriverModule::Load(KV_BIN_DIR "/libkvspool.so", error));
    EXPECT_THAT(error, testing::HasSubstr("GetPropSheetPages"));
}

}  // namespace
}  // namespace kvtest
