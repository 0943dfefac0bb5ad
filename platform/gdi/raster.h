// Combining rows of pixels: the 256 ternary raster operations, coverage and alpha blending, and
// scaling. Nothing here clips or knows a DC; blit.cpp, stretch.cpp, text.cpp and icons.cpp call it.
#pragma once

#include <platform/gdi/surface.h>

#include <cstddef>
#include <vector>

namespace kv {

// An operation's code is its truth table: bit (pattern * 4 + source * 2 + target) is the result.
using RopCode = std::uint8_t;

constexpr RopCode CodeOf(DWORD rop) {
    return static_cast<RopCode>(rop >> 16);
}
constexpr bool UsesPattern(RopCode code) {
    return ((code >> 4 ^ code) & 0x0F) != 0;
}
constexpr bool UsesSource(RopCode code) {
    return ((code >> 2 ^ code) & 0x33) != 0;
}
constexpr bool UsesTarget(RopCode code) {
    return ((code >> 1 ^ code) & 0x55) != 0;
}

// The reference: any code, any 32 bits.
std::uint32_t EvaluateRop(RopCode code, std::uint32_t pattern, std::uint32_t source,
                          std::uint32_t target);

// Combines `count` pixels into `target`. Rows the code does not use may be null; those it uses do
// not overlap the target.
using RowOperation = void (*)(std::uint32_t* target, const std::uint32_t* source,
                              const std::uint32_t* pattern, std::size_t count);

// The same through EvaluateRop.
void CombineRowGeneral(RopCode code, std::uint32_t* target, const std::uint32_t* source,
                       const std::uint32_t* pattern, std::size_t count);

// A loop made for one code.
struct FastRow {
    RopCode code;
    RowOperation run;
};
// All of them, ended by a null `run`; and the one for a code, or null.
const FastRow* FastRows();
RowOperation FindFastRow(RopCode code);

// The fast loop where there is one, the general evaluator otherwise.
inline void CombineRow(RowOperation fast, RopCode code, std::uint32_t* target,
                       const std::uint32_t* source, const std::uint32_t* pattern,
                       std::size_t count) {
    if (fast != nullptr) {
        fast(target, source, pattern, count);
    } else {
        CombineRowGeneral(code, target, source, pattern, count);
    }
}

// target = target + (pixel - target) * coverage / 255, per channel.
void BlendCoverageRow(std::uint32_t* target, const std::uint8_t* coverage, std::uint32_t pixel,
                      std::size_t count);
// Lays pixels with alpha in their top byte (not premultiplied) over the target.
void BlendAlphaRow(std::uint32_t* target, const std::uint32_t* source, std::size_t count);

// How target pixels of one direction map to source pixels.
struct ScaleSpan {
    int first;  // source pixels [first, last]
    int last;
    unsigned firstWeight;  // 1..256; the pixels between weigh 256
    unsigned lastWeight;
    unsigned total;
    int nearest;

    bool operator==(const ScaleSpan&) const = default;
};
// Spans of target pixels [from, to) when `sourceSize` pixels from `sourceStart` become
// `targetSize`. Either size may be mirrored by `mirror`. All arguments describe non-empty ranges.
std::vector<ScaleSpan> MakeScaleSpans(std::int64_t sourceStart, std::int64_t sourceSize,
                                      std::int64_t targetSize, std::int64_t from, std::int64_t to,
                                      bool mirror);
// One target row each: the nearest pixel, all covered pixels averaged by area, or combined by AND.
void ScaleRowNearest(std::uint32_t* target, const SurfaceView& source,
                     const std::vector<ScaleSpan>& columns, const ScaleSpan& row);
void ScaleRowAverage(std::uint32_t* target, const SurfaceView& source,
                     const std::vector<ScaleSpan>& columns, const ScaleSpan& row);
void ScaleRowAnd(std::uint32_t* target, const SurfaceView& source,
                 const std::vector<ScaleSpan>& columns, const ScaleSpan& row);

}  // namespace kv
