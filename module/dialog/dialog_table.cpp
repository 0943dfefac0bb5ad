// The rows of pages and dialogs.
#include "dialog/dialog_table.h"

#include <algorithm>
#include <cstring>

#include "resources/resource.h"
#include "resources/string_ids.h"

namespace kvui {
namespace {

constexpr Opener Clicked(DWORD control) {
    return {Opening::kClick, nullptr, control, 0, 0, 0};
}
constexpr Opener ClickedAfter(DWORD before, DWORD value, DWORD control) {
    return {Opening::kClick, nullptr, control, 0, before, value};
}
constexpr Opener ChosenAfter(DWORD before, DWORD valueBefore, DWORD control, DWORD value) {
    return {Opening::kChoose, nullptr, control, value, before, valueBefore};
}
// A control that opens it where the options allow that.
constexpr Opener Exported(const char* procedure, DWORD control = 0) {
    return {Opening::kExport, procedure, control, 0, 0, 0};
}
constexpr Opener ClickedInDialog(DWORD outer, DWORD button) {
    return {Opening::kInDialog, nullptr, outer, button, 0, 0};
}
constexpr Opener kRightClicked{Opening::kRightClick, nullptr, 0, 0, 0, 0};
constexpr Opener kUnopened{Opening::kNone, nullptr, 0, 0, 0, 0};

// clang-format off
// name, full name, template, dialog, caption, procedure
constexpr PageRow kPageRows[] = {
    {"Basic",           "Basic",                  "TAB0R",      "DLGTAB0",       IDS_PAGE_BASIC,           "DDMTAB0"},
    {"Layout",          "Layout",                 "TAB1R",      "DLGTAB1",       IDS_PAGE_LAYOUT,          "DDMTAB1"},
    {"Overlay",         "Overlay",                "TABOVERLAY", "DLGTABOVER",    IDS_PAGE_OVERLAY,         "DDMTABOVER"},
    {"Watermark",       "Watermark",              "TABWM",      "DLGTABWM",      IDS_PAGE_WATERMARK,       "DDMTABWM"},
    {"Quality",         "Quality",                "TAB2R",      "DLGTAB2",       IDS_PAGE_QUALITY,         "DDMTAB2"},
    {"Device",          "Device Options Setting", "TAB3",       "DLGTAB3",       IDS_PAGE_DEVICE_OPTIONS,  "DDMTAB3"},
    {"Troubleshooting", "Troubleshooting",        "TABVERSION", "DLGTABVERSION", IDS_PAGE_TROUBLESHOOTING, "DDMAbout"},
    {"Job",             "Job Management",         "TAB4",       "DLGTAB4",       IDS_PAGE_JOB_MANAGEMENT,  "DDMTAB4"},
};

// name, page, template, dialog, title, opener
constexpr DialogRow kDialogRows[] = {
    {"first-page",            "TAB0R",      "_LBPFIRSTPAGE",       "_LBPFIRSTPAGE",  IDS_TITLE_FIRST_PAGE,       Clicked(IDC_CHK_FIRST_PAGE_SOURCE)},
    {"paper-source-details",  "TAB0R",      "_DLGTAB00",           "DLGTAB00",       IDS_TITLE_PAPER_SOURCE,     Exported("DDMTAB00")},
    {"custom-papers",         "TAB0R",      "_LBPCUSTOMPAPERS",    "",               IDS_TITLE_CUSTOM_PAPERS,    Clicked(IDC_BTN_CUSTOM_PAPER)},
    {"paper-editor",          "TAB0R",      "_LBPEDITPAPER",       "",               IDS_TITLE_EDIT_PAPER,       ClickedInDialog(IDC_BTN_CUSTOM_PAPER, IDC_BTN_PAPER_NEW)},
    {"save-settings",         "TAB0R",      "DLGSAVEEASYSET",      "",               IDS_TITLE_SAVE_SET,         kUnopened},
    {"edit-settings",         "TAB0R",      "DLGEDITEASYSET",      "",               IDS_TITLE_EDIT_SETS,        kUnopened},
    {"keep-settings",         "TAB0R",      "_DLGKEEPSETTINGADD",  "",               0,                          Exported("DDMKeepSettingAdd")},
    {"saved-data",            "TAB0R",      "_DLGSAVEDATA",        "",               0,                          Exported("DDMSaveData")},
    // A transparency cannot come from the first tray.
    {"conflict",              "TAB0R",      "_CONFLICTS",          "",               IDS_TITLE_CONFLICTS,        ChosenAfter(IDC_COMBO_PAPER_SOURCE, 1, IDC_COMBO_MEDIA_TYPE, 2)},
    {"pages-per-sheet",       "TAB1R",      "_DLGCOMBINATION",     "DLGCOMBINATION", IDS_TITLE_NUP_DETAILS,      ClickedAfter(IDC_COMBO_NUP, 4, IDC_BTN_NUP_DETAILS)},
    {"pages-per-sheet-style", "TAB1R",      "_DLGTAB02",           "DLGTAB02",       IDS_TITLE_NUP_STYLE,        Exported("DDMTAB02")},
    {"output-details",        "TAB1R",      "_DLGTAB01",           "DLGTAB01",       IDS_TITLE_OUTPUT_SETTING,   Exported("DDMTAB01")},
    {"image-shift",           "TAB1R",      "_LBPIMAGESHIFT",      "_LBPIMAGESHIFT", IDC_GRP_IMAGE_SHIFT,        ClickedAfter(IDC_CHK_IMAGE_SHIFT, 1, IDC_BTN_IMAGE_SHIFT)},
    {"overlay-editor",        "TABOVERLAY", "_LBPEDITOVERLAY",     "",               IDS_TITLE_OVERLAY,          Clicked(IDC_BTN_OVERLAY_ADD)},
    {"watermark-editor",      "TABWM",      "_LBPQUARNWATERCOLOR", "",               IDS_TITLE_WATERMARK,        Clicked(IDC_BTN_WATERMARK_ADD)},
    {"record-editor",         "TABWM",      "_DLGEDIT0",           "",               IDS_TITLE_EDIT_WATERMARK,   Exported("DDMEDIT0")},
    {"quality-list",          "TAB2R",      "_DLGTAB20",           "DLGTAB20",       0,                          Exported("DDMTAB20")},
    {"mailboxes",             "TAB3",       "_MAILBOXR",           "MAILBOX",        IDS_TITLE_MAILBOX,          Exported("DDMMailBox", IDC_BTN_MAILBOX)},
    {"option-conflict",       "TAB3",       "_OPTIONCONFLICT",     "",               IDS_TITLE_OPTION_CONFLICTS, kUnopened},
    {"advanced-settings",     "TAB3",       "_ADVANCEDSETTINGS",   "",               0,                          kRightClicked},
    {"hue-correction",        "TAB3",       "_HUECORRECTION",      "",               0,                          kUnopened},
    {"about",                 "TAB3",       "_ABOUTKVI",           "",               IDS_TITLE_ABOUT,            Exported("DDMAbout")},
    {"printer-properties",    "TAB3",       "_ABOUTKVI",           "",               IDS_TITLE_ABOUT,            Exported("DDMPrinterProp")},
};
// clang-format on

}  // namespace

constinit const std::span<const PageRow> kPages = kPageRows;
constinit const std::span<const DialogRow> kDialogs = kDialogRows;

const PageRow& PageOfWindow(const SheetContext& context, HWND page) {
    char title[64] = "";
    GetWindowTextA(page, title, sizeof title);
    for (const PageRow& row : kPages) {
        char caption[64] = "";
        LoadStringA(context.resources, row.captionId, caption, sizeof caption);
        if (caption[0] != '\0' && std::strcmp(caption, title) == 0) return row;
    }
    return *std::ranges::find(kPages, UINT{IDS_PAGE_TROUBLESHOOTING}, &PageRow::captionId);
}

UINT TitleOfTemplate(const char* templateName) {
    for (const DialogRow& row : kDialogs) {
        if (std::strcmp(row.templateName, templateName) == 0) return row.titleId;
    }
    return 0;
}

}  // namespace kvui
