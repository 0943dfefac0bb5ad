// The preview panel in the window: the pictures of its views and when they change.
#include "qt_fixture.h"
#include "tests/journeys/preferences.h"

#include <QLabel>
#include <QPushButton>

namespace journey {
namespace {

class PreviewInTheWindow : public Preferences {
 protected:
    // The large view is the highest of the labels that are seen.
    static QLabel* View() {
        QLabel* view = nullptr;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            for (QLabel* label : window->findChildren<QLabel*>()) {
                if (!label->isVisible()) continue;
                if (view == nullptr || label->height() > view->height()) view = label;
            }
        }
        return view;
    }
    static QImage Picture() {
        kv::Settle();
        QLabel* view = View();
        EXPECT_NE(view, nullptr);
        if (view == nullptr) return {};
        EXPECT_NEAR(double(view->width()) / view->height(), 160.0 / 194, 0.05);
        if (const char* folder = std::getenv("KV_KEEP_PICTURES")) {
            static int number = 0;
            const std::string path = std::string(folder) + "/view" + std::to_string(++number);
            view->window()->grab().save(QString::fromStdString(path + ".png"));
        }
        return view->grab().toImage();
    }
};

TEST_F(PreviewInTheWindow, EveryChoiceAndEverySwitchChangesThePicture) {
    OpenSheet();
    Item(2026);
    const QImage portrait = Picture();
    ASSERT_TRUE(kv::input::Click(Item(2027)));
    const QImage landscape = Picture();
    EXPECT_NE(landscape, portrait);
    ChooseValue(1410, 4, kLayout);
    const QImage four = Picture();
    EXPECT_NE(four, landscape);
    PageWindow(kQuality);
    const QImage sample = Picture();
    EXPECT_NE(sample, four);
    ASSERT_TRUE(kv::input::Click(Item(3202, kQuality)));
    EXPECT_NE(Picture(), sample);
    PageWindow(kBasic);
    const QImage grey = Picture();
    EXPECT_NE(grey, four);
    QPushButton* button = nullptr;
    for (QPushButton* shown : View()->window()->findChildren<QPushButton*>()) {
        if (shown->isVisible() && shown->text() == "Printer View") button = shown;
    }
    ASSERT_NE(button, nullptr);
    button->click();
    EXPECT_NE(Picture(), grey);
    EXPECT_EQ(button->text(), "Paper View");
    button->click();
    EXPECT_EQ(Picture(), grey);
}

}  // namespace
}  // namespace journey
