// Loading pictures and icons through the resources of this program.
#include <platform/resource/register.h>
#include <tests/platform/gdi/drawing.h>

#include <algorithm>
#include <cstring>

#include "tests/platform/support/compiled_file.h"

namespace kv::test {
namespace {

// 32 bits per pixel, one colour; an icon has a mask below its picture.
std::vector<BYTE> OneColor(int side, std::uint32_t pixel, bool isIcon) {
    const BITMAPINFOHEADER header{
        sizeof header, side, isIcon ? side * 2 : side, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    const std::vector<std::uint32_t> pixels(static_cast<std::size_t>(side * side), pixel);
    const std::size_t maskBytes =
        isIcon ? static_cast<std::size_t>((side + 31) / 32 * 4 * side) : 0;
    std::vector<BYTE> bytes(sizeof header + pixels.size() * 4 + maskBytes);
    std::memcpy(bytes.data(), &header, sizeof header);
    std::memcpy(bytes.data() + sizeof header, pixels.data(), pixels.size() * 4);
    return bytes;
}

class LoadImage : public ::testing::Test {
 protected:
    LoadImage() {
        constexpr WORD kBitmap = 2, kIcon = 3, kGroup = 14;
        resources.Add(CompiledFile::Id(kBitmap), CompiledFile::Id(500),
                      OneColor(6, 0x102030, false));
        std::vector<BYTE> cut = OneColor(6, 0x102030, false);
        cut.pop_back();
        resources.Add(CompiledFile::Id(kBitmap), CompiledFile::Id(501), cut);
        resources.Add(CompiledFile::Id(kIcon), CompiledFile::Id(1), OneColor(32, 0xFF0000FF, true));
        resources.Add(CompiledFile::Id(kIcon), CompiledFile::Id(2), OneColor(64, 0xFFFF0000, true));
        const std::vector<BYTE> group{0,  0,  1, 0, 2, 0,                           //
                                      32, 32, 0, 0, 1, 0, 32, 0, 0, 0, 0, 0, 1, 0,  //
                                      64, 64, 0, 0, 1, 0, 32, 0, 0, 0, 0, 0, 2, 0};
        resources.Add(CompiledFile::Id(kGroup), CompiledFile::Id(600), group);
        std::vector<BYTE> dangling = group;
        dangling[18] = dangling[32] = 9;  // no such picture
        resources.Add(CompiledFile::Id(kGroup), CompiledFile::Id(601), dangling);
        static const char anchor = 0;
        RegisterModuleResources(&anchor, resources.bytes.data(), resources.bytes.size());
    }
    ~LoadImage() override { UnregisterModuleResources(resources.bytes.data()); }

    CompiledFile resources;
};

TEST_F(LoadImage, BitmapsComeInTheirSizeOrScaled) {
    const HBITMAP bitmap = LoadBitmapA(nullptr, MAKEINTRESOURCEA(500));
    const auto scaled =
        static_cast<HBITMAP>(LoadImageA(nullptr, "#500", IMAGE_BITMAP, 13, 3, LR_DEFAULTCOLOR));
    ASSERT_TRUE(ViewOf(bitmap) && ViewOf(scaled));
    EXPECT_EQ(ViewOf(bitmap).width, 6);
    EXPECT_EQ(ViewOf(bitmap).Row(5)[5], 0x102030u);
    EXPECT_EQ(ViewOf(scaled).width, 13);
    EXPECT_EQ(ViewOf(scaled).Row(2)[12], 0x102030u);
    BITMAP record{};
    EXPECT_EQ(GetObjectA(bitmap, sizeof record, &record), static_cast<int>(sizeof record));
    EXPECT_EQ(record.bmHeight, 6);
    EXPECT_TRUE(DeleteObject(bitmap));
    EXPECT_TRUE(DeleteObject(scaled));
}

TEST_F(LoadImage, DrawingOnALoadedBitmapLeavesItsResourceAndEveryOtherBitmapAlone) {
    const auto load = [] { return LoadBitmapA(nullptr, MAKEINTRESOURCEA(500)); };
    const HBITMAP drawn = load(), other = load(), written = load();
    const HBRUSH brush = CreatePatternBrush(drawn);
    ViewOf(written).Row(0)[0] = 0x0A0B0C;
    const Drawing target(6, 6);
    {
        const HDC dc = CreateCompatibleDC(nullptr);
        const HGDIOBJ before = SelectObject(dc, drawn);
        EXPECT_TRUE(PatBlt(dc, 0, 0, 6, 6, WHITENESS));
        SelectObject(dc, before);
        DeleteDC(dc);
    }
    const RECT all{0, 0, 6, 6};
    FillRect(target.dc, &all, brush);
    const HBITMAP later = load();
    EXPECT_EQ(ViewOf(drawn).Row(3)[3] & 0xFFFFFF, 0xFFFFFFu);
    EXPECT_EQ(ViewOf(written).Row(0)[0], 0x0A0B0Cu);
    EXPECT_EQ(GetPixel(target.dc, 3, 3), RGB(0x10, 0x20, 0x30)) << "the brush was made before";
    for (const HBITMAP bitmap : {other, later}) {
        EXPECT_EQ(ViewOf(bitmap).Row(0)[0], 0x102030u);
        EXPECT_EQ(ViewOf(bitmap).Row(3)[3], 0x102030u);
    }
    for (const HGDIOBJ object :
         {HGDIOBJ(drawn), HGDIOBJ(other), HGDIOBJ(written), HGDIOBJ(later), HGDIOBJ(brush)}) {
        EXPECT_TRUE(DeleteObject(object));
    }
}

TEST_F(LoadImage, OtherResourcesAtTheSamePlaceAreDecodedAnew) {
    const HBITMAP before = LoadBitmapA(nullptr, MAKEINTRESOURCEA(500));
    UnregisterModuleResources(resources.bytes.data());
    // The same buffer, another colour: as when a module is loaded where another one lay.
    const std::vector<BYTE> old = OneColor(6, 0x102030, false), now = OneColor(6, 0x405060, false);
    const auto at =
        std::search(resources.bytes.begin(), resources.bytes.end(), old.begin(), old.end());
    ASSERT_NE(at, resources.bytes.end());
    std::copy(now.begin(), now.end(), at);
    static const char anchor = 0;
    RegisterModuleResources(&anchor, resources.bytes.data(), resources.bytes.size());
    const HBITMAP after = LoadBitmapA(nullptr, MAKEINTRESOURCEA(500));
    EXPECT_EQ(ViewOf(before).Row(0)[0], 0x102030u);
    EXPECT_EQ(ViewOf(after).Row(0)[0], 0x405060u);
    DeleteObject(before);
    DeleteObject(after);
}

TEST_F(LoadImage, IconsComeFromTheBestPictureOfTheirGroup) {
    const HICON ordinary = LoadIconA(nullptr, MAKEINTRESOURCEA(600));
    const HICON large = IconInSize(ordinary, 64, 64);
    const auto reduced = static_cast<HICON>(
        LoadImageA(nullptr, MAKEINTRESOURCEA(600), IMAGE_ICON, 48, 48, LR_DEFAULTCOLOR));
    ASSERT_TRUE(ViewOf(ordinary) && ViewOf(large) && ViewOf(reduced));
    EXPECT_EQ(ViewOf(ordinary).width, 32);
    EXPECT_EQ(ViewOf(ordinary).Row(0)[0], 0xFF0000FFu);
    EXPECT_EQ(ViewOf(large).width, 64);
    EXPECT_EQ(ViewOf(large).Row(0)[0], 0xFFFF0000u);
    EXPECT_EQ(ViewOf(reduced).width, 48);
    EXPECT_EQ(ViewOf(reduced).Row(20)[20], 0xFFFF0000u);
    for (const HICON icon : {ordinary, large, reduced}) EXPECT_TRUE(DestroyIcon(icon));
}

TEST_F(LoadImage, LoadIconSharesOneIconPerResource) {
    const HICON first = LoadIconA(nullptr, MAKEINTRESOURCEA(600));
    EXPECT_EQ(LoadIconA(nullptr, MAKEINTRESOURCEA(600)), first);
    EXPECT_TRUE(DestroyIcon(first));
    EXPECT_TRUE(ViewOf(first)) << "a shared icon outlives DestroyIcon";
    const HANDLE own =
        LoadImageA(nullptr, MAKEINTRESOURCEA(600), IMAGE_ICON, 32, 32, LR_DEFAULTCOLOR);
    EXPECT_NE(own, first);
    EXPECT_TRUE(DestroyIcon(static_cast<HICON>(own)));
    UnregisterModuleResources(resources.bytes.data());
    EXPECT_EQ(LoadIconA(nullptr, MAKEINTRESOURCEA(600)), nullptr);
}

TEST_F(LoadImage, MissingAndDamagedPicturesFail) {
    EXPECT_EQ(LoadBitmapA(nullptr, MAKEINTRESOURCEA(499)), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_RESOURCE_NAME_NOT_FOUND);
    EXPECT_EQ(LoadBitmapA(nullptr, MAKEINTRESOURCEA(501)), nullptr);
    EXPECT_EQ(GetLastError(), ERROR_RESOURCE_DATA_NOT_FOUND);
    EXPECT_EQ(LoadIconA(nullptr, MAKEINTRESOURCEA(500)), nullptr);
    EXPECT_EQ(LoadIconA(nullptr, MAKEINTRESOURCEA(601)), nullptr);
    EXPECT_EQ(LoadImageA(nullptr, MAKEINTRESOURCEA(500), IMAGE_BITMAP, 40000, 1, LR_DEFAULTCOLOR),
              nullptr);
    EXPECT_EQ(LoadImageA(nullptr, MAKEINTRESOURCEA(500), 7, 0, 0, LR_DEFAULTCOLOR), nullptr);
}

}  // namespace
}  // namespace kv::test
