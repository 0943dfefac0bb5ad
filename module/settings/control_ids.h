// Ids of the controls that code (not only the catalogue) must know by name.
#pragma once

#include <windef.h>

namespace kvui {

enum ControlId : DWORD {
    // Every page.
    kBtnDefaults = 12,
    kNoticeText = 1490,
    kNoticeIcon = 1491,
    kPagePicture = 20001,

    // Basic page and its dialogs.
    kComboPaperSource = 1111,
    kPaperMarker = 1492,
    kChkFirstPageSource = 1170,
    kComboFirstPageSource = 1173,
    kComboCoverSource = 1187,
    kComboInterleaveSource = 1192,
    kListMailBins = 1220,
    kRadioScalingAuto = 1787,
    kRadioScalingManual = 1788,
    kComboPaperSize = 2002,
    kBtnCustomPaper = 2003,
    kChkOutPaper = 2005,
    kComboOutPaper = 2006,
    kChkFitToPaper = 2007,
    kEditScaling = 2009,
    kEditCopies = 2014,
    kRadioCollateFirst = 2019,
    kRadioPortrait = 2026,
    kRadioLandscape = 2027,
    kChkTransmitOnce = 2030,
    kChkAllPaperSize = 2031,

    // Layout page and its dialogs.
    kPunchPicture = 1305,
    kComboPunch = 1306,
    kComboPunchNumber = 1308,
    kComboPoster = 1405,
    kComboNup = 1410,
    kComboOrder = 1418,
    kComboBooklet = 1419,
    kChkNupBorder = 1420,
    kComboOrderDown = 1421,
    kComboOrderSideways = 1422,
    kBtnNupDetails = 1430,
    kNupStyleFirst = 1461,
    kNupStylePictureFirst = 1465,
    kComboDuplex = 1510,
    kEditOffsetX = 1902,
    kSpinOffsetX = 1903,
    kOffsetXRange = 1905,
    kEditOffsetY = 1907,
    kSpinOffsetY = 1908,
    kOffsetYRange = 1910,
    kChkRotate = 2032,
    kRadioShiftInch = 9933,
    kRadioShiftMillimetre = 9934,
    kNupPreview = 14002,

    // Overlay and Watermark pages.
    kListOverlay = 1891,
    kBtnOverlayEdit = 1892,
    kBoxWatermark = 8002,
    kChkWatermarkFirstPage = 8003,
    kChkWatermarkBackground = 8004,
    kBtnWatermarkDelete = 8007,
    kChkWatermarkRepeat = 20062,

    // Quality page.
    kComboResolution = 3003,
    kComboHalftone = 3005,
    kSldContrast = 3008,
    kSldBrightness = 3011,
    kRadioGrayscale = 3202,
    kRadioColor = 3203,
    kRadioMatchingOff = 3205,
    kRadioMatchingOn = 3206,
    kSldSaturation = 3210,
    kSldSharpness = 3215,

    // Device Options page.
    kListInstallable = 4003,
    kBtnAdd = 4004,
    kBtnRemove = 4005,
    kListInstalled = 4007,
    kEditUserName = 4010,
    kBtnAbout = 4011,
    kChkAutoConfig = 4012,
    kComboInstalledState = 4014,
    kListOptions = 4015,

    // Job Management page.
    kChkAccessCode = 5002,
    kEditAccessNumber = 5004,
    kChkLockJob = 5005,
    kEditPassword = 5007,
    kComboDensity = 5012,
    kEditDistributionStart = 5014,
};

}  // namespace kvui
