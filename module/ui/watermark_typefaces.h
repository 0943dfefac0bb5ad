// Names of the installed typefaces that the watermark editor offers: those of the kinds that the
// printer value "WatermarkTypeFaceList" admits, without those that the rules file skips.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "sheet/sheet_context.h"

namespace kvui {

std::vector<std::string> WatermarkTypefaces(const SheetContext& context, HWND dialog);

}  // namespace kvui
