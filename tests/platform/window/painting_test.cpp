// Invalid windows, their pictures, and who paints them.
#include <platform/window/paint.h>
#include <tests/platform/support/recorder.h>

namespace kv {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr COLORREF kRed = RGB(255, 0, 0);

class WindowPainting : public RecorderTest {
 protected:
    WindowPainting() {
        dc = CreateCompatibleDC(nullptr);
        bitmap = CreateBitmap(64, 64, 1, 32, nullptr);
        previous = SelectObject(dc, bitmap);
    }
    ~WindowPainting() override {
        SelectObject(dc, previous);
        DeleteDC(dc);
        DeleteObject(bitmap);
    }
    static void FillRed(HWND window) {
        PAINTSTRUCT paint{};
        const HDC target = BeginPaint(window, &paint);
        const HBRUSH brush = CreateSolidBrush(kRed);
        FillRect(target, &paint.rcPaint, brush);
        DeleteObject(brush);
        EndPaint(window, &paint);
    }
    HWND Control(HWND parent, const char* className, DWORD style) {
        return CreateWindowExA(0, className, "control", WS_CHILD | WS_VISIBLE | style, 0, 0, 8, 8,
                               parent, reinterpret_cast<HMENU>(5), nullptr, nullptr);
    }
    HBITMAP bitmap;
    HDC dc;
    HGDIOBJ previous;
};

// A parent that draws its children: red through WM_DRAWITEM, and the null brush for statics.
LRESULT DrawingParent(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DRAWITEM) {
        const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        SetPixel(item.hDC, item.rcItem.right - 1, 0, kRed);
        SetPixel(item.hDC, 0, 1, item.itemState | (item.CtlType << 8) | (item.itemID << 16));
        return TRUE;
    }
    if (message == WM_CTLCOLORSTATIC) {
        SetPixel(reinterpret_cast<HDC>(wParam), 0, 0, kRed);
        return reinterpret_cast<LRESULT>(GetStockObject(NULL_BRUSH));
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

TEST_F(WindowPainting, CustomWindowsPaintIntoTheGivenPictureOrTheirOwn) {
    const HWND window = TopLevel("custom");
    hook = [&](HWND target, UINT message) {
        if (message == WM_PAINT) FillRed(target);
    };
    EXPECT_EQ(PaintWindow(window, dc), Painting::kSelf);
    EXPECT_EQ(GetPixel(dc, 10, 10), kRed);
    TakeLog();
    UpdateWindow(window);
    EXPECT_THAT(TakeLog(), IsEmpty()) << "painted already";
    InvalidateRect(window, nullptr, FALSE);
    UpdateWindow(window);
    EXPECT_THAT(TakeLog(), ElementsAre("custom paint"));
    const HDC own = GetDC(window);
    EXPECT_EQ(GetPixel(own, 399, 299), kRed);
    EXPECT_TRUE(ReleaseDC(window, own));
    EXPECT_FALSE(ReleaseDC(window, dc));
}

TEST_F(WindowPainting, ParentsDrawTheirOwnerDrawnControls) {
    const HWND parent = TopLevel("parent");
    SetWindowLongPtrA(parent, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(DrawingParent));
    struct Case {
        const char* className;
        DWORD style;
        Painting painting;
        COLORREF marks;  // state, control type
    };
    const Case cases[] = {
        {"BUTTON", BS_OWNERDRAW, Painting::kOwnerDrawn, ODT_BUTTON << 8},
        {"BUTTON", BS_OWNERDRAW | WS_DISABLED, Painting::kOwnerDrawn,
         ODS_DISABLED | ODT_BUTTON << 8},
        {"STATIC", SS_OWNERDRAW, Painting::kOwnerDrawn, ODT_STATIC << 8},
        {"STATIC", SS_LEFT, Painting::kByParent, 0},
        {"BUTTON", BS_PUSHBUTTON, Painting::kPlain, 0},
        {"EDIT", 0, Painting::kPlain, 0},
    };
    for (const Case& c : cases) {
        PatBlt(dc, 0, 0, 64, 64, BLACKNESS);
        const HWND control = Control(parent, c.className, c.style);
        EXPECT_EQ(PaintWindow(control, dc), c.painting) << c.className << c.style;
        EXPECT_EQ(GetPixel(dc, 7, 0), c.painting == Painting::kOwnerDrawn ? kRed : 0);
        EXPECT_EQ(GetPixel(dc, 0, 1), c.marks) << c.className << c.style;
        EXPECT_EQ(GetPixel(dc, 0, 0), c.painting == Painting::kByParent ? kRed : 0);
        DestroyWindow(control);
    }
    const HWND combo = Control(parent, "COMBOBOX", CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED);
    const RECT area{0, 0, 8, 8};
    EXPECT_TRUE(PaintItem(combo, 3, dc, area, ODS_SELECTED));
    EXPECT_EQ(GetPixel(dc, 0, 1), ODS_SELECTED | ODT_COMBOBOX << 8 | 3u << 16);
    EXPECT_FALSE(PaintItem(Control(parent, "COMBOBOX", CBS_DROPDOWNLIST), 0, dc, area, 0));
}

// Each control asks its own question, and only what differs from the system's colours is a wish.
TEST_F(WindowPainting, ParentsChooseTheColoursOfTheirControls) {
    static UINT asked;
    static HBRUSH brush;
    const HWND top = TopLevel("top");
    const auto parent = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
        if (message < WM_CTLCOLOREDIT || message > WM_CTLCOLORSTATIC) {
            return DefWindowProcA(window, message, wParam, lParam);
        }
        asked = message;
        if (!brush) return DefWindowProcA(window, message, wParam, lParam);
        SetTextColor(reinterpret_cast<HDC>(wParam), kRed);
        return reinterpret_cast<LRESULT>(brush);
    };
    SetWindowLongPtrA(top, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(+parent));
    const struct {
        const char* className;
        DWORD style;
        UINT message;
    } controls[] = {
        {"EDIT", 0, WM_CTLCOLOREDIT},
        {"EDIT", ES_READONLY, WM_CTLCOLORSTATIC},
        {"EDIT", WS_DISABLED, WM_CTLCOLORSTATIC},
        {"LISTBOX", 0, WM_CTLCOLORLISTBOX},
        {"COMBOBOX", CBS_DROPDOWN, WM_CTLCOLOREDIT},
        {"STATIC", 0, WM_CTLCOLORSTATIC},
        {"BUTTON", BS_AUTOCHECKBOX, WM_CTLCOLORSTATIC},
        {"BUTTON", BS_OWNERDRAW, WM_CTLCOLORBTN},
        {"BUTTON", BS_PUSHBUTTON, 0},
    };
    const HBRUSH blue = CreateSolidBrush(RGB(0, 0, 255));
    for (const auto& row : controls) {
        SCOPED_TRACE(row.className + std::to_string(row.style));
        const HWND control = Control(top, row.className, row.style);
        for (const HBRUSH wanted : {HBRUSH{}, blue}) {
            asked = 0;
            brush = wanted;
            const ControlColors colors = ColorsOf(control);
            EXPECT_EQ(asked, row.message);
            const bool wishes = wanted && row.message != 0;
            EXPECT_EQ(colors.text, wishes ? std::optional<COLORREF>(kRed) : std::nullopt);
            EXPECT_EQ(colors.face, wishes ? std::optional<COLORREF>(RGB(0, 0, 255)) : std::nullopt);
        }
    }
    DeleteObject(blue);
}

TEST_F(WindowPainting, DisplayIsAskedOncePerPictureAndForWhatLiesInside) {
    const HWND parent = TopLevel("parent");
    const HWND child = Child(parent, "child");
    Child(parent, "hidden", 0, 0);
    hook = [&](HWND target, UINT message) {
        if (message == WM_PAINT) FillRed(target);
    };
    for (HWND window : {parent, child}) PaintWindow(window, dc);
    RecordingDisplay display;
    InvalidateRect(parent, nullptr, TRUE);
    InvalidateRect(parent, nullptr, TRUE);
    EXPECT_THAT(display.Take(), ElementsAre("invalidated parent", "invalidated child"));
    for (HWND window : {parent, child}) PaintWindow(window, dc);
    const RECT beside{200, 200, 210, 210};
    InvalidateRect(parent, &beside, TRUE);
    EXPECT_THAT(display.Take(), ElementsAre("invalidated parent"));
}

TEST_F(WindowPainting, RectangleAndColourHelpersKeepTheirRules) {
    RECT both{};
    const RECT a{0, 0, 10, 10};
    const RECT beside{10, 0, 20, 10};
    const RECT empty{5, 5, 5, 9};
    EXPECT_FALSE(IntersectRect(&both, &a, &beside)) << "touching edges share nothing";
    EXPECT_TRUE(IsRectEmpty(&both));
    EXPECT_FALSE(IntersectRect(&both, &a, &empty));
    EXPECT_TRUE(PtInRect(&a, {9, 0}));
    EXPECT_FALSE(PtInRect(&a, {10, 0}));
    EXPECT_EQ(GetSysColorBrush(COLOR_BTNFACE), GetSysColorBrush(COLOR_BTNFACE));
    EXPECT_EQ(GetSysColorBrush(-1), nullptr);
    EXPECT_EQ(GetSysColorBrush(1000), nullptr);
    // A set colour shows in brushes that were given out before.
    const INT index = COLOR_BTNFACE;
    const COLORREF before = GetSysColor(index);
    const COLORREF dark = RGB(40, 41, 42);
    EXPECT_TRUE(SetSysColors(1, &index, &dark));
    EXPECT_EQ(GetSysColor(index), dark);
    LOGBRUSH brush{};
    GetObjectA(GetSysColorBrush(index), sizeof brush, &brush);
    EXPECT_EQ(brush.lbColor, dark);
    EXPECT_TRUE(SetSysColors(1, &index, &before));
    EXPECT_FALSE(SetSysColors(1, nullptr, &before));
    EXPECT_EQ(SystemCursorId(LoadCursorA(nullptr, IDC_WAIT)), 32514u);
    EXPECT_EQ(LoadCursorA(nullptr, MAKEINTRESOURCEA(1)), nullptr);
}

}  // namespace
}  // namespace kv
