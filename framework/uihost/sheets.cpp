// See sheets.h.
#include "sheets.h"

#include <platform/controls/property_sheet.h>
#include <prsht.h>

#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <map>

#include "sheet_owner.h"

namespace kvhost {
namespace {

constexpr DWORD kMaxBlockSize = 16 << 20;

struct Block {
    std::unique_ptr<BYTE[]> bytes;
};

struct State {
    std::vector<std::unique_ptr<Sheet>> sheets;
    std::map<HWND, Block> blocks;
};
// Lives until the process ends: windows may still be destroyed by exit code.
State& TheState() {
    static auto* state = new State;
    return *state;
}

// Copies memory that may not exist. The kernel checks the address; where it refuses the service
// itself, the pointer is trusted like any other.
bool ReadMemory(const void* address, void* target, std::size_t size) {
    iovec local{target, size};
    iovec remote{const_cast<void*>(address), size};
    const long got = syscall(SYS_process_vm_readv, getpid(), &local, 1, &remote, 1, 0);
    if (got == static_cast<long>(size)) return true;
    if (got < 0 && (errno == ENOSYS || errno == EPERM)) {
        std::memcpy(target, address, size);
        return true;
    }
    return false;
}

bool IsLivePage(const Page* candidate) {
    for (const auto& sheet : TheState().sheets) {
        for (const auto& page : sheet->pages) {
            if (page.get() == candidate) return true;
        }
    }
    return false;
}

}  // namespace

Sheet* AddSheet(const SheetRequest& request, HMODULE module) {
    auto sheet = std::make_unique<Sheet>();
    sheet->request = request;
    sheet->module = module;
    TheState().sheets.push_back(std::move(sheet));
    return TheState().sheets.back().get();
}

void RemoveSheet(Sheet* sheet) {
    for (const auto& page : sheet->pages) FreeBlock(page->window);
    std::erase_if(TheState().sheets, [&](const auto& other) { return other.get() == sheet; });
}

void SweepClosedSheets() {
    State& state = TheState();
    std::erase_if(state.blocks, [](const auto& block) { return !IsWindow(block.first); });
    std::erase_if(state.sheets,
                  [](const auto& sheet) { return !sheet->inCreation && !IsWindow(sheet->window); });
}

Page* PageOfParameter(LPARAM lParam) {
    if (lParam == 0) return nullptr;
    PROPSHEETPAGEA structure{};
    if (!ReadMemory(reinterpret_cast<const void*>(lParam), &structure, sizeof structure)) {
        return nullptr;
    }
    auto* page = reinterpret_cast<Page*>(structure.lParam);
    if (structure.dwSize < sizeof structure || !IsLivePage(page)) return nullptr;
    return structure.pfnDlgProc == page->procedure ? page : nullptr;
}

Page* PageOfWindow(HWND window) {
    if (!IsWindow(window)) return nullptr;
    for (const auto& sheet : TheState().sheets) {
        for (const auto& page : sheet->pages) {
            if (page->window == window) return page.get();
        }
    }
    return nullptr;
}

Sheet* SheetOfWindow(HWND window) {
    // Sub-dialogs are owned by the sheet: their parent, as the platform answers it, is the owner.
    for (HWND at = window; IsWindow(at); at = GetParent(at)) {
        for (const auto& sheet : TheState().sheets) {
            if (sheet->window == at) return sheet.get();
        }
        if (const Page* page = PageOfWindow(at)) return page->sheet;
    }
    return nullptr;
}

void BindPage(Page& page, HWND window) {
    page.window = window;
    Sheet& sheet = *page.sheet;
    if (sheet.window) return;
    sheet.window = GetParent(window);
    sheet.shared.sheet = sheet.window;
    OwnSheet(sheet.window);
    if (sheet.request.applied) {
        kv::OnSheetApplied(sheet.window, [applied = sheet.request.applied](HWND at, bool closing) {
            return applied(at, closing) == Applied::kStored ? kv::SheetAnswer::kTaken
                                                        : kv::SheetAnswer::kRefused;
        });
    }
}

LPVOID AllocateBlock(HWND window, DWORD size) {
    SweepClosedSheets();
    if (!IsWindow(window) || size == 0 || size > kMaxBlockSize) return nullptr;
    Block& block = TheState().blocks[window];
    if (block.bytes) return nullptr;  // a second block would leave somebody with the first one
    block.bytes = std::make_unique<BYTE[]>(size);
    return block.bytes.get();
}

LPVOID BlockOf(HWND window) {
    const auto found = TheState().blocks.find(window);
    return found != TheState().blocks.end() && IsWindow(window) ? found->second.bytes.get()
                                                                : nullptr;
}

void FreeBlock(HWND window) {
    TheState().blocks.erase(window);
}

}  // namespace kvhost
