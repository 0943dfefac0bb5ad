// The page table that GetPropSheetPages hands out, and the caption tables beside it.
#include "ui/page_table.h"

#include <windows.h>

#include <commctrl.h>
#include <kvcore.h>
#include <prsht.h>

#include <cstring>

#include "exports.h"
#include "resources/resource.h"
#include "resources/string_ids.h"

namespace kvui {

// template, procedure, reserved, reserved, flags 1, flags 2 (the host's meaning), reserved
const PageEntry kPageTable[] = {
    {"TAB0R", "DDMTAB0", nullptr, nullptr, 3, 2, nullptr},
    {"TAB1R", "DDMTAB1", nullptr, nullptr, 3, 2, nullptr},
    {"TABOVERLAY", "DDMTABOVER", nullptr, nullptr, 3, 2, nullptr},
    {"TABWM", "DDMTABWM", nullptr, nullptr, 3, 2, nullptr},
    {"TAB2R", "DDMTAB2", nullptr, nullptr, 3, 2, nullptr},
    {"TAB3", "DDMTAB3", nullptr, nullptr, 3, 2, nullptr},
    {"TABVERSION", "DDMAbout", nullptr, nullptr, 3, 2, nullptr},
    {nullptr, nullptr, nullptr, nullptr, 0, 0, nullptr},
};

// template, caption string, handler family
const PageCaption kPageCaptions[kPageCount] = {
    {"TAB0R", IDS_PAGE_BASIC, kFamilyBasic},
    {"TAB1R", IDS_PAGE_LAYOUT, kFamilyLayout},
    {"TABWM", IDS_PAGE_WATERMARK, kFamilyWatermark},
    {"TABOVERLAY", IDS_PAGE_OVERLAY, kFamilyOverlay},
    {"TAB2R", IDS_PAGE_QUALITY, kFamilyQuality},
    {"TAB3", IDS_PAGE_DEVICE_OPTIONS, kFamilyDeviceOptions},
    {"TAB4", IDS_PAGE_JOB_MANAGEMENT, kFamilyJobManagement},
    {"TABVERSION", IDS_PAGE_TROUBLESHOOTING, kFamilyTroubleshooting},
};

namespace {

// template, caption string
const SubDialogCaption kSubDialogCaptions[] = {
    {"_DLGEDIT0", IDS_TITLE_EDIT_WATERMARK},
    {"_DLGTAB00", IDS_TITLE_PAPER_SOURCE},
    {"_DLGTAB01", IDS_TITLE_OUTPUT_SETTING},
    {"_DLGTAB02", IDS_TITLE_NUP_STYLE},
    {"_ABOUTKVI", IDS_TITLE_ABOUT},
    {"_MAILBOX", IDS_TITLE_MAILBOX},
    {"_CONFLICTS", IDS_TITLE_CONFLICTS},
    {"_LBPIMAGESHIFT", IDC_GRP_IMAGE_SHIFT},
    {"_DLGCOMBINATION", IDS_TITLE_NUP_DETAILS},
    {"_LBPFIRSTPAGE", IDS_TITLE_FIRST_PAGE},
};

// By family.
const char* const kDialogNames[kFamilyCount] = {
    "DLGTAB0", "DLGTAB1",       "DLGTAB2",    "DLGTAB3",
    "DLGTAB4", "DLGTABVERSION", "DLGTABOVER", "DLGTABWM",
};

const PageCaption* CaptionOfTemplate(const char* templateName) {
    for (const PageCaption& row : kPageCaptions) {
        if (std::strcmp(row.templateName, templateName) == 0) return &row;
    }
    return nullptr;
}

}  // namespace

const char* DialogNameOfFamily(PageFamily family) {
    return kDialogNames[family];
}

PageFamily FamilyOfPageWindow(const SheetContext& context, HWND page) {
    char title[64] = "";
    GetWindowTextA(page, title, sizeof title);
    for (const PageCaption& row : kPageCaptions) {
        char caption[64] = "";
        LoadStringA(context.resources, row.captionId, caption, sizeof caption);
        if (caption[0] != '\0' && std::strcmp(caption, title) == 0) return row.family;
    }
    return kPageCaptions[kPageCount - 1].family;
}

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
        for (int row = 0; row < kPageCount - 1; ++row) {
            if (std::strcmp(kPageTable[row].templateName, text) != 0) continue;
            char caption[64] = "";
            const PageCaption* entry = CaptionOfTemplate(text);
            if (entry == nullptr ||
                LoadStringA(context.strings, entry->captionId, caption, sizeof caption) == 0) {
                break;
            }
            item.pszText = caption;
            SendMessageA(tabs, TCM_SETITEMA, i, reinterpret_cast<LPARAM>(&item));
            break;
        }
    }
}

void SetSubDialogTitle(const SheetContext& context, HWND dialog, const char* templateName) {
    for (const SubDialogCaption& row : kSubDialogCaptions) {
        if (std::strcmp(row.templateName, templateName) != 0) continue;
        char title[64] = "";
        if (LoadStringA(context.strings, row.captionId, title, sizeof title) != 0) {
            SetWindowTextA(dialog, title);
        }
        return;
    }
}

}  // namespace kvui

const kvui::PageEntry* GetPropSheetPages(void* printer) {
    char modelType[256];
    // The table is the same for every model; the read only wakes the printer's description up.
    QDMGetPrinterKeyValue(static_cast<PrinterBlock*>(printer), kPrinterValueSection, "ModelType",
                          kPrinterValueText, modelType, sizeof modelType);
    return kvui::kPageTable;
}
