// The UI host's services for pages: what a page is told at its start, its state block, the sheet's
// shared block and the mode.
#include <kvuihost.h>

#include "sheets.h"

namespace {

// What a module gets as host pointers A and B: it passes A to QDMLoadString and looks at neither.
struct HostIdentity {
    DWORD size = sizeof(HostIdentity);
};
HostIdentity hostA;
HostIdentity hostB;

template <typename Value>
void Give(Value* target, Value value) {
    if (target) *target = value;
}

int CrackPageStart(HWND window, kvhost::Page& page, LPVOID* outA, HINSTANCE* resources,
                   LPVOID* outB, DEVMODEA** publicSettings, BYTE** privateSettings,
                   PrinterBlock** printer) {
    const kvhost::Sheet& sheet = *page.sheet;
    auto* record = reinterpret_cast<DEVMODEA*>(sheet.request.record);
    kvhost::BindPage(page, window);
    Give<LPVOID>(outA, &hostA);
    Give<HINSTANCE>(resources, sheet.module);
    Give<LPVOID>(outB, &hostB);
    Give(publicSettings, record);
    Give(privateSettings, sheet.request.record + record->dmSize);
    Give(printer, sheet.request.printer);
    return 1;
}

}  // namespace

extern "C" {

int QDMCrackInfo(HWND window, UINT message, LPARAM lParam, LPVOID* outA, HINSTANCE* resources,
                 LPVOID* outB, LPVOID* pageState, DEVMODEA** publicSettings, BYTE** privateSettings,
                 LPVOID* /*reserved*/, PrinterBlock** printer) {
    if (!IsWindow(window)) return 0;
    if (message == WM_INITDIALOG) {
        kvhost::Page* page = kvhost::PageOfParameter(lParam);
        if (!page || (page->window && page->window != window)) return 0;
        return CrackPageStart(window, *page, outA, resources, outB, publicSettings, privateSettings,
                              printer);
    }
    LPVOID block = kvhost::BlockOf(window);
    Give(pageState, block);
    return block != nullptr;
}

LPVOID QDMDialogAlloc(HWND window, DWORD size) {
    return kvhost::AllocateBlock(window, size);
}

HostUiBlock* GetQDMUIInfo(HWND window, DWORD /*code*/, LPARAM lParam) {
    if (kvhost::Sheet* sheet = kvhost::SheetOfWindow(window)) return &sheet->shared;
    const kvhost::Page* page = kvhost::PageOfParameter(lParam);
    return page ? &page->sheet->shared : nullptr;
}

int QDMGetMode(HWND window, UINT message, LPARAM lParam, DWORD* mode) {
    if (!mode) return 0;
    const kvhost::Sheet* sheet = kvhost::SheetOfWindow(window);
    if (!sheet && message == WM_INITDIALOG) {
        const kvhost::Page* page = kvhost::PageOfParameter(lParam);
        if (page) sheet = page->sheet;
    }
    if (!sheet) return 0;
    *mode = sheet->request.mode;
    return 1;
}

void QDMEndDialog(HWND window, DWORD /*reserved*/) {
    kvhost::FreeBlock(window);
}

}  // extern "C"
