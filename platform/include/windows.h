// The platform interface as the module sees it; the pieces live under the genuine header names.
#pragma once
#include <windef.h>
#include <winuser.h>
#ifndef RC_INVOKED
#include <winbase.h>
#include <wingdi.h>
#include <winnls.h>
#include <winreg.h>
#endif
