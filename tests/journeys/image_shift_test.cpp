// Journeys through the image shift dialog: units, limits, typing and the stored words.
#include "preferences.h"

namespace journey {
namespace {

constexpr int kAcross = IDC_EDIT_OFFSET_X, kDown = IDC_EDIT_OFFSET_Y, kInch = IDC_RADIO_SHIFT_INCH,
              kMillimetre = IDC_RADIO_SHIFT_MM;
constexpr DWORD kTenths = 0x8000, kNegative = 0x4000;

class ImageShift : public Preferences {
 protected:
    void SetUp() override {
        Preferences::SetUp();
        UseUnit(4);  // inches
        Settings().mdmOtherSettings |= kvui::kOtherImageShifting;
    }
    static void UseUnit(DWORD unit) { PutNumber("CustomPaperUnit", unit); }
    void Store(DWORD x, DWORD y) {
        Settings().mdmOffsetX = x;
        Settings().mdmOffsetY = y;
    }
    void Open(int closer, const std::function<void(HWND)>& act) {
        if (sheet_ == nullptr) OpenSheet();
        InDialog(kLayout, IDC_BTN_IMAGE_SHIFT, closer, act);
    }
    static void TypeIn(HWND dialog, int id, const std::string& text) {
        kvtest::TypeIn(GetDlgItem(dialog, id), text);
    }
    static bool Checked(HWND dialog, int id) { return IsChecked(GetDlgItem(dialog, id)); }
};

TEST_F(ImageShift, LeavingAnEditShowsTheLimitInTheUnitsFormat) {
    // Whatever the locale's numbers look like; the tests' have a comma.
    const struct { int unit; int edit; const char* typed; const char* shown; } rows[] = {
        {kInch, kAcross, "0.7", "0.62"},         {kInch, kAcross, "-9", "-0.62"},
        {kInch, kDown, "0.3", "0.28"},           {kInch, kAcross, "", "0.00"},
        {kInch, kAcross, "-", "0.00"},           {kInch, kDown, ".25", "0.25"},
        {kMillimetre, kAcross, "-20", "-15.9"},  {kMillimetre, kDown, "8", "7.1"},
        {kMillimetre, kAcross, "15.8", "15.8"},
    };
    Open(IDOK, [&](HWND dialog) {
        for (const auto& row : rows) {
            ASSERT_TRUE(kv::input::Click(GetDlgItem(dialog, row.unit)));
            EXPECT_EQ(SendMessageA(GetDlgItem(dialog, row.edit), EM_GETLIMITTEXT, 0, 0), 5);
            TypeIn(dialog, row.edit, row.typed);
            ASSERT_TRUE(kv::input::Focus(GetDlgItem(dialog, IDOK)));
            EXPECT_EQ(Text(dialog, row.edit), row.shown) << row.typed;
        }
    });
    EXPECT_EQ(Settings().mdmOffsetX, kTenths | 158);
    EXPECT_EQ(Settings().mdmOffsetY, kTenths | 70);
}

TEST_F(ImageShift, WordsCarryMagnitudeSignAndUnit) {
    const struct { int unit; const char* across; const char* down; DWORD x; DWORD y; } rows[] = {
        {kInch, "0.5", "-0.25", 50, kNegative | 25},
        {kInch, "0.29", "0.28", 29, 27},
        {kMillimetre, "-5.7", "0", kTenths | kNegative | 57, kTenths},
        {kMillimetre, "15.9", "7.1", kTenths | 158, kTenths | 70},
        {kInch, "0", "0", 0, 0},
    };
    for (const auto& row : rows) {
        Open(IDOK, [&](HWND dialog) {
            ASSERT_TRUE(kv::input::Click(GetDlgItem(dialog, row.unit)));
            TypeIn(dialog, kAcross, row.across);
            TypeIn(dialog, kDown, row.down);
            ASSERT_TRUE(kv::input::Key(VK_RETURN));
        });
        EXPECT_EQ(Settings().mdmOffsetX, row.x) << row.across;
        EXPECT_EQ(Settings().mdmOffsetY, row.y) << row.down;
    }
}

TEST_F(ImageShift, TheUnitComesFromTheWordsElseFromThePrinterElseFromTheRegion) {
    const struct {
        DWORD x, y, printerUnit; const char* locale; bool inches; const char *across, *down;
    } rows[] = {
        {50, kNegative | 20, 2, "C", true, "0.50", "-0.20"},
        {kTenths | kNegative | 57, kTenths, 4, "C", false, "-5.7", "0.0"},
        {kTenths | 50, kNegative | 20, 4, "C", true, "0.50", "-0.20"},
        {kTenths | 50, kNegative | 20, 2, "C", false, "5.0", "-2.0"},
        {0, 0, 0, "en_US.UTF-8", true, "0.00", "0.00"},
        {0, 0, 0, "de_DE.UTF-8", false, "0.0", "0.0"},
        {0, 0, 0, "en_CA.UTF-8", true, "0.00", "0.00"},
    };
    for (const auto& row : rows) {
        SetVariable("LC_ALL", row.locale);
        UseUnit(row.printerUnit);
        Store(row.x, row.y);
        Open(IDCANCEL, [&](HWND dialog) {
            EXPECT_EQ(Text(dialog), "Image Shifting");
            EXPECT_EQ(Checked(dialog, kInch), row.inches) << row.locale << row.x;
            EXPECT_EQ(Checked(dialog, kMillimetre), !row.inches);
            EXPECT_EQ(Text(dialog, kAcross), row.across);
            EXPECT_EQ(Text(dialog, kDown), row.down);
            EXPECT_EQ(Text(dialog, IDC_ST_OFFSET_X_RANGE),
                      row.inches ? "[-0.63 - 0.63]" : "[-15.9 - 15.9]");
            EXPECT_EQ(Text(dialog, IDC_ST_OFFSET_Y_RANGE),
                      row.inches ? "[-0.28 - 0.28]" : "[-7.1 - 7.1]");
        });
        EXPECT_EQ(Settings().mdmOffsetX, row.x);
        EXPECT_EQ(Settings().mdmOffsetY, row.y);
    }
}

TEST_F(ImageShift, TheUnitIsRememberedUntilACancelForgetsIt) {
    UseUnit(2);
    Open(IDOK, [&](HWND dialog) { kv::input::Click(GetDlgItem(dialog, kInch)); });
    EXPECT_EQ(Settings().mdmOffsetX | Settings().mdmOffsetY, 0u) << "no inch is no shift";
    Open(IDCANCEL, [&](HWND dialog) { EXPECT_TRUE(Checked(dialog, kInch)); });
    Open(IDCANCEL, [&](HWND dialog) { EXPECT_TRUE(Checked(dialog, kMillimetre)); });
}

TEST_F(ImageShift, OnlyAnAcceptedShiftIsAChangeAndOutlivesAReset) {
    OpenSheet();
    for (const int closer : {IDCANCEL, IDOK, IDOK}) {
        const bool before = CanApply();
        Open(closer, [&](HWND dialog) { TypeIn(dialog, kAcross, "0.5"); });
        EXPECT_EQ(CanApply(), before || closer == IDOK);
        Notify(kLayout, PSN_RESET);
        EXPECT_EQ(Settings().mdmOffsetX, closer == IDOK ? 50u : 0u);
    }
    // A choice on the page is accepted by the dialog's opening.
    ASSERT_TRUE(kv::input::Click(Item(IDC_CHK_ROTATE, kLayout)));
    Open(IDCANCEL, [&](HWND) {});
    Notify(kLayout, PSN_RESET);
    EXPECT_TRUE(Settings().mdmOtherSettings & kvui::kOtherRotate);
}

TEST_F(ImageShift, TypingStopsAtWhatCannotStandThere) {
    const struct { int unit; const char* typed; const char* kept; int beeps; } rows[] = {
        {kInch, "0.123", "0.12", 1},       {kInch, "0-1", "01", 1},    {kInch, "1..5", "1.5", 1},
        {kInch, "-.5x", "-.5", 1},         {kInch, "a", "", 1},        {kInch, "-0.25", "-0.25", 0},
        {kMillimetre, "1.25", "1.2", 1},   {kMillimetre, "-3.5", "-3.5", 0},
    };
    Open(IDCANCEL, [&](HWND dialog) {
        for (const auto& row : rows) {
            ASSERT_TRUE(kv::input::Click(GetDlgItem(dialog, row.unit)));
            TypeIn(dialog, kAcross, "");
            const int before = kv::Headless().beeps;
            ASSERT_TRUE(kv::input::Type(row.typed));
            EXPECT_EQ(Text(dialog, kAcross), row.kept) << row.typed;
            EXPECT_EQ(kv::Headless().beeps, before + row.beeps) << row.typed;
        }
        const HWND edit = GetDlgItem(dialog, kAcross);
        ASSERT_TRUE(kv::input::SetEditText(edit, "1x2.3", 1, 1));
        EXPECT_EQ(Text(edit), "1");
        EXPECT_EQ(LOWORD(SendMessageA(edit, EM_GETSEL, 0, 0)), 1) << "the caret stands at the end";
    });
}

TEST_F(ImageShift, ArrowsMoveByOneStepWithinTheLimits) {
    Open(IDCANCEL, [&](HWND dialog) {
        const HWND across = GetDlgItem(dialog, IDC_SPIN_OFFSET_X);
        ASSERT_TRUE(kv::input::Step(across, 3));
        EXPECT_EQ(Text(dialog, kAcross), "0.03");
        ASSERT_TRUE(kv::input::Step(across, -4));
        EXPECT_EQ(Text(dialog, kAcross), "-0.01");
        ASSERT_TRUE(kv::input::Step(across, 1));
        EXPECT_EQ(Text(dialog, kAcross), "0.00");
        ASSERT_TRUE(kv::input::Click(GetDlgItem(dialog, kMillimetre)));
        ASSERT_TRUE(kv::input::Step(GetDlgItem(dialog, IDC_SPIN_OFFSET_Y), 80));
        EXPECT_EQ(Text(dialog, kDown), "7.1");
        ASSERT_TRUE(kv::input::Key(VK_DOWN));
        EXPECT_EQ(Text(dialog, kDown), "7.0");
    });
}

TEST_F(ImageShift, ChangingTheUnitConvertsAndDefaultsReset) {
    UseUnit(2);
    Store(kTenths | 100, kTenths | kNegative | 10);
    Open(IDOK, [&](HWND dialog) {
        ASSERT_TRUE(kv::input::Click(GetDlgItem(dialog, kInch)));
        EXPECT_EQ(Text(dialog, kAcross), "0.39");
        EXPECT_EQ(Text(dialog, kDown), "-0.04");
        EXPECT_EQ(Text(dialog, IDC_ST_OFFSET_X_RANGE), "[-0.63 - 0.63]");
        ASSERT_TRUE(kv::input::Click(GetDlgItem(dialog, kInch)));
        EXPECT_EQ(Text(dialog, kAcross), "0.39") << "the same unit converts nothing";
        ASSERT_TRUE(kv::input::Click(GetDlgItem(dialog, kMillimetre)));
        EXPECT_EQ(Text(dialog, kAcross), "9.9");
        ASSERT_TRUE(kv::input::Click(GetDlgItem(dialog, kInch)));
        ASSERT_TRUE(kv::input::Click(GetDlgItem(dialog, IDC_DEFAULTS)));
        EXPECT_TRUE(Checked(dialog, kMillimetre));
        EXPECT_EQ(Text(dialog, kAcross), "0.0");
        EXPECT_EQ(Text(dialog, IDC_ST_OFFSET_Y_RANGE), "[-7.1 - 7.1]");
    });
    EXPECT_EQ(Settings().mdmOffsetX, kTenths);
    EXPECT_EQ(Settings().mdmOffsetY, kTenths);
}

}  // namespace
}  // namespace journey
