// The steps that pages and dialogs have in common, and the orders in which most pages take them.
// Each says what it does for the page or dialog of the Run; steps of one page stand beside its
// definition.
#pragma once

#include "dialog/run.h"
#include "dialog/texts.h"

namespace kvui {

// The sheet and the page's life.
void LoadRules(Run& run);     // the sheet-wide first-time initialisation
void EndOfSheet(Run& run);    // effective for the first page that goes
void LeaveSheet(Run& run);    // the page's part of the shared block; the last page frees it
void ReleaseBlock(Run& run);  // that, and the page's own block

// The settings' copy that Cancel and Reset put back.
void Keep(Run& run);
void Restore(Run& run);

// Filling.
void Fill(Run& run);              // the items of the page that the window's title names
void FillInTableOrder(Run& run);  // the dialog's items, in one walk
void FillByName(Run& run);        // the dialog's items, kind after kind
void RefreshControls(Run& run);   // hidden, filled, grayed
void DisableIfReadOnly(Run& run);
void ShowNotice(Run& run);  // of shared printers

// From a control to a setting: whether it has changed.
void Route(Run& run);
void RouteOrDefaults(Run& run);  // Defaults is a change by itself
void Dispatch(Run& run);         // without the router
void DispatchScroll(Run& run);   // of sliders and spins, once they rest

// After a change.
void React(Run& run);          // derives what follows from the control
void ReactToAll(Run& run);     // from every setting
void TellSheet(Run& run);      // which enables Apply
void ApplyDefaults(Run& run);  // of the page's items

// Auto Configure; a change that the printer's answer makes is a change of the page.
void AskPrinter(Run& run);

// The preview panel.
void ShowOwnViews(Run& run);
void AttachPanel(Run& run);  // the page becomes its parent
void UpdatePanel(Run& run);
void RefillPanel(Run& run);

void DrawEntry(Run& run);  // of an owner-drawn combo box

// What the definition has for these names.
void Take(Run& run);
void Refresh(Run& run);
void Show(Run& run);

bool DiffersFromKept(const Run& run);

// The steps where the settings are no longer those of the copy.
template <Step... kSteps>
void IfDiffers(Run& run) {
    if (DiffersFromKept(run)) InOrder<kSteps...>(run);
}

// The steps where a change has been taken.
template <Step... kSteps>
void IfTaken(Run& run) {
    if (run.taken) InOrder<kSteps...>(run);
}

// Of most pages, in this order.
constexpr Step kBeginOpening =
    InOrder<LoadRules, Keep, Fill, SetCaptions, DisableIfReadOnly, ShowNotice>;
constexpr Step kEndOpening = InOrder<Show, AttachPanel>;
constexpr Step kOpen = InOrder<kBeginOpening, kEndOpening>;
constexpr Step kActivate = InOrder<Fill, Show, Refresh, AttachPanel>;
constexpr Step kTakeAndRefresh = InOrder<Take, Refresh, UpdatePanel>;
constexpr Step kCommand = InOrder<RouteOrDefaults, IfChanged<kTakeAndRefresh>>;
constexpr Step kScroll = InOrder<DispatchScroll, IfChanged<IfDiffers<Take>, Refresh, UpdatePanel>>;
constexpr Step kTake = InOrder<React, TellSheet, IfDefaults<ApplyDefaults>>;
constexpr Step kRefresh = InOrder<RefreshControls, DisableIfReadOnly>;
constexpr Step kRefill = InOrder<Fill, Refresh, ReactToAll>;
constexpr Step kClose = InOrder<EndOfSheet, ReleaseBlock>;

// Of most dialogs: the catalogue's items, each command straight to the dispatcher.
constexpr Step kOpenDialog = InOrder<Keep, FillInTableOrder, SetCaptions>;
constexpr Step kFollowDialog = InOrder<IfDiffers<React, TellSheet>, Refresh>;
constexpr Step kDialogCommand = InOrder<Dispatch, kFollowDialog>;

}  // namespace kvui
