// The general evaluator of ternary raster operations: the meaning the fast loops are checked
// against, and what runs for a code that has none.
#include <platform/gdi/raster.h>

namespace kv {

std::uint32_t EvaluateRop(RopCode code, std::uint32_t pattern, std::uint32_t source,
                          std::uint32_t target) {
    std::uint32_t result = 0;
    for (unsigned row = 0; row < 8; ++row) {
        if ((code >> row & 1) == 0) continue;
        result |= (row & 4 ? pattern : ~pattern) & (row & 2 ? source : ~source) &
                  (row & 1 ? target : ~target);
    }
    return result;
}

void CombineRowsGeneral(RopCode code, const PixelRows& rows) {
    PixelRows row = rows;
    for (int y = 0; y < rows.height; ++y) {
        for (std::size_t i = 0; i < row.count; ++i) {
            row.target[i] = EvaluateRop(code, row.pattern != nullptr ? row.pattern[i] : 0,
                                        row.source != nullptr ? row.source[i] : 0, row.target[i]);
        }
        row.target += rows.targetStride;
        if (row.source != nullptr) row.source += rows.sourceStride;
        if (row.pattern != nullptr) row.pattern += rows.patternStride;
    }
}

}  // namespace kv
