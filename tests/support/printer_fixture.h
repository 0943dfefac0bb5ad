// A printer of the served model on a scratch state directory.
#pragma once

#include <framework/core/install_printer.h>
#include <kvcore.h>
#include <winreg.h>
#include <winspool.h>

#include <gmock/gmock.h>
#include <test_paths.h>

#include <string>

#include "tests/platform/shell/scratch.h"
#include "tests/support/printer_data.h"

namespace kvtest {

enum class Actor { kUser, kAdministrator };

class PrinterTest : public kv::test::ScratchTest {
 protected:
    static constexpr const char* kPrinter = "Office Tessora";

    void SetUp() override {
        Act(Actor::kAdministrator);
        std::string error;
        ASSERT_TRUE(kvcore::InstallPrinter({kPrinter, "USB001"}, KV_SOURCE_DIR "/models", error))
            << error;
        ASSERT_TRUE(kvcore::MakePrinterBlock(kPrinter, printer, error)) << error;
    }
    // The rules file of the driver's folder.
    std::string RulesPath() const { return State() + "/driver/3/KVUIMOD.ini"; }
    void UseRules(const std::string& text) { std::ofstream(RulesPath(), std::ios::binary) << text; }
    static void Act(Actor actor) { kv::SetActingAsAdministrator(actor == Actor::kAdministrator); }
    // Null when it is refused; the last error says why.
    static HANDLE Open(DWORD access, const char* name = kPrinter) {
        PRINTER_DEFAULTSA defaults{nullptr, nullptr, access};
        HANDLE handle = nullptr;
        return OpenPrinterA(const_cast<LPSTR>(name), &handle, &defaults) ? handle : nullptr;
    }
    static DWORD Put(const char* name, DWORD type, const std::string& bytes) {
        return PutPrinterData(kPrinter, name, type, bytes);
    }
    static DWORD PutNumber(const char* name, DWORD number) {
        return PutPrinterData(kPrinter, name, number);
    }
    // As a list of ids, names or numbers is stored.
    template <typename Value>
    static std::string BytesOf(const Value& value) {
        return {reinterpret_cast<const char*>(&value), sizeof value};
    }

    PrinterBlock printer{};
};

}  // namespace kvtest
