// The rows of the item catalogue: every control that carries a setting or needs a caption. The order
// is that of all walks and lookups, so a row is never moved.
#include "settings/catalogue_tables.h"

namespace kvui {
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
                            DWORD caption, Owned owned, const SelectItem* entries, DWORD help,
                            DWORD picture = 0) {
    ControlItem item = Item(kItemCombo, id, name, dialog, field, caption, help);
    item.pictureId = picture;
    item.maskMode = owned.mode;
    item.mask = owned.mask;
    item.selectList = entries;
    return item;
}

consteval ControlItem List(DWORD id, const char* name, const char* dialog, const char* field,
                           DWORD caption, Owned owned, const SelectItem* entries, DWORD help,
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

}  // namespace

// Columns: control id, name, dialog, setting field, caption string, owned bits, list or record, help
// topic; then what few rows have: picture control, dialog that a check box opens, rules-file section
// of a list. Columns that a type has no use for are left blank.
// clang-format off
constexpr ControlItem kCatalogue[kCatalogueSize] = {
    Text  (2001,  "PaperSizeGroup",           "DLGTAB0",                               2001,                                                  1211),
    Combo (2002,  "ComboPaperSize",           "DLGTAB0",        "dmPaperSize",         2001,  kWhole,           kRunTimeEntries,              1211),
    Button(2003,  "EditCustom",               "DLGTAB0",                               2003,                    &kOpenCustomPapers,           1211),
    Check (2031,  "ChkAllPaperSize",          "DLGTAB0",        "mdmOtherSettings",    2031,  Part(0x40),       &kAllPaperSizeCheck,          1211),
    Text  (2004,  "GrpOutPaper",              "DLGTAB0",                               2004,                                                  1212),
    Check (2005,  "ChkOutPaper",              "DLGTAB0",        "mdmOutputPaper",      2007,  Part(0x80000000), &kOutPaperCheck,              1212),
    Combo (2006,  "CBOutPaper",               "DLGTAB0",        "mdmOutputPaper",      2004,  kWhole,           kRunTimeEntries,              1212),
    Check (2007,  "ChkFitToPaper",            "DLGTAB0",        "mdmFitToPaper",       0,     kWhole,           &kFitToPaperCheck,            1212),
    Radio (2008,  "RadioScaling",             "DLGTAB0",        "mdmFitToPaper",       2008,                    kScalingButtons,              5320),
    Edit  (2009,  "EditScaling",              "DLGTAB0",        "mdmScaleSize",        2008,                    &kScalingEdit,                5320),
    Text  (2011,  "StScalingUnit",            "DLGTAB0",                               2011,                                                  5320),
    Text  (2012,  "StScalingRange",           "DLGTAB0",                               2012,                                                  5320),
    Text  (1110,  "StaticPaperSource",        "DLGTAB0",                               1110,                                                  1117),
    Combo (1111,  "ComboPaperSource",         "DLGTAB0",        "dmDefaultSource",     1110,  kWhole,           kRunTimeEntries,              1117),
    Check (1170,  "Chk1stPageSource",         "DLGTAB0",        "mdmFirstPage",        1170,  Part(1),          &k1stPageSourceCheck,         5111, 0, &kOpenFirstPage),
    Text  (1171,  "Static1stPageSource",      "_LBPFIRSTPAGE",                         1171,                                                  5321),
    Combo (1173,  "Combo1stPageSource",       "_LBPFIRSTPAGE",  "mdmFirstPageSource",  1171,  kWhole,           kRunTimeEntries,              5321),
    Button(1172,  "Chk1stPage",               "DLGTAB0",                               1172,                    &kOpenPaperSourceDetails,     1117),
    Text  (1140,  "StaticMediaType",          "DLGTAB0",                               1140,                                                  5111),
    Combo (1141,  "ComboMediaType",           "DLGTAB0",        "MediaType",           1140,  kWhole,           kMediaEntries,                5111),
    Combo (4014,  "ComboInstalledOptions",    "DLGTAB3",        "",                    4013,  kWhole,           kInstalledStateEntries,       1411),
    Text  (1175,  "Static1stPageMedia",       "_LBPFIRSTPAGE",                         1175,                                                  5321),
    Combo (1176,  "Combo1stPageMedia",        "_LBPFIRSTPAGE",  "mdmFirstPageMedia",   1175,  kWhole,           kFirstPageMediaEntries,       5321),
    Text  (1200,  "GrpOutputSetting",         "DLGTAB0",                               1200,                                                  1118),
    Combo (1210,  "ComboOutputSetting",       "DLGTAB0",        "mdmOutBin",           1200,  kWhole,           kOutBinEntries,               1118),
    List  (1220,  "ListOutputSetting",        "DLGTAB0",        "mdmMailBins",         0,     kWhole,           kRunTimeEntries,              1118),
    Button(1240,  "DetailOfOutputSetting",    "DLGTAB0",                               1240,                    &kOpenOutputDetails,          1118),
    Radio (2024,  "RadioOrientation",         "DLGTAB0",        "dmOrientation",       2024,                    kOrientationButtons,          1216, 2025),
    Text  (2013,  "GrpCopies",                "DLGTAB0",                               2013,                                                  1213),
    Edit  (2014,  "EditCopies",               "DLGTAB0",        "dmCopies",            2013,                    &kCopiesEdit,                 1213),
    Text  (2016,  "StCopies",                 "DLGTAB0",                               2016,                                                  1213),
    Check (2034,  "ChkCollate",               "DLGTAB0",        "mdmCollate",          2035,  Part(1),          &kCollateCheck,               1214, 2018),
    Check (2030,  "ChkTransmitOnce",          "DLGTAB0",        "mdmOtherSettings",    2030,  Bits(8),          &kTransmitOnceCheck,          1214),
    Text  (1400,  "StaticNup",                "DLGTAB1",                               1400,                                                  1114),
    Combo (1410,  "ComboNup",                 "DLGTAB1",        "mdmNup",              1400,  kWhole,           kNupEntries,                  1114),
    Button(1430,  "DetailOfNup",              "DLGTAB1",                               1430,                    &kOpenNupDetails,             1114),
    Text  (1500,  "StaticDuplexBooklet",      "DLGTAB1",                               1500,                                                  1116),
    Combo (1510,  "ComboDuplexBooklet",       "DLGTAB1",        "mdmDuplexMode",       1500,  kWhole,           kDuplexEntries,               1116, 1520),
    Check (2029,  "ChkProofPrint",            "DLGTAB1",        "mdmOtherSettings",    2029,  Bits(2),          &kProofPrintCheck,            1214),
    Text  (2021,  "GrpSorting",               "DLGTAB1",                               2021,                                                  1215),
    Combo (2023,  "ComboSorting",             "DLGTAB1",        "mdmSorting",          2021,  kWhole,           kSortingEntries,              1215, 2022),
    Check (2032,  "ChkRotate",                "DLGTAB1",        "mdmOtherSettings",    2032,  Part(0x80),       &kRotateCheck,                5319),
    Check (1901,  "ChkImageShifting",         "DLGTAB1",        "mdmOtherSettings",    1901,  Part(0x400),      &kImageShiftingCheck,         1217),
    Button(1912,  "BtnImageShifting",         "DLGTAB1",                               1912,                    &kOpenImageShift,             1217),
    Text  (1900,  "StaticImageShifting",      "DLGTAB1",                               1900,                                                  1217),
    Edit  (1902,  "EditOffsetX",              "_LBPIMAGESHIFT", "mdmOffsetX",          1900,                    &kOffsetXEdit,                1217),
    Edit  (1907,  "EditOffsetY",              "_LBPIMAGESHIFT", "mdmOffsetY",          1900,                    &kOffsetYEdit,                1217),
    Text  (1904,  "StaticOffsetX",            "_LBPIMAGESHIFT",                        1904,                                                  1217),
    Text  (1909,  "StaticOffsetY",            "_LBPIMAGESHIFT",                        1909,                                                  1217),
    Text  (1905,  "StaticOffsetXRange",       "_LBPIMAGESHIFT",                        0,                                                     1217),
    Text  (1910,  "StaticOffsetYRange",       "_LBPIMAGESHIFT",                        0,                                                     1217),
    Text  (1906,  "StaticOffsetXUnit",        "_LBPIMAGESHIFT",                        1906,                                                  1217),
    Text  (1911,  "StaticOffsetYUnit",        "_LBPIMAGESHIFT",                        1911,                                                  1217),
    Text  (8001,  "StaticWatermark",          "DLGTABWM",                              1600,                                                  1115),
    List  (8002,  "ComboWatermark",           "DLGTABWM",       "mdmWatermark",        0,     kWhole,           kRunTimeEntries,              1115, "Watermark"),
    Check (8003,  "ChkWatermark1stPage",      "DLGTABWM",       "mdmWatermarkMode",    1620,  Bits(1),          &kWatermark1stPageCheck,      1115),
    Check (8004,  "ChkWatermarkInBackground", "DLGTABWM",       "mdmWatermarkMode",    1621,  Bits(2),          &kWatermarkInBackgroundCheck, 1115),
    Check (20062, "ChkWatermarkRepeat",       "DLGTABWM",       "mdmWatermarkMode",    20062, Bits(0x10),       &kWatermarkRepeatCheck,       1115),
    Button(8005,  "ButtonEditWatermark",      "DLGTABWM",                              1630,                    &kOpenWatermarkEditor,        1115),
    Button(8006,  "ButtonWatermarkAdd",       "DLGTABWM",                              1631,                    &kOpenWatermarkEditor,        1115),
    Button(8007,  "ButtonWatermarkDel",       "DLGTABWM",                              1632,                    nullptr,                      1115),
    Text  (1850,  "StaticOverlay",            "DLGTABOVER",                            1850,                                                  5112),
    List  (1891,  "ComboOverlay",             "DLGTABOVER",     "mdmOverlay",          1850,  kWhole,           kRunTimeEntries,              5112),
    Button(1892,  "EditOverlay",              "DLGTABOVER",                            1892,                    &kOpenOverlayEditor,          5112),
    Button(1893,  "EditOverlay",              "DLGTABOVER",                            1893,                    &kOpenOverlayEditor,          5112),
    Button(1894,  "EditOverlay",              "DLGTABOVER",                            1894,                    &kOpenOverlayEditor,          5112),
    Check (1880,  "ChkOverlay1stPage",        "DLGTABOVER",     "mdmOverlayMode",      1880,  Bits(1),          &kOverlay1stPageCheck,        5112),
    Text  (1851,  "StaticOverlay1st",         "DLGTABOVER",                            1851,                                                  5112),
    Combo (1881,  "ComboOverlay1st",          "DLGTABOVER",     "mdmOverlayMode",      1851,  kWhole,           kOverlayPagesEntries,         5112),
    Button(1890,  "ButtonBrowseOverlay",      "DLGTABOVER",                            1890,                    nullptr,                      5113),
    Radio (3201,  "RadioColorMode",           "DLGTAB2",        "dmColor",             3201,                    kColorModeButtons,            5311, 3014),
    Radio (3204,  "RadioColorMatching",       "DLGTAB2",        "mdmColorMatching",    3204,                    kColorMatchingButtons,        5312, 3027),
    Text  (3243,  "StColorMatchPhoto",        "DLGTAB2",                               3243,                                                  5312),
    Combo (3246,  "ComboColorMatchPhoto",     "DLGTAB2",        "RenderingIntent",     0,     Bits(0xFF00),     kPhotoIntentEntries,          5312),
    Text  (3244,  "StColorMatchGraphics",     "DLGTAB2",                               3244,                                                  5312),
    Combo (3247,  "ComboColorMatchGraphics",  "DLGTAB2",        "RenderingIntent",     0,     Bits(0xFF),       kGraphicsIntentEntries,       5312),
    Text  (3245,  "StColorMatchText",         "DLGTAB2",                               3245,                                                  5312),
    Combo (3248,  "ComboColorMatchText",      "DLGTAB2",        "RenderingIntent",     0,     Bits(0xFF0000),   kTextIntentEntries,           5312),
    Text  (3207,  "GrpCompressMethod",        "DLGTAB2",                               3207,                                                  5313),
    Combo (3208,  "ComboCompressMethod",      "DLGTAB2",        "mdmCompressMethod",   0,     kWhole,           kCompressEntries,             5313),
    Text  (3226,  "GrpGlossyBlack",           "DLGTAB2",                               3226,                                                  5314),
    Check (3227,  "ChkGlossyBlackText",       "DLGTAB2",        "mdmBlackGlossLevel",  3227,  Bits(0xC00),      &kGlossyBlackTextCheck,       5314),
    Check (3228,  "ChkGlossyBlackGraphics",   "DLGTAB2",        "mdmBlackGlossLevel",  3228,  Bits(0x1FF),      &kGlossyBlackGraphicsCheck,   5314),
    Check (3229,  "ChkGlossyBlackBitmap",     "DLGTAB2",        "mdmBlackGlossLevel",  3229,  Bits(0x200),      &kGlossyBlackBitmapCheck,     5314),
    Text  (3001,  "GrpResolution",            "DLGTAB2",                               3001,                                                  1311),
    Combo (3003,  "ComboResolution",          "DLGTAB2",        "dmPrintQuality",      3001,  kWhole,           kResolutionEntries,           1311, 3002),
    Check (3235,  "ChkLineArt",               "DLGTAB2",        "mdmOtherSettings",    3106,  Part(4),          &kLineArtCheck,               1311),
    Text  (3006,  "GrpAdjustment",            "DLGTAB2",                               3006,                                                  1313),
    Text  (3007,  "StrContrast",              "DLGTAB2",                               3007,                                                  1313),
    Slider(3008,  "SldContrast",              "DLGTAB2",        "Contrast",                                     &kContrastSlider,             1313),
    Text  (3010,  "StrBrightness",            "DLGTAB2",                               3010,                                                  1313),
    Slider(3011,  "SldBrightness",            "DLGTAB2",        "Lightness",                                    &kBrightnessSlider,           1313),
    Text  (3209,  "StrSaturation",            "DLGTAB2",                               3209,                                                  1313),
    Slider(3210,  "SldSaturation",            "DLGTAB2",        "Saturation",                                   &kSaturationSlider,           1313),
    Text  (3214,  "StrSharpness",             "DLGTAB2",                               3214,                                                  1313),
    Slider(3215,  "SldSharpness",             "DLGTAB2",        "UnsharpMask",                                  &kSharpnessSlider,            1313),
    Text  (4001,  "GrpOption",                "DLGTAB3",                               4001,                                                  1411),
    Text  (4002,  "StInstallableOpt",         "DLGTAB3",                               4002,                                                  1411),
    Text  (4006,  "StInstalledOpt",           "DLGTAB3",                               4006,                                                  1411),
    Button(4008,  "BtnMBSetting",             "DLGTAB3",                               4008,                    &kOpenMailBox,                1411),
    Text  (4009,  "GrpUserName",              "DLGTAB3",                               4009,                                                  1412),
    Edit  (4010,  "UserName",                 "DLGTAB3",        "",                    0,                       &kUserNameEdit,               1412),
    Button(4011,  "BtnAbout",                 "DLGTAB3",                               4011,                    &kOpenAbout,                  0),
    Check (4012,  "ChkAutoConfig",            "DLGTAB3",        "mdmOtherSettings",    4012,  Part(0x20),       &kAutoConfigCheck,            1411),
    List  (4003,  "InstallableOption",        "DLGTAB3",        "mdmInstalledOptions", 0,     Bits(0xFFFFFFFF), kInstallableEntries,          1411),
    List  (4007,  "InstalledOption",          "DLGTAB3",        "mdmInstalledOptions", 0,     Bits(0xFFFFFFFF), kInstalledEntries,            1411),
    Button(4004,  "BtnAdd",                   "DLGTAB3",                               4004,                    &kInstallOptions,             1411),
    Button(4005,  "BtnRemove",                "DLGTAB3",                               4005,                    &kRemoveOptions,              1411),
    Text  (4101,  "StProductName",            "DLGTABVERSION",                         4101,                                                  0),
    Text  (4103,  "StC_Brannic",              "DLGTABVERSION",                         4103,                                                  0),
    Text  (4104,  "StC_Orvi",                 "DLGTABVERSION",                         4104,                                                  0),
    Text  (5001,  "GrpSecurity",              "DLGTAB4",                               5001,                                                  1511),
    Check (5002,  "ChkAccessCode",            "DLGTAB4",        "mdmSecurity",         5002,  Bits(1),          &kAccessCodeCheck,            1511),
    Text  (5003,  "StAccessCode",             "DLGTAB4",                               5003,                                                  1511),
    Edit  (5004,  "AccessNumber",             "DLGTAB4",        "mdmAccessNumber",     0,                       &kAccessNumberEdit,           1511),
    Check (5005,  "ChkLockJob",               "DLGTAB4",        "mdmSecurity",         5005,  Bits(2),          &kLockJobCheck,               1511),
    Edit  (5007,  "Password",                 "DLGTAB4",        "mdmJobPassword",      0,                       &kPasswordEdit,               1511),
    Text  (5006,  "StPassword",               "DLGTAB4",                               5006,                                                  1511),
    Text  (5008,  "GrpDistribution",          "DLGTAB4",                               5008,                                                  1512),
    Check (5009,  "ChkDistribution",          "DLGTAB4",        "mdmDistribution",     5009,  Bits(0x80000000), &kDistributionCheck,          1512),
    Check (5010,  "ChkDist1stOnly",           "DLGTAB4",        "mdmDistribution",     5010,  Bits(0x60000000), &kDist1stOnlyCheck,           1512),
    Text  (5011,  "StImageDensity",           "DLGTAB4",                               5011,                                                  1512),
    Combo (5012,  "ComboDensity",             "DLGTAB4",        "mdmDistribution",     0,     Bits(0x1C000000), kDensityEntries,              1512),
    Text  (5013,  "StDistStartNum",           "DLGTAB4",                               5013,                                                  1512),
    Edit  (5014,  "EditDistStart",            "DLGTAB4",        "mdmDistStartNumber",  0,                       &kDistStartEdit,              1512),
    Radio (1460,  "NupStyle",                 "DLGTAB02",       "mdmNupStyle",         1460,                    kNupStyleButtons,             1141),
    Text  (1400,  "StaticNup",                "DLGCOMBINATION",                        1400,                                                  1141),
    Combo (1410,  "ComboNup",                 "DLGCOMBINATION", "mdmNup",              1400,  kWhole,           kNupEntries,                  1141),
    Text  (1401,  "StaticNup",                "DLGCOMBINATION",                        1401,                                                  1141),
    Combo (1418,  "ComboOrder",               "DLGCOMBINATION", "mdmNupStyle",         1401,  kWhole,           kCornerOrderEntries,          1141),
    Combo (1422,  "ComboOrder",               "DLGCOMBINATION", "mdmNupStyle",         1401,  kWhole,           kAcrossOrderEntries,          1141),
    Combo (1421,  "ComboOrder",               "DLGCOMBINATION", "mdmNupStyle",         1401,  kWhole,           kDownOrderEntries,            1141),
    Combo (1419,  "ComboBooklet",             "DLGCOMBINATION", "mdmDuplexMode",       1401,  kWhole,           kBookletBindingEntries,       1141),
    Check (1420,  "ChkNupBorder",             "DLGCOMBINATION", "mdmNupStyle",         1420,  Bits(4),          &kNupBorderCheck,             1142),
    Text  (1181,  "GrpCoverPage",             "DLGTAB00",                              1181,                                                  1121),
    Check (1182,  "ChkFrontCover",            "DLGTAB00",       "mdmCoverPage",        1182,  Bits(1),          &kFrontCoverCheck,            1121),
    Check (1183,  "ChkFrontWithImage",        "DLGTAB00",       "mdmCoverPage",        1183,  Bits(2),          &kFrontWithImageCheck,        1121),
    Check (1184,  "ChkBackCover",             "DLGTAB00",       "mdmCoverPage",        1184,  Bits(4),          &kBackCoverCheck,             1121),
    Check (1185,  "ChkBackWithImage",         "DLGTAB00",       "mdmCoverPage",        1185,  Bits(8),          &kBackWithImageCheck,         1121),
    Text  (1186,  "StCoverSource",            "DLGTAB00",                              1186,                                                  1121),
    Combo (1187,  "ComboCoverSource",         "DLGTAB00",       "mdmFirstPageSource",  0,     kWhole,           kRunTimeEntries,              1121),
    Text  (1188,  "GrpInterleave",            "DLGTAB00",                              1188,                                                  1122),
    Check (1189,  "ChkInterleaving",          "DLGTAB00",       "mdmInterleave",       1189,  Bits(0x80000000), &kInterleavingCheck,          1122),
    Check (1190,  "ChkInterleaveWithImage",   "DLGTAB00",       "mdmInterleave",       1190,  Bits(0x40000000), &kInterleaveWithImageCheck,   1122),
    Text  (1191,  "StInterleaveSource",       "DLGTAB00",                              1191,                                                  1122),
    Combo (1192,  "ComboInterleaveSource",    "DLGTAB00",       "mdmInterleaveSource", 1191,  kWhole,           kRunTimeEntries,              1122),
    Text  (1301,  "GrpStaple",                "DLGTAB01",                              1301,                                                  1131),
    Combo (1303,  "ComboStaple",              "DLGTAB01",       "mdmStaple",           1301,  kWhole,           kStapleEntries,               1131, 1302),
    Text  (1304,  "GrpPunch",                 "DLGTAB01",                              1304,                                                  1132),
    Combo (1306,  "ComboPunch",               "DLGTAB01",       "mdmHolePunch",        1304,  kWhole,           kPunchEntries,                1132, 1305),
    Text  (1307,  "StPunchNum",               "DLGTAB01",                              1307,                                                  1132),
    Combo (1308,  "ComboPunchNum",            "DLGTAB01",       "mdmHolePunchNumber",  0,     kWhole,           kPunchNumEntries,             1132),
    Text  (1309,  "StPunchNumUnit",           "DLGTAB01",                              1309,                                                  1132),
    Text  (1310,  "GrpFolding",               "DLGTAB01",                              1310,                                                  3133),
    Combo (1312,  "ComboFolding",             "DLGTAB01",       "mdmFolding",          1310,  kWhole,           kFoldingEntries,              3133, 1311),
    Text  (4101,  "StProductName",            "ABOUT",                                 4101,                                                  0),
    Text  (4103,  "StC_Brannic",              "ABOUT",                                 4103,                                                  0),
    Text  (4104,  "StC_Orvi",                 "ABOUT",                                 4104,                                                  0),
    Text  (4201,  "StMailBox",                "MAILBOX",                               4201,                                                  1421),
    Text  (4203,  "StMailBox",                "MAILBOX",                               4203,                                                  1421),
    Button(4205,  "BtnApply",                 "MAILBOX",                               4205,                    &mailBoxApplyButton,          1421),
    Text  (4207,  "StMailBoxAssign",          "MAILBOX",                               4207,                                                  1421),
    Combo (4208,  "ComboMailBoxAssign",       "MAILBOX",        "mdmMailBinAssign",    4207,  kWhole,           kMailBoxAssignEntries,        1421),
};
// clang-format on

// A missing row would leave the last one empty.
static_assert(kCatalogue[kCatalogueSize - 1].controlId != 0);

}  // namespace kvui
