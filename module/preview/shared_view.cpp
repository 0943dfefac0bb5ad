// Keeps track of the page that holds the shared view, moves the panel's windows there and repaints
// them; a sheet without a panel only remembers the page.
#include "preview/shared_view.h"

#include <initializer_list>

namespace kvui {

void ShowViewKind(SheetContext& context, ViewKind kind) { context.shared->pageKind = kind; }

void AttachSharedView(SheetContext& context) {
    SharedSheet& shared = *context.shared;
    shared.viewPage = context.page;
    for (const HWND window : {shared.viewPanel, shared.savedSettingsStrip}) {
        if (window == nullptr) continue;
        if (GetParent(window) != context.page) SetParent(window, context.page);
        ShowWindow(window, SW_SHOW);
    }
    UpdateSharedView(context);
}

void UpdateSharedView(SheetContext& context) {
    if (context.shared->viewPanel != nullptr) {
        InvalidateRect(context.shared->viewPanel, nullptr, FALSE);
    }
}

void DestroySharedView(SharedSheet& shared) {
    for (HWND* window : {&shared.viewPanel, &shared.savedSettingsStrip}) {
        if (*window != nullptr) DestroyWindow(*window);
        *window = nullptr;
    }
    shared.viewPage = nullptr;
}

void SetSampleMode(SheetContext& context, SampleMode mode) {
    if (context.shared->sampleMode == mode) return;
    context.shared->sampleMode = mode;
    UpdateSharedView(context);
}

// The renderer is not there yet: the frame stays as the dialog's template made it.
void HookPaperView(SheetContext& /*context*/, HWND /*frame*/) {}

}  // namespace kvui
