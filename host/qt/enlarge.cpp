// Enlarging by shares, row by row; see enlarge.h.
#include <host/qt/enlarge.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace kvqt {
namespace {

constexpr unsigned kWhole = 256;

// One pixel of the result lies over at most two pixels of the picture.
struct Share {
    int first = 0;
    int second = 0;
    unsigned ofSecond = 0;  // out of kWhole
};

// The part of a pixel's width over which one colour passes into the next. Less shows the steps of
// slanted lines, more blurs the upright ones.
constexpr double kSoftness = 0.8;

// A pixel of the result takes the colour of the place under its centre. Between two pixels of the
// picture that colour changes over a stretch of at least one pixel of the result, so that small
// factors mix by exact shares.
std::vector<Share> SharesOf(int from, int to) {
    std::vector<Share> shares(static_cast<size_t>(to));
    const double factor = static_cast<double>(to) / from;
    const double stretch = std::max(1.0, factor * kSoftness);
    for (int i = 0; i < to; ++i) {
        const double place = (i + 0.5) / factor - 0.5;
        const int before = static_cast<int>(std::floor(place));
        const double across = (place - before - 0.5) * factor / stretch + 0.5;
        Share& share = shares[static_cast<size_t>(i)];
        share.first = std::clamp(before, 0, from - 1);
        share.second = std::clamp(before + 1, 0, from - 1);
        share.ofSecond = static_cast<unsigned>(std::lround(std::clamp(across, 0.0, 1.0) * kWhole));
        if (share.first == share.second) share.ofSecond = 0;
    }
    return shares;
}

// All four bytes at once, two by two.
std::uint32_t Mix(std::uint32_t first, std::uint32_t second, unsigned ofSecond) {
    constexpr std::uint32_t kEven = 0x00FF00FF;
    const unsigned ofFirst = kWhole - ofSecond;
    const std::uint32_t even = (first & kEven) * ofFirst + (second & kEven) * ofSecond;
    const std::uint32_t odd = (first >> 8 & kEven) * ofFirst + (second >> 8 & kEven) * ofSecond;
    return (even >> 8 & kEven) | (odd & ~kEven);
}

// The rows of a picture in the width of the result. A row of the result needs two that follow each
// other, so two are kept.
class WideRows {
 public:
    WideRows(const QImage& picture, int width)
        : picture_(picture), columns_(SharesOf(picture.width(), width)) {
        for (Row& row : rows_) row.pixels.resize(columns_.size());
    }

    const std::uint32_t* At(int y) {
        Row& row = rows_[y % 2];
        if (row.y != y) {
            row.y = y;
            Widen(reinterpret_cast<const std::uint32_t*>(picture_.constScanLine(y)), row.pixels);
        }
        return row.pixels.data();
    }

 private:
    struct Row {
        int y = -1;
        std::vector<std::uint32_t> pixels;
    };

    void Widen(const std::uint32_t* line, std::vector<std::uint32_t>& out) const {
        for (size_t x = 0; x < out.size(); ++x) {
            const Share& share = columns_[x];
            out[x] = Mix(line[share.first], line[share.second], share.ofSecond);
        }
    }

    const QImage& picture_;
    std::vector<Share> columns_;
    Row rows_[2];
};

}  // namespace

QImage Enlarge(const QImage& picture, const QSize& size) {
    if (picture.isNull() || picture.size() == size) return picture;
    const bool seeThrough = picture.hasAlphaChannel();
    // Colours may only be mixed after they are weighted by their opacity.
    const auto format = seeThrough ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
    const QImage source = picture.convertToFormat(format);
    QImage result(size, format);
    if (result.isNull()) return picture;
    WideRows wide(source, size.width());
    const std::vector<Share> rows = SharesOf(source.height(), size.height());
    const auto width = static_cast<size_t>(size.width());
    for (int y = 0; y < size.height(); ++y) {
        const Share& row = rows[static_cast<size_t>(y)];
        const std::uint32_t* first = wide.At(row.first);
        auto* out = reinterpret_cast<std::uint32_t*>(result.scanLine(y));
        if (row.ofSecond == 0) {
            std::copy_n(first, width, out);
            continue;
        }
        const std::uint32_t* second = wide.At(row.second);
        for (size_t x = 0; x < width; ++x) out[x] = Mix(first[x], second[x], row.ofSecond);
    }
    return result;
}

}  // namespace kvqt
