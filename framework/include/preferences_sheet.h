// What a host program needs to run the module's property sheet: load the module, make the sheet of
// its pages over a settings record, and learn when the pages have applied. Implemented in
// framework/uihost.
#pragma once

#include <kvuihost.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kvhost {

// A sheet whose settings were not stored stays open.
enum class Applied { kStored, kNotStored };

struct SheetRequest {
    PrinterBlock* printer = nullptr;
    // The 1,296-byte record; owned by the caller, changed in place by the pages.
    BYTE* record = nullptr;
    DWORD mode = 0;  // kMode... bits handed to QDMGetMode
    HWND owner{};
    std::string caption;  // empty: the printer's name
    // The sheet begins with its first page and is turned to this one before it is shown.
    UINT startPage = 0;
    // Extra pages beside those of the module's table, by template and procedure name
    // ("TAB4", "DDMTAB4").
    std::vector<std::pair<std::string, std::string>> extraPages;
    // Called after all pages accepted an Apply or OK.
    std::function<Applied(HWND sheet, bool closing)> applied;
    // Called when the sheet is about to be shown, on its start page.
    std::function<void(HWND sheet)> shown;
    // Called before the pages are destroyed, which then write printer-level settings as the record
    // has them: the owner puts back what is stored.
    std::function<void()> ending;
};

// The loaded module. Loading failures say why.
class DriverModule {
   public:
    static std::unique_ptr<DriverModule> Load(const std::string& path, std::string& error);
    ~DriverModule();
    HMODULE handle() const { return handle_; }
    DLGPROC Procedure(const char* exportName) const;

    // Runs the sheet modally: 1 after OK, 0 after Cancel, -1 on failure.
    INT_PTR RunSheet(const SheetRequest& request);
    // Creates the sheet modelessly (command line, tests, pictures); null on failure. The request
    // must outlive the sheet.
    HWND CreateSheet(const SheetRequest& request);

    // Runs an exported dialog procedure modally over a page of an open sheet, for the dialogs that
    // no control opens: they get the page's state block as every dialog of that page does. Answers
    // what the dialog ended with; -1 when the page has no state, or when the template or the export
    // is missing.
    INT_PTR RunDialog(HWND page, const char* dialogTemplate, const char* procedure);

   private:
    HMODULE handle_{};
};

// The bin directory's libkvuimod.so, beside the running program or in its ../lib.
std::string DefaultModulePath();

}  // namespace kvhost
