// Handles and DC state: stale handles, selection rules, saved states, clip boxes.
#include <platform/gdi/handles.h>
#include <tests/platform/gdi/drawing.h>

#include <functional>

namespace kv::test {
namespace {

TEST(Handles, StaleAndForeignHandlesFailWithInvalidHandle) {
    Drawing drawing(4, 4);
    const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
    ASSERT_TRUE(DeleteObject(brush));
    const HBRUSH another = CreateSolidBrush(RGB(4, 5, 6));  // likely in the same place of the table
    EXPECT_NE(brush, another);
    const HDC deadDc = CreateCompatibleDC(nullptr);
    DeleteDC(deadDc);
    const RECT rect{0, 0, 4, 4};
    POINT point{};
    SIZE size{};
    LOGBRUSH record{};
    const auto text = "x";
    RECT box = rect;
    const std::function<bool()> kCalls[] = {
        [&] { return DeleteObject(brush) != 0; },
        [&] { return SelectObject(drawing.dc, brush) != nullptr; },
        [&] { return FillRect(drawing.dc, &rect, brush) != 0; },
        [&] { return GetObjectA(brush, sizeof record, &record) != 0; },
        [&] { return CreatePatternBrush(reinterpret_cast<HBITMAP>(another)) != nullptr; },
        [&] { return static_cast<bool>(ViewOf(reinterpret_cast<HBITMAP>(another))); },
        [&] { return DeleteDC(deadDc) != 0; },
        [&] { return DeleteDC(reinterpret_cast<HDC>(brush)) != 0; },
        [&] { return DeleteObject(reinterpret_cast<HGDIOBJ>(drawing.dc)) != 0; },
        [&] { return DeleteObject(reinterpret_cast<HGDIOBJ>(&point)) != 0; },
        [&] { return DestroyIcon(reinterpret_cast<HICON>(another)) != 0; },
        [&] { return BitBlt(deadDc, 0, 0, 1, 1, drawing.dc, 0, 0, SRCCOPY) != 0; },
        [&] { return BitBlt(drawing.dc, 0, 0, 1, 1, deadDc, 0, 0, SRCCOPY) != 0; },
        [&] { return BitBlt(drawing.dc, 0, 0, 1, 1, nullptr, 0, 0, SRCCOPY) != 0; },
        [&] { return StretchBlt(drawing.dc, 0, 0, 1, 1, deadDc, 0, 0, 2, 2, SRCCOPY) != 0; },
        [&] { return PatBlt(deadDc, 0, 0, 1, 1, WHITENESS) != 0; },
        [&] { return LineTo(deadDc, 1, 1) != 0; },
        [&] { return TextOutA(deadDc, 0, 0, text, 1) != 0; },
        [&] { return DrawTextA(deadDc, text, 1, &box, 0) != 0; },
        [&] { return GetTextExtentPoint32A(deadDc, text, 1, &size) != 0; },
        [&] { return SaveDC(deadDc) != 0; },
        [&] { return RestoreDC(deadDc, -1) != 0; },
        [&] { return SetTextColor(deadDc, 0) != CLR_INVALID; },
        [&] { return GetPixel(deadDc, 0, 0) != CLR_INVALID; },
        [&] { return CreateCompatibleBitmap(deadDc, 1, 1) != nullptr; },
        [&] { return SelectClipRgn(drawing.dc, reinterpret_cast<HRGN>(another)) != RGN_ERROR; },
    };
    int index = 0;
    for (const auto& call : kCalls) {
        SetLastError(ERROR_SUCCESS);
        EXPECT_FALSE(call()) << "call " << index;
        EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE) << "call " << index;
        ++index;
    }
    EXPECT_TRUE(DeleteObject(another));
}

TEST(Objects, ABitmapIsCompatibleWithWhatItsDcHolds) {
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const auto depth = [](HBITMAP bitmap) {
        BITMAP record{};
        GetObjectA(bitmap, sizeof record, &record);
        DeleteObject(bitmap);
        return record.bmBitsPixel;
    };
    EXPECT_EQ(depth(CreateCompatibleBitmap(memory, 8, 8)), 1);
    EXPECT_EQ(depth(CreateCompatibleBitmap(screen, 8, 8)), 32);
    const HBITMAP colored = CreateCompatibleBitmap(screen, 1, 1);
    const HGDIOBJ before = SelectObject(memory, colored);
    EXPECT_EQ(depth(CreateCompatibleBitmap(memory, 8, 8)), 32);
    SelectObject(memory, before);
    DeleteObject(colored);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
}

TEST(Objects, SelectedObjectsCannotBeDeletedAndStockObjectsNever) {
    Drawing drawing(2, 2);
    const HBRUSH brush = CreateSolidBrush(RGB(5, 5, 5));
    const HGDIOBJ previous = SelectObject(drawing.dc, brush);
    EXPECT_EQ(previous, GetStockObject(WHITE_BRUSH));
    EXPECT_FALSE(DeleteObject(brush));
    EXPECT_FALSE(DeleteObject(drawing.bitmap));
    EXPECT_EQ(SelectObject(drawing.dc, previous), brush);
    EXPECT_TRUE(DeleteObject(brush));
    EXPECT_TRUE(DeleteObject(GetStockObject(WHITE_BRUSH)));
    EXPECT_EQ(SelectObject(drawing.dc, GetStockObject(WHITE_BRUSH)), previous);
    EXPECT_EQ(GetStockObject(1000), nullptr);
    EXPECT_EQ(GetStockObject(-1), nullptr);
}

TEST(Objects, ABitmapIsSelectedIntoOneDcAtATime) {
    Drawing drawing(2, 2);
    const HDC other = CreateCompatibleDC(nullptr);
    EXPECT_EQ(SelectObject(other, drawing.bitmap), nullptr);
    EXPECT_NE(SelectObject(drawing.dc, drawing.bitmap), nullptr);
    DeleteDC(other);
}

TEST(Objects, NothingIsLeftAfterTheirOwnersDeletedThem) {
    { const Drawing warmUp(1, 1); }
    const int before = CountObjects();
    {
        Drawing drawing(3, 3);
        const HBRUSH brush = CreatePatternBrush(drawing.bitmap);
        const HPEN pen = CreatePen(PS_SOLID, 2, 0);
        SelectObject(drawing.dc, brush);
        SelectObject(drawing.dc, pen);
        const HDC dc = drawing.dc;
        DeleteDC(dc);  // releases what was selected
        EXPECT_TRUE(DeleteObject(brush));
        EXPECT_TRUE(DeleteObject(pen));
    }
    EXPECT_EQ(CountObjects(), before);
}

TEST(SavedStates, RestoreBringsBackEverythingThatWasSet) {
    Drawing drawing(10, 10);
    SetTextColor(drawing.dc, RGB(1, 1, 1));
    MoveToEx(drawing.dc, 3, 4, nullptr);
    ASSERT_EQ(SaveDC(drawing.dc), 1);
    const HBRUSH brush = CreateSolidBrush(0);
    SelectObject(drawing.dc, brush);
    SetTextColor(drawing.dc, RGB(2, 2, 2));
    SetBkMode(drawing.dc, TRANSPARENT);
    IntersectClipRect(drawing.dc, 2, 2, 4, 4);
    MoveToEx(drawing.dc, 0, 0, nullptr);
    ASSERT_EQ(SaveDC(drawing.dc), 2);
    EXPECT_TRUE(RestoreDC(drawing.dc, 1));
    EXPECT_EQ(SetTextColor(drawing.dc, 0), RGB(1, 1, 1));
    EXPECT_EQ(SetBkMode(drawing.dc, OPAQUE), OPAQUE);
    EXPECT_TRUE(DeleteObject(brush));
    POINT position{};
    MoveToEx(drawing.dc, 0, 0, &position);
    EXPECT_EQ(position.x, 3);
    RECT box{};
    EXPECT_EQ(GetClipBox(drawing.dc, &box), SIMPLEREGION);
    EXPECT_EQ(box.right, 10);
    for (const int level : {-1, 0, 1, 2, 99, -99}) EXPECT_FALSE(RestoreDC(drawing.dc, level));
}

TEST(SavedStates, ObjectsDeletedMeanwhileAreReplacedByStockOnes) {
    Drawing drawing(2, 2);
    const HBRUSH brush = CreateSolidBrush(0);
    const HGDIOBJ previous = SelectObject(drawing.dc, brush);
    SaveDC(drawing.dc);
    SelectObject(drawing.dc, previous);
    ASSERT_TRUE(DeleteObject(brush));
    EXPECT_TRUE(RestoreDC(drawing.dc, -1));
    EXPECT_EQ(SelectObject(drawing.dc, previous), GetStockObject(WHITE_BRUSH));
}

TEST(ClipRegion, ClipsReplacesAndResets) {
    Drawing drawing(10, 10);
    const RECT area{4, 4, 20, 20};
    SetDcArea(drawing.dc, &area);
    const HRGN region = CreateRectRgn(3, 5, 1, -2);  // corners in any order
    EXPECT_EQ(SelectClipRgn(drawing.dc, region), SIMPLEREGION);
    EXPECT_TRUE(DeleteObject(region));
    RECT box{};
    GetClipBox(drawing.dc, &box);
    EXPECT_EQ(box.left, 1);
    EXPECT_EQ(box.top, 0);  // the area ends there
    EXPECT_EQ(box.right, 3);
    EXPECT_EQ(box.bottom, 5);
    EXPECT_EQ(IntersectClipRect(drawing.dc, 3, 0, 9, 9), NULLREGION);
    EXPECT_EQ(SetPixel(drawing.dc, 1, 1, RGB(1, 1, 1)), CLR_INVALID);
    EXPECT_EQ(SelectClipRgn(drawing.dc, nullptr), SIMPLEREGION);
    EXPECT_EQ(SetPixel(drawing.dc, 1, 1, RGB(1, 1, 1)), RGB(1, 1, 1));
    EXPECT_EQ(drawing.At(5, 5), 0x010101u);
    EXPECT_EQ(SetPixel(drawing.dc, -1, 0, 0), CLR_INVALID);
}

}  // namespace
}  // namespace kv::test
