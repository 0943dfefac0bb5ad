// HTML help viewer: topics are opened in the user's browser.
#pragma once
#include <windef.h>
constexpr UINT HH_DISPLAY_TOPIC = 0x0000;
constexpr UINT HH_HELP_CONTEXT = 0x000F;

extern "C" {
HWND WINAPI HtmlHelpA(HWND caller, LPCSTR file, UINT command, DWORD_PTR data);
}
