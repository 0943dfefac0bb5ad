// The field table and the reads and writes by name or location. Called for every control that is
// filled or read back, so a lookup is a short walk and nothing allocates.
#include "settings/setting_field.h"

#include <cstring>

#include "settings/private_devmode.h"

namespace kvui {
namespace {

constexpr SettingField Public(DWORD offset, const char* name) {
    return {kPublicLocation + offset, name, kFieldPublic};
}
constexpr SettingField PublicMask(DWORD offset, const char* name) {
    return {kPublicLocation + offset, name, kFieldPublicMask};
}
constexpr SettingField Private(DWORD offset, const char* name) {
    return {offset, name, kFieldPrivate};
}

}  // namespace

// Columns: part and offset of the field, name. The order is that of lookups, not of offsets: of two
// names for one word (mdmAllRaster, mdmCompressMethod) each finds its own row.
// clang-format off
constexpr SettingField SettingFieldTable[kSettingFieldCount] = {
    Public(0x2C, "dmOrientation"),
    Public(0x2E, "dmPaperSize"),
    Public(0x30, "dmPaperLength"),
    Public(0x32, "dmPaperWidth"),
    Public(0x34, "dmScale"),
    Public(0x36, "dmCopies"),
    Public(0x38, "dmDefaultSource"),
    Public(0x3A, "dmPrintQuality"),
    Public(0x3C, "dmColor"),
    Public(0x3E, "dmDuplex"),
    Public(0x40, "dmYResolution"),
    Public(0x42, "dmTTOption"),
    PublicMask(0x28, "dmFields"),
    Private(0x038, "Compression"),
    Private(0x03C, "DeviceData1"),
    Private(0x048, "Dither"),
    Private(0x04C, "MediaType"),
    Private(0x0A0, "fsQdBitFlags"),
    Private(0x0A4, "CellSize"),
    Private(0x0B8, "nGrayBits"),
    Private(0x0BC, "UnsharpMask"),
    Private(0x0C0, "ColorMatching"),
    Private(0x0E8, "Lightness"),
    Private(0x0EC, "Contrast"),
    Private(0x0F0, "Saturation"),
    Private(0x0F8, "GCR"),
    Private(0x0FC, "BlackGeneration"),
    Private(0x100, "Depletion"),
    Private(0x114, "ColorsToPatterns"),
    Private(0x130, "EnhanceContrast"),
    Private(0x140, "nUp"),
    Private(0x144, "nUpMode"),
    Private(0x148, "dmDriverPaper"),
    Private(0x14C, "Scale"),
    Private(0x150, "Aspect1"),
    Private(0x15C, "RenderingIntent"),
    Private(0x184, "DownloadRectangles"),
    Private(0x188, "PrinterDensity"),
    Private(0x190, "UsePCLXL"),
    Private(0x198, "mdmInstalledOptions"),
    Private(0x19C, "mdmCans"),
    Private(0x1A0, "mdmFirstPage"),
    Private(0x1A4, "mdmFirstPageSource"),
    Private(0x1A8, "mdmShift"),
    Private(0x1AC, "mdmSeparation"),
    Private(0x210, "mdmNup"),
    Private(0x1B0, "mdmNupStyle"),
    Private(0x1B4, "mdmFitToPaper"),
    Private(0x1B8, "mdmScaleSize"),
    Private(0x1BC, "mdmWatermark"),
    Private(0x1C0, "mdmWatermarkMode"),
    Private(0x258, "mdmOverlay"),
    Private(0x25C, "mdmOverlayMode"),
    Private(0x1C4, "mdmDuplexMode"),
    Private(0x1C8, "mdmTonerSave"),
    Private(0x1CC, "mdmFineART"),
    Private(0x1D0, "mdmResolution"),
    Private(0x1D4, "mdmHolePunch"),
    Private(0x1D8, "mdmStaple"),
    Private(0x1DC, "mdmMailBinAssign"),
    Private(0x1E0, "mdmPageProtect"),
    Private(0x1E4, "mdmOutBin"),
    Private(0x1E8, "mdmMailBins"),
    Private(0x1EC, "mdmBroadcast"),
    Private(0x1F0, "mdmAllRaster"),
    Private(0x1F0, "mdmCompressMethod"),
    Private(0x1F4, "mdmGraphicsMode"),
    Private(0x1F8, "mdmCollate"),
    Private(0x1FC, "mdmColorMatching"),
    Private(0x200, "mdmBlackGlossLevel"),
    Private(0x204, "mdmFolding"),
    Private(0x214, "mdmOutputPaper"),
    Private(0x218, "mdmCoverPage"),
    Private(0x21C, "mdmFirstPageMedia"),
    Private(0x220, "mdmInterleave"),
    Private(0x224, "mdmInterleaveSource"),
    Private(0x228, "mdmSecurity"),
    Private(0x22C, "mdmAccessNumber"),
    Private(0x230, "mdmJobPassword"),
    Private(0x234, "mdmDistribution"),
    Private(0x238, "mdmDistStartNumber"),
    Private(0x23C, "mdmHolePunchNumber"),
    Private(0x240, "mdmSmoothing"),
    Private(0x244, "mdmSorting"),
    Private(0x248, "mdmDitherPattern"),
    Private(0x24C, "mdmMediaType"),
    Private(0x250, "mdmBackPageSource"),
    Private(0x254, "mdmOtherSettings"),
    Private(0x264, "mdmOffsetX"),
    Private(0x268, "mdmOffsetY"),
};
// clang-format on

namespace {

char LowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool EqualAnyCase(const char* a, const char* b) {
    while (*a != '\0' && LowerCase(*a) == LowerCase(*b)) {
        ++a;
        ++b;
    }
    return LowerCase(*a) == LowerCase(*b);
}

const SettingField* FindByLocation(DWORD locationCode) {
    for (const SettingField& field : SettingFieldTable) {
        if (field.location == locationCode) return &field;
    }
    return nullptr;
}

DWORD WidthOf(const SettingField& field) {
    return field.type == kFieldPublic ? sizeof(SHORT) : sizeof(DWORD);
}

// Offset of a field from the start of the record; 0 for dmFields and for a record whose dmSize is
// so large that the field would lie behind its end.
DWORD OffsetOf(const DEVMODEA& record, const SettingField& field) {
    if (field.type == kFieldPublicMask) return 0;
    const DWORD offset = field.type == kFieldPublic ? field.location - kPublicLocation
                                                    : record.dmSize + field.location;
    return offset + WidthOf(field) <= kRecordSize ? offset : 0;
}

// Fields are copied byte by byte: a dmSize that is no multiple of four leaves them unaligned.
DWORD LoadWord(const BYTE* at, const SettingField& field) {
    if (field.type == kFieldPublic) {
        SHORT value;
        std::memcpy(&value, at, sizeof value);
        return static_cast<DWORD>(static_cast<LONG>(value));
    }
    DWORD value;
    std::memcpy(&value, at, sizeof value);
    return value;
}

void StoreWord(BYTE* at, const SettingField& field, DWORD value) {
    const SHORT narrow = static_cast<SHORT>(value);
    if (field.type == kFieldPublic) {
        std::memcpy(at, &narrow, sizeof narrow);
    } else {
        std::memcpy(at, &value, sizeof value);
    }
}

// A value as the field can hold it, so that comparing it with the stored word is fair.
DWORD AsStored(const SettingField& field, DWORD value) {
    if (field.type != kFieldPublic) return value;
    return static_cast<DWORD>(static_cast<LONG>(static_cast<SHORT>(value)));
}

}  // namespace

const SettingField* FindSettingField(const char* name) {
    for (const SettingField& field : SettingFieldTable) {
        if (std::strcmp(field.name, name) == 0) return &field;
    }
    return nullptr;
}

const SettingField* FindSettingFieldAnyCase(const char* name) {
    for (const SettingField& field : SettingFieldTable) {
        if (EqualAnyCase(field.name, name)) return &field;
    }
    return nullptr;
}

BOOL ReadField(const DEVMODEA* record, const SettingField& field, DWORD* value) {
    const DWORD offset = OffsetOf(*record, field);
    if (offset == 0) return FALSE;
    *value = LoadWord(reinterpret_cast<const BYTE*>(record) + offset, field);
    return TRUE;
}

BOOL ReadSetting(const DEVMODEA* record, const char* name, DWORD* value) {
    const SettingField* field = FindSettingField(name);
    return field != nullptr && ReadField(record, *field, value);
}

FieldWrite WriteField(DEVMODEA* record, DWORD locationCode, DWORD newValue, DWORD maskMode,
                      DWORD mask, DWORD* oldValue) {
    const SettingField* field = FindByLocation(locationCode);
    if (field == nullptr) return FieldWrite::kUnchanged;
    const DWORD offset = OffsetOf(*record, *field);
    if (offset == 0) return FieldWrite::kUnchanged;

    BYTE* at = reinterpret_cast<BYTE*>(record) + offset;
    const DWORD stored = LoadWord(at, *field);
    if (stored == AsStored(*field, newValue)) return FieldWrite::kUnchanged;

    if (oldValue != nullptr) *oldValue = stored;
    const bool masked = maskMode == 1 || maskMode == 2;
    StoreWord(at, *field, masked ? (stored & ~mask) | newValue : newValue);
    return FieldWrite::kChanged;
}

FieldWrite WriteSettingByName(DEVMODEA* record, const char* name, DWORD newValue, DWORD* oldValue) {
    const SettingField* field = FindSettingField(name);
    if (field == nullptr) return FieldWrite::kUnchanged;
    return WriteField(record, field->location, newValue, 0, 0, oldValue);
}

}  // namespace kvui
