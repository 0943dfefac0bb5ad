// The skeleton of every page: one procedure over a record of what the page does differently.
#pragma once

#include "binding/control_fill.h"
#include "preview/shared_view.h"
#include "sheet/sheet_context.h"

namespace kvui {

// Sent by the shared view or another page: fill everything again.
constexpr UINT kMessageRefreshAll = WM_USER + 300;

// What a page takes part in.
enum PageFeature : unsigned {
    kKeepsChanges = 0x1,  // a snapshot after each
    kShowsNotice = 0x2,   // of shared printers
    kSetsCaptions = 0x4,  // by control id
    kHasDefaults = 0x8,
    // A command that leaves the settings as the snapshot has them is no change: nothing is derived
    // and nobody told. After one that is, the hook runs again and the common area fills anew.
    kComparesFirst = 0x10,
    kAppliesNothing = 0x20,  // not even a snapshot
};
constexpr unsigned kOrdinaryPage = kShowsNotice | kSetsCaptions | kHasDefaults;

constexpr ViewKind kNoView{};  // the page has no place for the panel

struct PageTraits {
    const char* dialogName;  // of the page's items in the catalogue
    int helpTopic;
    ViewKind viewKind;
    unsigned features;
    DWORD tailSize = 0;
    // Hooks; null where the page adds nothing.
    void (*onInit)(SheetContext&) = nullptr;
    void (*onActivate)(SheetContext&) = nullptr;
    void (*beforeCommand)(SheetContext&, DWORD id, WORD code) = nullptr;
    // After routing, changed or not.
    void (*onCommand)(SheetContext&, DWORD id, WORD code) = nullptr;
    void (*onDefaults)(SheetContext&) = nullptr;
    void (*onChanged)(SheetContext&, DWORD id) = nullptr;
    // Before the control is read back.
    void (*onScroll)(SheetContext&, HWND control, WORD code) = nullptr;
    // All fields derived, before the refresh.
    void (*afterCommand)(SheetContext&, SettingChanged) = nullptr;
    void (*afterRefresh)(SheetContext&) = nullptr;
    // Before the snapshot.
    void (*onApply)(SheetContext&) = nullptr;
    bool (*onPaintStatic)(SheetContext&, HWND control, HDC dc) = nullptr;
    bool (*onMessage)(SheetContext&, UINT message, WPARAM wParam, LPARAM lParam) = nullptr;
};

INT_PTR RunPage(const PageTraits& traits, HWND page, UINT message, WPARAM wParam, LPARAM lParam);

// Fills the controls of the page whose window this is, known by its title.
void InitialisePage(SheetContext& context, HWND page);
// Every child whose id is also the id of a string gets that string.
void SetChildCaptions(const SheetContext& context, HWND dialog);
// Runs when a page or sub-dialog begins or becomes active, by its dialog name.
void RunActivationHook(SheetContext& context, HWND dialog, const char* dialogName);
void DisableChildren(HWND dialog);
void TellSheetChanged(HWND page);

}  // namespace kvui
