// A table of objects behind opaque handles. A handle carries index and generation, so a stale,
// foreign or made-up value finds nothing. Used by memory blocks, kernel objects, registry keys.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace kv {

// One number per table, part of every handle: a handle of one table means nothing to another.
enum class HandleSpace : std::uintptr_t { kMemory = 1, kKernel = 2, kRegistry = 3, kModule = 4 };

template <typename Object, HandleSpace Space>
class HandleTable {
 public:
    std::uintptr_t Add(std::shared_ptr<Object> object) {
        std::lock_guard guard(lock_);
        std::size_t index;
        if (free_.empty()) {
            index = slots_.size();
            if (index > kIndexMask) return 0;
            slots_.emplace_back();
        } else {
            index = free_.back();
            free_.pop_back();
        }
        slots_[index].object = std::move(object);
        return Encode(index, slots_[index].generation);
    }

    std::shared_ptr<Object> Find(std::uintptr_t handle) const {
        std::lock_guard guard(lock_);
        const Slot* slot = SlotOf(handle);
        return slot ? slot->object : nullptr;
    }

    // Takes the object out; null when the handle names none.
    std::shared_ptr<Object> Remove(std::uintptr_t handle) {
        std::lock_guard guard(lock_);
        Slot* slot = const_cast<Slot*>(SlotOf(handle));
        if (!slot) return nullptr;
        std::shared_ptr<Object> object = std::move(slot->object);
        slot->object = nullptr;
        ++slot->generation;
        free_.push_back(static_cast<std::size_t>(slot - slots_.data()));
        return object;
    }

    std::size_t Count() const {
        std::lock_guard guard(lock_);
        return slots_.size() - free_.size();
    }

 private:
    struct Slot {
        std::shared_ptr<Object> object;
        std::uint16_t generation = 1;
    };
    // Layout: space 4 bits at 42, generation 16 bits at 26, index 22 bits at 4, marker 2 in the low
    // bits: memory from the allocator is aligned to 16, so no pointer looks like a handle.
    static constexpr std::uintptr_t kMarker = 2;
    static constexpr std::uintptr_t kIndexMask = 0x3FFFFF;

    static std::uintptr_t Encode(std::size_t index, std::uint16_t generation) {
        return (static_cast<std::uintptr_t>(Space) << 42) |
               (static_cast<std::uintptr_t>(generation) << 26) | (index << 4) | kMarker;
    }

    const Slot* SlotOf(std::uintptr_t handle) const {
        const std::size_t index = (handle >> 4) & kIndexMask;
        if (index >= slots_.size()) return nullptr;
        const Slot& slot = slots_[index];
        return slot.object && handle == Encode(index, slot.generation) ? &slot : nullptr;
    }

    mutable std::mutex lock_;
    std::vector<Slot> slots_;
    std::vector<std::size_t> free_;
};

}  // namespace kv
