// The private part of the device settings record: the driver's own fields behind the public
// DEVMODE. Everything of the module that reads or writes settings goes through it. Its offsets are
// stored by the print system and read by the rendering side of the driver, so they never change.
#pragma once
#include <cstddef>
#include <windows.h>

namespace kvui {

// Public and private part together; the framework's default records have the same size.
constexpr DWORD kRecordSize = 1296;
constexpr DWORD kPrivateSize = kRecordSize - sizeof(DEVMODEA);
constexpr DWORD kWatermarkCopySize = 344;
constexpr DWORD kUserNameSize = 9;

// Members carry the names of the setting field table. Fields without the mdm prefix are shared with
// the rendering side; "reserved" members are carried unchanged.
struct PrivateDevmode {
    BYTE reserved000[0x38];
    DWORD Compression;  // 0x038
    DWORD DeviceData1;  // 0x03C
    BYTE reserved040[8];
    DWORD Dither;     // 0x048
    DWORD MediaType;  // 0x04C
    BYTE reserved050[0x50];
    DWORD fsQdBitFlags;  // 0x0A0
    DWORD CellSize;      // 0x0A4
    BYTE reserved0A8[0x10];
    DWORD nGrayBits;      // 0x0B8
    LONG UnsharpMask;     // 0x0BC
    DWORD ColorMatching;  // 0x0C0
    BYTE reserved0C4[0x24];
    LONG Lightness;   // 0x0E8
    LONG Contrast;    // 0x0EC
    LONG Saturation;  // 0x0F0
    DWORD DotGainAdjust;    // 0x0F4
    DWORD GCR;              // 0x0F8
    DWORD BlackGeneration;  // 0x0FC
    DWORD Depletion;        // 0x100
    BYTE reserved104[0x10];
    DWORD ColorsToPatterns;  // 0x114
    BYTE reserved118[0x18];
    DWORD EnhanceContrast;  // 0x130
    BYTE reserved134[0xC];
    DWORD nUp;            // 0x140
    DWORD nUpMode;        // 0x144
    DWORD dmDriverPaper;  // 0x148
    DWORD Scale;          // 0x14C
    DWORD Aspect1;        // 0x150
    DWORD layoutFlags;    // 0x154, see LayoutFlag
    BYTE reserved158[4];
    DWORD RenderingIntent;   // 0x15C
    BYTE posterTilesAcross;  // 0x160
    BYTE posterTilesDown;    // 0x161
    BYTE reserved162[0x22];
    DWORD DownloadRectangles;  // 0x184, first word of the module settings
    DWORD PrinterDensity;      // 0x188
    DWORD reserved18C;
    DWORD UsePCLXL;         // 0x190
    BYTE printerModelCode;  // 0x194
    BYTE reserved195[3];
    DWORD mdmInstalledOptions;  // 0x198
    DWORD mdmCans;              // 0x19C
    DWORD mdmFirstPage;         // 0x1A0
    DWORD mdmFirstPageSource;   // 0x1A4
    DWORD mdmShift;             // 0x1A8
    DWORD mdmSeparation;        // 0x1AC
    DWORD mdmNupStyle;          // 0x1B0
    DWORD mdmFitToPaper;        // 0x1B4
    DWORD mdmScaleSize;         // 0x1B8
    DWORD mdmWatermark;         // 0x1BC
    DWORD mdmWatermarkMode;     // 0x1C0
    DWORD mdmDuplexMode;        // 0x1C4
    DWORD mdmTonerSave;         // 0x1C8
    DWORD mdmFineART;           // 0x1CC
    DWORD mdmResolution;        // 0x1D0
    DWORD mdmHolePunch;         // 0x1D4
    DWORD mdmStaple;            // 0x1D8
    DWORD mdmMailBinAssign;     // 0x1DC
    DWORD mdmPageProtect;       // 0x1E0
    DWORD mdmOutBin;            // 0x1E4
    DWORD mdmMailBins;          // 0x1E8
    DWORD mdmBroadcast;         // 0x1EC
    DWORD mdmCompressMethod;    // 0x1F0, also known as mdmAllRaster
    DWORD mdmGraphicsMode;      // 0x1F4
    DWORD mdmCollate;           // 0x1F8
    DWORD mdmColorMatching;     // 0x1FC
    DWORD mdmBlackGlossLevel;   // 0x200
    DWORD mdmFolding;           // 0x204
    DWORD reserved208[2];
    DWORD mdmNup;               // 0x210
    DWORD mdmOutputPaper;       // 0x214
    DWORD mdmCoverPage;         // 0x218
    DWORD mdmFirstPageMedia;    // 0x21C
    DWORD mdmInterleave;        // 0x220
    DWORD mdmInterleaveSource;  // 0x224
    DWORD mdmSecurity;          // 0x228
    DWORD mdmAccessNumber;      // 0x22C
    DWORD mdmJobPassword;       // 0x230
    DWORD mdmDistribution;      // 0x234
    DWORD mdmDistStartNumber;   // 0x238
    DWORD mdmHolePunchNumber;   // 0x23C
    DWORD mdmSmoothing;         // 0x240
    DWORD mdmSorting;           // 0x244
    DWORD mdmDitherPattern;     // 0x248
    DWORD mdmMediaType;         // 0x24C
    DWORD mdmBackPageSource;    // 0x250
    DWORD mdmOtherSettings;     // 0x254, see OtherSetting
    DWORD mdmOverlay;           // 0x258
    DWORD mdmOverlayMode;       // 0x25C
    DWORD savedSetId;           // 0x260, the saved set these settings came from
    DWORD mdmOffsetX;           // 0x264
    DWORD mdmOffsetY;           // 0x268
    DWORD reserved26C;
    BYTE watermarkRecord[kWatermarkCopySize];  // 0x270, copy of the chosen watermark
    char userName[kUserNameSize];              // 0x3C8, at most 8 characters and the zero
    BYTE reserved3D1[0x474 - 0x3D1];
};

// Bits of mdmOtherSettings.
enum OtherSetting : DWORD {
    kOtherProofPrint = 0x2,
    kOtherLineArt = 0x4,
    kOtherTransmitOnce = 0x8,
    kOtherColor = 0x10,
    kOtherAutoConfig = 0x20,
    kOtherAllPaperSize = 0x40,
    kOtherRotate = 0x80,
    kOtherLandscape = 0x100,
    kOtherDiagonalKnown = 0x200,
    kOtherImageShifting = 0x400,
};

// Bits of layoutFlags.
enum LayoutFlag : DWORD {
    kLayoutBooklet = 0x2,
    kLayoutPoster = 0x400,
};

// Bits of mdmNupStyle; the first two are the order of the pages.
constexpr DWORD kNupOrderReversed = 0x1;
constexpr DWORD kNupOrderDownward = 0x2;
constexpr DWORD kNupOrderMask = kNupOrderReversed | kNupOrderDownward;
constexpr DWORD kNupBorder = 0x4;

// Bits of mdmSecurity, and what mdmJobPassword holds while no password is set.
constexpr DWORD kSecurityAccessCode = 0x1;
constexpr DWORD kSecurityLockJob = 0x2;
constexpr DWORD kNoJobPassword = 0xFFFFFFFF;

// Value of mdmColorMatching.
constexpr DWORD kColorMatchingOn = 2;

// Values of mdmNup that more than one page decides on; kNupPosterFirst and above are posters.
constexpr DWORD kNupOff = 0;
constexpr DWORD kNupBooklet = 20;
constexpr DWORD kNupPosterFirst = 100;

// Values of mdmDuplexMode. A booklet keeps its binding edge in the same field.
constexpr DWORD kDuplexOff = 1;
constexpr DWORD kDuplexLongEdge = 2;
constexpr DWORD kDuplexShortEdge = 3;
constexpr DWORD kDuplexBookletLeft = 4;
constexpr DWORD kDuplexBookletRight = 5;
constexpr bool IsBookletBinding(DWORD duplexMode) {
    return duplexMode == kDuplexBookletLeft || duplexMode == kDuplexBookletRight;
}

// The module settings of a page begin at this offset of the private part.
constexpr DWORD kModuleSettingsOffset = 0x184;

// The private part begins where the record itself says that its public part ends, never at a fixed
// offset: records of an older system have a shorter public part.
inline PrivateDevmode* PrivatePart(DEVMODEA* record) {
    return reinterpret_cast<PrivateDevmode*>(reinterpret_cast<BYTE*>(record) + record->dmSize);
}
inline const PrivateDevmode* PrivatePart(const DEVMODEA* record) {
    return reinterpret_cast<const PrivateDevmode*>(reinterpret_cast<const BYTE*>(record) +
                                                   record->dmSize);
}

static_assert(sizeof(PrivateDevmode) == kPrivateSize);
static_assert(sizeof(PrivateDevmode) == 0x474);
// Every stored offset, so that an edit of the struct cannot move one unnoticed.
#define KVUI_AT(field, offset) static_assert(offsetof(PrivateDevmode, field) == (offset))
KVUI_AT(Compression, 0x38);
KVUI_AT(DeviceData1, 0x3C);
KVUI_AT(Dither, 0x48);
KVUI_AT(MediaType, 0x4C);
KVUI_AT(fsQdBitFlags, 0xA0);
KVUI_AT(CellSize, 0xA4);
KVUI_AT(nGrayBits, 0xB8);
KVUI_AT(UnsharpMask, 0xBC);
KVUI_AT(ColorMatching, 0xC0);
KVUI_AT(Lightness, 0xE8);
KVUI_AT(Contrast, 0xEC);
KVUI_AT(Saturation, 0xF0);
KVUI_AT(DotGainAdjust, 0xF4);
KVUI_AT(GCR, 0xF8);
KVUI_AT(BlackGeneration, 0xFC);
KVUI_AT(Depletion, 0x100);
KVUI_AT(ColorsToPatterns, 0x114);
KVUI_AT(EnhanceContrast, 0x130);
KVUI_AT(nUp, 0x140);
KVUI_AT(nUpMode, 0x144);
KVUI_AT(dmDriverPaper, 0x148);
KVUI_AT(Scale, 0x14C);
KVUI_AT(Aspect1, 0x150);
KVUI_AT(layoutFlags, 0x154);
KVUI_AT(RenderingIntent, 0x15C);
KVUI_AT(posterTilesAcross, 0x160);
KVUI_AT(posterTilesDown, 0x161);
KVUI_AT(DownloadRectangles, kModuleSettingsOffset);
KVUI_AT(PrinterDensity, 0x188);
KVUI_AT(UsePCLXL, 0x190);
KVUI_AT(printerModelCode, 0x194);
KVUI_AT(mdmInstalledOptions, 0x198);
KVUI_AT(mdmCans, 0x19C);
KVUI_AT(mdmFirstPage, 0x1A0);
KVUI_AT(mdmFirstPageSource, 0x1A4);
KVUI_AT(mdmShift, 0x1A8);
KVUI_AT(mdmSeparation, 0x1AC);
KVUI_AT(mdmNupStyle, 0x1B0);
KVUI_AT(mdmFitToPaper, 0x1B4);
KVUI_AT(mdmScaleSize, 0x1B8);
KVUI_AT(mdmWatermark, 0x1BC);
KVUI_AT(mdmWatermarkMode, 0x1C0);
KVUI_AT(mdmDuplexMode, 0x1C4);
KVUI_AT(mdmTonerSave, 0x1C8);
KVUI_AT(mdmFineART, 0x1CC);
KVUI_AT(mdmResolution, 0x1D0);
KVUI_AT(mdmHolePunch, 0x1D4);
KVUI_AT(mdmStaple, 0x1D8);
KVUI_AT(mdmMailBinAssign, 0x1DC);
KVUI_AT(mdmPageProtect, 0x1E0);
KVUI_AT(mdmOutBin, 0x1E4);
KVUI_AT(mdmMailBins, 0x1E8);
KVUI_AT(mdmBroadcast, 0x1EC);
KVUI_AT(mdmCompressMethod, 0x1F0);
KVUI_AT(mdmGraphicsMode, 0x1F4);
KVUI_AT(mdmCollate, 0x1F8);
KVUI_AT(mdmColorMatching, 0x1FC);
KVUI_AT(mdmBlackGlossLevel, 0x200);
KVUI_AT(mdmFolding, 0x204);
KVUI_AT(mdmNup, 0x210);
KVUI_AT(mdmOutputPaper, 0x214);
KVUI_AT(mdmCoverPage, 0x218);
KVUI_AT(mdmFirstPageMedia, 0x21C);
KVUI_AT(mdmInterleave, 0x220);
KVUI_AT(mdmInterleaveSource, 0x224);
KVUI_AT(mdmSecurity, 0x228);
KVUI_AT(mdmAccessNumber, 0x22C);
KVUI_AT(mdmJobPassword, 0x230);
KVUI_AT(mdmDistribution, 0x234);
KVUI_AT(mdmDistStartNumber, 0x238);
KVUI_AT(mdmHolePunchNumber, 0x23C);
KVUI_AT(mdmSmoothing, 0x240);
KVUI_AT(mdmSorting, 0x244);
KVUI_AT(mdmDitherPattern, 0x248);
KVUI_AT(mdmMediaType, 0x24C);
KVUI_AT(mdmBackPageSource, 0x250);
KVUI_AT(mdmOtherSettings, 0x254);
KVUI_AT(mdmOverlay, 0x258);
KVUI_AT(mdmOverlayMode, 0x25C);
KVUI_AT(savedSetId, 0x260);
KVUI_AT(mdmOffsetX, 0x264);
KVUI_AT(mdmOffsetY, 0x268);
KVUI_AT(watermarkRecord, 0x270);
KVUI_AT(userName, 0x3C8);
#undef KVUI_AT

}  // namespace kvui
