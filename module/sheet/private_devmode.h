// The private part of the device settings record: the driver's own fields behind the public
// DEVMODE. Everything of the module that reads or writes settings goes through it. Its offsets are
// stored by the print system and read by the rendering side of the driver, so they never change.
#pragma once
#include <record_layout.h>
#include <windows.h>

#include <cstddef>

namespace kvui {

// Public and private part together; the framework's default records have the same size.
constexpr DWORD kRecordSize = 1296;
constexpr DWORD kPrivateSize = kRecordSize - sizeof(DEVMODEA);
constexpr DWORD kWatermarkCopySize = 344;
constexpr DWORD kUserNameSize = 9;

// Members carry the names of the record's fields; where each lies, and which are only carried, is in
// record_layout.h. Fields without the mdm prefix are shared with the rendering side. "reserved"
// members are carried unchanged.
struct PrivateDevmode {
    BYTE reserved000[0x38];
    DWORD Compression;
    DWORD DeviceData1;
    DWORD DeviceData2;
    BYTE reserved044[4];
    DWORD Dither;
    DWORD MediaType;
    BYTE reserved050[0x50];
    DWORD fsQdBitFlags;
    DWORD CellSize;
    BYTE reserved0A8[0x10];
    DWORD nGrayBits;
    LONG UnsharpMask;
    DWORD ColorMatching;
    DWORD AntiAliasing;
    BYTE reserved0C8[8];
    DWORD HueRed;
    DWORD HueYellow;
    DWORD HueGreen;
    DWORD HueCyan;
    DWORD HueBlue;
    DWORD HueMagenta;
    LONG Lightness;
    LONG Contrast;
    LONG Saturation;
    DWORD DotGainAdjust;
    DWORD GCR;
    DWORD BlackGeneration;
    DWORD Depletion;
    DWORD Mirror;
    DWORD DiffusionNoise;
    DWORD GrayLightness;
    DWORD HueLightness;
    DWORD ColorsToPatterns;
    BYTE reserved118[0x18];
    DWORD EnhanceContrast;
    DWORD ContrastHighCutoff;
    DWORD ContrastLowCutoff;
    DWORD EnhanceLightness;
    DWORD nUp;
    DWORD nUpMode;
    DWORD dmDriverPaper;
    DWORD Scale;
    DWORD Aspect1;
    DWORD layoutFlags;  // see LayoutFlag
    BYTE reserved158[4];
    DWORD RenderingIntent;
    BYTE posterTilesAcross;
    BYTE posterTilesDown;
    BYTE reserved162[0x22];
    DWORD DownloadRectangles;  // first word of the module settings
    DWORD PrinterDensity;
    DWORD reserved18C;
    DWORD UsePCLXL;
    BYTE printerModelCode;
    BYTE reserved195[3];
    DWORD mdmInstalledOptions;
    DWORD mdmCans;
    DWORD mdmFirstPage;
    DWORD mdmFirstPageSource;
    DWORD mdmShift;
    DWORD mdmSeparation;
    DWORD mdmNupStyle;
    DWORD mdmFitToPaper;
    DWORD mdmScaleSize;
    DWORD mdmWatermark;
    DWORD mdmWatermarkMode;
    DWORD mdmDuplexMode;
    DWORD mdmTonerSave;
    DWORD mdmFineART;
    DWORD mdmResolution;
    DWORD mdmHolePunch;
    DWORD mdmStaple;
    DWORD mdmMailBinAssign;
    DWORD mdmPageProtect;
    DWORD mdmOutBin;
    DWORD mdmMailBins;
    DWORD mdmBroadcast;
    DWORD mdmCompressMethod;  // also known as mdmAllRaster
    DWORD mdmGraphicsMode;
    DWORD mdmCollate;
    DWORD mdmColorMatching;
    DWORD mdmBlackGlossLevel;
    DWORD mdmFolding;
    DWORD reserved208[2];
    DWORD mdmNup;
    DWORD mdmOutputPaper;
    DWORD mdmCoverPage;
    DWORD mdmFirstPageMedia;
    DWORD mdmInterleave;
    DWORD mdmInterleaveSource;
    DWORD mdmSecurity;
    DWORD mdmAccessNumber;
    DWORD mdmJobPassword;
    DWORD mdmDistribution;
    DWORD mdmDistStartNumber;
    DWORD mdmHolePunchNumber;
    DWORD mdmSmoothing;
    DWORD mdmSorting;
    DWORD mdmDitherPattern;
    DWORD mdmMediaType;
    DWORD mdmBackPageSource;
    DWORD mdmOtherSettings;  // see OtherSetting
    DWORD mdmOverlay;
    DWORD mdmOverlayMode;
    DWORD savedSetId;  // the saved set these settings came from
    DWORD mdmOffsetX;
    DWORD mdmOffsetY;
    DWORD reserved26C;
    BYTE watermarkRecord[kWatermarkCopySize];  // copy of the chosen watermark
    char userName[kUserNameSize];              // at most 8 characters and the zero
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

// Bits of nUpMode.
constexpr DWORD kNupModeReversed = 0x1;  // order from the right; booklet: right binding, portrait
constexpr DWORD kNupModeLandscapeRight = 0x2;
constexpr DWORD kNupModeDownward = 0x4;
constexpr DWORD kNupModeScaled = 0x8000;

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

// Values of mdmNup that more than one page decides on; kNupPosterFirst and above are posters. What
// a booklet has there and in mdmDuplexMode is in settings/booklet.h.
constexpr DWORD kNupOff = 0;
constexpr DWORD kNupPosterFirst = 100;

// Values of mdmDuplexMode.
constexpr DWORD kDuplexOff = 1;
constexpr DWORD kDuplexLongEdge = 2;
constexpr DWORD kDuplexShortEdge = 3;

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
// No edit of the struct can move a stored field unnoticed.
#define KVUI_PRIVATE(field, offset, width)                       \
    static_assert(offsetof(PrivateDevmode, field) == (offset) && \
                  sizeof(PrivateDevmode::field) == (width));
#define KVUI_PUBLIC(field, offset, width) \
    static_assert(offsetof(DEVMODEA, field) == (offset) && sizeof(DEVMODEA::field) == (width));
KV_PUBLIC_FIELDS(KVUI_PUBLIC)
KV_PRIVATE_FIELDS(KVUI_PRIVATE)
KV_PRIVATE_BLOCKS(KVUI_PRIVATE)
static_assert(offsetof(PrivateDevmode, DownloadRectangles) == kModuleSettingsOffset);
#undef KVUI_PRIVATE
#undef KVUI_PUBLIC

}  // namespace kvui
