// Pictures of windows: what is seen of a control's state, scale, mirroring, texts without room, and
// the files of `kvprefs shot`.
#include <commctrl.h>
#include <gtest/gtest.h>
#include <test_paths.h>
#include <host/picture/picture_fonts.h>
#include <host/picture/png_writer.h>
#include <host/picture/window_picture.h>
#include <png.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using namespace kvhost;

constexpr PictureOptions kPlain{};
constexpr PictureOptions kMirrored{1, Reading::kRightToLeft};
constexpr int kId = 700;

class Pictures : public testing::Test {
   protected:
    void SetUp() override {
        std::string error;
        ASSERT_TRUE(UsePictureFonts(error)) << error;
        WNDCLASSA plain{};
        plain.lpfnWndProc = DefWindowProcA;
        plain.lpszClassName = "PictureTest";
        RegisterClassA(&plain);
        window_ = CreateWindowExA(0, "PictureTest", "Title", WS_POPUP | WS_VISIBLE, 0, 0, 240, 120,
                                  nullptr, nullptr, nullptr, nullptr);
        ASSERT_NE(window_, nullptr);
    }
    void TearDown() override { DestroyWindow(window_); }

    HWND Add(const char* className, const char* text, DWORD style, RECT place = {20, 20, 120, 44}) {
        const HWND control = CreateWindowExA(
            0, className, text, WS_CHILD | WS_VISIBLE | style, place.left, place.top,
            place.right - place.left, place.bottom - place.top, window_,
            reinterpret_cast<HMENU>(static_cast<INT_PTR>(kId)), nullptr, nullptr);
        EXPECT_NE(control, nullptr) << className;
        return control;
    }

    HWND window_{};
};

// The box around all pixels in which two pictures differ; empty when they are equal.
RECT Difference(const Picture& left, const Picture& right) {
    RECT box{left.width, left.height, 0, 0};
    for (int y = 0; y < left.height; ++y) {
        for (int x = 0; x < left.width; ++x) {
            if (left.At(x, y) == right.At(x, y)) continue;
            box = {std::min<LONG>(box.left, x), std::min<LONG>(box.top, y),
                   std::max<LONG>(box.right, x + 1), std::max<LONG>(box.bottom, y + 1)};
        }
    }
    return box;
}

// The columns in which a colour is seen.
std::pair<int, int> ColumnsOf(const Picture& picture, std::uint32_t color) {
    std::pair<int, int> columns{picture.width, -1};
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            if (picture.At(x, y) != color) continue;
            columns = {std::min(columns.first, x), std::max(columns.second, x)};
        }
    }
    return columns;
}

struct Visible {
    const char* what;
    const char* className;
    DWORD style;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

LPARAM Pointer(const char* text) { return reinterpret_cast<LPARAM>(text); }

TEST_F(Pictures, ControlsHaveTheColoursThatTheirParentWants) {
    static HBRUSH brush;
    brush = CreateSolidBrush(RGB(255, 255, 0));
    const auto procedure = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
        if (message != WM_CTLCOLOREDIT && message != WM_CTLCOLORSTATIC) {
            return DefWindowProcA(window, message, wParam, lParam);
        }
        SetTextColor(reinterpret_cast<HDC>(wParam), RGB(200, 0, 0));
        return reinterpret_cast<LRESULT>(brush);
    };
    SetWindowLongPtrA(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(+procedure));
    const std::pair<const char*, DWORD> controls[] = {
        {"EDIT", WS_BORDER}, {"EDIT", 0}, {"STATIC", 0}, {"BUTTON", BS_AUTOCHECKBOX}};
    for (const auto& [className, style] : controls) {
        const HWND control = Add(className, "HHHH", style);
        const Picture picture = DrawWindow(window_, kPlain);
        EXPECT_GE(ColumnsOf(picture, 0xFFFF00).second, 100) << className << style;
        EXPECT_GE(ColumnsOf(picture, 0xC80000).second, 20) << className << style;
        DestroyWindow(control);
    }
    DeleteObject(brush);
}

