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

// Rows of pixels of one length, one below the other; strides count pixels. What the operation's
// code does not use may be null; what it uses does not overlap the target.
struct PixelRows {
    std::uint32_t* target;
    const std::uint32_t* source;
    const std::uint32_t* pattern;
    std::size_t count;
    int height = 1;
    std::ptrdiff_t targetStride = 0;
    std::ptrdiff_t sourceStride = 0;
    std::ptrdiff_t patternStride = 0;
};

// Combines the rows into the target: by the loop made for the code, else by EvaluateRop.
void CombineRows(RopCode code, const PixelRows& rows);
void CombineRowsGeneral(RopCode code, const PixelRows& rows);

// Coverage of the same shape as its target: 0 leaves a pixel as it is, 255 replaces it.
struct CoverageRows {
    std::uint32_t* target;
    const std::uint8_t* coverage;
    std::size_t count;
    int height = 1;
    std::ptrdiff_t targetStride = 0;
    std::ptrdiff_t coverageStride = 0;
};

using RowsOperation = void (*)(const PixelRows& rows);

// A loop made for one code.
struct FastRows {
    RopCode code;
    RowsOperation run;
};
// The loops of one kind of processor; `operations` ends with a null `run`.
struct RowLoops {
    const FastRows* operations;
    void (*blendCoverage)(const CoverageRows& rows, std::uint32_t pixel);
    void (*blendAlpha)(std::uint32_t* target, const std::uint32_t* source, std::size_t count);
};
const RowLoops& PlainLoops();
// Null where the processor, or the build, has no wider registers.
const RowLoops* WideLoops();

// target = target + (pixel - target) * coverage / 255, per channel.
void BlendCoverage(const CoverageRows& rows, std::uint32_t pixel);
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
