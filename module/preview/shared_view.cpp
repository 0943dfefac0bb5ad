// The preview panel: its dialog, the views of each page kind, the switch between them, and its way
// from page to page.
#include "preview/shared_view.h"

#include <initializer_list>

#include "preview/colour_sample.h"
#include "preview/paper_view.h"
#include "preview/printer_figure.h"
#include "preview/state_strip.h"
#include "preview/view_hook.h"
#include "preview/view_words.h"
#include "preview/watermark_view.h"
#include "resources/resource.h"
#include "resources/string_ids.h"
#include "sheet/message_box.h"
#include "sheet/messages.h"

namespace kvui {
namespace {

enum ViewType : int { kPrinterFigure = 1, kPaperView, kWatermarkView, kQualityView };

// View type, what draws it and what says in words what it shows.
constexpr struct {
    ViewType type;
    View view;
} kViews[] = {
    {kPrinterFigure, {PaintPrinterFigure, DescribePrinter}},
    {kPaperView, {PaintPaperView, DescribePaper}},
    {kWatermarkView, {PaintWatermarkView, DescribeWatermark}},
    {kQualityView, {PaintColourSample, DescribeColourSample}},
};

// The strip of state icons.
constexpr View kStrip = {PaintStateStrip, DescribeStates};

// Page kind, types of its two views, the switch button's label while each of them shows.
struct PageViews {
    ViewKind kind;
    ViewType types[2];
    UINT labels[2];
};
constexpr PageViews kPageViews[] = {
    {kViewPage,      {kPaperView,     kPrinterFigure}, {IDS_VIEW_PRINTER, IDS_VIEW_PAPER}},
    {kViewWatermark, {kWatermarkView, kPrinterFigure}, {IDS_VIEW_PRINTER, IDS_VIEW_WATERMARK}},
    {kViewQuality,   {kQualityView,   kPrinterFigure}, {IDS_VIEW_PRINTER, IDS_VIEW_QUALITY}},
    {kViewDevice,    {kPaperView,     kPrinterFigure}, {IDS_VIEW_PRINTER, IDS_VIEW_PAPER}},
};

const PageViews* ViewsOf(int kind) {
    for (const PageViews& row : kPageViews) {
        if (row.kind == kind) return &row;
    }
    return nullptr;
}

const View& ViewOf(ViewType type) {
    for (const auto& row : kViews) {
        if (row.type == type) return row.view;
    }
    return kViews[0].view;
}

// Shows one of the two views of the active page's kind.
void ShowView(SheetContext& context) {
    const SharedSheet& shared = *context.shared;
    const PageViews* views = ViewsOf(shared.preview.pageKind);
    if (shared.preview.panel == nullptr || views == nullptr) return;
    const int index = shared.preview.viewIndex;
    char label[64] = "";
    LoadStringA(context.strings, views->labels[index], label, sizeof label);
    SetDlgItemTextA(shared.preview.panel, IDC_BTN_CHANGE_VIEW, label);
    HookView(GetDlgItem(shared.preview.panel, IDC_PIC_MAIN_VIEW), context,
             ViewOf(views->types[index]));
    HookView(GetDlgItem(shared.preview.panel, IDC_PIC_SUB_VIEW), context, kStrip);
    UpdateStateTips(context, GetDlgItem(shared.preview.panel, IDC_PIC_SUB_VIEW));
}

void RepaintViews(HWND panel) {
    for (const int id : {IDC_PIC_MAIN_VIEW, IDC_PIC_SUB_VIEW}) {
        InvalidateRect(GetDlgItem(panel, id), nullptr, FALSE);
    }
}

SheetContext* ContextOf(HWND panel) {
    return reinterpret_cast<SheetContext*>(GetWindowLongPtrA(panel, DWLP_USER));
}

// The large view gets the size of its ground, the strip the same width.
void FitViews(HWND panel) {
    RECT strip{};
    GetClientRect(GetDlgItem(panel, IDC_PIC_SUB_VIEW), &strip);
    ResizeView(GetDlgItem(panel, IDC_PIC_SUB_VIEW), kGroundWidth, strip.bottom);
    ResizeView(GetDlgItem(panel, IDC_PIC_MAIN_VIEW), kGroundWidth, kGroundHeight);
}

void SwitchView(SheetContext& context) {
    context.shared->preview.viewIndex = 1 - context.shared->preview.viewIndex;
    ShowView(context);
}

INT_PTR CALLBACK PanelProc(HWND panel, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            SetWindowLongPtrA(panel, DWLP_USER, lParam);
            FitViews(panel);
            return FALSE;  // the focus stays where it is
        case WM_COMMAND:
            if (LOWORD(wParam) != IDC_BTN_CHANGE_VIEW || HIWORD(wParam) != BN_CLICKED) return FALSE;
            SwitchView(*ContextOf(panel));
            return TRUE;
        case kMessageRefreshAll:
            RepaintViews(panel);
            return TRUE;
        default:
            return FALSE;
    }
}

}  // namespace

void CreateSharedView(SheetContext& context) {
    SharedSheet& shared = *context.shared;
    if (shared.preview.panel != nullptr) return;
    shared.preview.panel = CreateDialogParamA(context.resources, "DLGCOMMONVIEW", context.page,
                                              PanelProc, reinterpret_cast<LPARAM>(&context));
    if (shared.preview.panel == nullptr) {
        ShowMessage(context.page, "CommonViewDialog Failed", "CreateDialog Result", MB_OK);
    }
}

void ShowViewKind(SheetContext& context, ViewKind kind) {
    context.shared->preview.viewIndex = kind == kViewDevice ? 1 : 0;
    context.shared->preview.pageKind = kind;
    ShowView(context);
}

void AttachSharedView(SheetContext& context) {
    SharedSheet& shared = *context.shared;
    shared.preview.page = context.page;
    for (const HWND window : {shared.preview.panel, shared.saved.strip}) {
        if (window == nullptr) continue;
        if (GetParent(window) != context.page) SetParent(window, context.page);
        ShowWindow(window, SW_SHOW);
    }
    if (shared.preview.panel != nullptr) {
        // Last in the tab order: a page's first control gets the focus when the page comes up.
        SetWindowPos(shared.preview.panel, HWND_BOTTOM, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        SetWindowLongPtrA(shared.preview.panel, DWLP_USER, reinterpret_cast<LONG_PTR>(&context));
    }
    if (shared.preview.pageKind == 0) shared.preview.pageKind = kViewPage;
    ShowView(context);
}

void UpdateSharedView(SheetContext& context) {
    const HWND panel = context.shared->preview.panel;
    if (panel == nullptr) return;
    RepaintViews(panel);
    UpdateStateTips(context, GetDlgItem(panel, IDC_PIC_SUB_VIEW));
}

void DestroySharedView(SharedSheet& shared) {
    DestroyStateTips(shared);
    for (HWND* window : {&shared.preview.panel, &shared.saved.strip}) {
        if (*window != nullptr) DestroyWindow(*window);
        *window = nullptr;
    }
    shared.preview.page = nullptr;
}

void HookPrinterFigure(SheetContext& context, HWND frame) {
    if (frame == nullptr) return;
    ResizeView(frame, kGroundWidth, kGroundHeight);
    HookView(frame, context, ViewOf(kPrinterFigure));
}

void SetSampleMode(SheetContext& context, SampleMode mode) {
    if (context.shared->preview.sampleMode == mode) return;
    context.shared->preview.sampleMode = mode;
    UpdateSharedView(context);
}

}  // namespace kvui
