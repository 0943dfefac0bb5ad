// Paints the plan of the Paper View.
#include "preview/paper_view.h"

#include <optional>

#include "preview/paper_labels.h"
#include "preview/picture_set.h"
#include "preview/shared_view.h"
#include "preview/view_hook.h"
#include "preview/view_words.h"
#include "preview/watermark_text.h"

namespace kvui {

PaperSettings PaperSettingsOf(const SheetContext& context) {
    constexpr SHORT kLandscape = 2;
    constexpr SHORT kColour = 2;
    const PrivateDevmode& settings = *context.privateSettings;
    return {context.settings->dmOrientation == kLandscape ? Shape::kLandscape : Shape::kPortrait,
            context.settings->dmColor == kColour,
            settings.mdmNup,
            settings.mdmNupStyle,
            settings.mdmDuplexMode,
            settings.mdmOverlay,
            settings.mdmWatermark,
            settings.mdmWatermarkMode};
}

void PaintPaperView(SheetContext& context, HDC dc, SIZE size) {
    PaintGround(context, dc, size);
    PictureSet pictures(context.resources, dc);
    std::optional<WatermarkPen> watermark;
    for (const Layer& layer : PlanPaperView(PaperSettingsOf(context), size, pictures)) {
        switch (layer.kind) {
            case LayerKind::kPicture:
                pictures.Draw(dc, layer.id, layer.box.left, layer.box.top);
                break;
            case LayerKind::kWatermark:
                if (!watermark) watermark.emplace(context);
                watermark->Draw(dc, layer.box);
                break;
            case LayerKind::kLabels:
                DrawPaperLabels(context, dc, size, pictures);
                break;
        }
    }
}

void HookPaperView(SheetContext& context, HWND frame) {
    if (frame == nullptr) return;
    ResizeView(frame, kGroundWidth, kGroundHeight);
    HookView(frame, context, {PaintPaperView, DescribePaper});
}

}  // namespace kvui
