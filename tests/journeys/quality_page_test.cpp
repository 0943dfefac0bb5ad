// Journeys over the Quality page: sliders and their value edits, colour, intents, defaults, and the
// small list dialog behind the export DDMTAB20.
#include <commctrl.h>

#include "preferences.h"
#include "tests/support/registry.h"

namespace journey {
namespace {

using Record = kvui::PrivateDevmode;

struct Slider {
    int slider, edit, spin;
    LONG Record::*field;
    LONG zero;  // stored at position 0
};
constexpr Slider kSliders[] = {
    {IDC_SLD_CONTRAST, IDC_EDIT_CONTRAST, IDC_SPIN_CONTRAST, &Record::Contrast, -50},
    {IDC_SLD_BRIGHTNESS, IDC_EDIT_BRIGHTNESS, IDC_SPIN_BRIGHTNESS, &Record::Lightness, -50},
    {IDC_SLD_SATURATION, IDC_EDIT_SATURATION, IDC_SPIN_SATURATION, &Record::Saturation, -50},
    {IDC_SLD_SHARPNESS, IDC_EDIT_SHARPNESS, IDC_SPIN_SHARPNESS, &Record::UnsharpMask, 0},
};

class QualityPage : public Preferences {
 protected:
    HWND On(int id) { return Item(id, kQuality); }
    LONG Stored(const Slider& slider) { return Settings().*slider.field; }
    LRESULT Position(int slider) { return SendMessageA(On(slider), TBM_GETPOS, 0, 0); }
    std::string Sample() { return Text(Panel(kQuality), IDC_PIC_MAIN_VIEW); }
};

TEST_F(QualityPage, TypedNumbersMoveTheSliderAndAreStoredInRange) {
    const struct { const char* typed; LONG position; } rows[] = {
        {"150", 100}, {"30", 30}, {"abc", 0}, {"", 0}, {"7", 7}, {"100", 100}, {"-4", 4}};
    OpenSheet();
    for (const Slider& slider : kSliders) {
        for (const auto& row : rows) {
            TypeInto(slider.edit, row.typed, kQuality);
            EXPECT_EQ(Text(On(slider.edit)), std::to_string(row.position)) << row.typed;
            EXPECT_EQ(Position(slider.slider), row.position) << row.typed;
            EXPECT_EQ(Stored(slider), slider.zero + row.position) << row.typed;
        }
        DWORD end = 0;
        SendMessageA(On(slider.edit), EM_GETSEL, 0, reinterpret_cast<LPARAM>(&end));
        EXPECT_EQ(end, 1u) << "the caret stays behind the corrected text";
    }
}

TEST_F(QualityPage, AHeldThumbMovesTheEditAndStoresWhenItIsReleased) {
    OpenSheet();
    for (const Slider& slider : kSliders) {
        const LONG before = Stored(slider);
        for (const int position : {60, 71, 83}) {
            ASSERT_TRUE(kv::input::TrackTo(On(slider.slider), position));
            EXPECT_EQ(Text(On(slider.edit)), std::to_string(position));
            EXPECT_EQ(Stored(slider), before) << slider.slider;
        }
        ASSERT_TRUE(kv::input::DragTo(On(slider.slider), 30, 5));
        EXPECT_EQ(Text(On(slider.edit)), "30");
        EXPECT_EQ(Stored(slider), slider.zero + 30) << slider.slider;
    }
}

TEST_F(QualityPage, SlidersStartAtWhatIsStoredGrowUpwardAndStopAtTheirEnds) {
    for (const Slider& slider : kSliders) {
        Settings().*slider.field = slider.zero + 30;
    }
    OpenSheet();
    for (const Slider& slider : kSliders) {
        EXPECT_TRUE(GetWindowLongPtrA(On(slider.slider), GWL_STYLE) & TBS_DOWNISLEFT);
        ASSERT_TRUE(kv::input::Focus(On(slider.slider)));
        EXPECT_EQ(Position(slider.slider), 30);
        EXPECT_EQ(Text(On(slider.edit)), "30");
        kv::input::Key(VK_PRIOR);
        EXPECT_EQ(Position(slider.slider), 40);
        EXPECT_EQ(Stored(slider), slider.zero + 40);
        ASSERT_TRUE(kv::input::Step(On(slider.spin), 500));
        EXPECT_EQ(Text(On(slider.edit)), "100");
        ASSERT_TRUE(kv::input::Step(On(slider.spin), -3));
        EXPECT_EQ(Stored(slider), slider.zero + 97);
        EXPECT_EQ(Position(slider.slider), 97);
        EXPECT_EQ(SendMessageA(On(slider.edit), EM_GETLIMITTEXT, 0, 0), 3);
    }
}

TEST_F(QualityPage, ApplyAndTheSharedViewHearOfAcceptedChangesOnly) {
    OpenSheet();
    Overhear(Panel(kQuality), [](UINT message, WPARAM) { return message == WM_USER + 300; });
    ASSERT_FALSE(CanApply());
    ASSERT_TRUE(kv::input::TrackTo(On(IDC_SLD_CONTRAST), 80));
    EXPECT_FALSE(CanApply()) << "the thumb is still held";
    EXPECT_EQ(heard.size(), 0u);
    ASSERT_TRUE(kv::input::DragTo(On(IDC_SLD_CONTRAST), 80));
    EXPECT_TRUE(CanApply());
    EXPECT_EQ(heard.size(), 1u);
    ASSERT_TRUE(kv::input::Click(On(IDC_RADIO_GRAYSCALE)));
    EXPECT_EQ(heard.size(), 2u);
    ASSERT_TRUE(kv::input::Click(On(IDC_DEFAULTS)));
    EXPECT_EQ(heard.size(), 3u);
}

const char kColourSample[] = "Sample picture, in color",
           kGreySample[] = "Sample picture, in black and white";

TEST_F(QualityPage, TheSampleIsColourWhileColourIsBothChosenAndPossible) {
    Public().dmColor = 1;
    OpenSheet();
    {
        // What the panel says when the page takes it over, before it is active.
        std::string first;
        kvtest::Listener display;
        display.changed = [&](HWND window, unsigned changes) {
            if (changes & kv::kChangedParent) first = Text(window, IDC_PIC_MAIN_VIEW);
        };
        PageWindow(kQuality);
        EXPECT_EQ(first, kGreySample);
    }
    const struct { SHORT colour; DWORD bit; const char* sample; } rows[] = {
        {1, 0x10, kGreySample}, {2, 0x10, kColourSample}, {2, 0, kGreySample}};
    for (const auto& row : rows) {  // what another page has changed
        PageWindow(kBasic);
        Public().dmColor = row.colour;
        Settings().mdmOtherSettings = (Settings().mdmOtherSettings & ~0x10u) | row.bit;
        EXPECT_EQ(Sample(), row.sample);
    }
}

TEST_F(QualityPage, AResolutionPublishesTheTablesOfItsAspect) {
    OpenSheet();
    ChooseValue(IDC_COMBO_RESOLUTION, 1200, kQuality);
    EXPECT_EQ(Public().dmPrintQuality, 1200);
    for (const char* name : {"dQDTAC820_D18_A200", "dQDTAC823_D18_A200"}) {
        const std::string bytes = kvtest::RegistryValue(
            HKEY_LOCAL_MACHINE, "Software\\VARNELL\\KVRENDER\\ThresholdLUTs", name);
        ASSERT_GT(bytes.size(), 8u) << name;
        EXPECT_EQ(bytes.size(), 8u + bytes[4] * bytes[6]) << "header, then one byte per pixel";
        EXPECT_EQ(bytes[4], 2 * bytes[6]) << "twice as many pixels across as down";
    }
}

TEST_F(QualityPage, ColourMatchingReachesTheRenderersField) {
    OpenSheet();
    ASSERT_TRUE(kv::input::Click(On(IDC_RADIO_MATCHING_OFF)));
    EXPECT_EQ(Settings().mdmColorMatching, 0u);
    EXPECT_EQ(Settings().ColorMatching, 0u);
    ASSERT_TRUE(kv::input::Click(On(IDC_RADIO_MATCHING_ON)));
    EXPECT_EQ(Settings().mdmColorMatching, 2u);
    EXPECT_EQ(Settings().ColorMatching, 1u);
    ChooseValue(IDC_COMBO_MATCH_PHOTO, 0x300, kQuality);
    ChooseValue(IDC_COMBO_MATCH_GRAPHICS, 2, kQuality);
    ChooseValue(IDC_COMBO_MATCH_TEXT, 0x20000, kQuality);
    EXPECT_EQ(Settings().RenderingIntent, 0x020302u);
}

TEST_F(QualityPage, DefaultsResetThePageAndCountAsColour) {
    OpenSheet();
    ASSERT_TRUE(kv::input::Click(On(IDC_RADIO_MATCHING_OFF)));
    ASSERT_TRUE(kv::input::Click(On(IDC_RADIO_GRAYSCALE)));
    ASSERT_TRUE(kv::input::Click(On(IDC_CHK_LINE_ART)));
    ChooseValue(IDC_COMBO_RESOLUTION, 1200, kQuality);
    TypeInto(IDC_EDIT_CONTRAST, "90", kQuality);
    Public().dmCopies = 9;
    EXPECT_EQ(Sample(), kGreySample);
    ASSERT_TRUE(kv::input::Click(On(IDC_DEFAULTS)));
    EXPECT_EQ(Public().dmColor, 2);
    EXPECT_EQ(Public().dmPrintQuality, 600);
    EXPECT_EQ(Public().dmCopies, 9);
    EXPECT_EQ(Settings().Contrast, 0);
    EXPECT_EQ(Text(On(IDC_EDIT_CONTRAST)), "50");
    EXPECT_EQ(Settings().mdmOtherSettings & 0x14, 0x10u);
    EXPECT_EQ(Sample(), kColourSample);
    EXPECT_EQ(Settings().mdmColorMatching, 2u);
    EXPECT_EQ(Settings().ColorMatching, 1u);
}

TEST_F(QualityPage, GrayscaleGraysSaturationWithItsCompanionsAndColourBringsThemBack) {
    OpenSheet();
    for (const bool colour : {false, true}) {
        ASSERT_TRUE(kv::input::Click(On(colour ? IDC_RADIO_COLOR : IDC_RADIO_GRAYSCALE)));
        EXPECT_EQ((Settings().mdmOtherSettings & 0x10) != 0, colour);
        for (const int id : {IDC_SLD_SATURATION, IDC_EDIT_SATURATION, IDC_SPIN_SATURATION,
                             IDC_COMBO_MATCH_PHOTO, IDC_RADIO_MATCHING_OFF}) {
            EXPECT_EQ(IsWindowEnabled(On(id)) != FALSE, colour) << id;
        }
        EXPECT_TRUE(IsWindowEnabled(On(IDC_EDIT_CONTRAST)));
    }
}

TEST_F(QualityPage, TheListDialogEndsWithOneAndTakesNothingBack) {
    OpenSheet();
    for (const int button : {IDOK, IDCANCEL}) {
        Public().dmColor = 2;
        kv::Headless().PushAnswer([this, button](HWND dialog) {
            EXPECT_EQ(Text(dialog), "DLGTAB2");
            EXPECT_NE(GetDlgItem(dialog, IDC_LIST_TAB20), nullptr);
            SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(IDC_RADIO_GRAYSCALE, BN_CLICKED), 0);
            EXPECT_TRUE(kv::input::Click(GetDlgItem(dialog, button)));
        });
        EXPECT_EQ(module_->RunDialog(PageWindow(kQuality), "_DLGTAB20", "DDMTAB20"), 1);
        EXPECT_EQ(Public().dmColor, 1) << button;
    }
}

}  // namespace
}  // namespace journey
