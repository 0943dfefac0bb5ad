// Not so much tests as a tool: with KV_KEEP_PICTURES, the pictures that the README shows, and those
// of every page and dialog in one look. tools/pictures.sh runs them.
#include "sheet_tour.h"

#include <filesystem>

namespace journey {
namespace {

class Pictures : public SheetTour {
 protected:
    void SetUp() override {
        if (!std::getenv("KV_KEEP_PICTURES")) GTEST_SKIP() << "KV_KEEP_PICTURES names no folder";
        // As on an ordinary desktop; the display without a screen would take the first family it finds.
        QFont font = QApplication::font();
        font.setFamily(QStringLiteral("Liberation Sans"));
        QApplication::setFont(font);
        SheetTour::SetUp();
    }
    void TearDown() override {
        if (std::getenv("KV_KEEP_PICTURES")) SheetTour::TearDown();
    }
    void KeepPage(int page, const std::string& name) {
        PageWindow(page);
        QDialog* window = SheetWidget();
        ASSERT_NE(window, nullptr);
        Keep(*window, name);
        const auto file = std::filesystem::path(std::getenv("KV_KEEP_PICTURES")) / (name + ".png");
        EXPECT_TRUE(std::filesystem::exists(file)) << file;
    }
    void KeepTour(const std::string& prefix) {
        Tour([&prefix](QWidget& window, const std::string& name) { Keep(window, prefix + name); });
    }
};

TEST_F(Pictures, OfTheReadme) {
    OpenSheet();
    KeepPage(kBasic, "readme-basic");
    ChooseValue(IDC_COMBO_NUP, 4, kLayout);
    ChooseValue(IDC_COMBO_DUPLEX, 2, kLayout);
    KeepPage(kLayout, "readme-layout");
    KeepPage(kOverlay, "readme-overlay");
    kv::input::Choose(Item(IDC_LIST_WATERMARK, kWatermark), 1);
    KeepPage(kWatermark, "readme-watermark");
    KeepPage(kQuality, "readme-quality");
    KeepPage(kDevice, "readme-device");
    KeepPage(kTroubleshooting, "readme-troubleshooting");
    kv::input::Click(Item(IDC_CHK_ACCESS_CODE, kJob));
    KeepPage(kJob, "readme-job-management");
    VisitDialog("conflict",
                [](QWidget& window, const std::string&) { Keep(window, "readme-conflict"); });
}

TEST_F(Pictures, OfTheReadmeOnADarkDesktop) {
    UseDarkPalette();
    OpenSheet();
    ChooseValue(IDC_COMBO_NUP, 20, kLayout);
    KeepPage(kLayout, "readme-dark");
}

TEST_F(Pictures, OfTheReadmeFromRightToLeft) {
    ReadFromRightToLeft();
    OpenSheet();
    KeepPage(kBasic, "readme-right-to-left");
}

TEST_F(Pictures, OfEverything) {
    KeepTour("");
}

TEST_F(Pictures, OfEverythingOnADarkDesktop) {
    UseDarkPalette();
    KeepTour("dark-");
}

TEST_F(Pictures, OfEverythingFromRightToLeft) {
    ReadFromRightToLeft();
    KeepTour("right-to-left-");
}

TEST_F(Pictures, OfEverythingInLargeLetters) {
    UseFont(1.5);
    KeepTour("large-");
}

}  // namespace
}  // namespace journey
