// The booklet: sheets printed on both sides, two pages on each, to be folded in the middle. It is
// chosen as pages per sheet; the side of its fold, the binding, stands in the field that otherwise
// holds the duplex mode. What makes a booklet, what follows from it and what undoes it is decided
// here; rules, reactor, router, pages and preview ask.
#pragma once

#include "sheet/private_devmode.h"
#include "sheet/snapshot.h"

namespace kvui {

constexpr DWORD kNupBooklet = 20;  // value of mdmNup

// Values of mdmDuplexMode that the duplex list does not offer.
constexpr DWORD kDuplexBookletLeft = 4;
constexpr DWORD kDuplexBookletRight = 5;

// While it is one, the duplex list's first entry reads "On" and cannot be chosen.
constexpr bool IsBooklet(DWORD nup) {
    return nup == kNupBooklet;
}
constexpr bool IsBooklet(const PrivateDevmode& settings) {
    return IsBooklet(settings.mdmNup);
}

constexpr bool IsBookletBinding(DWORD duplexMode) {
    return duplexMode == kDuplexBookletLeft || duplexMode == kDuplexBookletRight;
}
// A binding, or a number beyond them that rules or a damaged record hold.
constexpr bool IsBeyondDuplexList(DWORD duplexMode) {
    return duplexMode >= kDuplexBookletLeft;
}

// The field that tells how the pages of a sheet follow each other: in a booklet, its binding does.
DWORD& PageOrder(PrivateDevmode& settings);

// The binding in the copy of the settings. Filling the duplex list stores one of its entries over
// the binding; it outlives that in the copy.
DWORD& KeptBinding(SettingsSnapshot& kept);
// After a left binding or none, Cancel brings no right one back.
void LimitToLeft(DWORD& keptBinding);

enum class Binding { kStays, kAsKept, kChosen };
// Gives a booklet that has no binding the kept one. Where none was kept, or something has changed
// since, it gets the left one: a choice, from which other fields follow.
Binding BindBooklet(PrivateDevmode& settings, bool changed, DWORD keptBinding);

// What the rendering side reads of a booklet with the binding in mdmDuplexMode.
void DeriveBooklet(DEVMODEA& record, PrivateDevmode& settings);

// Turns off the binding that is left when another number of pages per sheet is chosen; false where
// there is none.
bool DropBinding(PrivateDevmode& settings);
// The same after a rule has forced a value, whatever the number.
void DropForcedBinding(PrivateDevmode& settings);

}  // namespace kvui
