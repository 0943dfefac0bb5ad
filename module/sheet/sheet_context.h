// Per-page state (SheetContext) and the state that all pages of one property sheet share
// (SharedSheet). Every page procedure gets its SheetContext from the UI host on each message; the
// shared block hangs off the host's UI block as movable memory.
#pragma once

#include <kvlist.h>
#include <kvuihost.h>
#include <windows.h>

#include "sheet/private_devmode.h"

namespace kvui {

struct SettingsSnapshot;
struct PaperEdit;
struct WatermarkEdit;
struct ParsedRules;

// Flags of SheetContext.
constexpr DWORD kSheetReadOnly = 0x1;          // settings may not be changed: controls disabled
constexpr DWORD kSheetSecondPermission = 0x2;
constexpr DWORD kSheetDataNotWritable = 0x4;  // printer data cannot be written: list buttons hidden
constexpr DWORD kSheetTyping = 0x8;            // a tracked edit has the focus
constexpr DWORD kSheetListsLoaded = 0x10;

// The five lists of the list service, in the order in which the sheet end writes them.
enum SheetList : int { kListPaper, kListWatermark, kListOutBin, kListBin0, kListBin1, kListCount };

constexpr size_t kReportTextSize = 128;

// Texts of the conflicts dialog, prepared before it runs.
struct ConflictReport {
    char triggerName[kReportTextSize];
    char triggerSelection[kReportTextSize];
    char targetName[kReportTextSize];
    char targetCurrent[kReportTextSize];
    char targetNew[kReportTextSize];
};

// A question that is asked at most once per sheet.
enum SheetAnswer : int { kAnswerUnknown, kAnswerNo, kAnswerYes };

// The sheet's pages, and what is asked at most once for all of them (ui/sheet_life).
struct SheetLife {
    int pageCount;     // pages alive; the last one frees the shared block
    BOOL initialised;  // LoadSheetRules has run
    BOOL active;       // the sheet end has work to do
    SheetAnswer dataWritable;
    SheetAnswer networkPrinter;  // PRINTER_ATTRIBUTE_NETWORK
    BOOL portKnown;              // printerQueryable is of this sheet's printer
};

// What is made from the rules file (rules/).
struct SheetRules {
    HGLOBAL cache;         // RulesCache
    HGLOBAL grayOutIndex;  // GrayOutIndex
    ParsedRules* parsed;   // conflict rules by control, parsed at first use; owned
};

// Working copies of the lists, by SheetList (lists/).
struct SheetLists {
    ListHandle handles[kListCount];
    BOOL commit[kListCount];  // the sheet end writes the list instead of dropping it
    PaperEdit* paperEdit;     // while the dialog of custom papers is open
    WatermarkEdit* watermarkEdit;  // from the first press of a button of the page; owned
    BOOL editsOverlay;        // the overlay editor was opened by Edit, not by Add
    DWORD overlayBefore;      // mdmOverlay before it opened
};

// The panel that the pages hand on (preview/).
struct SheetPreview {
    HWND panel;      // null until there is one
    HWND page;       // that holds it
    HWND stateTips;  // tips of the strip's icons; null until there are any
    int pageKind;    // ViewKind of the active page; 0 before any page asked
    int viewIndex;   // which of the page kind's two views the panel shows, 0 or 1
    int sampleMode;  // colour sample of the quality view: SampleMode
};

// The strip of saved settings, which goes with the panel.
struct SheetSaved {
    HWND strip;
};

// One per property sheet, by who owns what. HostUiBlock::sharedView is its memory handle.
struct SharedSheet {
    SheetLife life;
    SheetRules rules;
    SheetLists lists;
    SheetPreview preview;
    SheetSaved saved;
    ConflictReport report;
};

struct SheetContext {
    HWND page;
    HINSTANCE strings;        // strings are loaded from here; equals resources unless a page
                              // replaces it by a language library
    LPVOID hostA;
    HINSTANCE resources;
    LPVOID hostB;
    DEVMODEA* settings;       // public part
    PrivateDevmode* privateSettings;
    BYTE* moduleSettings;     // private part + kModuleSettingsOffset
    PrinterBlock* printer;
    HostUiBlock* host;
    SettingsSnapshot* snapshot;
    DWORD platformId;
    DWORD flags;              // kSheet...
    char overlayPath[261];    // file of the chosen overlay
    SharedSheet* shared;      // the locked shared block; valid while the sheet lives
};

// Size of the block a page asks of the UI host: the context, the snapshot and the page's tail.
DWORD SheetBlockSize(DWORD tailSize);

}  // namespace kvui
