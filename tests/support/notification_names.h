// Names of notifications and scroll codes, for lists of what controls told their parent.
#pragma once

#include <windows.h>

#include <string>

namespace kv::test {

// "CBN_SELCHANGE" for code 1 of a combo box; null for a code without a name here.
const char* NotificationName(HWND control, UINT code);

}  // namespace kv::test
