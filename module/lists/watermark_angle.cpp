// Diagonal watermark angle and the copy of the chosen watermark in the settings record.
#include "lists/watermark_angle.h"

#include <kvcore.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "lists/paper_size.h"

namespace kvui {
namespace {
constexpr BYTE kAngleDiagonal = 2;
constexpr double kDegreesPerRadian = 180 / 3.141592;
}  // namespace

double DiagonalAngle(SheetContext& context) {
    constexpr SHORT kLandscape = 2;
    const bool landscape = context.settings->dmOrientation == kLandscape;
    DWORD& flags = context.privateSettings->mdmOtherSettings;
    flags = (landscape ? flags | kOtherLandscape : flags & ~kOtherLandscape) | kOtherDiagonalKnown;
    PaperSizeInfo size{};
    if (!PaperSizeOfCode(context, context.settings->dmPaperSize, size)) return 45;
    const double shorter = std::min(size.width, size.length);
    const double longer = std::max(size.width, size.length);
    const double diagonal = std::hypot(shorter, longer);
    if (diagonal <= 0) return 45;
    return std::acos((landscape ? longer : shorter) / diagonal) * kDegreesPerRadian;
}

bool FetchWatermark(SheetContext& context, DWORD watermarkId, WatermarkRecord& record) {
    const ListHandle list = context.shared->lists.handles[kListWatermark];
    if (list == nullptr ||
        !QDMMLTGetWatermarkWithID(list, context.printer, &record, watermarkId)) {
        return false;
    }
    const LONG angle = static_cast<LONG>(DiagonalAngle(context));
    if (record.angleMode == kAngleDiagonal && record.angle != angle) {
        record.angle = angle;
        QDMMLTUpdateWatermark(list, context.printer, &record);
    }
    return true;
}

void UpdateChosenWatermark(SheetContext& context) {
    WatermarkRecord record{};
    if (context.privateSettings->mdmWatermark == 0) {
        DiagonalAngle(context);
        return;
    }
    if (FetchWatermark(context, context.privateSettings->mdmWatermark, record)) {
        std::memcpy(context.privateSettings->watermarkRecord, &record, sizeof record);
    }
}

}  // namespace kvui
