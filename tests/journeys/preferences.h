// A person at the printing preferences: a printer on a scratch state directory, its settings record
// and the module's real sheet, driven through the input layer.
#pragma once

#include <framework/core/install_printer.h>
#include <gtest/gtest.h>
#include <test_paths.h>
#include <kvcore.h>
#include <platform/display/headless.h>
#include <platform/registry/state_store.h>
#include <platform/security/access.h>
#include <platform/window/input.h>
#include <platform/window/window.h>
#include <preferences_sheet.h>
#include <prsht.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace journey {

constexpr unsigned kRecordBytes = 1296;
enum Page { kBasic, kLayout, kOverlay, kWatermark, kQuality, kDevice, kTroubleshooting, kJob };

class Preferences : public testing::Test {
   protected:
    void SetUp() override {
        char folder[] = "/tmp/kvjourneyXXXXXX";
        ASSERT_NE(mkdtemp(folder), nullptr);
        state_ = folder;
        kv::SetStateDirectory(state_);
        kv::SetActingAsAdministrator(true);
        std::string error;
        ASSERT_TRUE(kvcore::InstallPrinter("Office", "USB001", KV_SOURCE_DIR "/models", error))
            << error;
        ASSERT_TRUE(kvcore::MakePrinterBlock("Office", printer_, error)) << error;
        ASSERT_NE(QDMGetStdDefaults(&printer_, record_.data(), nullptr), 0);
        module_ = kvhost::DriverModule::Load(KV_BIN_DIR "/libkvuimod.so", error);
        ASSERT_NE(module_, nullptr) << error;
        kv::Headless().OnUnanswered([](const std::string& dialog) {
            ADD_FAILURE() << "nobody answered " << dialog;
        });
        kv::Headless().shown.clear();
    }

    void TearDown() override {
        CloseSheet();
        EXPECT_EQ(kv::Headless().PendingAnswers(), 0u) << "a dialog that was expected did not come";
        kv::Headless().SetPolicy(nullptr);
        kv::SetActingAsAdministrator(std::nullopt);
        kv::SetStateDirectory("");
        std::filesystem::remove_all(state_);
    }

    // Replaces the rules file of the driver's folder.
    void UseRules(const std::string& text) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(state_)) {
            if (entry.path().filename() == "KVUIMOD.ini") {
                std::ofstream(entry.path(), std::ios::binary) << text;
            }
        }
    }

    void OpenSheet(DWORD mode = 0) {
        request_.printer = &printer_;
        request_.record = record_.data();
        request_.mode = mode;
        request_.extraPages = extraPages_;
        sheet_ = module_->CreateSheet(request_);
        ASSERT_NE(sheet_, nullptr);
        kv::PumpPendingMessages();
    }
    // What the sheet tells a page, such as its Cancel; the focus stays where it is.
    void Notify(int page, UINT code) {
        const auto window = reinterpret_cast<HWND>(SendMessageA(sheet_, PSM_INDEXTOHWND, page, 0));
        PSHNOTIFY notice{{sheet_, 0, code}, 0};
        SendMessageA(window, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notice));
    }
    bool CanApply() { return IsWindowEnabled(GetDlgItem(sheet_, 0x3021)) != FALSE; }
    void CloseSheet() {
        if (sheet_ != nullptr && IsWindow(sheet_)) DestroyWindow(sheet_);
        sheet_ = nullptr;
    }
    bool PressOk() { return kv::input::Click(GetDlgItem(sheet_, IDOK)); }

    HWND PageWindow(int page) {
        kv::input::SelectPage(sheet_, page);
        return reinterpret_cast<HWND>(SendMessageA(sheet_, PSM_INDEXTOHWND, page, 0));
    }
    HWND Item(int id, int page = kBasic) { return GetDlgItem(PageWindow(page), id); }

    static std::string Text(HWND window) {
        char text[512] = "";
        GetWindowTextA(window, text, sizeof text);
        return text;
    }
    static int IndexOf(HWND combo, DWORD value) {
        const LRESULT count = SendMessageA(combo, CB_GETCOUNT, 0, 0);
        for (LRESULT i = 0; i < count; ++i) {
            if (static_cast<DWORD>(SendMessageA(combo, CB_GETITEMDATA, i, 0)) == value) {
                return static_cast<int>(i);
            }
        }
        return -1;
    }
    static std::string Selected(HWND combo) {
        const LRESULT index = SendMessageA(combo, CB_GETCURSEL, 0, 0);
        char text[256] = "";
        if (index >= 0) SendMessageA(combo, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(text));
        return text;
    }
    void ChooseValue(int id, DWORD value, int page = kBasic) {
        const HWND combo = Item(id, page);
        const int index = IndexOf(combo, value);
        ASSERT_GE(index, 0) << "combo " << id << " does not offer " << value;
        ASSERT_TRUE(kv::input::Choose(combo, index));
    }
    void TypeInto(int id, const std::string& text, int page = kBasic) {
        const HWND edit = Item(id, page);
        ASSERT_TRUE(kv::input::Focus(edit));
        SendMessageA(edit, EM_SETSEL, 0, -1);
        kv::input::Key(VK_DELETE);
        ASSERT_TRUE(kv::input::Type(text));
    }
    void Leave() { ASSERT_TRUE(kv::input::Focus(GetDlgItem(sheet_, IDCANCEL))); }

    DEVMODEA& Public() { return *reinterpret_cast<DEVMODEA*>(record_.data()); }
    DWORD Private(size_t offset) {
        DWORD value = 0;
        std::memcpy(&value, record_.data() + sizeof(DEVMODEA) + offset, sizeof value);
        return value;
    }
    void SetPrivate(size_t offset, DWORD value) {
        std::memcpy(record_.data() + sizeof(DEVMODEA) + offset, &value, sizeof value);
    }

    std::string state_;
    PrinterBlock printer_{};
    std::array<BYTE, kRecordBytes> record_{};
    std::unique_ptr<kvhost::DriverModule> module_;
    kvhost::SheetRequest request_;
    std::vector<std::pair<std::string, std::string>> extraPages_ = {{"TAB4", "DDMTAB4"}};
    HWND sheet_{};
};

// Offsets in the private part, as docs/formats.md gives them.
constexpr size_t kMediaType = 0x4C, kScale = 0x14C, kNupMode = 0x144, kDriverPaper = 0x148,
                 kFirstPage = 0x1A0, kFirstPageSourceField = 0x1A4, kFitToPaper = 0x1B4,
                 kScaleSize = 0x1B8, kDuplexMode = 0x1C4, kCollate = 0x1F8, kNup = 0x210,
                 kOutputPaper = 0x214, kFirstPageMedia = 0x21C, kOtherSettings = 0x254,
                 kInstalledOptions = 0x198, kMailBinAssign = 0x1DC, kNUpField = 0x140;

}  // namespace journey
