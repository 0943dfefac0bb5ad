// Records of watermarks as their editor makes and changes them in the sheet's copy of the list.
#pragma once

#include <string>
#include <vector>

#include "sheet/sheet_context.h"

namespace kvui {

constexpr LONG kLeastWatermarkSize = 8, kMostWatermarkSize = 200;  // points
constexpr LONG kMostWatermarkAngle = 180;                          // degrees, either way

enum WatermarkAngleMode : BYTE {
    kAngleHorizontal = 1,
    kAngleDiagonal = 2,
    kAngleVertical = 3,
    kAngleByUser = 4,
};

// A new one, by the rules file's WatermarkDefaults; the number is part of its name.
WatermarkRecord MakeDefaultWatermark(const SheetContext& context, int number);
// The number of the name that a new one is offered, beside entries of these names.
int DefaultWatermarkNumber(const SheetContext& context, const std::vector<std::string>& names);

// A watermark of the caller's view with exactly this name, but not that id; false when there is
// none.
bool FindWatermarkNamed(const SheetContext& context, const std::string& name, DWORD exceptId,
                        WatermarkRecord& found);
// Gives the record an id. False when it was not added.
bool AddWatermark(SheetContext& context, WatermarkRecord& record, bool isCommon);
bool UpdateWatermark(SheetContext& context, const WatermarkRecord& record);
// The changed record in the common list or among the user's own, wherever it was before.
bool UpdateWatermarkIn(SheetContext& context, const WatermarkRecord& record, bool isCommon);

}  // namespace kvui