TEST_F(Pictures, EveryStateOfAControlIsSeenInItsPlaceOnly) {
    const Visible kStates[] = {
        {"caption", "BUTTON", BS_PUSHBUTTON, WM_SETTEXT, 0, Pointer("Other")},
        {"pushed", "BUTTON", BS_PUSHBUTTON, BM_SETSTATE, 1, 0},
        {"default", "BUTTON", BS_PUSHBUTTON, BM_SETSTYLE, BS_DEFPUSHBUTTON, 0},
        {"checked", "BUTTON", BS_AUTOCHECKBOX, BM_SETCHECK, BST_CHECKED, 0},
        {"chosen", "BUTTON", BS_AUTORADIOBUTTON, BM_SETCHECK, BST_CHECKED, 0},
        {"group", "BUTTON", BS_GROUPBOX, WM_SETTEXT, 0, Pointer("Other")},
        {"text", "STATIC", SS_LEFT, WM_SETTEXT, 0, Pointer("Other")},
        {"typed", "EDIT", WS_BORDER, WM_SETTEXT, 0, Pointer("Other")},
        {"entry", "COMBOBOX", CBS_DROPDOWNLIST, CB_SETCURSEL, 1, 0},
        {"selection", "LISTBOX", WS_BORDER, LB_SETCURSEL, 1, 0},
        {"position", TRACKBAR_CLASSA, TBS_AUTOTICKS, TBM_SETPOS, TRUE, 60},
        {"upright", TRACKBAR_CLASSA, TBS_VERT, TBM_SETPOS, TRUE, 60},
    };
    for (const Visible& state : kStates) {
        SCOPED_TRACE(state.what);
        const HWND control = Add(state.className, "Text", state.style);
        for (const char* entry : {"First", "Second"}) {
            SendMessageA(control, CB_ADDSTRING, 0, Pointer(entry));
            SendMessageA(control, LB_ADDSTRING, 0, Pointer(entry));
        }
        const Picture before = DrawWindow(window_, kPlain);
        SendMessageA(control, state.message, state.wParam, state.lParam);
        const Picture after = DrawWindow(window_, kPlain);
        const RECT box = Difference(before, after);
        const RECT place = PlaceInPicture(window_, control, kPlain);
        EXPECT_LT(box.left, box.right) << "nothing to be seen";
        EXPECT_GE(box.left, place.left);
        EXPECT_GE(box.top, place.top);
        EXPECT_LE(box.right, place.right);
        EXPECT_LE(box.bottom, place.bottom);

        EnableWindow(control, FALSE);
        const RECT faint = Difference(after, DrawWindow(window_, kPlain));
        EXPECT_LT(faint.left, faint.right) << "disabled looks like enabled";
        ShowWindow(control, SW_HIDE);
        DestroyWindow(control);
    }
}

TEST_F(Pictures, ScaleMultipliesSizeAndPlaces) {
    const HWND check = Add("BUTTON", "", BS_AUTOCHECKBOX, {20, 20, 33, 33});
    SendMessageA(check, BM_SETCHECK, BST_CHECKED, 0);
    const Picture one = DrawWindow(window_, kPlain);
    const auto [left, right] = ColumnsOf(one, theme::kAccent);
    for (const double scale : {1.5, 2.0, 3.0}) {
        SCOPED_TRACE(scale);
        const Picture larger = DrawWindow(window_, {scale, Reading::kLeftToRight});
        EXPECT_EQ(larger.width, std::lround(one.width * scale));
        EXPECT_EQ(larger.height, std::lround(one.height * scale));
        const auto columns = ColumnsOf(larger, theme::kAccent);
        EXPECT_NEAR(columns.first, left * scale, 1);
        EXPECT_NEAR(columns.second + 1, (right + 1) * scale, 1);
    }
}

