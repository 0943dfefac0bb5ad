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

// One per property sheet. HostUiBlock::sharedView is its memory handle.
struct SharedSheet {
    int pageCount;           // pages alive; the last one frees this block
    SheetAnswer dataWritable;
    SheetAnswer networkPrinter;  // PRINTER_ATTRIBUTE_NETWORK
    BOOL initialised;        // LoadSheetRules has run
    BOOL active;             // companion flag: the sheet end has work to do
    HGLOBAL rulesCache;      // RulesCache
    HGLOBAL grayOutIndex;    // GrayOutIndex
    ParsedRules* parsedRules;  // conflict rules by control, parsed at first use; owned
    ListHandle lists[kListCount];
    BOOL commitList[kListCount];
    HWND viewPanel;          // the shared preview panel, null until there is one
    HWND savedSettingsStrip;
    HWND viewPage;           // the page that holds the shared view
    int pageKind;            // which views the active page offers (1 page, 2 watermark, 3 quality,
                             // 4 printer figure); 0 before any page asked
    int viewIndex;           // which of the page kind's two views the panel shows, 0 or 1
    int sampleMode;          // colour sample of the quality view: SampleMode
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
