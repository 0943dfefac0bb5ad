// The field table and the reads and writes by name or location. Called for every control that is
// filled or read back, so a lookup is a short walk and nothing allocates.
#include "settings/setting_field.h"

#include <cstring>

#include "sheet/private_devmode.h"

namespace kvui {
namespace {

// Where a field lies is what the structs say. The order is that of lookups, not of offsets: of two
// names for one word (mdmAllRaster, mdmCompressMethod) each finds its own row.
#define PUBLIC(field) {kPublicLocation + offsetof(DEVMODEA, field), #field, kFieldPublic}
#define PUBLIC_MASK(field) {kPublicLocation + offsetof(DEVMODEA, field), #field, kFieldPublicMask}
#define PRIVATE(field) {offsetof(PrivateDevmode, field), #field, kFieldPrivate}
// clang-format off
constexpr SettingField kFields[] = {
    PUBLIC(dmOrientation),
    PUBLIC(dmPaperSize),
    PUBLIC(dmPaperLength),
    PUBLIC(dmPaperWidth),
    PUBLIC(dmScale),
    PUBLIC(dmCopies),
    PUBLIC(dmDefaultSource),
    PUBLIC(dmPrintQuality),
    PUBLIC(dmColor),
    PUBLIC(dmDuplex),
    PUBLIC(dmYResolution),
    PUBLIC(dmTTOption),
    PUBLIC_MASK(dmFields),
    PRIVATE(Compression),
    PRIVATE(DeviceData1),
    PRIVATE(Dither),
    PRIVATE(MediaType),
    PRIVATE(fsQdBitFlags),
    PRIVATE(CellSize),
    PRIVATE(nGrayBits),
    PRIVATE(UnsharpMask),
    PRIVATE(ColorMatching),
    PRIVATE(Lightness),
    PRIVATE(Contrast),
    PRIVATE(Saturation),
    PRIVATE(GCR),
    PRIVATE(BlackGeneration),
    PRIVATE(Depletion),
    PRIVATE(ColorsToPatterns),
    PRIVATE(EnhanceContrast),
    PRIVATE(nUp),
    PRIVATE(nUpMode),
    PRIVATE(dmDriverPaper),
    PRIVATE(Scale),
    PRIVATE(Aspect1),
    PRIVATE(RenderingIntent),
    PRIVATE(DownloadRectangles),
    PRIVATE(PrinterDensity),
    PRIVATE(UsePCLXL),
    PRIVATE(mdmInstalledOptions),
    PRIVATE(mdmCans),
    PRIVATE(mdmFirstPage),
    PRIVATE(mdmFirstPageSource),
    PRIVATE(mdmShift),
    PRIVATE(mdmSeparation),
    PRIVATE(mdmNup),
    PRIVATE(mdmNupStyle),
    PRIVATE(mdmFitToPaper),
    PRIVATE(mdmScaleSize),
    PRIVATE(mdmWatermark),
    PRIVATE(mdmWatermarkMode),
    PRIVATE(mdmOverlay),
    PRIVATE(mdmOverlayMode),
    PRIVATE(mdmDuplexMode),
    PRIVATE(mdmTonerSave),
    PRIVATE(mdmFineART),
    PRIVATE(mdmResolution),
    PRIVATE(mdmHolePunch),
    PRIVATE(mdmStaple),
    PRIVATE(mdmMailBinAssign),
    PRIVATE(mdmPageProtect),
    PRIVATE(mdmOutBin),
    PRIVATE(mdmMailBins),
    PRIVATE(mdmBroadcast),
    {offsetof(PrivateDevmode, mdmCompressMethod), "mdmAllRaster", kFieldPrivate},
    PRIVATE(mdmCompressMethod),
    PRIVATE(mdmGraphicsMode),
    PRIVATE(mdmCollate),
    PRIVATE(mdmColorMatching),
    PRIVATE(mdmBlackGlossLevel),
    PRIVATE(mdmFolding),
    PRIVATE(mdmOutputPaper),
    PRIVATE(mdmCoverPage),
    PRIVATE(mdmFirstPageMedia),
    PRIVATE(mdmInterleave),
    PRIVATE(mdmInterleaveSource),
    PRIVATE(mdmSecurity),
    PRIVATE(mdmAccessNumber),
    PRIVATE(mdmJobPassword),
    PRIVATE(mdmDistribution),
    PRIVATE(mdmDistStartNumber),
    PRIVATE(mdmHolePunchNumber),
    PRIVATE(mdmSmoothing),
    PRIVATE(mdmSorting),
    PRIVATE(mdmDitherPattern),
    PRIVATE(mdmMediaType),
    PRIVATE(mdmBackPageSource),
    PRIVATE(mdmOtherSettings),
    PRIVATE(mdmOffsetX),
    PRIVATE(mdmOffsetY),
};
// clang-format on
#undef PUBLIC
#undef PUBLIC_MASK
#undef PRIVATE

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
    for (const SettingField& field : kFields) {
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

constinit const std::span<const SettingField> SettingFieldTable = kFields;

const SettingField* FindSettingField(const char* name) {
    for (const SettingField& field : kFields) {
        if (std::strcmp(field.name, name) == 0) return &field;
    }
    return nullptr;
}

const SettingField* FindSettingFieldAnyCase(const char* name) {
    for (const SettingField& field : kFields) {
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
