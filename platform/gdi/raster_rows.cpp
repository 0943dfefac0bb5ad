// One loop per raster operation in use, and the table that registers them. A loop is a row of that
// table: removing it changes the speed and nothing else.
#include <platform/gdi/raster.h>

#include <array>
#include <cstring>

namespace kv {
namespace {

// Shapes of loops; `Formula` combines the 32-bit values of one pixel.
template <typename Formula>
void SourceLoop(std::uint32_t* __restrict target, const std::uint32_t* __restrict source,
                const std::uint32_t*, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) target[i] = Formula{}(source[i], target[i]);
}

template <typename Formula>
void PatternLoop(std::uint32_t* __restrict target, const std::uint32_t*,
                 const std::uint32_t* __restrict pattern, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) target[i] = Formula{}(pattern[i], target[i]);
}

template <typename Formula>
void FullLoop(std::uint32_t* __restrict target, const std::uint32_t* __restrict source,
              const std::uint32_t* __restrict pattern, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) target[i] = Formula{}(pattern[i], source[i], target[i]);
}

template <int Byte>
void FillLoop(std::uint32_t* target, const std::uint32_t*, const std::uint32_t*,
              std::size_t count) {
    std::memset(target, Byte, count * sizeof *target);
}

void CopySource(std::uint32_t* target, const std::uint32_t* source, const std::uint32_t*,
                std::size_t count) {
    std::memcpy(target, source, count * sizeof *target);
}

void CopyPattern(std::uint32_t* target, const std::uint32_t*, const std::uint32_t* pattern,
                 std::size_t count) {
    std::memcpy(target, pattern, count * sizeof *target);
}

void InvertTarget(std::uint32_t* target, const std::uint32_t*, const std::uint32_t*,
                  std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) target[i] = ~target[i];
}

// s, p, d: source, pattern, target.
using Pixel = std::uint32_t;
using AndSource = decltype([](Pixel s, Pixel d) { return s & d; });
using OrSource = decltype([](Pixel s, Pixel d) { return s | d; });
using XorSource = decltype([](Pixel s, Pixel d) { return s ^ d; });
using EraseSource = decltype([](Pixel s, Pixel d) { return s & ~d; });
using NotSource = decltype([](Pixel s, Pixel) { return ~s; });
using NorSource = decltype([](Pixel s, Pixel d) { return ~(s | d); });
using OrNotSource = decltype([](Pixel s, Pixel d) { return ~s | d; });
using AndNotSource = decltype([](Pixel s, Pixel d) { return ~s & d; });
using XorPattern = decltype([](Pixel p, Pixel d) { return p ^ d; });
using AndPattern = decltype([](Pixel p, Pixel d) { return p & d; });
using OrPattern = decltype([](Pixel p, Pixel d) { return p | d; });
using MergeCopy = decltype([](Pixel p, Pixel s, Pixel) { return p & s; });
using PaintPattern = decltype([](Pixel p, Pixel s, Pixel d) { return p | ~s | d; });

// Code, loop.
constexpr FastRow kFastRows[] = {
    {CodeOf(SRCCOPY), CopySource},
    {CodeOf(SRCAND), SourceLoop<AndSource>},
    {CodeOf(SRCPAINT), SourceLoop<OrSource>},
    {CodeOf(SRCINVERT), SourceLoop<XorSource>},
    {CodeOf(SRCERASE), SourceLoop<EraseSource>},
    {CodeOf(NOTSRCCOPY), SourceLoop<NotSource>},
    {CodeOf(NOTSRCERASE), SourceLoop<NorSource>},
    {CodeOf(MERGEPAINT), SourceLoop<OrNotSource>},
    {0x22, SourceLoop<AndNotSource>},
    {CodeOf(MERGECOPY), FullLoop<MergeCopy>},
    {CodeOf(PATPAINT), FullLoop<PaintPattern>},
    {CodeOf(PATCOPY), CopyPattern},
    {CodeOf(PATINVERT), PatternLoop<XorPattern>},
    {0xA0, PatternLoop<AndPattern>},
    {0xFA, PatternLoop<OrPattern>},
    {CodeOf(DSTINVERT), InvertTarget},
    {CodeOf(BLACKNESS), FillLoop<0x00>},
    {CodeOf(WHITENESS), FillLoop<0xFF>},
    {0, nullptr},
};

std::array<RowOperation, 256> IndexByCode() {
    std::array<RowOperation, 256> index{};
    for (const FastRow& row : kFastRows) {
        if (row.run != nullptr) index[row.code] = row.run;
    }
    return index;
}

}  // namespace

const FastRow* FastRows() {
    return kFastRows;
}

RowOperation FindFastRow(RopCode code) {
    static const std::array<RowOperation, 256> byCode = IndexByCode();
    return byCode[code];
}

}  // namespace kv
