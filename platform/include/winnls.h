// Locale queries: language names for the right-to-left rule and the user's measure and country.
#pragma once
#include <windef.h>

constexpr LCID LOCALE_SYSTEM_DEFAULT = 0x0800;
constexpr LCID LOCALE_USER_DEFAULT = 0x0400;
constexpr LCTYPE LOCALE_IMEASURE = 0x000D;
constexpr LCTYPE LOCALE_SENGLANGUAGE = 0x1001;

extern "C" {
// Answers with the characters written including the terminating zero; 0 on failure.
int WINAPI GetLocaleInfoA(LCID locale, LCTYPE type, LPSTR buffer, int size);
LANGID WINAPI GetSystemDefaultLangID();
LANGID WINAPI GetUserDefaultLangID();
}
