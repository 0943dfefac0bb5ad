// The property sheets that are open or being opened, with a record per page. The long parameter of
// a page's record in the platform's page structure points here; the services of kvuihost.h find a
// window's page, sheet and memory through it.
#pragma once

#include <kvuihost.h>
#include <preferences_sheet.h>

#include <memory>
#include <string>
#include <vector>

namespace kvhost {

struct Sheet;

struct Page {
    Sheet* sheet = nullptr;
    std::string templateName;
    DLGPROC procedure = nullptr;
    DWORD flags = 0;  // PSP_...
    HWND window{};    // null until the page exists
};

struct Sheet {
    SheetRequest request;
    HMODULE module{};
    HostUiBlock shared{};
    HWND window{};  // null until the sheet exists
    bool inCreation = true;
    std::vector<std::unique_ptr<Page>> pages;
};

Sheet* AddSheet(const SheetRequest& request, HMODULE module);
void RemoveSheet(Sheet* sheet);
// Forgets sheets, pages and page memory whose windows are gone.
void SweepClosedSheets();

// The page that a platform page structure belongs to, for any pointer whatever: null when it points
// to nothing readable or to something else.
Page* PageOfParameter(LPARAM lParam);
Page* PageOfWindow(HWND window);
// The sheet of a page, of a window inside one or of the sheet itself.
Sheet* SheetOfWindow(HWND window);
// Notes that the page's window exists, and with it the sheet's.
void BindPage(Page& page, HWND window);

// Memory bound to a window: one zeroed block per window.
LPVOID AllocateBlock(HWND window, DWORD size);
LPVOID BlockOf(HWND window);
void FreeBlock(HWND window);

}  // namespace kvhost
