// Why a disabled control cannot be used, in words for the person at the window. Whoever runs the
// window says it; displays ask when somebody looks at the control.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace kv {

// Empty for a control of which nothing is known. Null takes the source away.
void ExplainDisabled(std::function<std::string(HWND)> source);

// Empty for a control that can be used, or that nobody explains.
std::string ReasonDisabled(HWND control);

}  // namespace kv
