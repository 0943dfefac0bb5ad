// The messages that pages, the preview panel and the sheet's common area send each other.
#pragma once

#include <windows.h>

#include "resources/resource.h"

namespace kvui {

// To a Basic page, posted when it is active for the first time.
constexpr UINT kMessageFirstActivation = WM_USER + 2;
// To a page: fill everything again; to the preview panel: repaint.
constexpr UINT kMessageRefreshAll = WM_USER + 300;
// To the common area: whose part it is to show.
constexpr UINT kMessageCommonPart = WM_USER + 301;
constexpr WPARAM kPartJobManagement = IDC_STRIP_3;

}  // namespace kvui