TEST_F(Pictures, RightToLeftMirrorsPlacesButNoPictures) {
    const HWND check = Add("BUTTON", "Text", BS_AUTOCHECKBOX);
    SendMessageA(check, BM_SETCHECK, BST_CHECKED, 0);
    const Picture normal = DrawWindow(window_, kPlain);
    const Picture mirrored = DrawWindow(window_, kMirrored);
    const auto before = ColumnsOf(normal, theme::kAccent);
    const auto after = ColumnsOf(mirrored, theme::kAccent);
    EXPECT_EQ(after.first, normal.width - 1 - before.second);
    EXPECT_EQ(after.second, normal.width - 1 - before.first);
    DestroyWindow(check);

    constexpr COLORREF kRed = RGB(255, 0, 0), kBlue = RGB(0, 0, 255);
    const HDC dc = CreateCompatibleDC(nullptr);
    const HBITMAP bitmap = CreateBitmap(20, 10, 1, 32, nullptr);
    const HGDIOBJ first = SelectObject(dc, bitmap);
    for (int x = 0; x < 20; ++x) {
        for (int y = 0; y < 10; ++y) SetPixel(dc, x, y, x < 10 ? kRed : kBlue);
    }
    SelectObject(dc, first);
    const HWND picture = Add("STATIC", "", SS_BITMAP);
    SendMessageA(picture, STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(bitmap));
    const Picture shown = DrawWindow(window_, kMirrored);
    const RECT place = PlaceInPicture(window_, picture, kMirrored);
    EXPECT_EQ(ColumnsOf(shown, 0xFF0000), std::pair(int{place.left}, int{place.left + 9}));
    EXPECT_EQ(ColumnsOf(shown, 0x0000FF), std::pair(int{place.left + 10}, int{place.left + 19}));
    DestroyWindow(picture);
    DeleteDC(dc);
    DeleteObject(bitmap);
}

// Draws an entry as a red square at the side where reading starts, like the module's pages.
LRESULT CALLBACK EntryOwner(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_DRAWITEM) return DefWindowProcA(window, message, wParam, lParam);
    const auto& draw = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
    const bool fromRight = (GetTextAlign(draw.hDC) & TA_RTLREADING) != 0;
    const LONG left = fromRight ? draw.rcItem.right - 4 : draw.rcItem.left;
    for (LONG x = left; x < left + 4; ++x) SetPixel(draw.hDC, x, 4, RGB(255, 0, 0));
    return TRUE;
}

TEST_F(Pictures, OwnersAreToldToDrawEntriesFromTheRight) {
    SetWindowLongPtrA(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(EntryOwner));
    const HWND combo = Add("COMBOBOX", "", CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED);
    SendMessageA(combo, CB_ADDSTRING, 0, Pointer("Entry"));
    const Picture normal = DrawWindow(window_, kPlain);
    const auto before = ColumnsOf(normal, 0xFF0000);
    ASSERT_LT(before.first, before.second);
    const auto after = ColumnsOf(DrawWindow(window_, kMirrored), 0xFF0000);
    EXPECT_EQ(after.first, normal.width - 1 - before.second);
    EXPECT_EQ(after.second, normal.width - 1 - before.first);
    EXPECT_EQ(ColumnsOf(DrawWindow(window_, kPlain), 0xFF0000), before);
}

