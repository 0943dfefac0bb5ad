// Blending loops: text coverage and icon alpha.
#include <platform/gdi/raster.h>

namespace kv {
namespace {

// Rounded value / 255, exact for 0..65025.
constexpr std::uint32_t DivideBy255(std::uint32_t value) {
    value += 128;
    return (value + (value >> 8)) >> 8;
}

constexpr std::uint32_t MixChannel(std::uint32_t target, std::uint32_t source,
                                   std::uint32_t alpha) {
    return DivideBy255(source * alpha + target * (255 - alpha));
}

constexpr std::uint32_t Mix(std::uint32_t target, std::uint32_t source, std::uint32_t alpha) {
    return MixChannel(target & 0xFF, source & 0xFF, alpha) |
           MixChannel(target >> 8 & 0xFF, source >> 8 & 0xFF, alpha) << 8 |
           MixChannel(target >> 16 & 0xFF, source >> 16 & 0xFF, alpha) << 16;
}

}  // namespace

void BlendCoverageRow(std::uint32_t* __restrict target, const std::uint8_t* __restrict coverage,
                      std::uint32_t pixel, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) target[i] = Mix(target[i], pixel, coverage[i]);
}

void BlendAlphaRow(std::uint32_t* __restrict target, const std::uint32_t* __restrict source,
                   std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) target[i] = Mix(target[i], source[i], source[i] >> 24);
}

}  // namespace kv
