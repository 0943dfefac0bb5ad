// The views in words, for people who do not see them: "A4, 2 pages per sheet, landscape". The frame
// of a view answers them as its window's text.
#pragma once

#include <cstddef>

#include "sheet/sheet_context.h"

namespace kvui {

void DescribePaper(SheetContext& context, char* text, std::size_t size);
void DescribeColourSample(SheetContext& context, char* text, std::size_t size);
void DescribeWatermark(SheetContext& context, char* text, std::size_t size);
// Of a page that shows nothing but this text.
void DescribeWatermarkText(SheetContext& context, const char* words, char* text, std::size_t size);
void DescribePrinter(SheetContext& context, char* text, std::size_t size);

}  // namespace kvui
