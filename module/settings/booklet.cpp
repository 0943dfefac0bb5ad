// Decisions about the booklet, over the settings alone: whoever calls them refreshes and tells.
#include "settings/booklet.h"

#include <algorithm>

namespace kvui {
namespace {

constexpr SHORT kPublicDuplexShortEdge = 3;
constexpr SHORT kLandscape = 2;

// A right-bound booklet is marked by one bit in portrait and by another in landscape.
void MarkBinding(const DEVMODEA& record, PrivateDevmode& settings) {
    const DWORD bit =
        record.dmOrientation == kLandscape ? kNupModeLandscapeRight : kNupModeReversed;
    if (settings.mdmDuplexMode == kDuplexBookletRight) {
        settings.nUpMode |= bit;
    } else {
        settings.nUpMode &= ~bit;
    }
}

}  // namespace

DWORD& PageOrder(PrivateDevmode& settings) {
    return IsBooklet(settings) ? settings.mdmDuplexMode : settings.mdmNupStyle;
}

DWORD& KeptBinding(SettingsSnapshot& kept) {
    return kept.ModuleWord(offsetof(PrivateDevmode, mdmDuplexMode));
}

void LimitToLeft(DWORD& keptBinding) {
    keptBinding = std::min(keptBinding, kDuplexBookletLeft);
}

Binding BindBooklet(PrivateDevmode& settings, bool changed, DWORD keptBinding) {
    if (!IsBooklet(settings) || IsBookletBinding(settings.mdmDuplexMode)) return Binding::kStays;
    const bool asKept = !changed && IsBookletBinding(keptBinding);
    settings.mdmDuplexMode = asKept ? keptBinding : kDuplexBookletLeft;
    return asKept ? Binding::kAsKept : Binding::kChosen;
}

void DeriveBooklet(DEVMODEA& record, PrivateDevmode& settings) {
    settings.nUp = 2;
    record.dmDuplex = kPublicDuplexShortEdge;
    settings.layoutFlags |= kLayoutBooklet;
    MarkBinding(record, settings);
}

bool DropBinding(PrivateDevmode& settings) {
    if (IsBooklet(settings) || !IsBookletBinding(settings.mdmDuplexMode)) return false;
    settings.mdmDuplexMode = kDuplexOff;
    return true;
}

void DropForcedBinding(PrivateDevmode& settings) {
    if (!IsBooklet(settings) && IsBeyondDuplexList(settings.mdmDuplexMode)) {
        settings.mdmDuplexMode = kDuplexOff;
    }
}

}  // namespace kvui
