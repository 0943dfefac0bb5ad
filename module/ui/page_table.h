// The property-sheet pages that the module offers, and the captions of pages and sub-dialogs.
#pragma once

#include <windows.h>

#include "sheet/sheet_context.h"

namespace kvui {

// One page as the UI host reads it; the table ends with a row of zeros.
struct PageEntry {
    const char* templateName;
    const char* procedureName;
    LPVOID reserved1;
    LPVOID reserved2;
    DWORD flags1;
    DWORD flags2;
    LPVOID reserved3;
};

// Handler families of pages.
enum PageFamily : int {
    kFamilyBasic,
    kFamilyLayout,
    kFamilyQuality,
    kFamilyDeviceOptions,
    kFamilyJobManagement,
    kFamilyTroubleshooting,
    kFamilyOverlay,
    kFamilyWatermark,
    kFamilyCount,
};

struct PageCaption {
    const char* templateName;
    UINT captionId;
    PageFamily family;
};
struct SubDialogCaption {
    const char* templateName;
    UINT captionId;
};

constexpr int kPageCount = 8;
extern const PageCaption kPageCaptions[kPageCount];
extern const PageEntry kPageTable[];

// Dialog name, as the catalogue spells it, of a family's items.
const char* DialogNameOfFamily(PageFamily family);
// The family of a page window by its title; the last row's when no caption matches.
PageFamily FamilyOfPageWindow(const SheetContext& context, HWND page);
// Gives the sheet's tabs their captions where they still show template names.
void SetTabCaptions(const SheetContext& context);
// Title of a sub-dialog from the caption table; no match leaves it alone.
void SetSubDialogTitle(const SheetContext& context, HWND dialog, const char* templateName);

}  // namespace kvui
