// Loads the driver's user-interface module and makes property sheets of its pages.
#include <preferences_sheet.h>
#include <prsht.h>

#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstring>

#include "page_table.h"
#include "sheets.h"

namespace kvhost {
namespace {

constexpr DWORD kRecordSize = 1296;
constexpr const char* kModuleFile = "libkvuimod.so";

// Exports come without their type; the name says which one it is.
template <typename Function>
Function ExportOf(HMODULE module, const char* name) {
    return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

// The pages are going to write through these; a record that lies about its own layout would make
// them write somewhere else.
bool IsUsable(const SheetRequest& request) {
    if (!request.printer || !request.record) return false;
    const auto& record = *reinterpret_cast<const DEVMODEA*>(request.record);
    return record.dmSize >= sizeof(DEVMODEA) && record.dmSize + record.dmDriverExtra == kRecordSize;
}

bool AddPage(Sheet& sheet, const DriverModule& module, const char* pageTemplate,
             const char* procedure, DWORD flags) {
    auto page = std::make_unique<Page>();
    page->sheet = &sheet;
    page->templateName = pageTemplate;
    page->procedure = module.Procedure(procedure);
    page->flags = flags;
    if (!page->procedure) return false;
    sheet.pages.push_back(std::move(page));
    return true;
}

bool AddPages(Sheet& sheet, const DriverModule& module) {
    const auto table = ExportOf<PageTableFunction>(module.handle(), kPageTableExport);
    const PageEntry* row = table ? table(sheet.request.printer) : nullptr;
    if (!row) return false;
    for (UINT count = 0; row->pageTemplate && row->procedure && count < kMaxPages; ++row, ++count) {
        if (!(row->flags1 & kPageShown)) continue;
        // Tabs start with the template's name; the module puts captions in its own language there.
        const DWORD flags =
            (row->flags1 & kPageHasHelp ? PSP_HASHELP : PSP_DEFAULT) | PSP_USETITLE;
        if (!AddPage(sheet, module, row->pageTemplate, row->procedure, flags)) return false;
    }
    for (const auto& [pageTemplate, procedure] : sheet.request.extraPages) {
        if (!AddPage(sheet, module, pageTemplate.c_str(), procedure.c_str(), PSP_HASHELP)) {
            return false;
        }
    }
    return !sheet.pages.empty();
}

std::vector<PROPSHEETPAGEA> PageStructures(const Sheet& sheet) {
    std::vector<PROPSHEETPAGEA> structures;
    for (const auto& page : sheet.pages) {
        PROPSHEETPAGEA structure{};
        structure.dwSize = sizeof structure;
        structure.dwFlags = page->flags;
        structure.hInstance = sheet.module;
        structure.pszTemplate = page->templateName.c_str();
        structure.pszTitle = page->templateName.c_str();
        structure.pfnDlgProc = page->procedure;
        structure.lParam = reinterpret_cast<LPARAM>(page.get());
        structures.push_back(structure);
    }
    return structures;
}

// Answers what PropertySheetA answers.
INT_PTR OpenSheet(Sheet& sheet, DWORD flags) {
    const std::vector<PROPSHEETPAGEA> pages = PageStructures(sheet);
    const SheetRequest& request = sheet.request;
    const std::string caption = request.caption.empty()
                                    ? std::string(request.printer->printerName,
                                                  strnlen(request.printer->printerName,
                                                          sizeof request.printer->printerName))
                                    : request.caption;
    PROPSHEETHEADERA header{};
    header.dwSize = sizeof header;
    header.dwFlags = PSH_PROPSHEETPAGE | PSH_HASHELP | flags;
    header.hwndParent = request.owner;
    header.hInstance = sheet.module;
    header.pszCaption = caption.c_str();
    header.nPages = static_cast<UINT>(pages.size());
    header.nStartPage = 0;
    header.ppsp = pages.data();
    return PropertySheetA(&header);
}

Sheet* BeginSheet(const DriverModule& module, const SheetRequest& request) {
    SweepClosedSheets();
    if (!IsUsable(request)) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    Sheet* sheet = AddSheet(request, module.handle());
    if (AddPages(*sheet, module)) return sheet;
    RemoveSheet(sheet);
    SetLastError(ERROR_PROC_NOT_FOUND);
    return nullptr;
}

}  // namespace

std::unique_ptr<DriverModule> DriverModule::Load(const std::string& path, std::string& error) {
    if (access(path.c_str(), R_OK) != 0) {
        error = path + ": " + std::strerror(errno);
        return nullptr;
    }
    std::unique_ptr<DriverModule> module(new DriverModule);
    module->handle_ = LoadLibraryA(path.c_str());
    if (!module->handle_) {
        error = path + ": cannot be loaded (error " + std::to_string(GetLastError()) + ")";
        return nullptr;
    }
    if (!GetProcAddress(module->handle_, kPageTableExport)) {
        error = path + ": is no driver module, it lacks the function " + kPageTableExport;
        return nullptr;
    }
    return module;
}

DriverModule::~DriverModule() {
    if (handle_) FreeLibrary(handle_);
}

DLGPROC DriverModule::Procedure(const char* exportName) const {
    return ExportOf<DLGPROC>(handle_, exportName);
}

INT_PTR DriverModule::RunSheet(const SheetRequest& request) {
    Sheet* sheet = BeginSheet(*this, request);
    if (!sheet) return -1;
    const INT_PTR result = OpenSheet(*sheet, 0);
    RemoveSheet(sheet);
    return result;
}

HWND DriverModule::CreateSheet(const SheetRequest& request) {
    Sheet* sheet = BeginSheet(*this, request);
    if (!sheet) return nullptr;
    const auto window = reinterpret_cast<HWND>(OpenSheet(*sheet, PSH_MODELESS));
    if (!IsWindow(window)) {
        RemoveSheet(sheet);
        return nullptr;
    }
    sheet->window = window;
    sheet->shared.sheet = window;
    sheet->inCreation = false;
    return window;
}

INT_PTR DriverModule::RunDialog(HWND page, const char* dialogTemplate, const char* procedure) {
    const DLGPROC function = Procedure(procedure);
    const LPVOID state = PageOfWindow(page) != nullptr ? BlockOf(page) : nullptr;
    if (function == nullptr || state == nullptr) {
        SetLastError(function == nullptr ? ERROR_PROC_NOT_FOUND : ERROR_INVALID_PARAMETER);
        return -1;
    }
    return DialogBoxParamA(handle_, dialogTemplate, page, function,
                           reinterpret_cast<LPARAM>(state));
}

std::string DefaultModulePath() {
    char program[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", program, sizeof program - 1);
    if (length <= 0) return kModuleFile;
    const std::string path(program, static_cast<std::size_t>(length));
    const std::string folder = path.substr(0, path.rfind('/'));
    const std::string beside = folder + "/" + kModuleFile;
    if (access(beside.c_str(), R_OK) == 0) return beside;
    return folder + "/../" KV_PRIVATE_LIBS "/" + kModuleFile;
}

}  // namespace kvhost
