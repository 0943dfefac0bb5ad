// What the Paper View consists of, as data: the layers in the order in which they are drawn, each with
// its place. The view paints the list; tests read it.
#pragma once

#include <windows.h>

#include "preview/paper_pictures.h"

namespace kvui {

// The settings that the drawing depends on.
struct PaperSettings {
    Shape document;
    bool colour;
    DWORD nup;            // mdmNup
    DWORD nupStyle;       // mdmNupStyle
    DWORD duplexMode;     // mdmDuplexMode
    DWORD overlay;        // mdmOverlay, 0 for none
    DWORD watermark;      // mdmWatermark, 0 for none
    DWORD watermarkMode;  // mdmWatermarkMode
};

// Bits of mdmWatermarkMode.
constexpr DWORD kWatermarkFirstPage = 0x1;
constexpr DWORD kWatermarkBackground = 0x2;
constexpr DWORD kWatermarkRepeat = 0x10;

enum class LayerKind { kPicture, kWatermark, kLabels };

struct Layer {
    LayerKind kind;
    PictureId id;  // of a picture
    RECT box;      // of a picture, or the cell of a watermark
};

// Sheet, page, frame, grid, four numbers, bar, overlay, sixteen watermarks, arrow and labels.
constexpr int kMostLayers = 28;

struct LayerList {
    Layer rows[kMostLayers];
    int count = 0;

    const Layer* begin() const { return rows; }
    const Layer* end() const { return rows + count; }
    void Add(const Layer& layer) {
        if (count < kMostLayers) rows[count++] = layer;
    }
};

// Where pictures come from.
class PictureSizes {
   public:
    virtual ~PictureSizes() = default;
    // False when the picture or its mask cannot be loaded.
    virtual bool SizeOf(PictureId id, SIZE& size) = 0;
};

// A picture that cannot be loaded ends the list.
LayerList PlanPaperView(const PaperSettings& settings, SIZE view, PictureSizes& pictures);

}  // namespace kvui
