// Threshold tables: their names, made of the halftone, dot gain and aspect, and their way from the
// module's resources to the registry.
#include "settings/threshold_tables.h"

#include <kvcore.h>
#include <winreg.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace kvui {
namespace {

constexpr char kKey[] = "Software\\VARNELL\\KVRENDER\\ThresholdLUTs";
constexpr char kTableType[] = "TRC";
constexpr char kGreyType[] = "GCRBG";
constexpr int kPlanes = 4;
constexpr LONG kSquareAspect = 100;
constexpr size_t kNameSize = 64;

struct TableNames {
    char shortName[kNameSize];  // halftone and plane
    char longName[kNameSize];   // and dot gain and aspect
};

struct ResourceBytes {
    const BYTE* bytes = nullptr;
    DWORD size = 0;
};

TableNames NamesOf(const PrivateDevmode& settings, int plane, LONG dotGain, LONG aspect) {
    TableNames names;
    const auto digit = [](DWORD setting) { return static_cast<unsigned>(setting & 0xF); };
    std::snprintf(names.shortName, sizeof names.shortName, "dQDTA%X%X%X%d", digit(settings.Dither),
                  digit(settings.nGrayBits), digit(settings.CellSize), plane);
    std::snprintf(names.longName, sizeof names.longName, "%.16s_D%d_A%d", names.shortName,
                  static_cast<int>(dotGain), static_cast<int>(aspect));
    return names;
}

// Dots across in percent of the dots down.
LONG Aspect(const DEVMODEA& settings) {
    if (settings.dmYResolution == 0) return kSquareAspect;
    return std::lround(static_cast<double>(settings.dmPrintQuality) * 100 / settings.dmYResolution);
}

// The special resource if there is one, else the one for every gain and aspect.
ResourceBytes FindTable(HMODULE module, const char* type, const TableNames& names) {
    for (const char* name : {names.longName, names.shortName}) {
        const HRSRC resource = FindResourceA(module, name, type);
        if (resource == nullptr) continue;
        const HGLOBAL loaded = LoadResource(module, resource);
        const void* bytes = loaded != nullptr ? LockResource(loaded) : nullptr;
        if (bytes == nullptr) return {};
        return {static_cast<const BYTE*>(bytes), SizeofResource(module, resource)};
    }
    return {};
}

bool ValueHolds(HKEY key, const char* name, const ResourceBytes& table) {
    DWORD type = 0, size = 0;
    if (RegQueryValueExA(key, name, nullptr, &type, nullptr, &size) != ERROR_SUCCESS ||
        type != REG_BINARY || size != table.size) {
        return false;
    }
    std::vector<BYTE> stored(size + 1);
    return RegQueryValueExA(key, name, nullptr, &type, stored.data(), &size) == ERROR_SUCCESS &&
           size == table.size && std::memcmp(stored.data(), table.bytes, size) == 0;
}

// A write is durable and costs accordingly; the tables rarely change.
void StoreTable(HKEY key, const char* name, const ResourceBytes& table) {
    if (table.bytes == nullptr || ValueHolds(key, name, table)) return;
    RegSetValueExA(key, name, 0, REG_BINARY, table.bytes, table.size);
}

void TakeGreyValues(PrivateDevmode& settings, const ResourceBytes& grey) {
    constexpr DWORD kWord = sizeof(DWORD);
    if (grey.bytes == nullptr || grey.size < kWord) return;
    std::memcpy(&settings.GCR, grey.bytes, kWord);
    if (grey.size >= 2 * kWord) std::memcpy(&settings.BlackGeneration, grey.bytes + kWord, kWord);
}

// False when the key cannot be opened.
bool PublishPlane(SheetContext& context, const TableNames& names) {
    HKEY key = nullptr;
    if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, kKey, 0, KEY_READ | KEY_WRITE, &key) != ERROR_SUCCESS) {
        return false;
    }
    StoreTable(key, names.longName, FindTable(context.resources, kTableType, names));
    TakeGreyValues(*context.privateSettings, FindTable(context.resources, kGreyType, names));
    RegCloseKey(key);
    return true;
}

}  // namespace

LONG DotGain(const SheetContext& context) {
    const HMODULE texts = static_cast<HMODULE>(context.hostA);
    char section[64] = "", valueName[64] = "", fields[256] = "", key[256] = "", value[32] = "";
    const bool found =
        QDMLoadString(texts, kFrameworkStringDotGainSection, section, sizeof section) != 0 &&
        QDMLoadString(texts, kFrameworkStringDotGainKeyFields, valueName, sizeof valueName) != 0 &&
        QDMGetPrinterKeyValue(context.printer, kPrinterValueSection, valueName, kPrinterValueText,
                              fields, sizeof fields) != 0 &&
        QDMCreateProfileKey(context.printer, kPrinterValueSection, fields, context.settings, key,
                            sizeof key) != 0 &&
        QDMProfileSearch(QDMFindProfileSection(context.printer, kPrinterValueSection, section),
                         kPrinterValueSection, key, value, sizeof value) != 0;
    return found ? static_cast<LONG>(std::strtol(value, nullptr, 10)) : 0;
}

void PublishThresholdTables(SheetContext& context) {
    HKEY made = nullptr;
    if (RegCreateKeyExA(HKEY_LOCAL_MACHINE, kKey, 0, nullptr, REG_OPTION_NON_VOLATILE,
                        KEY_ALL_ACCESS, nullptr, &made, nullptr) == ERROR_SUCCESS) {
        RegCloseKey(made);
    }
    const LONG aspect = Aspect(*context.settings);
    const LONG dotGain = DotGain(context);
    for (int plane = 0; plane < kPlanes; ++plane) {
        if (!PublishPlane(context, NamesOf(*context.privateSettings, plane, dotGain, aspect)))
            return;
    }
}

}  // namespace kvui
