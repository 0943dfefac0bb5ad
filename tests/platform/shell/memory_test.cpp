// Memory blocks: locks, moves, sizes, and handles that are wrong or no longer valid.
#include <gtest/gtest.h>

#include <windows.h>

#include <cstring>

#include <platform/shell/errors.h>

namespace kv::test {
namespace {

TEST(GlobalMemory, AMovableBlockIsLockedUnlockedAndFreed) {
    const HGLOBAL block = GlobalAlloc(GHND, 100);
    ASSERT_TRUE(block);
    auto* bytes = static_cast<char*>(GlobalLock(block));
    ASSERT_TRUE(bytes);
    EXPECT_NE(static_cast<void*>(bytes), block);
    for (int i = 0; i < 100; ++i) EXPECT_EQ(bytes[i], 0);
    EXPECT_EQ(GlobalLock(block), bytes);
    EXPECT_TRUE(GlobalUnlock(block));
    EXPECT_FALSE(GlobalUnlock(block));
    EXPECT_EQ(GetLastError(), ERROR_SUCCESS);
    EXPECT_FALSE(GlobalUnlock(block));
    EXPECT_EQ(GetLastError(), kErrorNotLocked);
    EXPECT_EQ(GlobalSize(block), 100u);
    EXPECT_EQ(GlobalFree(block), nullptr);
}

TEST(GlobalMemory, StaleForeignAndNullHandlesFailWithoutHarm) {
    const HGLOBAL stale = GlobalAlloc(GMEM_MOVEABLE, 8);
    EXPECT_EQ(GlobalFree(stale), nullptr);
    const HGLOBAL other = GlobalAlloc(GMEM_MOVEABLE, 8);  // takes the place of the freed one
    int local = 0;
    for (const HGLOBAL wrong : {stale, static_cast<HGLOBAL>(&local), HGLOBAL{}}) {
        EXPECT_EQ(GlobalLock(wrong), nullptr);
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
        EXPECT_FALSE(GlobalUnlock(wrong));
        EXPECT_EQ(GlobalSize(wrong), 0u);
        EXPECT_EQ(GlobalReAlloc(wrong, 4, GMEM_MOVEABLE), nullptr);
        EXPECT_EQ(GlobalFree(wrong), wrong) << "what was not freed is answered";
    }
    EXPECT_EQ(GlobalSize(other), 8u);
    GlobalFree(other);
}

TEST(GlobalMemory, ABlockGrowsAndKeepsItsBytes) {
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, 4);
    std::memcpy(GlobalLock(block), "abcd", 4);
    EXPECT_EQ(GlobalReAlloc(block, 1 << 20, 0), nullptr) << "a locked block may not move";
    EXPECT_EQ(GlobalReAlloc(block, 2, 0), block) << "but it may shrink";
    GlobalUnlock(block);
    EXPECT_EQ(GlobalReAlloc(block, 1 << 20, GMEM_ZEROINIT), block);
    const auto* bytes = static_cast<const char*>(GlobalLock(block));
    EXPECT_EQ(std::memcmp(bytes, "ab\0\0", 4), 0);
    EXPECT_EQ(bytes[(1 << 20) - 1], 0);
    GlobalUnlock(block);
    EXPECT_EQ(GlobalReAlloc(block, 0, GMEM_MOVEABLE), block);
    EXPECT_EQ(GlobalLock(block), nullptr);
    EXPECT_EQ(GetLastError(), kErrorDiscarded);
    EXPECT_EQ(GlobalFree(block), nullptr);
    EXPECT_EQ(GlobalAlloc(GMEM_MOVEABLE, SIZE_T{1} << 60), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_NOT_ENOUGH_MEMORY);
}

TEST(GlobalMemory, AFixedBlockIsItsAddress) {
    const HGLOBAL block = GlobalAlloc(GPTR, 16);
    EXPECT_EQ(GlobalLock(block), block);
    EXPECT_TRUE(GlobalUnlock(block));
    EXPECT_EQ(GlobalReAlloc(block, 32, 0), nullptr);
    const HGLOBAL moved = GlobalReAlloc(block, 32, GMEM_MOVEABLE | GMEM_ZEROINIT);
    ASSERT_TRUE(moved);
    EXPECT_EQ(GlobalSize(moved), 32u);
    EXPECT_EQ(static_cast<char*>(moved)[31], 0);
    EXPECT_EQ(GlobalFree(moved), nullptr);
    EXPECT_EQ(GlobalFree(moved), moved);
}

}  // namespace
}  // namespace kv::test
