// A printer on a scratch state directory and the module, made once per program. Used by the benchmarks
// of the sheet and of the window.
#pragma once

#include <test_paths.h>
#include <framework/core/install_printer.h>
#include <kvcore.h>
#include <platform/display/headless.h>
#include <platform/registry/state_store.h>
#include <platform/security/access.h>
#include <platform/window/input.h>
#include <preferences_sheet.h>
#include <prsht.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

namespace kvbench {

struct Desk {
    std::string state;
    PrinterBlock printer{};
    std::array<BYTE, 1296> record{};
    std::unique_ptr<kvhost::DriverModule> module;
    kvhost::SheetRequest request;

    Desk() {
        char folder[] = "/tmp/kvbenchXXXXXX";
        state = mkdtemp(folder);
        kv::SetStateDirectory(state);
        kv::SetActingAsAdministrator(true);
        std::string error;
        kvcore::InstallPrinter({"Bench", "USB001"}, KV_SOURCE_DIR "/models", error);
        kvcore::MakePrinterBlock("Bench", printer, error);
        QDMGetStdDefaults(&printer, record.data(), nullptr);
        module = kvhost::DriverModule::Load(KV_BIN_DIR "/libkvuimod.so", error);
        if (module == nullptr) {
            std::fprintf(stderr, "kvbench: %s\n", error.c_str());
            std::exit(1);
        }
        request.printer = &printer;
        request.record = record.data();
        kv::Headless().SetPolicy([](HWND dialog) { kv::input::Close(dialog); });
    }
    ~Desk() { std::filesystem::remove_all(state); }
    HWND Page(HWND sheet, int index) {
        kv::input::SelectPage(sheet, index);
        return reinterpret_cast<HWND>(SendMessageA(sheet, PSM_INDEXTOHWND, index, 0));
    }
};

inline Desk& TheDesk() {
    static Desk desk;
    return desk;
}

}  // namespace kvbench
