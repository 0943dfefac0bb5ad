// Draws the pictures that the README shows, or every page and dialog in four looks, as the window
// has them: draw_pictures FOLDER readme|everything. tools/pictures.sh runs it. It walks over the
// sheet like the tests of the window do and fails like them when something does not open.
#include "sheet_tour.h"

#include <cstdio>
#include <filesystem>

namespace journey {
namespace {

class Pictures : public SheetTour {
 protected:
    void SetUp() override {
        // As on an ordinary desktop; the display without a screen would take the first family it finds.
        QFont font = QApplication::font();
        font.setFamily(QStringLiteral("Liberation Sans"));
        QApplication::setFont(font);
        SheetTour::SetUp();
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

class Readme : public Pictures {};
class Everything : public Pictures {};

TEST_F(Readme, InItsOwnLook) {
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
    TypeInto(IDC_EDIT_ACCESS_NUMBER, "2718", kJob);
    KeepPage(kJob, "readme-job-management");
    VisitDialog("conflict",
                [](QWidget& window, const std::string&) { Keep(window, "readme-conflict"); });
}

TEST_F(Readme, OnADarkDesktop) {
    UseDarkPalette();
    OpenSheet();
    ChooseValue(IDC_COMBO_NUP, 20, kLayout);
    KeepPage(kLayout, "readme-dark");
}

TEST_F(Readme, FromRightToLeft) {
    ReadFromRightToLeft();
    OpenSheet();
    KeepPage(kBasic, "readme-right-to-left");
}

TEST_F(Everything, InItsOwnLook) {
    KeepTour("");
}

TEST_F(Everything, OnADarkDesktop) {
    UseDarkPalette();
    KeepTour("dark-");
}

TEST_F(Everything, FromRightToLeft) {
    ReadFromRightToLeft();
    KeepTour("right-to-left-");
}

TEST_F(Everything, InLargeLetters) {
    UseFont(1.5);
    KeepTour("large-");
}

}  // namespace
}  // namespace journey

int main(int argc, char** argv) {
    const std::string which = argc == 3 ? argv[2] : "";
    if (which != "readme" && which != "everything") {
        std::fputs("usage: draw_pictures FOLDER readme|everything\n", stderr);
        return 2;
    }
    setenv("KV_KEEP_PICTURES", argv[1], 1);
    testing::GTEST_FLAG(filter) = which == "readme" ? "Readme.*" : "Everything.*";
    testing::GTEST_FLAG(brief) = true;
    argc = 1;
    return kv::RunTestsOnQtDisplay(argc, argv);
}
