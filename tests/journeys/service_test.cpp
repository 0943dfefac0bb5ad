// The service technician's dialogs behind the Device Options page: fields as they are, hues, and
// what Cancel and Factory Default take back.
#include "tests/journeys/preferences.h"

namespace journey {
namespace {

class Service : public Preferences {
 protected:
    // Opens the hidden dialog, acts on it and presses one of its buttons.
    void InAdvanced(int closer, const std::function<void(HWND)>& act,
                    unsigned modifiers = kv::input::kShift) {
        kv::Headless().PushAnswer([=](HWND dialog) {
            act(dialog);
            EXPECT_TRUE(kv::input::Click(GetDlgItem(dialog, closer)));
        });
        kv::input::RightClickAt(PageWindow(kDevice), {1, 1}, modifiers);
    }
    void InHues(HWND advanced, int closer, const std::function<void(HWND)>& act) {
        kv::Headless().PushAnswer([=](HWND dialog) {
            act(dialog);
            EXPECT_TRUE(kv::input::Click(GetDlgItem(dialog, closer)));
        });
        EXPECT_TRUE(kv::input::Click(GetDlgItem(advanced, IDC_BTN_HUES)));
    }
    static void Drag(HWND dialog, int id, int position) {
        EXPECT_TRUE(kv::input::DragTo(GetDlgItem(dialog, id), position));
    }
    static void TypeColour(HWND dialog, const char* red, const char* green, const char* blue) {
        kvtest::TypeIn(GetDlgItem(dialog, IDC_COLOR_RED), red);
        kvtest::TypeIn(GetDlgItem(dialog, IDC_COLOR_GREEN), green);
        kvtest::TypeIn(GetDlgItem(dialog, IDC_COLOR_BLUE), blue);
    }
};

TEST_F(Service, FieldsAreStoredAsTheyAreSetAndCancelTakesThemBack) {
    Settings().ColorMatching = 2;
    OpenSheet();
    kv::input::RightClickAt(PageWindow(kDevice), {1, 1});
    EXPECT_TRUE(kv::Headless().shown.empty()) << "a plain right click does nothing";
    InAdvanced(
        IDOK,
        [&](HWND dialog) {
            EXPECT_EQ(Text(dialog), "Advanced Settings (Hidden)");
            EXPECT_FALSE(IsChecked(GetDlgItem(dialog, IDC_CHK_COLOR_MATCHING))) << "only for 1";
            EXPECT_EQ(Text(GetDlgItem(dialog, IDC_ST_DOT_GAIN)), "DotGain=18 (0x12)");
            EXPECT_TRUE(GetWindowLongA(GetDlgItem(dialog, IDC_SLD_GCR), GWL_STYLE) & 0x400);
            Drag(dialog, IDC_SLD_DPL, -77);
            Drag(dialog, IDC_SLD_HIGH_CUTOFF, 32767);
            Drag(dialog, IDC_SLD_DOT_GAIN, 5000);
            EXPECT_EQ(Text(GetDlgItem(dialog, IDC_SLD_DPL + 1)), "-77");
            kv::input::Click(GetDlgItem(dialog, IDC_CHK_MIRROR));
            kv::input::Click(GetDlgItem(dialog, IDC_CHK_COLOR_MATCHING));
        },
        kv::input::kControl);
    EXPECT_EQ(static_cast<LONG>(Settings().Depletion), -77);
    EXPECT_EQ(Settings().ContrastHighCutoff, 32767u);
    EXPECT_EQ(Settings().DotGainAdjust, 1000u) << "its greatest";
    EXPECT_EQ(Settings().Mirror, 1u);
    EXPECT_EQ(Settings().ColorMatching, 1u);
    EXPECT_TRUE(CanApply());
    const auto kept = record_;
    InAdvanced(IDCANCEL, [&](HWND dialog) {
        Drag(dialog, IDC_SLD_BRIGHTNESS, 20);
        Drag(dialog, IDC_SLD_DPL, 3);
        kv::input::Click(GetDlgItem(dialog, IDC_CHK_MIRROR));
        EXPECT_EQ(Settings().Lightness, 20);
        InHues(dialog, IDCANCEL, [](HWND hues) {
            TypeColour(hues, "1", "2", "3");
            kv::input::Click(GetDlgItem(hues, IDC_RADIO_HUE_BLUE));
        });
    });
    auto expected = kept;
    reinterpret_cast<kvui::PrivateDevmode*>(expected.data() + sizeof(DEVMODEA))->HueRed = 0x030201;
    EXPECT_EQ(record_, expected) << "all but the hue that was left for another";
}

TEST_F(Service, HuesAreTypedAndRestored) {
    Settings().HueYellow = 0x112233;
    OpenSheet();
    InAdvanced(IDOK, [&](HWND dialog) {
        InHues(dialog, IDOK, [](HWND hues) {
            EXPECT_EQ(Text(hues), "Hue Correction (Hidden)");
            EXPECT_TRUE(IsChecked(GetDlgItem(hues, IDC_RADIO_HUE_RED)));
            EXPECT_FALSE(IsWindowVisible(GetDlgItem(hues, IDC_COLOR_CUSTOM)));
            kv::input::Click(GetDlgItem(hues, IDC_RADIO_HUE_YELLOW));
            EXPECT_EQ(Text(GetDlgItem(hues, IDC_COLOR_RED)), "51");
            TypeColour(hues, "300", "0", "255");
        });
        EXPECT_EQ(Settings().HueYellow, 0xFF002Cu) << "300 modulo 256 is 44";
        InHues(dialog, IDOK, [](HWND hues) {
            EXPECT_TRUE(kv::input::Click(GetDlgItem(hues, IDC_BTN_HUE_DEFAULTS)));
        });
    });
    std::array<BYTE, kRecordBytes> defaults = record_;
    QDMGetStdDefaults(&printer, defaults.data(), nullptr);
    const auto& standard =
        *reinterpret_cast<kvui::PrivateDevmode*>(defaults.data() + sizeof(DEVMODEA));
    EXPECT_EQ(Settings().HueYellow, standard.HueYellow);
    EXPECT_EQ(Settings().HueRed, standard.HueRed);
}

TEST_F(Service, FactoryDefaultCoversTheWholeRecordAndThePagesFollow) {
    OpenSheet();
    ChooseValue(IDC_COMBO_MEDIA_TYPE, 256);
    const DWORD installed = Settings().mdmInstalledOptions;
    Settings().mdmInstalledOptions = 0x1;
    InAdvanced(IDOK, [&](HWND dialog) {
        Drag(dialog, IDC_SLD_GCR, 3);
        kv::input::Click(GetDlgItem(dialog, IDC_BTN_FACTORY_DEFAULT));
        EXPECT_EQ(Text(GetDlgItem(dialog, IDC_SLD_GCR + 1)), "50");
    });
    EXPECT_EQ(Settings().MediaType, 1u);
    EXPECT_EQ(Settings().mdmInstalledOptions, installed);
    EXPECT_EQ(kvtest::Selected(Item(IDC_COMBO_MEDIA_TYPE)), "Plain Paper");
}

}  // namespace
}  // namespace journey
