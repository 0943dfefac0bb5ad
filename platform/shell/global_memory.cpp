// Memory blocks of the global heap. A movable block is a checked handle, a fixed block its address;
// dialog state lives in movable blocks that are locked while used.
#include <winbase.h>

#include <cstdlib>
#include <cstring>
#include <mutex>
#include <unordered_map>

#include <platform/shell/errors.h>
#include <platform/shell/handle_table.h>

namespace {

constexpr SIZE_T kLargestBlock = SIZE_T{1} << 32;
constexpr UINT kModifyOnly = 0x0080;  // GMEM_MODIFY: change attributes, keep the memory

struct Block {
    Block() = default;
    ~Block() { std::free(memory); }
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;

    void* memory = nullptr;  // null while the block is discarded (size 0)
    SIZE_T size = 0;
    unsigned locks = 0;
};

auto& Blocks() {
    static auto* table = new kv::HandleTable<Block, kv::HandleSpace::kMemory>;
    return *table;
}

struct FixedBlocks {
    std::mutex lock;
    std::unordered_map<void*, SIZE_T> sizes;
};

FixedBlocks& Fixed() {
    static auto* blocks = new FixedBlocks;
    return *blocks;
}

std::uintptr_t Number(HGLOBAL memory) {
    return reinterpret_cast<std::uintptr_t>(memory);
}

bool FixedSize(HGLOBAL memory, SIZE_T& size) {
    std::lock_guard guard(Fixed().lock);
    const auto found = Fixed().sizes.find(memory);
    if (found == Fixed().sizes.end()) return false;
    size = found->second;
    return true;
}

void* Allocate(SIZE_T bytes, UINT flags) {
    if (bytes > kLargestBlock) return nullptr;
    const SIZE_T size = bytes ? bytes : 1;
    return flags & GMEM_ZEROINIT ? std::calloc(1, size) : std::malloc(size);
}

// Null with the old memory untouched when there is not enough.
void* Resize(void* memory, SIZE_T oldSize, SIZE_T newSize, UINT flags) {
    if (newSize > kLargestBlock) return nullptr;
    void* moved = std::realloc(memory, newSize ? newSize : 1);
    if (moved && newSize > oldSize && (flags & GMEM_ZEROINIT)) {
        std::memset(static_cast<char*>(moved) + oldSize, 0, newSize - oldSize);
    }
    return moved;
}

HGLOBAL Fail(DWORD error) {
    SetLastError(error);
    return nullptr;
}

HGLOBAL AllocateFixed(UINT flags, SIZE_T bytes) {
    void* memory = Allocate(bytes, flags);
    if (!memory) return Fail(ERROR_NOT_ENOUGH_MEMORY);
    std::lock_guard guard(Fixed().lock);
    Fixed().sizes[memory] = bytes;
    return memory;
}

// A block that somebody holds the address of may only shrink, unless the caller allows a move.
HGLOBAL ReallocateFixed(HGLOBAL memory, SIZE_T oldSize, SIZE_T bytes, UINT flags) {
    if (bytes > oldSize && !(flags & GMEM_MOVEABLE)) return Fail(ERROR_NOT_ENOUGH_MEMORY);
    std::lock_guard guard(Fixed().lock);
    if (bytes > oldSize) {
        void* moved = Resize(memory, oldSize, bytes, flags);
        if (!moved) return Fail(ERROR_NOT_ENOUGH_MEMORY);
        Fixed().sizes.erase(memory);
        memory = moved;
    }
    Fixed().sizes[memory] = bytes;
    return memory;
}

HGLOBAL ReallocateMovable(HGLOBAL handle, Block& block, SIZE_T bytes, UINT flags) {
    if (block.locks > 0 && bytes <= block.size && bytes > 0) {
        block.size = bytes;
        return handle;
    }
    if (block.locks > 0 && !(flags & GMEM_MOVEABLE)) return Fail(ERROR_NOT_ENOUGH_MEMORY);
    if (bytes == 0) {
        std::free(block.memory);
        block.memory = nullptr;
    } else {
        void* moved = Resize(block.memory, block.size, bytes, flags);
        if (!moved) return Fail(ERROR_NOT_ENOUGH_MEMORY);
        block.memory = moved;
    }
    block.size = bytes;
    return handle;
}

}  // namespace

HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes) {
    if (!(flags & GMEM_MOVEABLE)) return AllocateFixed(flags, bytes);
    auto block = std::make_shared<Block>();
    if (bytes > 0) {
        block->memory = Allocate(bytes, flags);
        if (!block->memory) return Fail(ERROR_NOT_ENOUGH_MEMORY);
    }
    block->size = bytes;
    const std::uintptr_t handle = Blocks().Add(std::move(block));
    if (!handle) return Fail(ERROR_NOT_ENOUGH_MEMORY);
    return reinterpret_cast<HGLOBAL>(handle);
}

HGLOBAL GlobalReAlloc(HGLOBAL memory, SIZE_T bytes, UINT flags) {
    SIZE_T oldSize = 0;
    if (const auto block = Blocks().Find(Number(memory))) {
        return flags & kModifyOnly ? memory : ReallocateMovable(memory, *block, bytes, flags);
    }
    if (!FixedSize(memory, oldSize)) return Fail(ERROR_INVALID_HANDLE);
    return flags & kModifyOnly ? memory : ReallocateFixed(memory, oldSize, bytes, flags);
}

LPVOID GlobalLock(HGLOBAL memory) {
    SIZE_T size = 0;
    if (const auto block = Blocks().Find(Number(memory))) {
        if (!block->memory) return Fail(kv::kErrorDiscarded);
        ++block->locks;
        return block->memory;
    }
    return FixedSize(memory, size) ? memory : Fail(ERROR_INVALID_HANDLE);
}

BOOL GlobalUnlock(HGLOBAL memory) {
    SIZE_T size = 0;
    if (const auto block = Blocks().Find(Number(memory))) {
        // False with no error says "not locked any more".
        SetLastError(block->locks ? ERROR_SUCCESS : kv::kErrorNotLocked);
        if (block->locks == 0) return FALSE;
        return --block->locks > 0 ? TRUE : FALSE;
    }
    if (FixedSize(memory, size)) return TRUE;
    SetLastError(ERROR_INVALID_HANDLE);
    return FALSE;
}

// Answers null when done, the handle itself when it names nothing.
HGLOBAL GlobalFree(HGLOBAL memory) {
    if (!memory || Blocks().Remove(Number(memory))) return nullptr;
    {
        std::lock_guard guard(Fixed().lock);
        if (Fixed().sizes.erase(memory) > 0) {
            std::free(memory);
            return nullptr;
        }
    }
    SetLastError(ERROR_INVALID_HANDLE);
    return memory;
}

SIZE_T GlobalSize(HGLOBAL memory) {
    SIZE_T size = 0;
    if (const auto block = Blocks().Find(Number(memory))) return block->size;
    if (!FixedSize(memory, size)) SetLastError(ERROR_INVALID_HANDLE);
    return size;
}
