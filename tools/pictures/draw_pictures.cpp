// Draws the pictures that the README shows, or every page and dialog in four looks, as the window
// has them: draw_pictures FOLDER readme|everything. tools/pictures.sh runs it. It walks over the
// sheet like the tests of the window do and fails like them when something does not open.
#include "sheet_tour.h"

#include <QAbstractButton>
#include <QImage>
#include <QPainter>

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
    for (const char* dialog : {"conflict", "watermark-editor", "paper-editor", "overlay-editor"}) {
        VisitDialog(dialog, [dialog](QWidget& window, const std::string&) {
            Keep(window, std::string("readme-") + dialog);
        });
    }
}

// What may stand together by the rules of the model: options, source, output, mailboxes.
constexpr struct {
    DWORD options;
    SHORT source;
    DWORD output, bins;
} kConfigurations[] = {
    {0x1, 1, 65, 0},     {0x5, 2, 65, 0},      {0x8D, 3, 65, 0},     {0x9D, 5, 75, 0},
    {0x409D, 11, 65, 0}, {0x800085, 2, 65, 0}, {0x485, 4, 69, 0x4},  {0x449D, 11, 69, 0x200},
    {0x8009D, 3, 76, 0}, {0x8409D, 1, 75, 0},  {0x10009D, 5, 75, 0}, {0x900085, 1, 75, 0},
};

TEST_F(Readme, ConfigurationsOfThePrinter) {
    constexpr int kColumns = 6;
    QImage all;
    int number = 0;
    for (const auto& row : kConfigurations) {
        Settings().mdmInstalledOptions = row.options;
        Public().dmDefaultSource = row.source;
        Settings().mdmOutBin = row.output;
        Settings().mdmMailBins = row.bins;
        OpenSheet();
        PageWindow(kDevice);
        QWidget* view = WidgetOf(*SheetWidget(), GetDlgItem(Panel(kDevice), IDC_PIC_MAIN_VIEW));
        ASSERT_NE(view, nullptr);
        const QImage picture = view->grab().toImage();
        if (all.isNull()) {
            all = QImage(picture.width() * kColumns,
                         picture.height() * static_cast<int>(std::size(kConfigurations)) / kColumns,
                         QImage::Format_RGB32);
        }
        QPainter(&all).drawImage(number % kColumns * picture.width(),
                                 number / kColumns * picture.height(), picture);
        ++number;
        CloseSheet();
    }
    EXPECT_TRUE(all.save(QString::fromUtf8(std::getenv("KV_KEEP_PICTURES")) +
                         "/readme-configurations.png"));
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

// The lists that users make, where they look otherwise: in inches, full, and to who is no
// administrator.
TEST_F(Everything, ListsInOtherStates) {
    OpenSheet();
    VisitDialog("paper-editor", [](QWidget& window, const std::string&) {
        window.findChild<QAbstractButton*>(QString::number(IDC_RADIO_PAPER_INCH))->click();
        kv::Settle();
        Keep(window, "paper-editor-inch");
    });
    CloseSheet();
    UseRules("[CustomPaper]\nNTNum=0\n[Watermark]\nNTNum=0\n");
    OpenSheet();
    KeepPage(kWatermark, "watermark-full");
    VisitDialog("custom-papers",
                [](QWidget& window, const std::string&) { Keep(window, "custom-papers-full"); });
    CloseSheet();
    Act(Actor::kUser);
    OpenSheet();
    KeepPage(kWatermark, "watermark-user");
    KeepPage(kOverlay, "overlay-user");
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
