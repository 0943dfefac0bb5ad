// The watermark editor: what it shows, takes while it is typed, refuses and stores.
#include <kvlist.h>

#include "tests/journeys/preferences.h"

namespace journey {
namespace {

constexpr int kCommon = 1, kAll = 2;

class WatermarkEditor : public Preferences {
 protected:
    void SetUp() override {
        Preferences::SetUp();
        Limits(40, 10);
        Settings().mdmOtherSettings |= 0x10;
        Public().dmPaperSize = 9;  // A4
    }
    void Limits(int common, int own, const std::string& more = "") {
        UseRules("[Watermark]\nNTNum=" + std::to_string(common) +
                 "\nCurrentUser=" + std::to_string(own) + "\n" + more);
    }
    // A record of the stored list, by its name; id 0xFFFFFFFF when there is none.
    WatermarkRecord Stored(const std::string& name, DWORD scope = kAll) {
        const ListHandle list = QDMMLTReadWatermark(&printer);
        std::vector<WatermarkRecord> records(
            static_cast<size_t>(QDMMLTGetWatermarkNum(list, &printer, scope)));
        QDMMLTGetWatermarkArray(list, &printer, records.data(), scope);
        QDMMLTCancelWatermark(list, &printer);
        for (const WatermarkRecord& record : records) {
            if (name == record.name) return record;
        }
        WatermarkRecord none{};
        none.id = 0xFFFFFFFF;
        return none;
    }
    bool Has(const std::string& name, DWORD scope = kAll) {
        return Stored(name, scope).id != 0xFFFFFFFF;
    }
    // Opens the editor, acts, presses the button, and leaves by Cancel when it stays.
    void Edit(int opener, int closer, const std::function<void(HWND)>& act) {
        if (sheet_ == nullptr) OpenSheet();
        stays = false;
        kv::Headless().PushAnswer([&](HWND dialog) {
            act(dialog);
            const HWND sheet = GetParent(dialog);
            kv::input::Click(GetDlgItem(dialog, closer));
            stays = !IsWindowEnabled(sheet);
            if (stays) kv::input::Click(GetDlgItem(dialog, IDCANCEL));
        });
        ASSERT_TRUE(kv::input::Click(Item(opener, kWatermark)));
    }
    void Add(const std::function<void(HWND)>& act) { Edit(IDC_BTN_WATERMARK_ADD, IDOK, act); }
    void Change(const std::function<void(HWND)>& act) { Edit(IDC_BTN_WATERMARK_EDIT, IDOK, act); }
    void Answer(int button) {
        kv::Headless().PushAnswer([=, this](HWND box) {
            said += Text(GetDlgItem(box, 0xFFFF)) + "|";
            EXPECT_TRUE(kv::input::Click(GetDlgItem(box, button)));
        });
    }
    static void Type(HWND dialog, int id, const std::string& text) {
        kvtest::TypeIn(GetDlgItem(dialog, id), text);
    }
    static void Leave(HWND dialog) { kv::input::Focus(GetDlgItem(dialog, IDC_COMBO_WM_STYLE)); }
    static void Choose(HWND dialog, int id, int row) {
        ASSERT_TRUE(kv::input::Choose(GetDlgItem(dialog, id), row));
    }
    static std::string Choice(HWND dialog, int id) { return Selected(GetDlgItem(dialog, id)); }
    static std::string Numbers(HWND dialog) {
        std::string text;
        for (const int id : {IDC_EDIT_WM_SIZE, IDC_EDIT_WM_ANGLE, IDC_EDIT_WM_POSITION_X,
                             IDC_EDIT_WM_POSITION_Y}) {
            text += Text(dialog, id) + " ";
        }
        for (const int id : {IDC_SLD_WM_POSITION_X, IDC_SLD_WM_POSITION_Y}) {
            text += std::to_string(SendMessageA(GetDlgItem(dialog, id), TBM_GETPOS, 0, 0)) + " ";
        }
        return text;
    }
    const WatermarkRecord& Copied() {
        return *reinterpret_cast<const WatermarkRecord*>(Settings().watermarkRecord);
    }

