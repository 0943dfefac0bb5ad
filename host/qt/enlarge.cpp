// Enlarging by exact shares, row by row; see enlarge.h.
#include <host/qt/enlarge.h>

#include <algorithm>
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

// Pixel i of the result covers the stretch from i * from / to, to (i + 1) * from / to.
std::vector<Share> SharesOf(int from, int to) {
    std::vector<Share> shares(static_cast<size_t>(to));
    std::int64_t start = 0;
    for (Share& share : shares) {
        const std::int64_t end = start + from;
        share.first = static_cast<int>(start / to);
        share.second = std::min(share.first + 1, from - 1);
        const std::int64_t over = end - std::int64_t{share.first + 1} * to;
        if (over > 0) share.ofSecond = static_cast<unsigned>(over * kWhole / from);
        start = end;
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
