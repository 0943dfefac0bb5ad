// A movable memory block, locked for as long as the object lives.
#pragma once

#include <windows.h>

namespace kvui {

template <typename Block>
class LockedBlock {
 public:
    explicit LockedBlock(HGLOBAL memory)
        : memory_(memory),
          block_(memory != nullptr ? static_cast<Block*>(GlobalLock(memory)) : nullptr) {}
    ~LockedBlock() {
        if (block_ != nullptr) GlobalUnlock(memory_);
    }
    LockedBlock(const LockedBlock&) = delete;
    LockedBlock& operator=(const LockedBlock&) = delete;

    Block* get() const { return block_; }
    Block* operator->() const { return block_; }
    explicit operator bool() const { return block_ != nullptr; }

 private:
    HGLOBAL memory_;
    Block* block_;
};

}  // namespace kvui
