// Every named field of the stored settings record, each stated once: the public part as the
// platform declares it, then the driver's private part. From these lists come the framework's table of
// fields, the checks of the module's struct and, by that struct, the module's setting fields.
//
// What is marked "carried" no code of ours reads or writes by itself: others know it, and the record
// brings it along as the printer's defaults or whoever stored it have it.
#pragma once

// clang-format off

// Columns: name, offset in the public part, width in bytes.
#define KV_PUBLIC_FIELDS(X)                       \
    X(dmFields,            0x28, 4) /* carried */ \
    X(dmOrientation,       0x2C, 2)               \
    X(dmPaperSize,         0x2E, 2)               \
    X(dmPaperLength,       0x30, 2) /* carried */ \
    X(dmPaperWidth,        0x32, 2) /* carried */ \
    X(dmScale,             0x34, 2)               \
    X(dmCopies,            0x36, 2)               \
    X(dmDefaultSource,     0x38, 2)               \
    X(dmPrintQuality,      0x3A, 2)               \
    X(dmColor,             0x3C, 2)               \
    X(dmDuplex,            0x3E, 2)               \
    X(dmYResolution,       0x40, 2)               \
    X(dmTTOption,          0x42, 2)               \
    X(dmCollate,           0x44, 2) /* carried */ \
    X(dmICMMethod,         0x7C, 4) /* carried */ \
    X(dmICMIntent,         0x80, 4) /* carried */ \
    X(dmMediaType,         0x84, 4) /* carried */

// Columns: name, offset in the private part, width in bytes.
#define KV_PRIVATE_FIELDS(X)                       \
    X(Compression,         0x038, 4)               \
    X(DeviceData1,         0x03C, 4)               \
    X(DeviceData2,         0x040, 4)               \
    X(Dither,              0x048, 4)               \
    X(MediaType,           0x04C, 4)               \
    X(fsQdBitFlags,        0x0A0, 4) /* carried */ \
    X(CellSize,            0x0A4, 4)               \
    X(nGrayBits,           0x0B8, 4)               \
    X(UnsharpMask,         0x0BC, 4)               \
    X(ColorMatching,       0x0C0, 4)               \
    X(AntiAliasing,        0x0C4, 4)               \
    X(HueRed,              0x0D0, 4)               \
    X(HueYellow,           0x0D4, 4)               \
    X(HueGreen,            0x0D8, 4)               \
    X(HueCyan,             0x0DC, 4)               \
    X(HueBlue,             0x0E0, 4)               \
    X(HueMagenta,          0x0E4, 4)               \
    X(Lightness,           0x0E8, 4)               \
    X(Contrast,            0x0EC, 4)               \
    X(Saturation,          0x0F0, 4)               \
    X(DotGainAdjust,       0x0F4, 4)               \
    X(GCR,                 0x0F8, 4)               \
    X(BlackGeneration,     0x0FC, 4)               \
    X(Depletion,           0x100, 4)               \
    X(Mirror,              0x104, 4)               \
    X(DiffusionNoise,      0x108, 4)               \
    X(GrayLightness,       0x10C, 4)               \
    X(HueLightness,        0x110, 4)               \
    X(ColorsToPatterns,    0x114, 4)               \
    X(EnhanceContrast,     0x130, 4)               \
    X(ContrastHighCutoff,  0x134, 4)               \
    X(ContrastLowCutoff,   0x138, 4)               \
    X(EnhanceLightness,    0x13C, 4)               \
    X(nUp,                 0x140, 4)               \
    X(nUpMode,             0x144, 4)               \
    X(dmDriverPaper,       0x148, 4)               \
    X(Scale,               0x14C, 4)               \
    X(Aspect1,             0x150, 4) /* carried */ \
    X(layoutFlags,         0x154, 4)               \
    X(RenderingIntent,     0x15C, 4)               \
    X(posterTilesAcross,   0x160, 1)               \
    X(posterTilesDown,     0x161, 1)               \
    X(DownloadRectangles,  0x184, 4)               \
    X(PrinterDensity,      0x188, 4) /* carried */ \
    X(UsePCLXL,            0x190, 4) /* carried */ \
    X(printerModelCode,    0x194, 1)               \
    X(mdmInstalledOptions, 0x198, 4)               \
    X(mdmCans,             0x19C, 4) /* carried */ \
    X(mdmFirstPage,        0x1A0, 4)               \
    X(mdmFirstPageSource,  0x1A4, 4)               \
    X(mdmShift,            0x1A8, 4) /* carried */ \
    X(mdmSeparation,       0x1AC, 4) /* carried */ \
    X(mdmNupStyle,         0x1B0, 4)               \
    X(mdmFitToPaper,       0x1B4, 4)               \
    X(mdmScaleSize,        0x1B8, 4)               \
    X(mdmWatermark,        0x1BC, 4)               \
    X(mdmWatermarkMode,    0x1C0, 4)               \
    X(mdmDuplexMode,       0x1C4, 4)               \
    X(mdmTonerSave,        0x1C8, 4) /* carried */ \
    X(mdmFineART,          0x1CC, 4) /* carried */ \
    X(mdmResolution,       0x1D0, 4) /* carried */ \
    X(mdmHolePunch,        0x1D4, 4)               \
    X(mdmStaple,           0x1D8, 4)               \
    X(mdmMailBinAssign,    0x1DC, 4)               \
    X(mdmPageProtect,      0x1E0, 4) /* carried */ \
    X(mdmOutBin,           0x1E4, 4)               \
    X(mdmMailBins,         0x1E8, 4)               \
    X(mdmBroadcast,        0x1EC, 4) /* carried */ \
    X(mdmCompressMethod,   0x1F0, 4)               \
    X(mdmGraphicsMode,     0x1F4, 4) /* carried */ \
    X(mdmCollate,          0x1F8, 4)               \
    X(mdmColorMatching,    0x1FC, 4)               \
    X(mdmBlackGlossLevel,  0x200, 4)               \
    X(mdmFolding,          0x204, 4)               \
    X(mdmNup,              0x210, 4)               \
    X(mdmOutputPaper,      0x214, 4)               \
    X(mdmCoverPage,        0x218, 4)               \
    X(mdmFirstPageMedia,   0x21C, 4)               \
    X(mdmInterleave,       0x220, 4)               \
    X(mdmInterleaveSource, 0x224, 4)               \
    X(mdmSecurity,         0x228, 4)               \
    X(mdmAccessNumber,     0x22C, 4)               \
    X(mdmJobPassword,      0x230, 4)               \
    X(mdmDistribution,     0x234, 4)               \
    X(mdmDistStartNumber,  0x238, 4)               \
    X(mdmHolePunchNumber,  0x23C, 4)               \
    X(mdmSmoothing,        0x240, 4) /* carried */ \
    X(mdmSorting,          0x244, 4)               \
    X(mdmDitherPattern,    0x248, 4)               \
    X(mdmMediaType,        0x24C, 4) /* carried */ \
    X(mdmBackPageSource,   0x250, 4)               \
    X(mdmOtherSettings,    0x254, 4)               \
    X(mdmOverlay,          0x258, 4)               \
    X(mdmOverlayMode,      0x25C, 4)               \
    X(savedSetId,          0x260, 4) /* carried */ \
    X(mdmOffsetX,          0x264, 4)               \
    X(mdmOffsetY,          0x268, 4)

// Blocks of the private part that are no numbers. Columns as above.
#define KV_PRIVATE_BLOCKS(X)           \
    X(watermarkRecord,     0x270, 344)               \
    X(userName,            0x3C8, 9)

// clang-format on
