// Paper sizes, printable areas and resolutions of the printer description.
#include <kvcore.h>

#include <algorithm>

#include "description.h"

extern "C" int GetPaperSize(PrinterBlock* printer, LONG paperCode, PaperSizeInfo* result) {
    if (!printer || !result) return 0;
    const auto description = kvcore::DescriptionOf(*printer);
    const kvcore::DescribedPaper* paper = description->FindPaper(paperCode);
    if (!paper) return 0;
    const bool inches = paper->unit == kvcore::PaperUnit::kInch;
    *result = {paper->width, paper->length, inches ? kPaperUnitInch : kPaperUnitMillimetre};
    return 1;
}

extern "C" const PaperArea* QDMGetPaperArea(PrinterBlock* printer, LONG paperCode) {
    static thread_local PaperArea area;
    if (!printer) return nullptr;
    const auto description = kvcore::DescriptionOf(*printer);
    const kvcore::DescribedPaper* paper = description->FindPaper(paperCode);
    if (!paper) return nullptr;
    const kvcore::Margins& margins = paper->margins;
    area = {margins.left, margins.top, paper->WidthTenths() - margins.right,
            paper->LengthTenths() - margins.bottom};
    return &area;
}

extern "C" int QDMGetResolutionList(PrinterBlock* printer, ResolutionInfo* result) {
    if (!printer || !result) return 0;
    const auto description = kvcore::DescriptionOf(*printer);
    const int count = std::min(static_cast<int>(description->resolutions.size()), kMaxResolutions);
    for (int i = 0; i < count; ++i) {
        result[i] = {description->resolutions[i].x, description->resolutions[i].y};
    }
    return count;
}
