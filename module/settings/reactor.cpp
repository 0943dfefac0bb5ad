// Settings reactor. One function per derived group; React decides from the control (or the
// whole-page scope) which of them run, in the order that the rendering side's fields depend on each
// other.
#include "settings/reactor.h"

#include <kvcore.h>
#include <winspool.h>

#include <algorithm>

#include "lists/overlay_store.h"
#include "resources/resource.h"
#include "settings/booklet.h"
#include "settings/halftone.h"
#include "settings/threshold_tables.h"
#include "sheet/administrator.h"
#include "sheet/printer_values.h"
#include "sheet/snapshot.h"

namespace kvui {
namespace {

constexpr DWORD kDistributionOn = 0x80000000u;
constexpr DWORD kDistributionFirstOnly = 0x40000000u;
constexpr DWORD kDistributionAllPages = 0x20000000u;
constexpr DWORD kDensityDarker = 0x10000000u;
constexpr DWORD kDensityMiddle = 0x08000000u;
constexpr DWORD kDensityLighter = 0x04000000u;
constexpr DWORD kDensityMask = kDensityDarker | kDensityMiddle | kDensityLighter;

constexpr DWORD kOptionMailBin = 0x400;

bool IsOneOf(DWORD id, std::initializer_list<DWORD> ids) {
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

bool IsPoster(const PrivateDevmode& settings) { return settings.mdmNup >= kNupPosterFirst; }
DWORD PagesPerSheet(const PrivateDevmode& settings) {
    return IsPoster(settings) ? 0 : settings.mdmNup;
}

void ReactToOptions(PrivateDevmode& settings, DWORD id) {
    if (IsOneOf(id, {IDC_BTN_ADD, IDC_BTN_REMOVE}) &&
        !(settings.mdmInstalledOptions & kOptionMailBin)) {
        settings.mdmMailBinAssign = 0;
        settings.mdmSorting = 0;
    }
    if (IsOneOf(id, {IDC_LIST_INSTALLABLE, IDC_LIST_INSTALLED, IDC_BTN_ADD, IDC_BTN_REMOVE})) {
        settings.mdmOtherSettings &= ~kOtherAutoConfig;
    }
}

void DeriveDuplex(SheetContext& context) {
    PrivateDevmode& settings = *context.privateSettings;
    if (IsBookletBinding(settings.mdmDuplexMode)) {
        DeriveBooklet(*context.settings, settings);
    } else {
        settings.nUp = PagesPerSheet(settings);
        context.settings->dmDuplex = static_cast<SHORT>(LOWORD(settings.mdmDuplexMode));
        settings.layoutFlags &= ~kLayoutBooklet;
    }
}

void DerivePagesPerSheet(SheetContext& context) {
    PrivateDevmode& settings = *context.privateSettings;
    if (IsBooklet(settings)) {
        DeriveBooklet(*context.settings, settings);
        if (settings.mdmDuplexMode != kDuplexBookletRight) {
            LimitToLeft(KeptBinding(*context.snapshot));
        }
    } else if (DropBinding(settings)) {
        DeriveDuplex(context);
    } else if (!IsPoster(settings)) {
        settings.nUp = settings.mdmNup;
        settings.nUpMode &= ~(kNupModeReversed | kNupModeLandscapeRight | kNupModeDownward);
        if (settings.mdmNupStyle & kNupOrderReversed) settings.nUpMode |= kNupModeReversed;
        if (settings.mdmNupStyle & kNupOrderDownward) settings.nUpMode |= kNupModeDownward;
    }
}

void DeriveScaling(PrivateDevmode& settings, DWORD id) {
    settings.Scale = 100;
    settings.nUpMode &= ~kNupModeScaled;
    settings.dmDriverPaper = 0;
    if (settings.mdmOutputPaper != 0) {
        settings.nUpMode |= kNupModeScaled;
        settings.dmDriverPaper = settings.mdmOutputPaper;
    } else if (id == IDC_RADIO_SCALING_AUTO) {
        settings.mdmScaleSize = 100;
    } else {
        settings.Scale = settings.mdmScaleSize;
    }
    if (id == IDC_EDIT_SCALING) settings.nUp = PagesPerSheet(settings);
    if (settings.mdmNup != kNupOff) settings.mdmScaleSize = 100;
    if (settings.mdmScaleSize != 0 && settings.mdmScaleSize != 100) {
        settings.nUpMode |= kNupModeScaled;
    }
}

// The index of each resolution is written in turn, so that the last one stays.
void DeriveResolution(SheetContext& context) {
    ResolutionInfo resolutions[kMaxResolutions] = {};
    const int count =
        std::min(QDMGetResolutionList(context.printer, resolutions), kMaxResolutions);
    if (count > 0) context.privateSettings->CellSize = static_cast<DWORD>(count - 1);
}

void DerivePoster(PrivateDevmode& settings) {
    constexpr DWORD kFirstTiled = 102;  // 2x2
    constexpr DWORD kLastTiled = 106;   // 6x6
    const DWORD nup = settings.mdmNup;
    if (nup >= kNupPosterFirst) {
        settings.layoutFlags |= kLayoutPoster;
    }
    if (nup >= kFirstTiled && nup <= kLastTiled) {
        settings.posterTilesAcross = settings.posterTilesDown = static_cast<BYTE>(nup - 100);
    } else {
        settings.posterTilesAcross = settings.posterTilesDown = 0;
        settings.layoutFlags &= ~kLayoutPoster;
    }
}

void NormaliseDistribution(PrivateDevmode& settings) {
    DWORD& value = settings.mdmDistribution;
    if (!(value & kDistributionOn)) {
        value &= ~(kDensityDarker | kDensityLighter);
        value |= kDensityMiddle;
        return;
    }
    value = (value & kDistributionFirstOnly) ? (value & ~kDistributionAllPages)
                                             : (value | kDistributionAllPages);
    const DWORD density = value & kDensityMask;
    const DWORD kept = (density & kDensityDarker)    ? kDensityDarker
                       : (density & kDensityMiddle)  ? kDensityMiddle
                       : (density & kDensityLighter) ? kDensityLighter
                                                     : kDensityMiddle;
    value = (value & ~kDensityMask) | kept;
}

void NormaliseJobPassword(PrivateDevmode& settings) {
    if (!(settings.mdmSecurity & kSecurityLockJob)) settings.mdmJobPassword = kNoJobPassword;
}

}  // namespace

void DeriveColorMatching(PrivateDevmode& settings) {
    settings.ColorMatching = settings.mdmColorMatching == kColorMatchingOn ? 1 : 0;
}

void React(SheetContext& context, DWORD id, ReactScope scope) {
    PrivateDevmode& settings = *context.privateSettings;
    const bool whole = scope == ReactScope::kWholePage;
    if (whole || id == IDC_COMBO_DENSITY) NormaliseDistribution(settings);
    if (whole || IsOneOf(id, {IDC_CHK_LOCK_JOB, IDC_EDIT_PASSWORD})) NormaliseJobPassword(settings);
    ReactToOptions(settings, id);
    // A poster chosen alone leaves pages per sheet, binding and scaling as they are.
    if (!whole && id == IDC_COMBO_NUP && IsPoster(settings)) {
        DerivePoster(settings);
        return;
    }
    if (whole || IsOneOf(id, {IDC_COMBO_NUP, IDC_BTN_NUP_DETAILS, IDC_RADIO_LANDSCAPE,
                              IDC_RADIO_COLLATE_ON})) {
        DerivePagesPerSheet(context);
    }
    if (whole || id == IDC_COMBO_DUPLEX) DeriveDuplex(context);
    if (whole ||
        IsOneOf(id, {IDC_CHK_OUT_PAPER, IDC_COMBO_OUT_PAPER, IDC_CHK_FIT_TO_PAPER, IDC_EDIT_SCALING,
                     IDC_RADIO_SCALING_AUTO, IDC_RADIO_SCALING_MANUAL})) {
        DeriveScaling(settings, id);
    }
    if (whole || id == IDC_COMBO_HALFTONE) SelectHalftone(context);
    if (whole || id == IDC_COMBO_RESOLUTION) {
        DeriveResolution(context);
        PublishThresholdTables(context);
    }
    if (whole || id == IDC_COMBO_COVER_SOURCE) {
        settings.mdmBackPageSource = settings.mdmFirstPageSource;
    }
    if (id == IDC_CHK_ACCESS_CODE && !(settings.mdmSecurity & kSecurityAccessCode)) {
        settings.mdmAccessNumber = 0;
    }
    if (whole || id == IDC_LIST_OVERLAY) ReadChosenOverlayPath(context);
    if (whole) DerivePoster(settings);
}

void ReactToForced(SheetContext& context, DWORD id) {
    if (!IsOneOf(id, {IDC_COMBO_DENSITY, IDC_EDIT_PASSWORD})) return;
    React(context, id, ReactScope::kOneControl);
}

void DeriveAtSheetStart(SheetContext& context) {
    PrivateDevmode& settings = *context.privateSettings;
    if (settings.Scale != 0) settings.mdmScaleSize = settings.Scale;
    if (!IsBookletBinding(settings.mdmDuplexMode) && !IsPoster(settings)) {
        settings.mdmNup = settings.nUp;
    }
    ReadChosenOverlayPath(context);
    constexpr SHORT kColour = 2;
    settings.mdmOtherSettings = context.settings->dmColor == kColour
                                    ? settings.mdmOtherSettings | kOtherColor
                                    : settings.mdmOtherSettings & ~kOtherColor;
    if (!IsAdministrator()) ReadPrinterLevelOptions(context);
}

}  // namespace kvui
