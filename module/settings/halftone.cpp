// Halftone selection and the list of halftones.
#include "settings/halftone.h"

#include <kvcore.h>
#include <winspool.h>

#include <cstdio>
#include <cstring>
#include <memory>

#include "resources/string_ids.h"
#include "settings/threshold_tables.h"

namespace kvui {
namespace {

constexpr UINT kFirstTableLibraryString = 700;
constexpr char kUiHost[] = "KVUIHOST";
constexpr char kTableLibrary[] = "KVTABRES.DLL";
constexpr char kFrameworkFile[] = "QDM.INI";
constexpr char kFrameworkSection[] = "Halftoning";
constexpr size_t kEntryTextSize = 256;
constexpr DWORD kKeyNamesSize = 8192;
// Pattern 2 stands for the first halftone.
constexpr DWORD kPatternOfFirst = 2;
// Where a file name carries its digits: "qdtac880.bmp".
constexpr size_t kFirstDigit = 4;
constexpr size_t kDigits = 3;

int HexDigit(char letter) {
    if (letter >= '0' && letter <= '9') return letter - '0';
    if (letter >= 'A' && letter <= 'F') return letter - 'A' + 10;
    if (letter >= 'a' && letter <= 'f') return letter - 'a' + 10;
    return -1;
}

bool TableLibraryIsThere() {
    char path[MAX_PATH + sizeof kTableLibrary + 1] = "";
    DWORD needed = 0;
    if (!GetPrinterDriverDirectoryA(nullptr, nullptr, 1, reinterpret_cast<BYTE*>(path), MAX_PATH,
                                    &needed)) {
        return false;
    }
    const size_t length = std::strlen(path);
    std::snprintf(path + length, sizeof path - length, "\\%s", kTableLibrary);
    const DWORD attributes = GetFileAttributesA(path);
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool UsesTableLibrary(const SheetContext& context) {
    char valueName[64] = "";
    QDMLoadString(static_cast<HMODULE>(context.hostA), kFrameworkStringTableLibraryValue, valueName,
                  sizeof valueName);
    DWORD use = 0;
    return QDMGetPrinterKeyValue(context.printer, kPrinterValueSection, valueName,
                                 kPrinterValueNumber, &use, sizeof use) != 0 &&
           use != 0 && TableLibraryIsThere();
}

// A printer may give the parameters of a pattern itself.
bool ReadPrintersParameters(const SheetContext& context, DWORD pattern,
                            HalftoneParameters* result) {
    char name[32];
    std::snprintf(name, sizeof name, "%s%ld", "DitherList",
                  static_cast<long>(static_cast<LONG>(pattern)));
    DWORD numbers[3] = {};
    if (!QDMGetPrinterKeyValue(context.printer, kPrinterValueSection, name, kPrinterValueNumber,
                               numbers, sizeof numbers)) {
        return false;
    }
    *result = {numbers[0], numbers[1], numbers[2]};
    return true;
}

bool ReadEntrysParameters(const SheetContext& context, DWORD pattern, HalftoneParameters* result) {
    const auto list = std::make_unique<HalftoneList>(context);
    const HalftoneEntry* entry = list->Find(pattern == kPatternOfFirst ? 0 : pattern);
    return entry != nullptr && ParseHalftoneFile(entry->file, result);
}

}  // namespace

HalftoneList::HalftoneList(const SheetContext& context)
    : printer(context.printer),
      uiHost(GetModuleHandleA(kUiHost)),
      current{context.privateSettings->Dither, context.privateSettings->nGrayBits,
              context.privateSettings->CellSize},
      dotGainAdjust(context.privateSettings->DotGainAdjust),
      depletion(context.privateSettings->Depletion) {
    AddStrings(context.resources, IDS_HALFTONE_FINE);
    // Without the UI host there would be only this program's own strings to look at.
    if (uiHost != nullptr && UsesTableLibrary(context)) {
        AddStrings(uiHost, kFirstTableLibraryString);
    }
    AddFrameworkSection();
}

// Null when the pool is full.
char* HalftoneList::Keep(const char* text) {
    const size_t size = std::strlen(text) + 1;
    if (size > kPoolSize - poolUsed_) return nullptr;
    char* const kept = pool_.data() + poolUsed_;
    std::memcpy(kept, text, size);
    poolUsed_ += size;
    return kept;
}

// Splits the kept copy in place, at the first "=" and the next ";".
void HalftoneList::Add(const char* text) {
    if (count_ == kMaxEntries) return;
    char* const name = Keep(text);
    if (name == nullptr) return;
    HalftoneEntry& entry = entries_[count_++];
    entry = {name, "", ""};
    char* const equals = std::strchr(name, '=');
    if (equals == nullptr) return;
    *equals = '\0';
    entry.file = equals + 1;
    char* const semicolon = std::strchr(equals + 1, ';');
    if (semicolon == nullptr) return;
    *semicolon = '\0';
    entry.comment = semicolon + 1;
}

void HalftoneList::AddStrings(HMODULE module, UINT firstId) {
    char text[kEntryTextSize];
    for (UINT id = firstId; count_ < kMaxEntries; ++id) {
        if (LoadStringA(module, id, text, sizeof text) == 0) return;
        Add(text);
    }
}

void HalftoneList::AddFrameworkSection() {
    std::vector<char> names(kKeyNamesSize);
    GetPrivateProfileStringA(kFrameworkSection, nullptr, "", names.data(), kKeyNamesSize,
                             kFrameworkFile);
    for (const char* key = names.data(); *key != '\0'; key += std::strlen(key) + 1) {
        const char* const kept = Keep(key);
        if (kept == nullptr) return;
        keyNames_.push_back(kept);
        char value[kEntryTextSize];
        GetPrivateProfileStringA(kFrameworkSection, key, "", value, sizeof value, kFrameworkFile);
        char text[2 * kEntryTextSize];
        std::snprintf(text, sizeof text, "%s=%s", key, value);
        Add(text);
    }
}

bool ParseHalftoneFile(const char* file, HalftoneParameters* result) {
    if (std::strlen(file) < kFirstDigit + kDigits) return false;
    int digits[kDigits];
    for (size_t i = 0; i < kDigits; ++i) {
        digits[i] = HexDigit(file[kFirstDigit + i]);
        if (digits[i] < 0) return false;
    }
    *result = {static_cast<DWORD>(digits[0]), static_cast<DWORD>(digits[1]),
               static_cast<DWORD>(digits[2])};
    return true;
}

void SelectHalftone(SheetContext& context) {
    PrivateDevmode& settings = *context.privateSettings;
    const DWORD pattern = settings.mdmDitherPattern;
    HalftoneParameters parameters;
    if (ReadPrintersParameters(context, pattern, &parameters) ||
        ReadEntrysParameters(context, pattern, &parameters)) {
        settings.Dither = parameters.dither;
        settings.nGrayBits = parameters.grayBits;
        settings.CellSize = parameters.cellSize;
    }
    PublishThresholdTables(context);
}

}  // namespace kvui
