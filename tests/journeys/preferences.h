// A person at the printing preferences: a printer on a scratch state directory, its settings record
// and the module's real sheet, driven through the input layer.
#pragma once

#include <platform/display/headless.h>
#include <platform/window/input.h>
#include <platform/window/window.h>
#include <preferences_sheet.h>
#include <prsht.h>

#include <array>
#include <cstring>
#include <string>
#include <vector>

#include "module/resources/resource.h"
#include "module/sheet/private_devmode.h"
#include "tests/support/controls.h"
#include "tests/support/printer_fixture.h"

namespace journey {

using kvtest::Actor;
using kvtest::ChooseIn;
using kvtest::IndexOf;
using kvtest::IsChecked;
using kvtest::Selected;
using kvtest::Text;

constexpr unsigned kRecordBytes = 1296;
enum Page { kBasic, kLayout, kOverlay, kWatermark, kQuality, kDevice, kTroubleshooting, kJob };

class Preferences : public kvtest::PrinterTest {
 protected:
    void SetUp() override {
        PrinterTest::SetUp();
        ASSERT_NE(QDMGetStdDefaults(&printer, record_.data(), nullptr), 0);
        std::string error;
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
    }

    void OpenSheet(DWORD mode = 0) {
        request_.printer = &printer;
        request_.record = record_.data();
        request_.mode = mode;
        request_.extraPages = extraPages_;
        sheet_ = module_->CreateSheet(request_);
        ASSERT_NE(sheet_, nullptr);
        kv::PumpPendingMessages();
    }
    // What the sheet tells a page, such as its Cancel; the focus stays where it is.
    void Notify(int page, UINT code) {
        PSHNOTIFY notice{{sheet_, 0, code}, 0};
        SendMessageA(WindowOf(page), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notice));
    }
    // The preview panel, while it is on the page.
    HWND Panel(int page) {
        HWND child = GetWindow(PageWindow(page), GW_CHILD);
        while (child != nullptr && GetDlgItem(child, IDC_PIC_MAIN_VIEW) == nullptr) {
            child = GetWindow(child, GW_HWNDNEXT);
        }
        return child;
    }
    // Notes in `heard` what a window is sent from now on, as far as it is wanted.
    void Overhear(HWND window, bool (*wanted)(UINT message, WPARAM wParam)) {
        wanted_ = wanted;
        heard.clear();
        overheard_ = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Hear)));
    }
    // Opens a dialog, acts on it and presses one of its buttons.
    void InDialog(int page, int opener, int closer, const std::function<void(HWND)>& act) {
        kv::Headless().PushAnswer([&](HWND dialog) {
            act(dialog);
            kv::input::Click(GetDlgItem(dialog, closer));
        });
        ASSERT_TRUE(kv::input::Click(Item(opener, page)));
    }
    bool CanApply() { return IsWindowEnabled(GetDlgItem(sheet_, 0x3021)) != FALSE; }
    void CloseSheet() {
        if (sheet_ != nullptr && IsWindow(sheet_)) DestroyWindow(sheet_);
        sheet_ = nullptr;
    }
    bool PressOk() { return kv::input::Click(GetDlgItem(sheet_, IDOK)); }

    HWND WindowOf(int page) {
        return reinterpret_cast<HWND>(SendMessageA(sheet_, PSM_INDEXTOHWND, page, 0));
    }
    HWND PageWindow(int page) {
        kv::input::SelectPage(sheet_, page);
        return WindowOf(page);
    }
    HWND Tabs() { return reinterpret_cast<HWND>(SendMessageA(sheet_, PSM_GETTABCONTROL, 0, 0)); }
    HWND Item(int id, int page = kBasic) { return GetDlgItem(PageWindow(page), id); }

    void ChooseValue(int id, DWORD value, int page = kBasic) {
        kvtest::ChooseIn(PageWindow(page), id, value);
    }
    void TypeInto(int id, const std::string& text, int page = kBasic) {
        kvtest::TypeIn(Item(id, page), text);
    }
    void Leave() { ASSERT_TRUE(kv::input::Focus(GetDlgItem(sheet_, IDCANCEL))); }

    DEVMODEA& Public() { return *reinterpret_cast<DEVMODEA*>(record_.data()); }
    kvui::PrivateDevmode& Settings() { return *kvui::PrivatePart(&Public()); }

    static inline std::vector<UINT> heard;

    std::array<BYTE, kRecordBytes> record_{};
    std::unique_ptr<kvhost::DriverModule> module_;
    kvhost::SheetRequest request_;
    std::vector<std::pair<std::string, std::string>> extraPages_ = {{"TAB4", "DDMTAB4"}};
    HWND sheet_{};

 private:
    static LRESULT CALLBACK Hear(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (wanted_(message, wParam)) heard.push_back(message);
        return CallWindowProcA(overheard_, window, message, wParam, lParam);
    }
    static inline bool (*wanted_)(UINT, WPARAM);
    static inline WNDPROC overheard_;
};

}  // namespace journey
