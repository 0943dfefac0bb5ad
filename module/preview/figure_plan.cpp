// See figure_plan.h.
#include "preview/figure_plan.h"

#include "preview/paper_plan.h"
#include "resources/picture_ids.h"

namespace kvui {
namespace {

constexpr DWORD Bit(int number) {
    return DWORD{1} << number;
}

constexpr DWORD kBase = Bit(0), kTray2 = Bit(2), kTray3 = Bit(3), kDuplex = Bit(7);
constexpr DWORD kSorter = Bit(10), kThirdFinisher = Bit(12);
constexpr int kSideCassetteBit = 14, kPunchBit = 22;
constexpr DWORD kFinisher = Bit(19), kSmallFinisher = Bit(20);
// What the trays of a finisher are drawn for.
constexpr DWORD kFinishers = kFinisher | Bit(16), kSmallFinishers = kSmallFinisher | Bit(17);

constexpr SHORT kSourceSideCassette = 11;
constexpr DWORD kOutputMailbin = 69, kOutputTopOffset = 75;
// The pictures of sources and outputs end before others begin.
constexpr SHORT kMostSource = IDB_FIGURE_FROM_LCC - IDB_FIGURE_SOURCE - 1;
constexpr DWORD kMostOutput = IDB_FIGURE_TO_FINISHER - IDB_FIGURE_OUTPUT - 1;
constexpr DWORD kLastOutputTray = 77;  // after the offset and the elevator tray

void Add(FigureLayers& layers, DWORD controlId, int picture) {
    if (picture == 0) return;
    layers.layer[layers.count++] = {controlId, static_cast<WORD>(picture)};
}

int OptionPicture(int bit, DWORD installed) {
    if (bit == kPunchBit) {
        if (installed & kFinisher) return IDB_FIGURE_PUNCH;
        return (installed & kSmallFinisher) != 0 ? IDB_FIGURE_PUNCH_SMALL : 0;
    }
    if (bit == kSideCassetteBit) {
        return (installed & kTray3) != 0 ? IDB_FIGURE_LCC : IDB_FIGURE_LCC_LOW;
    }
    return IDB_FIGURE_OPTION + bit;
}

int SourcePicture(SHORT source, DWORD installed) {
    if (source < 0 || source > kMostSource) return 0;
    if (source != kSourceSideCassette) return IDB_FIGURE_SOURCE + source;
    return (installed & kTray3) != 0 ? IDB_FIGURE_FROM_LCC : IDB_FIGURE_FROM_LCC_LOW;
}

int MailbinPicture(DWORD bins) {
    constexpr int kFirst = 1, kLast = 10;
    for (int bin = kFirst; bin <= kLast; ++bin) {
        if (bins & Bit(bin)) return IDB_FIGURE_OUTPUT + bin;
    }
    return IDB_FIGURE_OUTPUT + kLast + 1;
}

// The three trays of a finisher follow each other. A third kind has no tray below the elevator, the
// sorter only the offset tray.
int OutputPicture(DWORD output, DWORD bins, DWORD installed) {
    if (output == kOutputMailbin) return MailbinPicture(bins);
    if (output >= kOutputTopOffset && output <= kLastOutputTray) {
        const int tray = static_cast<int>(output - kOutputTopOffset);
        if (installed & kFinishers) return IDB_FIGURE_TO_FINISHER + tray;
        if (installed & kSmallFinishers) return IDB_FIGURE_TO_SMALL_FINISHER + tray;
        if ((installed & kThirdFinisher) && tray < 2) return IDB_FIGURE_TO_THIRD_FINISHER + tray;
        if ((installed & kSorter) && tray == 0) return IDB_FIGURE_TO_SORTER;
    }
    // A stored number may be any; no picture has one beyond this.
    return output <= kMostOutput ? IDB_FIGURE_OUTPUT + static_cast<int>(output) : 0;
}

// options of kWholeOptions, the pair's place among the pairs
constexpr DWORD kWholeOptions = kBase | kTray2 | kTray3 | kDuplex;
constexpr struct {
    DWORD options;
    int pair;
} kWholePrinters[] = {
    {kBase, 0},
    {kBase | kDuplex, 1},
    {kBase | kTray2, 2},
    {kBase | kTray2 | kDuplex, 3},
    {kBase | kTray2 | kTray3, 4},
    {kBase | kTray2 | kTray3 | kDuplex, 5},
};

bool PrintsInColour(const DEVMODEA& settings) {
    constexpr SHORT kColour = 2;
    return settings.dmColor == kColour;
}

}  // namespace

FigureLayers FigureLayersOf(const DEVMODEA& settings, const PrivateDevmode& privateSettings,
                            DWORD controlId) {
    FigureLayers layers{};
    const DWORD installed = privateSettings.mdmInstalledOptions;
    for (int bit = 0; bit < kOptionBits; ++bit) {
        if (installed & Bit(bit)) Add(layers, controlId, OptionPicture(bit, installed));
    }
    Add(layers, controlId, SourcePicture(settings.dmDefaultSource, installed));
    Add(layers, controlId,
        OutputPicture(privateSettings.mdmOutBin, privateSettings.mdmMailBins, installed));
    return layers;
}

WORD WholePrinterPicture(DWORD installedOptions) {
    for (const auto& row : kWholePrinters) {
        if (row.options == (installedOptions & kWholeOptions)) {
            return static_cast<WORD>(IDB_WHOLE_PRINTER + 2 * row.pair);
        }
    }
    return IDB_WHOLE_PRINTER;
}

StatePicture StatePictureOf(StateIcon icon, const DEVMODEA& settings,
                            const PrivateDevmode& privateSettings) {
    const bool colour = PrintsInColour(settings);
    if (icon == kStateOverlay) {
        if (privateSettings.mdmOverlay == 0)
            return {IDB_STATE_OVERLAY_NONE, IDB_STATE_OVERLAY_MASK};
        return {static_cast<WORD>(colour ? IDB_STATE_OVERLAY_COLOUR : IDB_STATE_OVERLAY_BLACK),
                IDB_STATE_OVERLAY_MASK};
    }
    if (icon == kStateWatermark) {
        if (privateSettings.mdmWatermark == 0) {
            return {IDB_STATE_WATERMARK_NONE, IDB_STATE_WATERMARK_MASK};
        }
        const bool behind = (privateSettings.mdmWatermarkMode & kWatermarkBackground) != 0;
        return {static_cast<WORD>(IDB_STATE_WATERMARK_FIRST + (behind ? 2 : 0) + (colour ? 0 : 1)),
                IDB_STATE_WATERMARK_MASK};
    }
    return {static_cast<WORD>(colour ? IDB_STATE_COLOUR : IDB_STATE_MONOCHROME),
            IDB_STATE_COLOUR_MASK};
}

}  // namespace kvui