TEST_F(Pictures, TextsWithoutRoomAreCountedWithTheirControl) {
    struct Room {
        const char* className;
        DWORD style;
        const char* text;
        RECT place;
        size_t clipped;
    };
    const char* const kLong = "A caption that is much longer than its control";
    const Room kRooms[] = {
        {"STATIC", SS_LEFT,                        "Short", {0, 0, 60, 13},  0},
        {"STATIC", SS_LEFT,                        kLong,   {0, 0, 60, 13},  1},
        {"STATIC", SS_LEFT,                        kLong,   {0, 0, 120, 39}, 0},  // wraps
        {"STATIC", SS_LEFTNOWORDWRAP,              kLong,   {0, 0, 120, 39}, 1},
        {"BUTTON", BS_PUSHBUTTON,                  kLong,   {0, 0, 60, 23},  1},
        {"BUTTON", BS_AUTOCHECKBOX,                kLong,   {0, 0, 60, 16},  1},
        {"BUTTON", BS_AUTOCHECKBOX | BS_MULTILINE, kLong,   {0, 0, 140, 30}, 0},
        {"BUTTON", BS_GROUPBOX,                    kLong,   {0, 0, 60, 40},  1},
        {"EDIT",   WS_BORDER | ES_AUTOHSCROLL,     kLong,   {0, 0, 60, 20},  0},  // scrolls
        {"EDIT",   ES_MULTILINE | ES_READONLY,     kLong,   {0, 0, 60, 20},  1},
    };
    for (const Room& room : kRooms) {
        SCOPED_TRACE(std::string(room.className) + " " + std::to_string(room.style));
        const HWND control = Add(room.className, room.text, room.style, room.place);
        const Picture picture = DrawWindow(window_, kPlain);
        EXPECT_EQ(picture.clipped.size(), room.clipped);
        for (const ClippedText& text : picture.clipped) {
            EXPECT_EQ(text.id, static_cast<UINT>(kId));
            EXPECT_EQ(text.text, room.text);
            EXPECT_GT(text.needed, text.available);
        }
        DestroyWindow(control);
    }
}

TEST_F(Pictures, EntriesOfAClosedComboBoxMustFitToo) {
    const HWND combo = Add("COMBOBOX", "", CBS_DROPDOWNLIST, {0, 0, 100, 100});
    SendMessageA(combo, CB_ADDSTRING, 0, Pointer("Short"));
    SendMessageA(combo, CB_ADDSTRING, 0, Pointer("An entry far too long for its box"));
    SendMessageA(combo, CB_SETCURSEL, 0, 0);
    EXPECT_EQ(DrawWindow(window_, kPlain).clipped.size(), 1u);
}

TEST_F(Pictures, PngFilesHoldThePictureAndAppearWhole) {
    char folder[] = "/tmp/kvpngXXXXXX";
    ASSERT_NE(mkdtemp(folder), nullptr);
    Add("BUTTON", "Text", BS_DEFPUSHBUTTON);
    const Picture picture = DrawWindow(window_, kPlain);
    const std::string path = std::string(folder) + "/picture.png";
    std::string error;
    ASSERT_TRUE(WritePng(path, picture, error)) << error;
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    ASSERT_NE(png_image_begin_read_from_file(&image, path.c_str()), 0) << image.message;
    image.format = PNG_FORMAT_RGB;
    std::vector<png_byte> rows(PNG_IMAGE_SIZE(image));
    ASSERT_NE(png_image_finish_read(&image, nullptr, rows.data(), 0, nullptr), 0) << image.message;
    ASSERT_EQ(image.width, static_cast<unsigned>(picture.width));
    ASSERT_EQ(image.height, static_cast<unsigned>(picture.height));
    for (size_t i = 0; i < picture.pixels.size(); ++i) {
        const std::uint32_t pixel =
            (rows[3 * i] << 16u) | (rows[3 * i + 1] << 8u) | rows[3 * i + 2];
        ASSERT_EQ(pixel, picture.pixels[i]) << "pixel " << i;
    }
    EXPECT_FALSE(WritePng(std::string(folder) + "/missing/picture.png", picture, error));
    EXPECT_NE(error.find("missing/picture.png"), std::string::npos) << error;
    fs::remove_all(folder);
}

// The command itself, on a state of its own.
class Shot : public testing::Test {
   protected:
    void SetUp() override {
        char folder[] = "/tmp/kvshotXXXXXX";
        ASSERT_NE(mkdtemp(folder), nullptr);
        folder_ = folder;
    }
    void TearDown() override { fs::remove_all(folder_); }

    int Run(const std::string& arguments) {
        const std::string command = std::string(KV_BIN_DIR "/kvprefs --state ") +
                                    (folder_ / "state").string() + " shot " + arguments +
                                    " 2>&1 </dev/null";
        output_.clear();
        FILE* pipe = popen(command.c_str(), "r");
        std::array<char, 4096> part{};
        while (const size_t size = fread(part.data(), 1, part.size(), pipe)) {
            output_.append(part.data(), size);
        }
        const int status = pclose(pipe);
        return WIFEXITED(status) ? WEXITSTATUS(status) : 128;
    }
    std::string Pictures() const { return (folder_ / "pictures").string(); }

