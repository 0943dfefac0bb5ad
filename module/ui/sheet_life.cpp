// Start and end of pages and sheets.
#include "ui/sheet_life.h"

#include <kvcore.h>

#include <utility>

#include "preview/shared_view.h"
#include "resources/string_ids.h"
#include "rules/rules_cache.h"
#include "settings/reactor.h"
#include "sheet/administrator.h"
#include "sheet/message_box.h"
#include "sheet/printer_values.h"
#include "sheet/rules_path.h"
#include "sheet/snapshot.h"
#include "ui/page_table.h"

namespace kvui {
namespace {

// The page's block: the context, then the snapshot, then the page's own tail.
constexpr DWORD kSnapshotOffset = (sizeof(SheetContext) + 15) / 16 * 16;
constexpr DWORD kTailOffset = (kSnapshotOffset + sizeof(SettingsSnapshot) + 15) / 16 * 16;

SharedSheet* SharedSheetOf(HostUiBlock& host) {
    if (host.sharedView == nullptr) host.sharedView = GlobalAlloc(GHND, sizeof(SharedSheet));
    return static_cast<SharedSheet*>(GlobalLock(host.sharedView));
}

DWORD ReadModeFlags(HWND page, UINT message, LPARAM lParam) {
    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof version;
    GetVersionExA(&version);
    DWORD mode = 0;
    if (!QDMGetMode(page, message, lParam, &mode)) return 0;
    const bool nt5 =
        version.dwPlatformId == VER_PLATFORM_WIN32_NT && version.dwMajorVersion >= 5;
    DWORD flags = 0;
    if (mode & kModeReadOnly) flags |= kSheetReadOnly;
    if (mode & (nt5 ? kModeSecondPermissionNt5 : kModeSecondPermissionOld)) {
        flags |= kSheetSecondPermission;
    }
    return flags;
}

using ReadList = ListHandle (*)(PrinterBlock*);
using EndList = int (*)(ListHandle, PrinterBlock*);
struct ListOperations {
    ReadList read;
    EndList write;
    EndList cancel;
};

// In the order of SheetList: read, write, cancel.
const ListOperations kListOperations[kListCount] = {
    {QDMMLTReadPaper, QDMMLTWritePaper, QDMMLTCancelPaper},
    {QDMMLTReadWatermark, QDMMLTWriteWatermark, QDMMLTCancelWatermark},
    {QDMMLTReadOUTBin, QDMMLTWriteOUTBin, QDMMLTCancelOUTBin},
    {[](PrinterBlock* printer) { return QDMMLTReadBin(printer, 0); },
     [](ListHandle list, PrinterBlock* printer) { return QDMMLTWriteBin(list, printer, 0); },
     QDMMLTCancelBin},
    {[](PrinterBlock* printer) { return QDMMLTReadBin(printer, 1); },
     [](ListHandle list, PrinterBlock* printer) { return QDMMLTWriteBin(list, printer, 1); },
     QDMMLTCancelBin},
};

}  // namespace

DWORD SheetBlockSize(DWORD tailSize) { return kTailOffset + tailSize; }

SheetContext* BeginPageMessage(HWND page, UINT message, LPARAM lParam, DWORD tailSize) {
    if (message != WM_INITDIALOG) {
        LPVOID state = nullptr;
        if (!QDMCrackInfo(page, message, lParam, nullptr, nullptr, nullptr, &state, nullptr,
                          nullptr, nullptr, nullptr)) {
            return nullptr;
        }
        return static_cast<SheetContext*>(state);
    }
    SheetContext cracked{};
    BYTE* privatePart = nullptr;
    if (!QDMCrackInfo(page, message, lParam, &cracked.hostA, &cracked.resources, &cracked.hostB,
                      nullptr, &cracked.settings, &privatePart, nullptr, &cracked.printer)) {
        return nullptr;
    }
    BYTE* block = static_cast<BYTE*>(QDMDialogAlloc(page, SheetBlockSize(tailSize)));
    if (block == nullptr) return nullptr;
    SheetContext& context = *new (block) SheetContext(cracked);
    context.page = page;
    context.strings = cracked.resources;
    context.privateSettings = reinterpret_cast<PrivateDevmode*>(privatePart);
    context.moduleSettings = privatePart + kModuleSettingsOffset;
    context.snapshot = new (block + kSnapshotOffset) SettingsSnapshot{};
    context.host = GetQDMUIInfo(page, kUiInfoPage, lParam);
    context.shared = context.host != nullptr ? SharedSheetOf(*context.host) : nullptr;
    if (context.shared == nullptr) {
        QDMEndDialog(page, 0);
        return nullptr;
    }
    ++context.shared->life.pageCount;
    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof version;
    GetVersionExA(&version);
    context.platformId = version.dwPlatformId;
    context.flags = ReadModeFlags(page, message, lParam);
    // Whether printer data can be written is the same for every page of the sheet, and asking costs
    // a durable write.
    if (context.shared->life.dataWritable == kAnswerUnknown) {
        context.shared->life.dataWritable = PrinterDataIsWritable(context) ? kAnswerYes : kAnswerNo;
    }
    if (context.shared->life.dataWritable == kAnswerNo) context.flags |= kSheetDataNotWritable;
    return &context;
}

void LoadSheetRules(SheetContext& context) {
    SharedSheet& shared = *context.shared;
    if (shared.life.initialised) return;
    ComputeRulesFilePath(context);
    CreateSharedView(context);
    SetTabCaptions(context);
    shared.life.initialised = TRUE;
    shared.life.active = TRUE;
    LoadRulesCache(context);
    BuildGrayOutIndex(context);
    bool complete = true;
    for (int i = 0; i < kListCount; ++i) {
        shared.lists.handles[i] = kListOperations[i].read(context.printer);
        complete = complete && shared.lists.handles[i] != nullptr;
    }
    if (!complete) {
        ShowMessageString(context.page, context.strings, IDS_LISTS_MISSING, IDS_WARNING,
                          MB_ICONEXCLAMATION);
    }
    context.flags |= kSheetListsLoaded;
    DeriveAtSheetStart(context);
}

void EndSheet(SheetContext& context) {
    SharedSheet& shared = *context.shared;
    if (!shared.life.active) return;
    DestroySharedView(shared);
    shared.life.active = FALSE;
    FreeRulesCaches(shared);
    for (int i = 0; i < kListCount; ++i) {
        const ListHandle list = std::exchange(shared.lists.handles[i], nullptr);
        if (list == nullptr) continue;
        const ListOperations& operations = kListOperations[i];
        (shared.lists.commit[i] ? operations.write : operations.cancel)(list, context.printer);
    }
    if (IsAdministrator()) WritePrinterLevelOptions(context);
}

void ReleaseShared(SheetContext& context) {
    HostUiBlock& host = *context.host;
    if (--context.shared->life.pageCount != 0) return;
    GlobalUnlock(host.sharedView);
    GlobalFree(std::exchange(host.sharedView, nullptr));
}

void ReleasePage(SheetContext& context, HWND page) {
    if (context.strings != context.resources) FreeLibrary(context.strings);
    ReleaseShared(context);
    QDMEndDialog(page, 0);
}

}  // namespace kvui
