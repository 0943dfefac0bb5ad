// The rows of the item catalogue: every control that carries a setting or needs a caption. The order
// is that of all walks and lookups, so a row is never moved.
#include "resources/resource.h"
#include "resources/string_ids.h"
#include "settings/catalogue_controls.h"
#include "settings/catalogue_lists.h"

namespace kvui {

// Opens nothing: the mailbox dialog takes the press itself.
constinit ButtonItem mailBoxApplyButton{};

namespace {

// The bits of its field that a control owns. Rule conditions name single bits of Bits by number and
// compare the value of Part as a whole.
struct Owned {
    MaskMode mode;
    DWORD mask;
};
constexpr Owned kWhole = {kMaskWholeField, 0};
constexpr Owned Bits(DWORD mask) { return {kMaskBitNumbers, mask}; }
constexpr Owned Part(DWORD mask) { return {kMaskValues, mask}; }

// Entries of the row itself, or which run-time list has them.
struct Entries {
    const SelectItem* own;
    RunTimeList runTime;
    consteval Entries(const SelectItem* entries) : own(entries), runTime(RunTimeList::kNone) {}
    consteval Entries(RunTimeList list) : own(nullptr), runTime(list) {}
};
using enum RunTimeList;

// What the rows of every type share. The rules file names a control by its control name in all
// sections; a control without a setting takes part in no conflict.
consteval ControlItem Item(ItemType type, DWORD id, const char* name, const char* dialog,
                           const char* field, DWORD caption, DWORD help) {
    ControlItem item{};
    item.controlId = id;
    SetName(item.controlName, name);
    SetName(item.dialogName, dialog);
    item.type = type;
    SetName(item.settingField, field);
    SetName(item.optionKey, name);
    if (*field != '\0') SetName(item.conflictKey, name);
    SetName(item.grayOutKey, name);
    item.captionId = caption;
    item.entryEditMode = type == kItemEdit ? 1 : 2;
    item.helpId = help;
    return item;
}

consteval ControlItem Text(DWORD id, const char* name, const char* dialog, DWORD caption,
                           DWORD help) {
    return Item(kItemText, id, name, dialog, "", caption, help);
}

consteval ControlItem Edit(DWORD id, const char* name, const char* dialog, const char* field,
                           DWORD caption, const EditAttribute* edit, DWORD help) {
    ControlItem item = Item(kItemEdit, id, name, dialog, field, caption, help);
    item.edit = edit;
    return item;
}

consteval ControlItem Combo(DWORD id, const char* name, const char* dialog, const char* field,
                            DWORD caption, Owned owned, Entries entries, DWORD help,
                            DWORD picture = 0) {
    ControlItem item = Item(kItemCombo, id, name, dialog, field, caption, help);
    item.pictureId = picture;
    item.maskMode = owned.mode;
    item.mask = owned.mask;
    item.selectList = entries.own;
    item.runTimeList = entries.runTime;
    return item;
}

consteval ControlItem List(DWORD id, const char* name, const char* dialog, const char* field,
                           DWORD caption, Owned owned, Entries entries, DWORD help,
                           const char* rulesSection = "") {
    ControlItem item = Combo(id, name, dialog, field, caption, owned, entries, help);
    item.type = kItemList;
    SetName(item.listName, rulesSection);
    return item;
}

consteval ControlItem Radio(DWORD id, const char* name, const char* dialog, const char* field,
                            DWORD caption, const RadioItem* buttons, DWORD help,
                            DWORD picture = 0) {
    ControlItem item = Item(kItemRadio, id, name, dialog, field, caption, help);
    item.pictureId = picture;
    item.radioList = buttons;
    return item;
}

consteval ControlItem Check(DWORD id, const char* name, const char* dialog, const char* field,
                            DWORD caption, Owned owned, const CheckItem* check, DWORD help,
                            DWORD picture = 0, const ButtonItem* opens = nullptr) {
    ControlItem item = Item(kItemCheck, id, name, dialog, field, caption, help);
    item.pictureId = picture;
    item.maskMode = owned.mode;
    item.mask = owned.mask;
    item.check = check;
    item.button = opens;
    return item;
}

consteval ControlItem Button(DWORD id, const char* name, const char* dialog, DWORD caption,
                             const ButtonItem* button, DWORD help) {
    ControlItem item = Item(kItemButton, id, name, dialog, "", caption, help);
    item.button = button;
    return item;
}

consteval ControlItem Slider(DWORD id, const char* name, const char* dialog, const char* field,
                             const SliderItem* slider, DWORD help) {
    ControlItem item = Item(kItemSlider, id, name, dialog, field, 0, help);
    item.slider = slider;
    return item;
}

// Columns: control id, name, dialog, setting field, caption string, owned bits, list or record, help
// topic; then what few rows have: picture control, dialog that a check box opens, rules-file section
// of a list. Columns that a type has no use for are left blank.
// clang-format off
constexpr ControlItem kRows[] = {
    Text  (IDC_ST_PAPER_SIZE,             "PaperSizeGroup",           "DLGTAB0",                               IDC_ST_PAPER_SIZE,                                                             1211),
    Combo (IDC_COMBO_PAPER_SIZE,          "ComboPaperSize",           "DLGTAB0",        "dmPaperSize",         IDC_ST_PAPER_SIZE,             kWhole,           kPapers,                      1211),
    Button(IDC_BTN_CUSTOM_PAPER,          "EditCustom",               "DLGTAB0",                               IDC_BTN_CUSTOM_PAPER,                            &kOpenCustomPapers,           1211),
    Check (IDC_CHK_ALL_PAPER_SIZE,        "ChkAllPaperSize",          "DLGTAB0",        "mdmOtherSettings",    IDC_CHK_ALL_PAPER_SIZE,        Part(0x40),       &kAllPaperSizeCheck,          1211),
    Text  (IDC_ST_OUT_PAPER,              "GrpOutPaper",              "DLGTAB0",                               IDC_ST_OUT_PAPER,                                                              1212),
    Check (IDC_CHK_OUT_PAPER,             "ChkOutPaper",              "DLGTAB0",        "mdmOutputPaper",      IDS_OUT_PAPER_CHECK,           Part(0x80000000), &kOutPaperCheck,              1212),
    Combo (IDC_COMBO_OUT_PAPER,           "CBOutPaper",               "DLGTAB0",        "mdmOutputPaper",      IDC_ST_OUT_PAPER,              kWhole,           kOutputPapers,                1212),
    Check (IDC_CHK_FIT_TO_PAPER,          "ChkFitToPaper",            "DLGTAB0",        "mdmFitToPaper",       0,                             kWhole,           &kFitToPaperCheck,            1212),
    Radio (IDC_GRP_SCALING,               "RadioScaling",             "DLGTAB0",        "mdmFitToPaper",       IDC_GRP_SCALING,                                 kScalingButtons,              5320),
    Edit  (IDC_EDIT_SCALING,              "EditScaling",              "DLGTAB0",        "mdmScaleSize",        IDC_GRP_SCALING,                                 &kScalingEdit,                5320),
    Text  (IDC_ST_SCALING_UNIT,           "StScalingUnit",            "DLGTAB0",                               IDC_ST_SCALING_UNIT,                                                           5320),
    Text  (IDC_ST_SCALING_RANGE,          "StScalingRange",           "DLGTAB0",                               IDC_ST_SCALING_RANGE,                                                          5320),
    Text  (IDC_ST_PAPER_SOURCE,           "StaticPaperSource",        "DLGTAB0",                               IDC_ST_PAPER_SOURCE,                                                           1117),
    Combo (IDC_COMBO_PAPER_SOURCE,        "ComboPaperSource",         "DLGTAB0",        "dmDefaultSource",     IDC_ST_PAPER_SOURCE,           kWhole,           kSources,                     1117),
    Check (IDC_CHK_FIRST_PAGE_SOURCE,     "Chk1stPageSource",         "DLGTAB0",        "mdmFirstPage",        IDC_CHK_FIRST_PAGE_SOURCE,     Part(1),          &k1stPageSourceCheck,         5111, 0, &kOpenFirstPage),
    Text  (IDC_ST_FIRST_PAGE_SOURCE,      "Static1stPageSource",      "_LBPFIRSTPAGE",                         IDC_ST_FIRST_PAGE_SOURCE,                                                      5321),
    Combo (IDC_COMBO_FIRST_PAGE_SOURCE,   "Combo1stPageSource",       "_LBPFIRSTPAGE",  "mdmFirstPageSource",  IDC_ST_FIRST_PAGE_SOURCE,      kWhole,           kOtherSources,                5321),
    Button(IDC_BTN_FIRST_PAGE,            "Chk1stPage",               "DLGTAB0",                               IDC_BTN_FIRST_PAGE,                              &kOpenPaperSourceDetails,     1117),
    Text  (IDC_ST_MEDIA_TYPE,             "StaticMediaType",          "DLGTAB0",                               IDC_ST_MEDIA_TYPE,                                                             5111),
    Combo (IDC_COMBO_MEDIA_TYPE,          "ComboMediaType",           "DLGTAB0",        "MediaType",           IDC_ST_MEDIA_TYPE,             kWhole,           kMediaEntries,                5111),
    Combo (IDC_COMBO_INSTALLED_STATE,     "ComboInstalledOptions",    "DLGTAB3",        "",                    IDC_ST_INSTALLED_STATE,        kWhole,           kInstalledStateEntries,       1411),
    Text  (IDC_ST_FIRST_PAGE_MEDIA,       "Static1stPageMedia",       "_LBPFIRSTPAGE",                         IDC_ST_FIRST_PAGE_MEDIA,                                                       5321),
    Combo (IDC_COMBO_FIRST_PAGE_MEDIA,    "Combo1stPageMedia",        "_LBPFIRSTPAGE",  "mdmFirstPageMedia",   IDC_ST_FIRST_PAGE_MEDIA,       kWhole,           kFirstPageMediaEntries,       5321),
    Text  (IDC_GRP_OUTPUT_SETTING,        "GrpOutputSetting",         "DLGTAB0",                               IDC_GRP_OUTPUT_SETTING,                                                        1118),
    Combo (IDC_COMBO_OUTPUT_SETTING,      "ComboOutputSetting",       "DLGTAB0",        "mdmOutBin",           IDC_GRP_OUTPUT_SETTING,        kWhole,           kOutBinEntries,               1118),
    List  (IDC_LIST_OUTPUT_SETTING,       "ListOutputSetting",        "DLGTAB0",        "mdmMailBins",         0,                             kWhole,           kMailBins,                    1118),
    Button(IDC_BTN_OUTPUT_SETTING,        "DetailOfOutputSetting",    "DLGTAB0",                               IDC_BTN_OUTPUT_SETTING,                          &kOpenOutputDetails,          1118),
    Radio (IDC_GRP_ORIENTATION,           "RadioOrientation",         "DLGTAB0",        "dmOrientation",       IDC_GRP_ORIENTATION,                             kOrientationButtons,          1216, IDC_PIC_ORIENTATION),
    Text  (IDC_GRP_COPIES,                "GrpCopies",                "DLGTAB0",                               IDC_GRP_COPIES,                                                                1213),
    Edit  (IDC_EDIT_COPIES,               "EditCopies",               "DLGTAB0",        "dmCopies",            IDC_GRP_COPIES,                                  &kCopiesEdit,                 1213),
    Text  (IDC_ST_COPIES,                 "StCopies",                 "DLGTAB0",                               IDC_ST_COPIES,                                                                 1213),
    Check (IDC_CHK_COLLATE,               "ChkCollate",               "DLGTAB0",        "mdmCollate",          IDS_COLLATE,                   Part(1),          &kCollateCheck,               1214, IDC_PIC_COLLATE),
    Check (IDC_CHK_TRANSMIT_ONCE,         "ChkTransmitOnce",          "DLGTAB0",        "mdmOtherSettings",    IDC_CHK_TRANSMIT_ONCE,         Bits(8),          &kTransmitOnceCheck,          1214),
    Text  (IDC_ST_NUP,                    "StaticNup",                "DLGTAB1",                               IDC_ST_NUP,                                                                    1114),
    Combo (IDC_COMBO_NUP,                 "ComboNup",                 "DLGTAB1",        "mdmNup",              IDC_ST_NUP,                    kWhole,           kNupEntries,                  1114),
    Button(IDC_BTN_NUP_DETAILS,           "DetailOfNup",              "DLGTAB1",                               IDC_BTN_NUP_DETAILS,                             &kOpenNupDetails,             1114),
    Text  (IDC_ST_DUPLEX,                 "StaticDuplexBooklet",      "DLGTAB1",                               IDC_ST_DUPLEX,                                                                 1116),
    Combo (IDC_COMBO_DUPLEX,              "ComboDuplexBooklet",       "DLGTAB1",        "mdmDuplexMode",       IDC_ST_DUPLEX,                 kWhole,           kDuplexEntries,               1116, IDC_PIC_DUPLEX),
    Check (IDC_CHK_PROOF_PRINT,           "ChkProofPrint",            "DLGTAB1",        "mdmOtherSettings",    IDC_CHK_PROOF_PRINT,           Bits(2),          &kProofPrintCheck,            1214),
    Text  (IDC_GRP_SORTING,               "GrpSorting",               "DLGTAB1",                               IDC_GRP_SORTING,                                                               1215),
    Combo (IDC_COMBO_SORTING,             "ComboSorting",             "DLGTAB1",        "mdmSorting",          IDC_GRP_SORTING,               kWhole,           kSortingEntries,              1215, IDC_PIC_SORTING),
    Check (IDC_CHK_ROTATE,                "ChkRotate",                "DLGTAB1",        "mdmOtherSettings",    IDC_CHK_ROTATE,                Part(0x80),       &kRotateCheck,                5319),
    Check (IDC_CHK_IMAGE_SHIFT,           "ChkImageShifting",         "DLGTAB1",        "mdmOtherSettings",    IDC_CHK_IMAGE_SHIFT,           Part(0x400),      &kImageShiftingCheck,         1217),
    Button(IDC_BTN_IMAGE_SHIFT,           "BtnImageShifting",         "DLGTAB1",                               IDC_BTN_IMAGE_SHIFT,                             &kOpenImageShift,             1217),
    Text  (IDC_GRP_IMAGE_SHIFT,           "StaticImageShifting",      "DLGTAB1",                               IDC_GRP_IMAGE_SHIFT,                                                           1217),
    Edit  (IDC_EDIT_OFFSET_X,             "EditOffsetX",              "_LBPIMAGESHIFT", "mdmOffsetX",          IDC_GRP_IMAGE_SHIFT,                             &kOffsetXEdit,                1217),
    Edit  (IDC_EDIT_OFFSET_Y,             "EditOffsetY",              "_LBPIMAGESHIFT", "mdmOffsetY",          IDC_GRP_IMAGE_SHIFT,                             &kOffsetYEdit,                1217),
    Text  (IDC_ST_OFFSET_X,               "StaticOffsetX",            "_LBPIMAGESHIFT",                        IDC_ST_OFFSET_X,                                                               1217),
    Text  (IDC_ST_OFFSET_Y,               "StaticOffsetY",            "_LBPIMAGESHIFT",                        IDC_ST_OFFSET_Y,                                                               1217),
    Text  (IDC_ST_OFFSET_X_RANGE,         "StaticOffsetXRange",       "_LBPIMAGESHIFT",                        0,                                                                             1217),
    Text  (IDC_ST_OFFSET_Y_RANGE,         "StaticOffsetYRange",       "_LBPIMAGESHIFT",                        0,                                                                             1217),
    Text  (IDC_ST_OFFSET_X_UNIT,          "StaticOffsetXUnit",        "_LBPIMAGESHIFT",                        IDC_ST_OFFSET_X_UNIT,                                                          1217),
    Text  (IDC_ST_OFFSET_Y_UNIT,          "StaticOffsetYUnit",        "_LBPIMAGESHIFT",                        IDC_ST_OFFSET_Y_UNIT,                                                          1217),
    Text  (IDC_ST_WATERMARK,              "StaticWatermark",          "DLGTABWM",                              IDS_WATERMARK,                                                                 1115),
    List  (IDC_LIST_WATERMARK,            "ComboWatermark",           "DLGTABWM",       "mdmWatermark",        0,                             kWhole,           kWatermarks,                  1115, "Watermark"),
    Check (IDC_CHK_WATERMARK_FIRST_PAGE,  "ChkWatermark1stPage",      "DLGTABWM",       "mdmWatermarkMode",    IDS_FIRST_PAGE_ONLY,           Bits(1),          &kWatermark1stPageCheck,      1115),
    Check (IDC_CHK_WATERMARK_BACKGROUND,  "ChkWatermarkInBackground", "DLGTABWM",       "mdmWatermarkMode",    IDS_BACKGROUND,                Bits(2),          &kWatermarkInBackgroundCheck, 1115),
    Check (IDC_CHK_WATERMARK_REPEAT,      "ChkWatermarkRepeat",       "DLGTABWM",       "mdmWatermarkMode",    IDC_CHK_WATERMARK_REPEAT,      Bits(0x10),       &kWatermarkRepeatCheck,       1115),
    Button(IDC_BTN_WATERMARK_EDIT,        "ButtonEditWatermark",      "DLGTABWM",                              IDS_EDIT,                                        &kOpenWatermarkEditor,        1115),
    Button(IDC_BTN_WATERMARK_ADD,         "ButtonWatermarkAdd",       "DLGTABWM",                              IDS_ADD,                                         &kOpenWatermarkEditor,        1115),
    Button(IDC_BTN_WATERMARK_DELETE,      "ButtonWatermarkDel",       "DLGTABWM",                              IDS_DELETE,                                      nullptr,                      1115),
    Text  (IDC_ST_OVERLAY,                "StaticOverlay",            "DLGTABOVER",                            IDC_ST_OVERLAY,                                                                5112),
    List  (IDC_LIST_OVERLAY,              "ComboOverlay",             "DLGTABOVER",     "mdmOverlay",          IDC_ST_OVERLAY,                kWhole,           kOverlays,                    5112),
    Button(IDC_BTN_OVERLAY_EDIT,          "EditOverlay",              "DLGTABOVER",                            IDC_BTN_OVERLAY_EDIT,                            &kOpenOverlayEditor,          5112),
    Button(IDC_BTN_OVERLAY_ADD,           "EditOverlay",              "DLGTABOVER",                            IDC_BTN_OVERLAY_ADD,                             &kOpenOverlayEditor,          5112),
    Button(IDC_BTN_OVERLAY_DELETE,        "EditOverlay",              "DLGTABOVER",                            IDC_BTN_OVERLAY_DELETE,                          &kOpenOverlayEditor,          5112),
    Check (IDC_CHK_OVERLAY_FIRST_PAGE,    "ChkOverlay1stPage",        "DLGTABOVER",     "mdmOverlayMode",      IDC_CHK_OVERLAY_FIRST_PAGE,    Bits(1),          &kOverlay1stPageCheck,        5112),
    Text  (IDC_ST_OVERLAY_PAGES,          "StaticOverlay1st",         "DLGTABOVER",                            IDC_ST_OVERLAY_PAGES,                                                          5112),
    Combo (IDC_COMBO_OVERLAY_PAGES,       "ComboOverlay1st",          "DLGTABOVER",     "mdmOverlayMode",      IDC_ST_OVERLAY_PAGES,          kWhole,           kOverlayPagesEntries,         5112),
    Button(IDC_BTN_OVERLAY_BROWSE,        "ButtonBrowseOverlay",      "DLGTABOVER",                            IDC_BTN_OVERLAY_BROWSE,                          nullptr,                      5113),
    Radio (IDC_GRP_COLOR_MODE,            "RadioColorMode",           "DLGTAB2",        "dmColor",             IDC_GRP_COLOR_MODE,                              kColorModeButtons,            5311, IDC_PIC_COLOR_MODE),
    Radio (IDC_GRP_COLOR_MATCHING,        "RadioColorMatching",       "DLGTAB2",        "mdmColorMatching",    IDC_GRP_COLOR_MATCHING,                          kColorMatchingButtons,        5312, IDC_PIC_COLOR_MATCHING),
    Text  (IDC_ST_MATCH_PHOTO,            "StColorMatchPhoto",        "DLGTAB2",                               IDC_ST_MATCH_PHOTO,                                                            5312),
    Combo (IDC_COMBO_MATCH_PHOTO,         "ComboColorMatchPhoto",     "DLGTAB2",        "RenderingIntent",     0,                             Bits(0xFF00),     kPhotoIntentEntries,          5312),
    Text  (IDC_ST_MATCH_GRAPHICS,         "StColorMatchGraphics",     "DLGTAB2",                               IDC_ST_MATCH_GRAPHICS,                                                         5312),
    Combo (IDC_COMBO_MATCH_GRAPHICS,      "ComboColorMatchGraphics",  "DLGTAB2",        "RenderingIntent",     0,                             Bits(0xFF),       kGraphicsIntentEntries,       5312),
    Text  (IDC_ST_MATCH_TEXT,             "StColorMatchText",         "DLGTAB2",                               IDC_ST_MATCH_TEXT,                                                             5312),
    Combo (IDC_COMBO_MATCH_TEXT,          "ComboColorMatchText",      "DLGTAB2",        "RenderingIntent",     0,                             Bits(0xFF0000),   kTextIntentEntries,           5312),
    Text  (IDC_GRP_COMPRESS,              "GrpCompressMethod",        "DLGTAB2",                               IDC_GRP_COMPRESS,                                                              5313),
    Combo (IDC_COMBO_COMPRESS_METHOD,     "ComboCompressMethod",      "DLGTAB2",        "mdmCompressMethod",   0,                             kWhole,           kCompressEntries,             5313),
    Text  (IDC_GRP_GLOSSY_BLACK,          "GrpGlossyBlack",           "DLGTAB2",                               IDC_GRP_GLOSSY_BLACK,                                                          5314),
    Check (IDC_CHK_GLOSSY_TEXT,           "ChkGlossyBlackText",       "DLGTAB2",        "mdmBlackGlossLevel",  IDC_CHK_GLOSSY_TEXT,           Bits(0xC00),      &kGlossyBlackTextCheck,       5314),
    Check (IDC_CHK_GLOSSY_GRAPHICS,       "ChkGlossyBlackGraphics",   "DLGTAB2",        "mdmBlackGlossLevel",  IDC_CHK_GLOSSY_GRAPHICS,       Bits(0x1FF),      &kGlossyBlackGraphicsCheck,   5314),
    Check (IDC_CHK_GLOSSY_PHOTO,          "ChkGlossyBlackBitmap",     "DLGTAB2",        "mdmBlackGlossLevel",  IDC_CHK_GLOSSY_PHOTO,          Bits(0x200),      &kGlossyBlackBitmapCheck,     5314),
    Text  (IDC_GRP_RESOLUTION,            "GrpResolution",            "DLGTAB2",                               IDC_GRP_RESOLUTION,                                                            1311),
    Combo (IDC_COMBO_RESOLUTION,          "ComboResolution",          "DLGTAB2",        "dmPrintQuality",      IDC_GRP_RESOLUTION,            kWhole,           kResolutionEntries,           1311, IDC_PIC_RESOLUTION),
    Check (IDC_CHK_LINE_ART,              "ChkLineArt",               "DLGTAB2",        "mdmOtherSettings",    IDS_LINE_ART,                  Part(4),          &kLineArtCheck,               1311),
    Text  (IDC_GRP_ADJUSTMENT,            "GrpAdjustment",            "DLGTAB2",                               IDC_GRP_ADJUSTMENT,                                                            1313),
    Text  (IDC_ST_CONTRAST,               "StrContrast",              "DLGTAB2",                               IDC_ST_CONTRAST,                                                               1313),
    Slider(IDC_SLD_CONTRAST,              "SldContrast",              "DLGTAB2",        "Contrast",                                                             &kContrastSlider,             1313),
    Text  (IDC_ST_BRIGHTNESS,             "StrBrightness",            "DLGTAB2",                               IDC_ST_BRIGHTNESS,                                                             1313),
    Slider(IDC_SLD_BRIGHTNESS,            "SldBrightness",            "DLGTAB2",        "Lightness",                                                            &kBrightnessSlider,           1313),
    Text  (IDC_ST_SATURATION,             "StrSaturation",            "DLGTAB2",                               IDC_ST_SATURATION,                                                             1313),
    Slider(IDC_SLD_SATURATION,            "SldSaturation",            "DLGTAB2",        "Saturation",                                                           &kSaturationSlider,           1313),
    Text  (IDC_ST_SHARPNESS,              "StrSharpness",             "DLGTAB2",                               IDC_ST_SHARPNESS,                                                              1313),
    Slider(IDC_SLD_SHARPNESS,             "SldSharpness",             "DLGTAB2",        "UnsharpMask",                                                          &kSharpnessSlider,            1313),
    Text  (IDC_GRP_OPTION,                "GrpOption",                "DLGTAB3",                               IDC_GRP_OPTION,                                                                1411),
    Text  (IDC_ST_INSTALLABLE,            "StInstallableOpt",         "DLGTAB3",                               IDC_ST_INSTALLABLE,                                                            1411),
    Text  (IDC_ST_INSTALLED,              "StInstalledOpt",           "DLGTAB3",                               IDC_ST_INSTALLED,                                                              1411),
    Button(IDC_BTN_MAILBOX,               "BtnMBSetting",             "DLGTAB3",                               IDC_BTN_MAILBOX,                                 &kOpenMailBox,                1411),
    Text  (IDC_GRP_USER_NAME,             "GrpUserName",              "DLGTAB3",                               IDC_GRP_USER_NAME,                                                             1412),
    Edit  (IDC_EDIT_USER_NAME,            "UserName",                 "DLGTAB3",        "",                    0,                                               &kUserNameEdit,               1412),
    Button(IDC_BTN_ABOUT,                 "BtnAbout",                 "DLGTAB3",                               IDC_BTN_ABOUT,                                   &kOpenAbout,                  0),
    Check (IDC_CHK_AUTO_CONFIG,           "ChkAutoConfig",            "DLGTAB3",        "mdmOtherSettings",    IDC_CHK_AUTO_CONFIG,           Part(0x20),       &kAutoConfigCheck,            1411),
    List  (IDC_LIST_INSTALLABLE,          "InstallableOption",        "DLGTAB3",        "mdmInstalledOptions", 0,                             Bits(0xFFFFFFFF), kInstallableEntries,          1411),
    List  (IDC_LIST_INSTALLED,            "InstalledOption",          "DLGTAB3",        "mdmInstalledOptions", 0,                             Bits(0xFFFFFFFF), kInstalledEntries,            1411),
    Button(IDC_BTN_ADD,                   "BtnAdd",                   "DLGTAB3",                               IDC_BTN_ADD,                                     &kInstallOptions,             1411),
    Button(IDC_BTN_REMOVE,                "BtnRemove",                "DLGTAB3",                               IDC_BTN_REMOVE,                                  &kRemoveOptions,              1411),
    Text  (IDC_ST_PRODUCT_NAME,           "StProductName",            "DLGTABVERSION",                         IDC_ST_PRODUCT_NAME,                                                           0),
    Text  (IDC_ST_COPYRIGHT_BRANNIC,      "StC_Brannic",              "DLGTABVERSION",                         IDC_ST_COPYRIGHT_BRANNIC,                                                      0),
    Text  (IDC_ST_COPYRIGHT_ORVI,         "StC_Orvi",                 "DLGTABVERSION",                         IDC_ST_COPYRIGHT_ORVI,                                                         0),
    Text  (IDC_GRP_SECURITY,              "GrpSecurity",              "DLGTAB4",                               IDC_GRP_SECURITY,                                                              1511),
    Check (IDC_CHK_ACCESS_CODE,           "ChkAccessCode",            "DLGTAB4",        "mdmSecurity",         IDC_CHK_ACCESS_CODE,           Bits(1),          &kAccessCodeCheck,            1511),
    Text  (IDC_ST_ACCESS_CODE,            "StAccessCode",             "DLGTAB4",                               IDC_ST_ACCESS_CODE,                                                            1511),
    Edit  (IDC_EDIT_ACCESS_NUMBER,        "AccessNumber",             "DLGTAB4",        "mdmAccessNumber",     0,                                               &kAccessNumberEdit,           1511),
    Check (IDC_CHK_LOCK_JOB,              "ChkLockJob",               "DLGTAB4",        "mdmSecurity",         IDC_CHK_LOCK_JOB,              Bits(2),          &kLockJobCheck,               1511),
    Edit  (IDC_EDIT_PASSWORD,             "Password",                 "DLGTAB4",        "mdmJobPassword",      0,                                               &kPasswordEdit,               1511),
    Text  (IDC_ST_PASSWORD,               "StPassword",               "DLGTAB4",                               IDC_ST_PASSWORD,                                                               1511),
    Text  (IDC_GRP_DISTRIBUTION,          "GrpDistribution",          "DLGTAB4",                               IDC_GRP_DISTRIBUTION,                                                          1512),
    Check (IDC_CHK_DISTRIBUTION,          "ChkDistribution",          "DLGTAB4",        "mdmDistribution",     IDC_CHK_DISTRIBUTION,          Bits(0x80000000), &kDistributionCheck,          1512),
    Check (IDC_CHK_DISTRIBUTION_FIRST,    "ChkDist1stOnly",           "DLGTAB4",        "mdmDistribution",     IDC_CHK_DISTRIBUTION_FIRST,    Bits(0x60000000), &kDist1stOnlyCheck,           1512),
    Text  (IDC_ST_DENSITY,                "StImageDensity",           "DLGTAB4",                               IDC_ST_DENSITY,                                                                1512),
    Combo (IDC_COMBO_DENSITY,             "ComboDensity",             "DLGTAB4",        "mdmDistribution",     0,                             Bits(0x1C000000), kDensityEntries,              1512),
    Text  (IDC_ST_DISTRIBUTION_START,     "StDistStartNum",           "DLGTAB4",                               IDC_ST_DISTRIBUTION_START,                                                     1512),
    Edit  (IDC_EDIT_DISTRIBUTION_START,   "EditDistStart",            "DLGTAB4",        "mdmDistStartNumber",  0,                                               &kDistStartEdit,              1512),
    Radio (IDC_GRP_NUP_STYLE,             "NupStyle",                 "DLGTAB02",       "mdmNupStyle",         IDC_GRP_NUP_STYLE,                               kNupStyleButtons,             1141),
    Text  (IDC_ST_NUP,                    "StaticNup",                "DLGCOMBINATION",                        IDC_ST_NUP,                                                                    1141),
    Combo (IDC_COMBO_NUP,                 "ComboNup",                 "DLGCOMBINATION", "mdmNup",              IDC_ST_NUP,                    kWhole,           kNupEntries,                  1141),
    Text  (IDC_ST_ORDER,                  "StaticNup",                "DLGCOMBINATION",                        IDC_ST_ORDER,                                                                  1141),
    Combo (IDC_COMBO_ORDER,               "ComboOrder",               "DLGCOMBINATION", "mdmNupStyle",         IDC_ST_ORDER,                  kWhole,           kCornerOrderEntries,          1141),
    Combo (IDC_COMBO_ORDER_ACROSS,        "ComboOrder",               "DLGCOMBINATION", "mdmNupStyle",         IDC_ST_ORDER,                  kWhole,           kAcrossOrderEntries,          1141),
    Combo (IDC_COMBO_ORDER_DOWN,          "ComboOrder",               "DLGCOMBINATION", "mdmNupStyle",         IDC_ST_ORDER,                  kWhole,           kDownOrderEntries,            1141),
    Combo (IDC_COMBO_BOOKLET,             "ComboBooklet",             "DLGCOMBINATION", "mdmDuplexMode",       IDC_ST_ORDER,                  kWhole,           kBookletBindingEntries,       1141),
    Check (IDC_CHK_NUP_BORDER,            "ChkNupBorder",             "DLGCOMBINATION", "mdmNupStyle",         IDC_CHK_NUP_BORDER,            Bits(4),          &kNupBorderCheck,             1142),
    Text  (IDC_GRP_COVER_PAGE,            "GrpCoverPage",             "DLGTAB00",                              IDC_GRP_COVER_PAGE,                                                            1121),
    Check (IDC_CHK_FRONT_COVER,           "ChkFrontCover",            "DLGTAB00",       "mdmCoverPage",        IDC_CHK_FRONT_COVER,           Bits(1),          &kFrontCoverCheck,            1121),
    Check (IDC_CHK_FRONT_WITH_IMAGE,      "ChkFrontWithImage",        "DLGTAB00",       "mdmCoverPage",        IDC_CHK_FRONT_WITH_IMAGE,      Bits(2),          &kFrontWithImageCheck,        1121),
    Check (IDC_CHK_BACK_COVER,            "ChkBackCover",             "DLGTAB00",       "mdmCoverPage",        IDC_CHK_BACK_COVER,            Bits(4),          &kBackCoverCheck,             1121),
    Check (IDC_CHK_BACK_WITH_IMAGE,       "ChkBackWithImage",         "DLGTAB00",       "mdmCoverPage",        IDC_CHK_BACK_WITH_IMAGE,       Bits(8),          &kBackWithImageCheck,         1121),
    Text  (IDC_ST_COVER_SOURCE,           "StCoverSource",            "DLGTAB00",                              IDC_ST_COVER_SOURCE,                                                           1121),
    Combo (IDC_COMBO_COVER_SOURCE,        "ComboCoverSource",         "DLGTAB00",       "mdmFirstPageSource",  0,                             kWhole,           kOtherSources,                1121),
    Text  (IDC_GRP_INTERLEAVE,            "GrpInterleave",            "DLGTAB00",                              IDC_GRP_INTERLEAVE,                                                            1122),
    Check (IDC_CHK_INTERLEAVING,          "ChkInterleaving",          "DLGTAB00",       "mdmInterleave",       IDC_CHK_INTERLEAVING,          Bits(0x80000000), &kInterleavingCheck,          1122),
    Check (IDC_CHK_INTERLEAVE_WITH_IMAGE, "ChkInterleaveWithImage",   "DLGTAB00",       "mdmInterleave",       IDC_CHK_INTERLEAVE_WITH_IMAGE, Bits(0x40000000), &kInterleaveWithImageCheck,   1122),
    Text  (IDC_ST_INTERLEAVE_SOURCE,      "StInterleaveSource",       "DLGTAB00",                              IDC_ST_INTERLEAVE_SOURCE,                                                      1122),
    Combo (IDC_COMBO_INTERLEAVE_SOURCE,   "ComboInterleaveSource",    "DLGTAB00",       "mdmInterleaveSource", IDC_ST_INTERLEAVE_SOURCE,      kWhole,           kOtherSources,                1122),
    Text  (IDC_GRP_STAPLE,                "GrpStaple",                "DLGTAB01",                              IDC_GRP_STAPLE,                                                                1131),
    Combo (IDC_COMBO_STAPLE,              "ComboStaple",              "DLGTAB01",       "mdmStaple",           IDC_GRP_STAPLE,                kWhole,           kStapleEntries,               1131, IDC_PIC_STAPLE),
    Text  (IDC_GRP_PUNCH,                 "GrpPunch",                 "DLGTAB01",                              IDC_GRP_PUNCH,                                                                 1132),
    Combo (IDC_COMBO_PUNCH,               "ComboPunch",               "DLGTAB01",       "mdmHolePunch",        IDC_GRP_PUNCH,                 kWhole,           kPunchEntries,                1132, IDC_PIC_PUNCH),
    Text  (IDC_ST_PUNCH_NUM,              "StPunchNum",               "DLGTAB01",                              IDC_ST_PUNCH_NUM,                                                              1132),
    Combo (IDC_COMBO_PUNCH_NUM,           "ComboPunchNum",            "DLGTAB01",       "mdmHolePunchNumber",  0,                             kWhole,           kPunchNumEntries,             1132),
    Text  (IDC_ST_PUNCH_NUM_UNIT,         "StPunchNumUnit",           "DLGTAB01",                              IDC_ST_PUNCH_NUM_UNIT,                                                         1132),
    Text  (IDC_GRP_FOLDING,               "GrpFolding",               "DLGTAB01",                              IDC_GRP_FOLDING,                                                               3133),
    Combo (IDC_COMBO_FOLDING,             "ComboFolding",             "DLGTAB01",       "mdmFolding",          IDC_GRP_FOLDING,               kWhole,           kFoldingEntries,              3133, IDC_PIC_FOLDING),
    Text  (IDC_ST_PRODUCT_NAME,           "StProductName",            "ABOUT",                                 IDC_ST_PRODUCT_NAME,                                                           0),
    Text  (IDC_ST_COPYRIGHT_BRANNIC,      "StC_Brannic",              "ABOUT",                                 IDC_ST_COPYRIGHT_BRANNIC,                                                      0),
    Text  (IDC_ST_COPYRIGHT_ORVI,         "StC_Orvi",                 "ABOUT",                                 IDC_ST_COPYRIGHT_ORVI,                                                         0),
    Text  (IDC_ST_MAILBOX_OPTION,         "StMailBox",                "MAILBOX",                               IDC_ST_MAILBOX_OPTION,                                                         1421),
    Text  (IDC_ST_MAILBOX_NAME,           "StMailBox",                "MAILBOX",                               IDC_ST_MAILBOX_NAME,                                                           1421),
    Button(IDC_BTN_MAILBOX_APPLY,         "BtnApply",                 "MAILBOX",                               IDC_BTN_MAILBOX_APPLY,                           &mailBoxApplyButton,          1421),
    Text  (IDC_ST_MAILBOX_ASSIGN,         "StMailBoxAssign",          "MAILBOX",                               IDC_ST_MAILBOX_ASSIGN,                                                         1421),
    Combo (IDC_COMBO_MAILBOX_ASSIGN,      "ComboMailBoxAssign",       "MAILBOX",        "mdmMailBinAssign",    IDC_ST_MAILBOX_ASSIGN,         kWhole,           kMailBoxAssignEntries,        1421),
};
// clang-format on

static_assert(std::size(kRows) <= kMostCatalogueRows);

}  // namespace

constinit const std::span<const ControlItem> kCatalogue = kRows;

}  // namespace kvui
