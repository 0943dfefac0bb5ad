// The page table that GetPropSheetPages hands out, made of the rows of pages.
#include "ui/page_table.h"

#include <commctrl.h>
#include <kvcore.h>
#include <page_entry.h>
#include <prsht.h>

#include <cstring>
#include <vector>

#include "dialog/dialog_table.h"
#include "exports.h"

namespace kvui {
namespace {

constexpr DWORD kSecondFlags = 2;  // reserved for module kinds without a property sheet

// The host creates Job Management by itself.
std::span<const PageRow> OfferedPages() {
    return kPages.first(kPages.size() - 1);
}

// Ended by a row of zeros.
std::vector<PageEntry> MakePageTable() {
    std::vector<PageEntry> table;
    for (const PageRow& page : OfferedPages()) {
        table.push_back({.pageTemplate = page.templateName,
                         .procedure = page.procedure,
                         .reserved1 = nullptr,
                         .reserved2 = nullptr,
                         .flags1 = kPageShown | kPageHasHelp,
                         .flags2 = kSecondFlags,
                         .reserved3 = nullptr});
    }
    table.push_back({});
    return table;
}

}  // namespace

void SetTabCaptions(const SheetContext& context) {
    const HWND sheet = GetParent(context.page);
    const HWND tabs = reinterpret_cast<HWND>(SendMessageA(sheet, PSM_GETTABCONTROL, 0, 0));
    if (tabs == nullptr) return;
    const int count = static_cast<int>(SendMessageA(tabs, TCM_GETITEMCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) {
        char text[64] = "";
        TCITEMA item{};
        item.mask = TCIF_TEXT;
        item.pszText = text;
        item.cchTextMax = sizeof text;
        if (!SendMessageA(tabs, TCM_GETITEMA, i, reinterpret_cast<LPARAM>(&item))) continue;
        for (const PageRow& page : OfferedPages()) {
            if (std::strcmp(page.templateName, text) != 0) continue;
            char caption[64] = "";
            if (LoadStringA(context.strings, page.captionId, caption, sizeof caption) == 0) {
                break;
            }
            item.pszText = caption;
            SendMessageA(tabs, TCM_SETITEMA, i, reinterpret_cast<LPARAM>(&item));
            break;
        }
    }
}

}  // namespace kvui

const PageEntry* GetPropSheetPages(void* printer) {
    static const std::vector<PageEntry> table = kvui::MakePageTable();
    char modelType[256];
    // The table is the same for every model; the read only wakes the printer's description up.
    QDMGetPrinterKeyValue(static_cast<PrinterBlock*>(printer), kPrinterValueSection, "ModelType",
                          kPrinterValueText, modelType, sizeof modelType);
    return table.data();
}
