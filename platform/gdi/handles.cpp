// Graphics handle table: slots with generations and a free list.
#include <platform/gdi/handles.h>

#include <vector>

namespace kv {
namespace {

struct Slot {
    std::uint32_t generation = 1;
    std::unique_ptr<GdiObject> object;
};

struct Table {
    std::vector<Slot> slots;
    std::vector<std::uint32_t> freeSlots;
};

// Never destroyed: handles may be released by destructors that run after main.
Table& TheTable() {
    static Table* const table = new Table;
    return *table;
}

// Layout: generation in the upper half, index in bits 8..31, a mark in the low byte that keeps
// aligned pointers and small integers from looking like handles.
constexpr std::uintptr_t kMark = 0x5D;
constexpr std::size_t kMaxSlots = 1u << 24;

std::uintptr_t Encode(std::uint32_t index, std::uint32_t generation) {
    return (static_cast<std::uintptr_t>(generation) << 32) |
           (static_cast<std::uintptr_t>(index) << 8) | kMark;
}

Slot* FindSlot(std::uintptr_t handle) {
    Table& table = TheTable();
    const std::size_t index = (handle >> 8) & 0xFFFFFF;
    if ((handle & 0xFF) != kMark || index >= table.slots.size()) return nullptr;
    Slot& slot = table.slots[index];
    return slot.object && slot.generation == static_cast<std::uint32_t>(handle >> 32) ? &slot
                                                                                      : nullptr;
}

}  // namespace

std::uintptr_t AddToTable(std::unique_ptr<GdiObject> object) {
    Table& table = TheTable();
    if (table.freeSlots.empty()) {
        if (table.slots.size() >= kMaxSlots) {
            SetLastError(ERROR_NOT_ENOUGH_MEMORY);
            return 0;
        }
        table.freeSlots.push_back(static_cast<std::uint32_t>(table.slots.size()));
        table.slots.emplace_back();
    }
    const std::uint32_t index = table.freeSlots.back();
    table.freeSlots.pop_back();
    Slot& slot = table.slots[index];
    slot.object = std::move(object);
    return Encode(index, slot.generation);
}

GdiObject* FindInTable(std::uintptr_t handle) {
    Slot* slot = FindSlot(handle);
    if (slot != nullptr) return slot->object.get();
    SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
}

bool RemoveFromTable(std::uintptr_t handle) {
    Slot* slot = FindSlot(handle);
    if (slot == nullptr) {
        SetLastError(ERROR_INVALID_HANDLE);
        return false;
    }
    slot->object.reset();
    if (++slot->generation == 0) slot->generation = 1;  // 0 would make small values valid
    TheTable().freeSlots.push_back((handle >> 8) & 0xFFFFFF);
    return true;
}

int CountObjects() {
    Table& table = TheTable();
    return static_cast<int>(table.slots.size() - table.freeSlots.size());
}

}  // namespace kv
