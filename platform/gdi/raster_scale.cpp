// Scaling: which source pixels a target pixel covers, and the three ways of reducing them to one.
#include <platform/gdi/raster.h>

#include <algorithm>

namespace kv {
namespace {

// The left edge of target pixel k in 1/256 of a source pixel. Sizes may be 2^31 each, so the product
// is divided before it is scaled up.
std::int64_t EdgeOf(std::int64_t k, std::int64_t sourceSize, std::int64_t targetSize) {
    const std::int64_t whole = k * sourceSize / targetSize;
    const std::int64_t rest = k * sourceSize % targetSize;
    return whole * 256 + rest * 256 / targetSize;
}

}  // namespace

std::vector<ScaleSpan> MakeScaleSpans(std::int64_t sourceStart, std::int64_t sourceSize,
                                      std::int64_t targetSize, std::int64_t from, std::int64_t to,
                                      bool mirror) {
    std::vector<ScaleSpan> spans;
    spans.reserve(static_cast<std::size_t>(to - from));
    for (std::int64_t i = from; i < to; ++i) {
        const std::int64_t k = mirror ? targetSize - 1 - i : i;
        const std::int64_t start = EdgeOf(k, sourceSize, targetSize);
        const std::int64_t end = std::max(EdgeOf(k + 1, sourceSize, targetSize), start + 1);
        const std::int64_t first = start >> 8;
        const std::int64_t last = (end - 1) >> 8;
        ScaleSpan span{};
        span.first = static_cast<int>(sourceStart + first);
        span.last = static_cast<int>(sourceStart + last);
        span.total = static_cast<unsigned>(end - start);
        span.firstWeight = first == last ? span.total : 256 - static_cast<unsigned>(start & 0xFF);
        span.lastWeight = static_cast<unsigned>(end - last * 256);
        const std::int64_t rest = k * sourceSize % targetSize;
        span.nearest = static_cast<int>(sourceStart + k * sourceSize / targetSize +
                                        (2 * rest + sourceSize) / (2 * targetSize));
        spans.push_back(span);
    }
    return spans;
}

void ScaleRowNearest(std::uint32_t* target, const SurfaceView& source,
                     const std::vector<ScaleSpan>& columns, const ScaleSpan& row) {
    const std::uint32_t* from = source.Row(row.nearest);
    for (std::size_t i = 0; i < columns.size(); ++i) target[i] = from[columns[i].nearest];
}

void ScaleRowAnd(std::uint32_t* target, const SurfaceView& source,
                 const std::vector<ScaleSpan>& columns, const ScaleSpan& row) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        std::uint32_t pixel = 0xFFFFFFFFu;
        for (int y = row.first; y <= row.last; ++y) {
            const std::uint32_t* from = source.Row(y);
            for (int x = columns[i].first; x <= columns[i].last; ++x) pixel &= from[x];
        }
        target[i] = pixel;
    }
}

namespace {

struct Sum {
    std::uint64_t channel[4] = {};

    void Add(std::uint32_t pixel, std::uint64_t weight) {
        for (int c = 0; c < 4; ++c) channel[c] += (pixel >> (8 * c) & 0xFF) * weight;
    }
    std::uint32_t Average(std::uint64_t total) const {
        std::uint32_t pixel = 0;
        for (int c = 0; c < 4; ++c) {
            pixel |= static_cast<std::uint32_t>((channel[c] + total / 2) / total) << (8 * c);
        }
        return pixel;
    }
};

std::uint64_t WeightAt(const ScaleSpan& span, int position) {
    if (position == span.first) return span.firstWeight;
    return position == span.last ? span.lastWeight : 256;
}

}  // namespace

void ScaleRowAverage(std::uint32_t* target, const SurfaceView& source,
                     const std::vector<ScaleSpan>& columns, const ScaleSpan& row) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const ScaleSpan& column = columns[i];
        Sum sum;
        for (int y = row.first; y <= row.last; ++y) {
            const std::uint64_t rowWeight = WeightAt(row, y);
            const std::uint32_t* from = source.Row(y);
            for (int x = column.first; x <= column.last; ++x) {
                sum.Add(from[x], rowWeight * WeightAt(column, x));
            }
        }
        target[i] = sum.Average(std::uint64_t{row.total} * column.total);
    }
}

}  // namespace kv
