// The row format of the page table that a driver's user-interface module hands out, and the meaning
// of its flags. A layout shared between KVUIHOST and the modules.
#pragma once

#include <windows.h>

// A row of zeros ends the table.
struct PageEntry {
    const char* pageTemplate;
    const char* procedure;
    LPVOID reserved1;
    LPVOID reserved2;
    DWORD flags1;
    DWORD flags2;
    LPVOID reserved3;
};

// flags1. The second word is reserved for module kinds without a property sheet.
constexpr DWORD kPageShown = 0x1;
constexpr DWORD kPageHasHelp = 0x2;
