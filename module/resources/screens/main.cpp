// Makes the halftone screens at build time: kvscreens FOLDER writes one file per screen and
// screens.rc, which names them for the resource compiler.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <numeric>
#include <string>
#include <vector>

namespace {

constexpr int kPlanes = 4;  // cyan, magenta, yellow, black
constexpr int kPercent = 100;
constexpr double kPi = 3.14159265358979323846;

// A rank per pixel: in which order the pixels of a tile are printed as the tone grows.
struct Tile {
    int width;
    int height;
    std::vector<int> ranks;
};

// Dots that grow in cells, one cell vector per plane: its angles of 18.4, 71.6, 0 and 45 degrees
// keep the planes from beating against each other.
constexpr struct {
    int x;
    int y;
} kCells[kPlanes] = {{6, 2}, {2, 6}, {6, 0}, {4, 4}};

// The smallest square that the cells of a plane fill without a seam.
int TileSide(int plane) {
    const int x = kCells[plane].x;
    const int y = kCells[plane].y;
    return (x * x + y * y) / std::gcd(x, y);
}

// `aspect` is the pixels across in percent of those down; the dots stay round on paper.
Tile ClusteredTile(int plane, int aspect) {
    const int side = TileSide(plane);
    Tile tile{side * aspect / kPercent, side, {}};
    const double a = kCells[plane].x;
    const double b = kCells[plane].y;
    const int count = tile.width * tile.height;
    std::vector<long long> darkness(count);
    for (int i = 0; i < count; ++i) {
        const double x = (i % tile.width + 0.5) * kPercent / aspect;
        const double y = i / tile.width + 0.5;
        const double u = (a * x + b * y) / (a * a + b * b);
        const double v = (a * y - b * x) / (a * a + b * b);
        const double spot = std::cos(2 * kPi * u) + std::cos(2 * kPi * v);
        // Rounded, so that equal places of the cells are equal; then the cells take turns.
        darkness[i] =
            std::llround(spot * 1e6) * count + (i % tile.width * 7 + i / tile.width * 11) % count;
    }
    std::vector<int> order(count);
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&](int p, int q) { return darkness[p] > darkness[q]; });
    tile.ranks.resize(count);
    for (int rank = 0; rank < count; ++rank) tile.ranks[order[rank]] = rank;
    return tile;
}

// Single pixels as far from each other as possible (Bayer's order of 16 x 16), turned plane by
// plane.
Tile DispersedTile(int plane, int /*aspect*/) {
    constexpr int kSide = 16;
    Tile tile{kSide, kSide, std::vector<int>(kSide * kSide)};
    for (int i = 0; i < kSide * kSide; ++i) {
        int x = i % kSide;
        int y = i / kSide;
        if (plane == 1) x = kSide - 1 - x;
        if (plane == 2) y = kSide - 1 - y;
        if (plane == 3) std::swap(x, y);
        int rank = 0;
        for (int bit = 1; bit < kSide; bit *= 2) {
            const int across = (x & bit) != 0;
            const int down = (y & bit) != 0;
            rank = rank * 4 + (across ^ down) * 2 + down;
        }
        tile.ranks[i] = rank;
    }
    return tile;
}

// The tone from which on a pixel prints, 1 to 255. Printed dots grow by `gain` percent in the
// middle tones, so a pixel waits for the tone that its dots will look like.
int Threshold(int rank, int count, int gain) {
    const double area = (rank + 1.0) / count;
    const double tone = area + 4.0 * gain / kPercent * area * (1 - area);
    return std::clamp(static_cast<int>(std::lround(tone * 255)), 1, 255);
}

void PutWord(std::vector<unsigned char>& bytes, unsigned value, int width) {
    for (int i = 0; i < width; ++i) bytes.push_back(static_cast<unsigned char>(value >> (8 * i)));
}

std::vector<unsigned char> ScreenBytes(const Tile& tile, int gain) {
    std::vector<unsigned char> bytes = {'T', 'R', 'C', '1'};
    PutWord(bytes, tile.width, 2);
    PutWord(bytes, tile.height, 2);
    const int count = static_cast<int>(tile.ranks.size());
    for (const int rank : tile.ranks) PutWord(bytes, Threshold(rank, count, gain), 1);
    return bytes;
}

struct Pattern {
    char digit;  // of the dither parameter
    Tile (*tile)(int plane, int aspect);
    std::vector<int> gains;  // the dot gains that the printer description gives the pattern
    unsigned componentReplacement;
    unsigned blackGeneration;
};

// digit, order of the pixels, dot gains, grey component replacement, black generation
const Pattern kPatterns[] = {
    {'C', ClusteredTile, {14, 18}, 50, 50},
    {'F', DispersedTile, {24}, 80, 70},
};
// A record's cell size is 8 after the choice of a halftone and 2 after that of a resolution.
constexpr char kCellDigits[] = {'8', '2'};
constexpr int kAspects[] = {100, 200, 400};

class Writer {
 public:
    explicit Writer(std::string folder)
        : folder_(std::move(folder)), script_(std::fopen((folder_ + "/screens.rc").c_str(), "w")) {
        good_ = script_ != nullptr;
    }
    bool Finish() { return good_ && std::fclose(script_) == 0; }

    // One file, and one resource of it per cell size: "dQDT", "A", pattern, cell digit, "8" ...
    void Put(const Pattern& pattern, int plane, const std::string& suffix, const char* type,
             const std::vector<unsigned char>& bytes) {
        if (!good_) return;
        const std::string tail = std::to_string(plane) + suffix;
        const std::string name = std::string("screen_") + pattern.digit + tail + "." + type;
        std::FILE* file = std::fopen((folder_ + "/" + name).c_str(), "wb");
        good_ = file && std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
        if (file) good_ = std::fclose(file) == 0 && good_;
        for (const char cell : kCellDigits) {
            std::fprintf(script_, "dQDTA%c8%c%s %s \"%s\"\n", pattern.digit, cell, tail.c_str(),
                         type, name.c_str());
        }
    }

 private:
    std::string folder_;
    std::FILE* script_;
    bool good_;
};

bool WriteAll(const std::string& folder) {
    Writer writer(folder);
    for (const Pattern& pattern : kPatterns) {
        for (int plane = 0; plane < kPlanes; ++plane) {
            // The short name serves every gain and aspect that has no screen of its own.
            writer.Put(pattern, plane, "", "TRC", ScreenBytes(pattern.tile(plane, kPercent), 0));
            for (const int gain : pattern.gains) {
                for (const int aspect : kAspects) {
                    const std::string suffix =
                        "_D" + std::to_string(gain) + "_A" + std::to_string(aspect);
                    writer.Put(pattern, plane, suffix, "TRC",
                               ScreenBytes(pattern.tile(plane, aspect), gain));
                }
            }
        }
        std::vector<unsigned char> grey;
        PutWord(grey, pattern.componentReplacement, 4);
        PutWord(grey, pattern.blackGeneration, 4);
        writer.Put(pattern, kPlanes - 1, "", "GCRBG", grey);
    }
    return writer.Finish();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: kvscreens FOLDER\n");
        return 2;
    }
    if (!WriteAll(argv[1])) {
        std::fprintf(stderr, "kvscreens: cannot write the screens to %s\n", argv[1]);
        return 1;
    }
    return 0;
}
