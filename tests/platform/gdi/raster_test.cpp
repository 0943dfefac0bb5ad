// Raster operations: the general evaluator against the definition, fast loops against the
// evaluator, blending and scaling.
#include <platform/gdi/raster.h>
#include <tests/platform/gdi/drawing.h>

#include <algorithm>
#include <set>

namespace kv {
namespace {

TEST(RasterOperation, EveryCodeIsItsOwnTruthTable) {
    for (int code = 0; code < 256; ++code) {
        for (unsigned bits = 0; bits < 8; ++bits) {
            // One bit set at a different place of the word each time: no bit may reach another.
            const std::uint32_t place = 1u << (bits * 4 + 1);
            const std::uint32_t result =
                EvaluateRop(static_cast<RopCode>(code), bits & 4 ? place : 0, bits & 2 ? place : 0,
                            bits & 1 ? place : 0);
            EXPECT_EQ((result & place) != 0, (code >> bits & 1) != 0) << code << " " << bits;
        }
        const auto rop = static_cast<RopCode>(code);
        EXPECT_EQ(UsesPattern(rop),
                  EvaluateRop(rop, 0, 0x3333, 0x5555) != EvaluateRop(rop, ~0u, 0x3333, 0x5555));
        EXPECT_EQ(UsesSource(rop),
                  EvaluateRop(rop, 0x0F0F, 0, 0x5555) != EvaluateRop(rop, 0x0F0F, ~0u, 0x5555));
    }
}

// The loops that this processor can run.
std::vector<const RowLoops*> AllLoops() {
    std::vector<const RowLoops*> all{&PlainLoops()};
    if (WideLoops() != nullptr) all.push_back(WideLoops());
    return all;
}

TEST(RasterOperation, FastLoopsAgreeWithTheGeneralEvaluator) {
    KV_RANDOM(random);
    for (const RowLoops* loops : AllLoops()) {
        std::set<RopCode> seen;
        for (const FastRows* row = loops->operations; row->run != nullptr; ++row) {
            EXPECT_TRUE(seen.insert(row->code).second) << "registered twice: " << int{row->code};
            for (const std::size_t count : {1u, 3u, 4u, 7u, 8u, 16u, 33u, 160u, 1001u}) {
                // Three rows with gaps between them, which must stay as they are.
                const std::size_t stride = count + 2;
                std::vector<std::uint32_t> source(stride * 3), pattern(stride * 3),
                    fast(stride * 3);
                for (auto* pixels : {&source, &pattern, &fast}) {
                    std::generate(pixels->begin(), pixels->end(), std::ref(random));
                }
                std::vector<std::uint32_t> general = fast;
                PixelRows rows{fast.data() + 1,
                               UsesSource(row->code) ? source.data() : nullptr,
                               UsesPattern(row->code) ? pattern.data() : nullptr,
                               count,
                               3,
                               static_cast<std::ptrdiff_t>(stride),
                               static_cast<std::ptrdiff_t>(stride),
                               static_cast<std::ptrdiff_t>(stride)};
                row->run(rows);
                rows.target = general.data() + 1;
                CombineRowsGeneral(row->code, rows);
                ASSERT_EQ(fast, general) << "code " << int{row->code} << ", " << count << " pixels";
            }
        }
    }
}

TEST(Blending, CoverageMixesEachChannelToTheNearestValue) {
    KV_RANDOM(random);
    for (const RowLoops* loops : AllLoops()) {
        std::vector<std::uint32_t> target(256), withCoverage, withAlpha, source;
        std::vector<std::uint8_t> coverage;
        const std::uint32_t pixel = random() & 0xFFFFFF;
        for (unsigned i = 0; i < 256; ++i) {
            target[i] = random() & 0xFFFFFF;
            coverage.push_back(static_cast<std::uint8_t>(i));
            source.push_back(pixel | i << 24);
        }
        // An odd start and an odd count, so that the ends of the wide loops are met too.
        withCoverage = withAlpha = target;
        loops->blendCoverage({withCoverage.data() + 1, coverage.data() + 1, 85, 3, 85, 85}, pixel);
        loops->blendAlpha(withAlpha.data() + 1, source.data() + 1, 255);
        EXPECT_EQ(withCoverage, withAlpha);
        EXPECT_EQ(withCoverage[0], target[0]);
        for (unsigned i = 1; i < 256; ++i) {
            for (int shift = 0; shift < 24; shift += 8) {
                const double exact =
                    ((pixel >> shift & 0xFF) * i + (target[i] >> shift & 0xFF) * (255.0 - i)) /
                    255.0;
                EXPECT_NEAR(withCoverage[i] >> shift & 0xFF, exact, 0.5001) << i;
            }
        }
    }
}

// The average of what target pixel `i` of `targetSize` covers in a row, in exact arithmetic.
double ExactAverage(const std::vector<int>& row, int i, int targetSize) {
    const double start = double(i) * static_cast<double>(row.size()) / targetSize;
    const double end = double(i + 1) * static_cast<double>(row.size()) / targetSize;
    double sum = 0;
    for (std::size_t x = 0; x < row.size(); ++x) {
        const double from = std::max(start, static_cast<double>(x));
        const double to = std::min(end, static_cast<double>(x + 1));
        if (to > from) sum += row[x] * (to - from);
    }
    return sum / (end - start);
}

TEST(Scaling, AverageWeighsPixelsByCoveredArea) {
    KV_RANDOM(random);
    for (const auto& [from, to] : {std::pair{10, 3}, {7, 5}, {4, 9}, {160, 97}, {1, 6}, {33, 1}}) {
        std::vector<int> values;
        std::vector<std::uint32_t> pixels;
        for (int x = 0; x < from; ++x) {
            values.push_back(static_cast<int>(random() & 0xFF));
            pixels.push_back(static_cast<std::uint32_t>(values.back()) * 0x01010101u);
        }
        const SurfaceView source{pixels.data(), from, 1, from};
        const auto columns = MakeScaleSpans(0, from, to, 0, to, false);
        const auto rows = MakeScaleSpans(0, 1, 1, 0, 1, false);
        std::vector<std::uint32_t> scaled(static_cast<std::size_t>(to));
        ScaleRowAverage(scaled.data(), source, columns, rows[0]);
        for (int i = 0; i < to; ++i) {
            const std::uint32_t pixel = scaled[static_cast<std::size_t>(i)];
            // Weights have 8 bits.
            EXPECT_NEAR(pixel & 0xFF, ExactAverage(values, i, to), 2.0) << from << "->" << to;
            EXPECT_EQ(pixel, (pixel & 0xFF) * 0x01010101u);
        }
    }
}

}  // namespace
}  // namespace kv
