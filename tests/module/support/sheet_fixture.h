// A sheet without its windows, for tests and benchmarks of the module's inner parts: a SheetContext
// over a fresh settings record, a scratch state directory and the rules text that the test gives.
#pragma once

#include <framework/core/install_printer.h>
#include <kvcore.h>
#include <platform/registry/state_store.h>
#include <platform/security/access.h>
#include <test_paths.h>
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "rules/rules_cache.h"
#include "sheet/rules_path.h"
#include "sheet/sheet_context.h"
#include "tests/module/support/scratch_record.h"
#include "tests/support/scratch_folder.h"

namespace kvui {

// One sheet of an administrator. UseRules may be called again: the caches are then built anew, as
// in the next sheet.
class ScratchSheet {
 public:
    ScratchSheet() {
        kv::SetStateDirectory(scratch.State());
        kv::SetActingAsAdministrator(true);
        context.settings = record.devmode();
        context.privateSettings = record.settings();
        context.moduleSettings = record.bytes() + sizeof(DEVMODEA) + kModuleSettingsOffset;
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
        kv::SetActingAsAdministrator(std::nullopt);
    }

    void UseRules(const std::string& text) {
        // A new name each time: a file rewritten within the clock's tick would look unchanged.
        UseRulesAt(scratch.Write("rules" + std::to_string(++rulesWritten_) + ".ini", text));
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
        if (!kvcore::InstallPrinter({"Office", "USB001"}, KV_SOURCE_DIR "/models", error) ||
            !kvcore::MakePrinterBlock("Office", printer, error)) {
            std::fprintf(stderr, "no printer to test with: %s\n", error.c_str());
            std::abort();
        }
    }

    void Set(const char* field, DWORD value) { WriteSettingByName(record.devmode(), field, value); }
    DWORD Get(const char* field) const { return record.Value(field); }

    const kv::test::ScratchFolder scratch;
    ScratchRecord record;
    SheetContext context = {};
    SharedSheet shared = {};
    PrinterBlock printer = {};
    HostUiBlock host = {};

 private:
    int rulesWritten_ = 0;
};

}  // namespace kvui
