// Scaling: which source pixels a target pixel covers, and the three ways of reducing them to one.
#include <platform/gdi/raster.h>

#include <algorithm>
#include <array>
#include <bit>

namespace kv {
namespace {

// The left edge of target pixel k in 1/256 of a source pixel. Sizes may be 2^31 each, so the
// product is divided before it is scaled up.
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

std::uint32_t WeightAt(const ScaleSpan& span, int position) {
    if (position == span.first) return span.firstWeight;
    return position == span.last ? span.lastWeight : 256;
}

// Channels of `count` pixels, in the order of their bytes, each row of the span added with its
// weight. At most 32767 rows of weight 256 fit 32 bits.
void AddRows(std::uint32_t* __restrict sums, const SurfaceView& source, const ScaleSpan& rows,
             int firstColumn, std::size_t count) {
    std::fill_n(sums, count * 4, 0u);
    for (int y = rows.first; y <= rows.last; ++y) {
        const std::uint32_t weight = WeightAt(rows, y);
        const auto* __restrict from =
            reinterpret_cast<const std::uint8_t*>(source.Row(y) + firstColumn);
        for (std::size_t i = 0; i < count * 4; ++i) sums[i] += from[i] * weight;
    }
}

}  // namespace

void ScaleRowAverage(std::uint32_t* target, const SurfaceView& source,
                     const std::vector<ScaleSpan>& columns, const ScaleSpan& row) {
    if (columns.empty()) return;
    static std::vector<std::uint32_t> sums;
    // Mirrored columns run backwards.
    const int low = std::min(columns.front().first, columns.back().first);
    const int high = std::max(columns.front().last, columns.back().last);
    const auto count = static_cast<std::size_t>(high - low + 1);
    if (sums.size() < count * 4) sums.resize(count * 4);
    AddRows(sums.data(), source, row, low, count);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const ScaleSpan& column = columns[i];
        std::int64_t channel[4] = {};  // signed: those turn into floating point quickly
        for (int x = column.first; x <= column.last; ++x) {
            const std::int64_t weight = WeightAt(column, x);
            const std::uint32_t* from = sums.data() + std::ptrdiff_t{4} * (x - low);
            for (int c = 0; c < 4; ++c) channel[c] += from[c] * weight;
        }
        // A multiplication instead of a division; the error is far below what rounding absorbs.
        const double share = 1.0 / (static_cast<double>(row.total) * column.total);
        std::array<std::uint8_t, 4> bytes;
        for (std::size_t c = 0; c < 4; ++c) {
            bytes[c] = static_cast<std::uint8_t>(
                static_cast<int>(static_cast<double>(channel[c]) * share + 0.5));
        }
        target[i] = std::bit_cast<std::uint32_t>(bytes);
    }
}

}  // namespace kv
