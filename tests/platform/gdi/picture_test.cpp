// Decoding pictures and icons, with every truncation and hostile headers; sections; drawing icons.
#include <platform/gdi/dib.h>
#include <tests/platform/gdi/drawing.h>

#include <climits>
#include <cstring>
#include <functional>
#include <memory>

namespace kv::test {
namespace {

// A packed DIB in exactly as many bytes as it needs, so that reading past it is caught.
struct Dib {
    BITMAPINFOHEADER header{sizeof(BITMAPINFOHEADER), 1, 1, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    std::vector<std::uint32_t> palette;
    std::vector<BYTE> bits;

    std::vector<BYTE> Bytes() const {
        std::vector<BYTE> bytes(sizeof header + palette.size() * 4);
        std::memcpy(bytes.data(), &header, sizeof header);
        if (!palette.empty()) {
            std::memcpy(bytes.data() + sizeof header, palette.data(), palette.size() * 4);
        }
        bytes.insert(bytes.end(), bits.begin(), bits.end());
        bytes.shrink_to_fit();
        return bytes;
    }
};

// Three by two pixels: red green blue over white black grey.
constexpr std::uint32_t kPicture[2][3] = {{0xFF0000, 0x00FF00, 0x0000FF},
                                          {0xFFFFFF, 0x000000, 0x808080}};

Dib MakePicture(int bitsPerPixel, bool topDown) {
    Dib dib;
    dib.header.biWidth = 3;
    dib.header.biHeight = topDown ? -2 : 2;
    dib.header.biBitCount = static_cast<WORD>(bitsPerPixel);
    const std::size_t rowBytes = DibRowBytes(3, bitsPerPixel);
    dib.bits.resize(rowBytes * 2);
    if (bitsPerPixel <= 8) {
        for (const auto& row : kPicture) dib.palette.insert(dib.palette.end(), row, row + 3);
        dib.palette.resize(std::size_t{1} << bitsPerPixel);
    }
    for (unsigned y = 0; y < 2; ++y) {
        BYTE* row = dib.bits.data() + rowBytes * (topDown ? y : 1 - y);
        for (unsigned x = 0; x < 3; ++x) {
            const unsigned index = y * 3 + x;
            if (bitsPerPixel == 4) {
                row[x / 2] |= static_cast<BYTE>(index << (x % 2 == 0 ? 4 : 0));
            } else if (bitsPerPixel == 8) {
                row[x] = static_cast<BYTE>(index);
            } else {
                std::memcpy(row + x * static_cast<unsigned>(bitsPerPixel) / 8, &kPicture[y][x],
                            static_cast<std::size_t>(bitsPerPixel) / 8);
            }
        }
    }
    return dib;
}

TEST(Pictures, EveryDepthAndDirectionDecodesAndEveryTruncationIsRefused) {
    for (const int depth : {4, 8, 24, 32}) {
        for (const bool topDown : {false, true}) {
            SCOPED_TRACE(::testing::Message() << depth << " bits, top down " << topDown);
            const std::vector<BYTE> bytes = MakePicture(depth, topDown).Bytes();
            const auto bitmap = DecodeDib(bytes);
            ASSERT_TRUE(bitmap);
            for (int y = 0; y < 2; ++y) {
                for (int x = 0; x < 3; ++x) EXPECT_EQ(bitmap->view.Row(y)[x], kPicture[y][x]);
            }
            for (std::size_t size = 0; size < bytes.size(); ++size) {
                const auto shorter = std::make_unique<BYTE[]>(size);  // exact, for the sanitizer
                std::copy_n(bytes.begin(), size, shorter.get());
                SetLastError(ERROR_SUCCESS);
                EXPECT_FALSE(DecodeDib({shorter.get(), size})) << size << " bytes";
                EXPECT_EQ(GetLastError(), ERROR_RESOURCE_DATA_NOT_FOUND);
            }
        }
    }
}

TEST(Pictures, OneBitBlackAndWhiteIsMonochromeOtherColoursAreNot) {
    Dib dib;
    dib.header.biWidth = 10;
    dib.header.biBitCount = 1;
    dib.bits = {0x55, 0x40, 0, 0};
    for (const bool colored : {false, true}) {
        dib.palette = {0x000000, colored ? 0x00FF00u : 0xFFFFFFu};
        const auto bitmap = DecodeDib(dib.Bytes());
        ASSERT_TRUE(bitmap);
        EXPECT_EQ(bitmap->monochrome, !colored);
        for (int x = 0; x < 10; ++x) EXPECT_EQ(bitmap->view.Row(0)[x], dib.palette[x % 2]) << x;
    }
}

TEST(Pictures, HostileHeadersAreRefused) {
    using Header = BITMAPINFOHEADER;
    const std::function<void(Header&)> kDamages[] = {
        [](Header& h) { h.biSize = 0; },
        [](Header& h) { h.biSize = 0xFFFFFFFF; },
        [](Header& h) { h.biWidth = 0; },
        [](Header& h) { h.biWidth = -3; },
        [](Header& h) { h.biWidth = INT_MAX; },
        [](Header& h) { h.biHeight = 0; },
        [](Header& h) { h.biHeight = INT_MIN; },
        [](Header& h) { h.biHeight = INT_MAX; },
        [](Header& h) { h.biWidth = h.biHeight = kMaxSide; },
        [](Header& h) { h.biBitCount = 0; },
        [](Header& h) { h.biBitCount = 16; },
        [](Header& h) { h.biBitCount = 0xFFFF; },
        [](Header& h) { h.biCompression = 1; },
        [](Header& h) { h.biClrUsed = 257; },
        [](Header& h) { h.biClrUsed = 0xFFFFFFFF; },
    };
    int index = 0;
    for (const auto& damage : kDamages) {
        Dib dib = MakePicture(8, false);
        damage(dib.header);
        EXPECT_FALSE(DecodeDib(dib.Bytes())) << index;
        EXPECT_FALSE(DecodeIconDib(dib.Bytes())) << index++;
    }
}

TEST(Pictures, RandomBytesNeverReachPastTheirEnd) {
    KV_RANDOM(random);
    for (int round = 0; round < 3000; ++round) {
        std::vector<BYTE> bytes = MakePicture(std::array{4, 8, 24, 32}[round % 4], false).Bytes();
        for (int change = 0; change < 3; ++change) {
            bytes[random() % bytes.size()] = static_cast<BYTE>(random());
        }
        bytes.resize(bytes.size() - random() % 20);
        bytes.shrink_to_fit();
        DecodeDib(bytes);
        DecodeIconDib(bytes);
        ChooseIcon(bytes, 32);
    }
}

// An icon of 2 x 2: colour rows over mask rows, bottom up.
Dib MakeIcon(int bitsPerPixel, const std::vector<std::uint32_t>& pixels, BYTE topMask,
             BYTE bottomMask) {
    Dib dib;
    dib.header.biWidth = 2;
    dib.header.biHeight = 4;
    dib.header.biBitCount = static_cast<WORD>(bitsPerPixel);
    const std::size_t rowBytes = DibRowBytes(2, bitsPerPixel);
    dib.bits.resize(rowBytes * 2 + 8);
    for (std::size_t i = 0; i < 4; ++i) {
        std::memcpy(dib.bits.data() + (1 - i / 2) * rowBytes +
                        i % 2 * static_cast<std::size_t>(bitsPerPixel) / 8,
                    &pixels[i], static_cast<std::size_t>(bitsPerPixel) / 8);
    }
    dib.bits[rowBytes * 2] = bottomMask;
    dib.bits[rowBytes * 2 + 4] = topMask;
    return dib;
}

TEST(Icons, TheMaskDecidesUnlessThereIsAlpha) {
    const std::vector<std::uint32_t> colors{1, 2, 3, 4};
    auto icon = DecodeIconDib(MakeIcon(24, colors, 0x80, 0x40).Bytes());
    ASSERT_TRUE(icon);
    EXPECT_EQ(icon->view.height, 2);
    EXPECT_EQ(icon->view.Row(0)[0], 1u);  // transparent
    EXPECT_EQ(icon->view.Row(0)[1], 0xFF000002u);
    EXPECT_EQ(icon->view.Row(1)[0], 0xFF000003u);
    EXPECT_EQ(icon->view.Row(1)[1], 4u);

    const std::vector<std::uint32_t> withAlpha{0x80000001, 2, 3, 0xFF000004};
    icon = DecodeIconDib(MakeIcon(32, withAlpha, 0xFF, 0xFF).Bytes());
    ASSERT_TRUE(icon);
    EXPECT_EQ(icon->view.Row(0)[0], 0x80000001u);
    EXPECT_EQ(icon->view.Row(0)[1], 2u);
}

TEST(Icons, GroupsServeTheBestSizeAndDepth) {
    std::vector<BYTE> group{0, 0, 1, 0, 4, 0};
    const auto add = [&](BYTE size, BYTE depth, BYTE id) {
        group.insert(group.end(), {size, size, 0, 0, 1, 0, depth, 0, 0, 0, 0, 0, id, 0});
    };
    add(32, 4, 1);
    add(32, 32, 2);
    add(16, 32, 3);
    add(64, 32, 4);
    EXPECT_EQ(ChooseIcon(group, 32), 2u);
    EXPECT_EQ(ChooseIcon(group, 64), 4u);
    EXPECT_EQ(ChooseIcon(group, 48), 4u);   // rather reduced than enlarged
    EXPECT_EQ(ChooseIcon(group, 128), 4u);  // nothing is large enough
    EXPECT_EQ(ChooseIcon(group, 8), 3u);
    EXPECT_EQ(ChooseIcon(std::span(group).first(6 + 14 + 3), 64), 1u);  // cut within an entry
    EXPECT_EQ(ChooseIcon(std::span(group).first(6), 32), 0u);
}

TEST(Icons, DrawBlendedScaledAndClipped) {
    auto icon = std::make_unique<Icon>();
    icon->memory = AllocatePixels(2, 2);
    icon->view = {icon->memory.get(), 2, 2, 2};
    std::fill_n(icon->memory.get(), 4, 0xFFFF0000u);
    icon->memory[1] = 0x0000FF00;
    icon->memory[2] = 0x80FFFFFF;
    const HICON handle = NewHandle<HICON>(std::move(icon));
    Drawing target(6, 6);
    EXPECT_TRUE(DrawIcon(target.dc, 1, 1, handle));
    EXPECT_EQ(target.At(1, 1), 0xFF0000u);
    EXPECT_EQ(target.At(2, 1), 0u);
    EXPECT_EQ(target.At(1, 2), 0x808080u);
    EXPECT_TRUE(
        DrawIconEx(target.dc, 0, 0, handle, 4, 4, 0, Stock<HBRUSH>(WHITE_BRUSH), DI_NORMAL));
    EXPECT_EQ(target.At(0, 0), 0xFF0000u);
    EXPECT_EQ(target.At(3, 0), 0xFFFFFFu);  // transparent over the brush, not green
    EXPECT_EQ(target.At(4, 0), 0u);
    for (const int at : {INT_MIN, -1, 5, INT_MAX}) EXPECT_TRUE(DrawIcon(target.dc, at, at, handle));
    EXPECT_FALSE(DrawIconEx(target.dc, 0, 0, handle, -1, 4, 0, nullptr, DI_NORMAL));
    EXPECT_TRUE(DestroyIcon(handle));
    EXPECT_FALSE(DestroyIcon(handle));
}

TEST(Sections, SeeTheCallersBitsAndGiveDrawingBack) {
    for (const int depth : {4, 8, 24, 32}) {
        for (const bool topDown : {false, true}) {
            SCOPED_TRACE(::testing::Message() << depth << " bits, top down " << topDown);
            const Dib dib = MakePicture(depth, topDown);
            std::vector<BYTE> info = dib.Bytes();
            void* bits = nullptr;
            const HBITMAP section =
                CreateDIBSection(nullptr, reinterpret_cast<const BITMAPINFO*>(info.data()),
                                 DIB_RGB_COLORS, &bits, nullptr, 0);
            ASSERT_NE(bits, nullptr);
            std::memcpy(bits, dib.bits.data(), dib.bits.size());
            const HDC dc = CreateCompatibleDC(nullptr);
            const HGDIOBJ initial = SelectObject(dc, section);
            EXPECT_EQ(GetPixel(dc, 2, 0), RGB(0, 0, 255));
            EXPECT_EQ(GetPixel(dc, 2, 1), RGB(128, 128, 128));
            SetPixel(dc, 0, 1, RGB(0, 255, 0));
            const SurfaceView view = ViewOf(section);
            EXPECT_EQ(view.Row(1)[0], 0x00FF00u);
            std::vector<BYTE> expected = dib.bits;
            const std::size_t row = DibRowBytes(3, depth) * (topDown ? 1 : 0);
            if (depth == 4) expected[row] = 0x14;
            if (depth == 8) expected[row] = 1;
            if (depth >= 24) std::memcpy(expected.data() + row, &kPicture[0][1], 3);
            EXPECT_EQ(std::memcmp(bits, expected.data(), expected.size()), 0);
            SelectObject(dc, initial);
            DeleteDC(dc);
            EXPECT_TRUE(DeleteObject(section));
        }
    }
}

}  // namespace
}  // namespace kv::test
