// The Layout page and its dialogs in the window: what their drawn lists show.
#include "qt_fixture.h"
#include "tests/journeys/preferences.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QTimer>

#include <set>

namespace journey {
namespace {

class LayoutInTheWindow : public Preferences {
 protected:
    // Acts on the modal dialog that a click opens.
    void InDialog(int opener, int page, const QString& title,
                  const std::function<void(QDialog&)>& act) {
        bool came = false;
        QTimer::singleShot(100, [&] {
            QDialog* dialog = kv::DialogTitled(title);
            if (dialog != nullptr) act(*dialog);
            came = dialog != nullptr;
            kv::input::Key(VK_ESCAPE);
        });
        kv::input::Click(Item(opener, page));
        EXPECT_TRUE(came) << title.toStdString();
    }
    static void Keep(QWidget& widget, const char* name) {
        if (const char* folder = std::getenv("KV_KEEP_PICTURES")) {
            widget.grab().save(QString::fromUtf8(folder) + "/" + name + ".png");
        }
    }
    // More than the colours of text on its ground: a picture.
    static size_t Colours(const QImage& image) {
        std::set<QRgb> colours;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < std::min(image.width(), 60); ++x) {
                const QColor colour = image.pixelColor(x, y);
                if (colour.saturation() > 60) colours.insert(colour.rgb());
            }
        }
        return colours.size();
    }
    static std::vector<QComboBox*> Combos(const QWidget& window) {
        std::vector<QComboBox*> shown;
        for (QComboBox* combo : window.findChildren<QComboBox*>()) {
            if (combo->isVisible()) shown.push_back(combo);
        }
        return shown;
    }
};

TEST_F(LayoutInTheWindow, ListsOfTheDetailsShowPicturesAndTexts) {
    OpenSheet();
    ChooseValue(1410, 4, kLayout);
    InDialog(1430, kLayout, "Pages/Sheet Details", [](QDialog& dialog) {
        Keep(dialog, "details");
        ASSERT_EQ(Combos(dialog).size(), 2u);
        for (QComboBox* combo : Combos(dialog)) {
            EXPECT_GE(combo->count(), 4);
            EXPECT_FALSE(combo->currentText().isEmpty());
            EXPECT_GT(Colours(combo->grab().toImage()), 0u) << combo->currentText().toStdString();
            combo->showPopup();
            kv::Settle();
            Keep(*combo->view(), combo->count() == 6 ? "nup-list" : "order-list");
            EXPECT_GT(Colours(combo->view()->grab().toImage()), 0u);
            combo->hidePopup();
            kv::Settle();
        }
    });
    InDialog(1170, kBasic, "First Page", [](QDialog& dialog) {
        Keep(dialog, "first-page");
        ASSERT_EQ(Combos(dialog).size(), 2u);
        for (QComboBox* combo : Combos(dialog)) {
            EXPECT_GT(combo->count(), 1);
            EXPECT_FALSE(combo->currentText().isEmpty());
        }
    });
}

TEST_F(LayoutInTheWindow, ABookletReadsOnInTheDuplexList) {
    OpenSheet();
    ChooseValue(1410, 20, kLayout);
    kv::Settle();
    bool found = false;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible()) continue;
        for (QComboBox* combo : Combos(*window)) {
            found = found || (combo->currentText() == "On" && combo->currentIndex() == 0);
        }
        if (window->isWindow()) Keep(*window, "sheet");
    }
    EXPECT_TRUE(found);
}

TEST_F(LayoutInTheWindow, TheShiftEditsShowTheirAmounts) {
    OpenSheet();
    kv::input::Click(Item(1901, kLayout));
    InDialog(1912, kLayout, "Image Shifting", [](QDialog& dialog) {
        Keep(dialog, "image-shift");
        int edits = 0;
        for (const QLineEdit* edit : dialog.findChildren<QLineEdit*>()) {
            edits += edit->isVisible() && edit->text() == "0.0";
        }
        EXPECT_EQ(edits, 2);
    });
}

}  // namespace
}  // namespace journey
