// Every page and dialog of the module, one row each: its template, its items in the catalogue, its
// caption, and how it is opened. The build writes the rows out for the host, its command line and
// the tests that walk all dialogs (tools/control_index).
#pragma once

#include <windows.h>

#include <span>

#include "sheet/sheet_context.h"

namespace kvui {

struct PageRow {
    // As people call it on a command line: in short, and by its English caption.
    const char* name;
    const char* fullName;
    const char* templateName;
    const char* dialogName;  // of its items in the catalogue
    UINT captionId;
    const char* procedure;  // the export that runs it
};

// In the order of the sheet. The module offers all but the last, Job Management, which the host
// creates where a printer has it.
extern const std::span<const PageRow> kPages;

// The page whose caption the window has as its title; Troubleshooting when none has it.
const PageRow& PageOfWindow(const SheetContext& context, HWND page);

enum class Opening {
    kClick,       // of a button, or of a check box that is off
    kChoose,      // of an entry that a rule refuses
    kExport,      // by the export, on the state of a page: no control opens it
    kRightClick,  // on the page, with Shift
    kInDialog,    // of the button `value` in the dialog that a click of `control` opens
    kNone,        // nothing opens it yet
};

// What opens a dialog; its export where the control depends on options. Another control may have to
// be worked first, and another value chosen.
struct Opener {
    Opening way;
    const char* procedure;  // the export, where that opens it
    DWORD control;
    DWORD value;  // to choose
    DWORD controlBefore;
    DWORD valueBefore;
};

struct DialogRow {
    const char* name;  // of its picture's file
    const char* page;  // template of the page that it belongs to
    const char* templateName;
    const char* dialogName;  // "" when no items are its
    UINT titleId;            // 0: the template's own
    Opener opener;
};

extern const std::span<const DialogRow> kDialogs;

// String of a dialog's title; 0 when there is none to load.
UINT TitleOfTemplate(const char* templateName);

}  // namespace kvui
