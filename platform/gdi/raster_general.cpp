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

void CombineRowGeneral(RopCode code, std::uint32_t* target, const std::uint32_t* source,
                       const std::uint32_t* pattern, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        target[i] = EvaluateRop(code, pattern != nullptr ? pattern[i] : 0,
                                source != nullptr ? source[i] : 0, target[i]);
    }
}

}  // namespace kv