    fs::path folder_;
    std::string output_;
};

TEST_F(Shot, EveryPageAndDialogIsDrawnAndNoTextLacksRoom) {
    ASSERT_EQ(Run(Pictures() + " --json"), 0) << output_;
    const auto report = nlohmann::json::parse(output_);
    for (const char* name : {"01-basic", "02-layout", "03-overlay", "04-watermark", "05-quality",
                             "06-device-options-setting", "07-troubleshooting",
                             "08-job-management", "first-page", "conflict", "image-shift",
                             "pages-per-sheet", "paper-source-details", "output-details",
                             "pages-per-sheet-style", "quality-list"}) {
        EXPECT_TRUE(fs::exists(fs::path(Pictures()) / (std::string(name) + ".png"))) << name;
    }
    for (const auto& file : report["files"]) {
        EXPECT_GT(fs::file_size(file.get<std::string>()), 1000u) << file;
    }
    for (const auto& text : report["clipped"]) ADD_FAILURE() << text.dump();
}

TEST_F(Shot, PagesAndDialogsAreAskedForByName) {
    ASSERT_EQ(Run(Pictures() + " --page Quality --scale 2 --rtl"), 0) << output_;
    ASSERT_EQ(Run(Pictures() + " --page first-page"), 0) << output_;
    size_t files = 0;
    for ([[maybe_unused]] const auto& file : fs::directory_iterator(Pictures())) ++files;
    EXPECT_EQ(files, 2u);
    EXPECT_EQ(Run(Pictures() + " --page Fax"), 2);
    EXPECT_NE(output_.find("\"Fax\""), std::string::npos) << output_;
    EXPECT_NE(output_.find("Basic, Layout, Overlay"), std::string::npos) << output_;
}

TEST_F(Shot, ADialogShowsWhatIsStoredWhereItOpensWithThat) {
    const auto details = [this](const std::string& pages) {
        const std::string set = KV_BIN_DIR "/kvprefs --state " + (folder_ / "state").string() +
                                " set ComboNup=" + pages + " >/dev/null";
        EXPECT_EQ(std::system(set.c_str()), 0);
        EXPECT_EQ(Run(Pictures() + " --page pages-per-sheet"), 0) << output_;
        std::ifstream file(Pictures() + "/pages-per-sheet.png", std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    const std::string four = details("4");
    EXPECT_TRUE(details("16") != four);
    EXPECT_TRUE(details("0") == four) << "one page per sheet has no details to show";
}

TEST_F(Shot, TheViewOfThePreviewIsChosenWhereThePageOffersIt) {
    const auto size = [this](const std::string& arguments) -> std::uintmax_t {
        if (Run(Pictures() + " --page " + arguments) != 0) return 0;
        return fs::file_size(output_.substr(0, output_.find('\n')));
    };
    const auto paper = size("Basic");
    ASSERT_GT(paper, 0u) << output_;
    EXPECT_EQ(size("Basic --view paper"), paper);
    EXPECT_LT(size("Basic --view printer"), paper) << output_;
    EXPECT_GT(size("Quality --view Quality"), size("Quality --view printer")) << output_;
    EXPECT_EQ(Run(Pictures() + " --page Basic --view quality"), 1);
    EXPECT_NE(output_.find("quality"), std::string::npos) << output_;
    EXPECT_EQ(Run(Pictures() + " --view sheet"), 2);
}

TEST_F(Shot, AFolderThatCannotBeIsNamed) {
    FILE* file = std::fopen(Pictures().c_str(), "w");
    std::fclose(file);
    EXPECT_EQ(Run(Pictures()), 2);
    EXPECT_NE(output_.find(Pictures()), std::string::npos) << output_;
}

}  // namespace
