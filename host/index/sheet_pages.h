// The pages of the sheet and the dialogs over them, by the names that people and the module give
// them. The rows are made by the build from the module's table.
#pragma once

#include <windef.h>

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kvhost {

struct Page {
    const char* name;      // in short
    const char* fullName;  // its English caption
    const char* templateName;
    const char* dialogName;  // in the catalogue
};

extern const std::span<const Page> kPages;

enum class Opening {
    kClick,       // of a button, or of a check box that is off
    kChoose,      // of an entry that a rule refuses
    kExport,      // by the module's export, on the page's state
    kRightClick,  // on the page, with Shift
    kInDialog,    // of the button `value` in the dialog that a click of `control` opens
    kNone,        // nothing opens it yet
};

struct Dialog {
    const char* name;
    int page;  // index of the page that it belongs to
    const char* templateName;
    const char* dialogName;  // in the catalogue; empty when no items are its
    DWORD titleId;           // string of the module; 0: the template's own
    Opening opening;
    const char* procedure;  // the export
    DWORD control;
    DWORD value;          // to choose in it
    DWORD controlBefore;  // to be worked first, and its value; 0 for none
    DWORD valueBefore;
};

// A place of a page where no control is, for the right button.
constexpr POINT kBesideControls = {1, 1};

extern const std::span<const Dialog> kDialogs;

// Index of the page with this dialog name in the catalogue; -1 when the dialog is no page.
int PageIndexOfDialog(std::string_view dialogName);
// Index of the page that a caption, template or dialog name means; -1 when none does.
int PageIndexOfName(std::string_view name);
const char* PageTemplate(int index);
const char* PageDialog(int index);
// What the pages are called on the command line.
std::vector<std::string> PageNames();

}  // namespace kvhost
