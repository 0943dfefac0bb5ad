// The table behind record_fields.h.
#include "record_fields.h"

#include <platform/shell/paths.h>

#include <cstring>

namespace kvcore {
namespace {

// Offset of a field of the private part, which follows the public one in a default record.
constexpr DWORD P(DWORD offset) {
    return kPublicSize + offset;
}

// name, offset in the record, width in bytes
constexpr RecordField kFields[] = {
    {"dmFields", 0x28, 4},
    {"dmOrientation", 0x2C, 2},
    {"dmPaperSize", 0x2E, 2},
    {"dmPaperLength", 0x30, 2},
    {"dmPaperWidth", 0x32, 2},
    {"dmScale", 0x34, 2},
    {"dmCopies", 0x36, 2},
    {"dmDefaultSource", 0x38, 2},
    {"dmPrintQuality", 0x3A, 2},
    {"dmColor", 0x3C, 2},
    {"dmDuplex", 0x3E, 2},
    {"dmYResolution", 0x40, 2},
    {"dmTTOption", 0x42, 2},
    {"dmCollate", 0x44, 2},
    {"dmICMMethod", 0x7C, 4},
    {"dmICMIntent", 0x80, 4},
    {"dmMediaType", 0x84, 4},
    {"Compression", P(0x38), 4},
    {"DeviceData1", P(0x3C), 4},
    {"DeviceData2", P(0x40), 4},
    {"Dither", P(0x48), 4},
    {"MediaType", P(0x4C), 4},
    {"fsQdBitFlags", P(0xA0), 4},
    {"CellSize", P(0xA4), 4},
    {"nGrayBits", P(0xB8), 4},
    {"UnsharpMask", P(0xBC), 4},
    {"ColorMatching", P(0xC0), 4},
    {"AntiAliasing", P(0xC4), 4},
    {"HueRed", P(0xD0), 4},
    {"HueYellow", P(0xD4), 4},
    {"HueGreen", P(0xD8), 4},
    {"HueCyan", P(0xDC), 4},
    {"HueBlue", P(0xE0), 4},
    {"HueMagenta", P(0xE4), 4},
    {"Lightness", P(0xE8), 4},
    {"Contrast", P(0xEC), 4},
    {"Saturation", P(0xF0), 4},
    {"DotGainAdjust", P(0xF4), 4},
    {"GCR", P(0xF8), 4},
    {"BlackGeneration", P(0xFC), 4},
    {"Depletion", P(0x100), 4},
    {"Mirror", P(0x104), 4},
    {"DiffusionNoise", P(0x108), 4},
    {"GrayLightness", P(0x10C), 4},
    {"HueLightness", P(0x110), 4},
    {"ColorsToPatterns", P(0x114), 4},
    {"EnhanceContrast", P(0x130), 4},
    {"ContrastHighCutoff", P(0x134), 4},
    {"ContrastLowCutoff", P(0x138), 4},
    {"EnhanceLightness", P(0x13C), 4},
    {"nUp", P(0x140), 4},
    {"nUpMode", P(0x144), 4},
    {"dmDriverPaper", P(0x148), 4},
    {"Scale", P(0x14C), 4},
    {"Aspect1", P(0x150), 4},
    {"layoutFlags", P(0x154), 4},
    {"RenderingIntent", P(0x15C), 4},
    {"posterTilesAcross", P(0x160), 1},
    {"posterTilesDown", P(0x161), 1},
    {"DownloadRectangles", P(0x184), 4},
    {"PrinterDensity", P(0x188), 4},
    {"UsePCLXL", P(0x190), 4},
    {"printerModelCode", P(0x194), 1},
    {"mdmInstalledOptions", P(0x198), 4},
    {"mdmCans", P(0x19C), 4},
    {"mdmFirstPage", P(0x1A0), 4},
    {"mdmFirstPageSource", P(0x1A4), 4},
    {"mdmShift", P(0x1A8), 4},
    {"mdmSeparation", P(0x1AC), 4},
    {"mdmNupStyle", P(0x1B0), 4},
    {"mdmFitToPaper", P(0x1B4), 4},
    {"mdmScaleSize", P(0x1B8), 4},
    {"mdmWatermark", P(0x1BC), 4},
    {"mdmWatermarkMode", P(0x1C0), 4},
    {"mdmDuplexMode", P(0x1C4), 4},
    {"mdmTonerSave", P(0x1C8), 4},
    {"mdmFineART", P(0x1CC), 4},
    {"mdmResolution", P(0x1D0), 4},
    {"mdmHolePunch", P(0x1D4), 4},
    {"mdmStaple", P(0x1D8), 4},
    {"mdmMailBinAssign", P(0x1DC), 4},
    {"mdmPageProtect", P(0x1E0), 4},
    {"mdmOutBin", P(0x1E4), 4},
    {"mdmMailBins", P(0x1E8), 4},
    {"mdmBroadcast", P(0x1EC), 4},
    {"mdmCompressMethod", P(0x1F0), 4},
    {"mdmGraphicsMode", P(0x1F4), 4},
    {"mdmCollate", P(0x1F8), 4},
    {"mdmColorMatching", P(0x1FC), 4},
    {"mdmBlackGlossLevel", P(0x200), 4},
    {"mdmFolding", P(0x204), 4},
    {"mdmNup", P(0x210), 4},
    {"mdmOutputPaper", P(0x214), 4},
    {"mdmCoverPage", P(0x218), 4},
    {"mdmFirstPageMedia", P(0x21C), 4},
    {"mdmInterleave", P(0x220), 4},
    {"mdmInterleaveSource", P(0x224), 4},
    {"mdmSecurity", P(0x228), 4},
    {"mdmAccessNumber", P(0x22C), 4},
    {"mdmJobPassword", P(0x230), 4},
    {"mdmDistribution", P(0x234), 4},
    {"mdmDistStartNumber", P(0x238), 4},
    {"mdmHolePunchNumber", P(0x23C), 4},
    {"mdmSmoothing", P(0x240), 4},
    {"mdmSorting", P(0x244), 4},
    {"mdmDitherPattern", P(0x248), 4},
    {"mdmMediaType", P(0x24C), 4},
    {"mdmBackPageSource", P(0x250), 4},
    {"mdmOtherSettings", P(0x254), 4},
    {"mdmOverlay", P(0x258), 4},
    {"mdmOverlayMode", P(0x25C), 4},
    {"savedSetId", P(0x260), 4},
    {"mdmOffsetX", P(0x264), 4},
    {"mdmOffsetY", P(0x268), 4},
};

}  // namespace

const RecordField* FindRecordField(std::string_view name) {
    for (const RecordField& field : kFields) {
        if (kv::EqualsIgnoringCase(field.name, name)) return &field;
    }
    return nullptr;
}

void WriteRecordField(BYTE* record, const RecordField& field, DWORD value) {
    for (DWORD byte = 0; byte < field.width; ++byte) {
        record[field.offset + byte] = static_cast<BYTE>(value >> (8 * byte));
    }
}

DWORD ReadRecordField(const BYTE* record, const RecordField& field) {
    DWORD value = 0;
    for (DWORD byte = 0; byte < field.width; ++byte) {
        value |= static_cast<DWORD>(record[field.offset + byte]) << (8 * byte);
    }
    return value;
}

}  // namespace kvcore
