// Shell "open" verb.
#pragma once
#include <windef.h>

extern "C" {
HINSTANCE WINAPI ShellExecuteA(HWND owner, LPCSTR verb, LPCSTR file, LPCSTR parameters,
                               LPCSTR directory, INT show);
}
