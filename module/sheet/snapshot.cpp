// Snapshot, restore and comparison are one walk over a table of places with three different
// actions.
#include "sheet/snapshot.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "sheet/fixed_text.h"

namespace kvui {
namespace {

// Offsets in the public record.
constexpr size_t kPublicOffsets[] = {
    offsetof(DEVMODEA, dmOrientation),   offsetof(DEVMODEA, dmPaperSize),
    offsetof(DEVMODEA, dmScale),         offsetof(DEVMODEA, dmCopies),
    offsetof(DEVMODEA, dmDefaultSource), offsetof(DEVMODEA, dmColor),
    offsetof(DEVMODEA, dmDuplex),        offsetof(DEVMODEA, dmTTOption),
    offsetof(DEVMODEA, dmPrintQuality),  offsetof(DEVMODEA, dmYResolution),
};

// Offsets in the private part, framework region.
constexpr size_t kFrameworkOffsets[] = {
    offsetof(PrivateDevmode, Dither),          offsetof(PrivateDevmode, MediaType),
    offsetof(PrivateDevmode, CellSize),        offsetof(PrivateDevmode, nGrayBits),
    offsetof(PrivateDevmode, UnsharpMask),     offsetof(PrivateDevmode, ColorMatching),
    offsetof(PrivateDevmode, Lightness),       offsetof(PrivateDevmode, Contrast),
    offsetof(PrivateDevmode, Saturation),      offsetof(PrivateDevmode, ColorsToPatterns),
    offsetof(PrivateDevmode, EnhanceContrast), offsetof(PrivateDevmode, nUp),
    offsetof(PrivateDevmode, nUpMode),         offsetof(PrivateDevmode, dmDriverPaper),
    offsetof(PrivateDevmode, Scale),           offsetof(PrivateDevmode, RenderingIntent),
};

// Words between DownloadRectangles and mdmOffsetY that pages never change.
constexpr size_t kSkippedWords[] = {0x18C, 0x194, 0x19C, 0x208, 0x20C};

static_assert(std::size(kPublicOffsets) == std::size(SettingsSnapshot{}.publicFields));
static_assert(std::size(kFrameworkOffsets) == std::size(SettingsSnapshot{}.frameworkFields));

// Calls act(settings bytes, snapshot bytes, size) for every field that counts as a setting.
template <typename Settings, typename Private, typename Snapshot, typename Act>
void ForEachField(Settings* record, Private* priv, Snapshot* snapshot, Act act) {
    for (size_t i = 0; i < std::size(kPublicOffsets); ++i) {
        act(reinterpret_cast<char*>(record) + kPublicOffsets[i],
            reinterpret_cast<char*>(&snapshot->publicFields[i]), sizeof(SHORT));
    }
    for (size_t i = 0; i < std::size(kFrameworkOffsets); ++i) {
        act(reinterpret_cast<char*>(priv) + kFrameworkOffsets[i],
            reinterpret_cast<char*>(&snapshot->frameworkFields[i]), sizeof(DWORD));
    }
    for (DWORD i = 0; i < kSnapshotModuleWords; ++i) {
        const size_t offset = offsetof(PrivateDevmode, DownloadRectangles) + 4 * i;
        if (std::find(std::begin(kSkippedWords), std::end(kSkippedWords), offset) !=
            std::end(kSkippedWords)) {
            continue;
        }
        act(reinterpret_cast<char*>(priv) + offset,
            reinterpret_cast<char*>(&snapshot->moduleWords[i]), sizeof(DWORD));
    }
}

}  // namespace

void TakeSnapshot(SheetContext& context) {
    SettingsSnapshot& snapshot = *context.snapshot;
    ForEachField(
        context.settings, context.privateSettings, &snapshot,
        [](char* setting, char* saved, size_t size) { std::memcpy(saved, setting, size); });
    std::memcpy(snapshot.watermark, context.privateSettings->watermarkRecord, kWatermarkCopySize);
    std::memcpy(snapshot.userName, context.privateSettings->userName, kUserNameSize);
    CopyText(snapshot.overlayPath, context.overlayPath);
    snapshot.layoutFlags = context.privateSettings->layoutFlags;
    snapshot.posterTiles[0] = context.privateSettings->posterTilesAcross;
    snapshot.posterTiles[1] = context.privateSettings->posterTilesDown;
}

void RestoreSnapshot(SheetContext& context) {
    SettingsSnapshot& snapshot = *context.snapshot;
    ForEachField(
        context.settings, context.privateSettings, &snapshot,
        [](char* setting, char* saved, size_t size) { std::memcpy(setting, saved, size); });
    std::memcpy(context.privateSettings->watermarkRecord, snapshot.watermark, kWatermarkCopySize);
    std::memcpy(context.privateSettings->userName, snapshot.userName, kUserNameSize);
    CopyText(context.overlayPath, snapshot.overlayPath);
    context.privateSettings->layoutFlags = snapshot.layoutFlags;
    context.privateSettings->posterTilesAcross = snapshot.posterTiles[0];
    context.privateSettings->posterTilesDown = snapshot.posterTiles[1];
}

bool ChangedSinceSnapshot(const SheetContext& context) {
    bool changed = false;
    ForEachField(context.settings, context.privateSettings, context.snapshot,
                 [&](char* setting, char* saved, size_t size) {
                     changed = changed || std::memcmp(setting, saved, size) != 0;
                 });
    return changed ||
           std::strncmp(context.privateSettings->userName, context.snapshot->userName,
                        kUserNameSize) != 0 ||
           std::strcmp(context.overlayPath, context.snapshot->overlayPath) != 0;
}

}  // namespace kvui
