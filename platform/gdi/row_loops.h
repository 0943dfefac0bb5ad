// The loops over rows of pixels: one per raster operation in use, and the two blends. Included by
// two files that compile them for different processors, so everything here is the including file's
// own.
#include <platform/gdi/raster.h>

#include <cstring>

namespace kv {
namespace {

// Some pixels at once. The compiler takes the widest registers that it may use.
template <int N>
struct LanesOf {
    typedef std::uint32_t Type __attribute__((vector_size(4 * N)));
};
template <int N>
using Lanes = typename LanesOf<N>::Type;

template <int N>
Lanes<N> Load(const std::uint32_t* from) {
    Lanes<N> lanes;
    std::memcpy(&lanes, from, sizeof lanes);
    return lanes;
}

template <int N>
void Store(std::uint32_t* to, const Lanes<N>& lanes) {
    std::memcpy(to, &lanes, sizeof lanes);
}

// Writes result<N>(i) to N pixels from `i` on, for all of the row. The last lanes overlap those
// before them, so they are computed while all of the target is as it was.
template <int N, typename Result>
void WriteLanes(std::uint32_t* target, std::size_t count, const Result& result) {
    const std::size_t end = count - N;
    const Lanes<N> last = result.template operator()<N>(end);
#pragma GCC unroll 4
    for (std::size_t i = 0; i < end; i += N) Store<N>(target + i, result.template operator()<N>(i));
    Store<N>(target + end, last);
}

template <typename Result>
void WriteRow(std::uint32_t* target, std::size_t count, const Result& result) {
    if (count >= 8) {
        WriteLanes<8>(target, count, result);
    } else if (count >= 4) {
        WriteLanes<4>(target, count, result);
    } else if (count > 0) {
        WriteLanes<1>(target, count, result);
    }
}

// Shapes of loops; `Formula` combines pixels, bit by bit.
template <typename Row>
void ForEachRow(const PixelRows& rows, const Row& row) {
    for (std::ptrdiff_t y = 0; y < rows.height; ++y) row(rows.target + y * rows.targetStride, y);
}

template <typename Formula>
void SourceLoop(const PixelRows& rows) {
    ForEachRow(rows, [&](std::uint32_t* target, std::ptrdiff_t y) {
        const std::uint32_t* source = rows.source + y * rows.sourceStride;
        WriteRow(target, rows.count, [=]<int N>(std::size_t i) {
            return Formula{}(Load<N>(source + i), Load<N>(target + i));
        });
    });
}

template <typename Formula>
void PatternLoop(const PixelRows& rows) {
    PixelRows swapped = rows;
    swapped.source = rows.pattern;
    swapped.sourceStride = rows.patternStride;
    SourceLoop<Formula>(swapped);
}

template <typename Formula>
void FullLoop(const PixelRows& rows) {
    ForEachRow(rows, [&](std::uint32_t* target, std::ptrdiff_t y) {
        const std::uint32_t* source = rows.source + y * rows.sourceStride;
        const std::uint32_t* pattern = rows.pattern + y * rows.patternStride;
        WriteRow(target, rows.count, [=]<int N>(std::size_t i) {
            return Formula{}(Load<N>(pattern + i), Load<N>(source + i), Load<N>(target + i));
        });
    });
}

template <int Byte>
void FillLoop(const PixelRows& rows) {
    ForEachRow(rows, [&](std::uint32_t* target, std::ptrdiff_t) {
        std::memset(target, Byte, rows.count * sizeof *target);
    });
}

void CopySource(const PixelRows& rows) {
    ForEachRow(rows, [&](std::uint32_t* target, std::ptrdiff_t y) {
        std::memcpy(target, rows.source + y * rows.sourceStride, rows.count * sizeof *target);
    });
}

void CopyPattern(const PixelRows& rows) {
    ForEachRow(rows, [&](std::uint32_t* target, std::ptrdiff_t y) {
        std::memcpy(target, rows.pattern + y * rows.patternStride, rows.count * sizeof *target);
    });
}

void InvertTarget(const PixelRows& rows) {
    ForEachRow(rows, [&](std::uint32_t* target, std::ptrdiff_t) {
        WriteRow(target, rows.count, [=]<int N>(std::size_t i) { return ~Load<N>(target + i); });
    });
}

// s, p, d: source, pattern, target.
using AndSource = decltype([](auto s, auto d) { return s & d; });
using OrSource = decltype([](auto s, auto d) { return s | d; });
using XorSource = decltype([](auto s, auto d) { return s ^ d; });
using EraseSource = decltype([](auto s, auto d) { return s & ~d; });
using NotSource = decltype([](auto s, auto) { return ~s; });
using NorSource = decltype([](auto s, auto d) { return ~(s | d); });
using OrNotSource = decltype([](auto s, auto d) { return ~s | d; });
using AndNotSource = decltype([](auto s, auto d) { return ~s & d; });
using XorPattern = decltype([](auto p, auto d) { return p ^ d; });
using AndPattern = decltype([](auto p, auto d) { return p & d; });
using OrPattern = decltype([](auto p, auto d) { return p | d; });
using MergeCopy = decltype([](auto p, auto s, auto) { return p & s; });
using PaintPattern = decltype([](auto p, auto s, auto d) { return p | ~s | d; });

// Code, loop.
constexpr FastRows kFastRows[] = {
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

// Rounded value / 255 of two channels at once, in the lower and the upper half of a pixel; exact
// for 0..65025.
template <typename Pixels>
Pixels DivideBy255(Pixels values) {
    constexpr std::uint32_t kBytes = 0x00FF00FF;
    values += 0x00800080;
    return (values + (values >> 8 & kBytes)) >> 8 & kBytes;
}

template <typename Pixels>
Pixels Mix(Pixels target, Pixels source, Pixels alpha) {
    constexpr std::uint32_t kRedAndBlue = 0x00FF00FF, kGreen = 0xFF;
    const Pixels rest = 255 - alpha;
    return DivideBy255((source & kRedAndBlue) * alpha + (target & kRedAndBlue) * rest) |
           DivideBy255((source >> 8 & kGreen) * alpha + (target >> 8 & kGreen) * rest) << 8;
}

template <int N>
Lanes<N> Widen(const std::uint8_t* bytes) {
    typedef std::uint8_t Bytes __attribute__((vector_size(N)));
    Bytes narrow;
    std::memcpy(&narrow, bytes, N);
    return __builtin_convertvector(narrow, Lanes<N>);
}

void MixByCoverage(const CoverageRows& rows, std::uint32_t pixel) {
    for (std::ptrdiff_t y = 0; y < rows.height; ++y) {
        std::uint32_t* target = rows.target + y * rows.targetStride;
        const std::uint8_t* coverage = rows.coverage + y * rows.coverageStride;
        WriteRow(target, rows.count, [=]<int N>(std::size_t i) {
            return Mix(Load<N>(target + i), Lanes<N>{} + pixel, Widen<N>(coverage + i));
        });
    }
}

void MixByAlpha(std::uint32_t* target, const std::uint32_t* source, std::size_t count) {
    WriteRow(target, count, [=]<int N>(std::size_t i) {
        const Lanes<N> pixels = Load<N>(source + i);
        return Mix(Load<N>(target + i), pixels, pixels >> 24);
    });
}

constexpr RowLoops kLoops{kFastRows, MixByCoverage, MixByAlpha};

}  // namespace
}  // namespace kv
