// The table of window handles. A handle carries index and generation, so that a stale, foreign or
// made-up value finds nothing. Every function that takes a window begins here.
#include <platform/window/core.h>

namespace kv {
namespace {

// Layout: marker 2 in the low four bits (no aligned pointer looks like it), index 20 bits,
// generation 32 bits, and a number of its own on top that no other handle table uses.
constexpr std::uintptr_t kMarker = 2;
constexpr std::uintptr_t kSpace = std::uintptr_t{5} << 58;
constexpr std::uintptr_t kIndexMask = 0xFFFFF;

struct Slot {
    std::unique_ptr<Window> window;
    std::uint32_t generation = 1;
};

struct Table {
    std::vector<Slot> slots;
    std::vector<std::size_t> free;
    std::vector<std::unique_ptr<Window>> graveyard;
    int callDepth = 0;
};

Table& TheTable() {
    static Table* table = new Table;  // outlives every static object that owns windows
    return *table;
}

HWND Encode(std::size_t index, std::uint32_t generation) {
    return reinterpret_cast<HWND>(kSpace | (std::uintptr_t{generation} << 24) | (index << 4) |
                                  kMarker);
}

std::size_t IndexOf(HWND handle) {
    return (reinterpret_cast<std::uintptr_t>(handle) >> 4) & kIndexMask;
}

// Freeing a record may run a control's destructor, which may only touch graphics objects; still,
// the list is taken out first so that nothing here depends on that.
void EmptyGraveyard(Table& table) {
    std::vector<std::unique_ptr<Window>> dead;
    dead.swap(table.graveyard);
    dead.clear();
    if (table.graveyard.empty()) table.graveyard.swap(dead);  // keeps the capacity
}

}  // namespace

Window* FindWindowRecord(HWND handle) {
    Table& table = TheTable();
    const std::size_t index = IndexOf(handle);
    if (index >= table.slots.size()) return nullptr;
    Window* window = table.slots[index].window.get();
    return window && window->handle == handle ? window : nullptr;
}

Window* WindowFromHandle(HWND handle) {
    Window* window = FindWindowRecord(handle);
    if (!window) SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return window;
}

Window& AddWindowRecord() {
    Table& table = TheTable();
    auto window = std::make_unique<Window>();
    if (table.free.empty()) {
        if (table.slots.size() > kIndexMask) throw std::bad_alloc();
        table.slots.emplace_back();
        table.free.reserve(table.slots.size());
        table.free.push_back(table.slots.size() - 1);
    }
    const std::size_t index = table.free.back();
    table.free.pop_back();
    Slot& slot = table.slots[index];
    window->handle = Encode(index, slot.generation);
    slot.window = std::move(window);
    return *slot.window;
}

void RemoveWindowRecord(Window& window) {
    Table& table = TheTable();
    const std::size_t index = IndexOf(window.handle);
    Slot& slot = table.slots[index];
    ++slot.generation;
    table.graveyard.push_back(std::move(slot.window));
    table.free.push_back(index);
    if (table.callDepth == 0) EmptyGraveyard(table);
}

CallScope::CallScope() {
    ++TheTable().callDepth;
}

CallScope::~CallScope() {
    Table& table = TheTable();
    if (--table.callDepth == 0 && !table.graveyard.empty()) EmptyGraveyard(table);
}

WindowSurface::~WindowSurface() {
    if (dc) {
        SelectObject(dc, previous);
        DeleteDC(dc);
    }
    if (bitmap) DeleteObject(bitmap);
}

}  // namespace kv
