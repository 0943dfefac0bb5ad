// The copy of the settings that a page can take back: taken after every accepted change, restored
// on cancel, and compared to tell whether anything changed.
#pragma once

#include <windows.h>

#include "sheet/private_devmode.h"
#include "sheet/sheet_context.h"

namespace kvui {

constexpr DWORD kSnapshotModuleWords = (offsetof(PrivateDevmode, mdmOffsetY) -
                                        offsetof(PrivateDevmode, DownloadRectangles)) / 4 + 1;

struct SettingsSnapshot {
    SHORT publicFields[10];
    DWORD frameworkFields[16];
    DWORD moduleWords[kSnapshotModuleWords];  // from DownloadRectangles on, by offset
    BYTE watermark[kWatermarkCopySize];
    char userName[kUserNameSize];
    char overlayPath[261];
    // No settings of their own: what was derived from those above goes back with them.
    DWORD layoutFlags;
    BYTE posterTiles[2];

    // A field of the module region inside the snapshot, by its offset in PrivateDevmode.
    DWORD& ModuleWord(size_t offset) {
        return moduleWords[(offset - offsetof(PrivateDevmode, DownloadRectangles)) / 4];
    }
};

void TakeSnapshot(SheetContext& context);
void RestoreSnapshot(SheetContext& context);
// The watermark block does not count; the user name is compared as a string.
bool ChangedSinceSnapshot(const SheetContext& context);

}  // namespace kvui
