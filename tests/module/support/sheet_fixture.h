// A sheet without its windows, for tests and benchmarks of the module's inner parts: a SheetContext
// over a fresh settings record, a scratch state directory and the rules text that the test gives.
#pragma once

#include <framework/core/install_printer.h>
#include <kvcore.h>
#include <platform/registry/state_store.h>
#include <test_paths.h>
#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "rules/rules_cache.h"
#include "settings/setting_field.h"
#include "sheet/private_devmode.h"
#include "sheet/rules_path.h"
#include "sheet/sheet_context.h"

namespace kvui {

// A directory of its own that goes with the object.
class ScratchDirectory {
 public:
    ScratchDirectory() {
        std::string pattern = std::filesystem::temp_directory_path() / "kvui-XXXXXX";
        path = mkdtemp(pattern.data()) != nullptr ? pattern : "";
    }
    ~ScratchDirectory() {
        std::error_code ignored;
        if (!path.empty()) std::filesystem::remove_all(path, ignored);
    }
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;
    std::string path;
};

// One sheet. UseRules may be called again: the caches are then built anew, as in the next sheet.
class ScratchSheet {
 public:
    ScratchSheet() {
        kv::SetStateDirectory(scratch_.path);
        DEVMODEA* record = reinterpret_cast<DEVMODEA*>(record_);
        record->dmSize = sizeof(DEVMODEA);
        record->dmDriverExtra = static_cast<WORD>(kPrivateSize);
        context.settings = record;
        context.privateSettings = PrivatePart(record);
        context.moduleSettings = record_ + sizeof(DEVMODEA) + kModuleSettingsOffset;
        context.printer = &printer;
        context.host = &host;
        context.shared = &shared;
        context.platformId = VER_PLATFORM_WIN32_NT;
        context.strings = context.resources = GetModuleHandleA(nullptr);
        printer.size = sizeof printer;
        UseRules("");
    }
    ~ScratchSheet() {
        FreeRulesCaches(shared);
        UseRulesFile("");
        kv::SetStateDirectory("");
    }

    void UseRules(const std::string& text) {
        // A new name each time: a file rewritten within the clock's tick would look unchanged.
        const std::string path =
            scratch_.path + "/rules" + std::to_string(++rulesWritten_) + ".ini";
        std::ofstream(path, std::ios::binary) << text;
        UseRulesAt(path);
    }
    void UseRulesAt(const std::string& path) {
        FreeRulesCaches(shared);
        UseRulesFile(path.c_str());
        LoadRulesCache(context);
        BuildGrayOutIndex(context);
    }

    // Makes `printer` one of the served model.
    void InstallPrinter() {
        std::string error;
        if (!kvcore::InstallPrinter("Office", "USB001", KV_SOURCE_DIR "/models", error) ||
            !kvcore::MakePrinterBlock("Office", printer, error)) {
            std::fprintf(stderr, "no printer to test with: %s\n", error.c_str());
            std::abort();
        }
    }

    void Set(const char* field, DWORD value) { WriteSettingByName(context.settings, field, value); }
    // A value that no field of the tests holds stands for "no such field".
    DWORD Get(const char* field) const {
        DWORD value = 0xDEADBEEF;
        ReadSetting(context.settings, field, &value);
        return value;
    }
    const std::string& directory() const { return scratch_.path; }

    SheetContext context = {};
    SharedSheet shared = {};
    PrinterBlock printer = {};
    HostUiBlock host = {};

 private:
    ScratchDirectory scratch_;
    int rulesWritten_ = 0;
    alignas(8) BYTE record_[kRecordSize] = {};
};

}  // namespace kvui
