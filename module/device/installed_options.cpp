// Moving options between the lists of missing and installed ones, and what follows from it.
#include "device/installed_options.h"

#include <array>
#include <cstring>
#include <string>
#include <vector>

#include "resources/resource.h"
#include "rules/conflicts.h"
#include "rules/gray_out.h"
#include "rules/rules_file.h"
#include "settings/defaults.h"
#include "settings/item_catalogue.h"
#include "sheet/rules_path.h"

namespace kvui {
namespace {

constexpr size_t kCaptionSize = 128;
constexpr int kLineSize = 256;
constexpr char kMovesAlone[] = "NON";

constexpr DWORD kFinishers = 0x180000;
constexpr DWORD kOutBinElevator = 76;
constexpr DWORD kOutBinMailBin = 69;
constexpr DWORD kLastMailBin = 1024;

constexpr DWORD kAutomaticSource = 7;
constexpr int kMaxDescribedBins = 64;

// Options that a line of "MoveWithItems" moves along.
DWORD OptionsMovingWith(const char* key) {
    char line[kLineSize];
    GetPrivateProfileStringA("MoveWithItems", key, kMovesAlone, line, sizeof line, RulesFilePath());
    if (std::strcmp(line, kMovesAlone) == 0) return 0;
    LONG numbers[kLineSize];
    const int count = ReadCommaNumbers(line, numbers, kLineSize);
    DWORD mask = 0;
    for (int i = 0; i < count; ++i) mask |= static_cast<DWORD>(numbers[i]);
    return mask;
}

DWORD OptionsOfEntry(SheetContext& context, const ControlItem& list, const std::string& text,
                     OptionChange change) {
    for (const SelectItem& entry : SelectEntries(list)) {
        char caption[kCaptionSize] = "";
        LoadStringA(context.strings, entry.stringId, caption, sizeof caption);
        if (text != caption) continue;
        const bool install = change == OptionChange::kInstall;
        return entry.value | OptionsMovingWith(install ? entry.secondName : entry.thirdName);
    }
    return 0;
}

DWORD SelectedOptions(SheetContext& context, HWND page, const ControlItem& list,
                      OptionChange change) {
    const HWND box = GetDlgItem(page, static_cast<int>(list.controlId));
    const LRESULT count = SendMessageA(box, LB_GETCOUNT, 0, 0);
    DWORD mask = 0;
    for (LRESULT i = 0; i < count; ++i) {
        if (SendMessageA(box, LB_GETSEL, i, 0) <= 0) continue;
        const LRESULT length = SendMessageA(box, LB_GETTEXTLEN, i, 0);
        if (length < 0) continue;
        std::string text(length + 1, '\0');
        SendMessageA(box, LB_GETTEXT, i, reinterpret_cast<LPARAM>(text.data()));
        text.resize(length);
        mask |= OptionsOfEntry(context, list, text, change);
    }
    return mask;
}

std::vector<BinRecord> BinsOf(const SheetContext& context, ListHandle list) {
    const int count = list != nullptr ? QDMMLTGetBinNum(list, context.printer) : 0;
    std::vector<BinRecord> bins(count > 0 ? count : 0);
    if (!bins.empty() && !QDMMLTGetBinArray(list, context.printer, bins.data())) bins.clear();
    return bins;
}

bool IsOffered(SheetContext& context, const BinRecord& bin) {
    const std::string option(bin.optionItem, strnlen(bin.optionItem, sizeof bin.optionItem));
    if (bin.displayName[0] == '\0' || IsShownByOptions(context, option.c_str()) != 1) return false;
    // A first page of its own leaves nothing to select automatically.
    return bin.identifier != kAutomaticSource || context.privateSettings->mdmFirstPage != 1;
}

}  // namespace

void RebuildPaperSources(SheetContext& context, DWORD listNumber) {
    ListHandle& list = context.shared->lists.handles[kListBin0 + listNumber];
    const std::vector<BinRecord> before = BinsOf(context, list);
    if (before.empty()) return;
    std::array<BinRecord, kMaxDescribedBins> described{};
    const int count = QDMMLTLoadQDDBinInfo(list, context.printer, described.data(), listNumber);
    for (const BinRecord& bin : before) QDMMLTDeleteBin(list, context.printer, &bin);
    bool sourceIsOffered = false;
    for (int i = 0; i < count; ++i) {
        const BinRecord& bin = described[i];
        if (!IsOffered(context, bin)) continue;
        QDMMLTAddBin(list, context.printer, &bin);
        sourceIsOffered = sourceIsOffered ||
                          static_cast<SHORT>(bin.identifier) == context.settings->dmDefaultSource;
    }
    if (listNumber == 0 && !sourceIsOffered) {
        context.settings->dmDefaultSource = static_cast<SHORT>(before.front().identifier);
    }
    QDMMLTWriteBin(list, context.printer, listNumber);
    list = QDMMLTReadBin(context.printer, listNumber);
}

void ReplaceMissingOutputBin(SheetContext& context) {
    PrivateDevmode& settings = *context.privateSettings;
    std::vector<DWORD> offered;
    for (const SelectItem& entry : SelectEntries(*ItemById(IDC_COMBO_OUTPUT_SETTING))) {
        if (IsShownByOptions(context, entry.name) != 1) continue;
        if (entry.value == settings.mdmOutBin) return;
        offered.push_back(entry.value);
    }
    if (offered.empty()) return;
    const bool finisher = (settings.mdmInstalledOptions & kFinishers) != 0;
    settings.mdmOutBin = finisher ? kOutBinElevator : offered.front();
    if (offered.front() == kOutBinMailBin) settings.mdmMailBins = kLastMailBin;
}

void FollowInstalledOptions(SheetContext& context) {
    RebuildPaperSources(context, 0);
    RebuildPaperSources(context, 1);
    ReplaceMissingOutputBin(context);
}

bool ChangeSelectedOptions(SheetContext& context, HWND page, OptionChange change) {
    const bool install = change == OptionChange::kInstall;
    const ControlItem& list = *ItemById(install ? IDC_LIST_INSTALLABLE : IDC_LIST_INSTALLED);
    const DWORD mask = SelectedOptions(context, page, list, change);
    DWORD& installed = context.privateSettings->mdmInstalledOptions;
    const DWORD before = installed;
    // Asked before anything is reset, so that Cancel leaves all settings as they are.
    if (mask == 0 || ApplyOptionChange(page, context, mask, change) == 0) return false;
    ApplyRecordDefaults(context.settings, context.printer);
    if (ResolveConflicts(context, list.controlId, page) != 1) installed = before;
    FollowInstalledOptions(context);
    return true;
}

}  // namespace kvui