    std::string said;
    bool stays = false;
};

TEST_F(WatermarkEditor, ANewOneBeginsWithTheDefaultsAndTheDiagonalOfThePaper) {
    Add([&](HWND dialog) {
        EXPECT_EQ(Text(dialog), "Watermark");
        EXPECT_EQ(Text(dialog, IDC_EDIT_WM_NAME), "Watermark Name -1-");
        EXPECT_EQ(Text(dialog, IDC_EDIT_WM_TEXT), "Watermark String");
        EXPECT_EQ(Choice(dialog, IDC_COMBO_WM_FACE), "Times New Roman");
        EXPECT_EQ(Choice(dialog, IDC_COMBO_WM_STYLE), "Regular");
        EXPECT_EQ(Choice(dialog, IDC_COMBO_WM_COLOR), "Others");
        EXPECT_EQ(Numbers(dialog), "72 54 0 0 50 50 ");
        EXPECT_EQ(Text(dialog, IDC_ST_WM_ANGLE_RANGE), "[-180 - 180]");
        EXPECT_TRUE(IsChecked(GetDlgItem(dialog, IDC_RADIO_WM_SHARED)));
        EXPECT_EQ(Settings().mdmOtherSettings & 0x200, 0u);
        Type(dialog, IDC_EDIT_WM_NAME, "   Pale");
    });
    const WatermarkRecord made = Stored("Pale", kCommon);
    EXPECT_EQ(made.id, 128u);
    EXPECT_STREQ(made.text, "Watermark String");
    EXPECT_EQ(made.angleMode, 4);
    EXPECT_EQ(made.angle, 54);
    EXPECT_EQ(made.size, 72u);
    EXPECT_EQ(made.red, 204);
    EXPECT_EQ(Settings().mdmWatermark, 128u);
    EXPECT_EQ(std::memcmp(&Copied(), &made, sizeof made), 0);

    CloseSheet();
    Limits(40, 10, "WatermarkDefaults=300,1,257,1,2,259,3,7,9,12,-12\n");
    Add([&](HWND dialog) {
        EXPECT_EQ(Choice(dialog, IDC_COMBO_WM_STYLE), "Bold Italic");
        EXPECT_EQ(Numbers(dialog).substr(0, 7), "200 90 ") << "vertical, and no larger than 200";
        Type(dialog, IDC_EDIT_WM_NAME, "Watermark Name -1-");
        kv::input::Click(GetDlgItem(dialog, IDC_RADIO_WM_OWN));
    });
    EXPECT_FALSE(Has("Watermark Name -1-", kCommon));
    EXPECT_EQ(Stored("Watermark Name -1-").blue, 3) << "the low byte of 259";
    Add([&](HWND dialog) { EXPECT_EQ(Text(dialog, IDC_EDIT_WM_NAME), "Watermark Name -2-"); });
}

TEST_F(WatermarkEditor, NumbersAreFilteredAsTheyAreTypedAndBroughtIntoRange) {
    const int size = IDC_EDIT_WM_SIZE, angle = IDC_EDIT_WM_ANGLE, x = IDC_EDIT_WM_POSITION_X,
              y = IDC_EDIT_WM_POSITION_Y;
    // field, typed, shown while it has the focus, shown after it, does it beep
    const struct {
        int id;
        const char *typed, *shown, *left;
        bool beeps;
    } rows[] = {
        {angle, "1a2", "12", "12", true},
        {angle, "-90", "-90", "-90", false},
        {angle, "9-0", "90", "90", true},
        {angle, "999", "999", "180", false},
        {angle, "-999", "-999", "-180", false},
        {angle, "", "", "0", false},
        {size, "7", "7", "8", false},
        {size, "999", "999", "200", false},
        {size, "", "", "8", false},
        {size, "-5", "-5", "8", false},
        {x, "50", "50", "50", false},
        {x, "101", "100", "100", false},
        {y, "-3x9", "-39", "-39", true},
        {y, "-101", "-100", "-100", false},
    };
    Edit(IDC_BTN_WATERMARK_ADD, IDCANCEL, [&](HWND dialog) {
        for (const auto& row : rows) {
            kv::Headless().beeps = 0;
            Type(dialog, row.id, row.typed);
            EXPECT_EQ(Text(dialog, row.id), row.shown) << row.typed;
            EXPECT_EQ(kv::Headless().beeps > 0, row.beeps) << row.typed;
            Leave(dialog);
            EXPECT_EQ(Text(dialog, row.id), row.left) << row.typed;
        }
        EXPECT_EQ(Numbers(dialog), "8 0 100 -100 100 100 ");
        // A slider stands at the place that is nearest to the text's.
        Type(dialog, y, "-39");
        Type(dialog, x, "51");
        EXPECT_EQ(Numbers(dialog).substr(std::string("8 0 ").size()), "51 -39 75 69 ");
        // Pasted at once, it is cut where it is no number any more.
        SetDlgItemTextA(dialog, x, "12b3");
        EXPECT_EQ(Text(dialog, x), "12");
    });
    EXPECT_FALSE(Has("Watermark Name -1-")) << "Cancel adds nothing";
}

TEST_F(WatermarkEditor, SlidersFieldsAndCenterMoveTheTextAlike) {
    const auto pixels = [](HWND dialog) {
        const HWND picture = GetDlgItem(dialog, IDC_PIC_WM_PAPER);
        RECT client{};
        GetClientRect(picture, &client);
        const HDC dc = GetDC(picture);
        const HDC memory = CreateCompatibleDC(dc);
        const HBITMAP bitmap = CreateCompatibleBitmap(dc, client.right, client.bottom);
        const HGDIOBJ before = SelectObject(memory, bitmap);
        SendMessageA(picture, WM_PAINT, 0, 0);
        BitBlt(memory, 0, 0, client.right, client.bottom, dc, 0, 0, SRCCOPY);
        // The middle of what is drawn, inside the outline, and its least component.
        LONG x = 0, y = 0, count = 0;
        for (LONG row = 6; row < client.bottom - 6; ++row) {
            for (LONG column = 6; column < client.right - 6; ++column) {
                if (GetPixel(memory, column, row) == 0xFFFFFF) continue;
                x += column;
                y += row;
                ++count;
            }
        }
        SelectObject(memory, before);
        DeleteObject(bitmap);
        DeleteDC(memory);
        ReleaseDC(picture, dc);
        return count == 0 ? POINT{-1, -1} : POINT{x / count, y / count};
    };
    Add([&](HWND dialog) {
        Type(dialog, IDC_EDIT_WM_NAME, "Placed");
        Type(dialog, IDC_EDIT_WM_TEXT, "Ab");
        Type(dialog, IDC_EDIT_WM_ANGLE, "0");
        Leave(dialog);
        const POINT middle = pixels(dialog);
        ASSERT_GT(middle.x, 0) << "the preview shows the text";
        for (const int id : {IDC_SLD_WM_POSITION_X, IDC_SLD_WM_POSITION_Y}) {
            ASSERT_TRUE(kv::input::DragTo(GetDlgItem(dialog, id), 75));
        }
        EXPECT_EQ(Numbers(dialog), "72 0 50 -50 75 75 ");
        const POINT moved = pixels(dialog);
        // A quarter of 112 x 159 pixels to the right and down.
        EXPECT_NEAR(moved.x - middle.x, 28, 2);
        EXPECT_NEAR(moved.y - middle.y, 40, 2);
        ASSERT_TRUE(kv::input::Click(GetDlgItem(dialog, IDC_BTN_WM_CENTER)));
        EXPECT_EQ(Numbers(dialog), "72 0 0 0 50 50 ");
        EXPECT_EQ(pixels(dialog).x, middle.x);
        Type(dialog, IDC_EDIT_WM_POSITION_X, "50");
        Type(dialog, IDC_EDIT_WM_POSITION_Y, "-50");
        EXPECT_EQ(pixels(dialog).x, moved.x);
    });
    const WatermarkRecord placed = Stored("Placed");
    EXPECT_EQ(placed.offsetX, 147) << "115 pixels * 50 / 100 * 36 / 14";
    EXPECT_LT(placed.offsetY, -200);
    EXPECT_EQ(placed.positionMode, 0u);
}

TEST_F(WatermarkEditor, ColoursAndTypefacesAreChosen) {
    Limits(40, 10,
           "SkipList=1,2,3,4\nSkipList1=Liberation Sans\nSkipList2=Liberation Serif\n"
           "SkipPlatform2=1\nSkipList3=Liberation Mono\nSkipPlatform3=2,99\n");
    const std::pair<int, int> colours[] = {{1, IDOK}, {7, IDCANCEL}, {7, IDOK}};
    Add([&](HWND dialog) {
        Type(dialog, IDC_EDIT_WM_NAME, "Red");
        const HWND faces = GetDlgItem(dialog, IDC_COMBO_WM_FACE);
        const auto has = [&](const char* name) {
            return SendMessageA(faces, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                reinterpret_cast<LPARAM>(name)) >= 0;
        };
        EXPECT_FALSE(has("Liberation Sans")) << "skipped everywhere";
        EXPECT_TRUE(has("Liberation Serif")) << "skipped on another platform";
        EXPECT_TRUE(has("Liberation Mono")) << "two numbers skip nothing";
        Choose(dialog, IDC_COMBO_WM_FACE,
               static_cast<int>(SendMessageA(faces, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                             reinterpret_cast<LPARAM>("Liberation Mono"))));
        Choose(dialog, IDC_COMBO_WM_STYLE, 3);
        for (const auto& [row, button] : colours) {
            if (row == 7) {
                kv::Headless().PushAnswer(
                    [button = button](HWND box) { kv::input::Click(GetDlgItem(box, button)); });
            }
            Choose(dialog, IDC_COMBO_WM_COLOR, row);
            EXPECT_EQ(Choice(dialog, IDC_COMBO_WM_COLOR),
                      row == 7 && button == IDOK ? "Others" : "Red");
        }
    });
    const WatermarkRecord red = Stored("Red");
    EXPECT_STREQ(red.typeface, "Liberation Mono");
    EXPECT_EQ(red.bold + 2 * red.italic, 3);
    EXPECT_EQ(red.red + red.green + red.blue, 255) << "the colour dialog begins with red";
    Change([&](HWND dialog) { EXPECT_EQ(Choice(dialog, IDC_COMBO_WM_COLOR), "Red"); });
}

TEST_F(WatermarkEditor, NamesTextsAndLimitsAreRefusedInItsOwnWords) {
    Add([&](HWND dialog) { Type(dialog, IDC_EDIT_WM_NAME, "One"); });
    Add([&](HWND dialog) {
        Type(dialog, IDC_EDIT_WM_TEXT, "   ");
        kv::Headless().beeps = 0;
        Leave(dialog);
        EXPECT_EQ(Text(dialog, IDC_EDIT_WM_TEXT), "Watermark String");
        EXPECT_EQ(kv::Headless().beeps, 1);
        SetDlgItemTextA(dialog, IDC_EDIT_WM_NAME, "");
    });
    EXPECT_TRUE(stays) << "a name is needed";
    // name, what is answered to, whether the editor stays, what is said
    const struct {
        const char* name;
        int answer;
        bool stays;
        const char* said;
    } rows[] = {
        {"One", IDCANCEL, true, "\"One\" is already registered.  Do you want to overwrite it?|"},
        {"one", 0, false, ""},
        {"One", IDOK, false, "\"One\" is already registered.  Do you want to overwrite it?|"},
        {"<NONE>", IDOK, true, "\"<NONE>\" is not valid. Please use different name!|"},
    };
    for (const auto& row : rows) {
        said.clear();
        Add([&](HWND dialog) {
            Type(dialog, IDC_EDIT_WM_NAME, row.name);
            Type(dialog, IDC_EDIT_WM_TEXT, row.name);
            if (row.answer != 0) Answer(row.answer);
        });
        EXPECT_EQ(stays, row.stays) << row.name;
        EXPECT_EQ(said, row.said);
    }
    EXPECT_STREQ(Stored("One").text, "One") << "overwritten under its id";
    EXPECT_EQ(Settings().mdmWatermark, Stored("One").id);

    // The printer's own stays as it is, whatever was agreed to.
    said.clear();
    Add([&](HWND dialog) {
        Type(dialog, IDC_EDIT_WM_NAME, "Draft");
        Answer(IDOK);
        Answer(IDOK);
    });
    EXPECT_TRUE(stays);
    EXPECT_THAT(said, testing::EndsWith("overwrite it?|The list cannot be stored.\nPlease check "
                                        "with your printer administrator.|"));
    EXPECT_EQ(Stored("Draft").id, 2u);

    // The common list is full: an administrator's next one is an own one, until that is full too.
    CloseSheet();
    Limits(0, 1);
    Add([&](HWND dialog) { Type(dialog, IDC_EDIT_WM_NAME, "Own"); });
    EXPECT_TRUE(Has("Own") && !Has("Own", kCommon));
    EXPECT_FALSE(IsWindowEnabled(Item(IDC_BTN_WATERMARK_ADD, kWatermark)));
    CloseSheet();
    Limits(40, 1);
    said.clear();
    Add([&](HWND dialog) {
        Type(dialog, IDC_EDIT_WM_NAME, "Full");
        kv::input::Click(GetDlgItem(dialog, IDC_RADIO_WM_OWN));
        Answer(IDOK);
    });
    EXPECT_TRUE(stays);
    EXPECT_EQ(said, "Maximum number of watermarks saved.|");
}

TEST_F(WatermarkEditor, RecordsAtTheirExtremesAreShownWithinTheLimits) {
    const ListHandle list = QDMMLTReadWatermark(&printer);
    WatermarkRecord hostile{};
    hostile.id = 128;
    std::memset(hostile.name, 'n', sizeof hostile.name - 1);
    std::memset(hostile.text, 'W', sizeof hostile.text - 1);
    std::strcpy(hostile.typeface, "No \"such\" face %s");
    hostile.size = 0xFFFFFFFF;
    hostile.bold = hostile.italic = hostile.angleMode = 0xFF;
    hostile.angle = static_cast<LONG>(0x80000000);
    hostile.positionMode = 0xFFFFFFFF;
    hostile.offsetX = 0x7FFFFFFF;
    hostile.offsetY = static_cast<LONG>(0x80000000);
    ASSERT_TRUE(QDMMLTAddWatermark(list, &printer, &hostile, 1));
    ASSERT_TRUE(QDMMLTWriteWatermark(list, &printer));
    Settings().mdmWatermark = 128;
    Settings().mdmWatermarkMode = 16;
    for (const SHORT paper : {9, 0, 600}) {
        CloseSheet();
        Public().dmPaperSize = paper;
        Edit(IDC_BTN_WATERMARK_EDIT, IDCANCEL, [&](HWND dialog) {
            EXPECT_EQ(Choice(dialog, IDC_COMBO_WM_FACE), "No \"such\" face %s");
            EXPECT_EQ(Choice(dialog, IDC_COMBO_WM_STYLE), "Bold Italic");
            EXPECT_EQ(Numbers(dialog).substr(0, 9), "200 -180 ");
            for (const int id : {IDC_PIC_WM_PAPER, IDC_PIC_WM_FRAME}) {
                SendMessageA(GetDlgItem(dialog, id), WM_PAINT, 0, 0);
            }
        });
    }
    Public().dmPaperSize = 9;
    CloseSheet();
    Change([&](HWND dialog) { EXPECT_EQ(Numbers(dialog), "200 -180 100 -100 100 100 "); });
    const WatermarkRecord kept = Stored(std::string(22, 'n'));
    EXPECT_EQ(kept.id, 128u);
    EXPECT_EQ(kept.size, 200u);
    EXPECT_EQ(kept.bold + kept.italic, 2);
    EXPECT_EQ(kept.positionMode, 0u);
    EXPECT_EQ(std::strlen(kept.text), 255u);
}

TEST_F(WatermarkEditor, SharingDecidesWhoseItIs) {
    Add([&](HWND dialog) { Type(dialog, IDC_EDIT_WM_NAME, "Mine"); });
    const DWORD id = Stored("Mine", kCommon).id;
    Change([&](HWND dialog) {
        EXPECT_TRUE(IsChecked(GetDlgItem(dialog, IDC_RADIO_WM_SHARED)));
        kv::input::Click(GetDlgItem(dialog, IDC_RADIO_WM_OWN));
        Type(dialog, IDC_EDIT_WM_TEXT, "Changed");
    });
    EXPECT_FALSE(Has("Mine", kCommon));
    EXPECT_EQ(Stored("Mine").id, id) << "the settings name it by that";
    EXPECT_STREQ(Stored("Mine").text, "Changed");
    EXPECT_STREQ(Copied().text, "Changed");
    Change([&](HWND dialog) {
        EXPECT_TRUE(IsChecked(GetDlgItem(dialog, IDC_RADIO_WM_OWN)));
        kv::input::Click(GetDlgItem(dialog, IDC_RADIO_WM_SHARED));
    });
    EXPECT_EQ(Stored("Mine", kCommon).id, id);
}

}  // namespace
}  // namespace journey
